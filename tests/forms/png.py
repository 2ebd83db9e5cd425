# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Reads and writes the PNG files of the forms: four channels of 8 or 16 bits. NumPy and the standard library are enough."""
import struct
import zlib

import numpy as np

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def read_png(path):
    """An array (height, width, 4) of uint8 or uint16. Filters other than none, sub and up are not used by the program's writer."""
    with open(path, "rb") as file:
        data = file.read()
    if not data.startswith(SIGNATURE):
        raise ValueError(f"{path}: expected a PNG file")
    place, header, packed = len(SIGNATURE), None, []
    while place < len(data):
        length, kind = struct.unpack(">I4s", data[place:place + 8])
        body = data[place + 8:place + 8 + length]
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            packed.append(body)
        place += 12 + length
    width, height, bits, colours, _, _, interlaced = header
    if colours != 6 or bits not in (8, 16) or interlaced:
        raise ValueError(f"{path}: expected RGBA of 8 or 16 bits, got colour type {colours} of {bits} bits")
    pixel = bits // 2
    rows = np.frombuffer(zlib.decompress(b"".join(packed)), dtype=np.uint8).reshape(height, 1 + width * pixel)
    result = np.zeros((height, width, pixel), dtype=np.uint8)
    above = np.zeros((width, pixel), dtype=np.uint8)
    for y in range(height):
        row = rows[y, 1:].reshape(width, pixel)
        kind = int(rows[y, 0])
        if kind == 1:
            row = np.cumsum(row, axis=0, dtype=np.uint8)
        elif kind == 2:
            row = row + above
        elif kind != 0:
            raise ValueError(f"{path}: expected filters 0 to 2, got {kind} in row {y}")
        result[y] = above = row
    if bits == 8:
        return result
    return result.reshape(height, width, 4, 2).astype(np.uint16) @ np.array([256, 1], dtype=np.uint16)


def write_png(path, pixels):
    """Writes an array (height, width, 4) of uint8."""
    height, width, _ = pixels.shape
    rows = np.zeros((height, 1 + width * 4), dtype=np.uint8)
    rows[:, 1:] = pixels.reshape(height, width * 4)

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    with open(path, "wb") as file:
        file.write(SIGNATURE + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
                   + chunk(b"IDAT", zlib.compress(rows.tobytes(), 6)) + chunk(b"IEND", b""))
