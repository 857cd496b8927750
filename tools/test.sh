#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test twice: in a plain
# build and under AddressSanitizer and UndefinedBehaviorSanitizer. Last, each
# fuzz target runs for a bounded time in a libFuzzer build of its own. Everything
# runs inside one virtual X server of 1920 by 1080, so the window tests draw into
# real windows on any machine; it outlives each test's last window instead of
# resetting. The tests of the game's window on smaller screens start servers of
# those sizes of their own.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

if [[ -z "${MORVANE_TEST_X_SERVER:-}" ]]; then
  install_missing_packages
  export MORVANE_TEST_X_SERVER=xvfb
  exec xvfb-run -a -s "-screen 0 1920x1080x24 -noreset" bash "${BASH_SOURCE[0]}" "$@"
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

# run_fuzzer NAME: runs fuzz/NAME's target from its seeds for a bounded time.
# New inputs and any finding stay in build-fuzz/NAME/; the repository's seeds
# are only read. Any crash, leak, sanitizer report or hang fails it.
run_fuzzer() {
  local name="$1"
  local work="$repo_root/build-fuzz/$name"
  mkdir -p "$work/corpus" "$work/findings"
  if ALSOFT_DRIVERS=null "$repo_root/build-fuzz/fuzz/${name}_fuzzer" \
    -max_total_time="${MORVANE_FUZZ_SECONDS:-30}" -timeout=10 -rss_limit_mb=2048 \
    -dict="$repo_root/fuzz/$name/$name.dict" -artifact_prefix="$work/findings/" \
    "$work/corpus" "$repo_root/fuzz/$name/seeds" >"$work/fuzz.log" 2>&1; then
    echo "fuzz/$name: no finding; $(ls "$work/corpus" | wc -l) inputs in its corpus"
    return 0
  fi
  tail -n 60 "$work/fuzz.log"
  echo "fuzz/$name: FINDING, kept in $work/findings/"
  return 1
}

run_fuzzers() {
  echo "=== build-fuzz"
  if ! build_tree build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DMORVANE_FUZZ=ON; then
    failed+=(build-fuzz)
    return
  fi
  local name
  for name in sprite config record network watch; do
    run_fuzzer "$name" || failed+=("fuzz/$name")
  done
}

run_suite build -DCMAKE_BUILD_TYPE=RelWithDebInfo
run_suite build-sanitize -DCMAKE_BUILD_TYPE=Debug -DMORVANE_SANITIZE=ON
run_fuzzers

if [[ ${#failed[@]} -gt 0 ]]; then
  echo "FAILED in: ${failed[*]}"
  exit 1
fi
echo "All tests passed in both builds, and no fuzz target found anything."
