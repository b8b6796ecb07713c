#!/usr/bin/env bash
# Signs programs and packages, and verifies them.
#
# usage: scripts/sign.sh OPTION... -- FILE...           by the certificate that osslsigncode's own options name; those whose
#                                                       chain the machine does not know need CERTIFICATES=FILE
#        scripts/sign.sh --test FOLDER FILE...          by a certificate that is made in the folder and that nobody trusts
#        scripts/sign.sh --verify CERTIFICATES FILE...  verifies only
#
# Each file is replaced when its signature is verified, and only then. docs/releasing.md says how a release is signed.
set -euo pipefail
source "$(dirname "$0")/common.sh"

need_packages osslsigncode openssl ca-certificates

usage() {
    sed -n '/^# usage/,/^#$/s/^# \?//p' "$root/scripts/sign.sh" >&2
    exit 2
}

# verify CERTIFICATES FILE
verify() {
    local log
    log=$(mktemp)
    if osslsigncode verify -CAfile "$1" -in "$2" > "$log" 2>&1; then
        rm -f "$log"
        return
    fi
    cat "$log"
    rm -f "$log"
    echo "sign.sh: the signature of $2 does not hold" >&2
    return 1
}

# sign CERTIFICATES FILE OPTION...
sign() {
    local certificates=$1 file=$2 signed
    shift 2
    signed=$(mktemp -u "$file.XXXXXX")
    if osslsigncode sign -h sha256 "$@" -in "$file" -out "$signed" > /dev/null && verify "$certificates" "$signed"; then
        chmod --reference="$file" "$signed"
        mv "$signed" "$file"
        echo "signed: $file"
        return
    fi
    rm -f "$signed"
    return 1
}

make_test_certificate() {
    openssl req -x509 -newkey rsa:2048 -sha256 -nodes -days 1 -subj '/CN=Test of Kestrune, to be trusted by nobody' \
        -addext keyUsage=critical,digitalSignature -addext extendedKeyUsage=codeSigning \
        -keyout "$1/key.pem" -out "$1/certificate.pem" 2> /dev/null
}

case ${1:-} in
    --verify)
        [ $# -gt 2 ] || usage
        certificates=$2
        shift 2
        for file in "$@"; do verify "$certificates" "$file"; done
        ;;
    --test)
        [ $# -gt 2 ] || usage
        folder=$2
        shift 2
        make_test_certificate "$folder"
        for file in "$@"; do
            sign "$folder/certificate.pem" "$file" -certs "$folder/certificate.pem" -key "$folder/key.pem"
        done
        ;;
    *)
        options=()
        while [ $# -gt 0 ] && [ "$1" != -- ]; do
            options+=("$1")
            shift
        done
        [ ${#options[@]} -gt 0 ] && [ $# -gt 1 ] || usage
        shift
        for file in "$@"; do
            sign "${CERTIFICATES:-/etc/ssl/certs/ca-certificates.crt}" "$file" "${options[@]}"
        done
        ;;
esac
