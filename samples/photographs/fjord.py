"""A fjord at night: peaks with snow, stars, still water, a fire on the far shore. Northern lights are left to a movie,
which shines where the second picture, `sky`, is bright: in the sky itself, and weaker in the water."""

import os

import numpy as np
from PIL import Image

from kit import View, bloom, blur, colour, conifer, develop, eroded, fbm, grid, lit, mix, noise, normals, sample, smooth
from night import stars

SIZE = (1600, 900)
SKY_SIZE = (960, 540)
SCALE = float(os.environ.get("OVER", 1.25)) / 1.25
HORIZON, EYE, FIELD = 0.545, 0.17, 0.80
MOON = np.array([-0.55, 0.42, 0.30])
MOON = MOON / np.linalg.norm(MOON)
FIRE = (0.794, 0.5435)


def terrain(x, z, octaves=9):
    valley = np.abs(x - 0.35 - 0.5 * np.sin(z * 0.30)) / (1.9 + 0.20 * z)
    sides = smooth(0.30, 2.3, valley)
    back = smooth(11.0, 16.0, z)
    peaks = eroded(x * 0.45 + 52.7, z * 0.45 + 3.1, octaves, 23)
    shore = 0.05 * fbm(x * 1.8, z * 1.8, 4, 171)
    return np.maximum(sides * (0.50 + 0.10 * z), back * 1.35) * (0.80 + 0.95 * peaks) + shore - 0.10 + 0.12 * sides


def sky(u, up):
    light = mix(colour("#27566b") * 0.55, colour("#0c1a38") * 0.50, smooth(0.0, 0.60, up))
    light = light + np.exp(-((up + 0.02) / 0.15) ** 2)[..., None] * colour("#3f8f80") * 0.24
    warm = np.exp(-(((u - 0.70) / 0.30) ** 2 + (up / 0.13) ** 2))
    return light + warm[..., None] * colour("#e7a06c") * 0.20


def scene(width, height, eye):
    """What stands above the water, and the depth of each pixel, infinite in the sky."""
    view = View(width, height, eye, HORIZON, FIELD)
    u, v = grid(width, height)
    light = sky(u, np.maximum((HORIZON - v) / HORIZON, 0))

    def land(x, z):
        ground = terrain(x, z)
        return np.maximum(ground, -0.02) if eye > 0 else np.where(ground > 0, ground, -1.0)

    depth = view.march(land, 1.6, 30.0, int(1000 * SCALE))
    hit = np.isfinite(depth)
    z = np.where(hit, depth, 30.0)
    x = view.side[None, :] * z * FIELD
    h = terrain(x, z)
    nx, ny, nz = normals(terrain, x, z, 0.008)
    shade = lit(lambda x, z: terrain(x, z, 6), x, z, MOON, 6.0, 12)
    facing = np.clip(nx * MOON[0] + ny * MOON[1] + nz * MOON[2], 0, 1) * shade
    detail = fbm(x * 14, z * 14, 5, 301)
    rock = mix(colour("#3c4450"), colour("#5f6670"), 0.5 + 0.5 * detail)
    snow = smooth(0.46, 0.78, ny + 0.16 * detail) * smooth(0.30, 1.00, h + 0.25 * detail)
    wood = smooth(0.52, 0.22, h + 0.12 * detail) * smooth(0.45, 0.7, ny + 0.1)
    crowns = noise(x * 70, z * 70, 311) + 0.6 * noise(x * 150 + 9, z * 150, 312)
    wooded = colour("#1a2a2c") * (0.8 + 0.4 * detail + 0.4 * crowns)[..., None]
    ground = mix(mix(rock, wooded, wood), colour("#dde8f2"), snow)
    ambient = colour("#3f7c84") * (0.10 + 0.12 * ny[..., None])
    land = ground * (ambient + facing[..., None] * colour("#a8c8e8") * 0.52)
    air = 1 - np.exp(-(z / 15.0) ** 1.15)
    land = mix(land, colour("#2d5a6c") * 0.46 + np.exp(-((u - 0.70) / 0.30) ** 2)[..., None] * colour("#b08a78") * 0.05, air * 0.9)
    drift = fbm(x * 0.55 + 3.1, z * 0.35, 5, 401)
    bank = np.exp(-(np.maximum(h, 0) / (0.10 + 0.12 * (1 + drift))) ** 1.3) * smooth(2.5, 9.0, z)
    land = mix(land, colour("#6d9aa6") * 0.40, np.clip(bank, 0, 1) * 0.75)
    return np.where(hit[..., None], land, light), np.where(hit, depth, np.inf)


def trees(height, width, random):
    """The cover of dark conifers on the near banks."""
    canvas = np.zeros((height, width))
    u = (np.arange(width) + 0.5) / width
    bank = height * (1.03 - 0.20 * smooth(0.13, -0.03, u) - 0.22 * smooth(0.90, 1.04, u) - 0.010 * noise(u * 40, u * 0, 5))
    canvas[:] = np.clip(np.arange(height)[:, None] - bank[None, :], 0, 1)
    for _ in range(40):
        right = random.random() < 0.55
        place = 1 - random.random() ** 1.4 * 0.09 if right else random.random() ** 1.5 * 0.085
        near = (place - 0.91) / 0.09 if right else (0.085 - place) / 0.085
        tall = height * (0.09 + 0.34 * near * random.uniform(0.5, 1.0))
        conifer(canvas, place * width, bank[min(width - 1, int(place * width))] + 8, tall, random, 0.16)
    return canvas


def make():
    """The photograph, and where northern lights may shine."""
    width, height = int(SIZE[0] * SCALE), int(SIZE[1] * SCALE)
    u, v = grid(width, height)
    random = np.random.default_rng(41)
    light, depth = scene(width, height, EYE)
    free = blur(np.where(np.isfinite(depth), 0.0, 1.0), 0.6)
    up = np.clip((HORIZON - v) / HORIZON, 0, 1)
    band = np.clip(0.22 + 0.35 * fbm(u * 3, v * 4, 4, 61), 0.05, 1)
    light = light + stars(height, width, band, random) * (free * smooth(0.05, 0.45, up))[..., None] * 0.8

    below, below_depth = scene(width, height, -EYE)
    view = View(width, height, EYE, HORIZON, FIELD)
    far = view.water()
    z = np.minimum(far, 60.0)
    x = view.side[None, :] * z * FIELD
    calm = smooth(-0.25, 0.45, fbm(x * 0.35, z * 0.8, 4, 501))
    wave = fbm(x * 7 + 2, z * 26, 4, 511) * (0.35 + 0.65 * calm)
    sway = fbm(x * 3 + 9, z * 11, 3, 521) * (0.35 + 0.65 * calm)
    drop = np.maximum(v - HORIZON, 0)
    px = u * width + sway * (3 + 26 * drop)
    py = np.minimum((HORIZON - drop * 0.97) * height + wave * (5 + 120 * drop) * 0.55, HORIZON * height - 1)
    steep = np.clip(1 - np.exp(-drop * 5.0), 0, 1)
    mirrored = sample(blur(below, 1.2), px, py)
    water = mirrored * (0.86 - 0.50 * steep)[..., None] + colour("#06131f") * (0.20 + 0.30 * steep)[..., None]
    mirrored_sky = sample(np.where(np.isfinite(below_depth), 0.0, 1.0)[..., None], px, py)[..., 0]
    mist = np.exp(-drop / 0.022) * (0.55 + 0.35 * fbm(u * 5, v * 60, 4, 531))
    water = mix(water, colour("#6d9aa6") * 0.42, np.clip(mist, 0, 1) * 0.5)
    over = (v > HORIZON) & (far < depth)
    light = np.where(over[..., None], water, light)
    free = np.where(over, mirrored_sky * (0.62 - 0.40 * steep) * np.clip(1 - mist, 0, 1), free)

    # A fire on the far shore, and its light on the water.
    reach = np.hypot((u - FIRE[0]) * SIZE[0] / SIZE[1], v - FIRE[1])
    light = light + np.exp(-(reach / 0.0032) ** 2)[..., None] * colour("#ffd890") * 2.6
    light = light + np.exp(-reach / 0.016)[..., None] * colour("#ff9440") * 0.55
    path = np.exp(-((u - FIRE[0] - sway * 0.004) / (0.0028 + 0.020 * drop)) ** 2) * np.exp(-drop / 0.075) * (v > HORIZON)
    light = light + (path * np.clip(0.55 + 0.9 * wave, 0, 2))[..., None] * colour("#ffa050") * 0.50

    cover = trees(height, width, random)[..., None]
    light = light * (1 - cover) + colour("#04080c") * 0.4 * cover
    free = free * (1 - cover[..., 0])
    picture = develop(bloom(light, 0.08), 1.42, grain=0.005, vignette=0.30, saturation=1.10, shadows="#050c16", seed=31, size=SIZE)
    return picture, Image.fromarray(np.uint8(np.clip(free, 0, 1) * 255 + 0.5)).resize(SKY_SIZE, Image.LANCZOS)
