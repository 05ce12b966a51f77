"""A lighthouse on its cliff after sunset, its beam in the haze."""

import numpy as np

from kit import View, bloom, blur, colour, develop, eroded, fbm, grid, mix, noise, normals, smooth


def terrain(x, z):
    head = smooth(3.1, 0.9, np.abs(x - 1.65 + 0.35 * noise(z * 0.9, x * 0, 3)) + 0.74 * np.abs(z - 6.0))
    cliff = head ** 0.55 * (0.92 + 0.34 * eroded(x * 0.75 + 4, z * 0.75, 9, 11) * (1 - 0.72 * smooth(0.72, 1.0, head)))
    back = smooth(1.5, 5.5, x - 0.05 * z) * smooth(8, 12, z) * (1.2 + 0.5 * eroded(x * 0.4, z * 0.4 + 9, 8, 21))
    rocks = 0.34 * smooth(0.10, 0.7, fbm(x * 1.5 + 2, z * 1.5, 6, 31)) * smooth(6.4, 4.0, z) * smooth(2.5, 3.3, z) * smooth(-1.2, 0.6, x)
    return np.maximum(np.maximum(cliff, back), rocks) - 0.06


def sky(u, up):
    up = np.maximum(up, 0)
    light = mix(colour("#e59a70") * 0.90, colour("#6f7fa6") * 0.60, smooth(0.0, 0.24, up))
    light = mix(light, colour("#22386a") * 0.55, smooth(0.16, 0.66, up))
    light = light + np.exp(-(((u - 0.16) / 0.33) ** 2 + (up / 0.16) ** 2))[..., None] * colour("#ff8f54") * 0.75
    depth = 1 / (up + 0.11)
    x, y = (u - 0.4) * depth * 1.4, depth * 1.5
    warp = fbm(x * 0.5, y * 0.5 + 3, 4, 41)
    body = fbm(x * 0.55 + warp, y * 1.15 + 0.7 * warp, 8, 43, 0.52)
    cover = smooth(0.0, 0.45, body) * smooth(0.02, 0.12, up)
    warmth = np.exp(-((u - 0.16) / 0.5) ** 2 - (up / 0.34) ** 2)
    clouds = mix(colour("#2c3b64") * 0.55, colour("#f0906a") * 0.95, np.clip(warmth * 1.1 * (1.1 - smooth(0, 0.6, body)), 0, 1))
    return mix(light, clouds, cover * 0.75)


def make():
    u, v = grid()
    height, width = u.shape
    horizon, eye, field = 0.66, 0.50, 0.72
    view = View(width, height, eye, horizon, field)
    light = sky(u, horizon - v)
    far = view.water()
    z = np.minimum(far, 300.0)
    x = view.side[None, :] * z * field
    drop = v - horizon
    _, sx1, sz1 = noise(x * 1.6 + 4, z * 3.0, 53, slopes=True)
    _, sx2, sz2 = noise(x * 4.6 + 1, z * 9.0 + 3, 54, slopes=True)
    calm = 1 / (1 + z / 14.0)
    tilt_x, tilt_z = 0.02 * sx1 + 0.016 * sx2 * calm, 0.035 * sz1 + 0.03 * sz2 * calm
    mirrored = sky(np.clip(u + tilt_x, -0.2, 1.2), np.abs(drop * 0.95 + tilt_z * 0.6) + 0.004)
    grazing = np.clip(0.08 + 0.9 * np.exp(-np.maximum(drop, 0) * 4.5), 0, 1)
    sea = mirrored * (grazing * 0.8)[..., None] + colour("#0f2a40") * 0.30 * (1 - grazing)[..., None]
    foam = smooth(-0.02, 0.04, terrain(x, np.minimum(z, 30)) + 0.05 + 0.03 * fbm(x * 4, z * 4, 4, 81)) * smooth(12, 4, z)
    foam = np.clip(foam * 0.55 + smooth(0.3, 0.8, fbm(x * 2, z * 6, 6, 83)) * smooth(4.5, 2.2, z) * 0.25, 0, 0.8)
    foam = foam * smooth(2.3, 3.4, z)
    sea = mix(sea, colour("#b9bccb") * 0.55, foam)

    # The tower stands on the top of the head; its foot is where the ground is highest there.
    tower_x, tower_z = 1.42, 6.0
    foot_h = float(terrain(np.array([[tower_x]]), np.array([[tower_z]]))[0, 0]) - 0.03
    scale = view.scale / tower_z
    cx = (tower_x / (tower_z * field) + 1) / 2 * width
    foot = horizon * height - (foot_h - eye) * scale
    tall = 1.20 * scale
    lamp_x, lamp_y = cx, foot - tall * 0.955

    # The beam: light that haze scatters, in two arms.
    px, py = u * width - lamp_x, v * height - lamp_y
    reach = np.hypot(px, py) + 1
    haze_noise = 1 + 0.35 * fbm(u * 5, v * 9, 5, 91)
    beam = 0
    for angle, power in ((np.radians(188.5), 1.0), (np.radians(3), 0.5)):
        along = px * np.cos(angle) + py * np.sin(angle)
        across = -px * np.sin(angle) + py * np.cos(angle)
        wide = 0.006 * width + 0.066 * np.maximum(along, 0)
        beam = beam + power * (along > 0) * np.exp(-(across / wide) ** 2) * np.exp(-along / (0.62 * width)) * (0.012 * width / wide) ** 0.42
    glow = 0.9 * np.exp(-reach / (0.011 * width)) + 0.16 * np.exp(-reach / (0.06 * width))

    depth = view.march(terrain, 2.2, 30.0)
    ashore = np.isfinite(depth) & (depth < far)
    d = np.where(ashore, depth, 30.0)
    lx = view.side[None, :] * d * field
    nx, ny, nz = normals(terrain, lx, d, 0.007)
    detail = fbm(lx * 11, d * 11, 5, 71)
    ground = terrain(lx, d)
    rock = mix(colour("#33343c"), colour("#675c58"), 0.5 + 0.5 * detail)
    grass = smooth(0.60, 0.82, ny + 0.1 * detail) * smooth(0.45, 0.75, ground)
    land = mix(rock, colour("#39412e") * (0.9 + 0.5 * detail)[..., None], grass)
    west = np.clip(-0.86 * nx + 0.25 * ny + 0.25 * nz, 0, 1)
    land = land * (colour("#6d86c0") * (0.40 + 0.36 * ny)[..., None] + west[..., None] * colour("#ff9a68") * 0.95)
    land = land * (1 - 0.45 * smooth(0.12, 0.0, ground) * smooth(8, 3, d))[..., None]
    air = 1 - np.exp(-(d / 19.0) ** 1.6)
    haze = mix(colour("#7c86a8"), colour("#e59a70"), np.exp(-((u - 0.16) / 0.33) ** 2)) * 0.62
    land = mix(land, haze, np.clip(air, 0, 0.85))
    land = mix(land, haze, np.exp(-np.maximum(ground, 0) / 0.12) * smooth(3, 9, d) * 0.45)

    light = np.where((v > horizon)[..., None], sea, light)
    light = light + (beam * haze_noise)[..., None] * colour("#ffe2ac") * 0.85 * (v < horizon + 0.02)[..., None]
    light = np.where(ashore[..., None], land, light)

    # The tower itself.
    t = (foot - v * height) / tall
    half = tall * np.where(t < 0.82, 0.066 - 0.024 * t, 0)
    half = np.where((t >= 0.82) & (t < 0.845), tall * 0.062, half)
    half = np.where((t >= 0.845) & (t < 0.865), tall * 0.056, half)
    half = np.where((t >= 0.865) & (t < 0.935), tall * 0.033, half)
    half = np.where((t >= 0.935) & (t < 1.0), tall * 0.043 * np.sqrt(np.clip((1.0 - t) / 0.065, 0, 1)), half)
    half = np.where((t >= 1.0) & (t < 1.035), tall * 0.0035, half)
    side = (u * width - cx) / np.maximum(half, 1)
    cover = np.clip(half - np.abs(u * width - cx) + 0.5, 0, 1) * (t > -0.06) * (half > 0)
    round_ = np.clip(np.sqrt(np.maximum(1 - side * side, 0)), 0, 1)
    red = (t > 0.26) & (t < 0.50)
    paint = np.where(red[..., None], colour("#9c3a30"), colour("#dcd8d0"))
    paint = np.where((t >= 0.82)[..., None], colour("#3a3438"), paint)
    shade = colour("#7088c0") * (0.38 + 0.16 * round_)[..., None] + np.clip(-side * 0.75 + 0.35 * round_, 0, 1)[..., None] * colour("#ffa070") * 0.80
    wear = 1 + 0.10 * fbm(u * 180, v * 60, 4, 95)
    tower = paint * shade * wear[..., None]
    for y in (0.15, 0.38, 0.62):
        pane = (np.abs(t - y) < 0.014) & (np.abs(side - 0.1) < 0.17)
        tower = np.where(pane[..., None], colour("#ffb85c") * 0.9 if y == 0.15 else colour("#1c1a20") * 0.5, tower)
    lantern = (t >= 0.868) & (t < 0.932) & (np.abs(np.abs(side) - 0.5) > 0.07)
    tower = np.where(lantern[..., None], colour("#ffeec4") * 6.0, tower)
    light = mix(light, tower, cover)

    # The keeper's house beside it.
    hw, hh = tall * 0.20, tall * 0.105
    hx, hy = cx + tall * 0.17, foot + tall * 0.025
    dx, dy = u * width - hx, hy - v * height
    wall = (np.abs(dx) < hw / 2) & (dy > -tall * 0.05) & (dy < hh * 0.62)
    roof = (dy >= hh * 0.62) & (dy < hh * 1.25) & (np.abs(dx) < hw * 0.56 - (dy - hh * 0.62) * 0.75)
    light = np.where(wall[..., None], colour("#c9c4bc") * (colour("#6d86c0") * 0.42 + colour("#ffa070") * 0.10), light)
    light = np.where(roof[..., None], colour("#3c3034") * 0.32, light)
    for offset in (-0.26, 0.05, 0.30):
        pane = (np.abs(dx - hw * offset) < hw * 0.055) & (np.abs(dy - hh * 0.34) < hh * 0.14)
        light = np.where(pane[..., None], colour("#ffb458") * 1.7, light)
    light = light + glow[..., None] * colour("#ffe4b0") * 1.5
    return develop(bloom(light, 0.12, 26), 1.18, grain=0.009, warm=0.0, saturation=1.05, vignette=0.40, shadows="#0a1222", seed=7)
