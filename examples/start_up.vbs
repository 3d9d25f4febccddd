' Prepares the server for an exchange and asks how to open its link.
' Run it with the 32-bit script host: %windir%\SysWOW64\cscript.exe //nologo start_up.vbs
Option Explicit

Dim options, link, pabxType
Set options = CreateObject("Vintrel.SetServerOptions")
Set link = CreateObject("Vintrel.ComProgramSet")

pabxType = "type10014"
options.SetAllUserCommonDocumentsDirA "C:\ProgramData\Hotel"
options.SetHelpFilePage "C:\ProgramData\Hotel\Diagrams.chm", "Diagrams"
options.SetServerLanguage "GER"
options.InitializeServer pabxType
options.InitializeServerSec pabxType

WScript.Echo "type code         " & pabxType
WScript.Echo "connection type   " & link.GetPABXConnectionType(pabxType)
WScript.Echo "reconnection      " & link.GetPABXTCPIPREConnection(pabxType)
WScript.Echo "prompts           " & link.GetPABXTCPIPIDRequest2(pabxType) & link.GetPABXTCPIPPWRequest2(pabxType)

options.UnInitializeServer pabxType
