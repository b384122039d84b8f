# shellcheck shell=bash
# What scripts/run, scripts/test and scripts/lint share. Sourced, not run.
# After it: $root is the project's folder, and every package is installed.
set -euo pipefail
root=$(CDPATH='' cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

# Bare containers set no locale and no home; Qt wants UTF-8 file names, ccache a place.
[ -n "${LC_ALL:-}${LC_CTYPE:-}${LANG:-}" ] || export LANG=C.UTF-8
[ -n "${HOME:-}" ] || export CCACHE_DIR="$root/build/ccache"

"$root/scripts/install-packages"

# quietly COMMAND…: its output is shown, on standard error, only if it fails.
quietly() {
  local log status=0
  log=$(mktemp)
  "$@" >"$log" 2>&1 </dev/null || status=$?
  [ "$status" -eq 0 ] || cat -- "$log" >&2
  rm -f -- "$log"
  return "$status"
}

# build PRESET [TARGET…]: configures and builds in build/PRESET; on a terminal one line shows how far it is.
build() {
  local preset=$1 silent=()
  shift
  [ -t 2 ] || silent=(-- --quiet)
  echo "Building $preset" >&2
  quietly cmake -S "$root" --preset "$preset"
  cmake --build "$root/build/$preset" ${1:+--target "$@"} "${silent[@]}" >&2 </dev/null
}
