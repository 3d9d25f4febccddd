; Installs the Vintrel server for all users or for the current one, registers it, and takes everything away again.
;   vintrel-setup.exe [/S] [/AllUsers | /CurrentUser] [/D=FOLDER]
; Built by the target `package`, which passes STAGE (the folder to install), VERSION and OUTPUT.

Unicode true
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "Vintrel"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vintrel"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallMode"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vintrel"
!include MultiUser.nsh
!include MUI2.nsh

Name "Vintrel server ${VERSION}"
OutFile "${OUTPUT}"
SetCompressor /SOLID lzma
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName "Vintrel server"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileDescription "Installs the Vintrel server"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright ""

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE German
!insertmacro MUI_LANGUAGE Italian

LangString REGISTRATION_FAILED ${LANG_ENGLISH} "The server could not be registered; nothing was installed."
LangString REGISTRATION_FAILED ${LANG_GERMAN} "Der Server konnte nicht registriert werden; es wurde nichts installiert."
LangString REGISTRATION_FAILED ${LANG_ITALIAN} "Impossibile registrare il server; non è stato installato nulla."

; regsvr32's own exit code tells; for one user the server's DllInstall writes below HKEY_CURRENT_USER.
!macro Regsvr32 unregister
  Push $1
  StrCpy $1 "/s"
  StrCmp $MultiUser.InstallMode "CurrentUser" 0 +2
    StrCpy $1 "/s /n /i:user"
  ClearErrors
  ExecWait '"$SYSDIR\regsvr32.exe" ${unregister} $1 "$INSTDIR\Vintrel.dll"' $0
  IfErrors 0 +2
    StrCpy $0 -1
  Pop $1
!macroend

!macro RemoveFiles
  ; Only what was installed: a folder that holds files of others stays.
  !include "${REMOVAL_LIST}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
!macroend

Function .onInit
  Push $INSTDIR   ; from /D=FOLDER; the install mode would put its own folder there
  !insertmacro MULTIUSER_INIT
  Exch $0
  StrCmp $0 "" +2
    StrCpy $INSTDIR $0
  Pop $0
FunctionEnd

Function un.onInit
  !insertmacro MULTIUSER_UNINIT
  ; The mode of the installation, not of the account that removes it.
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "UninstallString"
  StrCmp $0 '"$INSTDIR\uninstall.exe"' 0 +3
    Call un.MultiUser.InstallMode.CurrentUser
    Return
  Call un.MultiUser.InstallMode.AllUsers
FunctionEnd

Section
  SetOutPath "$INSTDIR"
  File /r "${STAGE}/*"
  SetOutPath "$TEMP"   ; the install folder must not be anyone's working folder
  !insertmacro Regsvr32 ""
  StrCmp $0 0 registered
    !insertmacro RemoveFiles
    SetErrorLevel 2
    MessageBox MB_ICONSTOP "$(REGISTRATION_FAILED)" /SD IDOK
    Abort "$(REGISTRATION_FAILED)"
registered:
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Vintrel server"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallMode" "$MultiUser.InstallMode"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section Uninstall
  !insertmacro Regsvr32 "/u"
  !insertmacro RemoveFiles
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd
