#!/usr/bin/env bash
# Installs the Debian 12 packages needed to build, run and test the game.
# Idempotent: does nothing (and says nothing) when everything is present.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config git
  libsdl2-dev libsdl2-mixer-dev libsdl2-ttf-dev libsdl2-image-dev
  libfluidsynth-dev fluid-soundfont-gm timgm6mb-soundfont
  libcairo2-dev fonts-dejavu-core
  flite flite1-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "install-deps: installing ${missing[*]}" >&2
sudo=""
if [[ $(id -u) -ne 0 ]]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
