#!/usr/bin/env bash
# Makes the folder that all users of the machine share, and in it the folder of fonts. What is there
# already stays as it is: an administrator may have given it to a group.
#
#     make_drive_root.sh [--folders-only] FOLDER [PROGRAM-FOLDER]
#
# With the program's folder, or lying in it, it also greets in the system's language where the
# program speaks that: a new drive begins with this language, with a player whose colours have their
# names in it, and with the same settings for the default player.
#
# Where the program has been in use, --folders-only does no more than what the first sentence says: a
# player that was taken away shall not come back.
set -eu
greet=yes
if [ "$1" = --folders-only ]; then
    greet=no
    shift
fi
drive=${1%/}
program=${2:-$(dirname "$(readlink -f "$0")")}
settings=$drive/ImpostazioniProgrammiTesmi/morlenekvt
setting=$program/lngmorlene/LangSetting.ini

new=no
[ -d "$drive/windows/fonts" ] || new=yes
for folder in "$drive" "$drive/windows" "$drive/windows/fonts"; do
    [ -d "$folder" ] || install -d -m 1777 "$folder"
done
[ $greet = yes ] && [ -d "$program/giocatori" ] || exit 0

# The name of the language's file in code page 1252, and its player. Italian needs none.
language=italiano
player=
locale=${LC_ALL:-${LC_MESSAGES:-${LANG:-}}}
case ${locale%%[_.@]*} in
    de) language=deutsch player=Deutsch ;;
    en) language=english player=English ;;
    es) language='espa\361ol' player=Español ;;
    fr) language='fran\347ais' player=Français ;;
esac

# What the program makes has the rights and the group of the folder that it lies in; so has this.
give_as() {
    chmod "$(printf '%o' $((0$(stat -c %a "$1") & $3)))" "$2"
    chgrp "$(stat -c %g "$1")" "$2" 2>/dev/null || true
}
put() {
    cp --no-preserve=mode "$1" "$2"
    give_as "$(dirname "$2")" "$2" 0666
}
# A player's name is the same in small letters and in capitals.
has_player() { [ -n "$(LC_ALL=C.UTF-8 find "$settings" -maxdepth 1 -iname "$1.ini" -print -quit)" ]; }

# In an installed program the setting is a link to a file on the drive.
if [ ! -e "$setting" ] || { [ $new = yes ] && [ -n "$player" ]; }; then
    made=no
    [ -e "$setting" ] || made=yes
    printf '[Language]\r\nCurrentLanguage='"$language"'\r\n' >"$setting"
    [ $made = no ] || give_as "$drive" "$setting" 0666
fi

[ -n "$player" ] || exit 0
if [ ! -d "$settings" ]; then
    for folder in "$(dirname "$settings")" "$settings"; do
        [ -d "$folder" ] || { mkdir "$folder" && give_as "$(dirname "$folder")" "$folder" 07777; }
    done
    # The program installs its font when it makes this folder, so that is done here too.
    font=$drive/windows/fonts/indis1.ttf
    [ -e "$font" ] || [ ! -e "$program/indis1.ttf" ] || put "$program/indis1.ttf" "$font"
    # The list of players shows from the second on, so the default player has a file as well.
    put "$program/giocatori/$player.ini" "$settings/_predefinito.INI"
fi
has_player "$player" || put "$program/giocatori/$player.ini" "$settings/$player.ini"
