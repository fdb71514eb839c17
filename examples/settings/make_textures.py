#!/usr/bin/env python3
# Draws the textures of the settings example as small PNG files.
# Run it from this folder; it rewrites textures/*.png.
import os, sys
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
from pngdraw import png, hexrgb, mix, rounded, box

box('textures/panel.png', 32, 32, 6, 0x2B3444, 0x222935, 0x5B6D8C)
box('textures/button.png', 24, 24, 4, 0x4A6FA5, 0x375686, 0x7FA2D6)
box('textures/button_hover.png', 24, 24, 4, 0x5C84BF, 0x44679E, 0xA9C6EE)
box('textures/button_pressed.png', 24, 24, 4, 0x2C456B, 0x36557F, 0x7FA2D6)

def check(path, ticked, hover):
    base = 0x7FA2D6 if not hover else 0xA9C6EE
    box_fill_top, box_fill_bottom = (0x1B212B, 0x252D3A)
    def tick_cov(x, y):
        # distance to the two strokes of a tick, in a 16-pixel box
        px, py = x + 0.5, y + 0.5
        def seg(ax, ay, bx, by):
            vx, vy = bx - ax, by - ay
            t = max(0, min(1, ((px - ax) * vx + (py - ay) * vy) / (vx * vx + vy * vy)))
            dx, dy = px - (ax + t * vx), py - (ay + t * vy)
            return (dx * dx + dy * dy) ** 0.5
        d = min(seg(4.0, 8.5, 6.8, 11.2), seg(6.8, 11.2, 12.0, 5.0))
        return max(0.0, min(1.0, 1.6 - d))
    # 16 pixels: the size a check box assumes before it knows its texture's.
    w = h = 16
    edge = hexrgb(base)
    def pixel(x, y):
        outer = rounded(w, h, 3, x, y)
        inside = 1 <= x < w - 1 and 1 <= y < h - 1
        inner = rounded(w - 2, h - 2, 2, x - 1, y - 1) if inside else 0.0
        fill = mix(hexrgb(box_fill_top), hexrgb(box_fill_bottom), y / (h - 1))
        color = mix(edge, fill, inner)
        if ticked:
            color = mix(color, hexrgb(0x8EE08E if not hover else 0xB6F5B6), tick_cov(x, y))
        return color + (int(255 * outer + 0.5),)
    png(path, w, h, pixel)

check('textures/check.png', False, False)
check('textures/check_hover.png', False, True)
check('textures/check_on.png', True, False)
check('textures/check_on_hover.png', True, True)
