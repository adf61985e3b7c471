#!/usr/bin/env python3
"""Makes flex-notes.dsk, a FLEX disk with a few texts of our own.

35 tracks of 18 sectors, written from the tables in docs/formats/flex.md. Sectors that no file uses
stand in the free chain, as FLEX leaves them. With --check nothing is written; the exit code says
whether the disk is what this program makes.
"""
import pathlib
import sys

DISK = pathlib.Path(__file__).resolve().parent / "flex-notes.dsk"

SECTOR = 256
TRACKS = 35
SECTORS = 18
RECORD = 2  # sector of the System Information Record, from 0
DIRECTORY = (0, 5)
SLOTS_PER_SECTOR = 10
DATA_BYTES = 252
SKIPPED = 12  # bytes of a file's last sector that Brindlemoor does not read

NOTES = (5, 6, 84)  # month, day, year

LINKS_TEXT = """\
HOW A FILE LIES ON THIS DISK

Every sector begins with a link: the track and the sector of
the next one. Two bytes with the number of the sector in its
file follow, and then 252 bytes of the file. In the last
sector the link is 0, 0.

The directory is such a chain too. It begins in track 0,
sector 5, and holds ten names in each sector. Sectors that
are in no file make one more chain, the free chain; a new
file takes its sectors from the front of it, and a file that
is killed puts its own at the end.

So nothing has to be marked as used or free, and a disk is
full when the free chain is empty. The price is paid by who
wants the middle of a file: all sectors before it have to be
read first. Random files have a table of their sectors for
that.
"""

WEATHER_TEXT = """\
WEATHER AT THE HARBOUR

Mon  wind SW 3   sea calm      the ferry on time
Tue  wind SW 5   sea slight    the ferry on time
Wed  wind W  7   sea rough     the ferry late by an hour
Thu  wind W  9   sea high      no ferry
Fri  wind NW 6   sea rough     two ferries, both full
Sat  wind N  3   sea slight    the lamp at the mole is out
Sun  wind N  1   sea calm      lamp mended, paint still wet
"""

LAMP_TEXT = "".join(
    f"Night {night:2}: lit at {16 + night % 3}:{night * 7 % 60:02}, out at "
    f"{6 + night % 2}:{night * 11 % 60:02}, oil {40 - night} pints, {keeper} on watch.\n"
    for night, keeper in zip(range(1, 32), ["Ada", "Brin", "Cole"] * 11))

README_TEXT = """\
A disk of plain texts for Brindlemoor.
LINKS tells how files lie on it, WEATHER and LAMP are there to
be read, LAMP in sectors that are scattered over the disk. A
fourth text was killed and still stands in the list.
"""

KILLED_TEXT = "This text was killed. Its sectors are at the end of the free chain.\n"


def flex_text(text):
    """Lines end in a CR."""
    return text.replace("\n", "\r").encode("ascii")


def spread(data):
    """The bytes of a file in pieces of 252. The last one begins with zero bytes, which FLEX skips
    in a text: Brindlemoor does not read them. Where no room is left for them in it, a piece of
    zero bytes alone follows."""
    pieces = [data[place:place + DATA_BYTES] for place in range(0, len(data), DATA_BYTES)]
    rest = pieces.pop() if len(pieces[-1]) <= DATA_BYTES - SKIPPED else b""
    return pieces + [bytes(SKIPPED) + rest]


class Disk:
    def __init__(self):
        self.image = bytearray(TRACKS * SECTORS * SECTOR)
        self.free = [(track, sector) for track in range(1, TRACKS)
                     for sector in range(1, SECTORS + 1)]
        self.slots = []

    def put(self, place, offset, data):
        track, sector = place
        start = (track * SECTORS + sector - 1) * SECTOR + offset
        self.image[start:start + len(data)] = data

    def link(self, places):
        for place, following in zip(places, places[1:] + [(0, 0)]):
            self.put(place, 0, bytes(following))

    def add(self, name, extension, text, date, attributes=0, scattered=False, killed=False):
        pieces = spread(flex_text(text))
        step = 37 if scattered else 1
        places = [self.free[number * step] for number in range(len(pieces))]
        self.free = [place for place in self.free if place not in places]
        self.link(places)
        for number, (place, piece) in enumerate(zip(places, pieces), 1):
            self.put(place, 2, number.to_bytes(2, "big") + piece)
        slot = name.encode("ascii").ljust(8, b"\0") + extension.encode("ascii").ljust(3, b"\0")
        slot += bytes([attributes, 0]) + bytes(places[0]) + bytes(places[-1])
        slot += len(places).to_bytes(2, "big") + bytes(2) + bytes(date)
        if killed:
            slot = b"\xff" + slot[1:]
            self.free += places
        self.slots.append(slot)

    def finish(self):
        # A killed file's sectors keep their links: only the chain in front leads to them.
        self.link(self.free)
        directory = [(DIRECTORY[0], sector) for sector in range(DIRECTORY[1], SECTORS + 1)]
        self.link(directory)
        for number, slot in enumerate(self.slots):
            place = directory[number // SLOTS_PER_SECTOR]
            self.put(place, 16 + number % SLOTS_PER_SECTOR * 24, slot)
        record = bytearray(SECTOR)
        record[16:21] = b"NOTES"
        record[27:29] = (1).to_bytes(2, "big")
        record[29:33] = bytes(self.free[0]) + bytes(self.free[-1])
        record[33:35] = len(self.free).to_bytes(2, "big")
        record[35:38] = bytes(NOTES)
        record[38:40] = bytes([TRACKS - 1, SECTORS])
        self.image[RECORD * SECTOR:(RECORD + 1) * SECTOR] = record
        return bytes(self.image)


def make():
    disk = Disk()
    disk.add("README", "TXT", README_TEXT, (5, 6, 84), attributes=0xC0)
    disk.add("LINKS", "TXT", LINKS_TEXT, (5, 6, 84))
    disk.add("WEATHER", "TXT", WEATHER_TEXT, (4, 30, 84))
    disk.add("KILLED", "TXT", KILLED_TEXT, (1, 2, 84), killed=True)
    disk.add("LAMP", "TXT", LAMP_TEXT, (12, 3, 83), scattered=True)
    return disk.finish()


def main():
    image = make()
    if "--check" not in sys.argv:
        DISK.write_bytes(image)
    elif not DISK.exists() or DISK.read_bytes() != image:
        print(f"{DISK.name} is not what make_flex_disk.py makes")
        return 1
    return 0


sys.exit(main())
