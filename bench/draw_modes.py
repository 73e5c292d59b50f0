#!/usr/bin/env python3
"""Draws the chart of blend modes and depths. Usage: draw_modes.py MODES.json CHART.png"""
import json
import sys

from PIL import Image, ImageDraw, ImageFont

WIDTH, ROW, LEFT, TOP, SCALE = 900, 26, 150, 60, 2.0
COLOURS = {"u8": "#3b6ea5", "u16": "#d08a2e", "f32": "#5b9a5b"}
NAMES = {"u8": "8 bits", "u16": "16 bits", "f32": "float"}


def draw(rows, path):
    font = ImageFont.truetype("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 13)
    modes = list(dict.fromkeys(row["mode"] for row in rows))
    picture = Image.new("RGB", (WIDTH, TOP + ROW * len(modes) + 20), "white")
    pen = ImageDraw.Draw(picture)
    pen.text((10, 8), f"Time of a frame of {rows[0]['size']}, Multiply = 1 in each depth", fill="black", font=font)
    for place, (form, name) in enumerate(NAMES.items()):
        pen.rectangle((10 + 110 * place, 32, 22 + 110 * place, 44), fill=COLOURS[form])
        pen.text((28 + 110 * place, 30), name, fill="black", font=font)
    full = WIDTH - LEFT - 20
    for share in (0.5, 1, 1.5, 2):
        x = LEFT + full * share / SCALE
        pen.line((x, TOP - 4, x, TOP + ROW * len(modes)), fill="#b03030" if share == 1.5 else "#cccccc")
        pen.text((x - 10, TOP - 20), f"{share:g}", fill="black", font=font)
    for place, mode in enumerate(modes):
        y = TOP + ROW * place
        pen.text((10, y + 5), mode, fill="black", font=font)
        for bar, form in enumerate(NAMES):
            for row in rows:
                if row["mode"] == mode and row["format"] == form:
                    length = full * min(row["to_multiply"], SCALE) / SCALE
                    pen.rectangle((LEFT, y + 2 + 7 * bar, LEFT + length, y + 8 + 7 * bar), fill=COLOURS[form])
    picture.save(path)


with open(sys.argv[1], encoding="utf-8") as figures:
    draw(json.load(figures)["modes"], sys.argv[2])
