#!/usr/bin/env bash
# Rustline, started in a copy of its working directory, writes the banner and
# the stop lines to morvane.log, nothing that the log level silences, and exits 0.
set -euo pipefail
rustline="$1"
working_directory="$2"

scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
cp -r "$working_directory" "$scratch/play"
cd "$scratch/play"
unset MORVANE_LOG MORVANE_CONFIG

"$rustline"

messages="$(sed -E 's/^[0-9]{2}:[0-9]{2}:[0-9]{2} +[0-9]+ //' morvane.log)"
stars="****************************************************"
expected="$stars
** Morvane version 4.21 **
** Game engine started **
$stars
$stars
** Game engine stopped **"
if [[ "$messages" != "$expected" ]]; then
  echo "morvane.log holds:"
  cat morvane.log
  echo "expected the messages:"
  echo "$expected"
  exit 1
fi
