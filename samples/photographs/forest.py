"""A forest of conifers in morning mist, with light that falls through it."""

import numpy as np

from kit import bloom, blur, colour, conifer, develop, fbm, grid, mix, noise, smooth


def make():
    u, v = grid()
    height, width = u.shape
    random = np.random.default_rng(41)
    source = np.hypot((u - 0.66) * 1.5, v - 0.10)
    light = mix(colour("#e9d8b0") * 1.25, colour("#8fa3a6") * 0.62, smooth(0.0, 0.95, source))
    light = light * (1 + 0.10 * fbm(u * 2.4, v * 2.4, 4, 11)[..., None])
    rows = np.arange(height)[:, None]

    layers = 9
    for layer in range(layers):
        near = layer / (layers - 1)
        ground = 0.50 + 0.10 * near + 0.40 * near ** 2.2
        slope = 0.10 * (1 - near) * np.sin(u[0] * 2.3 + layer * 1.9) + 0.03 * noise(u[0] * 4, u[0] * 0 + layer, 21)
        bank = (ground - 0.06 + slope + 0.006 * noise(u[0] * 60, u[0] * 0 + layer, 23)) * height
        canvas = np.clip(rows - bank[None, :], 0, 1)
        tall = height * (0.12 + 0.34 * near + 0.55 * near ** 3)
        count = int(105 * (1 - near) ** 1.35) + 9
        for _ in range(count):
            x = random.uniform(-0.05, 1.05)
            if near > 0.6 and 0.36 < x < 0.80 and random.random() < 0.93:
                continue                                            # a clearing to look through
            base = bank[int(np.clip(x * width, 0, width - 1))] + random.uniform(0, 0.03) * height
            conifer(canvas, x * width, base, tall * random.uniform(0.55, 1.12), random, 0.15)
        if near > 0.85:
            canvas = blur(canvas, 2.2 * width / 1920)
        tone = mix(colour("#7f9293") * 0.62, colour("#131c17") * 0.75, near ** 0.8)
        tone = tone * (1 + 0.35 * (1 - near) * np.exp(-(source / 0.45) ** 2))[..., None]
        leaves = 1 + (0.25 + 0.25 * near) * fbm(u * 90 * (1.4 - near), v * 120 * (1.4 - near), 4, 31 + layer)
        light = mix(light, tone * leaves[..., None], canvas * 0.985)

        # Mist between this layer and the next one: thick near the ground, in drifts.
        drift = fbm(u * (3.2 - 1.5 * near) + layer * 5.3, v * 7, 5, 51 + layer)
        low = np.exp(-((v - ground - 0.02) / (0.17 - 0.06 * near)) ** 2)
        veil = (1 - near) ** 0.8 * (0.24 + 0.42 * low * (1 + 0.9 * drift)) * (0.9 + 0.5 * drift)
        tint = mix(colour("#ecdcb8") * 1.12, colour("#93a6a8") * 0.66, smooth(0.0, 0.85, source))
        light = mix(light, tint, np.clip(veil, 0, 0.9))

    # Beams: light that is left after the crowns, smeared away from its source.
    angle = np.arctan2(u - 0.66, v + 0.16)
    beams = smooth(-0.1, 0.75, fbm(angle * 9, angle * 0 + 2, 4, 91)) * smooth(0.0, 0.12, v + 0.02)
    beams = beams * np.exp(-((v - 0.25) / 0.42) ** 2) * np.exp(-(angle / 0.85) ** 2)
    light = light + beams[..., None] * colour("#ffe2a4") * 0.26
    return develop(bloom(light, 0.16, 30), 0.92, warm=0.015, saturation=0.98, vignette=0.42, shadows="#0c1612", seed=8)
