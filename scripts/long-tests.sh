#!/usr/bin/env bash
# What the tests sample, in full: every system call, every refusal, every name; then all tests under
# the thread sanitizer, and the fuzzers. Prints the rows of docs/reliability.md. ./test --long runs it
# after it has built what the first part needs.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
# shellcheck source=setup.sh
. scripts/setup.sh

failed=0
for folder in "${TMPDIR:-/tmp}" /dev/shm; do
  [[ -w $folder ]] || continue
  echo "== in $folder ($(stat -f -c %T "$folder"))"
  for check in kill errors space together names network; do
    TMPDIR=$folder build/dev/tests/orvex-reliability "$check" || failed=1
  done
done

echo "== threads"
build tsan >/dev/null
ctest --preset tsan -j "$(nproc)" >build/tsan/tests.log || failed=1
reports=$(grep -c 'WARNING: ThreadSanitizer' build/tsan/Testing/Temporary/LastTest.log || true)
printf '%-42s %s reports, %s\n' "thread sanitizer" "$reports" \
  "$(sed -n 's/.*, \([0-9]*\) tests failed out of \([0-9]*\)/\2 runs, \1 failures/p' build/tsan/tests.log)"

echo "== parsers"
scripts/fuzz.sh || failed=1
exit "$failed"
