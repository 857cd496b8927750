#!/usr/bin/env bash
# Shared by play.sh and test.sh: installs the missing Debian packages of
# tools/debian-packages.txt, then configures and builds one build directory.
set -euo pipefail

repo_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

install_missing_packages() {
  local wanted missing=()
  while read -r wanted; do
    [[ -z "$wanted" || "$wanted" == \#* ]] && continue
    if ! dpkg-query -W -f='${Status}' "$wanted" 2>/dev/null | grep -q 'install ok installed'; then
      missing+=("$wanted")
    fi
  done <"$repo_root/tools/debian-packages.txt"
  [[ ${#missing[@]} -eq 0 ]] && return 0
  echo "Installing missing packages: ${missing[*]}"
  local sudo=""
  [[ "$(id -u)" -ne 0 ]] && sudo="sudo"
  $sudo apt-get update
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
}

# build_tree DIR [cmake options...]: configures DIR once, then builds only what changed.
build_tree() {
  local dir="$repo_root/$1"
  shift
  if [[ ! -f "$dir/CMakeCache.txt" ]]; then
    cmake -S "$repo_root" -B "$dir" "$@"
  fi
  cmake --build "$dir" --parallel "$(nproc)"
}
