"""Dunes in low evening light."""

import numpy as np

from kit import View, bloom, colour, develop, fbm, grid, lit, mix, noise, normals, smooth

SUN = np.array([-0.80, 0.235, 0.55])
SUN = SUN / np.linalg.norm(SUN)


def crest(x, seed):
    """A dune across x: a long windward slope, a sharp edge, a steep lee side."""
    cell = np.floor(x)
    t = x - cell
    top = 0.66
    rise = smooth(0.0, top, t) * 0.35 + 0.65 * np.clip(t / top, 0, 1) ** 1.35
    fall = 1 - np.clip((t - top) / (1 - top), 0, 1)
    return np.where(t < top, rise, fall * fall * (3 - 2 * fall))


def terrain(x, z, fine=True):
    bend = 0.9 * noise(x * 0.16 + 3, z * 0.16, 5) + 0.30 * noise(x * 0.45, z * 0.45 + 8, 6)
    large = crest(x * 0.20 + z * 0.105 + bend * 0.85 + 0.18, 1)
    size = 0.45 + 0.75 * smooth(-0.6, 0.7, noise(x * 0.10 + 9, z * 0.12, 7))
    small = crest(x * 0.62 - z * 0.22 + bend * 0.9 + 5.3, 2)
    height = 1.35 * large * size + 0.13 * small * (1 - 0.65 * large) + 0.25 * noise(x * 0.07, z * 0.07, 8)
    height = height * (0.30 + 0.70 * smooth(3.0, 9.5, z))
    height = height + 0.9 * smooth(14, 40, z) * (0.5 + 0.5 * noise(x * 0.05 + 4, z * 0.05, 9))
    if fine:
        ripple = np.sin(x * 46 + z * 17 + 5.0 * noise(x * 1.4, z * 1.4, 10) + 2.5 * noise(x * 4, z * 4, 12))
        height = height + 0.0042 * ripple * (0.6 + 0.5 * noise(x * 0.7, z * 0.7, 11)) * smooth(11, 3, z)
    return height


def make():
    u, v = grid()
    height, width = u.shape
    horizon = 0.36
    view = View(width, height, 2.15, horizon, 0.62)
    up = np.clip((horizon - v) / horizon, 0, 1)
    glow = np.exp(-(((u + 0.10) / 0.55) ** 2 + (up / 0.9) ** 2))
    light = mix(colour("#f2b888") * 1.05, colour("#3f6399") * 0.72, smooth(-0.05, 0.95, up + 0.12 * u))
    light = light + glow[..., None] * colour("#ffb070") * 0.65
    wisps = fbm(u * 2.2 + 0.8 * fbm(u * 1.5, v * 6, 4, 31), v * 15, 6, 33)
    light = mix(light, mix(colour("#ffd0a4") * 1.1, colour("#d2a0a0") * 0.8, up), smooth(0.05, 0.62, wisps) * 0.5)

    depth = view.march(lambda x, z: terrain(x, z, False), 2.4, 70.0)
    hit = np.isfinite(depth)
    z = np.where(hit, depth, 70.0)
    x = view.side[None, :] * z * view.field
    nx, ny, nz = normals(terrain, x, z, 0.006)
    shade = lit(lambda x, z: terrain(x, z, False), x, z, SUN, 9.0, 22)
    facing = np.clip(nx * SUN[0] + ny * SUN[1] + nz * SUN[2], 0, 1)
    speck = 1 + 0.07 * noise(x * 160, z * 160, 41) * smooth(9, 2, z) + 0.06 * fbm(x * 2, z * 2, 4, 43)
    sand = colour("#d99a62") * speck[..., None]
    sky = colour("#5c6a9c") * (0.34 + 0.16 * ny)[..., None]
    bounce = colour("#b06a3c") * (0.10 * (1 - ny))[..., None]
    land = sand * (sky + bounce + (facing * shade)[..., None] * colour("#ffb878") * 3.0)
    air = 1 - np.exp(-(z / 62.0) ** 1.2)
    haze = mix(colour("#f3b98c"), colour("#a58fa6"), smooth(0.0, 0.9, u)) * 0.95
    land = mix(land, haze, air)
    blown = np.exp(-np.abs((z - 13) / 4.5) ** 2) * smooth(0.1, 0.7, fbm(x * 0.5, z * 0.9, 5, 51)) * 0.16
    land = mix(land, haze, blown)
    light = np.where(hit[..., None], land, light)
    return develop(bloom(light, 0.10), 0.92, grain=0.008, warm=0.01, saturation=1.05, vignette=0.35, seed=4)
