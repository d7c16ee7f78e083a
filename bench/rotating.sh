#!/usr/bin/env bash
# Reads from an emulated rotating disk: rotating.sh <folder of the built benchmarks>. Needs root, FUSE and loop devices.
set -euo pipefail
programs=$1
here=$(cd "$(dirname "$0")" && pwd)

work=$(mktemp -d)
device=
# shellcheck disable=SC2317 # Called when the script ends.
clean_up() {
    mountpoint -q "$work/disk" && umount "$work/disk"
    [[ -n $device ]] && losetup -d "$device"
    mountpoint -q "$work/fuse" && umount "$work/fuse"
    rm -rf "$work"
}
trap clean_up EXIT

mkdir "$work/disk" "$work/fuse"
truncate -s 2G "$work/image"
mkfs.ext4 -q -F "$work/image"
mount -o loop "$work/image" "$work/disk"
"$programs/make_home" "$work/disk/home" 20000
umount "$work/disk"

"$programs/rotating_disk" "$work/image" "$work/fuse" &
until [[ -e $work/fuse/disk ]]; do
    if ! kill -0 $! 2> /dev/null; then
        echo "rotating.sh: the disk that rotates could not be mounted." >&2
        exit 1
    fi
    read -rt 0.05 <> <(:) || true
done
device=$(losetup --show -f "$work/fuse/disk")
echo 1 >"/sys/block/${device#/dev/}/queue/rotational"
mount -o ro "$device" "$work/disk"

python3 "$here/compare.py" --cold --rounds 5 --against "du -s" \
    "du -s=du -s '$work/disk/home'" \
    "the walker, workers by the disk=$programs/measure 0 '$work/disk/home'" \
    "the walker, eight workers=$programs/measure 8 '$work/disk/home'"
