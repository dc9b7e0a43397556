#!/usr/bin/env bash
# Builds everything and runs every test: the core and window tests (the window ones offscreen),
# then the core tests again under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build
ctest --test-dir build --output-on-failure

cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DORRINDEL_CORE_ONLY=ON -DORRINDEL_SANITIZE=ON -DORRINDEL_BENCH=OFF
cmake --build build-sanitize --target core_tests orrindel-cli
ctest --test-dir build-sanitize --output-on-failure
