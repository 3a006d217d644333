"""Bytes of level files of the form "RND1", file version 2. All numbers are big-endian."""

import struct


def level(width, height, cells, name, author, time=0, needed=0, tail=b""):
    """A level with two bytes a cell. `cells` are element numbers row by row; name and author at most 32 characters."""
    if len(cells) != width * height:
        raise ValueError(f"{len(cells)} cells do not fill {width} by {height}")
    block = struct.pack(">BBHH32s", width, height, time, needed, name.encode("latin-1"))
    block += bytes([10] * 16)  # scores
    block += bytes([4] * 36)  # contents of the four yam yams
    block += bytes([10, 10, 10, 14])  # amoeba speed, magic wall time, wheel time, amoeba content
    block += bytes([0, 0, 1])  # double speed, gravity, two bytes a cell
    block += bytes([0, 0, 0, 1])  # slippery gems, template, player blocks the last field, the same for Supaplex
    block += bytes([255] * 4 + [255])  # what may move into acid, who does not collide
    block += bytes([0, 0, 0])  # old spring bug, old step counter, instant relocation
    block += bytes([0, 1])  # pass to walkable, grow into diggable
    block += bytes([1])  # kind of engine
    body = struct.pack(f">{len(cells)}H", *cells)
    return (b"RND1" + bytes(4) + b"CAVE" + b"VERS" + struct.pack(">I", 8) + bytes([2, 0, 0, 0, 3, 1, 1, 0])
            + b"HEAD" + struct.pack(">I", 80) + block
            + b"AUTH" + struct.pack(">I32s", 32, author.encode("latin-1"))
            + b"BODY" + struct.pack(">I", len(body)) + body + tail)
