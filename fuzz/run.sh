#!/bin/sh
# Fuzzes the readers of outside input with libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer, each target for a fixed number of inputs from a
# few well-formed seeds:
#   bmp       the bitmap reader
#   script    the script parser (parsing only: no line is run)
#   vsys      the VSys/maindata.inf and VSys/hs.inf readers
#   settings  the settings store (settings.ini)
#   replay    the reader of kept games (replays/*.replay), and the script
#             parser over the same bytes
#   fuzz/run.sh [RUNS [TARGET...]]   (default 200000, every target; needs clang++)
# Builds into build-fuzz/ beside the sources; a crash leaves its input there
# as build-fuzz/TARGET-crash-*, and each target's log is build-fuzz/TARGET.log.
set -eu
cd "$(dirname "$0")/.."
runs=${1:-200000}
[ $# -gt 0 ] && shift
targets=${*:-bmp script vsys settings replay}
out=build-fuzz
flags="-std=c++20 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined -I."

build() {  # NAME SOURCES...
  name=$1
  shift
  # shellcheck disable=SC2086
  clang++ $flags "$@" -o "$out/${name}_fuzz"
}

seed_bmp() {
  clang++ -std=c++20 -O1 -I. fuzz/seed_bitmaps.cpp platform/bmp_file.cpp -o "$out/seed_bitmaps"
  "$out/seed_bitmaps" "$1"
}

seed_script() {
  cp tests/golden/*.vs "$1/"
  printf '0 file put VSys/hs.inf seed.inf\n0 file remove settings.ini\n@menu +3p set HighScores[2][1][0] "ann"\n+2 field 20 #############\n@play dump d.json\n' \
    >"$1/commands.vs"
}

seed_vsys() {
  printf '1\r\n2\r\n5\r\n3.5\r\n1\r\n5\r\n1\r\n1\r\n0\r\n12\r\n' >"$1/maindata.inf"
  i=0
  : >"$1/hs.inf"
  while [ $i -lt 35 ]; do
    printf '"Name %d"\r\n%d\r\n%d\r\n%d\r\n' $i $((100000 - i * 997)) $((i * 3)) $((i % 21)) >>"$1/hs.inf"
    i=$((i + 1))
  done
}

seed_settings() {
  printf '\357\273\277; the player'"'"'s settings\r\n[Settings]\r\nMusicVolume = "-1.25e2"\r\n[Other]\r\nx=1\r\n' \
    >"$1/settings.ini"
}

seed_replay() {
  {
    printf '# vorrel replay\n# version 1.0\n# data 98c2469ecb61fdf1\n# table 0 1\n# name R%%20D\n'
    printf '# score 5000\n# lines 3\n# level 2\n# began 2026-11-25%%2007:32:55\n# order 17955919\n'
    printf '# game 0 1 2 0 0\n# random 11977662631663472002\n# clock 972000\n# pad 1\n'
    printf '#= Score 5000\n#= Debris 0x1.8p+1 -0x1p-3 0 %%\n#= EntryName ROAD\n0 joy plug\n@begin mark\n'
    printf '+0 set Score 5000\n+3 key down Left\n+2p joy axis x -1000\n+1 quit\n'
  } >"$1/kept.replay"
}

mkdir -p "$out"
for target in $targets; do
  case $target in
    bmp) build bmp fuzz/bmp_fuzz.cpp platform/bmp_file.cpp ;;
    script) build script fuzz/script_fuzz.cpp automation/script.cpp core/key_names.cpp core/hooks.cpp ;;
    vsys) build vsys fuzz/vsys_fuzz.cpp frontend/vsys_files.cpp frontend/front_state.cpp core/settings.cpp \
        core/table.cpp core/variables.cpp core/json_writer.cpp core/hooks.cpp platform/paths.cpp platform/whole_file.cpp \
        display/surfaces.cpp platform/bmp_file.cpp ;;
    settings) build settings fuzz/settings_fuzz.cpp platform/settings_store.cpp platform/paths.cpp core/hooks.cpp ;;
    replay) build replay fuzz/replay_fuzz.cpp automation/replays.cpp automation/script.cpp core/key_names.cpp \
        core/hooks.cpp core/variables.cpp core/json_writer.cpp core/table.cpp platform/paths.cpp platform/whole_file.cpp ;;
    *) echo "run.sh: no fuzz target $target (bmp, script, vsys, settings, replay)" >&2; exit 2 ;;
  esac
  corpus="$out/corpus-$target"
  mkdir -p "$corpus"
  "seed_$target" "$corpus"
  echo "fuzzing $target for $runs inputs (log: $out/$target.log)"
  # -timeout: an input that takes seconds is a hang, reported like a crash.
  "$out/${target}_fuzz" -runs="$runs" -seed=1 -max_len=8192 -timeout=10 -artifact_prefix="$out/$target-" \
    "$corpus" >"$out/$target.log" 2>&1 || { tail -n 40 "$out/$target.log"; exit 1; }
  tail -n 1 "$out/$target.log"
done
