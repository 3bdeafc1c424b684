#!/usr/bin/env bash
# The test command: installs what is missing, builds the asan preset (AddressSanitizer +
# UndefinedBehaviorSanitizer) and runs every test with ctest, then every fuzz target briefly.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
cmake --preset asan >/dev/null
cmake --build --preset asan
PLAIN_LOG_QUIET=1 ctest --preset asan

# Every fuzz target for a short while (clang-14 build of the fuzz preset; see docs/fuzzing.md).
# PLAIN_FUZZ_SECONDS=0 skips them.
fuzz_seconds=${PLAIN_FUZZ_SECONDS:-20}
if [ "$fuzz_seconds" -gt 0 ]; then
  # A fixed seed: what CI finds, the same command finds again.
  PLAIN_FUZZ_SEED=${PLAIN_FUZZ_SEED:-1} bash scripts/fuzz.sh --all "$fuzz_seconds"
fi
