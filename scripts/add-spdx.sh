#!/usr/bin/env bash
# Puts the licence line first in every C++ source file of src/, tests/, bench/ and tools/:
#   scripts/add-spdx.sh          adds it to each file whose first line it is not (run it again
#                                and nothing changes)
#   scripts/add-spdx.sh --check  changes nothing: lists each file without it and fails if any
set -euo pipefail
cd "$(dirname "$0")/.."
header='// SPDX-License-Identifier: GPL-3.0-or-later'
case ${1:-} in
"") check=false ;;
--check) check=true ;;
*)
    echo "usage: scripts/add-spdx.sh [--check]" >&2
    exit 1
    ;;
esac

missing=()
while IFS= read -r -d '' file; do
    first=""
    IFS= read -r first <"$file" || true
    [ "$first" = "$header" ] || missing+=("$file")
done < <(find src tests bench tools -type f \( -name '*.cpp' -o -name '*.h' -o -name '*.h.in' \) \
    -print0 | sort -z)

if $check; then
    if ((${#missing[@]})); then
        echo "add-spdx: ${#missing[@]} source files lack the first line \"$header\"" \
            "(scripts/add-spdx.sh adds it):" >&2
        printf '  %s\n' "${missing[@]}" >&2
        exit 1
    fi
    exit 0
fi
for file in "${missing[@]}"; do
    # Rewritten in place, so the file keeps its mode.
    content=$(cat "$file"; echo x)
    { printf '%s\n' "$header"; printf '%s' "${content%x}"; } >"$file"
done
echo "add-spdx: added the licence line to ${#missing[@]} files"
