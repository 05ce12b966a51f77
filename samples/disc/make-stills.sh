#!/usr/bin/env bash
# Makes the still pictures of the films in sources/pictures/ anew. The page has to be composed after that.
# Usage: samples/disc/make-stills.sh FOLDER, the one of the films
set -euo pipefail

folder=${1:?usage: $0 FOLDER}
pictures=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/../sources/pictures
for still in air:1.5 water:3 earth:2 fire:5; do
  ffmpeg -nostdin -v error -y -ss "${still#*:}" -i "$folder/${still%:*}.mp4" -frames:v 1 -vf scale=384:216:flags=area \
    -q:v 4 "$pictures/film-${still%:*}.jpg"
done
