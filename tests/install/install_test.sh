#!/usr/bin/env bash
# Installs into a folder of its own, moves it, and uses nothing but what lies there: the headers, the command with the
# backend of the project, with one that is built from the headers, and with none.
set -euo pipefail
cmake=$1 build=$2 c_compiler=$3 compiler=$4 ffmpeg=$5
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
  echo "$1" >&2
  exit 1
}

DESTDIR="$work/stage" "$cmake" --install "$build" --prefix /somewhere > install.log
mv stage/somewhere installed
mfilter=$work/installed/bin/mfilter
library=$(find installed -name libmfilter.so)
backend=$(dirname "$library")/libvantraplugin.so
for file in "$backend" installed/include/mfilter/mfilter.h installed/share/doc/mfilter/docs/backend.md; do
  [ -f "$file" ] || fail "$file is not installed"
done

echo '#include <mfilter/mfilter.h>' > header.c
"$c_compiler" -std=c99 -Wall -Wextra -pedantic -Werror -fsyntax-only -Iinstalled/include header.c

"$ffmpeg" -v error -nostdin -f lavfi -i color=c=0xff0000:s=32x32:r=25,format=gbrp -frames:v 25 -c:v ffv1 -pix_fmt bgr0 movie.mkv
cat > page.xml <<'XML'
<page>
  <content-box x="0" y="0" width="160" height="90"/>
  <animation type-name="movie-image">
    <center x="16" y="16"/>
    <size width="32" height="32"/>
    <movie type="movie-file" duration="1"><filename path="" name="movie.mkv"/></movie>
  </animation>
</page>
XML

# The pixels in the middle of the movie in the first three frames, as blue, green, red, alpha.
pixels() {
  "$mfilter" render page.xml --size 160x90 --frames 0-2 -o - > frames
  for frame in 0 1 2; do
    od -An -tx1 -j $((frame * 160 * 90 * 4 + (16 * 160 + 16) * 4)) -N 4 frames | tr -d ' \n'
    echo -n ' '
  done
}

found=$(pixels)
[ "$found" = "0000ffff 0000ffff 0000ffff " ] || fail "the movie shows $found"

rm "$backend"
if "$mfilter" render page.xml --size 160x90 -o page.png 2> errors; then fail "it plays without a backend"; fi
grep -q "libvantraplugin.so.*--no-movies" errors || fail "without a backend it says $(cat errors)"
[ "$(wc -l < errors)" = 1 ] || fail "it says more than one line"
"$mfilter" render page.xml --size 160x90 --no-movies -o page.png

"$compiler" -std=c++20 -shared -fPIC -Wall -Wextra -Werror -Wl,--no-undefined -Iinstalled/include/mfilter \
  "$here/TinyBackend.cpp" -o "$backend"
found=$(pixels)
[ "$found" = "101010ff 202020ff 303030ff " ] || fail "the tiny backend shows $found"
