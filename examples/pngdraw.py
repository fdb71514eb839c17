# Small drawing helpers for the example textures: PNG writing, colour
# mixing and anti-aliased rounded boxes. No dependencies beyond Python.
import struct, zlib, sys

def png(path, w, h, pixel):
    rows = b''.join(b'\0' + b''.join(struct.pack('BBBB', *pixel(x, y)) for x in range(w)) for y in range(h))
    def chunk(kind, data):
        c = struct.pack('>I', len(data)) + kind + data
        return c + struct.pack('>I', zlib.crc32(kind + data) & 0xffffffff)
    with open(path, 'wb') as f:
        f.write(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', w, h, 8, 6, 0, 0, 0))
                + chunk(b'IDAT', zlib.compress(rows, 9)) + chunk(b'IEND', b''))

def hexrgb(c): return ((c >> 16) & 255, (c >> 8) & 255, c & 255)
def mix(a, b, t): return tuple(int(a[i] + (b[i] - a[i]) * t + 0.5) for i in range(3))

def rounded(w, h, r, x, y):
    # coverage of a rounded rectangle at pixel x,y
    cx = min(max(x + 0.5, r), w - r); cy = min(max(y + 0.5, r), h - r)
    d = ((x + 0.5 - cx) ** 2 + (y + 0.5 - cy) ** 2) ** 0.5
    return max(0.0, min(1.0, r - d + 0.5))

def box(path, w, h, radius, top, bottom, edge, edge_width=1):
    top, bottom, edge = hexrgb(top), hexrgb(bottom), hexrgb(edge)
    def pixel(x, y):
        outer = rounded(w, h, radius, x, y)
        inner = rounded(w - 2 * edge_width, h - 2 * edge_width, max(radius - edge_width, 0.5), x - edge_width, y - edge_width) if edge_width <= x < w - edge_width and edge_width <= y < h - edge_width else 0.0
        fill = mix(top, bottom, y / max(h - 1, 1))
        color = mix(edge, fill, inner)
        return color + (int(255 * outer + 0.5),)
    png(path, w, h, pixel)
