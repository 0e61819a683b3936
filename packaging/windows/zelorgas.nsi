; The installer: program, command line and licences for the person who runs it, without an
; administrator's rights; Start menu; the endings ".fob" and ".osc". /S installs without a question,
; /D=FOLDER, as the last argument, to another folder. Made by packaging/windows/build.
Target amd64-unicode
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh

!define NAME ZelorGAS
!define COMPANY "Tarnwick Ltd."
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define SETTINGS_KEY "Software\Tarnwick\${NAME}"
!define CLASSES "Software\Classes"

Name "${NAME} ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" InstallLocation
RequestExecutionLevel user
SetCompressor /SOLID lzma
ManifestDPIAware true
BrandingText " "

VIProductVersion "${VERSION}"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installs ${NAME}"
VIAddVersionKey CompanyName "${COMPANY}"
VIAddVersionKey LegalCopyright "GPL-3.0-or-later"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!define MUI_FINISHPAGE_NOAUTOCLOSE
!insertmacro MUI_PAGE_LICENSE "${STAGE}\licences\ZelorGAS.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Bulgarian

; $1 is the file.
LangString STILL_RUNS ${LANG_ENGLISH} "${NAME} is running ($1). Please close it and try again."
LangString STILL_RUNS ${LANG_BULGARIAN} "${NAME} работи ($1). Моля, затворете я и опитайте отново."

; Files and stored configurations lie below the folder that the program is started in.
!define WORKING_FOLDER "$DOCUMENTS\${NAME}"
!define WINDOW_ENTRY "$SMPROGRAMS\${NAME}.lnk"
!define COMMAND_LINE_ENTRY "$SMPROGRAMS\${NAME} command line.lnk"

Function StartProgram
  SetOutPath "${WORKING_FOLDER}"
  Exec '"$INSTDIR\zelorgas.exe"'
FunctionEnd

; A running program's file cannot be written.
!macro StopWhileRuns FILE
  StrCpy $1 "${FILE}"
  ${DoWhile} ${FileExists} "$INSTDIR\$1"
    ClearErrors
    FileOpen $0 "$INSTDIR\$1" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(STILL_RUNS)" /SD IDCANCEL IDCANCEL`
      SetErrorLevel 1
      Quit
    ${EndIf}
  ${Loop}
!macroend

!macro StopWhileRunning
  !insertmacro StopWhileRuns zelorgas.exe
  !insertmacro StopWhileRuns zelorgas-cli.exe
  !insertmacro StopWhileRuns ZelorGas_bg.dll
!macroend

; Opens files with this ending by the program, which then works in the same folder as from the Start menu,
; not in the file's. What had the ending before is kept for the uninstaller.
!macro Associate ENDING FILE_TYPE DESCRIPTION
  ReadRegStr $0 HKCU "${CLASSES}\${ENDING}" ""
  ${If} $0 != "${FILE_TYPE}"
  ${AndIf} $0 != ""
    WriteRegStr HKCU "${CLASSES}\${ENDING}" "${NAME}.before" $0
  ${EndIf}
  WriteRegStr HKCU "${CLASSES}\${ENDING}" "" "${FILE_TYPE}"
  WriteRegStr HKCU "${CLASSES}\${FILE_TYPE}" "" "${DESCRIPTION}"
  WriteRegStr HKCU "${CLASSES}\${FILE_TYPE}\DefaultIcon" "" "$INSTDIR\zelorgas.exe,0"
  WriteRegStr HKCU "${CLASSES}\${FILE_TYPE}\shell\open\command" "" '"$INSTDIR\zelorgas.exe" documents "%1"'
!macroend

!macro Dissociate ENDING FILE_TYPE
  ReadRegStr $0 HKCU "${CLASSES}\${ENDING}" ""
  ${If} $0 == "${FILE_TYPE}"
    ReadRegStr $1 HKCU "${CLASSES}\${ENDING}" "${NAME}.before"
    ${If} $1 == ""
      DeleteRegValue HKCU "${CLASSES}\${ENDING}" ""
    ${Else}
      WriteRegStr HKCU "${CLASSES}\${ENDING}" "" $1
    ${EndIf}
  ${EndIf}
  DeleteRegValue HKCU "${CLASSES}\${ENDING}" "${NAME}.before"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${ENDING}"
  DeleteRegKey HKCU "${CLASSES}\${FILE_TYPE}"
!macroend

; The Explorer learns that endings have changed.
!macro TellExplorer
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section
  !insertmacro StopWhileRunning
  SetOutPath "$INSTDIR"
  File "${STAGE}\*.exe"
  File "${STAGE}\ZelorGas_bg.dll"
  SetOutPath "$INSTDIR\licences"
  File "${STAGE}\licences\*.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  ; Here the person puts the ECU's firmware images.
  CreateDirectory "${WORKING_FOLDER}\firmware"
  SetOutPath "${WORKING_FOLDER}"
  CreateShortcut "${WINDOW_ENTRY}" "$INSTDIR\zelorgas.exe"
  CreateShortcut "${COMMAND_LINE_ENTRY}" "$SYSDIR\cmd.exe" '/k set "PATH=$INSTDIR;%PATH%"' \
    "$INSTDIR\zelorgas-cli.exe"

  !insertmacro Associate .fob zelorgas.Document "ZelorGAS configuration"
  !insertmacro Associate .osc zelorgas.Recording "ZelorGAS recording"
  !insertmacro TellExplorer

  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "${NAME}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\zelorgas.exe,0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "${COMPANY}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize $0
SectionEnd

; $1 is then the name of an ECU whose configuration is still to be put back after a firmware update, which
; the settings remember; empty when there is none.
Function un.FindConfigurationToPutBack
  StrCpy $0 0
  ${Do}
    EnumRegValue $1 HKCU "${SETTINGS_KEY}\FirmwareBackups" $0
    ${If} $1 == ""
      Return
    ${EndIf}
    ReadRegStr $2 HKCU "${SETTINGS_KEY}\FirmwareBackups" $1
    ${If} $2 != ""
      Return
    ${EndIf}
    IntOp $0 $0 + 1
  ${Loop}
FunctionEnd

; What the person made stays: stored configurations, recordings, firmware images; and the settings, as
; long as an installation anew has to find in them what is still to be done to an ECU.
Section Uninstall
  !insertmacro StopWhileRunning
  Delete "${WINDOW_ENTRY}"
  Delete "${COMMAND_LINE_ENTRY}"
  Delete "$INSTDIR\zelorgas.exe"
  Delete "$INSTDIR\zelorgas-cli.exe"
  Delete "$INSTDIR\ZelorGas_bg.dll"
  Delete "$INSTDIR\licences\*.txt"
  RMDir "$INSTDIR\licences"
  Delete "$INSTDIR\uninstall.exe"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  RMDir "${WORKING_FOLDER}\firmware"
  RMDir "${WORKING_FOLDER}"

  !insertmacro Dissociate .fob zelorgas.Document
  !insertmacro Dissociate .osc zelorgas.Recording
  !insertmacro TellExplorer
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  Call un.FindConfigurationToPutBack
  ${If} $1 == ""
    DeleteRegKey HKCU "${SETTINGS_KEY}"
    DeleteRegKey /ifempty HKCU "Software\Tarnwick"
  ${EndIf}
SectionEnd
