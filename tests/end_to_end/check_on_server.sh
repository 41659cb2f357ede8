#!/usr/bin/env bash
# check_on_server.sh GOODS-COMPANY WALK: the walk through all exports on a company on the server that GOODS_SERVER names.
# The database is kept for the next run of the same program.
set -euo pipefail
[[ -n "${GOODS_SERVER:-}" ]] || { echo "GOODS_SERVER is not set"; exit 77; }
company=$(mktemp -d)
trap 'rm -rf "$company"' EXIT
database=goods_walk_$(cksum <"$1" | cut -d' ' -f1)
# As tests/desktop/app/kit.cpp makes it.
"$1" create "$company/small.goods" --goods 60 --stores 3 --movements 2000
"$1" verify --server "$GOODS_SERVER" --database "$database" >/dev/null 2>&1 ||
  flock "$(dirname "$1")/deploying.lock" "$1" deploy --server "$GOODS_SERVER" --database "$database" --from "$company/small.goods"
GOODS_TEST_COMPANY="server:$GOODS_SERVER;DATABASE=$database" "$2"
