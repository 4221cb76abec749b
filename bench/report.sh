#!/usr/bin/env bash
# One performance report: every figure of bench/ beside its goal, as the
# Markdown table kept in docs/performance.md (progress on stderr, the table
# on stdout). The window figures use the display in DISPLAY, or an Xvfb
# started here when there is none. Run it as it is, not under nice: the
# pacing of a window is measured against whatever else the machine runs.
# Usage: bench/report.sh [BUILD_DIR]   (default: build)
set -euo pipefail
build=${1:-build}
bench="$build/vorrel_bench"
if [[ ! -x $bench ]]; then
  echo "report: no $bench: configure with -DVORREL_BUILD_BENCH=ON and build first" >&2
  exit 2
fi

scratch=$(mktemp -d)
xvfb_pid=""
cleanup() {
  if [[ -n $xvfb_pid ]]; then kill "$xvfb_pid" 2>/dev/null || true; wait "$xvfb_pid" 2>/dev/null || true; fi
  rm -rf "$scratch"
}
trap cleanup EXIT

cpu=$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo 2>/dev/null | head -n 1)
commit=$(git -C "$(dirname "$0")" rev-parse --short HEAD 2>/dev/null || echo unknown)
load=$(cut -d ' ' -f 1-3 /proc/loadavg 2>/dev/null || echo unknown)
echo "Measured $(date -u +%Y-%m-%d) at commit $commit on ${cpu:-an unknown CPU}, $(nproc) cores as the system shows them, load average $load at the start."
echo
echo "| Measure | Figure | Goal | Met |"
echo "|---|---|---|---|"

"$bench" --report=headless

if [[ -z ${DISPLAY:-} ]] && command -v Xvfb >/dev/null 2>&1; then
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$scratch/display" 2>"$scratch/xvfb.log" &
  xvfb_pid=$!
  for _ in $(seq 100); do
    [[ -s $scratch/display ]] && break
    sleep 0.1
  done
  if [[ -s $scratch/display ]]; then
    export DISPLAY=":$(head -n 1 "$scratch/display")"
  else
    echo "report: Xvfb did not start: $(cat "$scratch/xvfb.log")" >&2
  fi
fi
"$bench" --report=window
"$bench" --report=soak
