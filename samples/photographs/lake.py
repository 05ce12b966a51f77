"""A mountain lake after sunset: peaks with snow, banks of fog, still water."""

import numpy as np

from kit import (View, bloom, blur, colour, conifer, develop, eroded, fbm, grid, lit, mix, noise, normals, sample, smooth)

SUN = np.array([0.62, 0.16, 0.77])
SUN = SUN / np.linalg.norm(SUN)


def terrain(x, z, octaves=9):
    valley = np.abs(x + 0.9 + 0.6 * np.sin(z * 0.35)) / (2.0 + 0.16 * z)
    sides = smooth(0.35, 2.6, valley)
    back = smooth(9.0, 15.0, z)
    rise = np.maximum(sides * (0.45 + 0.09 * z), back * 1.5)
    peaks = eroded(x * 0.42 + 31.4, z * 0.42 + 7.7, octaves, 5)
    shore = 0.05 * fbm(x * 1.8, z * 1.8, 4, 71)
    return rise * (0.82 + 0.95 * peaks) + shore - 0.10 + 0.12 * sides


def sky(u, up):
    """Light of the sky; up is 0 at the horizon and 1 at the top of the picture."""
    high, middle, low = colour("#1d3a66"), colour("#6f7fa6"), colour("#f0b58c")
    light = mix(mix(low * 1.25, middle * 0.95, smooth(0.0, 0.46, up)), high * 0.85, smooth(0.25, 1.0, up))
    glow = np.exp(-(((u - 0.74) / 0.30) ** 2 + ((up - 0.06) / 0.26) ** 2))
    light = light + glow[..., None] * colour("#ff9a5a") * 1.0
    stretch = 1 / (np.maximum(up, 0) + 0.16)
    cx, cy = (u - 0.5) * stretch * 2.3, stretch * 3.4
    warp = fbm(cx * 0.8, cy * 0.8, 4, 201)
    clouds = fbm(cx * 1.3 + warp * 0.9, cy * 2.6 + warp * 0.7, 7, 211)
    cover = smooth(0.05, 0.55, clouds) * smooth(0.03, 0.2, up) * 0.85
    thick = smooth(0.1, 0.6, clouds)
    lower = mix(colour("#ffb48a") * 1.5, colour("#7b6f8e") * 0.8, smooth(0.1, 0.85, up + 0.35 * thick))
    lower = lower * (1 + 0.9 * glow[..., None])
    return mix(light, lower, cover * (0.75 - 0.3 * thick))


def scene(width, height, eye, horizon):
    """What stands above the water, seen from the eye; with the depth of each pixel."""
    view = View(width, height, eye, horizon, 0.80)
    u, v = grid(width, height)
    up = (horizon - v) / horizon
    light = sky(u, np.maximum(up, 0))

    def land(x, z):
        # An eye below the water looks through the bed of the lake.
        ground = terrain(x, z)
        return np.maximum(ground, -0.02) if eye > 0 else np.where(ground > 0, ground, -1.0)

    depth = view.march(land, 1.6, 26.0)
    hit = np.isfinite(depth)
    z = np.where(hit, depth, 26.0)
    x = view.side[None, :] * z * view.field
    h = terrain(x, z)
    nx, ny, nz = normals(terrain, x, z, 0.008)
    facing = np.clip(nx * SUN[0] + ny * SUN[1] + nz * SUN[2], 0, 1)
    shade = lit(lambda x, z: terrain(x, z, 6), x, z, SUN, 6.0, 14)
    detail = fbm(x * 14, z * 14, 5, 301)
    rock = mix(colour("#4a4a55"), colour("#77706f"), 0.5 + 0.5 * detail)
    snow = smooth(0.50, 0.80, ny + 0.14 * detail) * smooth(0.55, 1.25, h + 0.2 * detail)
    wood = smooth(0.62, 0.30, h + 0.12 * detail) * smooth(0.45, 0.7, ny + 0.1)
    # Woods: each crown catches light on one side.
    crowns = noise(x * 70, z * 70, 311) + 0.6 * noise(x * 150 + 9, z * 150, 312)
    wooded = colour("#22342c") * (0.85 + 0.5 * detail + 0.45 * crowns)[..., None]
    ground = mix(mix(rock, wooded, wood), colour("#dfe6f0"), snow)
    ambient = colour("#6d86b8") * (0.42 + 0.26 * ny[..., None])
    land = ground * (ambient + (facing * shade)[..., None] * colour("#ff9e68") * 1.7)

    # Air takes colour away with depth, fog lies low and in banks.
    air = 1 - np.exp(-(z / 14.0) ** 1.05)
    haze = mix(colour("#7686ad"), colour("#f0a981"), np.exp(-((u - 0.74) / 0.34) ** 2) * 0.8) * 0.85
    land = mix(land, haze, air)
    drift = fbm(x * 0.55 + 3.1, z * 0.35, 5, 401)
    bank = np.exp(-(np.maximum(h, 0) / (0.13 + 0.15 * (1 + drift))) ** 1.3) * smooth(1.3, 5.5, z) * (0.80 + 0.2 * drift)
    second = np.exp(-((h - 0.62 - 0.16 * drift) / 0.10) ** 2) * smooth(2.5, 8.0, z) * smooth(-0.25, 0.4, drift) * 0.6
    fog = mix(colour("#a7b1cc"), colour("#f6c7a4"), np.exp(-((u - 0.74) / 0.30) ** 2))
    land = mix(land, fog * 0.95, np.clip(np.maximum(bank, second), 0, 1))
    return np.where(hit[..., None], land, light), np.where(hit, depth, np.inf)


def trees(light, horizon, random):
    """Dark conifers on the near bank at both sides."""
    height, width = light.shape[:2]
    canvas = np.zeros((height, width))
    u = (np.arange(width) + 0.5) / width
    bank = height * (1.02 - 0.16 * smooth(0.22, -0.02, u) - 0.30 * smooth(0.86, 1.05, u) - 0.012 * noise(u * 40, u * 0, 5))
    rows = np.arange(height)[:, None]
    canvas[:] = np.clip(rows - bank[None, :], 0, 1)
    for _ in range(46):
        right = random.random() < 0.6
        place = 1 - random.random() ** 1.4 * 0.155 if right else random.random() ** 1.6 * 0.12
        near = (place - 0.845) / 0.155 if right else (0.12 - place) / 0.12
        tall = height * (0.10 + (0.36 if right else 0.26) * near * random.uniform(0.55, 1.0))
        conifer(canvas, place * width, bank[min(width - 1, int(place * width))] + 8, tall, random, 0.16)
    tone = colour("#10181b") * (0.6 + 0.7 * (rows / height)[..., None])
    return light * (1 - canvas[..., None]) + tone * canvas[..., None]


def make():
    width, height = grid()[0].shape[::-1]
    horizon, eye = 0.56, 0.19
    light, depth = scene(width, height, eye, horizon)

    # The water mirrors what an eye below it would see.
    below, _ = scene(width, height, -eye, horizon)
    view = View(width, height, eye, horizon, 0.80)
    far = view.water()
    z = np.minimum(far, 60.0)
    x = view.side[None, :] * z * view.field
    u, v = grid(width, height)
    calm = smooth(-0.25, 0.45, fbm(x * 0.35, z * 0.8, 4, 501))
    wave = fbm(x * 7 + 2, z * 26, 4, 511) * (0.35 + 0.65 * calm)
    sway = fbm(x * 3 + 9, z * 11, 3, 521) * (0.35 + 0.65 * calm)
    drop = v - horizon
    px = u * width + sway * (3 + 26 * drop)
    py = (horizon - drop * 0.97) * height + wave * (5 + 120 * drop) * 0.55
    mirrored = blur(below, 1.2)
    mirrored = sample(mirrored, px, np.minimum(py, horizon * height - 1))
    steep = np.clip(1 - np.exp(-drop * 6.5), 0, 1)
    water = mirrored * (0.86 - 0.34 * steep)[..., None] + colour("#0b1c2b") * (0.25 + 0.6 * steep)[..., None]
    mist = np.exp(-drop / 0.035) * (0.62 + 0.35 * fbm(u * 5, v * 60, 4, 531))
    fog = mix(colour("#a7b1cc"), colour("#f6c7a4"), np.exp(-((u - 0.74) / 0.30) ** 2))
    water = mix(water, fog * 0.9, np.clip(mist, 0, 1) * 0.6)
    over = (v > horizon) & (far < depth)
    light = np.where(over[..., None], water, light)
    light = trees(light, horizon, np.random.default_rng(12))
    return develop(bloom(light, 0.10), 1.02, warm=0.02, saturation=1.08, seed=3)
