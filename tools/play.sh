#!/usr/bin/env bash
# Installs what is missing, builds, and plays Rustline in its working directory,
# passing on its arguments: --host [PORT] to be watched, --watch HOST[:PORT] to watch.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

install_missing_packages
build_tree build -DCMAKE_BUILD_TYPE=RelWithDebInfo
cd "$repo_root/play"
exec "$repo_root/build/game/rustline" "$@"
