#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests.
set -euo pipefail
cd "$(dirname "$0")"

tools/install-dependencies.sh
echo "Building"
cmake --preset release
cmake --build --preset release
echo "Testing"
ctest --preset release -j "$(nproc)"
