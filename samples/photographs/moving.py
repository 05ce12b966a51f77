"""What moves in the animated menu: paper lanterns that rise, a sign of neon tubes, a film reel.

Each begins anew without a jump. The video has 25 frames a second; all of them come round in 150 frames or a part of that.
"""

import numpy as np
from PIL import Image, ImageDraw, ImageFont

from kit import blur
from frames import rounded

FONTS = "/usr/share/fonts/truetype/dejavu/"


def turn(x, y, angle):
    return x * np.cos(angle) - y * np.sin(angle), x * np.sin(angle) + y * np.cos(angle)


# Lanterns ------------------------------------------------------------------------------------------------------------

LANTERNS = (420, 300)
SMALLER = 1.5  # the frames, which are soft anyway
LANTERN_FRAMES = 50
COLOURS = 127

# Where a stream of lanterns sets out and arrives, how large they are at both ends, how many are on their way, and where
# in the loop the first one is. After one loop each is where the one before it was.
STREAMS = [
    ((120, 292), (52, 20), (12.5, 6.5), 3, 0.05),
    ((216, 290), (236, 10), (12.0, 5.5), 3, 0.62),
    ((318, 288), (372, 34), (10.5, 5.5), 3, 0.33),
    ((262, 278), (148, 26), (8.0, 4.5), 4, 0.80),
    ((166, 276), (302, 18), (6.5, 4.0), 4, 0.18),
    ((356, 262), (268, 62), (5.0, 3.5), 3, 0.47),
]


GLOW = np.array([255, 146, 50.0]) / 255
REACH = 3.0  # of the glow, in sizes


def lantern(paper, cover, glow, x, y, size, strength, flicker):
    """Adds a lantern to planes of paper, in red, green and blue, of what it covers, and of the glow round it."""
    height, width = cover.shape
    left, right = max(0, int(x - REACH * size)), min(width, int(x + REACH * size) + 2)
    top, bottom = max(0, int(y - REACH * size)), min(height, int(y + REACH * size) + 2)
    if left >= right or top >= bottom:
        return
    part = np.s_[top:bottom, left:right]
    py, px = np.mgrid[part]
    px, py = (px + 0.5 - x) / size, (py + 0.5 - y) / size
    # A barrel, wider above, lit from the flame below.
    edge = 0.62 + 0.20 * np.clip(-py + 0.3, -0.7, 1.0) - 0.30 * np.clip(-py - 0.55, 0, 1) ** 1.4
    shape = (np.clip((edge - np.abs(px)) * size * 0.9 + 0.5, 0, 1) * np.clip((1.05 - np.abs(py)) * size * 0.9 + 0.5, 0, 1)
             * strength)
    round_off = 1 - 0.45 * np.clip(np.abs(px) / np.maximum(edge, 0.2), 0, 1) ** 2
    flame = np.exp(-((py - 0.62) / 0.55) ** 2 - (px / 0.55) ** 2)
    body = (0.55 + 0.35 * np.clip(py, -1, 1) + 0.75 * flame) * round_off * flicker
    colours = np.dstack([np.clip(1.10 * body + 0.30, 0, 1), np.clip(0.66 * body + 0.06, 0, 1), np.clip(0.30 * body ** 1.5, 0, 1)])
    distance = np.hypot(px, (py - 0.1) * 0.9)
    light = 0.46 * np.exp(-(distance / 1.35) ** 2) * flicker * strength
    paper[part] = paper[part] * (1 - shape[..., None]) + colours * shape[..., None]
    cover[part] += shape * (1 - cover[part])
    glow[part] += light * (1 - glow[part])


def lanterns():
    """Frames with alpha."""
    frames = []
    width, height = (int(side / SMALLER) for side in LANTERNS)
    for frame in range(LANTERN_FRAMES):
        paper, cover, glow = np.zeros((height, width, 3)), np.zeros((height, width)), np.zeros((height, width))
        phase = frame / LANTERN_FRAMES
        for index, (start, end, sizes, count, offset) in reversed(list(enumerate(STREAMS))):
            for step in range(count):
                t = (step + (phase + offset) % 1.0) / count
                sway = np.sin(2 * np.pi * (t * 2.0 + 0.17 * index)) * (1 - t * 0.5)
                x = start[0] + (end[0] - start[0]) * t + (9 + 3 * index) * sway
                y = start[1] + (end[1] - start[1]) * t ** 0.94
                size = sizes[0] + (sizes[1] - sizes[0]) * t
                strength = np.clip(t / 0.16, 0, 1) * np.clip((1 - t) / 0.22, 0, 1)
                # In step with the place along the way, so that the loop closes.
                beat = 0.95 + 0.05 * np.sin(2 * np.pi * (t * count * 2 + 0.21 * index))
                lantern(paper, cover, glow, x / SMALLER, y / SMALLER, size / SMALLER, strength, beat)
        light = paper + (glow * (1 - cover))[..., None] * GLOW
        frames.append(np.dstack([light, cover + glow * (1 - cover)]))
    return with_palette(frames)


def nearest(points, palette):
    """The index of the entry of a palette that is next to each point."""
    result = np.empty(len(points), np.uint8)
    weight = (palette ** 2).sum(1)
    for start in range(0, len(points), 20000):
        part = points[start:start + 20000]
        result[start:start + 20000] = np.argmin(weight - 2 * part @ palette.T, axis=1)
    return result


def with_palette(frames):
    """Pictures of premultiplied planes, with one palette with alpha for all of them: few colours pack well."""
    random = np.random.default_rng(5)
    points = np.concatenate([frame.reshape(-1, 4)[frame.reshape(-1, 4)[:, 3] > 0.01] for frame in frames])
    sample = points[random.choice(len(points), 20000, replace=False)]
    palette = sample[random.choice(len(sample), COLOURS, replace=False)]
    for _ in range(12):
        index = nearest(sample, palette)
        count = np.bincount(index, minlength=COLOURS)
        for plane in range(4):
            total = np.bincount(index, sample[:, plane], COLOURS)
            palette[:, plane] = np.where(count > 0, total / np.maximum(count, 1), palette[:, plane])
    palette = np.concatenate([np.zeros((1, 4)), palette[np.argsort(palette[:, 3])]])
    colours = np.clip(palette[:, :3] / np.maximum(palette[:, 3:], 1e-6), 0, 1)
    pictures = []
    for frame in frames:
        picture = Image.fromarray(nearest(frame.reshape(-1, 4), palette).reshape(frame.shape[:2]), "P")
        picture.putpalette(np.uint8(colours * 255 + 0.5).tobytes())
        picture.info["transparency"] = np.uint8(palette[:, 3] * 255 + 0.5).tobytes()
        pictures.append(picture)
    return pictures


# The sign ------------------------------------------------------------------------------------------------------------

SIGN = (240, 88)
SIGN_PANEL = np.array([15, 15, 27.0])
# What is lit, and for how many frames.
SIGN_TIMES = [("on", 46), ("late out", 2), ("on", 2), ("late out", 3), ("late low", 2), ("on", 38), ("show low", 2),
              ("show out", 4), ("show low", 2), ("on", 49)]


def tubes(draw_on):
    """A plane of tubes, from 0 to 1, drawn four times as large."""
    scale = 4
    plane = Image.new("L", (SIGN[0] * scale, SIGN[1] * scale), 0)
    draw_on(ImageDraw.Draw(plane), scale)
    return np.asarray(plane.resize(SIGN, Image.LANCZOS)).astype(float) / 255


def word(text, left, size=28):
    def draw_on(draw, scale):
        font = ImageFont.truetype(FONTS + "DejaVuSans-ExtraLight.ttf", size * scale)
        x = left * scale
        for letter in text:
            draw.text((x, SIGN[1] * scale * 0.5), letter, 255, font, anchor="lm", stroke_width=int(0.55 * scale), stroke_fill=255)
            x += font.getlength(letter) + 3.2 * scale
    return tubes(draw_on)


def ring(draw, scale):
    inset, radius, width = 9 * scale, 14 * scale, int(2.2 * scale)
    draw.rounded_rectangle((inset, inset, SIGN[0] * scale - inset, SIGN[1] * scale - inset), radius, outline=255, width=width)


def glowing(light, tube, tone, power):
    """Adds a tube of a colour: its core nearly white, its glow on the panel."""
    tone = np.array(tone) / 255
    body = np.clip(tube, 0, 1)[..., None]
    cold = tone * 0.22 + 0.05
    hot = tone * 0.55 + 0.45
    glow = (0.75 * blur(tube, 1.8) + 0.85 * blur(tube, 6.0) + 0.22 * blur(tube, 15.0))[..., None] * tone
    light[:] = light + glow * 0.75 * power
    light[:] = light * (1 - body) + (cold + (hot - cold) * power) * body


def sign():
    """Frames in red, green, blue and alpha, which is all or nothing, and the time of each in frames of video."""
    late, show, border = word("LATE", 24), word("SHOW", 118), tubes(ring)
    inside = rounded(*SIGN, 0, 18)
    rows = np.mgrid[0:SIGN[1], 0:SIGN[0]][0] / SIGN[1]
    frames = []
    for state, time in SIGN_TIMES:
        power = {name: {"out": 0.0, "low": 0.42}.get(state[5:], 1.0) if state.startswith(name) else 1.0
                 for name in ("late", "show")}
        light = np.ones((SIGN[1], SIGN[0], 3)) * SIGN_PANEL / 255 * (1.15 - 0.3 * rows)[..., None]
        light = light + (np.clip(1.6 - np.abs(inside - 1.6), 0, 1) * 0.16)[..., None]
        glowing(light, border, (255, 176, 84), 0.7)
        glowing(light, late, (255, 84, 140), power["late"])
        glowing(light, show, (86, 210, 255), power["show"])
        pixels = np.uint8(np.clip(light, 0, 1) * 255 + 0.5)
        frames.append((Image.fromarray(np.dstack([pixels, np.uint8(np.where(inside > 0.2, 255, 0))])), time))
    return frames


# The reel ------------------------------------------------------------------------------------------------------------

REEL = 84
REEL_FRAMES = 25


def reel():
    """Frames as those of the sign; a third of a turn, after which the three spokes look as before."""
    scale = 4
    size = REEL * scale
    y, x = (np.mgrid[0:size, 0:size] + 0.5) / size * 2 - 1
    radius = np.hypot(x, y)

    def disc(px, py, r):
        return np.clip((r - np.hypot(px, py)) * size / 2 + 0.5, 0, 1)

    frames = []
    for frame in range(REEL_FRAMES):
        angle = -2 * np.pi / 3 * frame / REEL_FRAMES
        shine = 0.5 + 0.5 * np.cos(2 * (np.arctan2(y, x) + 0.9))
        metal = 0.40 + 0.24 * shine ** 3 + 0.22 * np.clip(-y * 0.6 - x * 0.4, -1, 1)
        plate = np.dstack([metal * 0.98, metal * 0.93, metal * 0.88])
        # Film between the plates, seen through the holes.
        film = 0.14 + 0.04 * np.cos(radius * 60) + 0.05 * shine ** 4
        film = np.dstack([film * 1.25, film * 0.95, film * 0.85])
        holes = np.zeros_like(x)
        rim = np.zeros_like(x)
        for hole in range(3):
            cx, cy = turn(0, -0.52, angle + hole * 2 * np.pi / 3)
            holes = np.maximum(holes, disc(x - cx, y - cy, 0.295))
            rim = np.maximum(rim, disc(x - cx, y - cy, 0.335) - disc(x - cx, y - cy, 0.295))
            dx, dy = turn(0, -0.78, angle + (hole + 0.5) * 2 * np.pi / 3)
            holes = np.maximum(holes, disc(x - dx, y - dy, 0.075))
        light = np.where(rim[..., None] > 0, plate * (1 + 0.30 * rim[..., None]), plate)
        light = light * (1 - holes[..., None]) + film * holes[..., None]
        hub = disc(x, y, 0.17)[..., None]
        light = light * (1 - hub) + np.array([0.93, 0.66, 0.33]) * (0.75 + 0.35 * shine[..., None]) * hub
        light = light * (1 - disc(x, y, 0.055)[..., None])
        for slot in range(3):
            cx, cy = turn(0, -0.085, angle + slot * 2 * np.pi / 3)
            light = light * (1 - disc(x - cx, y - cy, 0.035)[..., None])
        edge = np.clip((radius - 0.90) / 0.05, 0, 1)
        light = light * (1 - 0.62 * edge * (radius < 0.99))[..., None]
        lip = np.exp(-((radius - 0.885) / 0.022) ** 2)
        light = light + (lip * 0.22 * (0.6 + 0.8 * shine))[..., None]
        picture = Image.fromarray(np.uint8(np.clip(light, 0, 1) * 255 + 0.5)).resize((REEL, REEL), Image.LANCZOS)
        cover = Image.fromarray(np.uint8(disc(x, y, 0.985) * 255)).resize((REEL, REEL), Image.LANCZOS)
        pixels = np.dstack([np.asarray(picture), np.where(np.asarray(cover) > 127, 255, 0)])
        frames.append((Image.fromarray(np.uint8(pixels)), 1))
    return frames


# Files ---------------------------------------------------------------------------------------------------------------

def save_gif(frames, path, most=255):
    """One palette for all frames; its last place is the transparent one.

    A picture stays until more than its time is over, so 10 milliseconds less than so many frames of 40.
    """
    strip = Image.new("RGB", (frames[0][0].width, sum(frame.height for frame, _ in frames)))
    top = 0
    for frame, _ in frames:
        strip.paste(frame.convert("RGB"), (0, top))
        top += frame.height
    palette = strip.quantize(most, Image.Quantize.MEDIANCUT, kmeans=3)
    colours = (palette.getpalette()[:3 * most] + [0] * 765)[:765]
    palette.putpalette(colours + colours[:3])
    pictures = []
    for frame, _ in frames:
        indices = np.asarray(frame.convert("RGB").quantize(palette=palette, dither=Image.Dither.NONE)).copy()
        indices[indices == 255] = 0
        indices[np.asarray(frame)[..., 3] == 0] = 255
        picture = Image.fromarray(indices, "P")
        picture.putpalette(colours + [255, 0, 255])
        pictures.append(picture)
    pictures[0].save(path, save_all=True, append_images=pictures[1:], duration=[40 * time - 10 for _, time in frames],
                     loop=0, transparency=255, disposal=2, optimize=False)


def save(name, folder):
    """Lanterns as a picture for each frame, the others as GIF files."""
    if name == "lanterns":
        (folder / name).mkdir(exist_ok=True)
        for index, frame in enumerate(lanterns()):
            frame.save(folder / name / f"{index}.png", compress_level=9)
    if name == "sign":
        save_gif(sign(), folder / "sign.gif")
    if name == "reel":
        save_gif(reel(), folder / "reel.gif", 96)
    print(folder / name)
