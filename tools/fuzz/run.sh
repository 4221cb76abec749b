#!/bin/sh
# Fuzzes the bitmap reader with libFuzzer and AddressSanitizer for a fixed
# number of inputs, starting from a few well-formed files.
#   tools/fuzz/run.sh [RUNS]      (default 200000; needs clang++)
# Builds into build-fuzz/ beside the sources; a crash leaves its input there.
set -eu
cd "$(dirname "$0")/../.."
runs=${1:-200000}
out=build-fuzz
mkdir -p "$out/corpus"
clang++ -std=c++20 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined -I. \
  tools/fuzz/bmp_fuzz.cpp platform/bmp_file.cpp -o "$out/bmp_fuzz"
clang++ -std=c++20 -O1 -I. tools/fuzz/seed_bitmaps.cpp platform/bmp_file.cpp -o "$out/seed_bitmaps"
"$out/seed_bitmaps" "$out/corpus"
"$out/bmp_fuzz" -runs="$runs" -seed=1 -max_len=4096 -artifact_prefix="$out/" "$out/corpus"
