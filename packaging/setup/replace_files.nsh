; Puts the shipped files into $INSTDIR, all of them or none.
;
; Everything is written beside the old files first, which is where a disk runs full. Then each old
; file moves aside and the new one takes its place, which takes no space; when one cannot, those
; before it move back. What moved aside lies in ${OLD} until every file is in its place, so that the
; next run can undo a replacement that was cut off.

!define NEW "$INSTDIR\Setup.new"
!define OLD "$INSTDIR\Setup.old"
!define DONE "$INSTDIR\Setup.done"

Var Failed

!macro RemoveFolder path
    RavelinSetup::removeFolder "${path}"
    Pop $0
!macroend

; $0 stays 1 as long as every file that is there can be replaced; $1 names one that cannot.
!macro CheckReplaceable folder name
    ${If} $0 == 1
    ${AndIf} ${FileExists} "$INSTDIR\${folder}${name}"
        ClearErrors
        FileOpen $2 "$INSTDIR\${folder}${name}" a
        ${If} ${Errors}
            StrCpy $0 0
            StrCpy $1 "$INSTDIR\${folder}${name}"
        ${Else}
            FileClose $2
        ${EndIf}
    ${EndIf}
!macroend

Function CheckReplaceable
    StrCpy $0 1
    !insertmacro ForEachFile CheckReplaceable
    !insertmacro CheckReplaceable "" "${UNINSTALLER}"
FunctionEnd

!macro WriteFile folder name
    SetOutPath "${NEW}\${folder}"
    File "${PROGRAM}/${folder}${name}"
!macroend

; Writes the new files. When the disk is full, setup ends here.
Function WriteFiles
    ClearErrors
    SetOverwrite on
    !insertmacro ForEachFile WriteFile
    WriteUninstaller "${NEW}\${UNINSTALLER}"
    StrCpy $Failed 0
    ${If} ${Errors}
        StrCpy $Failed 1
    ${EndIf}
    ; Out of the folders that will go.
    SetOutPath $TEMP
FunctionEnd

!macro MakeFolders folder
    CreateDirectory "$INSTDIR\${folder}"
    CreateDirectory "${OLD}\${folder}"
!macroend

!macro ReplaceFile folder name
    ${If} $Failed == 0
        ClearErrors
        ${If} ${FileExists} "$INSTDIR\${folder}${name}"
            Rename "$INSTDIR\${folder}${name}" "${OLD}\${folder}${name}"
        ${EndIf}
        Rename "${NEW}\${folder}${name}" "$INSTDIR\${folder}${name}"
        ${If} ${Errors}
            StrCpy $Failed 1
        ${EndIf}
    ${EndIf}
!macroend

; Leaves $Failed 0 with the new files in their places, or 1 with the old ones in theirs.
Function ReplaceFiles
    CreateDirectory "${OLD}"
    !insertmacro ForEachFolder MakeFolders
    !insertmacro ForEachFile ReplaceFile
    !insertmacro ReplaceFile "" "${UNINSTALLER}"
    ${If} $Failed == 0
        ClearErrors
        Rename "${OLD}" "${DONE}"
        ${If} ${Errors}
            StrCpy $Failed 1
        ${EndIf}
    ${EndIf}
    Call UndoReplacing
    Call RemoveWritten
FunctionEnd

; A new file that has taken its place goes back first: whenever this is cut off, what is among the
; new ones says how far it came.
!macro RestoreFile folder name
    ${IfNot} ${FileExists} "${NEW}\${folder}${name}"
        Rename "$INSTDIR\${folder}${name}" "${NEW}\${folder}${name}"
    ${EndIf}
    ${If} ${FileExists} "${OLD}\${folder}${name}"
        Rename "${OLD}\${folder}${name}" "$INSTDIR\${folder}${name}"
    ${EndIf}
!macroend

; Puts the old files back if they were being replaced, in this run or in one that was cut off.
Function UndoReplacing
    ${If} ${FileExists} "${OLD}\*.*"
        !insertmacro ForEachFile RestoreFile
        !insertmacro RestoreFile "" "${UNINSTALLER}"
        !insertmacro RemoveFolder "${OLD}"
    ${EndIf}
FunctionEnd

!macro RemoveEmptyFolder folder
    RMDir "$INSTDIR\${folder}"
!macroend

; Removes what only served the replacement, and the folders when nothing is in them.
Function RemoveWritten
    SetOutPath $TEMP
    !insertmacro RemoveFolder "${NEW}"
    !insertmacro RemoveFolder "${DONE}"
    !insertmacro ForEachFolder RemoveEmptyFolder
    RMDir "$INSTDIR"
FunctionEnd
