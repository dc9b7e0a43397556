#!/usr/bin/env bash
# Installs the Debian packages that building and testing need, only those missing.
set -euo pipefail
# dpkg-dev and file: the package's dependencies (dpkg-shlibdeps), its build flags and changelog;
# lintian, desktop-file-utils and appstream: the package's checks.
packages=(cmake ninja-build g++ qt6-base-dev libgl-dev libgtest-dev libgmock-dev libbenchmark-dev
    dpkg-dev file lintian desktop-file-utils appstream)
missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
if ((${#missing[@]})); then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
fi
