#!/usr/bin/env bash
# Makes the movies that the menu of a disc shows: four films, drawn by the ffmpeg command alone, and what moves in the
# sky behind them. Those that are there already stay.
# Usage: samples/disc/make-movies.sh FOLDER
set -euo pipefail

folder=${1:?usage: $0 FOLDER}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
sky=$here/../sources/pictures/fjord-sky.png
mkdir -p "$folder"

# movie NAME.mp4 GRAPH: what comes out of the graph as [out].
movie() {
  encode "$1" "$2" -c:v libx264 -preset veryfast -crf 19 -pix_fmt yuv420p -bf 2 -g 50 \
    -colorspace bt709 -color_primaries bt709 -color_trc bt709 -movflags +faststart
}

# light NAME.mov GRAPH: with transparent parts.
light() { encode "$1" "$2" -c:v prores_ks -profile:v 4444 -qscale:v 12 -alpha_bits 8 -pix_fmt yuva444p10le; }

encode() {
  local file=$folder/$1 graph=$2
  shift 2
  if [ -e "$file" ] && [ "$file" -nt "${BASH_SOURCE[0]}" ]; then return; fi
  echo "Making $(basename "$file")"
  local part=$folder/part-$(basename "$file")
  ffmpeg -nostdin -v error -y -filter_complex_threads 1 -i "$sky" -filter_complex "$graph" -map '[out]' -an -r 25 \
    -fflags +bitexact -flags:v +bitexact "$@" "$part"
  mv "$part" "$file"
}

# grain SEED WxH WIDTHxHEIGHT: a picture of soft spots, so many over its width and height.
grain() { echo "color=gray:s=$2:r=25:d=0.04,format=gray,noise=c0s=100:c0f=u:all_seed=$1,format=gray,scale=$3:flags=bicubic,format=gray,loop=-1:1"; }

# A view of 640 by 360 that moves over a picture. Whole pixels a frame, which are 25 a second, look smooth.
pan() { echo "crop=640:360:'$1':'$2'"; }

clouds() { # SEED TOP HORIZON LIGHT SHADE
  echo "$(grain "$1" 9x9 1200x600),$(pan 't*25' '100')[a$1];
        $(grain "$1+20" 20x19 1200x600),$(pan '40+t*25' '60+t*5')[b$1];
        $(grain "$1+40" 46x42 1200x600),$(pan '80+t*50' '80')[c$1];
        $(grain "$1+60" 105x90 1200x600),$(pan '20+t*50' '30+t*5')[d$1];
        [a$1][b$1][c$1][d$1]mix=inputs=4:weights='10 6 3 1.6',
        curves=all='0/0 0.47/0 0.58/0.65 0.70/0.95 1/1',split[cover$1][thick$1];
        color=$4:s=640x360:r=25,format=gbrp[light$1];
        color=$5:s=640x360:r=25,format=gbrp[shade$1];
        [thick$1]curves=all='0/0 0.60/0 1/0.8',format=gbrp[deep$1];
        [light$1][shade$1][deep$1]maskedmerge[cloud$1];
        gradients=s=640x360:r=25:c0=$2:c1=$3:x0=320:y0=0:x1=321:y1=330:n=2:speed=0.00001:seed=1,format=gbrp[sky$1];
        [cover$1]format=gbrp[mask$1];
        [sky$1][cloud$1][mask$1]maskedmerge,trim=duration=8,setpts=PTS-STARTPTS[part$1]"
}

movie air.mp4 "
  $(clouds 11 '#2c3e78' '#f2a48a' '#ffd9c0' '#9a7fa6');
  $(clouds 12 '#3b7cc4' '#bfe0f2' '#ffffff' '#a8c0dc');
  $(clouds 13 '#5f8496' '#dbe6dc' '#f6faf4' '#9db3b6');
  $(clouds 14 '#3a2a66' '#ff8a4c' '#ffc07a' '#7a4a78');
  $(clouds 15 '#070d24' '#22406e' '#8fa8d4' '#26355c');
  [part11][part13]xfade=duration=1:offset=7[x1];
  [x1][part12]xfade=duration=1:offset=14[x2];
  [x2][part14]xfade=duration=1:offset=21[x3];
  [x3][part15]xfade=duration=1:offset=28,trim=duration=36[out]"

# Where two fields of spots are equally bright runs a line of light.
caustics() { # SEED SPOTS X Y X Y
  echo "$(grain "$1" "$2" 1200x600),$(pan "$3" "$4")[m$1];
        $(grain "$1+50" "$2" 1200x600),$(pan "$5" "$6")[n$1];
        [m$1][n$1]blend=all_mode=difference,negate,curves=all='0/0 0.80/0.05 0.93/0.35 1/1'"
}
movie water.mp4 "
  $(caustics 21 22x12 '100+t*25' '60+t*10' '400-t*25' '140-t*10')[near];
  $(caustics 22 42x23 '400-t*25' '170-t*10' '60+t*25' '40+t*10')[far];
  [near][far]blend=all_mode=screen:all_opacity=0.7,format=gbrp,
  curves=r='0/0.01 0.35/0.03 0.75/0.42 1/1':g='0/0.10 0.35/0.36 0.75/0.86 1/1':b='0/0.22 0.35/0.52 0.75/0.92 1/1',
  trim=duration=8[out]"

movie earth.mp4 "
  mandelbrot=s=640x360:r=25:start_scale=0.013:end_scale=0.0042:end_pts=200:maxiter=500:inner=black:outer=normalized_iteration_count,
  format=gray,gblur=sigma=0.5,format=gbrp,
  curves=r='0/0.02 0.25/0.16 0.5/0.62 0.75/0.95 1/1':g='0/0.05 0.25/0.24 0.5/0.52 0.75/0.84 1/0.98':b='0/0.03 0.25/0.12 0.5/0.16 0.75/0.48 1/0.86',
  trim=duration=8[out]"

# Spots that rise, and are hot in the middle below.
movie fire.mp4 "
  $(grain 41 14x60 1200x3600),$(pan '200+20*sin(t)' '3200-t*200')[a];
  $(grain 42 34x110 1200x3600),$(pan '300-16*sin(t*1.3)' '3200-t*225')[b];
  $(grain 43 80x230 1200x3600),$(pan '100' '3200-t*250')[c];
  [a][b][c]mix=inputs=3:weights='5 4 2',curves=all='0/0 0.36/0 0.64/1 1/1'[flames];
  color=black:s=32x18:r=25:d=0.04,format=gray,
  geq=lum='255*clip(1.18-1.05*pow((17-Y)/17,0.85)-0.55*pow(abs(X-15.5)/15.5,2.5),0,1)',
  scale=640:360:flags=bicubic,loop=-1:1,split[heat][cold];
  [cold]negate,curves=all='0/0 1/0.55'[loss];
  [flames][heat]blend=all_mode=multiply[hot];
  [hot][loss]blend=all_mode=subtract,curves=all='0/0 0.75/1 1/1',format=gbrp,
  curves=r='0/0.03 0.2/0.35 0.45/0.90 0.75/1 1/1':g='0/0.01 0.2/0.05 0.45/0.34 0.75/0.80 1/0.98':b='0/0.03 0.2/0.04 0.45/0.05 0.75/0.28 1/0.85',
  trim=duration=8[out]"

# Northern lights, which come round after twelve seconds: two curtains, and their rays, drawn coarsely; green below and
# violet above. They shine where the picture of the sky is bright, below the horizon upside down.
t='(2*PI*T/12)'
curtain() { # HEIGHT OF THE LOWER EDGE, REACH, RAYS
  echo "(st(0,($1)*H-Y)*0+if(gt(ld(0),0),exp(-ld(0)/(($2)*H)),exp(ld(0)/(0.014*H)))*($3))"
}
one="0.70+0.10*sin(X/W*5.2+$t)+0.05*sin(X/W*11-2*$t+1)+0.02*sin(X/W*27+3*$t)"
two="0.50+0.12*sin(X/W*4.1-$t+2)+0.04*sin(X/W*13+2*$t)"
rays="(0.55+0.25*sin(X/W*61+4*sin(X/W*7+$t)-2*$t)+0.20*sin(X/W*113+3*sin(X/W*9-$t)+3*$t))"
drift="(0.60+0.40*sin(X/W*6.5-$t+0.8))"
light aurora.mov "
  color=black:s=240x75:r=25:d=12,format=gray,
  geq=lum='clip(225*($(curtain "$one" 0.26 "$rays*$drift")+0.7*$(curtain "$two" 0.20 "$rays*(1.3-$drift)")),0,255)',
  scale=640:196:flags=bicubic,split[above][flip];
  [flip]vflip,scale=640:164,gblur=sigma=2:sigmaV=5[below];
  [above][below]vstack,format=gray[lights];
  [0]scale=640:360,format=gray,loop=-1:1,fps=25,trim=duration=12,setpts=PTS-STARTPTS[free];
  [lights][free]blend=all_mode=multiply[alpha];
  gradients=s=640x196:r=25:d=12:nb_colors=4:c0=#7a4ce0:c1=#3f9fd0:c2=#46f0b0:c3=#9effa0:x0=320:y0=7:x1=321:y1=153:speed=0.00001:seed=1,
  format=gbrp,split[colours][mirrored];
  [mirrored]vflip,scale=640:164[under];
  [colours][under]vstack[colour];
  [colour][alpha]alphamerge,format=yuva444p10le[out]"

# A shooting star of one second, and the flicker of the fire on the shore.
light meteor.mov "
  color=black:s=480x240:r=25:d=1,format=gray,
  geq=lum='st(0,(X-460+T*430)*0.894-(Y-20-T*215)*0.447)*0+st(1,(X-460+T*430)*0.447+(Y-20-T*215)*0.894)*0+
    255*sin(PI*clip(T,0,1))*exp(-pow(ld(1)/1.1,2))*if(gt(ld(0),0),exp(-ld(0)/70),exp(-pow(ld(0)/2,2)))'[alpha];
  color=#e8f4ff:s=480x240:r=25:d=1,format=gbrp[colour];
  [colour][alpha]alphamerge,format=yuva444p10le[out]"
light flicker.mov "
  color=black:s=160x160:r=25:d=6,format=gray,
  geq=lum='255*(0.42+0.16*sin(2*PI*T*3)+0.12*sin(2*PI*T*5+1)+0.10*sin(2*PI*T*17/6+2))*exp(-hypot(X-80,(Y-80)*1.15)/17)'[alpha];
  color=#ffa64d:s=160x160:r=25:d=6,format=gbrp[colour];
  [colour][alpha]alphamerge,format=yuva444p10le[out]"
