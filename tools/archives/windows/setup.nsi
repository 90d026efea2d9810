; The setup for Windows: for one player, without an administrator, in a directory of its own. makensis
; is told VERSION, the FOLDER that holds the files, the SETUP to make, and the LIST: a script that has
; for each file but the program ${entry} NAME SIZE MD5.
;
; What lies there and is not as setup put it belongs to the player: it is neither replaced nor deleted.
; Exit status 2: nothing was changed, as the game is played; or setup could not go on.
Target amd64-unicode  ; the stub of 32 bits does nothing where only 64 run
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
Name Solvanta
OutFile "${SETUP}"
InstallDir "$LOCALAPPDATA\Programs\Solvanta"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall"
InstallDirRegKey HKCU "${UNINSTALL}\Solvanta" InstallLocation
AllowSkipFiles off
BrandingText "Solvanta ${VERSION}"

!include LogicLib.nsh
!include MUI2.nsh
!define MUI_ICON "${FOLDER}/Solvanta.ico"
!define MUI_UNICON "${FOLDER}/Solvanta.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Solvanta.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE German
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName Solvanta
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Solvanta Setup"
VIAddVersionKey LegalCopyright "© 2026 the Solvanta authors"

; The program of a running game can't be opened for writing: asks to end the game, or ends with 2.
!macro WaitForEndOfGame
    ${If} ${FileExists} "$INSTDIR\Solvanta.exe"
        ${Do}
            ClearErrors
            FileOpen $0 "$INSTDIR\Solvanta.exe" a
            ${IfNot} ${Errors}
                FileClose $0
                ${Break}
            ${EndIf}
            ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Solvanta wird gerade gespielt. Bitte \
                beenden Sie das Spiel und wählen Sie dann $\"Wiederholen$\"." /SD IDCANCEL IDCANCEL`
                SetErrorLevel 2
                Quit
            ${EndIf}
        ${Loop}
    ${EndIf}
!macroend

; A directory has an entry to uninstall and one in the menu, both of the same name: the first free one.
!macro MakeEntries
    StrCpy $1 Solvanta
    ${For} $2 2 99
        ReadRegStr $3 HKCU "${UNINSTALL}\$1" InstallLocation
        ${If} $3 == ""
        ${OrIf} $3 == $INSTDIR
            ${Break}
        ${EndIf}
        StrCpy $1 "Solvanta $2"
    ${Next}
    CreateShortcut "$SMPROGRAMS\$1.lnk" "$INSTDIR\Solvanta.exe"
    WriteRegStr HKCU "${UNINSTALL}\$1" InstallLocation $INSTDIR
    WriteRegStr HKCU "${UNINSTALL}\$1" DisplayName $1
    WriteRegStr HKCU "${UNINSTALL}\$1" DisplayVersion "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}\$1" DisplayIcon "$INSTDIR\Solvanta.exe"
    WriteRegStr HKCU "${UNINSTALL}\$1" Publisher "the Solvanta authors"
    WriteRegStr HKCU "${UNINSTALL}\$1" UninstallString '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}\$1" QuietUninstallString '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}\$1" NoModify 1
    WriteRegDWORD HKCU "${UNINSTALL}\$1" NoRepair 1
!macroend

!macro PutFile name size md5
    File "${FOLDER}/${name}"
!macroend

Section
    !insertmacro WaitForEndOfGame
    ${If} ${FileExists} "$INSTDIR\Uninstall.exe"
        ClearErrors
        ExecWait '"$INSTDIR\Uninstall.exe" /S _?=$INSTDIR' $0
        ${If} ${Errors}
        ${OrIf} $0 <> 0
            MessageBox MB_ICONSTOP "Die vorige Version lässt sich nicht entfernen." /SD IDOK
            SetErrorLevel 2
            Quit
        ${EndIf}
    ${EndIf}
    SetOutPath $INSTDIR
    File "${FOLDER}/Solvanta.exe"
    SetOverwrite off
    !define entry "!insertmacro PutFile"
    !include "${LIST}"
    !undef entry
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    !insertmacro MakeEntries
SectionEnd

; Deletes the file $R0 of the directory if it has the size $R1 and the MD5 sum $R2.
Function un.DeleteUnchanged
    ClearErrors
    FileOpen $0 "$INSTDIR\$R0" r
    ${If} ${Errors}
        Return
    ${EndIf}
    FileSeek $0 0 END $1
    FileSeek $0 0
    StrCpy $9 ""
    ${If} $1 = $R1
        System::Alloc $1
        Pop $2
        System::Alloc 16
        Pop $3
        System::Call "kernel32::ReadFile(p r0, p r2, i r1, *i, p 0)"
        System::Call "bcrypt::BCryptHash(p 0x21, p 0, i 0, p r2, i r1, p r3, i 16)"  ; 0x21: MD5
        System::Call "*$3(i .r4, i .r5, i .r6, i .r7)"
        IntFmt $9 "%08x" $4
        IntFmt $8 "%08x" $5
        StrCpy $9 $9$8
        IntFmt $8 "%08x" $6
        StrCpy $9 $9$8
        IntFmt $8 "%08x" $7
        StrCpy $9 $9$8
        System::Free $2
        System::Free $3
    ${EndIf}
    FileClose $0
    ${If} $9 == $R2
        Delete "$INSTDIR\$R0"
    ${EndIf}
FunctionEnd

!macro DeleteFile name size md5
    StrCpy $R0 "${name}"
    StrCpy $R1 ${size}
    StrCpy $R2 ${md5}
    Call un.DeleteUnchanged
!macroend

Section un.
    SetAutoClose true
    !insertmacro WaitForEndOfGame
    ${If} ${FileExists} "$INSTDIR\highscore.scr"
    ${AndIf} ${Cmd} `MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "Soll auch Ihre Liste der Bestzeiten \
        gelöscht werden?" /SD IDNO IDYES`
        Delete "$INSTDIR\highscore.scr"
    ${EndIf}
    Delete "$INSTDIR\Solvanta.exe"
    !define entry "!insertmacro DeleteFile"
    !include "${LIST}"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir $INSTDIR  ; unless something of the player's lies in it
    StrCpy $1 Solvanta
    ${For} $2 2 99
        ReadRegStr $3 HKCU "${UNINSTALL}\$1" InstallLocation
        ${If} $3 == $INSTDIR
            Delete "$SMPROGRAMS\$1.lnk"
            DeleteRegKey HKCU "${UNINSTALL}\$1"
        ${EndIf}
        StrCpy $1 "Solvanta $2"
    ${Next}
SectionEnd
