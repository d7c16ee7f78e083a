#!/usr/bin/env bash
# The same work as a scan, done with find and du: same_work.sh <home>. Prints one sum of allocated bytes for each
# finding.
set -euo pipefail
export LC_ALL=C
home=$1

# Sums the allocated bytes of the paths on its standard input, which are separated by NULs.
measure() { du -s --block-size=1 --files0-from=- | awk '{ sum += $1 } END { print sum + 0 }'; }

# Passes on the folders on its standard input that have one of the given files beside them.
beside() {
    local path name
    while IFS= read -r -d '' path; do
        for name in "$@"; do
            if [[ -e ${path%/*}/$name ]]; then
                printf '%s\0' "$path"
                break
            fi
        done
    done
}

sites=$home/Sites
found=$(mktemp -d)
trap 'rm -rf "$found"' EXIT
find "$sites" -mindepth 1 -name '.*' -prune \
    -o -type d \( -name node_modules -o -name coverage \) -prune -fprint0 "$found/rebuildable" \
    -o -type d -name vendor -prune -fprint0 "$found/vendor" \
    -o -type d \( -name build -o -name dist \) -prune -fprint0 "$found/output"
measure <"$found/rebuildable"
beside composer.json <"$found/vendor" | measure
beside package.json composer.json vite.config.js next.config.js Package.swift pubspec.yaml <"$found/output" | measure

existing() {
    local path
    for path in "$@"; do
        if [[ -e $path ]]; then printf '%s\0' "$path"; fi
    done
}
existing "$home/Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media" | measure
existing "$home/Library/Caches/net.whatsapp.WhatsApp" | measure
caches=(Google BraveSoftware pip ms-playwright composer electron node-gyp Homebrew)
existing "${caches[@]/#/$home/Library/Caches/}" "$home/.cache" "$home/.gradle/caches" | measure

find "$home/Downloads" -mindepth 1 -maxdepth 1 -type f ! -name '.*' -mtime +44 \
    -regextype posix-extended -iregex '.*\.(dmg|zip|tar|gz|tgz|apk|avi|mov|mp4|webm)' -print0 | measure
find "$home"/{Downloads,Desktop,Documents,Movies,Pictures,Music} -mindepth 1 -name '.*' -prune \
    -o -type d \( -name node_modules -o -name '*.app' \) -prune \
    -o -type f -size +104857599c -mtime +59 -print0 | measure

find "$sites/localhost" -mindepth 1 -maxdepth 1 -type d ! -name '.*' -print0 | grep -zE '( copy|-backup)$' | measure
