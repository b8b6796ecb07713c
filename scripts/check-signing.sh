#!/usr/bin/env bash
# Signs copies of programs and packages by a certificate of the moment, and sees that a changed byte breaks the signature.
# usage: scripts/check-signing.sh FILE...
set -euo pipefail
source "$(dirname "$0")/common.sh"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
for file in "$@"; do cp "$file" "$folder/"; done
mapfile -t copies < <(find "$folder" -type f)
scripts/sign.sh --test "$folder" "${copies[@]}" > /dev/null
scripts/sign.sh --verify "$folder/certificate.pem" "${copies[@]}"

# change_byte FILE: turns one bit in the middle.
change_byte() {
    local place byte
    place=$(($(stat -c %s "$1") / 2))
    byte=$(od -An -tu1 -j "$place" -N 1 "$1")
    printf '%b' "\\x$(printf %02x $((byte ^ 1)))" | dd of="$1" bs=1 seek="$place" conv=notrunc status=none
}

for file in "${copies[@]}"; do
    change_byte "$file"
    if scripts/sign.sh --verify "$folder/certificate.pem" "$file" > /dev/null 2>&1; then
        echo "check-signing.sh: $(basename "$file") was changed and its signature still holds"
        exit 1
    fi
done
echo "${#copies[@]} files were signed, verified, and found out when changed"
