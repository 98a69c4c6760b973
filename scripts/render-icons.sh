#!/usr/bin/env bash
# Renders the PNG sizes of the icon from desktop/icons/nadavik.svg (needs
# rsvg-convert, Debian package librsvg2-bin). The PNGs are committed, so the
# build needs no SVG renderer; run this after changing the SVG.
set -euo pipefail
cd "$(dirname "$0")/../desktop/icons"
for size in 48 64 128 256; do
  rsvg-convert -w "$size" -h "$size" nadavik.svg -o "nadavik-$size.png"
done
