#!/usr/bin/env bash
# The main job: a text around an ellipse, hatched, as the host would mark it, in three formats in out/.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p out
# The sample job leaves the user's own registrations alone.
export OVALINE_REGISTRY="${OVALINE_REGISTRY:-$PWD/build/registry.reg}"
job=(--text "OVALINE · lays your text along an ellipse · 0123456789 ·" --set "FontName=Liberation Sans"
    --set Width=50 --set Height=32 --set StartAngle=180 --set FontHeight=5
    --set FillStyle=Line --set FillDistance=0.1 --set FillLineAngle=45)
build/ovaline mark "${job[@]}" -o out/ovaline.svg
build/ovaline mark "${job[@]}" -o out/ovaline.gcode --quiet
build/ovaline mark "${job[@]}" -o out/ovaline.ovl --quiet
echo "Written: out/ovaline.svg (open it in a browser), out/ovaline.gcode and out/ovaline.ovl"
