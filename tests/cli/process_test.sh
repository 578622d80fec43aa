#!/usr/bin/env bash
# The command line as a process: exit status, standard output and standard error.
set -u
cli=$1
studies=$(cd "$(dirname "$0")/../../examples/studies" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0

# expect STATUS OUT ERR ARGUMENT...: standard input is the file `in`.
expect() {
  local status=$1 out=$2 err=$3
  shift 3
  "$cli" "$@" <in >out 2>err
  local got=$?
  [ "$got" = "$status" ] || { echo "noldarz-cli $*: status $got, not $status"; failures=$((failures + 1)); }
  [ "$out" = "*" ] || [ "$(cat out)" = "$out" ] || { echo "noldarz-cli $*: printed $(cat out)"; failures=$((failures + 1)); }
  [ "$err" = "*" ] || [ "$(cat err)" = "$err" ] || { echo "noldarz-cli $*: reported $(cat err)"; failures=$((failures + 1)); }
}

echo 'echo hello' >in
printf 'echo a\nshow nothing\necho b\n' >bad.script

expect 0 '{"echo":"hello"}' '' script -
expect 0 '{"echo":"hello"}' '' script --start . -
expect 2 $'{"echo":"a"}\n{"error":{"line":2,"text":"no field \\"nothing\\" in view dspmnfrm"}}' \
  'bad.script:2: no field "nothing" in view dspmnfrm' script bad.script
expect 2 '{"error":{"line":0,"text":"the file can'"'"'t be read"}}' 'none.script:0: the file can'"'"'t be read' script none.script
mkdir sub
echo 'echo hello' >in.script
expect 0 '{"echo":"hello"}' '' script --start sub in.script
expect 2 '' 'nowhere: no such folder' script --start nowhere -
expect 2 '' 'bad.script:2: no field "nothing" in view dspmnfrm' run bad.script
expect 2 '' '*' bend
expect 2 '' '*' script
expect 2 '' '*'
expect 0 '*' '' --help
expect 0 '*' '' --version

# A locale with a decimal comma changes no number.
localedef -i de_DE -f UTF-8 ./de_DE.UTF-8
echo 'set htreltxt 2.5
click comput
state htRelease' >in
LOCPATH=$PWD LC_ALL=de_DE.UTF-8 "$cli" script - <in >out
tail -n 1 out | grep -qxF '{"state":"htRelease","value":2.5}' || { echo "a decimal comma came in"; failures=$((failures + 1)); }

# A full disk is a failure, not a short answer.
if [ -w /dev/full ]; then
  "$cli" script - <in >/dev/full 2>err
  [ $? = 1 ] || { echo "a full disk was not reported"; failures=$((failures + 1)); }
fi

# So is a limit on the size of files, in the study and in the output: no signal's death, nothing left behind.
study=$studies/lpg.toml
(ulimit -f 8; "$cli" study create limited.mdb --from "$study" 2>err)
[ $? = 2 ] && [ -z "$(ls limited* 2>/dev/null)" ] || { echo "a limit on files: $(cat err; ls limited*)"; failures=$((failures + 1)); }
echo dump >in
(ulimit -f 1; "$cli" script - <in >out 2>/dev/null)
[ $? = 1 ] || { echo "a limit on files was not reported"; failures=$((failures + 1)); }

# Densities of the study's grid, by the option without a value.
mkdir -p grid/data grid/start
"$cli" study create grid/data/orgtn.mdb --from "$studies/chlorine.toml"
expect 0 '*' '' run grid/start --levels 1000,100,,,,0.25 --density --sector 3
grep -q '12\.275' out || { echo "run --density: printed $(cat out)"; failures=$((failures + 1)); }  # 2.455 Ha of 5 persons
expect 2 '' 'grid/start: --sector goes with --density without numbers' run grid/start --sector 3

[ "$failures" = 0 ]
