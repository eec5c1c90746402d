#!/usr/bin/env bash
# Makes the folder that all users of the machine share, and in it the folder of fonts. What is there
# already stays as it is: an administrator may have given it to a group.
#
#     make_drive_root.sh FOLDER
set -eu
for folder in "$1" "$1/windows" "$1/windows/fonts"; do
    [ -d "$folder" ] || install -d -m 1777 "$folder"
done
