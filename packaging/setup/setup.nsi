; The setup program. Built by make_setup.sh, which defines
;
;   PRODUCT   the build's product.nsh: version, names, addresses
;   PROGRAM   the folder with the executable, the view library and the page
;   SIDE      the picture on the wizard's side
;   OUT       the setup program to write
;   QUICKLY   packed in less time and into more bytes, for tests (may be missing)
;
; Without switches a wizard. An update passes
;
;   /VERYSILENT /SUPPRESSMSGBOXES   nothing is shown
;   /NORESTART /SP-                 accepted: setup neither restarts Windows nor asks beforehand
;   /CLOSEAPPLICATIONS              a running Ravelin is closed; without it a silent setup gives up
;   /NORESTARTAPPLICATIONS          what was closed stays closed but for the next switch
;   /ALLUSERS or /CURRENTUSER       for whom
;   /RVNUPDATE=1                    Ravelin is started at the end, whichever version is there then
;
; Exit codes: 0 installed, 1 cancelled, 2 failed, 740 administrators only.
Unicode true
Target amd64-unicode
!ifdef QUICKLY
SetCompressor zlib
!else
SetCompressor /SOLID lzma
!endif
ManifestDPIAware true
ManifestSupportedOS all

!include "${PRODUCT}"

!define EXECUTABLE "Ravelin.exe"
!define UNINSTALLER "Uninstall.exe"
!define SHORTCUT "$SMPROGRAMS\Ravelin.lnk"

!define MULTIUSER_MUI
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "Ravelin"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include WinMessages.nsh
!include x64.nsh

!include close_running.nsh
!include runtimes.nsh

Name "${PRODUCT_NAME}"
Caption "${PRODUCT_NAME} ${VERSION} Setup"
BrandingText "${PRODUCT_NAME} ${VERSION}"
OutFile "${OUT}"
ShowInstDetails nevershow
ShowUninstDetails nevershow
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "${PRODUCT_NAME}"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileDescription" "${PRODUCT_NAME} Setup"
VIAddVersionKey /LANG=0 "CompanyName" "Ravelin"
VIAddVersionKey /LANG=0 "LegalCopyright" "Ravelin"

!define MUI_ICON "../icons/ravelin.ico"
!define MUI_UNICON "../icons/ravelin.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "Ravelin clicks, presses keys and plays back recorded mouse and keyboard \
activity for you.$\r$\n$\r$\nThis installs version ${VERSION}. Settings and macros of an earlier version are \
kept.$\r$\n$\r$\n$_CLICK"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start Ravelin"
!define MUI_FINISHPAGE_RUN_FUNCTION StartAsUser
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Var Switches
Var IsUpdate
Var MayClose
Var ChosenFolder

; Sets `result` to 1 when the switch is there, else to 0.
!macro ReadSwitch switch result
    StrCpy ${result} 0
    ClearErrors
    ${GetOptions} $Switches "${switch}" $R9
    ${IfNot} ${Errors}
        StrCpy ${result} 1
    ${EndIf}
!macroend

Function .onInit
    ; Given by /D=FOLDER, and to be kept whatever scope is chosen below.
    StrCpy $ChosenFolder $INSTDIR
    ${GetParameters} $Switches
    !insertmacro ReadSwitch "/VERYSILENT" $0
    ${If} $0 == 1
        SetSilent silent
    ${EndIf}
    !insertmacro ReadSwitch "/CLOSEAPPLICATIONS" $MayClose
    !insertmacro ReadSwitch "/RVNUPDATE=1" $IsUpdate

    ; Said here in silence: what the scope's own check does would be a message.
    ${If} ${Silent}
        !insertmacro ReadSwitch "/ALLUSERS" $0
        UserInfo::GetAccountType
        Pop $1
        ${If} $0 == 1
        ${AndIf} $1 != "Admin"
            SetErrorLevel 740
            Call StartAfterUpdate
            Quit
        ${EndIf}
    ${EndIf}
    !insertmacro MULTIUSER_INIT
    ${If} $ChosenFolder != ""
        StrCpy $INSTDIR $ChosenFolder
    ${EndIf}
FunctionEnd

; Ravelin as this setup program runs: an update hands over with the rights that Ravelin had.
Function StartAfterUpdate
    ${If} $IsUpdate == 1
    ${AndIf} ${FileExists} "$INSTDIR\${EXECUTABLE}"
        SetOutPath $INSTDIR
        Exec '"$INSTDIR\${EXECUTABLE}"'
    ${EndIf}
FunctionEnd

Function .onInstSuccess
    Call StartAfterUpdate
FunctionEnd

Function .onInstFailed
    Call StartAfterUpdate
FunctionEnd

; The shell starts it without the rights that setup was given for its own work.
Function StartAsUser
    Exec '"$WINDIR\explorer.exe" "$INSTDIR\${EXECUTABLE}"'
FunctionEnd

; Ends setup before anything was changed.
!macro GiveUp text
    DetailPrint "${text}"
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    SetErrorLevel 2
    Abort "${text}"
!macroend

!macro GiveUpUnlessReplaceable name
    ${If} ${FileExists} "$INSTDIR\${name}"
        ClearErrors
        FileOpen $0 "$INSTDIR\${name}" a
        ${If} ${Errors}
            !insertmacro GiveUp "$INSTDIR\${name} is in use and cannot be replaced."
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend

Section
    Call CountRunning
    ${If} $Running != 0
        ${If} ${Silent}
            ${If} $MayClose == 0
                !insertmacro GiveUp "Ravelin is running."
            ${EndIf}
        ${Else}
            MessageBox MB_OKCANCEL|MB_ICONINFORMATION \
                "Ravelin is running. Setup closes it now; your settings and macros are kept." IDOK +2
            Abort "Cancelled: Ravelin is still running."
        ${EndIf}
        Call CloseRunning
    ${EndIf}

    ; All or nothing: no file is replaced unless every one can be.
    !insertmacro GiveUpUnlessReplaceable "${EXECUTABLE}"
    !insertmacro GiveUpUnlessReplaceable "libwebview.dll"
    !insertmacro GiveUpUnlessReplaceable "${UNINSTALLER}"
    !insertmacro GiveUpUnlessReplaceable "ui\index.html"
    !insertmacro GiveUpUnlessReplaceable "ui\vendor\Sortable.min.js"

    ClearErrors
    SetOverwrite on
    SetOutPath "$INSTDIR\ui\vendor"
    File "${PROGRAM}/ui/vendor/Sortable.min.js"
    SetOutPath "$INSTDIR\ui"
    File "${PROGRAM}/ui/index.html"
    SetOutPath "$INSTDIR"
    File "${PROGRAM}/libwebview.dll"
    File "${PROGRAM}/${EXECUTABLE}"
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"
    ${If} ${Errors}
        !insertmacro GiveUp "The files could not be written to $INSTDIR."
    ${EndIf}
    CreateShortcut "${SHORTCUT}" "$INSTDIR\${EXECUTABLE}"

    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT_NAME}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${EXECUTABLE}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Ravelin"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "URLInfoAbout" "https://${WEB_HOST}/"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" \
        '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" \
        '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0

    Call TellMissingRuntimes
SectionEnd

Function un.onInit
    ; The scope's set-up would put the recorded folder here, and this uninstaller removes its own.
    StrCpy $ChosenFolder $INSTDIR
    !insertmacro MULTIUSER_UNINIT
    StrCpy $INSTDIR $ChosenFolder
FunctionEnd

Section "Uninstall"
    Call un.CountRunning
    ${If} $Running != 0
        MessageBox MB_OKCANCEL|MB_ICONINFORMATION "Ravelin is running and will be closed." /SD IDOK IDOK +2
        Abort "Cancelled: Ravelin is still running."
        Call un.CloseRunning
    ${EndIf}
    Delete "$INSTDIR\${EXECUTABLE}"
    Delete "$INSTDIR\libwebview.dll"
    Delete "$INSTDIR\ui\index.html"
    Delete "$INSTDIR\ui\vendor\Sortable.min.js"
    Delete "$INSTDIR\${UNINSTALLER}"
    ; These stay when anything else lies in them.
    RMDir "$INSTDIR\ui\vendor"
    RMDir "$INSTDIR\ui"
    RMDir "$INSTDIR"

    ; Another folder's record and shortcut are not this one's to remove.
    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == $INSTDIR
        DeleteRegKey SHCTX "${UNINSTALL_KEY}"
        Delete "${SHORTCUT}"
    ${EndIf}
SectionEnd
