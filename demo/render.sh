#!/usr/bin/env bash
# Renders the demonstration: what the effect can do, one picture each, and a chart of all blend modes.
# usage: demo/render.sh PROGRAM FOLDER
set -euo pipefail

readonly quiltor=$1 out=$2
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
readonly here samples="$here/../samples"
readonly layer="$samples/layer.png"
mkdir -p "$out"

# picture NAME [OPTION...]
picture() {
  local name=$1
  shift
  "$quiltor" render "$layer" -o "$out/$name.png" "$@" || {
    printf 'demo: %s.png could not be rendered\n' "$name" >&2
    exit 1
  }
  printf '%s\n' "$out/$name.png"
}

picture tiled --pattern "$samples/woven.png" --set tilemode=Tiled --set scale=150% --set blendmode=Overlay \
  --set opacity=80%

picture rotated-scaled-multiply --pattern "$samples/bricks.jpg" --set rotation=-20 --set scale=140% \
  --set blendmode=Multiply --set opacity=70%

picture mirrored-soft-light-tint-blur --pattern "$samples/waves.png" --set tilemode=Mirrored --set scale=220% \
  --set blendmode="Soft Light" --set tintcolor=#49bc38 --set tintopacity=60% --set blur=6% \
  --set opacity=75%

# Around a single pattern lies black, which leaves the layer as it is where the lighter of both is taken.
picture single --pattern "$samples/bricks.jpg" --set tilemode=Single --set scale=120% --set rotation=12 \
  --set offset=40%,55% --set blendmode=Lighten

picture locked-to-a-rotated-layer --pattern "$samples/dots.png" --set lock=on --set blendmode="Hard Light" \
  --set opacity=60% --layer-rotation 30 --layer-scale 80

picture pattern-from-a-layer --pattern-layer "$samples/paper.jpg" --set blendmode=Multiply --set scale=160% \
  --depth 16

picture masked --pattern "$samples/woven.png" --set blendmode=Multiply --set scale=150% \
  --masks "$samples/masks.json" --set mask=2

picture masked-inverted --pattern "$samples/woven.png" --set blendmode=Multiply --set scale=150% \
  --masks "$samples/masks.json" --set mask=3

picture pattern-of-a-photoshop-file --pattern "$samples/tiles.pat#Azulejo de Évora ✦" --set scale=180% \
  --set blendmode="Soft Light" --set opacity=85% --set rotation=45

readonly modes=(
  "Normal" "Stencil Alpha" "Stencil Luma" "Silhouette Alpha" "Silhouette Luma" "Lighten" "Darken" "Multiply" "Average"
  "Difference" "Negation" "Exclusion" "Screen" "Overlay" "Soft Light" "Hard Light" "Color Dodge" "Color Burn"
  "Linear Dodge" "Linear Burn" "Linear Light" "Vivid Light" "Pin Light" "Hard Mix" "Reflect" "Glow" "Phoenix"
)
scratch="$(mktemp -d)"
readonly scratch
trap 'rm -rf "$scratch"' EXIT
cells=("The layer=$layer" "The pattern=$samples/petals.png")
for mode in "${modes[@]}"; do
  "$quiltor" render "$layer" -o "$scratch/$mode.png" --downsample 4 --pattern "$samples/petals.png" \
    --set blendmode="$mode" --set scale=260% || {
    printf 'demo: the blend mode %s could not be rendered\n' "$mode" >&2
    exit 1
  }
  cells+=("$mode=$scratch/$mode.png")
done
# The library of a user who has nothing but one pattern file.
library() {
  QUILTOR_ALLUSERS_DIR="$scratch/all" XDG_CONFIG_HOME="$scratch/user" "$quiltor" library "$@" >>"$scratch/library.log" || {
    printf 'demo: the library could not be shown\n' >&2
    exit 1
  }
}
mkdir "$scratch/Patterns"
cp "$samples/tiles.pat" "$scratch/Patterns"
library scan "$scratch/Patterns"
library convert
library scan
library convert
library sheet tiles -o "$out/contact-sheet.png"
printf '%s\n' "$out/contact-sheet.png"

# Both dialogs as they open, without a screen; the gallery on a screen with larger points, too.
dialog() {
  local name=$1 command=$2
  shift 2
  QUILTOR_ALLUSERS_DIR="$scratch/all" XDG_CONFIG_HOME="$scratch/user" "$quiltor" "$command" --screenshot "$out/$name.png" \
    "$@" >>"$scratch/library.log" || {
    printf 'demo: the dialog of "quiltor %s" could not be opened\n' "$command" >&2
    exit 1
  }
  printf '%s\n' "$out/$name.png"
}
mkdir "$scratch/Textures"
cp "$samples"/{bricks,paper}.jpg "$samples"/{dots,petals,waves,woven}.png "$scratch/Textures"
library scan "$scratch/Textures" "$scratch/Patterns"
library convert
library scan "$scratch/Textures" "$scratch/Patterns"
library convert
dialog settings-dialog settings
dialog gallery-dialog gallery
dialog gallery-dialog-125-percent gallery --scale 125%
dialog settings-dialog-125-percent settings --scale 125%

/usr/bin/python3 "$here/draw_chart.py" "$out/blend-modes.png" "${cells[@]}"
printf '%s\n' "$out/blend-modes.png"
