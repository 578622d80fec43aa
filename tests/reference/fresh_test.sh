#!/usr/bin/env bash
# The reference figures in this folder are those that reference_model.py writes.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$1" "$here/reference_model.py" "$folder"
for file in "$folder"/*; do diff -q "$file" "$here/$(basename "$file")"; done
