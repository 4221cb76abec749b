#!/usr/bin/env bash
# How well the spoken samples can be made out: an offline recogniser transcribes
# every voice file of a generated data folder and compares it with two
# yardsticks speaking the same words: plain rms through the generator (the take
# the line would get with no other voice, speed or pitch: same loudness and
# trimming) and plain flite rms as flite itself speaks it. A take counts as
# understood when the transcript holds every real word of its phrase; made-up
# names (any word the recogniser's dictionary lacks, such as "Vor-ell") are not
# scored, and a phrase of names only is left out. A line marked "worse than
# plain rms" should lose its variation.
#
# The takes are cut right at the first sound; the recogniser needs a moment of
# quiet to settle before speech, so every take is heard with 0.3 s of silence
# either side, as a player hears it between other sounds. --raw hears the files
# as they are. No dither when resampling for it: the same file is heard the
# same way every time.
#
# Usage: tools/voice-check.sh [--raw] [BUILD-DIR]   (default: build; uses its
#        data/ folder and its assetgen)
# Needs: pocketsphinx pocketsphinx-en-us sox flite (Debian packages), for
# measuring only: neither the build nor the tests use it.
set -u
here=$(cd "$(dirname "$0")/.." && pwd)
pad=(pad 0.3 0.3)
[[ ${1:-} == --raw ]] && { pad=(); shift; }
build=$(cd "${1:-$here/build}" && pwd) || exit 2
data=$build/data
manifest=$here/assets/files/sounds.tsv
phrases=$here/assets/sounds/voices.tsv
dict=/usr/share/pocketsphinx/model/en-us/cmudict-en-us.dict
for tool in pocketsphinx_continuous sox flite; do
  command -v $tool >/dev/null || { echo "missing $tool (apt-get install pocketsphinx pocketsphinx-en-us sox flite)" >&2; exit 2; }
done
[[ -f $dict ]] || { echo "missing $dict (apt-get install pocketsphinx-en-us)" >&2; exit 2; }
[[ -d $data/sounds ]] || { echo "no $data/sounds: generate the data folder first" >&2; exit 2; }
[[ -x $build/assetgen ]] || { echo "no $build/assetgen: build the data generator first" >&2; exit 2; }

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

# The list: path, tab, the phrase's real words, tab, phrase id, voice, stretch,
# pitch and the text as written.
awk -F'\t' '$5 == "voice" { print $7 "\t" $1 }' "$manifest" | sort >"$tmp/files"
awk '!/^#/ && NF >= 5 { id = $1; v = $2; st = $3; pi = $4; $1 = $2 = $3 = $4 = ""; sub(/^ +/, "");
       print id "\t" v " " st " " pi "\t" $0 }' "$phrases" | sort >"$tmp/phrases"
join -t$'\t' "$tmp/files" "$tmp/phrases" >"$tmp/joined"
# The yardstick takes: every phrase in plain rms, made by the generator.
mkdir -p "$tmp/assets/files" "$tmp/assets/sounds"
cp "$manifest" "$tmp/assets/files/"
awk '/^#/ || NF < 5 { print; next } { $2 = "rms"; $3 = "1.00"; $4 = "-"; print }' "$phrases" >"$tmp/assets/sounds/voices.tsv"
"$build/assetgen" --assets "$tmp/assets" --out "$tmp/plain" --only voice >/dev/null || exit 1

cut -d' ' -f1 "$dict" | sed 's/([0-9]*)$//' | sort -u >"$tmp/words"

real_words() {  # text -> its words the dictionary knows, lower case
  local w out=""
  for w in $(echo "$1" | tr 'A-Z' 'a-z' | tr -cd "a-z'\\- "); do
    w=${w#\'}; w=${w%\'}
    [[ -n $w ]] && grep -qxF -- "$w" "$tmp/words" && out+="$w "
  done
  echo "${out% }"
}
hear() {
  sox -D "$1" -r 16000 -c 1 -b 16 "$tmp/16k.wav" "${pad[@]}" 2>/dev/null &&
    pocketsphinx_continuous -infile "$tmp/16k.wav" -logfn /dev/null 2>/dev/null | tr 'A-Z\n' 'a-z ' | tr -cd "a-z' "
}
heard_all() {  # words transcript -> 0 when every word is there
  local w
  for w in $1; do [[ " $2 " == *" $w "* ]] || return 1; done
}

n=0 game=0 plain=0 flt=0 report=""
while IFS=$'\t' read -r id path how text; do
  words=$(real_words "$text")
  [[ -z $words ]] && continue
  n=$((n + 1))
  g=$(hear "$data/$path")
  p=$(hear "$tmp/plain/$path")
  flite -voice rms -t "$text" -o "$tmp/flite.wav"
  f=$(hear "$tmp/flite.wav")
  heard_all "$words" "$g" && gok=1 || gok=0
  heard_all "$words" "$p" && pok=1 || pok=0
  heard_all "$words" "$f" && fok=1 || fok=0
  game=$((game + gok)) plain=$((plain + pok)) flt=$((flt + fok))
  if ((!gok || !pok || !fok)); then
    line="$id ($how) '$words': heard '${g% }'"
    ((gok)) || line+=" NOT UNDERSTOOD"
    line+="; plain rms '${p% }'$( ((pok)) || echo ' (no)' ); flite '${f% }'$( ((fok)) || echo ' (no)' )"
    ((pok && !gok)) && line+="  <- worse than plain rms"
    report+="$line"$'\n'
  fi
done <"$tmp/joined"

printf '%s' "$report"
echo "voices understood: $game/$n; as plain rms through the generator: $plain/$n; as flite speaks them: $flt/$n"
