#!/usr/bin/env bash
# Checks a built Debian package as a user and a distribution meet it: lintian, the desktop entry,
# the AppStream metadata, its dependencies, files and documentation, and the installed programs
# at work, unpacked into a scratch root (no dpkg -i). Any error or warning fails.
#   scripts/check-package.sh PACKAGE.deb [REFERENCE_CLI]
# With REFERENCE_CLI (a tested build's orrindel-cli) the installed one must compile the same bytes.
set -euo pipefail
deb=$(realpath "$1")
reference=${2:+$(realpath "$2")}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() {
    echo "check-package: $*" >&2
    exit 1
}

depends=$(dpkg-deb --field "$deb" Depends)
for library in libc6 libstdc++6 libqt6widgets6; do
    [[ $depends == *"$library ("* ]] || fail "Depends lacks $library: $depends"
done

# The distribution's own checks. lintian says it should not run as root; as root it only adds
# that note.
lintian --fail-on error,warning "$deb" || fail "lintian reports errors or warnings"

root=$scratch/root
dpkg -x "$deb" "$root"
for file in usr/bin/orrindel usr/bin/orrindel-cli usr/share/applications/orrindel.desktop \
    usr/share/icons/hicolor/128x128/apps/orrindel.png usr/share/man/man1/orrindel-cli.1.gz \
    usr/share/man/man1/orrindel.1.gz usr/share/doc/orrindel/copyright \
    usr/share/doc/orrindel/changelog.gz usr/share/orrindel/data/emphaty/original_factions; do
    [ -e "$root/$file" ] || fail "the package lacks /$file"
done
desktop=$root/usr/share/applications/orrindel.desktop
# desktop-file-validate exits 0 after a hint, so its silence is what counts.
messages=$(desktop-file-validate "$desktop" 2>&1) && [ -z "$messages" ] ||
    fail "desktop-file-validate: ${messages:-failed}"
# appstreamcli fails on errors and warnings; an info line is shown but passes.
metainfo=("$root"/usr/share/metainfo/*.metainfo.xml)
appstreamcli validate --no-net "${metainfo[@]}"

# Both programs tell their version without a display.
version=$(dpkg-deb --field "$deb" Version)
[ "$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$root/usr/bin/orrindel" --version)" \
    = "orrindel $version" ] || fail "orrindel --version does not print $version"
[ "$("$root/usr/bin/orrindel-cli" --version)" = "orrindel-cli $version" ] ||
    fail "orrindel-cli --version does not print $version"
# The newest changelog entry is this version, released the day the metainfo file says.
zcat "$root/usr/share/doc/orrindel/changelog.gz" >"$scratch/changelog"
[ "$(dpkg-parsechangelog -l "$scratch/changelog" -S Version)" = "$version" ] ||
    fail "the changelog's newest entry is not $version"
released=$(date -u -d "$(dpkg-parsechangelog -l "$scratch/changelog" -S Date)" +%F)
grep -q "<release version=\"$version\" date=\"$released\"" "${metainfo[@]}" ||
    fail "the metainfo file has no release $version dated $released"
zcat "$root/usr/share/man/man1/orrindel-cli.1.gz" | grep -q '^\\fBimport\\-all\\fR' ||
    fail "the manual page of orrindel-cli does not list the commands"
# The window program's --help needs no display and names the options its manual page explains.
help=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$root/usr/bin/orrindel" --help) ||
    fail "orrindel --help failed"
for option in --app-dir --help --version; do
    [[ $help == *"  $option"* ]] || fail "orrindel --help does not name $option"
    escaped=${option//-/\\-}
    zcat "$root/usr/share/man/man1/orrindel.1.gz" | grep -qF "\\fB$escaped\\fR" ||
        fail "the manual page of orrindel does not explain $option"
done

# The installed command line, as a user runs it: its data folder seeded from the package.
export HOME=$scratch/home XDG_DATA_HOME=$scratch/xdg
cli=$root/usr/bin/orrindel-cli
"$cli" create Packaged >/dev/null
"$cli" import-all Packaged >/dev/null
"$cli" compile Packaged >/dev/null
[ "$("$cli" factions Packaged | wc -l)" -gt 0 ] || fail "the installed orrindel-cli imported nothing"
compiled=$XDG_DATA_HOME/orrindel/projects/Packaged/compiled
for file in emphaty.ini faction_prop.ini initialworld.ini; do
    [ -s "$compiled/$file" ] || fail "the installed orrindel-cli did not compile $file"
done

if [ -n "$reference" ]; then
    mkdir "$scratch/reference"
    cp -r "$(dirname "$reference")/data" "$scratch/reference/data"
    "$reference" --app-dir "$scratch/reference" create Packaged >/dev/null
    "$reference" --app-dir "$scratch/reference" import-all Packaged >/dev/null
    "$reference" --app-dir "$scratch/reference" compile Packaged >/dev/null
    diff -r "$scratch/reference/projects/Packaged/compiled" "$compiled" >/dev/null ||
        fail "the installed orrindel-cli compiles other bytes than $reference"
fi
echo "check-package: $(basename "$deb") is complete and its orrindel-cli works"
