"""What a test gets for itself, so that it passes on any machine: fonts, shared memory, and pictures of its display.

GRIDWRIGHT_E2E_FONT=FAMILY:SIZE (such as "DejaVu Serif:14", in points) runs the tests with another font for all texts.
"""

import ctypes
import mmap
import os
import pathlib
import struct
import zlib
from xml.sax.saxutils import escape

FONTS = "/usr/share/fonts"
FAMILY, _, SIZE = os.environ.get("GRIDWRIGHT_E2E_FONT", "").partition(":")
QT_DEFAULT_POINTS = 9  # where the desktop names no font
DOTS_PER_INCH = 96

# Of the fonts of the machine only DejaVu, whatever else is installed. The family asked for stands for every other.
FONTS_CONF = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  {folders}
  <cachedir>{cache}</cachedir>
  <match target="pattern">
    <edit name="family" mode="prepend_first" binding="strong"><string>{family}</string></edit>
  </match>
</fontconfig>
"""


def fonts(folder):
    """The environment variables for programs that see the fonts of a test alone; a file for them goes to `folder`."""
    folders = {path.parent for path in pathlib.Path(FONTS).rglob("DejaVuSans*.ttf")}
    if not folders or (FAMILY and not FAMILY.startswith("DejaVu")):
        folders.add(FONTS)
    path = folder / "fonts.conf"
    path.write_text(FONTS_CONF.format(
        folders="".join(f"<dir>{escape(str(each))}</dir>" for each in sorted(map(str, folders))),
        cache=escape(str(folder)), family=escape(FAMILY or "DejaVu Sans")))
    variables = {"FONTCONFIG_FILE": str(path)}
    if SIZE:
        variables["QT_ENABLE_HIGHDPI_SCALING"] = "0"  # larger texts, and not everything larger
        variables["QT_FONT_DPI"] = str(round(DOTS_PER_INCH * float(SIZE) / QT_DEFAULT_POINTS))
    return variables


def text_size():
    """The text size to set in the program, in pixels; None for what it has by itself."""
    return round(float(SIZE) * DOTS_PER_INCH / 72) if SIZE else None


def take_own_shared_memory():
    """Leaves the shared memory, semaphores and message queues of the machine for new ones, where the kernel lets us."""
    new_user, new_ipc = 0x10000000, 0x08000000  # CLONE_NEWUSER, CLONE_NEWIPC
    unshare = ctypes.CDLL(None, use_errno=True).unshare
    if unshare(new_ipc) == 0:
        return
    user, group = os.geteuid(), os.getegid()
    if user == 0 or unshare(new_user | new_ipc) != 0:
        return
    for name, line in (("setgroups", "deny"), ("uid_map", f"{user} {user} 1"), ("gid_map", f"{group} {group} 1")):
        pathlib.Path("/proc/self", name).write_text(line)


class Screen:
    """The picture of a display, in the file that Xvfb keeps it in (see -fbdir)."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        head = struct.unpack(">25I", self.memory[:100])
        self.width, self.height, self.line = head[4], head[5], head[12]
        colour_bytes = 12
        self.start = head[0] + head[19] * colour_bytes

    def lines(self, rect):
        """The lines of pixels, four bytes each, of a rectangle (x, y, width, height)."""
        left, top, width, height = rect
        first = self.start + top * self.line + 4 * left
        return [self.memory[at:at + 4 * width] for at in range(first, first + height * self.line, self.line)]

    def brightness(self, rect):
        """From 0 for black to 1 for white, of a rectangle on average."""
        pixels = b"".join(self.lines(rect))
        return (sum(pixels) - sum(pixels[3::4])) / (255 * 3 * len(pixels) / 4)

    def write_png(self, path):
        lines = self.lines((0, 0, self.width, self.height))
        rows = bytearray((1 + 3 * self.width) * self.height)
        for y, line in enumerate(lines):
            row = bytearray(3 * self.width)
            row[0::3], row[1::3], row[2::3] = line[2::4], line[1::4], line[0::4]
            rows[y * (1 + len(row)) + 1:(y + 1) * (1 + len(row))] = row

        def chunk(name, data):
            return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

        head = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(rows))
                         + chunk(b"IEND", b""))
