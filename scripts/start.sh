#!/usr/bin/env bash
# Builds the editor and starts it; extra arguments go to the program (e.g. --app-dir DIR).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build --target orrindel orrindel-cli orrindel_data
exec build/bin/orrindel "$@"
