"""Lays pictures out in a labelled chart, over a chequered ground that shows where they are transparent.

usage: draw_chart.py CHART LABEL=PICTURE...
"""

import sys
from pathlib import Path

from PIL import Image, ImageDraw, ImageFont

COLUMNS, CELL, GAP, LABEL_HEIGHT, CHECK = 5, (384, 216), 16, 34, 12
PAPER, INK, LIGHT, DARK = (250, 249, 246), (40, 42, 48), (214, 214, 214), (186, 186, 186)


def chequered(size):
    ground = Image.new("RGBA", size, LIGHT)
    pen = ImageDraw.Draw(ground)
    for y in range(0, size[1], CHECK):
        for x in range((y // CHECK % 2) * CHECK, size[0], 2 * CHECK):
            pen.rectangle((x, y, x + CHECK - 1, y + CHECK - 1), fill=DARK)
    return ground


def cell(path):
    picture = Image.open(path).convert("RGBA")
    picture.thumbnail(CELL, Image.Resampling.LANCZOS)
    ground = chequered(CELL)
    ground.alpha_composite(picture, ((CELL[0] - picture.width) // 2, (CELL[1] - picture.height) // 2))
    return ground.convert("RGB")


def main():
    target, entries = Path(sys.argv[1]), [argument.split("=", 1) for argument in sys.argv[2:]]
    rows = -(-len(entries) // COLUMNS)
    step_x, step_y = CELL[0] + GAP, CELL[1] + GAP + LABEL_HEIGHT
    chart = Image.new("RGB", (COLUMNS * step_x + GAP, rows * step_y + GAP), PAPER)
    pen, font = ImageDraw.Draw(chart), ImageFont.truetype("DejaVuSans.ttf", 22)
    for index, (label, path) in enumerate(entries):
        x, y = GAP + index % COLUMNS * step_x, GAP + index // COLUMNS * step_y
        chart.paste(cell(path), (x, y))
        pen.text((x + CELL[0] // 2, y + CELL[1] + LABEL_HEIGHT // 2 + 2), label, fill=INK, font=font, anchor="mm")
    unfinished = target.with_suffix(".part")
    chart.save(unfinished, format="PNG", optimize=True)
    unfinished.replace(target)


if __name__ == "__main__":
    main()
