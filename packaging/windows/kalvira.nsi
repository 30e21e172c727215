; The setup for Windows: for the user who starts it, no administrator. Silent with /S, the folder with
; /D=C:\Ordner (last, without quotes). Defined from outside: VERSION, STAGE (the folder with the
; program), OUTPUT, LISTS (what to lay down and what to take away, file by file).
Target amd64-unicode
Unicode true
!include MUI2.nsh
!include FileFunc.nsh

Name "Kalvira"
OutFile "${OUTPUT}"
BrandingText "Kalvira ${VERSION}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Kalvira"
InstallDirRegKey HKCU "Software\Kalvira" "Ordner"
SetCompressor /SOLID lzma
SetCompressorDictSize 32
SetDateSave off
CRCCheck force
ManifestDPIAware true
ManifestLongPathAware true
ManifestSupportedOS all

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1031 "ProductName" "Kalvira"
VIAddVersionKey /LANG=1031 "FileDescription" "Kalvira einrichten"
VIAddVersionKey /LANG=1031 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1031 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1031 "LegalCopyright" ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\kalvira.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Kalvira starten"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "German"

!define TYPE "Kalvira.Jahr"
!define CLASSES "Software\Classes"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kalvira"
!define SHCNE_ASSOCCHANGED 0x08000000

; A running program cannot be replaced, and a half replaced one does not start.
!macro WaitUntilClosed
  ${Do}
    ClearErrors
    ${IfNot} ${FileExists} "$INSTDIR\kalvira.exe"
      ${ExitDo}
    ${EndIf}
    FileOpen $0 "$INSTDIR\kalvira.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Kalvira ist noch geöffnet. Bitte schließen Sie das Programm." /SD IDCANCEL IDRETRY +3
      SetErrorLevel 2
      Quit
  ${Loop}
!macroend

Section
  SetShellVarContext current
  !insertmacro WaitUntilClosed
  !include "${LISTS}/lay-down.nsh"
  WriteUninstaller "$INSTDIR\Entfernen.exe"

  SetOutPath "$INSTDIR"
  CreateDirectory "$SMPROGRAMS\Kalvira"
  CreateShortcut "$SMPROGRAMS\Kalvira\Kalvira.lnk" "$INSTDIR\kalvira.exe"
  CreateShortcut "$SMPROGRAMS\Kalvira\Handbuch.lnk" "$INSTDIR\handbuch\index.html"

  ; A double click, "Öffnen mit", and the name alone in the box "Ausführen".
  WriteRegStr HKCU "${CLASSES}\${TYPE}" "" "Kalvira-Jahresdatei"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\DefaultIcon" "" "$INSTDIR\kalvira.exe,0"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\open\command" "" '"$INSTDIR\kalvira.exe" "%1"'
  WriteRegStr HKCU "${CLASSES}\.kwd\OpenWithProgids" "${TYPE}" ""
  ReadRegStr $0 HKCU "${CLASSES}\.kwd" ""
  ${If} $0 != "${TYPE}"
    WriteRegStr HKCU "Software\Kalvira" "kwd vorher" "$0"
    WriteRegStr HKCU "${CLASSES}\.kwd" "" "${TYPE}"
  ${EndIf}
  WriteRegStr HKCU "${CLASSES}\Applications\kalvira.exe" "FriendlyAppName" "Kalvira"
  WriteRegStr HKCU "${CLASSES}\Applications\kalvira.exe\SupportedTypes" ".kwd" ""
  WriteRegStr HKCU "${CLASSES}\Applications\kalvira.exe\shell\open\command" "" '"$INSTDIR\kalvira.exe" "%1"'
  WriteRegStr HKCU "Software\Microsoft\Windows\CurrentVersion\App Paths\kalvira.exe" "" "$INSTDIR\kalvira.exe"

  WriteRegStr HKCU "Software\Kalvira" "Ordner" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Kalvira"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\kalvira.exe"
  WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Kalvira"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\Entfernen.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Entfernen.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" $0
  System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
SectionEnd

; Takes away what the setup laid down, and nothing that a household made.
Section Uninstall
  SetShellVarContext current
  !insertmacro WaitUntilClosed
  !include "${LISTS}/take-away.nsh"
  Delete "$INSTDIR\Entfernen.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Kalvira\Kalvira.lnk"
  Delete "$SMPROGRAMS\Kalvira\Handbuch.lnk"
  RMDir "$SMPROGRAMS\Kalvira"

  ReadRegStr $0 HKCU "${CLASSES}\.kwd" ""
  ${If} $0 == "${TYPE}"
    ReadRegStr $1 HKCU "Software\Kalvira" "kwd vorher"
    ${If} $1 == ""
      DeleteRegValue HKCU "${CLASSES}\.kwd" ""
    ${Else}
      WriteRegStr HKCU "${CLASSES}\.kwd" "" "$1"
    ${EndIf}
  ${EndIf}
  DeleteRegValue HKCU "${CLASSES}\.kwd\OpenWithProgids" "${TYPE}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.kwd\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.kwd"
  DeleteRegKey HKCU "${CLASSES}\${TYPE}"
  DeleteRegKey HKCU "${CLASSES}\Applications\kalvira.exe"
  DeleteRegKey HKCU "Software\Microsoft\Windows\CurrentVersion\App Paths\kalvira.exe"
  DeleteRegKey HKCU "${UNINSTALL}"
  DeleteRegKey HKCU "Software\Kalvira"
  System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
SectionEnd
