#!/usr/bin/env bash
# test_names.sh BUILD
# No test's name holds bytes or an address of a parameter: it would be another one in every build.
set -euo pipefail
names=$(find "$1/tests" -name '*_tests.cmake' -exec sed -n 's/^add_test(\[=*\[\(.*\)\]=*\]  .*/\1/p' {} + |
    sed 's/\]=*\].*//' | sort -u)
[ "$(wc -l <<<"$names")" -gt 100 ] || { echo "the names of the tests are not found"; exit 1; }
! grep -E 'GetParam|-byte object|0x[0-9a-f]{6}' <<<"$names" || exit 1
echo "$(wc -l <<<"$names") names"
