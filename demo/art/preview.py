#!/usr/bin/env python3
"""Checks the art files and draws contact sheets of them.

    preview.py PALETTE OUT [SCALE]

PALETTE is a palette file of 64 colours as the build makes it (fr_nesB.pal); the sheets go to OUT as PNG files.
A theme is drawn once for each of its palette sets (meadow, meadow_autumn, ...). Every fault ends the run with its place.
"""
import re
import struct
import sys
import zlib
from pathlib import Path

MAX_BLOCKS = 64  # a room holds that many background blocks
DARK = (40, 40, 48)


class ArtFile:
    def __init__(self, path):
        self.metatiles, self.sprites, self.tiles = {}, {}, {}
        self.palettes, self.pictures = {}, {}
        self._path, self._names = path, set()
        self._lines = iter(enumerate(path.read_text().splitlines(), 1))
        hints = {}
        for number, line in self._lines:
            self._number = number
            if line.startswith("#@"):
                hints = {k: int(v) for k, v in (pair.split("=") for pair in line[2:].split())}
            elif line.strip() and not line.startswith("#"):
                self._entry(line.split(), hints)
                hints = {}
        if path.stem in ("meadow", "village", "cave", "works") and len(self.metatiles) > MAX_BLOCKS:
            self._fail("more than %d metatiles" % MAX_BLOCKS)

    def _fail(self, text):
        sys.exit("%s:%d: %s" % (self._path.name, self._number, text))

    def _entry(self, words, hints):
        kind, name = words[0], words[1]
        if (kind, name) in self._names:
            self._fail("second %s %s" % (kind, name))
        self._names.add((kind, name))
        if kind == "metatile":
            self.metatiles[name] = self._rows(16, 16, ".123"), hints["palette"] & 3
            if not 0 <= hints["physics"] <= 15:
                self._fail("physics out of range")
        elif kind == "tile":
            self.tiles[name] = self._rows(8, 8, ".123"), hints.get("palette", 0)
        elif kind == "sprite":
            width, height = int(words[2]), int(words[3])
            if width % 8 or height % 8:
                self._fail("size is no multiple of 8")
            self.sprites[name] = self._rows(width, height, ".123"), hints["set"] & 3
        elif kind == "picture":
            self.pictures[name] = self._rows(int(words[2]), int(words[3]), "0123456789abcdef")
        elif kind == "colour":
            pass  # what the pictures of this file look like; only the game uses it
        elif kind == "palette":
            self.palettes[name] = [int(word, 16) & 63 for word in words[2:6]]
        else:
            self._fail("unknown word " + kind)

    def _rows(self, width, height, allowed):
        rows = []
        for _ in range(height):
            self._number, line = next(self._lines, (self._number, ""))
            if len(line) != width or set(line) - set(allowed):
                self._fail("bad row")
            rows.append([0 if c == "." else int(c, 16) for c in line])
        return rows

    def sets(self, prefix):
        return [self.palettes["%s_%d" % (prefix, i)] for i in range(4)]


class Sheet:
    """Drawings side by side, from left to right and then downwards."""

    def __init__(self, width, background=DARK):
        self._width, self._background = width, background
        self._rows, self._x, self._y, self._height = [], 2, 2, 0

    def add(self, rows, colours, transparent=False):
        if self._x + len(rows[0]) + 2 > self._width:
            self._x, self._y, self._height = 2, self._y + self._height + 2, 0
        self._height = max(self._height, len(rows))
        while len(self._rows) < self._y + len(rows) + 2:
            self._rows.append([self._background] * self._width)
        for y, row in enumerate(rows):
            for x, value in enumerate(row):
                if value or not transparent:
                    self._rows[self._y + y][self._x + x] = colours[value]
        self._x += len(rows[0]) + 2

    def save(self, path, scale):
        raw = b""
        for row in self._rows:
            raw += (b"\0" + b"".join(bytes(pixel) * scale for pixel in row)) * scale
        size = struct.pack(">IIBBBBB", self._width * scale, len(self._rows) * scale, 8, 2, 0, 0, 0)
        png = b"\x89PNG\r\n\x1a\n"
        for kind, data in ((b"IHDR", size), (b"IDAT", zlib.compress(raw)), (b"IEND", b"")):
            png += struct.pack(">I", len(data)) + kind + data
            png += struct.pack(">I", zlib.crc32(kind + data))
        path.write_bytes(png)


def main(arguments):
    if len(arguments) not in (2, 3):
        sys.exit(__doc__)
    palette = Path(arguments[0]).read_bytes()
    colours = [tuple(palette[3 * i : 3 * i + 3]) for i in range(64)]
    out, scale = Path(arguments[1]), int((arguments + ["4"])[2])
    out.mkdir(parents=True, exist_ok=True)
    folder = Path(__file__).parent
    files = {path.stem: ArtFile(path) for path in sorted(folder.glob("*.txt"))
             if path.stem != "overworld_map"}
    spriteSets = files["meadow"].sets("meadow_sprites")
    for stem, art in files.items():
        sets = {name[:-2] for name in art.palettes if re.fullmatch(r".*(?<!_sprites)_0", name)}
        for prefix in sorted(sets):
            sheet, chosen = Sheet(11 * 18 + 2), art.sets(prefix)
            for rows, number in list(art.metatiles.values()) + list(art.tiles.values()):
                shared = chosen[0][:1] + chosen[number][1:]
                sheet.add(rows, [colours[c] for c in shared])
            sheet.save(out / (prefix + ".png"), scale)
        if art.sprites:
            chosen = art.sets(stem + "_sprites") if art.palettes else spriteSets
            sheet = Sheet(200, colours[chosen[0][0]])
            for rows, number in art.sprites.values():
                sheet.add(rows, [colours[c] for c in chosen[number]], transparent=True)
            sheet.save(out / (stem + "_sprites.png"), scale)
        if art.pictures:
            sheet = Sheet(8 * 30 + 2)
            for rows in art.pictures.values():
                sheet.add(rows, [(17 * v,) * 3 for v in range(16)])
            sheet.save(out / (stem + "_pictures.png"), scale)


if __name__ == "__main__":
    main(sys.argv[1:])
