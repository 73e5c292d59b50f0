"""Draws tiles.pat, a Photoshop pattern file with patterns of several kinds: grey, indexed and RGB, 8 and 16 bits, raw and
packed, with and without transparency. Drawing again gives the same file.

usage: draw_patterns.py [FOLDER]      (default: the folder of this script)
"""

import struct
import sys
from pathlib import Path

import numpy as np
from draw_samples import color, grid, mix, periodic_noise, smoothstep, to_bytes, wrapped

SIZE, FINER = 100, 4
GREY, INDEXED, RGB = 1, 2, 3


def fine_grid():
    """Coordinates from 0 to SIZE, several to a pixel."""
    x, y = grid(SIZE * FINER, SIZE * FINER)
    return x / FINER, y / FINER


def coarse(picture):
    """The mean of what lies in each pixel."""
    return picture.reshape(SIZE, FINER, SIZE, FINER, *picture.shape[2:]).mean(axis=(1, 3))


def houndstooth():
    x, y = fine_grid()
    u, v = x % 50, y % 50
    upper, left = v < 25, u < 25
    stripes = (u - v) % 25 < 12.5
    return coarse(np.where(upper & left, 1.0, np.where(upper ^ left, stripes, 0.0)) * 0.82 + 0.09)


def checks():
    """Gingham: the index counts how many of both bands cover a pixel."""
    x, y = grid(SIZE, SIZE)
    index = (x % 20 < 10).astype(np.uint8) + (y % 20 < 10)
    return index, ["#fbf6ea", "#8fb8c9", "#2f6b8a"]


def herringbone():
    x, y = fine_grid()
    band = (x // 25).astype(int)
    along = np.where(band % 2 == 0, y + x % 25, y + 25 - x % 25)
    plank = (along // 12.5).astype(int) % 8
    from_side = np.minimum(along % 12.5, 12.5 - along % 12.5)
    from_end = np.minimum(x % 25, 25 - x % 25)
    tones = np.random.default_rng(51).uniform(0, 1, (4, 8))[band, plank]
    wood = mix(color("#8a5a35"), color("#d9a86c"), tones)
    gap = smoothstep(0.3, 1.4, from_side) * smoothstep(0.2, 1.0, from_end)
    return coarse(mix(color("#3d2616"), wood, gap))


def linen():
    x, y = grid(SIZE, SIZE)
    threads = 0.05 * np.sin(2 * np.pi * x / 4) * np.sin(2 * np.pi * y / 4)
    slubs = periodic_noise(SIZE, SIZE, 52, 0.9)
    return np.clip(0.78 + threads + 0.035 * slubs + 0.03 * np.roll(slubs, 31, 0), 0, 1)


def stars():
    """Eight-pointed stars and crosses."""
    x, y = fine_grid()
    dx, dy = np.abs(wrapped(x - 25, 50)), np.abs(wrapped(y - 25, 50))
    from_star = np.minimum(np.maximum(dx, dy), (dx + dy) / np.sqrt(2)) - 17.5
    glaze = mix(color("#1d7874"), color("#3fb6a8"), smoothstep(0, 18, np.hypot(dx, dy)))
    tile = mix(glaze, color("#f2e8cf"), smoothstep(-0.6, 0.6, from_star))
    joint = 1 - smoothstep(0.5, 1.3, np.abs(from_star))
    heart = 1 - smoothstep(5.6, 6.6, np.hypot(dx, dy))
    return coarse(mix(mix(tile, color("#7a5c3e"), joint), color("#ee9b3a"), heart))


def terrazzo():
    x, y = fine_grid()
    picture = np.broadcast_to(color("#efe9e1"), (*x.shape, 3))
    random = np.random.default_rng(53)
    tones = ["#c8553d", "#588b8b", "#2d3047", "#f0b67f", "#b8b0a5"]
    for chip in range(49):
        cx, cy = (np.array(divmod(chip, 7)) + random.uniform(0.1, 0.9, 2)) * SIZE / 7
        turn = random.uniform(0, np.pi)
        dx, dy = wrapped(x - cx, SIZE), wrapped(y - cy, SIZE)
        angle = np.arctan2(dy, dx) + turn
        sides = random.integers(3, 6)
        edge = np.cos(np.pi / sides) / np.cos((angle % (2 * np.pi / sides)) - np.pi / sides)
        reach = np.hypot(dx, dy) / (random.uniform(3.5, 8.5) * edge)
        picture = mix(picture, color(tones[random.integers(len(tones))]), (reach < 1).astype(float))
    return coarse(picture)


def lattice():
    """Wires, clear between them: grey and its transparency."""
    x, y = fine_grid()
    first, second = (x + y) % 25, (x - y) % 25
    near = np.minimum(np.minimum(first, 25 - first), np.minimum(second, 25 - second)) / np.sqrt(2)
    return coarse(0.25 + 0.6 * (1 - smoothstep(0, 2.4, near))), coarse(1 - smoothstep(2.0, 2.8, near))


def confetti():
    """Paper dots, clear between them, over a ground that only programs without transparency show."""
    x, y = fine_grid()
    rgb, alpha = np.broadcast_to(color("#f7f4ef"), (*x.shape, 3)), np.zeros_like(x)
    random = np.random.default_rng(54)
    tones = ["#ef476f", "#ffd166", "#06d6a0", "#118ab2", "#8338ec"]
    for spot in range(25):
        column, row = divmod(spot, 5)
        cx, cy = np.array([column, row]) * 20 + random.uniform(5, 15, 2)
        distance = np.hypot(wrapped(x - cx, SIZE), wrapped(y - cy, SIZE))
        cover = (distance < random.uniform(4, 7.5)).astype(float)
        rgb, alpha = mix(rgb, color(tones[(row * 2 + column) % 5]), cover), np.maximum(alpha, cover)
    return coarse(rgb), coarse(alpha)


def pack_row(row):
    """PackBits: runs of three and more equal bytes, and what lies between."""
    packed, at = bytearray(), 0

    def run(start):
        end = start
        while end < len(row) and end - start < 128 and row[end] == row[start]:
            end += 1
        return end - start

    while at < len(row):
        length = run(at)
        if length >= 3:
            packed += bytes([257 - length, row[at]])
            at += length
            continue
        end = at
        while end < len(row) and end - at < 128 and run(end) < 3:
            end += 1
        packed += bytes([end - at - 1]) + row[at:end]
        at = end
    return bytes(packed)


def rectangle():
    return struct.pack(">4i", 0, 0, SIZE, SIZE)


def plane_bytes(samples, packed):
    """One colour, or the transparency; 16 bits where the samples have them."""
    depth = samples.dtype.itemsize * 8
    if packed:
        rows = [pack_row(row.tobytes()) for row in samples]
        data = b"".join(struct.pack(">H", len(row)) for row in rows) + b"".join(rows)
    else:
        data = samples.astype(f">u{depth // 8}").tobytes()
    head = struct.pack(">3i", 1, 4 + 16 + 2 + 1 + len(data), depth) + rectangle() + struct.pack(">HB", depth, packed)
    return head + data


def pattern_bytes(name, mode, planes, packed=True, alpha=None, palette=None):
    text = name.encode("utf-16-be") + b"\0\0"
    head = struct.pack(">iiHHi", 1, mode, SIZE, SIZE, len(text) // 2) + text
    unique = f"{hash_of(name):08x}-52aa-11d9-9a8e-8f7d1c3b2a40".encode()
    head += bytes([len(unique)]) + unique
    if palette:
        table = b"".join(bytes(to_bytes(color(code)).tolist()) for code in palette)
        head += table.ljust(768, b"\0") + struct.pack(">HH", len(palette), 0xFFFF)
    colours = b"".join(plane_bytes(plane, packed) for plane in planes)
    # Of 24 colours and a mask those that are not used; then the transparency.
    unused = struct.pack(">i", 0) * (24 - len(planes) + 1)
    transparency = struct.pack(">i", 0) if alpha is None else plane_bytes(alpha, True)
    arrays = rectangle() + struct.pack(">i", 24) + colours + unused + transparency
    return head + struct.pack(">ii", 3, len(arrays)) + arrays


def hash_of(name):
    """The same in every run, unlike the language's own."""
    value = 0
    for byte in name.encode():
        value = (value * 31 + byte) % 2**32
    return value


def channels(rgb):
    return list(np.moveaxis(to_bytes(rgb), 2, 0))


def tiles():
    index, palette = checks()
    wires, wires_alpha = lattice()
    dots, dots_alpha = confetti()
    return [
        pattern_bytes("Houndstooth", GREY, [to_bytes(houndstooth())]),
        pattern_bytes("Gingham", INDEXED, [index], palette=palette),
        pattern_bytes("Herringbone", RGB, channels(herringbone())),
        pattern_bytes("Linen", GREY, [np.rint(linen() * 65535).astype(np.uint16)], packed=False),
        pattern_bytes("Azulejo de Évora ✦", RGB, channels(stars())),
        pattern_bytes("Terrazzo", RGB, channels(terrazzo())),
        pattern_bytes("Lattice", GREY, [to_bytes(wires)], alpha=to_bytes(wires_alpha)),
        pattern_bytes("Confetti", RGB, channels(dots), alpha=to_bytes(dots_alpha)),
    ]


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent
    folder.mkdir(parents=True, exist_ok=True)
    patterns = tiles()
    contents = b"8BPT" + struct.pack(">Hi", 1, len(patterns)) + b"".join(patterns)
    (folder / "tiles.pat").write_bytes(contents)
    print(f"tiles.pat: {len(patterns)} patterns, {len(contents)} bytes")


if __name__ == "__main__":
    main()
