"""A city at night across the water, out of focus: lamps as discs of light."""

import numpy as np

from kit import bloom, blur, colour, defocus, develop, fbm, grid, mix, noise, sample, smooth

LAMPS = ["#ffb35c", "#ffc98a", "#ffd9a8", "#ff9a3d", "#fff0dc", "#cfe2ff", "#8fc4ff", "#ff5a4a", "#5fe0c0", "#ff7fb0"]
ODDS = np.array([20, 18, 14, 12, 10, 8, 5, 4, 2, 2]) / 95.0


def towers(light, random, shore, count, tall, tone, dim, scale):
    """Rows of houses with lit windows."""
    height, width = light.shape[:2]
    for _ in range(count):
        x = random.uniform(-0.03, 1.0)
        w = random.uniform(0.022, 0.060) * (0.7 + 0.3 * scale)
        crowd = 0.35 + 0.65 * np.exp(-((x - 0.60) / 0.25) ** 2)
        h = tall * crowd * random.uniform(0.35, 1.0)
        left, right = int(max(0, x * width)), int(min(width, (x + w) * width))
        top, bottom = int((shore - h) * height), int(shore * height)
        if right - left < 6 or top >= bottom:
            continue
        body = tone * random.uniform(0.6, 1.3)
        fade = np.linspace(0.55, 1.5, bottom - top)[:, None, None]
        light[top:bottom, left:right] = body * fade
        if random.random() < 0.35:
            mast = (left + right) // 2
            light[max(0, top - int(0.05 * height)):top, mast:mast + 2] = body * 0.8
            light[max(0, top - int(0.05 * height)) - 2:max(0, top - int(0.05 * height)) + 2, mast - 1:mast + 3] = colour("#ff4030") * 2.5
        pane = max(3, int(width * 0.0042 * scale))
        gap = max(2, int(pane * 0.8))
        glow = colour(random.choice(["#ffd09a", "#ffe2bc", "#ffc070", "#d8e6ff"]))
        share = random.uniform(0.18, 0.55)
        for y in range(top + gap, bottom - pane, pane + gap):
            floor = random.random() < 0.07
            for c in range(left + gap, right - pane, pane + gap):
                if floor or random.random() < share:
                    light[y:y + pane, c:c + pane] = glow * dim * random.uniform(0.25, 1.6)


def make():
    u, v = grid()
    height, width = u.shape
    random = np.random.default_rng(23)
    shore = 0.60
    up = np.clip((shore - v) / shore, 0, 1)
    clouds = fbm(u * 3.1, v * 6.5, 6, 7)
    light = mix(colour("#b06a4a") * 0.30, colour("#101c3c") * 0.55, smooth(0.0, 0.75, up))
    light = mix(light, colour("#6d4a58") * 0.34, smooth(0.0, 0.6, clouds) * smooth(0.9, 0.1, up) * 0.7)
    towers(light, random, shore, 90, 0.36, colour("#1c2236") * 0.55, 0.55, 0.8)
    light = mix(light, colour("#6a4a4c") * 0.26, 0.45 * np.exp(-((v - shore) / 0.16) ** 2))
    towers(light, random, shore, 42, 0.44, colour("#121626") * 0.5, 1.1, 1.15)
    light[int(shore * height):] = 0

    # Street lamps along the quay, cars, and signs.
    for _ in range(210):
        x, y = random.random(), shore - abs(random.normal(0, 0.011)) - 0.004
        size = random.integers(2, 4)
        lamp = colour(random.choice(LAMPS, p=ODDS)) * random.uniform(6, 46)
        row, column = int(y * height), int(x * width)
        light[row:row + size, column:column + size] = lamp

    sharp = light.copy()
    skyline = defocus(light, 7.5 * width / 1920)

    # The river: the same lights upside down, drawn long by waves.
    drop = np.maximum(v - shore, 0)
    source = blur(defocus(sharp, 8 * width / 1920), 1.0)
    wave = fbm(u * 26, v * 170 / (0.25 + drop * 3), 4, 61)
    total = 0
    for k in range(7):
        reach = drop * (0.35 + 0.33 * k)
        total = total + sample(source, u * width + wave * (6 + 60 * drop) * (0.5 + 0.2 * k), (shore - reach - 0.003) * height)
    river = total / 7 * (0.95 - 0.5 * smooth(0, 0.4, drop))[..., None] + colour("#070d1a") * 0.5
    glint = smooth(-0.2, 0.7, fbm(u * 30, v * 150, 3, 67))
    river = river * (0.45 + 0.9 * glint)[..., None]
    light = np.where((v > shore)[..., None], river, skyline)

    # Lamps close to the lens, on the railing: large faint discs, the nearest ones the largest.
    for radius, count, power in ((20, 16, 150), (34, 11, 300), (52, 6, 480)):
        near = np.zeros_like(light)
        for _ in range(count):
            x, y = random.uniform(0.02, 0.98), random.normal(0.62 + 0.0048 * radius, 0.045)
            lamp = colour(random.choice(LAMPS, p=ODDS)) * random.uniform(0.4, 1.3) * power * (width / 1920) ** 2
            near[int(np.clip(y, 0, 0.985) * height), int(x * width)] += lamp
        light = light + blur(defocus(near, radius * width / 1920), 1.2 * width / 1920)
    return develop(bloom(light, 0.16, 34), 1.35, warm=0.01, saturation=1.12, vignette=0.45, shadows="#0a0f1e", seed=5)
