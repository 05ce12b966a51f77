"""Frames and lights that are stretched by nine parts: their corners keep their size, so only the edges hold anything."""

import numpy as np
from PIL import Image


def rounded(width, height, inset, radius):
    """Distance from the edge of a rounded rectangle in pixels, positive inside."""
    y, x = np.mgrid[0:height, 0:width]
    x = np.abs(x + 0.5 - width / 2) - (width / 2 - inset - radius)
    y = np.abs(y + 0.5 - height / 2) - (height / 2 - inset - radius)
    outside = np.hypot(np.maximum(x, 0), np.maximum(y, 0)) + np.minimum(np.maximum(x, y), 0)
    return radius - outside


def layers(width, height, *parts):
    """Paints parts, each a colour and a plane of alpha, over one another."""
    rgb, alpha = np.zeros((height, width, 3)), np.zeros((height, width))
    for tone, cover in parts:
        cover = np.clip(cover, 0, 1)
        total = cover + alpha * (1 - cover)
        share = np.where(total > 0, cover / np.maximum(total, 1e-9), 0)[..., None]
        rgb = rgb * (1 - share) + np.broadcast_to(np.asarray(tone, float), rgb.shape) * share
        alpha = total
    pixels = np.dstack([rgb, alpha * 255])
    pixels[alpha < 0.002] = 0
    return Image.fromarray(np.uint8(pixels + 0.5))


def edge():
    """The white edge of a print, with a shadow that it casts on the picture. Scale margins: 24."""
    width, height = 1200, 700
    inside = rounded(width, height, 0, 0)
    shadow = 0.50 * np.exp(-np.maximum(inside - 5, 0) / 6.0) * (inside > 4) * (inside < 24)
    line = np.clip(inside + 0.5, 0, 1) * np.clip(5.5 - inside, 0, 1)
    y = np.mgrid[0:height, 0:width][0] / height
    tone = np.dstack([250 - 22 * y, 246 - 24 * y, 238 - 26 * y])
    return layers(width, height, ((6, 8, 14), shadow), (tone, line))


def shadow():
    """What a print throws on the wall behind it. Stretched plainly."""
    width, height = 400, 240
    distance = -rounded(width, height, 32, 6)
    cover = 0.62 * np.exp(-(np.maximum(distance, 0) / 13.0) ** 1.25)
    fade = np.clip(rounded(width, height, 0, 24) / 12, 0, 1)
    return layers(width, height, ((2, 4, 10), cover * fade))


def glow():
    """The light behind the entry that is chosen. Scale margins: 14."""
    width, height = 900, 90
    inside = rounded(width, height, 5, 8)
    y = (np.mgrid[0:height, 0:width][0] + 0.5) / height
    halo = 0.55 * np.exp(-np.maximum(-inside, 0) / 2.0) * (inside < 0.5)
    body = np.clip(inside + 0.5, 0, 1)
    tone = np.dstack([255 - 22 * y, 190 - 48 * y, 104 - 62 * y])
    rim = np.clip(inside + 0.5, 0, 1) * np.clip(1.8 - inside, 0, 1)
    return layers(width, height, ((255, 168, 80), halo), (tone, 0.93 * body), ((255, 232, 190), 0.85 * rim))


def inset(width, height, across, down, radius):
    """As rounded(), with another inset at the sides than above and below."""
    y, x = np.mgrid[0:height, 0:width]
    x = np.abs(x + 0.5 - width / 2) - (width / 2 - across - radius)
    y = np.abs(y + 0.5 - height / 2) - (height / 2 - down - radius)
    outside = np.hypot(np.maximum(x, 0), np.maximum(y, 0)) + np.minimum(np.maximum(x, y), 0)
    return radius - outside


# What lies round a movie on a card, in 1/300 inch: at the sides 64, above and below 36, so that the movie has the
# proportions of the card, and less than half of that for a chapter. Scale margins: 90 and 62, 44 and 32. Shapes are
# stretched whole, so they have the size of what they are for.
CARD, CHAPTER = (220, 164, 64, 36, 22), (110, 80, 27, 15.2, 12)
CARD_SHAPE, CHAPTER_SHAPE = (718, 404, *CARD[2:]), (329, 185, *CHAPTER[2:])


def card_shape(card):
    """Where the movie is seen."""
    width, height, *place = card
    return layers(width, height, ((255, 255, 255), np.clip(inset(width, height, *place) + 0.5, 0, 1)))


def card_shadow(card, halo=None):
    """What the card throws on the picture behind it: a shadow, or light if it is chosen."""
    width, height, across, down, radius = card
    distance = -inset(width, height, across, down, radius)
    fade = np.clip(inset(width, height, 0, 0, radius) / (down * 0.7), 0, 1)
    if halo:
        return layers(width, height, (halo, 0.85 * np.exp(-(np.maximum(distance, 0) / (down * 0.36)) ** 1.15) * fade))
    fall = -inset(width, height, across, down, radius) + (np.mgrid[0:height, 0:width][0] / height - 0.5) * -down * 0.30
    return layers(width, height, ((0, 3, 10), 0.66 * np.exp(-(np.maximum(fall, 0) / (down * 0.34)) ** 1.2) * fade))


def card_edge(card, tone, strength, wide):
    """The line round the movie, and a shine at its top."""
    width, height, across, down, radius = card
    inside = inset(width, height, across, down, radius)
    line = np.clip(inside + wide * 0.5 + 0.5, 0, 1) * np.clip(wide * 0.5 + 0.5 - inside, 0, 1)
    y = (np.mgrid[0:height, 0:width][0] + 0.5 - down) / (height - 2 * down)
    shine = np.clip(1 - np.abs(inside - wide * 0.5 - 2) / 1.6, 0, 1) * np.clip(1 - y * 1.6, 0, 1) * np.clip(inside, 0, 1)
    return layers(width, height, ((255, 255, 255), 0.34 * shine), (tone, strength * line))


FRAMES = {"edge": edge, "shadow": shadow, "glow": glow,
          "card-shape": lambda: card_shape(CARD_SHAPE), "card-shadow": lambda: card_shadow(CARD),
          "card-halo": lambda: card_shadow(CARD, (255, 164, 72)),
          "card-edge": lambda: card_edge(CARD, (214, 232, 244), 0.62, 3.0),
          "card-edge-lit": lambda: card_edge(CARD, (255, 208, 140), 1.0, 6.0),
          "chapter-shape": lambda: card_shape(CHAPTER_SHAPE), "chapter-shadow": lambda: card_shadow(CHAPTER),
          "chapter-edge": lambda: card_edge(CHAPTER, (214, 232, 244), 0.55, 2.2)}
