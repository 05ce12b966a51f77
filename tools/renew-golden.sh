#!/usr/bin/env bash
# Draws the golden pictures anew: all of them, or those whose name has a text in it. tests/golden/README.md tells more.
# Usage: tools/renew-golden.sh [TEXT]
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release > /dev/null
cmake --build --preset release --target golden_tests
# CTest sets the fonts and the surroundings that the comparison has.
MFILTER_RENEW_GOLDEN=1 ctest --test-dir build/release -R "^(Page/Golden|View/Golden|GoldenSample).*${1:-}"
git status --short tests/golden/references
