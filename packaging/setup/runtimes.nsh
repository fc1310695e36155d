; Says which of Microsoft's runtimes the program will miss, and where to get them. An update stays
; silent: the program that it replaces ran with both.

!define BROWSER_RUNTIME "Microsoft\EdgeUpdate\Clients\{F3017226-FE2A-4295-8BDF-00C3A9A7E4C5}"

!macro TellMissing what address
    MessageBox MB_YESNO|MB_ICONEXCLAMATION \
        "Ravelin needs the ${what}, which is not installed on this computer.$\n$\nGet it from:$\n${address}$\n$\nOpen this address now?" \
        /SD IDNO IDNO +2
    ExecShell "open" "${address}"
!macroend

Function TellMissingRuntimes
    ; Recorded for the machine in the 32-bit view, or for the user.
    SetRegView 32
    ReadRegStr $0 HKLM "Software\${BROWSER_RUNTIME}" "pv"
    SetRegView 64
    ${If} $0 == ""
    ${OrIf} $0 == "0.0.0.0"
        ReadRegStr $0 HKCU "Software\${BROWSER_RUNTIME}" "pv"
    ${EndIf}
    ${If} $0 == ""
    ${OrIf} $0 == "0.0.0.0"
        !insertmacro TellMissing "Microsoft Edge WebView2 runtime" "${RUNTIME_URL}"
    ${EndIf}

    ${IfNot} ${FileExists} "$SYSDIR\msvcp140.dll"
    ${OrIfNot} ${FileExists} "$SYSDIR\vcruntime140.dll"
    ${OrIfNot} ${FileExists} "$SYSDIR\vcruntime140_1.dll"
        !insertmacro TellMissing "Microsoft Visual C++ runtime" "${CPP_RUNTIME_URL}"
    ${EndIf}
FunctionEnd
