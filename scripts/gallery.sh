#!/usr/bin/env bash
# Draws the preview of every axes, fill, outline, inversion and array case into out/gallery/, with a page that shows all.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p out/gallery
# The pictures leave the user's own registrations alone.
export OVALINE_REGISTRY="${OVALINE_REGISTRY:-$PWD/build/registry.reg}"
/usr/bin/python3 -B scripts/gallery_script.py out/gallery | build/ovaline run >out/gallery/answers.jsonl
echo "Written: out/gallery/index.html and $(find out/gallery -name '*.png' | wc -l) pictures"
