#!/usr/bin/env bash
# Installs what is missing, builds, and renders.
#   ./run.sh                    the menu of a disc, whose buttons play their films, to out/menu.png and out/menu.mp4
#   ./run.sh PAGE.xml [...]     whatever `mfilter render` takes; ./run.sh --help tells
# What it does is said on standard error, so that "-o -" can be piped.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

prepare() {
  cd "$root"
  tools/install-dependencies.sh
  echo "Building"
  cmake --preset release > /dev/null
  cmake --build --preset release --target mfilter_command vantraplugin
}
(prepare) >&2

mfilter=$root/build/release/bin/mfilter
if [ $# -gt 0 ]; then
  exec "$mfilter" render "$@"
fi

out=$root/out
disc=$root/samples/disc
# The page names its movies without a folder: it is rendered where they are.
"$disc/make-movies.sh" "$out/movies" >&2
cd "$out/movies"
echo "Rendering the menu of the disc" >&2
"$mfilter" render "$disc/menu.xml" --themes "$disc" --frames 67-67 -o "$out/menu.png"
"$mfilter" render "$disc/menu.xml" --themes "$disc" --duration 6 -o "$out/menu.mp4"
echo "$out/menu.png"
echo "$out/menu.mp4"
