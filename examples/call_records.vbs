' Converts one call record of a Mitel exchange and cuts its fields out, as a host does for every record.
' Run it with the 32-bit script host: %windir%\SysWOW64\cscript.exe //nologo call_records.vbs
Option Explicit

Dim receive, layout, pabxType, record, gdv, body
Set receive = CreateObject("Vintrel.ComEventsRX")
Set layout = CreateObject("Vintrel.ComGdvFilter")

' Extension 204 dialled 0041223344 on trunk 7, two minutes and five seconds on 15 November 2026 at 14:05.
pabxType = "TYPE10004"
record = "H  204 0000      10 261115 14:05 00h02m05 00007             00003 0041223344      "

gdv = receive.GetComConvertStringRX(pabxType, record)
If gdv = Chr(16) Then
    WScript.Echo "not a call"
ElseIf Len(gdv) <> layout.GetGdvRealStringLen() Then
    WScript.Echo "malformed record: " & Len(gdv) & " characters"
Else
    body = Mid(gdv, layout.GetGdvRealStringLenStart(), layout.GetGdvRealStringLenStop())
    WScript.Echo "extension " & Mid(body, layout.GetGdvUserLenStart(), layout.GetGdvUserLenStop())
    WScript.Echo "number    " & Trim(Mid(body, layout.GetGdvNumberLenStart(), layout.GetGdvNumberLenStop()))
    WScript.Echo "seconds   " & Mid(body, layout.GetGdvDurationSLenStart(), layout.GetGdvDurationSLenStop())
    WScript.Echo "type      " & Mid(body, layout.GetGdvTypeLenStart(), layout.GetGdvTypeLenStop())
End If
