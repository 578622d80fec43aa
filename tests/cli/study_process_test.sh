#!/usr/bin/env bash
# The study on the command line: commands and their exit status, the setup, and a program that is killed while it works.
# Usage: study_process_test.sh PROGRAM SOURCE-FOLDER
set -u
cli=$1
source=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
export HOME=$folder XDG_CONFIG_HOME=$folder/config
failures=0
complain() { echo "$*"; failures=$((failures + 1)); }

# expect STATUS ERR ARGUMENT... ("*": anything)
expect() {
  local status=$1 err=$2
  shift 2
  "$cli" "$@" </dev/null >out 2>err
  local got=$?
  [ "$got" = "$status" ] || complain "noldarz-cli $*: status $got, not $status: $(cat err)"
  [ "$err" = "*" ] || [ "$(cat err)" = "$err" ] || complain "noldarz-cli $*: reported $(cat err)"
}

mkdir data start
chlorine=$source/examples/studies/chlorine.toml
expect 0 '' study create data/orgtn.mdb --from "$chlorine"
expect 2 'data/orgtn.mdb: there is a study already; --force replaces it' study create data/orgtn.mdb --from "$chlorine"
expect 0 '' study create data/orgtn.mdb --from "$chlorine" --force
expect 0 '' study export data/orgtn.mdb
mv out first.toml
expect 0 '' study create copy.mdb --from first.toml
expect 0 '' study export copy.mdb
cmp out first.toml || complain "the study did not come back the same"
expect 0 '' study check data/orgtn.mdb
expect 2 'none.mdb is not there' study check none.mdb
expect 2 'first.toml is a text, no study' study export first.toml
expect 2 'none.toml: can'"'"'t be read' study create new.mdb --from none.toml
expect 2 'nowhere/new.mdb: No such file or directory' study create nowhere/new.mdb --from first.toml
[ "$(ls)" = "$(printf '%s\n' copy.mdb data err first.toml out start)" ] || complain "left behind: $(ls)"
"$cli" study export copy.mdb >/dev/full 2>err && complain "a full disk was not reported"

# The setup lays a missing study down, and only a missing one.
mkdir -p empty/start
printf 'start\nclick reqfrm.runsetp\n' >missing.script
expect 0 '' script --start empty/start missing.script
for _ in $(seq 100); do [ -e empty/data/orgtn.mdb ] && break; sleep 0.1; done
expect 0 '' study check empty/data/orgtn.mdb
expect 0 '' script --start empty/start "$source/examples/study.script"
grep -qF '"First run","D",6.0,393.49,1628.27,6216.94' out || complain "no run on the study of the setup: $(cat out)"
echo "no study" >empty/data/orgtn.mdb
"$cli" script --start empty/start missing.script >out 2>setup.err || complain "no way to the setup: $(cat setup.err)"
for _ in $(seq 100); do grep -q 'is there already' setup.err && break; sleep 0.1; done # the setup runs on by itself
[ "$(cat empty/data/orgtn.mdb)" = "no study" ] || complain "the setup overwrote a file"

# The command that computes a study: the levels that the chemical lacks are given once, and are the run's from then on.
mkdir -p site/data site/start
expect 0 '' study create site/data/orgtn.mdb --from "$chlorine"
expect 1 'site/start: the levels were refused; --levels gives others' run site/start
expect 0 '' run --levels 1000,100,,,,0.25 site/start
mv out first
expect 0 '' run site/start
cmp -s out first || complain "a second run printed $(diff first out)"
expect 0 '' run --json --table site/start
grep -q '"endpt":"6216.94"' out || complain "no end point in $(cat out)"
expect 2 '*' run --json --csv site/start
expect 2 'site: --levels takes 6 numbers, not 1' run --levels 5 site
expect 1 '*' run empty
cat >site/rows.script <<'END'
start
show constn(4)
rows "SELECT FtlyXcord, InjXcord, constn5, bgnptn1 FROM maimTbl4All"
END
expect 0 '' script --start site/start site/rows.script
grep -qF '{"field":"dspmnfrm.constn(4)","text":"0.5"}' out || complain "the levels did not come back: $(cat out)"
grep -qF '{"rows":[[0.05,93.45,0.5,7.7]]' out || complain "the limits are not in the row: $(cat out)"

# Killed at random moments while it makes, names and computes runs. Rows are whole: a computed one has all its figures.
{
  echo start
  for class in A AB B BC C CD D DE E EF F; do
    printf 'click redosimul\nchoose stblclscbo %s\nwait\nenter scnrotxtlbl "class %s"\nwait\n' $class $class
    echo 'click comput'
    for level in "0 300" "1 100" "2 20" "3 2" "4 0.5" "5 0.25"; do
      set -- $level
      echo "enter constn($1) $2"
    done
    echo 'click comput'
  done
} >work.script
computed=0
for i in $(seq 200); do # more than 40 only on a machine too busy to compute in between
  [ "$i" -gt 40 ] && [ "$computed" -gt 3 ] && break
  "$cli" script --start start work.script >/dev/null 2>&1 &
  program=$!
  sleep "0.$(printf %03d $((RANDOM % 400)))"
  kill -9 $program 2>/dev/null
  wait $program 2>/dev/null
  "$cli" study check data/orgtn.mdb >/dev/null 2>err || complain "after a kill: $(cat err)"
  "$cli" study export data/orgtn.mdb | awk -v RS= '/^\[\[maimTbl4All/ {
      figures = gsub(/\n(bgnptn|endptn)[0-5] = /, "&")
      if (figures != 0 && figures != 12) { print "half a row:\n" $0; exit 1 }
    }' || complain "half a row"
  computed=$("$cli" study export data/orgtn.mdb | grep -c '^endptn5')
done
[ "$computed" -gt 3 ] || complain "only $computed runs were computed between the kills"

[ "$failures" = 0 ]
