#!/usr/bin/env bash
# check_password_cost.sh GOODS_COMPANY FILE: the passwords in a company that the shipped program makes are hashes of the full cost,
# 64 MB and two passes, of every user.
set -euo pipefail
rm -f "$2"
"$1" create "$2" --goods 1 --movements 1 --quiet
hashes=$(grep -aoF '$argon2id$v=19$m=65536,t=2,p=1$' "$2" | wc -l)
((hashes >= 3)) || { echo "$hashes hashes of the full cost"; exit 1; }
! grep -aoE '\$argon2id\$v=19\$m=[0-9]+,t=[0-9]+' "$2" | grep -vqF 'm=65536,t=2' || { echo "a hash of another cost"; exit 1; }
