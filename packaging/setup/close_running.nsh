; Finds and closes every process of the program in $INSTDIR, its panels' among them.

!define PROCESS_ACCESS 0x101001 ; terminate, ask for the path, wait
; How many there is room for at first; a list that fills it is asked for again with more room.
!define /ifndef MOST_PROCESSES 1024

Var Running ; how many there are

; For setup (empty prefix) and for the uninstaller ("un.").
!macro CloseRunningFunctions prefix

; Gives the ids of all processes in memory at $R3, to be freed, and their number in $R4.
Function ${prefix}ListProcesses
    StrCpy $R5 ${MOST_PROCESSES}
    ${Do}
        IntOp $R6 $R5 * 4
        System::Alloc $R6
        Pop $R3
        StrCpy $R4 0
        System::Call 'psapi::EnumProcesses(p R3, i R6, *i .R4)'
        ${If} $R4 < $R6
            IntOp $R4 $R4 / 4
            Return
        ${EndIf}
        System::Free $R3
        IntOp $R5 $R5 * 2
    ${Loop}
FunctionEnd

; Calls a function of this file for every process of the program, with its handle in $R0 and its id
; in $R1, and leaves their number in $Running. $R2 names what is to be done: "" for nothing.
Function ${prefix}ForEachRunning
    StrCpy $Running 0
    Call ${prefix}ListProcesses
    IntOp $R4 $R4 - 1
    ${ForEach} $R5 0 $R4 + 1
        IntOp $R6 $R5 * 4
        IntPtrOp $R6 $R3 + $R6
        System::Call '*$R6(i .R1)'
        System::Call 'kernel32::OpenProcess(i ${PROCESS_ACCESS}, i 0, i R1) p .R0'
        ${If} $R0 P<> 0
            System::Call 'kernel32::QueryFullProcessImageNameW(p R0, i 0, w .R7, *i ${NSIS_MAX_STRLEN})'
            ${If} $R7 == "$INSTDIR\${EXECUTABLE}"
                IntOp $Running $Running + 1
                ${If} $R2 == "ask"
                    Call ${prefix}AskToClose
                ${ElseIf} $R2 == "end"
                    System::Call 'kernel32::TerminateProcess(p R0, i 0)'
                    System::Call 'kernel32::WaitForSingleObject(p R0, i 5000)'
                ${EndIf}
            ${EndIf}
            System::Call 'kernel32::CloseHandle(p R0)'
        ${EndIf}
    ${Next}
    System::Free $R3
FunctionEnd

; Asks the visible windows of process $R1 to close, as its user would.
Function ${prefix}AskToClose
    StrCpy $R8 0
    ${Do}
        FindWindow $R8 "" "" 0 $R8
        ${If} $R8 P= 0
            ${ExitDo}
        ${EndIf}
        System::Call 'user32::GetWindowThreadProcessId(p R8, *i .R9)'
        System::Call 'user32::IsWindowVisible(p R8) i .R7'
        ${If} $R9 = $R1
        ${AndIf} $R7 <> 0
            System::Call 'user32::PostMessageW(p R8, i ${WM_CLOSE}, p 0, p 0)'
        ${EndIf}
    ${Loop}
FunctionEnd

Function ${prefix}CountRunning
    StrCpy $R2 ""
    Call ${prefix}ForEachRunning
FunctionEnd

; Waits up to ten seconds for their end and leaves the number of those that are still there.
Function ${prefix}AwaitEnd
    ${For} $0 1 100
        Call ${prefix}CountRunning
        ${If} $Running = 0
            Return
        ${EndIf}
        Sleep 100
    ${Next}
FunctionEnd

; Asks them to close, waits, and ends those that are still there.
Function ${prefix}CloseRunning
    DetailPrint "Closing Ravelin"
    StrCpy $R2 "ask"
    Call ${prefix}ForEachRunning
    Call ${prefix}AwaitEnd
    ${If} $Running <> 0
        StrCpy $R2 "end"
        Call ${prefix}ForEachRunning
    ${EndIf}
FunctionEnd

!macroend

!insertmacro CloseRunningFunctions ""
!insertmacro CloseRunningFunctions "un."
