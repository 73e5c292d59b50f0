#!/usr/bin/env python3
"""Says where the time goes when `quiltor render` loads the module and draws one frame of 1920x1080 from a PNG to a PNG.

usage: profile_render.py QUILTOR SAMPLES FOLDER

Writes profile.json and the chart profile.png into FOLDER. The figures are perf's samples of the processor's time; where
perf is missing or refused, they are the instructions that callgrind counts, without the system's own, and the chart
says so.
"""

import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

from PIL import Image, ImageDraw, ImageFont

DEPTHS = {"8": "8 bits", "16": "16 bits", "float": "float"}
RUNS = 3
# The first group whose pattern finds something in the name of the file that the code is in.
GROUPS = [
    ("libpng and zlib", r"libz|libpng", "#3b6ea5"),
    ("the effect", r"Quiltor|libhwy", "#d08a2e"),
    ("stand-alone host", r"^quiltor$", "#5b9a5b"),
    ("the system", r"kernel|vdso|unknown", "#8a8a8a"),
    ("C and C++ libraries, loading", r"", "#c4c4c4"),
]


def command(quiltor, samples, depth, output):
    settings = ["rotation=30", "scale=73", "blendmode=Multiply", "opacity=70%"]
    words = [quiltor, "render", samples / "layer.png", "-o", output, "--pattern", samples / "woven.png"]
    words += ["--depth", depth]
    for setting in settings:
        words += ["--set", setting]
    return [str(word) for word in words]


def text_of(words):
    return subprocess.run([str(word) for word in words], check=True, capture_output=True, text=True).stdout


def perf_works(folder):
    try:
        text_of(["perf", "record", "-q", "-o", folder / "perf.data", "--", "true"])
        return True
    except (OSError, subprocess.CalledProcessError):
        return False


def sampled(words, folder):
    """Shares of the processor's time by file."""
    sums = {}
    for _ in range(RUNS):
        data = folder / "perf.data"
        text_of(["perf", "record", "-q", "-F", "4999", "-o", data, "--", *words])
        report = text_of(["perf", "report", "-q", "--stdio", "-i", data, "--sort", "dso", "--percent-limit", "0"])
        for share, name in re.findall(r"^\s*([\d.]+)%\s+(\S+)", report, re.MULTILINE):
            sums[name] = sums.get(name, 0) + float(share) / RUNS
    return sums


def counted(words, folder):
    """Shares of the instructions by file."""
    data = folder / "callgrind.out"
    text_of(["valgrind", "--tool=callgrind", f"--callgrind-out-file={data}", *words])
    sums = {}
    report = text_of(["callgrind_annotate", "--threshold=100", data])
    for count, name in re.findall(r"^\s*([\d,]+) \(.*\[([^\]]+)\]$", report, re.MULTILINE):
        name = Path(name).name
        sums[name] = sums.get(name, 0) + int(count.replace(",", ""))
    total = sum(sums.values())
    return {name: 100 * count / total for name, count in sums.items()}


def grouped(shares):
    groups = {name: 0.0 for name, _, _ in GROUPS}
    for file, share in shares.items():
        groups[next(name for name, pattern, _ in GROUPS if re.search(pattern, file))] += share
    return groups


def draw(rows, unit, path):
    font = ImageFont.truetype("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 13)
    left, top, height, width = 70, 70, 34, 900
    picture = Image.new("RGB", (width, top + height * len(rows) + 34), "white")
    pen = ImageDraw.Draw(picture)
    title = f"quiltor render, one frame of 1920x1080 from PNG to PNG: shares of {unit}"
    pen.text((10, 8), title, fill="black", font=font)
    x = 10
    for name, _, colour in GROUPS:
        pen.rectangle((x, 34, x + 12, 46), fill=colour)
        pen.text((x + 18, 32), name, fill="black", font=font)
        x += 38 + pen.textlength(name, font=font)
    full = width - left - 20
    for place, (depth, groups) in enumerate(rows.items()):
        y, x = top + height * place, left
        pen.text((10, y + 5), DEPTHS[depth], fill="black", font=font)
        for name, _, colour in GROUPS:
            end = x + full * groups[name] / 100
            pen.rectangle((x, y, end, y + height - 10), fill=colour)
            if end - x > 40:
                pen.text((x + 6, y + 4), f"{groups[name]:.0f} %", fill="white", font=font)
            x = end
    x = left + full * 0.6
    pen.line((x, top - 6, x, top + height * len(rows) - 4), fill="#b03030")
    pen.text((x - 14, top + height * len(rows) + 2), "60 %", fill="#b03030", font=font)
    picture.save(path)


def main():
    quiltor, samples, folder = Path(sys.argv[1]), Path(sys.argv[2]), Path(sys.argv[3])
    with tempfile.TemporaryDirectory() as name:
        scratch = Path(name)
        measure, unit = (sampled, "the processor's time") if perf_works(scratch) else (counted, "the instructions")
        rows = {}
        for depth in DEPTHS:
            words = command(quiltor, samples, depth, scratch / "out.png")
            rows[depth] = grouped(measure(words, scratch))
    for depth, groups in rows.items():
        print(f"{DEPTHS[depth]:8s}" + ", ".join(f"{name} {share:.1f} %" for name, share in groups.items()))
    (folder / "profile.json").write_text(json.dumps({"unit": unit, "shares": rows}, indent=1) + "\n", encoding="utf-8")
    draw(rows, unit, folder / "profile.png")


if __name__ == "__main__":
    main()
