#!/usr/bin/env bash
# Builds everything and runs every test: the core and window tests (the window ones offscreen),
# then the core tests again under AddressSanitizer and UndefinedBehaviorSanitizer and under
# ThreadSanitizer, then the Release build a packager makes, its Debian package, and that
# package checked by the distribution's tools and installed in a scratch root. Beside all
# that, from the first build on: the Windows cross build, its tests under Wine and the two
# systems' programs compared (scripts/test-windows.sh). First: every source file carries the
# licence line.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/add-spdx.sh --check
bash scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORRINDEL_WERROR=ON \
    -DORRINDEL_TESTS=ON -DORRINDEL_BENCH=ON
cmake --build build
# The Windows checks mostly wait for Wine, so they run beside the other builds; they reuse the
# command line just built. In a process group of their own, so that a failure here ends them.
windows_log=build/test-windows.log
setsid bash scripts/test-windows.sh >"$windows_log" 2>&1 &
windows_pid=$!
trap 'kill -- -"$windows_pid" 2>/dev/null || true' EXIT
ctest --test-dir build --output-on-failure

cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=Debug -DORRINDEL_WERROR=ON \
    -DORRINDEL_CORE_ONLY=ON -DORRINDEL_SANITIZE=ON -DORRINDEL_TESTS=ON -DORRINDEL_BENCH=OFF
cmake --build build-sanitize --target core_tests orrindel-cli
ctest --test-dir build-sanitize --output-on-failure

# Only the core tests: they run every thread the program starts.
cmake -S . -B build-tsan -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORRINDEL_WERROR=ON \
    -DORRINDEL_CORE_ONLY=ON -DORRINDEL_TSAN=ON -DORRINDEL_TESTS=ON -DORRINDEL_BENCH=OFF
cmake --build build-tsan --target core_tests
TSAN_OPTIONS=halt_on_error=1 ctest --test-dir build-tsan --output-on-failure

# With the hardening a distribution's build adds (its optimisation level left to Release).
export DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP="-g -O2"
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release -DORRINDEL_WERROR=ON \
    -DORRINDEL_TESTS=OFF -DORRINDEL_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)" \
    -DCMAKE_EXE_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS)"
cmake --build build-release
rm -f build-release/orrindel_*.deb
(cd build-release && cpack -G DEB)
bash scripts/check-package.sh build-release/orrindel_*.deb build/bin/orrindel-cli

windows_status=0
wait "$windows_pid" || windows_status=$?
trap - EXIT
if ((windows_status != 0)); then
    cat "$windows_log"
    echo "scripts/test-windows.sh failed (exit $windows_status)" >&2
    exit 1
fi
tail -n 1 "$windows_log"
