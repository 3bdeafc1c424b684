#!/usr/bin/env bash
# The test command: installs what is missing, builds the asan preset (AddressSanitizer +
# UndefinedBehaviorSanitizer) and runs every test with ctest.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
cmake --preset asan >/dev/null
cmake --build --preset asan
PLAIN_LOG_QUIET=1 ctest --preset asan
