"""What the skin buttons of the animated menu are made of: panels of 300 dots per inch that are stretched by nine parts,
signs for what the buttons do, and the card on which the film plays."""

import numpy as np
from PIL import Image, ImageDraw

from frames import layers, rounded

AMBER = (246, 201, 140)
PANEL = (240, 134)  # 20.3 by 11.3 mm. Scale margins: 60


def panel(body, body_alpha, border, border_alpha, halo=None):
    """A rounded panel: colours at its top and bottom, the line round it, a light behind it."""
    width, height = PANEL
    inside = rounded(width, height, 18, 34)
    y = ((np.mgrid[0:height, 0:width][0] + 0.5) / height)[..., None]
    tone = np.array(body[0], float) * (1 - y) + np.array(body[1], float) * y
    cover = np.clip(inside + 0.5, 0, 1)
    line = cover * np.clip(4.0 - inside, 0, 1)
    shine = cover * np.clip(1 - np.abs(inside - 7) / 3.5, 0, 1) * np.clip(1 - y[..., 0] * 2.6, 0, 1)
    parts = [((0, 2, 8), 0.36 * np.exp(-np.maximum(-inside, 0) / 5.0) * (inside < 1))]
    if halo:
        fade = np.clip((17 + inside) / 14, 0, 1)
        parts = [(halo, 0.80 * np.exp(-(np.maximum(-inside, 0) / 8.0) ** 1.2) * fade * (inside < 1))]
    return layers(width, height, *parts, (tone, body_alpha * cover), ((255, 255, 255), 0.20 * shine), (border, border_alpha * line))


def lit():
    return panel(((255, 206, 128), (232, 146, 62)), 0.97, (255, 238, 204), 0.95, (255, 170, 84))


def glass():
    return panel(((46, 48, 84), (14, 16, 36)), 0.74, (255, 255, 255), 0.30)


def seen():
    return panel(((54, 44, 50), (22, 18, 28)), 0.78, AMBER, 0.85)


def dim():
    return panel(((24, 24, 40), (16, 16, 30)), 0.42, (255, 255, 255), 0.12)


def sign(draw_on):
    """A sign of 56 by 56 dots, drawn eight times as large, on clear ground."""
    scale = 8
    plane = Image.new("L", (56 * scale, 56 * scale), 0)
    draw_on(ImageDraw.Draw(plane), scale)
    cover = np.asarray(plane.resize((56, 56), Image.LANCZOS)).astype(float) / 255
    return cover


def coloured(cover, tone):
    return layers(cover.shape[1], cover.shape[0], (tone, cover))


def play(draw, s):
    draw.polygon([(14 * s, 8 * s), (48 * s, 28 * s), (14 * s, 48 * s)], 255)


def scenes(draw, s):
    for row in range(2):
        for column in range(2):
            x, y = 6 + 24 * column, 9 + 21 * row
            draw.rounded_rectangle((x * s, y * s, (x + 20) * s, (y + 16) * s), 3 * s, 255)


def talk(draw, s):
    draw.rounded_rectangle((5 * s, 9 * s, 51 * s, 39 * s), 9 * s, 255)
    draw.polygon([(14 * s, 36 * s), (14 * s, 51 * s), (29 * s, 37 * s)], 255)
    for x in (17, 28, 39):
        draw.ellipse(((x - 3) * s, 21 * s, (x + 3) * s, 27 * s), 0)


def picture(draw, s):
    draw.rounded_rectangle((4 * s, 9 * s, 52 * s, 47 * s), 6 * s, 255)
    draw.rounded_rectangle((8 * s, 13 * s, 48 * s, 43 * s), 3 * s, 0)
    draw.polygon([(9 * s, 42 * s), (23 * s, 22 * s), (33 * s, 36 * s), (38 * s, 30 * s), (47 * s, 42 * s)], 255)
    draw.ellipse((35 * s, 17 * s, 43 * s, 25 * s), 255)


def camera(draw, s):
    draw.rounded_rectangle((4 * s, 21 * s, 37 * s, 46 * s), 5 * s, 255)
    draw.polygon([(40 * s, 32 * s), (52 * s, 24 * s), (52 * s, 44 * s), (40 * s, 36 * s)], 255)
    for x in (13, 29):
        draw.ellipse(((x - 7) * s, 6 * s, (x + 7) * s, 20 * s), 255)


def tick(draw, s):
    draw.line([(9 * s, 30 * s), (23 * s, 44 * s), (48 * s, 13 * s)], 255, 8 * s, "curve")


def lock(draw, s):
    draw.rounded_rectangle((11 * s, 25 * s, 45 * s, 49 * s), 5 * s, 255)
    draw.arc((17 * s, 7 * s, 39 * s, 43 * s), 180, 360, 255, 6 * s)


def dot(draw, s):
    draw.ellipse((20 * s, 20 * s, 36 * s, 36 * s), 255)


CARD = (840, 700)              # two pixels for one of the page's at 720 lines
HOLE = (40, 196, 800, 636)     # through which the film shows


def card():
    """A dark card with a window."""
    width, height = CARD
    inside = rounded(width, height, 18, 22)
    y, x = np.mgrid[0:height, 0:width] + 0.5
    left, top, right, bottom = HOLE
    hole = np.minimum(np.minimum(x - left, right - x), np.minimum(y - top, bottom - y))
    cover = np.clip(inside + 0.5, 0, 1)
    tone = np.dstack([plane + 0 * x for plane in (20 - 9 * y / height, 21 - 9 * y / height, 40 - 16 * y / height)])
    border = cover * np.clip(3.0 - inside, 0, 1)
    edge = np.clip(5.0 - np.abs(hole + 2.5) * 2, 0, 1)
    shade = 0.55 * np.exp(-np.maximum(hole, 0) / 9.0) * (hole > 0)
    fall = 0.45 * np.exp(-np.maximum(-inside, 0) / 6.0) * (inside < 1)
    picture = layers(width, height, ((0, 0, 6), fall), (tone, 0.80 * cover), ((255, 255, 255), 0.22 * border))
    pixels = np.asarray(picture).copy()
    pixels[hole > 0] = 0
    window = np.asarray(layers(width, height, ((0, 0, 0), shade), (AMBER, 0.95 * edge)))
    inner = (hole > 0) | (edge > 0.3)
    pixels[inner] = window[inner]
    return Image.fromarray(pixels)


def signs():
    pale, dark, faint = (240, 236, 228), (64, 30, 8), (150, 150, 166)
    return {"play": coloured(sign(play), dark), "scenes": coloured(sign(scenes), pale), "talk": coloured(sign(talk), pale),
            "picture": coloured(sign(picture), pale), "camera": coloured(sign(camera), AMBER),
            "tick": coloured(sign(tick), AMBER), "lock": coloured(sign(lock), faint),
            "dot": coloured(sign(dot), pale)}


BUTTONS = {"button-lit": lit, "button-glass": glass, "button-seen": seen, "button-dim": dim, "card": card,
           **{f"sign-{name}": (lambda name=name: signs()[name]) for name in
              ("play", "scenes", "talk", "picture", "camera", "tick", "lock", "dot")}}
