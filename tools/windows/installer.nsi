; Puts the program on a Windows computer for all its users: the program's folder, the start menu, the
; joined letters among the system's fonts, and the folder of the players, which all may write to. A new
; computer is greeted in its own language where the program speaks it. make_installer hands it the
; folder, the version, the icon and the place of the result.
;
; Without questions, for whoever looks after many computers:
;
;     morlenekvt-VERSION-setup.exe /S [/LANGUAGE=it|de|en|es|fr] [/D=FOLDER]
;     uninstall.exe /S [/PLAYERS]         with the players' files
Target amd64-unicode
SetCompressor /SOLID lzma
Name "MorleneKVT"
BrandingText "MorleneKVT ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\MorleneKVT"
RequestExecutionLevel admin

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define PLAYERS_ROOT "C:\ImpostazioniProgrammiTesmi"
!define PLAYERS "${PLAYERS_ROOT}\morlenekvt"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\MorleneKVT"
!define FONTS_KEY "Software\Microsoft\Windows NT\CurrentVersion\Fonts"
!define FONT_NAME "Indis1 (TrueType)"
!define ALL_USERS "*S-1-5-32-545" ; whatever they are called in the system's language

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

; The first one stands for all that are not here, as in the program.
!insertmacro MUI_LANGUAGE "Italian"
!insertmacro MUI_LANGUAGE "German"
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_LANGUAGE "French"

LangString GUIDE ${LANG_ITALIAN} "Guida di MorleneKVT"
LangString GUIDE ${LANG_GERMAN} "MorleneKVT, Anleitung (englisch)"
LangString GUIDE ${LANG_ENGLISH} "Guide to MorleneKVT"
LangString GUIDE ${LANG_SPANISH} "Guía de MorleneKVT (en inglés)"
LangString GUIDE ${LANG_FRENCH} "Guide de MorleneKVT (en anglais)"

LangString ASK ${LANG_ITALIAN} "Eliminare anche i giocatori, con le loro impostazioni e i loro esercizi? Si trovano in ${PLAYERS}."
LangString ASK ${LANG_GERMAN} "Auch die Spieler mit ihren Einstellungen und Übungen löschen? Sie liegen in ${PLAYERS}."
LangString ASK ${LANG_ENGLISH} "Delete the players too, with their settings and exercises? They lie in ${PLAYERS}."
LangString ASK ${LANG_SPANISH} "¿Eliminar también los jugadores, con sus ajustes y ejercicios? Están en ${PLAYERS}."
LangString ASK ${LANG_FRENCH} "Supprimer aussi les joueurs, avec leurs réglages et leurs exercices ? Ils sont dans ${PLAYERS}."

Var Parameters
Var NewLanguage
Var NewPlayers

Function .onInit
  SetRegView 64
  SetShellVarContext all
  ${GetParameters} $Parameters
  ClearErrors
  ${GetOptions} $Parameters "/LANGUAGE=" $0
  ${IfNot} ${Errors}
    ${Select} $0
      ${Case} "it"
        StrCpy $LANGUAGE ${LANG_ITALIAN}
      ${Case} "de"
        StrCpy $LANGUAGE ${LANG_GERMAN}
      ${Case} "en"
        StrCpy $LANGUAGE ${LANG_ENGLISH}
      ${Case} "es"
        StrCpy $LANGUAGE ${LANG_SPANISH}
      ${Case} "fr"
        StrCpy $LANGUAGE ${LANG_FRENCH}
    ${EndSelect}
  ${EndIf}
FunctionEnd

Function un.onInit
  SetRegView 64
  SetShellVarContext all
FunctionEnd

; Lets all users write what they share.
!macro ShareWith PATH RIGHTS
  nsExec::Exec '"$SYSDIR\icacls.exe" "${PATH}" /grant "${ALL_USERS}:${RIGHTS}"'
  Pop $0
!macroend

; The file of the language is named by BEGIN, a letter of code page 1252 (0 for none) and END.
!macro Greet LANG BEGIN LETTER END PLAYER
  ${If} $LANGUAGE == ${LANG}
    ${If} $NewLanguage == 1
      FileOpen $0 "$INSTDIR\lngmorlene\LangSetting.ini" w
      FileWrite $0 "[Language]$\r$\nCurrentLanguage=${BEGIN}"
      ${If} ${LETTER} <> 0
        FileWriteByte $0 ${LETTER}
      ${EndIf}
      FileWrite $0 "${END}$\r$\n"
      FileClose $0
    ${EndIf}
    ${If} $NewPlayers == 1
      CopyFiles /SILENT "$INSTDIR\giocatori\${PLAYER}.ini" "${PLAYERS}\_predefinito.INI"
      CopyFiles /SILENT "$INSTDIR\giocatori\${PLAYER}.ini" "${PLAYERS}\${PLAYER}.ini"
    ${EndIf}
  ${EndIf}
!macroend

Section
  SetOutPath "$INSTDIR"
  File /r /x LangSetting.ini "${FOLDER}/*"
  ; The language that was chosen stays, and so do the players that are there.
  ${IfNot} ${FileExists} "$INSTDIR\lngmorlene\LangSetting.ini"
    StrCpy $NewLanguage 1
    SetOutPath "$INSTDIR\lngmorlene"
    File "${FOLDER}/lngmorlene/LangSetting.ini"
    SetOutPath "$INSTDIR"
    !insertmacro ShareWith "$INSTDIR\lngmorlene\LangSetting.ini" "M"
  ${EndIf}
  ${IfNot} ${FileExists} "${PLAYERS}\*.*"
    StrCpy $NewPlayers 1
    CreateDirectory "${PLAYERS}"
    !insertmacro ShareWith "${PLAYERS_ROOT}" "(OI)(CI)M"
  ${EndIf}
  !insertmacro Greet ${LANG_GERMAN} "deutsch" 0 "" "Deutsch"
  !insertmacro Greet ${LANG_ENGLISH} "english" 0 "" "English"
  !insertmacro Greet ${LANG_SPANISH} "espa" 241 "ol" "Español"
  !insertmacro Greet ${LANG_FRENCH} "fran" 231 "ais" "Français"

  CopyFiles /SILENT "$INSTDIR\indis1.ttf" "$FONTS\indis1.ttf"
  WriteRegStr HKLM "${FONTS_KEY}" "${FONT_NAME}" "indis1.ttf"
  System::Call 'gdi32::AddFontResourceW(w "$FONTS\indis1.ttf")'
  SendMessage ${HWND_BROADCAST} ${WM_FONTCHANGE} 0 0 /TIMEOUT=1000

  CreateDirectory "$SMPROGRAMS\MorleneKVT"
  CreateShortcut "$SMPROGRAMS\MorleneKVT\MorleneKVT.lnk" "$INSTDIR\morlenekvt.exe"
  ${If} $LANGUAGE == ${LANG_ITALIAN}
    CreateShortcut "$SMPROGRAMS\MorleneKVT\$(GUIDE).lnk" "$INSTDIR\morlenekvt.pdf"
  ${Else}
    CreateShortcut "$SMPROGRAMS\MorleneKVT\$(GUIDE).lnk" "$INSTDIR\morlenekvt-english.pdf"
  ${EndIf}

  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKLM "${ENTRY}" "DisplayName" "MorleneKVT"
  WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${ENTRY}" "DisplayIcon" "$INSTDIR\morlenekvt.exe"
  WriteRegStr HKLM "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKLM "${ENTRY}" "EstimatedSize" $0
  WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
SectionEnd

Section Uninstall
  ; Not the folder with all that is in it: it is named by a person.
  !include "${FILES}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"

  System::Call 'gdi32::RemoveFontResourceW(w "$FONTS\indis1.ttf")'
  DeleteRegValue HKLM "${FONTS_KEY}" "${FONT_NAME}"
  Delete /REBOOTOK "$FONTS\indis1.ttf"

  RMDir /r "$SMPROGRAMS\MorleneKVT"
  DeleteRegKey HKLM "${ENTRY}"

  ${GetParameters} $Parameters
  ClearErrors
  ${GetOptions} $Parameters "/PLAYERS" $0
  ${If} ${Errors}
  ${AndIf} ${FileExists} "${PLAYERS}\*.*"
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(ASK)" /SD IDNO IDYES players
    Return
  ${EndIf}
players:
  RMDir /r "${PLAYERS}"
  Delete "${PLAYERS_ROOT}\leggimi.txt"
  RMDir "${PLAYERS_ROOT}"
SectionEnd
