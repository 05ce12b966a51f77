#!/usr/bin/env bash
# Checks the format of every source, and with --tidy also what clang-tidy says of the release build.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files '*.cpp' '*.h' '*.c' | xargs clang-format --dry-run --Werror
if [ "${1:-}" = --tidy ]; then
  git ls-files 'foundation/*.cpp' 'graphics/*.cpp' 'filter/*.cpp' 'host/*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/release
fi
echo "Nothing to mend."
