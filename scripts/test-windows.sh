#!/usr/bin/env bash
# Cross-builds the core, the command line and the core tests for Windows with mingw-w64, runs
# the tests under Wine (headless), then lets the Linux and the Windows command line create a
# project, import the whole library and compile it, and compares the two project trees byte
# for byte (the protocol's time stamps aside); checks the Windows command line's UTF-8
# arguments, its byte-exact output and its exit codes against the Linux one's; and packs the
# Windows zip. ORRINDEL_WINDOWS_TIMING=1 also times the project road on both systems.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
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

start=$SECONDS
cmake -S . -B "$windows_build" -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-mingw-w64.cmake \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORRINDEL_WERROR=ON -DORRINDEL_CORE_ONLY=ON \
    -DORRINDEL_TESTS=ON -DORRINDEL_BENCH=ON -DORRINDEL_GTEST_SOURCE=/usr/src/googletest \
    "${launcher[@]}" >/dev/null
cmake --build "$windows_build" --target orrindel-cli core_tests road_timing orrindel_data
echo "Windows: cross build took $((SECONDS - start)) s"

# The Linux program: the one the test command built already, else one built here.
linux_cli=$root/build/bin/orrindel-cli
if [[ ! -x $linux_cli ]]; then
    linux_build=${ORRINDEL_LINUX_CORE_BUILD:-$root/build-core}
    cmake -S . -B "$linux_build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORRINDEL_WERROR=ON \
        -DORRINDEL_CORE_ONLY=ON "${launcher[@]}" >/dev/null
    cmake --build "$linux_build" --target orrindel-cli
    linux_cli=$linux_build/bin/orrindel-cli
fi
windows_cli=$windows_build/bin/orrindel-cli.exe

# Wine without a display, its messages and its add-on installers, in a prefix of its own.
export WINEPREFIX=$windows_build/wineprefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY WAYLAND_DISPLAY
wineboot -i >/dev/null 2>&1 || true
trap 'wineserver -k >/dev/null 2>&1 || true' EXIT
ctest --test-dir "$windows_build" --output-on-failure

scratch=$windows_build/flow
rm -rf "$scratch"
mkdir -p "$scratch"
# Runs one system's program on its own application folder: system, arguments...
cli() {
    local system=$1
    shift
    local app=$scratch/$system
    if [[ ! -d $app ]]; then
        mkdir -p "$app"
        cp -r "$root/data" "$app/data"
    fi
    if [[ $system == windows ]]; then
        wine "$windows_cli" --app-dir "$(winepath -w "$app")" "$@"
    else
        "$linux_cli" --app-dir "$app" "$@"
    fi
}

# The flow, once with each program.
for system in linux windows; do
    cli $system create "Käfer"
    cli $system import-all "Käfer" >/dev/null
    cli $system compile "Käfer"
done

# `protocol` prints the file as it is on disk, CR LF and all.
protocol=projects/Käfer/Protocol/protocol.txt
for system in linux windows; do
    cli $system protocol "Käfer" >"$scratch/$system.printed"
    cmp "$scratch/$system/$protocol" "$scratch/$system.printed"
done

# The protocol's lines start with the date and time of the run ("<date>    <time>: ").
for system in linux windows; do
    perl -pe 's/^.*?    .*?: //' "$scratch/$system/$protocol" >"$scratch/$system.protocol"
    rm "$scratch/$system/$protocol"
done
cmp "$scratch/linux.protocol" "$scratch/windows.protocol"
diff -r "$scratch/linux/projects" "$scratch/windows/projects"

# Exit codes: a usage error is 1, a failure 2, on both systems alike.
status_of() { # system, arguments...
    local status=0
    cli "$@" >/dev/null 2>&1 || status=$?
    echo "$status"
}
while read -r expected arguments; do
    for system in linux windows; do
        # shellcheck disable=SC2086 # the arguments are words
        actual=$(status_of $system $arguments)
        if [[ $actual != "$expected" ]]; then
            echo "Windows: '$arguments' exited $actual on $system, not $expected" >&2
            exit 1
        fi
    done
done <<'EOF'
1 no-such-command
1 create
2 create Käfer
2 protocol Missing
0 projects
EOF

# The zip a Windows user unpacks: the program, the shipped library, the readme and the licence.
rm -f "$windows_build"/orrindel-*-windows-x64.zip
(cd "$windows_build" && cpack -G ZIP >/dev/null)
zip=$(ls "$windows_build"/orrindel-*-windows-x64.zip)
listing=$(python3 -c 'import sys, zipfile; print("\n".join(zipfile.ZipFile(sys.argv[1]).namelist()))' "$zip")
for wanted in orrindel-cli.exe README.md LICENSE data/emphaty/original_factions/br_m_grp; do
    grep -q "^orrindel-[^/]*/$wanted\$" <<<"$listing" || {
        echo "Windows: $zip lacks $wanted" >&2
        exit 1
    }
done
# Unpacked, it is a portable copy: it keeps its projects beside itself and imports from the
# library it carries.
unpacked=$scratch/unpacked
python3 -c 'import sys, zipfile; zipfile.ZipFile(sys.argv[1]).extractall(sys.argv[2])' "$zip" "$unpacked"
portable=$(ls -d "$unpacked"/orrindel-*)
wine "$portable/orrindel-cli.exe" create Portable
wine "$portable/orrindel-cli.exe" import Portable br_m_grp >/dev/null
[[ -s $portable/projects/Portable/faction_prop/Shiplist_br_m_grp.lst ]]

if [[ ${ORRINDEL_WINDOWS_TIMING:-0} == 1 ]]; then
    # The same storage for both: a memory file system, which Wine reaches as Z:\dev\shm.
    cmake --build "${ORRINDEL_LINUX_BENCH_BUILD:-$root/build}" --target road_timing
    ORRINDEL_BENCH_DIR=/dev/shm "${ORRINDEL_LINUX_BENCH_BUILD:-$root/build}/bench/road_timing" 7
    ORRINDEL_BENCH_DIR='Z:\dev\shm' wine "$windows_build/bench/road_timing.exe" 7
fi
echo "Windows: core tests passed under Wine, both programs wrote the same project, the" \
    "command line's checks passed, and $(basename "$zip") is packed."
