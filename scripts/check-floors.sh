#!/usr/bin/env bash
# Every file includes only headers of its own floor or of lower ones; the
# floors, lowest first, are listed below. Prints each include that reaches up
# as FILE:LINE and fails when there is one.
# Usage: check-floors.sh [SOURCE_DIR]
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

floors=(core platform display "input audio" "game bonus fuse" frontend automation frame)
declare -A level
for i in "${!floors[@]}"; do
  for d in ${floors[$i]}; do level[$d]=$i; done
done
# The data generator may use the ground floor and the platform's file formats.
level[tools]=${level[platform]}

bad=0
for top in "${!level[@]}"; do
  [[ -d $top ]] || continue
  lim=${level[$top]}
  while IFS= read -r hit; do
    file=${hit%%:*}; rest=${hit#*:}; line=${rest%%:*}
    dir=$(sed -E 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"([a-z_]+)\/.*/\1/' <<<"${rest#*:}")
    [[ -n ${level[$dir]:-} ]] || continue
    if (( ${level[$dir]} > lim )); then
      echo "$file:$line: $top/ includes $dir/, a higher floor"
      bad=$((bad + 1))
    fi
  done < <(grep -rnE --include='*.cpp' --include='*.h' '^[[:space:]]*#[[:space:]]*include[[:space:]]*"[a-z_]+/' "$top" || true)
done
for d in core automation; do
  [[ -d $d ]] || { echo "no folder $d/"; bad=$((bad + 1)); }
done
if (( bad > 0 )); then
  echo "check-floors: $bad include(s) reach up a floor" >&2
  exit 1
fi
