#!/usr/bin/env bash
# Makes the clip that the sample menus lie on: six seconds of a film, a slow pan over two photographs, which begins anew
# without a jump. The film stands where the menus have their windows, over itself, large and out of focus.
# Usage: samples/make-clip.sh CLIP.mp4
set -euo pipefail

clip=${1:?usage: $0 CLIP.mp4}
pictures=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/sources/pictures
mkdir -p "$(dirname "$clip")"

# Enlarged first: the pan moves by whole pixels of what it reads.
pan() { echo "scale=2560:1440:flags=bicubic,zoompan=z='$1':x='$2':y='$3':d=100:s=416x234:fps=25,format=gbrp"; }

# The coast from 0 to 4 seconds, the lighthouse from 3 to 7, the coast again from 6 on. At 1 and at 7 it looks the same.
ffmpeg -nostdin -v error -y -i "$pictures/coast.jpg" -i "$pictures/lighthouse.jpg" -filter_complex "
    [0]$(pan 1.30 '500-2.2*on' '200+0.5*on'),split[coast][again];
    [1]$(pan 1.35 '520+1.3*on' '330-0.8*on')[light];
    [coast][light]xfade=transition=fade:duration=1:offset=3[two];
    [two][again]xfade=transition=fade:duration=1:offset=6,trim=start=1:end=7,setpts=PTS-STARTPTS,
    noise=alls=4:allf=t,split[film][wide];
    [wide]scale=320:180,gblur=sigma=7,scale=1280:720:flags=bicubic[wide];
    [wide][film]overlay=802:413:format=gbrp,format=yuv420p" \
  -t 6 -c:v libx264 -preset veryfast -crf 20 -colorspace bt709 -color_primaries bt709 -color_trc bt709 \
  -movflags +faststart -f mp4 "$clip.part"
mv "$clip.part" "$clip"
