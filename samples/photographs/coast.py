"""A coast at sunset: clouds lit from below, a track of light on the sea, headlands."""

import numpy as np

from kit import View, bloom, colour, develop, eroded, fbm, grid, mix, noise, normals, smooth

SUN_U, SUN_UP = 0.615, 0.055  # in the picture: across its width; above the horizon, in heights of the picture


def sky(u, up):
    """up: heights of the picture above the horizon."""
    up = np.maximum(up, 0)
    light = mix(colour("#ff9c5c") * 1.25, colour("#a8637c") * 0.75, smooth(0.0, 0.20, up))
    light = mix(light, colour("#33407a") * 0.62, smooth(0.12, 0.46, up))
    light = mix(light, colour("#16224c") * 0.55, smooth(0.38, 0.75, up))
    across = (u - SUN_U) * 1.78
    far = np.hypot(across, (up - SUN_UP) * 1.25)
    light = light + np.exp(-(far / 0.17))[..., None] * colour("#ffb060") * 2.2
    light = light + np.exp(-(far / 0.045) ** 2)[..., None] * colour("#ffd890") * 3.0
    disc = smooth(0.0285, 0.0255, np.hypot(across, up - SUN_UP))
    light = light + disc[..., None] * colour("#ffe6b0") * 14

    # Clouds lie on a ceiling: rows of them come closer together towards the horizon.
    depth = 1 / (up + 0.085)
    x, y = (u - 0.45) * depth * 1.5, depth * 1.75
    warp = fbm(x * 0.6 + 5, y * 0.6, 4, 3)
    body = fbm(x * 0.62 + 0.9 * warp + 2, y * 1.0 + 0.8 * warp, 8, 11, 0.53)
    ahead = fbm(x * 0.62 + 0.9 * warp + 2 - (u - SUN_U) * 0.16, y * 1.0 + 0.8 * warp + 0.14, 6, 11, 0.53)
    cover = smooth(-0.06, 0.34, body) * smooth(0.015, 0.07, up)
    thick = smooth(0.0, 0.5, body)
    edge = np.clip((body - ahead) * 2.8 + 0.5, 0, 1)
    warmth = np.exp(-(far / 0.50) ** 1.3)
    bright = mix(colour("#d0607c") * 0.75, colour("#ff9448") * 2.0, warmth)
    dark = mix(colour("#1d2448") * 0.55, colour("#7a3d4c") * 0.60, warmth)
    clouds = mix(dark, bright, np.clip(edge * (1.15 - 0.75 * thick) + 0.12, 0, 1))
    return mix(light, clouds, cover * (0.55 + 0.42 * thick))


def terrain(x, z):
    """Headlands on the left, far ones behind, rocks in front."""
    side = smooth(-0.5, -4.2, x + 0.21 * z - 0.8 + 0.7 * noise(z * 0.5, x * 0, 3))
    side = side * smooth(3.4, 6.5, z)
    cliff = side * (1.25 + 0.55 * eroded(x * 0.45 + 4, z * 0.45 + 2, 8, 21))
    far = smooth(15, 18, z) * smooth(0.8, -7.5, x) * (1.5 + 0.75 * eroded(x * 0.22 + 1, z * 0.22, 8, 31))
    rocks = 0.62 * smooth(0.05, 0.75, fbm(x * 1.15 + 7.4, z * 1.15 + 1.7, 6, 41)) * smooth(5.6, 3.6, z) * smooth(2.5, 3.3, z)
    rocks = rocks * smooth(0.5, -0.7, x - 0.20) + rocks * smooth(0.9, 2.2, x) * 0.9
    return np.maximum(np.maximum(cliff, far), rocks) - 0.05


def make():
    u, v = grid()
    height, width = u.shape
    horizon, eye, field = 0.58, 0.62, 0.8
    view = View(width, height, eye, horizon, field)
    light = sky(u, horizon - v)

    # The sea: each pixel looks along the ray that its wave sends up.
    far = view.water()
    z = np.minimum(far, 400.0)
    x = view.side[None, :] * z * field
    fade = 1 / (1 + (z / 9.0) ** 1.2)
    swell = np.sin(z * 2.1 + x * 0.35 + 1.7 * noise(x * 0.35, z * 0.35, 51)) * 0.05
    _, sx1, sz1 = noise(x * 1.3 + 4, z * 2.6, 53, slopes=True)
    _, sx2, sz2 = noise(x * 3.7 + 1, z * 7.0 + 3, 54, slopes=True)
    _, sx3, sz3 = noise(x * 9.0, z * 17.0 + 8, 55, slopes=True)
    tilt_x = (0.030 * sx1 + 0.026 * sx2 + 0.018 * sx3 * fade) * (0.35 + 0.65 * fade)
    tilt_z = (0.042 * sz1 + 0.040 * sz2 + 0.024 * sz3 * fade + swell) * (0.35 + 0.65 * fade)
    drop = v - horizon
    seen_up = np.abs(drop * 0.95 + tilt_z * 0.75) + 0.004
    seen_u = u + tilt_x * 0.55
    mirrored = sky(np.clip(seen_u, -0.2, 1.2), seen_up)
    mirrored = np.minimum(mirrored, 9.0)
    grazing = np.clip(0.06 + 0.94 * np.exp(-(np.maximum(drop, 0) * 4.4 + 1.5 * np.maximum(-tilt_z, 0))), 0, 1)
    sea = mirrored * (grazing * 0.80)[..., None] + colour("#12304a") * 0.30 * (1 - grazing)[..., None]
    track = np.exp(-np.abs((seen_u - SUN_U) / (0.026 + 0.13 * np.maximum(drop, 0))) ** 1.6)
    spark = smooth(0.10, 0.85, fbm(x * 5 + 3, z * 15, 4, 61) + 4.0 * tilt_z)
    sea = sea + (track * spark)[..., None] * colour("#ffb868") * 2.6

    depth = view.march(terrain, 2.0, 40.0)
    ashore = np.isfinite(depth) & (depth < far)
    d = np.where(ashore, depth, 40.0)
    lx = view.side[None, :] * d * field
    nx, ny, nz = normals(terrain, lx, d, 0.008)
    detail = fbm(lx * 9, d * 9, 5, 71)
    rim = np.clip(0.62 * nx + 0.30 * ny + 0.72 * nz, 0, 1)
    rock = mix(colour("#2a2426"), colour("#50423c"), 0.5 + 0.5 * detail)
    land = rock * (colour("#5a5a90") * (0.40 + 0.35 * ny)[..., None] + rim[..., None] * colour("#ff9858") * 1.7)
    wet = smooth(0.10, 0.0, terrain(lx, d)) * smooth(6, 3, d)
    land = land * (1 - 0.5 * wet)[..., None]
    air = 1 - np.exp(-(d / 20.0) ** 1.5)
    haze = mix(colour("#8a5c74"), colour("#ff9c60"), np.exp(-((u - SUN_U) / 0.30) ** 2)) * 0.85
    land = mix(land, haze, np.clip(air, 0, 0.88))
    spray = np.exp(-np.maximum(terrain(lx, d), 0) / 0.10) * smooth(4, 14, d) * 0.4
    land = mix(land, haze, spray)

    # Foam round the rocks, moved softly as in a long exposure.
    near = terrain(x, np.minimum(z, 40)) + 0.05
    foam = smooth(-0.02, 0.05, near + 0.03 * fbm(x * 4, z * 4, 4, 81)) * smooth(12, 4, z)
    shore = smooth(0.25, 0.75, fbm(x * 2.2 + 5, z * 6.5, 6, 83)) * smooth(4.6, 2.2, z) * 0.30
    white = mix(colour("#c9b4bc"), colour("#ffd2a4"), np.exp(-((u - SUN_U) / 0.25) ** 2)) * 0.75
    sea = mix(sea, white, np.clip(foam * 0.5 + shore * 0.5, 0, 0.8))
    light = np.where((v > horizon)[..., None], sea, light)
    light = np.where(ashore[..., None], land, light)
    return develop(bloom(light, 0.12, 30), 0.86, grain=0.008, warm=0.01, saturation=1.05, vignette=0.38, shadows="#0c1020", seed=6)
