#!/usr/bin/env bash
# The main job: a text on an ellipse, filled, as the host would mark it, in three formats in out/.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p out
for format in svg gcode ovl; do
    quiet=(--quiet)
    [ "$format" = svg ] && quiet=()
    build/ovaline mark --text "OVALINE · laser marking ·" \
        --set Width=40 --set Height=25 --set StartAngle=160 --set FontHeight=5 --set FillStyle=Line \
        --set FillDistance=0.1 -o "out/ovaline.$format" "${quiet[@]}"
done
echo "out/ovaline.svg, out/ovaline.gcode and out/ovaline.ovl are written; open out/ovaline.svg in a browser."
