; The installer for Windows: for one user, without an administrator. packaging/windows/build gives VERSION,
; FILES (the folder to install), PROGRAM (what is started), REMOVAL (the list that takes FILES away again),
; SIZE_KB, COMPRESSOR, ICON and OUTPUT. With /S it asks nothing, and tells on its standard output why it does not install.
Unicode true
SetCompressor ${COMPRESSOR}
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS Win10

!include MUI2.nsh
!include LogicLib.nsh
!include WinVer.nsh

!define NAME "Korvel Pro"
!define CLASSES "Software\Classes"
!define REMOVE_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"

Name "${NAME}"
BrandingText "${NAME} ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${REMOVE_KEY}" "InstallLocation"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey CompanyName "Tarnwick"
VIAddVersionKey FileDescription "Installs ${NAME}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\${PROGRAM}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"

LangString running ${LANG_ENGLISH} "${NAME} is running. Nothing was changed: end it first, then try again."
LangString running ${LANG_GERMAN} "${NAME} läuft gerade. Nichts wurde geändert: Beenden Sie es erst, und versuchen Sie es dann noch einmal."
LangString old ${LANG_ENGLISH} "${NAME} needs Windows 10 or a later one."
LangString old ${LANG_GERMAN} "${NAME} braucht Windows 10 oder ein neueres."
LangString kept ${LANG_ENGLISH} "The ${NAME} that is installed could not be removed. Nothing new was installed."
LangString kept ${LANG_GERMAN} "Das installierte ${NAME} ließ sich nicht entfernen. Nichts Neues wurde installiert."
LangString plan ${LANG_ENGLISH} "Flight plan"
LangString plan ${LANG_GERMAN} "Flugplan"
LangString track ${LANG_ENGLISH} "Recorded track"
LangString track ${LANG_GERMAN} "Aufgezeichneter Flugweg"

; Tells it also whoever has started it with /S; leaves what comes of it to the caller.
!macro Say TEXT
  ${If} ${Silent}
    System::Call 'kernel32::GetStdHandle(i -11) p .r9'
    FileWrite $9 "${TEXT}$\r$\n"
  ${EndIf}
!macroend
!define Say "!insertmacro Say"

!macro Refuse TEXT
  ${Say} "${TEXT}"
  MessageBox MB_OK|MB_ICONEXCLAMATION "${TEXT}" /SD IDOK
  SetErrorLevel 2
  Quit
!macroend
!define Refuse "!insertmacro Refuse"

; A program that runs lets nobody write its own file, nor the one by which it holds the settings' folder.
!macro RefuseWhileRunning
  ${Do}
    StrCpy $1 ""
    !insertmacro NoteIfRunning "$INSTDIR\korvel.exe"
    !insertmacro NoteIfRunning "$INSTDIR\korvelctl.exe"
    !insertmacro NoteIfRunning "$APPDATA\${NAME}\korvel.lock"
    ${If} $1 == ""
      ${ExitDo}
    ${EndIf}
    ${Say} "$(running) ($1)"
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(running)$\r$\n$\r$\n$1" /SD IDCANCEL IDRETRY +3
    SetErrorLevel 2
    Quit
  ${Loop}
!macroend

!macro NoteIfRunning FILE
  ${If} ${FileExists} "${FILE}"
    ClearErrors
    FileOpen $0 "${FILE}" a
    ${If} ${Errors}
      StrCpy $1 "${FILE}"
    ${Else}
      FileClose $0
    ${EndIf}
  ${EndIf}
!macroend

; What opened such files before comes back when this is removed.
!macro Associate EXTENSION CLASS DESCRIPTION
  ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
  ${If} $0 != ""
  ${AndIf} $0 != "${CLASS}"
    WriteRegStr HKCU "${CLASSES}\${CLASS}" "Former" "$0"
  ${EndIf}
  WriteRegStr HKCU "${CLASSES}\${EXTENSION}" "" "${CLASS}"
  WriteRegStr HKCU "${CLASSES}\${CLASS}" "" "${DESCRIPTION}"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\DefaultIcon" "" "$INSTDIR\${PROGRAM},0"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\shell" "" "open"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\shell\open\command" "" '"$INSTDIR\${PROGRAM}" "%1"'
!macroend

!macro Dissociate EXTENSION CLASS
  ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
  ${If} $0 == "${CLASS}"
    ReadRegStr $1 HKCU "${CLASSES}\${CLASS}" "Former"
    ${If} $1 != ""
      WriteRegStr HKCU "${CLASSES}\${EXTENSION}" "" "$1"
    ${Else}
      DeleteRegValue HKCU "${CLASSES}\${EXTENSION}" ""
      DeleteRegKey /ifempty HKCU "${CLASSES}\${EXTENSION}"
    ${EndIf}
  ${EndIf}
  DeleteRegKey HKCU "${CLASSES}\${CLASS}"
!macroend

!macro TellShell
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Function .onInit
  ${IfNot} ${AtLeastWin10}
    ${Refuse} "$(old)"
  ${EndIf}
FunctionEnd

Section
  !insertmacro RefuseWhileRunning
  ${If} ${FileExists} "$INSTDIR\uninstall.exe"
    ; In its place, which it then cannot remove itself.
    ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR' $0
    ${If} $0 <> 0
      ${Refuse} "$(kept)"
    ${EndIf}
  ${EndIf}
  SetOutPath "$INSTDIR"
  File /r "${FILES}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\${PROGRAM}"
  !insertmacro Associate ".fp" "Korvel.Document" "$(plan)"
  !insertmacro Associate ".trk" "Korvel.Track" "$(track)"
  WriteRegStr HKCU "${REMOVE_KEY}" "DisplayName" "${NAME}"
  WriteRegStr HKCU "${REMOVE_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${REMOVE_KEY}" "DisplayIcon" "$INSTDIR\${PROGRAM},0"
  WriteRegStr HKCU "${REMOVE_KEY}" "Publisher" "Tarnwick"
  WriteRegStr HKCU "${REMOVE_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${REMOVE_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${REMOVE_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${REMOVE_KEY}" "EstimatedSize" ${SIZE_KB}
  WriteRegDWORD HKCU "${REMOVE_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${REMOVE_KEY}" "NoRepair" 1
  !insertmacro TellShell
SectionEnd

Section Uninstall
  !insertmacro RefuseWhileRunning
  !insertmacro Dissociate ".fp" "Korvel.Document"
  !insertmacro Dissociate ".trk" "Korvel.Track"
  DeleteRegKey HKCU "${REMOVE_KEY}"
  Delete "$SMPROGRAMS\${NAME}.lnk"
  ; Only what was installed: what else is there is the pilot's.
  !include "${REMOVAL}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  !insertmacro TellShell
SectionEnd
