; Kestrel's installer. Silent with /S; for everybody (the default of an administrator) with /AllUsers,
; for the user alone with /CurrentUser.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
Name "Kestrel ${VERSION}"
OutFile "${OUT}"
RequestExecutionLevel highest
ShowInstDetails nevershow

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "Kestrel"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestrel"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include LogicLib.nsh
!include x64.nsh

!define MUI_ICON "..\refhost\windows\desktop\kestrel.ico"
!define MUI_UNICON "..\refhost\windows\desktop\kestrel.ico"
!insertmacro MUI_PAGE_LICENSE "${FILES}\LICENCE.txt"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Kestrel"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installs Kestrel"
VIAddVersionKey CompanyName "The Kestrel authors"
VIAddVersionKey LegalCopyright "Copyright (c) 2026 The Kestrel authors. MIT License."

Function .onInit
  ${IfNot} ${RunningX64}
    MessageBox MB_OK|MB_ICONSTOP "Kestrel needs a 64-bit Windows. For a 32-bit one take the DLL from the archive." /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  SetRegView 64
  !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
  SetRegView 64
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

; A file that a running program holds can be neither replaced nor removed: ask before any work.
!macro RefuseWhileRunning un
Function ${un}RefuseIfHeld
  Pop $0
  ${If} ${FileExists} "$0"
    again:
    ClearErrors
    FileOpen $1 "$0" a
    ${If} ${Errors}
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0 is in use, or may not be written. Close Kestrel and Schedulon, then try again." /SD IDCANCEL IDRETRY again
      SetErrorLevel 3
      Quit
    ${EndIf}
    FileClose $1
  ${EndIf}
FunctionEnd
!macroend
!insertmacro RefuseWhileRunning ""
!insertmacro RefuseWhileRunning "un."
!macro RefuseAll un
  Push "$INSTDIR\x64\kestrel.exe"
  Call ${un}RefuseIfHeld
  Push "$INSTDIR\x64\kestrel-desktop.exe"
  Call ${un}RefuseIfHeld
  Push "$INSTDIR\x64\KestrelDll.dll"
  Call ${un}RefuseIfHeld
  Push "$INSTDIR\x86\KestrelDll.dll"
  Call ${un}RefuseIfHeld
!macroend

Section
  !insertmacro RefuseAll ""
  ${If} ${FileExists} "$INSTDIR\uninstall.exe"
    ; Files that an older version had and this one lacks must not stay.
    ExecWait '"$INSTDIR\uninstall.exe" /S /$MultiUser.InstallMode _?=$INSTDIR'
  ${EndIf}
  SetOutPath "$INSTDIR"
  File /r "${FILES}\*.*"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  ExecWait '"$SYSDIR\regsvr32.exe" /s "$INSTDIR\x64\KestrelDll.dll"' $0
  ${If} $0 <> 0
    MessageBox MB_OK|MB_ICONEXCLAMATION "KestrelDll.dll (64 bits) could not be registered; see REGISTERING.txt." /SD IDOK
    SetErrorLevel 4
  ${EndIf}
  ${If} ${FileExists} "$WINDIR\SysWOW64\regsvr32.exe"
    ExecWait '"$WINDIR\SysWOW64\regsvr32.exe" /s "$INSTDIR\x86\KestrelDll.dll"' $0
    ${If} $0 <> 0
      MessageBox MB_OK|MB_ICONEXCLAMATION "KestrelDll.dll (32 bits) could not be registered; see REGISTERING.txt." /SD IDOK
      SetErrorLevel 4
    ${EndIf}
  ${EndIf}

  WriteRegStr SHCTX "Software\Classes\Kestrel.Plan" "" "Kestrel plan"
  WriteRegStr SHCTX "Software\Classes\Kestrel.Plan\DefaultIcon" "" "$INSTDIR\x64\kestrel-desktop.exe,0"
  WriteRegStr SHCTX "Software\Classes\Kestrel.Plan\shell\open\command" "" '"$INSTDIR\x64\kestrel-desktop.exe" "%1"'
  WriteRegStr SHCTX "Software\Classes\.kplan" "" "Kestrel.Plan"

  CreateDirectory "$SMPROGRAMS\Kestrel"
  CreateShortcut "$SMPROGRAMS\Kestrel\Kestrel.lnk" "$INSTDIR\x64\kestrel-desktop.exe"
  CreateShortcut "$SMPROGRAMS\Kestrel\Example.lnk" "$INSTDIR\x64\kestrel-desktop.exe" '"$INSTDIR\examples\ferry-terminal.kplan"'
  CreateShortcut "$SMPROGRAMS\Kestrel\Help.lnk" "$INSTDIR\x64\help\index.html"

  WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "Kestrel"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\x64\kestrel-desktop.exe"
  WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "The Kestrel authors"
  WriteRegStr SHCTX "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S /$MultiUser.InstallMode'
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "un."
  !insertmacro RefuseAll "un."
  ExecWait '"$SYSDIR\regsvr32.exe" /s /u "$INSTDIR\x64\KestrelDll.dll"'
  ${If} ${FileExists} "$WINDIR\SysWOW64\regsvr32.exe"
    ExecWait '"$WINDIR\SysWOW64\regsvr32.exe" /s /u "$INSTDIR\x86\KestrelDll.dll"'
  ${EndIf}
  DeleteRegKey SHCTX "Software\Classes\Kestrel.Plan"
  ReadRegStr $0 SHCTX "Software\Classes\.kplan" ""
  ${If} $0 == "Kestrel.Plan"
    DeleteRegValue SHCTX "Software\Classes\.kplan" ""
    DeleteRegKey /ifempty SHCTX "Software\Classes\.kplan"
  ${EndIf}
  Delete "$SMPROGRAMS\Kestrel\*.lnk"
  RMDir "$SMPROGRAMS\Kestrel"
  !include "${REMOVE}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey SHCTX "${UNINSTALL}"
SectionEnd
