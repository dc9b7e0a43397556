#!/usr/bin/env bash
# Cross-builds the core, the command line and the core tests for Windows with mingw-w64, runs
# the tests under Wine (headless), then lets the Linux and the Windows command line create a
# project, import the whole library and compile it, and compares the two project trees byte
# for byte (the protocol's time stamps aside).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
linux_build=${ORRINDEL_LINUX_CORE_BUILD:-$root/build-core}
windows_build=${ORRINDEL_WINDOWS_BUILD:-$root/build-windows}

# What the cross build needs, installed when missing (through sudo when not root).
packages=(g++-mingw-w64-x86-64-posix wine wine64 googletest cmake ninja-build)
missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" ||
        missing+=("$package")
done
if ((${#missing[@]})); then
    as_root=()
    [[ $(id -u) -eq 0 ]] || as_root=(sudo)
    "${as_root[@]}" apt-get update
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y --no-install-recommends \
        "${missing[@]}"
fi

launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)

cmake -S . -B "$windows_build" -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-mingw-w64.cmake \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORRINDEL_WERROR=ON -DORRINDEL_CORE_ONLY=ON \
    -DORRINDEL_BENCH=OFF -DORRINDEL_GTEST_SOURCE=/usr/src/googletest "${launcher[@]}"
cmake --build "$windows_build" --target orrindel-cli core_tests orrindel_data

cmake -S . -B "$linux_build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORRINDEL_WERROR=ON \
    -DORRINDEL_CORE_ONLY=ON -DORRINDEL_BENCH=OFF "${launcher[@]}"
cmake --build "$linux_build" --target orrindel-cli orrindel_data

# Wine without a display, its messages and its add-on installers, in a prefix of its own.
export WINEPREFIX=$windows_build/wineprefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY WAYLAND_DISPLAY
wineboot --init >/dev/null 2>&1 || true
ctest --test-dir "$windows_build" --output-on-failure

# The flow, once with each program, on application folders of their own.
flow=$windows_build/flow
rm -rf "$flow"
run_flow() { # system, program...
    local app=$flow/$1
    shift
    mkdir -p "$app"
    cp -r "$root/data" "$app/data"
    local dir=$app
    [[ $1 == wine ]] && dir=$(winepath -w "$app")
    "$@" --app-dir "$dir" create "Käfer"
    "$@" --app-dir "$dir" import-all "Käfer" 2>/dev/null
    "$@" --app-dir "$dir" compile "Käfer"
}
run_flow linux "$linux_build/bin/orrindel-cli"
run_flow windows wine "$windows_build/bin/orrindel-cli.exe"

# The protocol's lines start with the date and time of the run ("<date>    <time>: ").
protocol=projects/Käfer/Protocol/protocol.txt
for system in linux windows; do
    perl -pe 's/^.*?    .*?: //' "$flow/$system/$protocol" >"$flow/$system.protocol"
    rm "$flow/$system/$protocol"
done
cmp "$flow/linux.protocol" "$flow/windows.protocol"
diff -r "$flow/linux/projects" "$flow/windows/projects"
echo "Windows: core tests passed under Wine, and both programs wrote the same project."
