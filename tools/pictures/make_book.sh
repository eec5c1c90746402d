#!/usr/bin/env bash
# Makes docs/pictures anew: all windows in Italian and in English, for the guide and the package, and
# for each language a page that shows them all.
#
#     make_book.sh [LANGUAGE...]
set -eu
cd "$(dirname "$(readlink -f "$0")")/../.."

book=docs/pictures
own=$(mktemp -d)
trap 'rm -rf "$own"' EXIT
[ $# -gt 0 ] || set -- italiano english français español deutsch
mkdir -p $book
for language in "$@"; do
    ./run --pictures "$own/$language" --language "$language"
    mv "$own/$language/all.png" "$book/$language.png"
    case $language in
        italiano | english)
            rm -rf "${book:?}/$language"
            mv "$own/$language" "$book/$language"
            ;;
    esac
done
