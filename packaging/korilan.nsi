; Installs Korilan for the user who runs it, without administrator rights; /S asks nothing.
; Given with -D by packaging/make_windows: VERSION, PUBLISHER, HOME_PAGE, KILOBYTES, SETUP (the file to write) and LISTS.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
!include LogicLib.nsh
!include "${LISTS}"

!define SETTINGS "Software\Korilan"
!define CLASSES "Software\Classes"
!define CAPABILITIES "${SETTINGS}\Capabilities"
!define REGISTERED "Software\RegisteredApplications"
!define UNINSTALLS "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL "${UNINSTALLS}\Korilan"
!define PROGRAMS "$LOCALAPPDATA\Programs"
!define THUMBNAILS "$INSTDIR\korilan-thumbnails.dll"

Name "Korilan"
OutFile "${SETUP}"
Icon "../src/shell/Korilan.ico"
UninstallIcon "../src/shell/Korilan.ico"
RequestExecutionLevel user
ManifestDPIAware true
InstallDir "${PROGRAMS}\Korilan"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Korilan"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Korilan setup"
VIAddVersionKey "CompanyName" "${PUBLISHER}"
VIAddVersionKey "LegalCopyright" "${PUBLISHER}"
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Ends with level 2 unless the installed program of that name is closed.
!macro RequireClosed NAME
  ${If} ${FileExists} "$INSTDIR\${NAME}.exe"
    try_${NAME}:
    ClearErrors
    FileOpen $0 "$INSTDIR\${NAME}.exe" a
    ${If} ${Errors}
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${NAME} is open. Close it, then try again." /SD IDCANCEL \
        IDRETRY try_${NAME}
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

; The shell may have the library loaded: it can be moved then, not deleted.
!macro RemoveThumbnails
  ${If} ${FileExists} "${THUMBNAILS}"
    UnRegDLL "${THUMBNAILS}"
    GetTempFileName $0
    Delete $0
    Rename "${THUMBNAILS}" $0
    Delete $0
  ${EndIf}
!macroend

!macro WriteClass CLASS TEXT
  WriteRegStr HKCU "${CLASSES}\${CLASS}" "" "${TEXT}"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\DefaultIcon" "" "$INSTDIR\Korilan.exe,0"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\shell\open\command" "" '"$INSTDIR\Korilan.exe" "%1"'
!macroend

; "Open with" lists Korilan; what opens the file by default stays.
!macro OfferKind EXTENSION CLASS
  WriteRegNone HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids" "${CLASS}"
  WriteRegStr HKCU "${CAPABILITIES}\FileAssociations" "${EXTENSION}" "${CLASS}"
!macroend

!macro WithdrawKind EXTENSION CLASS
  DeleteRegValue HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids" "${CLASS}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${EXTENSION}"
!macroend

; An association that the user chose in the preferences.
!macro EndAssociation EXTENSION CLASS
  ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
  ${If} $0 == "Korilan"
    DeleteRegValue HKCU "${CLASSES}\${EXTENSION}" ""
  ${EndIf}
!macroend

!macro TellShell
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; SHCNE_ASSOCCHANGED
!macroend

Section
  !insertmacro RequireClosed Korilan
  !insertmacro RequireClosed korilan-cli
  !insertmacro RemoveThumbnails
  SetOutPath "$INSTDIR"
  !insertmacro InstallFiles
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Korilan.lnk" "$INSTDIR\Korilan.exe"

  !insertmacro WriteClass "Korilan.picture" "MSX picture"
  !insertmacro WriteClass "Korilan.video" "MSX video"
  !insertmacro EachKind OfferKind
  WriteRegStr HKCU "${CAPABILITIES}" "ApplicationName" "Korilan"
  WriteRegStr HKCU "${CAPABILITIES}" "ApplicationDescription" "Shows pictures and videos of MSX home computers"
  WriteRegStr HKCU "${REGISTERED}" "Korilan" "${CAPABILITIES}"
  ${If} ${FileExists} "${THUMBNAILS}"
    RegDLL "${THUMBNAILS}"
  ${EndIf}

  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Korilan"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Korilan.exe"
  WriteRegStr HKCU "${UNINSTALL}" "Publisher" "${PUBLISHER}"
  WriteRegStr HKCU "${UNINSTALL}" "URLInfoAbout" "${HOME_PAGE}"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
  !insertmacro TellShell
SectionEnd

Section Uninstall
  !insertmacro RequireClosed Korilan
  !insertmacro RequireClosed korilan-cli
  !insertmacro RemoveThumbnails
  !insertmacro RemoveFiles
  Delete "$INSTDIR\Uninstall.exe"
  DeleteRegKey /ifempty HKCU "${CLASSES}\CLSID"
  RMDir "$INSTDIR"
  RMDir "${PROGRAMS}" ; if it is empty
  Delete "$SMPROGRAMS\Korilan.lnk"

  DeleteRegKey HKCU "${UNINSTALL}"
  DeleteRegKey /ifempty HKCU "${UNINSTALLS}"
  DeleteRegValue HKCU "${REGISTERED}" "Korilan"
  DeleteRegKey /ifempty HKCU "${REGISTERED}"
  DeleteRegKey HKCU "${CAPABILITIES}"
  DeleteRegKey HKCU "${CLASSES}\Korilan.picture"
  DeleteRegKey HKCU "${CLASSES}\Korilan.video"
  ; Settings and associations stay for a copy of Korilan in another folder that wrote them.
  ReadRegStr $0 HKCU "${CLASSES}\Korilan\shell\open\command" ""
  ${If} $0 == ""
  ${OrIf} $0 == "$INSTDIR\Korilan.exe %1"
    !insertmacro EachKind EndAssociation
    DeleteRegKey HKCU "${CLASSES}\Korilan"
    DeleteRegKey HKCU "${SETTINGS}"
  ${EndIf}
  !insertmacro EachKind WithdrawKind
  !insertmacro TellShell
SectionEnd
