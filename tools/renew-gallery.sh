#!/usr/bin/env bash
# Draws the pictures of docs/gallery.md and README.md anew, with the fonts that the tests have.
set -euo pipefail
cd "$(dirname "$0")/.."
export FONTCONFIG_FILE=$PWD/tests/fonts.conf

cmake --preset release > /dev/null
cmake --build --preset release --target mfilter_command vantraplugin
mfilter=build/release/bin/mfilter

python3 tools/gallery.py "$mfilter" docs/images/gallery
if command -v optipng > /dev/null; then
  optipng -quiet docs/images/gallery/*.png
fi

# Whole menus are photographs: JPEG.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
samples/make-clip.sh "$work/clip.mp4"
for menu in animated-menu main-menu chapter-menu; do
  "$mfilter" render "samples/$menu.xml" --input "$work/clip.mp4" --frames 40-40 -o "$work/$menu.png"
  ffmpeg -nostdin -v error -y -i "$work/$menu.png" -pix_fmt yuvj444p -q:v 3 "docs/images/$menu.jpg"
done
disc=$PWD/samples/disc pictures=$PWD/docs/images mfilter=$PWD/$mfilter
"$disc/make-movies.sh" out/movies
(cd out/movies && "$mfilter" render "$disc/menu.xml" --themes "$disc" --frames 67-67 -o "$work/disc-menu.png")
ffmpeg -nostdin -v error -y -i "$work/disc-menu.png" -pix_fmt yuvj444p -q:v 3 "$pictures/disc-menu.jpg"
git status --short docs/images
