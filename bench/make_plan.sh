#!/usr/bin/env bash
# Prints the folders that a scan of a benchmark's home folder reads, in the format of bare_calls: make_plan.sh <home>
set -euo pipefail
home=$1
# Each line of find's output gets a letter in front: L for folders that are listed, S for those whose files are sized.
mark() { sed "s/^/$1 /"; }

printf 'H %s\n' "$home"
find "$home/Sites" -mindepth 1 -name '.*' -prune \
    -o -type d \( -name node_modules -o -name coverage -o -name vendor -o -name build -o -name dist \) -prune \
    -o -type d -print | mark L
find "$home/Sites" -mindepth 1 -name '.*' -prune \
    -o -type d \( -name node_modules -o -name coverage -o -name vendor -o -name build -o -name dist \) -prune -print0 |
    xargs -0 -I{} find {} -type d | mark S
for folder in "$home/Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media" \
    "$home/Library/Caches/Google" "$home/.cache" "$home/.gradle/caches" \
    "$home"/{Downloads,Desktop,Documents,Movies,Pictures,Music} \
    "$home/Sites/localhost/shop copy" "$home/Sites/localhost/shop-backup"; do
    find "$folder" -type d | mark S
done
