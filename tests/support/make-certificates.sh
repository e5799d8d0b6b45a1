#!/usr/bin/env bash
# make-certificates.sh FOLDER: makes what a test's server shows: for each kind a certificate for
# "localhost", or one that a client must refuse there, with its key in front of it (KIND.pem), and the
# authority that signed all but one of them (ca.pem).
set -euo pipefail
mkdir -p "$1"
cd "$1"
# Said only where something goes wrong.
exec 3>&2 2> log
trap '(($? == 0)) || cat log >&3' EXIT
cat > ca.conf <<'END'
[ca]
default_ca = authority
[authority]
database = ca.index
new_certs_dir = .
serial = ca.serial
policy = names
default_md = sha256
unique_subject = no
[names]
commonName = supplied
[here]
subjectAltName = DNS:localhost,IP:127.0.0.1
[elsewhere]
subjectAltName = DNS:elsewhere.example
END
: > ca.index
echo 01 > ca.serial
key=(-newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes)
openssl req -x509 "${key[@]}" -subj "/CN=Test authority" -days 36500 -keyout ca.key -out ca.pem
make() { # KIND SECTION FIRST LAST [OPTION…]
  openssl req -new "${key[@]}" -subj "/CN=Test server" -keyout "$1.key" -out "$1.csr"
  openssl ca -batch -notext -config ca.conf -cert ca.pem -keyfile ca.key -extensions "$2" \
    -startdate "$3" -enddate "$4" -in "$1.csr" -out "$1.crt"
  cat "$1.key" "$1.crt" > "$1.pem"
}
make valid here 20200101000000Z 21200101000000Z
make expired here 20200101000000Z 20210101000000Z
make not-yet-valid here 21100101000000Z 21200101000000Z
make wrong-host elsewhere 20200101000000Z 21200101000000Z
openssl req -x509 "${key[@]}" -subj "/CN=Test server" -addext subjectAltName=DNS:localhost \
  -days 36500 -keyout self-signed.pem -out self-signed.crt
cat self-signed.crt >> self-signed.pem
