"""The night sky over a ridge: stars, the milky way, a last glow behind the hills, one lit window."""

import numpy as np

from kit import bloom, blur, colour, conifer, develop, fbm, grid, mix, noise, ridges, smooth


def stars(height, width, band, random):
    """Points of light, many faint and few bright, more of them within the band."""
    sky = np.zeros((height, width, 3))
    tints = [colour(c) for c in ("#9fbfff", "#cfdcff", "#ffffff", "#fff1dc", "#ffd2a0", "#ffb780")]
    wanted = 34000
    x, y = random.uniform(0, width - 2, wanted), random.uniform(0, height - 2, wanted)
    keep = random.random(wanted) < 0.16 + 0.84 * band[y.astype(int), x.astype(int)]
    power = 0.055 * random.pareto(1.75, wanted) + 0.042
    for px, py, p, k in zip(x, y, np.minimum(power, 6.5), keep):
        if not k:
            continue
        tint = tints[int(random.integers(len(tints)))]
        ix, iy = int(px), int(py)
        fx, fy = px - ix, py - iy
        sky[iy, ix] += tint * p * (1 - fx) * (1 - fy)
        sky[iy, ix + 1] += tint * p * fx * (1 - fy)
        sky[iy + 1, ix] += tint * p * (1 - fx) * fy
        sky[iy + 1, ix + 1] += tint * p * fx * fy
    area = (width / 1920) ** 2
    return area * (5.0 * blur(sky, 0.8 * width / 1920) + 1.3 * blur(sky, 2.4 * width / 1920))


def make():
    u, v = grid()
    height, width = u.shape
    random = np.random.default_rng(77)
    up = np.clip(1 - v / 0.86, 0, 1)
    light = mix(colour("#2f5468") * 0.62, colour("#0d1730") * 0.52, smooth(0.0, 0.55, up))
    light = light + (np.exp(-(((u - 0.30) / 0.34) ** 2 + ((up - 0.0) / 0.16) ** 2)))[..., None] * colour("#f0a468") * 0.55
    light = light + (0.5 + 0.5 * fbm(u * 2, v * 5, 3, 3))[..., None] * np.exp(-((up - 0.16) / 0.12) ** 2)[..., None] * colour("#2f6b58") * 0.16

    # The milky way: a band with a bright heart and lanes of dust, drawn in its own axes.
    slope = 0.92
    along = ((u - 0.60) * 1.78 * np.cos(slope) - (v - 0.36) * np.sin(slope))
    across = ((u - 0.60) * 1.78 * np.sin(slope) + (v - 0.36) * np.cos(slope))
    warp = fbm(along * 2.2, across * 3.5, 5, 11)
    across = across + 0.045 * warp
    heart = np.exp(-((along + 0.16) / 0.34) ** 2)
    wide = np.exp(-(across / (0.15 + 0.06 * heart)) ** 2)
    core = np.exp(-(across / (0.065 + 0.035 * heart)) ** 2)
    cloud = 0.55 + 0.95 * fbm(along * 6 + 3, across * 10, 9, 21, 0.62)
    dust = ridges(along * 4.6 + warp * 0.7, across * 9.5 + warp * 0.8, 8, 31, 0.62)
    lane = np.exp(-np.abs((across - 0.012 + 0.03 * fbm(along * 4, across * 0, 4, 41)) / 0.036) ** 1.3)
    dark = np.clip(smooth(0.20, 0.52, dust) * np.sqrt(core) * 0.60 + lane * 0.80 * (0.50 + 0.9 * fbm(along * 8, across * 13, 8, 43, 0.6)), 0, 0.93)
    glow = (0.30 * wide + (0.62 + 0.95 * heart) * core) * np.clip(cloud, 0.12, 2) * (1 - dark)
    tint = mix(colour("#8aa4d8"), colour("#ffdcb4"), np.clip(core * (0.55 + 0.6 * heart), 0, 1))
    clear = smooth(0.02, 0.34, up)
    light = light + glow[..., None] * tint * 0.36 * clear[..., None]
    nebula = smooth(0.42, 0.75, fbm(along * 7 + 40, across * 7, 5, 51)) * core
    light = light + nebula[..., None] * colour("#e0567a") * 0.10 * clear[..., None]
    band = np.clip(0.12 + 0.9 * wide * np.clip(cloud, 0.2, 1.4) * (1 - 0.9 * dark), 0, 1)
    light = light + stars(height, width, band, random) * (0.25 + 0.75 * clear[..., None])

    # Ridges, each nearer one darker, then trees.
    rows = np.arange(height)[:, None]
    for index, (base, rise, tone, haze) in enumerate([
            (0.800, 0.085, colour("#22384a") * 0.42, 0.5),
            (0.850, 0.070, colour("#14222e") * 0.36, 0.35),
            (0.905, 0.050, colour("#0a1118") * 0.32, 0.2)]):
        line = u[0] * (2.6 + 1.3 * index) + 13.7 * index
        edge = (base - rise * 1.5 * fbm(line * 0.8, line * 0 + 3.3 * index, 8, 71 + index, 0.48)
                - 0.0025 * np.abs(noise(line * 75, line * 0, 75)))
        cover = np.clip(rows - (edge * height)[None, :] + 0.5, 0, 1)
        below = np.clip((v - edge[None, :]) / 0.12, 0, 1)
        body = mix(tone * 0.75, mix(tone, colour("#3d6478") * 0.30, haze), below)
        light = mix(light, body, cover)
    canvas = np.zeros((height, width))
    bank = (0.968 - 0.05 * smooth(0.35, 0.0, u[0]) - 0.07 * smooth(0.70, 1.0, u[0]) - 0.008 * noise(u[0] * 12, u[0] * 0, 81)) * height
    canvas[:] = np.clip(rows - bank[None, :], 0, 1)
    for _ in range(120):
        x = random.random()
        side = abs(x - 0.47) * 2
        if random.random() > 0.25 + side ** 1.5:
            continue
        tall = height * (0.035 + 0.15 * side ** 2.2) * random.uniform(0.5, 1.15)
        conifer(canvas, x * width, bank[int(x * width)] + 5, tall, random, 0.17)
    light = mix(light, colour("#05080c") * 0.30, canvas)

    # A hut with one window.
    x, y = int(0.435 * width), int(0.952 * height)
    w, h = int(0.026 * width), int(0.024 * height)
    light[y - h:y + 8, x:x + w] = colour("#0b0d10") * 0.25
    for row in range(h):
        half = int((w * 0.62) * row / h)
        light[y - 2 * h + row + 2, x + w // 2 - half:x + w // 2 + half] = colour("#07090c") * 0.25
    pane = np.zeros_like(light)
    px, py, s = x + int(w * 0.56), y - int(h * 0.62), max(2, int(0.0038 * width))
    pane[py:py + s, px:px + s] = colour("#ffb45a") * 2.4
    light = np.where(pane > 0, pane, light) + blur(pane, 7 * width / 1920) * 0.9 + blur(pane, 26 * width / 1920) * 1.2
    return develop(bloom(light, 0.08, 20), 1.5, grain=0.010, warm=-0.005, saturation=1.12, vignette=0.40, shadows="#060c18", seed=9)
