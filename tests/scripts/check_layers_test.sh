#!/usr/bin/env bash
# scripts/check_layers finds each kind of broken rule, and nothing in the project's own tree.
set -u
check=$(cd "$(dirname "$0")/../.." && pwd)/scripts/check_layers
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# refuses FILE INCLUDE-LINE: a tree with that one line is refused, and the file is named.
refuses() {
  rm -rf "${tree:?}"/*
  mkdir -p "$tree/$(dirname "$1")"
  echo "$2" >"$tree/$1"
  if "$check" "$tree" >"$tree/out"; then
    echo "not refused: $2 in $1"
    failures=$((failures + 1))
  elif ! grep -q "src/$1" "$tree/out"; then
    echo "not named: $1"
    failures=$((failures + 1))
  fi
}

refuses engine/a.cpp '#include "toxic/state.h"'
refuses platform/a.h '#include "engine/state.h"'
refuses plot/a.h '  #  include "scenario/main_view.h"'
refuses system/a.cpp '#include "cli/script.h"'
refuses cli/a.cpp '#include "desktop/binder.h"'
refuses engine/a.cpp '#include <QWidget>'
refuses cli/a.cpp '#include <QtCore/QString>'
refuses platform/a.cpp '#include "../engine/state.h"'
refuses attic/a.cpp '#include <vector>'
"$check" || failures=$((failures + 1))
[ "$failures" = 0 ]
