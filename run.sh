#!/usr/bin/env bash
# Installs what is missing, builds, and renders.
#   ./run.sh                    the animated menu of the samples over a clip, to out/menu.png and out/menu.mp4
#   ./run.sh PAGE.xml [...]     whatever `mfilter render` takes; ./run.sh --help tells
# What it does is said on standard error, so that "-o -" can be piped.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

prepare() {
  cd "$root"
  tools/install-dependencies.sh
  echo "Building"
  cmake --preset release > /dev/null
  cmake --build --preset release --target mfilter_command
}
(prepare) >&2

mfilter=$root/build/release/bin/mfilter
if [ $# -gt 0 ]; then
  exec "$mfilter" render "$@"
fi

out=$root/out
page=$root/samples/animated-menu.xml
clip=$out/clip.mp4
mkdir -p "$out"
if [ ! -e "$clip" ] || [ "$root/samples/make-clip.sh" -nt "$clip" ]; then
  echo "Making the clip" >&2
  "$root/samples/make-clip.sh" "$clip"
fi
echo "Rendering the animated menu over it" >&2
"$mfilter" render "$page" --input "$clip" --frames 50-50 -o "$out/menu.png"
"$mfilter" render "$page" --input "$clip" -o "$out/menu.mp4"
echo "$out/menu.png"
echo "$out/menu.mp4"
