#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test twice: in a plain
# build and under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

install_missing_packages

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
