; Removes what setup installed and what the program leaves around it, and asks about the user's own.

!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"

Function un.onInit
    ; The scope's set-up would put the recorded folder here, and this uninstaller removes its own.
    StrCpy $ChosenFolder $INSTDIR
    ${un.GetParameters} $Switches
    !insertmacro RefuseSilentlyUnlessAllowed ""
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

; $0 says whether another folder's Ravelin is installed, which goes on with the user's files.
!macro FindOther root
    ReadRegStr $1 ${root} "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $1 != ""
    ${AndIf} $1 != $INSTDIR
    ${AndIf} ${FileExists} "$1\${EXECUTABLE}"
        StrCpy $0 1
    ${EndIf}
!macroend

Function un.FindOther
    StrCpy $0 0
    !insertmacro FindOther HKLM
    !insertmacro FindOther HKCU
FunctionEnd

; The entry may be another copy's by now.
!macro RemoveLogOnEntry root key
    ReadRegStr $1 ${root} "${key}" "Ravelin"
    ${If} $1 == '"$INSTDIR\${EXECUTABLE}"'
        DeleteRegValue ${root} "${key}" "Ravelin"
    ${EndIf}
!macroend

; The browser engine's files for this program. It may take a moment to end after the program.
!macro RemoveProfile folder
    ${For} $2 1 50
        RavelinSetup::removeFolder "${folder}\${EXECUTABLE}"
        Pop $1
        ${If} $1 == 1
            ${ExitFor}
        ${EndIf}
        Sleep 100
    ${Next}
!macroend

; Of every user who is logged on, where the program was there for everyone.
Function un.RemoveForEveryone
    StrCpy $3 0
    ${Do}
        EnumRegKey $4 HKU "" $3
        ${If} $4 == ""
            ${ExitDo}
        ${EndIf}
        !insertmacro RemoveLogOnEntry HKU "$4\${RUN_KEY}"
        ReadRegStr $5 HKU "$4\Volatile Environment" "APPDATA"
        ${If} $5 != ""
        ${AndIf} $0 == 0
            !insertmacro RemoveProfile $5
        ${EndIf}
        IntOp $3 $3 + 1
    ${Loop}
FunctionEnd

!macro RemoveFile folder name
    Delete "$INSTDIR\${folder}${name}"
!macroend

Section "Uninstall"
    Call un.CountRunning
    ${If} $Running <> 0
        MessageBox MB_OKCANCEL|MB_ICONINFORMATION "Ravelin is running and will be closed." /SD IDOK IDOK close
        SetErrorLevel 1
        Abort "Cancelled: Ravelin is still running."
    close:
        Call un.CloseRunning
    ${EndIf}

    ; First, as it tells whether the rest can go: what is in use stays with its record.
    Delete "$INSTDIR\${EXECUTABLE}"
    ${If} ${FileExists} "$INSTDIR\${EXECUTABLE}"
        !insertmacro GiveUp "$INSTDIR\${EXECUTABLE} is in use and cannot be removed."
    ${EndIf}
    !insertmacro ForEachFile RemoveFile
    Delete "$INSTDIR\${UNINSTALLER}"
    !insertmacro RemoveFolder "${NEW}"
    !insertmacro RemoveFolder "${OLD}"
    !insertmacro RemoveFolder "${DONE}"
    ; These stay when anything else lies in them.
    !insertmacro ForEachFolder RemoveEmptyFolder
    RMDir "$INSTDIR"

    ; Another folder's record and shortcut are not this one's to remove.
    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == $INSTDIR
        DeleteRegKey SHCTX "${UNINSTALL_KEY}"
        Delete "${SHORTCUT}"
    ${EndIf}

    SetShellVarContext current
    !insertmacro RemoveLogOnEntry HKCU "${RUN_KEY}"
    Call un.FindOther
    ${If} $MultiUser.InstallMode == "AllUsers"
        Call un.RemoveForEveryone
    ${EndIf}
    ${If} $0 == 0
        !insertmacro RemoveProfile $APPDATA
        Call un.AskAboutData
    ${EndIf}
SectionEnd

Function un.AskAboutData
    ${If} ${FileExists} "$LOCALAPPDATA\Ravelin\*.*"
        MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
            "Delete your settings, profiles and macros as well?$\n$\nThey are in $LOCALAPPDATA\Ravelin." \
            /SD IDNO IDNO keep
        !insertmacro RemoveFolder "$LOCALAPPDATA\Ravelin"
    keep:
    ${EndIf}
FunctionEnd
