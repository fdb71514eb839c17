#!/usr/bin/env python3
# Draws the textures of the gallery's panels as small PNG files.
# Run it from this folder; it rewrites textures/*.png.
import os, sys
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
from pngdraw import png, hexrgb, mix, rounded, box

CLEAR = (0, 0, 0, 0)

# Panels and the channel strips inside them.
box('textures/panel.png', 32, 32, 6, 0x2B3444, 0x222935, 0x5B6D8C)
box('textures/strip.png', 24, 24, 4, 0x303A4B, 0x272F3D, 0x44526A)

# A fader's track: a dark slot down the middle of a clear strip. It is drawn
# in nine cells with a 2-pixel border, so the slot stretches to any height.
def fader_track(path):
    w, h = 24, 24
    def pixel(x, y):
        inside = rounded(6, h, 3, x - 9, y) if 9 <= x < 15 else 0.0
        if inside <= 0:
            return CLEAR
        edge = 9 == x or x == 14
        color = hexrgb(0x4A5870) if edge else hexrgb(0x0C0F14)
        return color + (int(255 * inside + 0.5),)
    png(path, w, h, pixel)

# The handle: a bright cap with a dark line across its middle. A fader's
# handle is always 5 pixels long, as wide as the track's inside.
def fader_handle(path, w, h, vertical):
    def pixel(x, y):
        along = y if vertical else x
        if along == 2:
            return hexrgb(0x1A2029) + (255,)
        return mix(hexrgb(0xE8EDF5), hexrgb(0xA7B3C6), (x if vertical else y) / max(w if vertical else h, 1)) + (255,)
    png(path, w, h, pixel)

# One lit segment of a level meter: 8 pixels of light over a 2-pixel gap, so
# that a meter of Repeat segments, 10 pixels each, reads as a column of LEDs.
def led(path, lit, dim):
    w, h = 12, 10
    def pixel(x, y):
        if y < 2:
            return CLEAR
        cover = rounded(w, 8, 2, x, y - 2)
        color = mix(hexrgb(lit), hexrgb(dim), abs(x - (w - 1) / 2) / (w / 2))
        return color + (int(255 * cover + 0.5),)
    png(path, w, h, pixel)

# The unlit column behind a meter: the same segments, dark, 17 of them.
def meter_back(path, w, segments):
    h = segments * 10
    def pixel(x, y):
        cy = y % 10
        if cy < 2:
            return hexrgb(0x12161D) + (255,)
        cover = rounded(w, 8, 2, x, cy - 2)
        return mix(hexrgb(0x12161D), hexrgb(0x25303D), cover) + (255,)
    png(path, w, h, pixel)

# The output meter: green to amber to red along its length, so that the
# part a quiet signal shows is green.
def output_fill(path):
    w, h = 128, 10
    def pixel(x, y):
        t = x / (w - 1)
        color = mix(hexrgb(0x43C463), hexrgb(0xE8C547), t / 0.7) if t < 0.7 else mix(hexrgb(0xE8C547), hexrgb(0xE5533D), (t - 0.7) / 0.3)
        shade = 1.0 - abs(y - 4.5) / 12
        return tuple(int(c * shade) for c in color) + (255,)
    png(path, w, h, pixel)

# Scroll bar arrows: a rounded button with a triangle pointing up or down.
def arrow(path, up, hover):
    w = h = 14
    face = 0x4A6FA5 if not hover else 0x5C84BF
    def pixel(x, y):
        outer = rounded(w, h, 3, x, y)
        px, py = x + 0.5, (y + 0.5 if up else h - y - 0.5)
        # triangle with its tip at (7, 4) and base from (3.5, 10) to (10.5, 10)
        half = (py - 4) * 3.5 / 6
        inside = 4 <= py <= 10 and abs(px - 7) <= half
        color = hexrgb(0xF0F4FA) if inside else mix(hexrgb(face), hexrgb(0x2C456B), y / h)
        return color + (int(255 * outer + 0.5),)
    png(path, w, h, pixel)

# The balance's track: a thin groove along a clear strip, in nine cells with
# a 2-pixel border so that it stretches to any length.
def balance_track(path):
    w, h = 24, 16
    def pixel(x, y):
        inside = rounded(w, 4, 2, x, y - 6) if 6 <= y < 10 else 0.0
        if inside <= 0:
            return CLEAR
        color = hexrgb(0x4A5870) if y in (6, 9) else hexrgb(0x0C0F14)
        return color + (int(255 * inside + 0.5),)
    png(path, w, h, pixel)

def scroll_track(path):
    w, h = 14, 24
    png(path, w, h, lambda x, y: mix(hexrgb(0x151A22), hexrgb(0x1E2530), abs(x - 6.5) / 7) + (255,))

fader_track('textures/fader_track.png')
fader_handle('textures/fader_handle.png', 20, 5, True)
fader_handle('textures/balance_handle.png', 5, 12, False)
led('textures/led.png', 0x7CF08F, 0x3FB75A)
meter_back('textures/meter_back.png', 12, 17)
output_fill('textures/output_fill.png')
arrow('textures/arrow_up.png', True, False)
arrow('textures/arrow_up_hover.png', True, True)
arrow('textures/arrow_down.png', False, False)
arrow('textures/arrow_down_hover.png', False, True)
scroll_track('textures/scroll_track.png')
balance_track('textures/balance_track.png')
box('textures/scroll_handle.png', 10, 5, 2, 0xA7B3C6, 0x8C99AD, 0xC9D2E0)

# The inventory: a sunken well for the list, a raised body for the filter's
# combo box with its drop button beside it, and the sort buttons.
box('textures/list_well.png', 24, 24, 4, 0x151A22, 0x1B212B, 0x44526A)
box('textures/combo_body.png', 24, 24, 4, 0x3A475C, 0x2F3A4B, 0x5B6D8C)
box('textures/sort_button.png', 24, 24, 4, 0x4A6FA5, 0x2C456B, 0x6E8FC0)
box('textures/sort_button_hover.png', 24, 24, 4, 0x5C84BF, 0x36527D, 0x86A4D0)

def drop_button(path):
    w, h = 22, 26
    def pixel(x, y):
        outer = rounded(w, h, 4, x, y)
        px, py = x + 0.5, h - y - 0.5
        half = (py - 9) * 4.5 / 7
        inside = 9 <= py <= 16 and abs(px - 11) <= half
        color = hexrgb(0xF0F4FA) if inside else mix(hexrgb(0x4A6FA5), hexrgb(0x2C456B), y / h)
        return color + (int(255 * outer + 0.5),)
    png(path, w, h, pixel)

drop_button('textures/drop_button.png')

# The file browser's node images, 16 by 16: a page with a folded corner for
# a file, a closed folder, and an open one whose front leans back to show
# it holds something.
def page(path):
    def pixel(x, y):
        if not (3 <= x <= 12 and 1 <= y <= 14) or x - 8 > y - 1 + 0:
            return CLEAR
        fold = x >= 9 and y <= 5 and x - 9 >= y - 1
        edge = x in (3, 12) or y in (1, 14) or (x - 8 == y - 1)
        if fold:
            return hexrgb(0xA9B6C9) + (255,)
        if edge:
            return hexrgb(0x6F7F98) + (255,)
        line = y in (7, 9, 11) and 5 <= x <= 10
        return hexrgb(0x8A98AE if line else 0xE4EAF2) + (255,)
    png(path, 16, 16, pixel)

def folder(path, open_):
    def pixel(x, y):
        tab = 1 <= x <= 6 and 3 <= y <= 4
        body = 1 <= x <= 14 and 5 <= y <= 13
        if open_ and 7 <= y <= 13:
            lean = (13 - y) // 3
            front = 1 + lean <= x <= 14 and y >= 7
            if front:
                return mix(hexrgb(0xF7D27A), hexrgb(0xD9A441), (y - 7) / 6) + (255,)
        if tab or body:
            edge = x in (1, 14) or y == 13 or (tab and y == 3) or (body and y == 5 and x > 6)
            color = 0x9C6E1E if edge else 0xC8923A
            return hexrgb(color) + (255,)
        return CLEAR
    png(path, 16, 16, pixel)

page('textures/node_file.png')
folder('textures/node_folder.png', False)
folder('textures/node_folder_open.png', True)
# The radar: a round scope face with range rings and a cross, clear outside
# the circle, and the blips that stand on it.
def radar_face(path, size):
    c = size / 2
    def pixel(x, y):
        dx, dy = x + 0.5 - c, y + 0.5 - c
        d = (dx * dx + dy * dy) ** 0.5
        cover = max(0.0, min(1.0, c - d))
        if cover <= 0:
            return CLEAR
        color = mix(hexrgb(0x0E3A24), hexrgb(0x05140C), d / c)
        if d > c - 4:
            color = hexrgb(0x5FA77A)
        elif any(abs(d - c * k / 3) < 0.8 for k in (1, 2)) or abs(dx) < 0.6 or abs(dy) < 0.6:
            color = mix(color, hexrgb(0x3F8F5E), 0.8)
        return color + (int(255 * cover + 0.5),)
    png(path, size, size, pixel)

def dot(path, size, inner, outer):
    def pixel(x, y):
        c = size / 2
        d = ((x + 0.5 - c) ** 2 + (y + 0.5 - c) ** 2) ** 0.5
        cover = max(0.0, min(1.0, c - d))
        return mix(hexrgb(inner), hexrgb(outer), d / c) + (int(255 * cover + 0.5),)
    png(path, size, size, pixel)

# The own ship in the middle: a bright arrow head pointing up, the heading.
def own_ship(path, size):
    def pixel(x, y):
        px, py = x + 0.5, y + 0.5
        half = py * 0.5
        inside = abs(px - size / 2) <= half and py <= size - 1
        return (hexrgb(0xE8FFF0) + (255,)) if inside else CLEAR
    png(path, size, size, pixel)

radar_face('textures/radar_face.png', 280)
dot('textures/blip_contact.png', 8, 0xB6FFC8, 0x2FBF5A)
dot('textures/blip_hostile.png', 10, 0xFFC2B0, 0xE0402A)
own_ship('textures/radar_self.png', 12)
