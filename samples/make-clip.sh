#!/usr/bin/env bash
# Makes the clip that the sample menu lies on: lights over a slow evening sky, from FFmpeg's own
# test sources, four seconds.
# Usage: samples/make-clip.sh CLIP.mp4
set -euo pipefail

clip=${1:?usage: $0 CLIP.mp4}
mkdir -p "$(dirname "$clip")"
ffmpeg -nostdin -v error -y \
  -f lavfi -i "gradients=size=1280x720:rate=25:seed=7:speed=0.012:n=4:x0=200:y0=0:x1=900:y1=720:c0=0x0a1a33:c1=0x135068:c2=0x2f7f86:c3=0xe0a060" \
  -f lavfi -i "life=size=128x72:rate=25:mold=20:ratio=0.06:seed=3:death_color=#305060:life_color=#ffffff" \
  -filter_complex "[0]format=gbrp,gblur=sigma=60[sky];
    [1]scale=1280:720:flags=bicubic,format=gbrp,gblur=sigma=12[lights];
    [sky][lights]blend=all_mode=screen:all_opacity=0.55,vignette=angle=0.5,format=yuv420p" \
  -t 4 -c:v libx264 -preset veryfast -crf 20 -colorspace bt709 -color_primaries bt709 -color_trc bt709 \
  -movflags +faststart -f mp4 "$clip.part"
mv "$clip.part" "$clip"
