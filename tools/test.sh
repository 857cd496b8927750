#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test twice: in a plain
# build and under AddressSanitizer and UndefinedBehaviorSanitizer. Everything
# runs inside one virtual X server, so the window tests draw into real windows
# on any machine; it outlives each test's last window instead of resetting.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

if [[ -z "${MORVANE_TEST_X_SERVER:-}" ]]; then
  install_missing_packages
  export MORVANE_TEST_X_SERVER=xvfb
  exec xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" bash "${BASH_SOURCE[0]}" "$@"
fi

failed=()
run_suite() {
  local dir="$1"
  shift
  echo "=== $dir"
  if build_tree "$dir" "$@" && ctest --test-dir "$repo_root/$dir" --output-on-failure --parallel "$(nproc)"; then
    return 0
  fi
  failed+=("$dir")
}

run_suite build -DCMAKE_BUILD_TYPE=RelWithDebInfo
run_suite build-sanitize -DCMAKE_BUILD_TYPE=Debug -DMORVANE_SANITIZE=ON

if [[ ${#failed[@]} -gt 0 ]]; then
  echo "FAILED in: ${failed[*]}"
  exit 1
fi
echo "All tests passed in both builds."
