; The setup program. Built by make_setup.sh, which defines
;
;   PRODUCT   the build's product.nsh: version, names, addresses
;   FILES     a script with the shipped files: ForEachFile, ForEachFolder
;   PROGRAM   the folder that they are in
;   KILOBYTES what they take
;   PLUGIN    the folder with the build's plug-in, RavelinSetup.dll
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
;   /RVNUPDATE=1                    Ravelin is started at the end, whichever version is there then; a
;                                   newer one that is installed stays
;
; Exit codes: 0 installed, 1 cancelled, 2 failed, 740 administrators only. Unless it is 0, what was
; installed before is as it was.
Unicode true
Target amd64-unicode
!ifdef QUICKLY
SetCompressor zlib
!else
SetCompressor /SOLID lzma
!endif
; A file that cannot be written ends setup.
AllowSkipFiles off
ManifestDPIAware true
ManifestSupportedOS all

!include "${PRODUCT}"
!include "${FILES}"
!addplugindir /amd64-unicode "${PLUGIN}"

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
!define MULTIUSER_INSTALLMODE_FUNCTION KeepChosenFolder
!define MULTIUSER_INSTALLMODE_UNFUNCTION un.KeepChosenFolder
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include WinMessages.nsh
!include x64.nsh

Name "${PRODUCT_NAME}"
Caption "${PRODUCT_NAME} ${VERSION} Setup"
BrandingText "${PRODUCT_NAME} ${VERSION}"
OutFile "${OUT}"
ShowInstDetails nevershow
ShowUninstDetails nevershow
VIProductVersion "${VERSION_NUMBERS}"
VIAddVersionKey /LANG=0 "ProductName" "${PRODUCT_NAME}"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileDescription" "${PRODUCT_NAME} Setup"
VIAddVersionKey /LANG=0 "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=0 "LegalCopyright" "${COPYRIGHT}"

!define MUI_ICON "../icons/ravelin.ico"
!define MUI_UNICON "../icons/ravelin.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "Ravelin clicks, presses keys and plays back recorded mouse and keyboard \
activity for you.$\r$\n$\r$\nThis installs version ${VERSION}. Settings and macros of an earlier version are \
kept.$\r$\n$\r$\nRavelin is free software under the MIT License. LICENSE.txt and THIRD-PARTY.txt in \
its folder tell what that means and what else is in it.$\r$\n$\r$\n$_CLICK"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start Ravelin"
!define MUI_FINISHPAGE_RUN_FUNCTION StartAsUser
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE AskBeforeGoingBack
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Var Switches
Var IsUpdate
Var MayClose
Var ChosenFolder ; by /D=FOLDER; the uninstaller's own

; Sets `result` to 1 when the switch is there, else to 0.
!macro ReadSwitch switch result
    StrCpy ${result} 0
    ClearErrors
    ${GetOptions} $Switches "${switch}" $R9
    ${IfNot} ${Errors}
        StrCpy ${result} 1
    ${EndIf}
!macroend

; Ends setup, or the uninstaller, before anything was changed.
!macro GiveUp text
    DetailPrint "${text}"
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    SetErrorLevel 2
    Abort "${text}"
!macroend

; Said here in silence: what the scope's own check does would be a message.
!macro RefuseSilentlyUnlessAllowed refused
    ${If} ${Silent}
        !insertmacro ReadSwitch "/ALLUSERS" $0
        UserInfo::GetAccountType
        Pop $1
        ${If} $0 == 1
        ${AndIf} $1 != "Admin"
            SetErrorLevel 740
            ${refused}
            Quit
        ${EndIf}
    ${EndIf}
!macroend

!include close_running.nsh
!include replace_files.nsh
!include runtimes.nsh
!include uninstall.nsh

Function .onInit
    StrCpy $ChosenFolder $INSTDIR
    ${GetParameters} $Switches
    !insertmacro ReadSwitch "/VERYSILENT" $0
    ${If} $0 == 1
        SetSilent silent
    ${EndIf}
    !insertmacro ReadSwitch "/CLOSEAPPLICATIONS" $MayClose
    !insertmacro ReadSwitch "/RVNUPDATE=1" $IsUpdate
    !insertmacro RefuseSilentlyUnlessAllowed "Call StartRefused"
    !insertmacro MULTIUSER_INIT
FunctionEnd

; Whatever scope is chosen.
!macro KeepChosenFolder prefix
Function ${prefix}KeepChosenFolder
    ${If} $ChosenFolder != ""
        StrCpy $INSTDIR $ChosenFolder
    ${EndIf}
FunctionEnd
!macroend
!insertmacro KeepChosenFolder ""
!insertmacro KeepChosenFolder "un."

; No scope is chosen yet, and so nothing has said where the old version is.
Function StartRefused
    StrCpy $INSTDIR $ChosenFolder
    ${If} $INSTDIR == ""
        ReadRegStr $INSTDIR HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${EndIf}
    Call StartAfterUpdate
FunctionEnd

Function StartAfterUpdate
    ${If} $IsUpdate == 0
    ${OrIf} $INSTDIR == ""
    ${OrIfNot} ${FileExists} "$INSTDIR\${EXECUTABLE}"
        Return
    ${EndIf}
    ; What handed over may still be ending, and would be brought to the front instead.
    Call AwaitEnd
    Call StartAsUser
FunctionEnd

; By the shell, without the rights that setup was given for its own work.
Function StartAsUser
    RavelinSetup::startByShell "$INSTDIR\${EXECUTABLE}"
    Pop $0
    ${If} $0 == 0
        ; Where there is no shell, rights that are no more than the user's are passed on.
        UserInfo::GetAccountType
        Pop $0
        ${If} $0 != "Admin"
            SetOutPath $INSTDIR
            Exec '"$INSTDIR\${EXECUTABLE}"'
        ${EndIf}
    ${EndIf}
FunctionEnd

Function .onInstSuccess
    Call StartAfterUpdate
FunctionEnd

Function .onInstFailed
    Call RemoveWritten
    Call StartAfterUpdate
FunctionEnd

; $0 says whether the version that is installed, then $1, is newer than this one. A record may be left
; of a program that somebody deleted by hand.
Function FindNewer
    StrCpy $0 0
    ReadRegStr $1 SHCTX "${UNINSTALL_KEY}" "DisplayVersion"
    ${If} ${FileExists} "$INSTDIR\${EXECUTABLE}"
        RavelinSetup::isNewer "$1" "${VERSION}"
        Pop $0
    ${EndIf}
FunctionEnd

Function AskBeforeGoingBack
    Call FindNewer
    ${If} $0 == 1
        MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
            "Version $1 is installed, which is newer than this one. Replace it by version ${VERSION}?" \
            IDYES replace
        Abort
    replace:
    ${EndIf}
FunctionEnd

Section
    ; The compiler counts what sections write, and here functions do.
    AddSize ${KILOBYTES}

    Call FindNewer
    ${If} $IsUpdate == 1
    ${AndIf} $0 == 1
        !insertmacro GiveUp "Version $1 is installed, which is newer than this one."
    ${EndIf}

    Call CountRunning
    ${If} $Running <> 0
        ${If} ${Silent}
            ${If} $MayClose == 0
                !insertmacro GiveUp "Ravelin is running."
            ${EndIf}
        ${Else}
            MessageBox MB_OKCANCEL|MB_ICONINFORMATION \
                "Ravelin is running. Setup closes it now; your settings and macros are kept." IDOK close
            SetErrorLevel 1
            Abort "Cancelled: Ravelin is still running."
        close:
        ${EndIf}
        Call CloseRunning
    ${EndIf}

    Call UndoReplacing
    Call RemoveWritten
    Call CheckReplaceable
    ${If} $0 == 0
        !insertmacro GiveUp "$1 is in use and cannot be replaced."
    ${EndIf}
    Call WriteFiles
    ${If} $Failed == 0
        Call ReplaceFiles
    ${EndIf}
    ${If} $Failed <> 0
        !insertmacro GiveUp "The files could not be written to $INSTDIR."
    ${EndIf}
    CreateShortcut "${SHORTCUT}" "$INSTDIR\${EXECUTABLE}"

    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT_NAME}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${EXECUTABLE}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
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
