"""What the scenes share: noise, terrain, water, trees, blur, and what a camera and a laboratory do to light."""

import os

import numpy as np
from PIL import Image

SIZE = (1280, 720)
OVER = float(os.environ.get("OVER", 1.25))  # rendered that much larger, then scaled down; 0.5 for a quick look


def colour(text):
    """A linear colour from #rrggbb."""
    srgb = np.array([int(text[i:i + 2], 16) for i in (1, 3, 5)]) / 255.0
    return np.where(srgb <= 0.04045, srgb / 12.92, ((srgb + 0.055) / 1.055) ** 2.4)


def mix(a, b, t):
    """a where t is 0, b where t is 1; t may be a plane while a and b are colours."""
    t = np.asarray(t)
    if t.ndim == 2:
        t = t[..., None]
    return a + (b - a) * t


def smooth(low, high, x):
    t = np.clip((x - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def grid(width=None, height=None):
    """Pixel centres: u from 0 to 1 over the width, v from 0 to 1 down the height."""
    width, height = width or int(SIZE[0] * OVER), height or int(SIZE[1] * OVER)
    return np.meshgrid((np.arange(width) + 0.5) / width, (np.arange(height) + 0.5) / height)


# Noise ---------------------------------------------------------------------------------------------------------------

def _hash(ix, iy, seed):
    h = ix.astype(np.uint32) * np.uint32(374761393) + iy.astype(np.uint32) * np.uint32(668265263)
    h += np.uint32(seed * 1442695041 & 0xFFFFFFFF)
    h = (h ^ (h >> np.uint32(13))) * np.uint32(1274126177)
    return ((h ^ (h >> np.uint32(16))) & np.uint32(0xFFFFFF)).astype(np.float32) / np.float32(0xFFFFFF)


def noise(x, y, seed=0, slopes=False):
    """Value noise from -1 to 1, smooth to the second derivative; with its slopes if wanted."""
    fx, fy = np.floor(x), np.floor(y)
    ix, iy = fx.astype(np.int64), fy.astype(np.int64)
    tx, ty = (x - fx).astype(np.float32), (y - fy).astype(np.float32)
    a, b = _hash(ix, iy, seed), _hash(ix + 1, iy, seed)
    c, d = _hash(ix, iy + 1, seed), _hash(ix + 1, iy + 1, seed)
    sx = tx * tx * tx * (tx * (tx * 6 - 15) + 10)
    sy = ty * ty * ty * (ty * (ty * 6 - 15) + 10)
    k = a - b - c + d
    value = 2 * (a + (b - a) * sx + (c - a) * sy + k * sx * sy) - 1
    if not slopes:
        return value
    dx = 30 * tx * tx * (tx * (tx - 2) + 1)
    dy = 30 * ty * ty * (ty * (ty - 2) + 1)
    return value, 2 * dx * (b - a + k * sy), 2 * dy * (c - a + k * sx)


def fbm(x, y, octaves=6, seed=0, gain=0.5, step=2.03):
    total, amplitude, weight = 0, 1.0, 0.0
    for octave in range(octaves):
        total = total + amplitude * noise(x, y, seed + octave)
        weight += amplitude
        amplitude *= gain
        x, y = step * (0.8 * x + 0.6 * y) + 17.3, step * (-0.6 * x + 0.8 * y) + 9.1
    return total / weight


def ridges(x, y, octaves=6, seed=0, gain=0.5):
    total, amplitude, weight, last = 0, 1.0, 0.0, 1.0
    for octave in range(octaves):
        n = 1 - np.abs(noise(x, y, seed + octave))
        n = n * n * last
        last = np.clip(n * 1.6, 0, 1)
        total = total + amplitude * n
        weight += amplitude
        amplitude *= gain
        x, y = 2.07 * (0.8 * x + 0.6 * y) + 3.7, 2.07 * (-0.6 * x + 0.8 * y) + 1.9
    return total / weight


def eroded(x, y, octaves=9, seed=0):
    """Mountains: octaves count less where the slope is steep, as water would have it."""
    total, sx, sy, amplitude = 0, 0, 0, 1.0
    for octave in range(octaves):
        n, dx, dy = noise(x, y, seed + octave, slopes=True)
        sx, sy = sx + dx, sy + dy
        total = total + amplitude * n / (1 + 0.35 * (sx * sx + sy * sy))
        amplitude *= 0.5
        x, y = 2.0 * (0.8 * x + 0.6 * y) + 5.2, 2.0 * (-0.6 * x + 0.8 * y) + 2.8
    return total


# Terrain -------------------------------------------------------------------------------------------------------------

class View:
    """A camera that looks along +z. Its pictures are (height, width) planes."""

    def __init__(self, width, height, eye, horizon, field=1.0):
        self.width, self.height, self.eye, self.horizon, self.field = width, height, eye, horizon, field
        self.side = (np.arange(width) + 0.5) / width * 2 - 1      # times depth times field: x
        self.scale = width / 2 / field                            # pixels per unit at depth 1

    def rows(self):
        return np.arange(self.height) + 0.5

    def march(self, terrain, near, far, steps=int(900 * OVER)):
        """The depth at which each pixel meets the ground; infinite where it meets none."""
        depth = near * (far / near) ** (np.arange(steps) / (steps - 1))
        x = self.side[None, :] * depth[:, None] * self.field
        ground = terrain(x, np.broadcast_to(depth[:, None], x.shape))
        up = (ground - self.eye) / depth[:, None] * self.scale    # pixels above the horizon
        up = np.maximum.accumulate(up, axis=0)
        wanted = self.horizon * self.height - self.rows()
        result = np.full((self.height, self.width), np.inf)
        for column in range(self.width):
            line = up[:, column]
            hit = np.searchsorted(line, wanted)
            inside = (hit > 0) & (hit < steps)
            h = hit[inside]
            low, high = line[h - 1], line[h]
            t = np.where(high > low, (wanted[inside] - low) / np.maximum(high - low, 1e-9), 1)
            result[inside, column] = depth[h - 1] + (depth[h] - depth[h - 1]) * t
            result[hit == 0, column] = near
        return result

    def water(self, level=0.0):
        """The depth at which each pixel meets a level plane."""
        down = self.rows() - self.horizon * self.height
        depth = np.where(down > 0, (self.eye - level) * self.scale / np.maximum(down, 1e-6), np.inf)
        return np.broadcast_to(depth[:, None], (self.height, self.width))


def normals(terrain, x, z, reach):
    """Unit normals of the ground: x, up, z."""
    dx = (terrain(x + reach, z) - terrain(x - reach, z)) / (2 * reach)
    dz = (terrain(x, z + reach) - terrain(x, z - reach)) / (2 * reach)
    length = np.sqrt(dx * dx + dz * dz + 1)
    return -dx / length, 1 / length, -dz / length


def lit(terrain, x, z, light, reach, steps=20):
    """How much of the light reaches the ground past other ground, 0 to 1, with soft edges."""
    height = terrain(x, z)
    free = np.ones_like(height)
    distance = reach * 0.01
    for _ in range(steps):
        over = height + light[1] * distance - terrain(x + light[0] * distance, z + light[2] * distance)
        free = np.minimum(free, np.clip(0.5 + 9 * over / distance, 0, 1))
        distance *= (100.0) ** (1 / steps)
    return free


# Trees ---------------------------------------------------------------------------------------------------------------

def conifer(canvas, x, base, tall, random, slim=0.19):
    """Draws the cover of one conifer into a plane, in pixels."""
    height, width = canvas.shape
    half = tall * slim * random.uniform(0.85, 1.15)
    left, right = int(max(0, x - half - 2)), int(min(width, x + half + 3))
    top, bottom = int(max(0, base - tall)), int(min(height, base + 1))
    if left >= right or top >= bottom:
        return
    px, py = np.meshgrid(np.arange(left, right) - x, np.arange(top, bottom))
    t = np.maximum(py - (base - tall), 0) / tall                                # 0 at the tip
    seed = int(random.integers(1 << 20))
    layers = max(7, min(26, tall / 9))
    sag = np.abs(px) / max(half, 1) * 0.55
    phase = (t * layers * (1.25 - 0.25 * t) - sag * 1.3 + 0.35 * np.sign(px)) % 1.0
    edge = half * t ** 0.82 * (0.42 + 0.58 * phase)
    edge = edge * (0.8 + 0.45 * noise(np.sign(px) * 7 + 20, t * layers * 1.7, seed))
    edge = edge + half * 0.16 * noise(px * 0.5, py * 0.5, seed + 1) * (0.3 + t)
    ragged = noise(px * 0.9, py * 0.9, seed + 2) * 0.9
    cover = np.clip(edge - np.abs(px) + 0.5 + ragged * np.minimum(1, half / 14), 0, 1)
    stem = np.clip(tall * 0.011 * (0.25 + t) - np.abs(px) + 0.6, 0, 1) * (t > 0.01)
    cover = np.maximum(np.where(t < 0.94, cover, 0), stem)
    part = canvas[top:bottom, left:right]
    np.maximum(part, cover, out=part)


# Blur and light ------------------------------------------------------------------------------------------------------

def blur(picture, radius):
    """A Gaussian blur, sigma in pixels, of a plane or of colours."""
    if picture.ndim == 3:
        return np.dstack([blur(picture[..., i], radius) for i in range(3)])
    pad = int(radius * 3) + 1
    wide = np.pad(picture, pad, mode="edge")
    fy, fx = np.fft.fftfreq(wide.shape[0]), np.fft.rfftfreq(wide.shape[1])
    kernel = np.exp(-2 * (np.pi * radius) ** 2 * (fy[:, None] ** 2 + fx[None, :] ** 2))
    return np.fft.irfft2(np.fft.rfft2(wide) * kernel, wide.shape)[pad:-pad, pad:-pad]


def defocus(picture, radius, blades=7):
    """What a lens out of focus makes of a picture: each point becomes the shape of the aperture."""
    pad = int(radius) + 2
    y, x = np.mgrid[-pad:pad + 1, -pad:pad + 1]
    sector = 2 * np.pi / blades
    angle = (np.arctan2(y, x) + 0.4) % sector - sector / 2
    reach = radius * np.cos(sector / 2) / np.cos(angle) * 0.5 + radius * 0.5
    distance = np.hypot(x, y)
    aperture = np.clip(reach - distance + 0.5, 0, 1) * (0.75 + 0.35 * (distance / radius) ** 3)
    aperture /= aperture.sum()
    result = np.empty_like(picture)
    for channel in range(3):
        wide = np.pad(picture[..., channel], pad, mode="edge")
        kernel = np.zeros_like(wide)
        kernel[:aperture.shape[0], :aperture.shape[1]] = aperture
        kernel = np.roll(kernel, (-pad, -pad), (0, 1))
        full = np.fft.irfft2(np.fft.rfft2(wide) * np.fft.rfft2(kernel), wide.shape)
        result[..., channel] = full[pad:-pad, pad:-pad]
    return np.maximum(result, 0)


def bloom(picture, amount=0.06, radius=24):
    return picture * (1 - amount) + amount * (0.6 * blur(picture, radius) + 0.4 * blur(picture, radius * 3.5))


def sample(picture, x, y):
    """Colours at places that lie between pixels."""
    height, width = picture.shape[:2]
    x, y = np.clip(x, 0, width - 1.001), np.clip(y, 0, height - 1.001)
    ix, iy = x.astype(int), y.astype(int)
    tx, ty = (x - ix)[..., None], (y - iy)[..., None]
    top = picture[iy, ix] * (1 - tx) + picture[iy, ix + 1] * tx
    bottom = picture[iy + 1, ix] * (1 - tx) + picture[iy + 1, ix + 1] * tx
    return top * (1 - ty) + bottom * ty


def develop(light, exposure=1.0, grain=0.0045, vignette=0.35, warm=0.0, saturation=1.0, shadows="#0a1420", seed=1,
            size=SIZE):
    """Linear light to a picture of a size: tone curve, split toning, vignette, grain."""
    height, width = light.shape[:2]
    u, v = grid(width, height)
    fall = 1 - vignette * smooth(0.25, 1.05, np.hypot((u - 0.5) * 1.15, v - 0.5) * 1.45)
    light = np.maximum(light, 0) * exposure * fall[..., None]
    light = light * np.array([1 + warm, 1.0, 1 - warm])
    grey = light @ np.array([0.2126, 0.7152, 0.0722])
    light = np.maximum(grey[..., None] + (light - grey[..., None]) * saturation, 0)
    film = light * (2.51 * light + 0.03) / (light * (2.43 * light + 0.59) + 0.14)
    film = np.clip(film, 0, 1)
    film = film + colour(shadows) * (1 - film) ** 6 * 0.8
    picture = Image.fromarray(np.uint8(np.clip(film, 0, 1) ** (1 / 2.2) * 255 + 0.5)).resize(size, Image.LANCZOS)
    pixels = np.asarray(picture).astype(float) / 255
    random = np.random.default_rng(seed)
    coarse = blur(random.normal(0, 1, pixels.shape[:2]), 0.75) * 2.2
    tint = blur(random.normal(0, 1, pixels.shape), 0.75) * 0.6
    strength = grain * (1.15 - 0.7 * pixels)
    pixels = pixels + (coarse[..., None] + tint) * strength
    return Image.fromarray(np.uint8(np.clip(pixels, 0, 1) * 255 + 0.5))
