"""Draws the sample pictures: one layer with soft transparency and patterns that tile without a seam.

Every picture is computed from fixed seeds, so that drawing again gives the same pictures.
usage: draw_samples.py [FOLDER]      (default: the folder of this script)
"""

import sys
from pathlib import Path

import numpy as np
from PIL import Image


def grid(width, height):
    """Pixel centres as x and y arrays."""
    return np.meshgrid(np.arange(width) + 0.5, np.arange(height) + 0.5)


def smoothstep(low, high, value):
    t = np.clip((value - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def mix(first, second, weight):
    """Blends two colours, or pictures, by a weight per pixel."""
    first, second = np.asarray(first, float), np.asarray(second, float)
    return first + (second - first) * weight[..., None]


def color(code):
    return np.array([int(code[i : i + 2], 16) for i in (1, 3, 5)]) / 255


def periodic_noise(width, height, seed, sharpness):
    """Noise of deviation 1 without a seam: white noise whose spectrum falls with the frequency."""
    spectrum = np.fft.fft2(np.random.default_rng(seed).standard_normal((height, width)))
    frequency = np.hypot(np.fft.fftfreq(height)[:, None] * height, np.fft.fftfreq(width)[None, :] * width)
    noise = np.fft.ifft2(spectrum / np.maximum(frequency, 1) ** sharpness).real
    return (noise - noise.mean()) / noise.std()


def wrapped(distance, period):
    """A distance on a ring, -period/2 to period/2."""
    return (distance + period / 2) % period - period / 2


def to_bytes(picture):
    return np.clip(np.rint(picture * 255), 0, 255).astype(np.uint8)


def with_alpha(rgb, alpha):
    return np.dstack([rgb, alpha])


def layer():
    """A valley at dusk whose sky, borders and foot fade away."""
    width, height = 1920, 1080
    x, y = grid(width, height)
    sky = mix(color("#274b7a"), color("#f6c28b"), smoothstep(0, 640, y))
    sky = mix(sky, color("#f08a5d"), smoothstep(380, 700, y) * 0.7)
    sun = np.hypot(x - 1240, y - 470)
    sky = mix(sky, color("#fff1cf"), np.exp(-sun / 210) * 0.85)
    picture = mix(sky, color("#fff8e4"), 1 - smoothstep(92, 95, sun))

    random = np.random.default_rng(7)
    near, far = color("#16222f"), color("#c9788a")
    ridges = 6
    for ridge in range(ridges):
        depth = ridge / (ridges - 1)
        line = 560 + 400 * depth**1.25
        for octave in range(1, 8):
            reach = (70 - 28 * depth) / octave**1.15
            line = line + reach * np.sin(x * octave * (0.0021 + 0.0011 * depth) + random.uniform(0, 2 * np.pi))
        body = mix(far, near, np.full_like(x, depth**0.8))
        mist = mix(body, color("#f7c9a4"), smoothstep(20, 230, y - line) * (0.55 - 0.4 * depth))
        picture = mix(picture, mist, smoothstep(-1, 1, y - line))

    alpha = np.clip(smoothstep(0, 420, y + 60) * smoothstep(0, 260, height - y + 20), 0, 1)
    alpha = alpha * smoothstep(0, 300, np.minimum(x, width - x))
    return with_alpha(picture, alpha)


def woven():
    """A twill of two threads: each thread is a rounded bar that dives under the crossing ones."""
    size, thread = 256, 16
    x, y = grid(size, size)
    column, row = (x // thread).astype(int), (y // thread).astype(int)
    warp_on_top = (column + row) % 4 < 2
    across_warp = (x % thread) / thread * 2 - 1
    across_weft = (y % thread) / thread * 2 - 1
    # The thread's height along its run: highest in the middle of the two crossings that it spans.
    start = np.where(warp_on_top, (row + column) % 4, (column + row + 2) % 4)
    along = (start + np.where(warp_on_top, y % thread, x % thread) / thread) / 2
    lift = np.sin(np.pi * np.clip(along, 0, 1))
    across = np.where(warp_on_top, across_warp, across_weft)
    light = (0.45 + 0.55 * np.sqrt(np.clip(1 - (across * 0.96) ** 2, 0, 1))) * (0.62 + 0.38 * lift)
    fibres = periodic_noise(size, size, 11, 0.2) * 0.02
    twist = np.sin(2 * np.pi * np.where(warp_on_top, x + y, x - y) / 8) * 0.035
    thread_color = np.where(warp_on_top[..., None], color("#3f6c8f"), color("#e3d3b0"))
    return thread_color * np.clip(light + fibres + twist, 0, 1.1)[..., None]


def paper():
    """Handmade paper: broad clouds, fine tooth, and fibres."""
    size = 512
    x, y = grid(size, size)
    sheet = 0.9 + 0.012 * periodic_noise(size, size, 21, 1.3)
    tooth = periodic_noise(size, size, 22, 0.55)
    sheet = sheet + 0.022 * (tooth - np.roll(tooth, (1, 1), (0, 1)))
    random = np.random.default_rng(23)
    for _ in range(70):
        cx, cy, angle = random.uniform(0, size), random.uniform(0, size), random.uniform(0, np.pi)
        length, bend, shade = random.uniform(12, 45), random.uniform(-0.012, 0.012), random.uniform(-0.09, 0.05)
        dx, dy = wrapped(x - cx, size), wrapped(y - cy, size)
        along = dx * np.cos(angle) + dy * np.sin(angle)
        aside = -dx * np.sin(angle) + dy * np.cos(angle) - bend * along**2
        sheet = sheet + shade * np.exp(-((aside / 0.9) ** 2)) * smoothstep(length, length - 8, np.abs(along))
    return np.dstack([sheet * 1.0, sheet * 0.975, sheet * 0.925])


def dots():
    """Two sizes of dots in staggered rows, slightly domed."""
    size = 128
    x, y = grid(size, size)
    picture = mix(color("#f4efe6"), color("#eadfce"), 0.5 + 0.5 * np.sin(2 * np.pi * (x + y) / size))
    for cx, cy, radius, tone in [(32, 32, 21, "#d1495b"), (96, 96, 21, "#d1495b"), (96, 32, 10, "#00798c"),
                                 (32, 96, 10, "#00798c")]:
        dx, dy = wrapped(x - cx, size), wrapped(y - cy, size)
        distance = np.hypot(dx, dy)
        shadow = np.exp(-(np.hypot(dx - 3, dy - 4) / radius) ** 6) * 0.28
        picture = mix(picture, color("#5b4636"), shadow)
        dome = color(tone) * (1.12 - 0.22 * (np.hypot(dx + radius / 3, dy + radius / 3) / radius))[..., None]
        picture = mix(picture, dome, 1 - smoothstep(radius - 0.8, radius + 0.8, distance))
    return picture


def bricks():
    """A wall in running bond: each brick has its own tone, its worn edges and a lit upper rim."""
    width, height, brick_width, brick_height = 512, 512, 128, 64
    x, y = grid(width, height)
    row = (y // brick_height).astype(int)
    shifted = (x + (row % 2) * brick_width / 2) % width
    column = (shifted // brick_width).astype(int)
    wear = periodic_noise(width, height, 31, 1.0) * 1.3
    from_side = np.minimum(shifted % brick_width, brick_width - shifted % brick_width) + wear
    from_rim = np.minimum(y % brick_height, brick_height - y % brick_height) + wear
    face = smoothstep(3.2, 5.4, from_side) * smoothstep(3.2, 5.4, from_rim)
    random = np.random.default_rng(32)
    tones = random.uniform(-1, 1, (height // brick_height, width // brick_width))[row, column]
    warmth = random.uniform(0, 1, (height // brick_height, width // brick_width))[row, column]
    body = mix(color("#a4452f"), color("#c1714a"), warmth) * (1 + 0.13 * tones)[..., None]
    grain = periodic_noise(width, height, 33, 0.7)
    body = body * (1 + 0.07 * grain + 0.05 * periodic_noise(width, height, 34, 1.6))[..., None]
    relief = face - np.roll(face, (2, 2), (0, 1))
    mortar = color("#b9b0a2") * (0.86 + 0.05 * grain)[..., None]
    return mix(mortar, body, face) * (1 + 0.32 * relief)[..., None]


def waves():
    """Overlapping fans of rings, twice as wide as high."""
    width, height = 192, 96
    x, y = grid(width, height)
    picture = np.zeros((height, width, 3))
    radius, rows = width / 4, 4
    # Upper rows first: each fan covers the feet of those behind it.
    for row in range(-1, rows + 3):
        cy = row * height / rows + radius / 2
        for cx in np.arange(-1, 6) * radius * 2 + (row % 2) * radius:
            distance = np.hypot(x - cx, y - cy)
            ring = 0.5 + 0.5 * np.cos(distance / radius * 2 * np.pi * 3.5)
            tone = mix(color("#0f4c5c"), color("#e9f1ee"), smoothstep(0.35, 0.65, ring))
            tone = tone * (0.82 + 0.18 * smoothstep(0, radius, distance))[..., None]
            picture = mix(picture, tone, 1 - smoothstep(radius - 0.7, radius + 0.7, distance))
    return picture


def petals():
    """Blossoms and leaves that float on nothing: clear between them, with soft shadows."""
    size = 320
    x, y = grid(size, size)
    rgb, alpha = np.zeros((size, size, 3)), np.zeros((size, size))

    def lay(tone, cover):
        nonlocal rgb, alpha
        total = cover + alpha * (1 - cover)
        share = np.divide(cover, total, out=np.zeros_like(total), where=total > 0)
        rgb, alpha = mix(rgb, tone, share), total

    random = np.random.default_rng(41)
    for _ in range(11):
        cx, cy, turn = random.uniform(0, size), random.uniform(0, size), random.uniform(0, np.pi)
        dx, dy = wrapped(x - cx, size), wrapped(y - cy, size)
        along, aside = dx * np.cos(turn) + dy * np.sin(turn), -dx * np.sin(turn) + dy * np.cos(turn)
        blade = np.abs(aside) - 8.5 * np.clip(1 - (along / 24) ** 2, 0, 1)
        vein = 1 - smoothstep(0.4, 1.4, np.abs(aside))
        leaf = mix(color("#6a994e"), color("#a7c957"), np.clip(vein + 0.02 * (along + 24) * (aside > 0), 0, 1))
        lay(leaf, (1 - smoothstep(-0.8, 0.8, blade)) * (np.abs(along) < 24) * 0.92)

    blossoms = [(70, 80, 46), (230, 60, 34), (160, 190, 54), (290, 230, 38), (40, 260, 32)]
    for cx, cy, radius in blossoms:
        turn = random.uniform(0, 2 * np.pi)
        tone, heart = [("#f28482", "#f6bd60"), ("#f7b2ad", "#e76f51"), ("#cdb4db", "#ffd166")][random.integers(3)]

        def outline(dx, dy):
            angle = np.arctan2(dy, dx) + turn
            return np.hypot(dx, dy) / (radius * (0.72 + 0.28 * np.abs(np.cos(2.5 * angle)) ** 0.7)), angle

        shade, _ = outline(wrapped(x - cx - 5, size), wrapped(y - cy - 7, size))
        lay(np.broadcast_to(color("#2b2d42"), rgb.shape), 0.35 * (1 - smoothstep(0.75, 1.2, shade)))
        dx, dy = wrapped(x - cx, size), wrapped(y - cy, size)
        reach, angle = outline(dx, dy)
        streaks = 0.04 * np.cos(25 * angle) * smoothstep(0.2, 0.9, reach)
        body = color(tone) * (0.8 + 0.25 * smoothstep(0.1, 1, reach) + streaks)[..., None]
        lay(body, 1 - smoothstep(1 - 1.4 / radius, 1 + 1.4 / radius, reach))
        core = np.hypot(dx, dy)
        lay(np.broadcast_to(color(heart), rgb.shape), 1 - smoothstep(radius * 0.2 - 1, radius * 0.2 + 1, core))
    return with_alpha(rgb, alpha)


PICTURES = {
    "layer.png": layer,
    "woven.png": woven,
    "paper.jpg": paper,
    "dots.png": dots,
    "bricks.jpg": bricks,
    "waves.png": waves,
    "petals.png": petals,
}


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent
    folder.mkdir(parents=True, exist_ok=True)
    for name, draw in PICTURES.items():
        picture = Image.fromarray(to_bytes(draw()))
        if name.endswith(".jpg"):
            picture.save(folder / name, quality=88, subsampling=0, optimize=True)
        else:
            picture.save(folder / name, optimize=True)
        print(f"{name}: {picture.width}x{picture.height}, {(folder / name).stat().st_size} bytes")


if __name__ == "__main__":
    main()
