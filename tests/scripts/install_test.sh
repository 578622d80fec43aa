#!/usr/bin/env bash
# What `cmake --install` lays down works from its new place, under a start folder of its own.
# Usage: install_test.sh BUILD-FOLDER SOURCE-FOLDER
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export HOME=$folder XDG_CONFIG_HOME=$folder/config QT_QPA_PLATFORM=offscreen
cmake --install "$1" --prefix "$folder/usr" >/dev/null
fail() { echo "$*"; exit 1; }
for file in bin/noldarz bin/noldarz-cli share/applications/noldarz.desktop share/man/man1/noldarz.1.gz \
  lib/noldarz/bin/noldarz-pictures.so share/man/man1/noldarz-cli.1.gz share/icons/hicolor/scalable/apps/noldarz.svg; do
  [ -e "$folder/usr/$file" ] || fail "$file is not there"
done

mkdir -p "$folder/site/start"
cd "$folder/site/start"
printf 'start\nclick reqfrm.runsetp\n' | "$folder/usr/bin/noldarz-cli" script - >"$folder/out"
for _ in $(seq 100); do [ -e ../data/orgtn.mdb ] && break; sleep 0.1; done
"$folder/usr/bin/noldarz-cli" script "$2/examples/study.script" >"$folder/out"
grep -qF '"First run","D",6.0,393.49' "$folder/out" || fail "the installed program printed $(cat "$folder/out")"
env -u DISPLAY QT_QPA_PLATFORM=xcb "$folder/usr/bin/noldarz" --version >"$folder/out"
grep -q '^noldarz [0-9]' "$folder/out" || fail "no version in $(cat "$folder/out")"
status=0
"$folder/usr/bin/noldarz" "$folder/nowhere" 2>"$folder/err" || status=$?
[ $status = 2 ] || fail "status $status for a start folder that is none"
grep -q nowhere "$folder/err"
