#!/usr/bin/env python3
"""Writes the seeds of the disk, BASIC, tape and header targets into fuzz/corpus, most of them from
the files of tests/data.

A seed of a disk holds the sectors of a disk that say where things are (allocation tables, directories,
file descriptors) and no contents. No image here is a FLEX disk, so one is made from the format's
tables.
"""
import pathlib
import struct

FUZZ = pathlib.Path(__file__).resolve().parent
DATA = FUZZ.parent / "tests" / "data"
SECTOR = 256


def save(target, name, data):
    folder = FUZZ / "corpus" / target
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(data)


def sector(image, number):
    return image[number * SECTOR:(number + 1) * SECTOR]


def pieces(image, wanted, fill=0):
    """The input of disk_sectors_fuzzer for these sectors; runs of the filler are left out."""
    out = bytearray(struct.pack("<HB", len(image) // SECTOR - 1, fill))
    for number in wanted:
        data = sector(image, number)
        used = len(data.rstrip(bytes([fill])))
        for start in range(0, used, 128):
            part = data[start:min(start + 128, used)]
            if part.strip(bytes([fill])):
                out += struct.pack("<HBB", number, start, len(part)) + part
    return bytes(out)


def cut_down(image, wanted):
    """The image up to the last sector wanted, with zeros in all others."""
    out = bytearray((max(wanted) + 1) * SECTOR)
    for number in wanted:
        out[number * SECTOR:(number + 1) * SECTOR] = sector(image, number)
    return bytes(out)


def decb_sectors(image):
    return list(range(17 * 18 + 1, 17 * 18 + 11))


def dragon_sectors(image):
    used = [20 * 18, 20 * 18 + 1]
    for number in range(20 * 18 + 2, 20 * 18 + 18):
        if sector(image, number).strip(b"\x00\x89"):
            used.append(number)
    return used


def os9_sectors(image):
    """LSN 0, the map, and every descriptor and directory that can be reached from the root."""
    found = {0}
    bitmap = struct.unpack(">H", image[4:6])[0]
    found.update(range(1, 1 + (bitmap + SECTOR - 1) // SECTOR))
    waiting = [int.from_bytes(image[8:11], "big")]
    while waiting:
        lsn = waiting.pop()
        if lsn in found or lsn * SECTOR >= len(image):
            continue
        found.add(lsn)
        descriptor = sector(image, lsn)
        if not descriptor[0] & 0x80:
            continue
        left = struct.unpack(">I", descriptor[9:13])[0]
        for at in range(16, 256, 5):
            start = int.from_bytes(descriptor[at:at + 3], "big")
            for number in range(start, start + int.from_bytes(descriptor[at + 3:at + 5], "big")):
                if left <= 0:
                    break
                found.add(number)
                for entry in range(0, min(SECTOR, left), 32):
                    row = sector(image, number)[entry:entry + 32]
                    if row[0] and row[0] not in (0x2E, 0xAE):
                        waiting.append(int.from_bytes(row[29:32], "big"))
                left -= SECTOR
    return sorted(found)


def flex_image():
    """35 tracks of 10 sectors; a directory of two sectors, two files, one of them deleted."""
    image = bytearray(350 * SECTOR)

    def put(track, number, data):
        at = (track * 10 + number - 1) * SECTOR
        image[at:at + len(data)] = data

    record = bytearray(SECTOR)
    record[16:26] = b"LANTERN\0\0\0"
    record[26:40] = bytes([0, 1, 2, 1, 34, 10, 1, 0, 9, 5, 4, 86, 34, 10])
    put(0, 3, record)
    rows = bytearray(240)
    rows[0:24] = b"WICK\0\0\0\0TXT" + bytes([0, 0, 1, 1, 1, 2, 0, 2, 0, 5, 4, 86, 0])
    rows[24:48] = b"\xc1MP\0\0\0\0\0BIN" + bytes([0, 0, 1, 3, 1, 3, 0, 1, 2, 5, 4, 86, 0])
    put(0, 5, bytes([0, 6]) + bytes(14) + rows)
    put(0, 6, bytes([0, 0]))
    put(1, 1, bytes([1, 2, 0, 1]) + b"A" * 252)
    put(1, 2, bytes([0, 0, 0, 2]) + b"B" * 100)
    put(1, 3, bytes([0, 0, 0, 1]) + b"C" * 252)
    return bytes(image)


def basic_seeds():
    """Programs as two tools stored them, and the texts that they were made from."""
    for path in sorted(DATA.glob("basic/*.tok")):
        save("basic_to_text_fuzzer", path.stem, path.read_bytes())
    coco = (DATA / "basic/PRIMES.decb.tok").read_bytes()
    dragon = (DATA / "basic/TRIANGLE.imgtool.tok").read_bytes()
    save("basic_to_text_fuzzer", "cut-in-a-line", coco[:100])
    save("basic_to_text_fuzzer", "negative-length", coco[:1] + b"\x80\0" + coco[3:100])
    save("basic_to_text_fuzzer", "no-end-mark", dragon[:8] + b"\0" + dragon[9:])
    save("basic_to_text_fuzzer", "wrong-tokens", dragon[:9] + b"\x24\x22\0\x0a\xf9A\xff\xa9\xff")
    for path in sorted(DATA.glob("content/*-basic/*.BAS")):
        save("text_to_basic_fuzzer", path.stem, path.read_bytes())
    save("text_to_basic_fuzzer", "crlf", b"\r10 REM\"FOR\"\r\n20 DATA\"?\":?\r\n")
    save("text_to_basic_fuzzer", "no-numbers", b"CLS\nPRINT\n")
    save("text_to_basic_fuzzer", "blanks-at-the-end", b"10 A\r20   ")


def write_seeds():
    """Lists of operations for write_disk_fuzzer, which tells their arguments."""
    def write(name, size, overwrite=0, fill=b"x"):
        return bytes([0, len(name)]) + name + bytes([overwrite]) + struct.pack("<H", size) + fill

    def row(index, chain, flags=0, link=0, level=0, attributes=0):
        return bytes([8, index, flags, link, 40, 0, 9, level, attributes, len(chain)]) + chain

    delete, commit, read = (lambda index: bytes([2, index, 0])), b"\4", b"\5"
    files = write(b"A.BIN", 100) + write(b"B.BAS", 2000, fill=b"\xff") + write(b"C", 1)
    for family, name in enumerate(["decb", "dragon", "os9", "flex"]):
        start = bytes([family])
        save("write_disk_fuzzer", name, start + files + delete(1) + write(b"D.TXT", 900) + commit + read)
        save("write_disk_fuzzer", name + "-cut", start + files + b"\7\x40\x5a" + write(b"E", 5)
             + commit + read)
        save("write_disk_fuzzer", name + "-overwritten", start + files + commit + read
             + write(b"A.BIN", 3000, 1) + b"\3\2\0\1" + commit + read)
    save("write_disk_fuzzer", "decb-full", b"\0" + write(b"ALL.BIN", 52223) + write(b"B", 1))
    save("write_disk_fuzzer", "decb-chain", b"\0" + files + row(0, b"\x20\x44\xff") + delete(0) + commit)
    save("write_disk_fuzzer", "dragon-no-exit", b"\1\6\0\x5a\xb4" + bytes(180) + write(b"A", 1))
    save("write_disk_fuzzer", "dragon-links", b"\1" + files + row(1, b"\1\x90\1" * 13, 33, 2) + commit
         + delete(1) + commit)
    save("write_disk_fuzzer", "os9-tree", b"\2" + row(4, b"\0\0\x50\0\2", 0, 0, 1, 0xBF) + b"\x09\1\2\0")
    save("write_disk_fuzzer", "os9-large", b"\2\6\0\0\3\x20\0\0" + read + commit)


def wav(channels, rate, bits, samples):
    align = channels * bits // 8
    return (b"RIFF" + struct.pack("<I", len(samples) + 36) + b"WAVEfmt "
            + struct.pack("<IHHIIHH", 16, 1, channels, rate, rate * align, align, bits)
            + b"data" + struct.pack("<I", len(samples)) + samples)


def tape_seeds():
    """Tapes and parts of recordings, files for tape, a cartridge. A byte in front says the type."""
    for path in sorted(DATA.glob("tape/*.cas")):
        save("cas_fuzzer", path.stem, b"\0" + path.read_bytes().lstrip(b"\0"))
    save("cas_fuzzer", "no-end-block", b"\0" + (DATA / "tape/tiny.cas").read_bytes()[12:300])
    save("cas_fuzzer", "dragon", b"\1" + (DATA / "tape/ml.cas").read_bytes()[12:])
    save("cas_fuzzer", "tokens", b"\0" + (DATA / "basic/PRIMES.decb.tok").read_bytes())
    save("cas_fuzzer", "dragon-file", b"\x08" + (DATA / "basic/TRIANGLE.imgtool.tok").read_bytes())
    save("cas_fuzzer", "binary", b"\0" + (DATA / "content/binary/ONESEG.BIN").read_bytes())
    save("cas_fuzzer", "ascii", b"\0\r10 CLS\r")
    save("cas_fuzzer", "raw", b"\x28raw data")

    sound = (DATA / "tape-castool/tiny-44100.wav").read_bytes()
    first = next(at for at in range(44, len(sound)) if sound[at] >= 148)
    save("wav_fuzzer", "mono-8", wav(1, 44100, 8, sound[first - 20:first + 4000]))
    wide = b"".join(struct.pack("<h", (byte - 128) * 256) for byte in sound[first:first + 4000:2])
    save("wav_fuzzer", "mono-16", wav(1, 22050, 16, wide))
    save("wav_fuzzer", "stereo-16", wav(2, 11025, 16, wide))
    save("wav_fuzzer", "stereo-8", wav(2, 44100, 8, sound[first:first + 500]))
    save("wav_fuzzer", "bits-24", wav(1, 14700, 24, wide[:3000]))
    save("wav_fuzzer", "header-cut", sound[:30])
    tape = (DATA / "tape-castool/tiny.cas").read_bytes()
    save("wav_fuzzer", "stream", b"4000\n8\n1\n110\n1200\n2400\n1\n500\n" + tape)
    save("wav_fuzzer", "no-silence", b"4000\n16\n2\n110\n1100\n2000\n0\n0\n" + tape)

    rom = bytes(range(100))
    save("cartridge_fuzzer", "rom", rom)
    save("cartridge_fuzzer", "pak", b"\xc0\0" + struct.pack("<H", 100) + rom + b"\xc0" + bytes(34))


def main():
    basic_seeds()
    write_seeds()
    tape_seeds()
    header = b"dk" + struct.pack("<H", 16) + bytes([16, 16, 2, 3, 35, 1, 0, 4 * 8]) + b"DISK"
    save("dates_and_names_fuzzer", "dk-header", header)
    for path in sorted(DATA.glob("decb*/*.dsk")):
        image = path.read_bytes()
        if len(image) % SECTOR == 0:
            save("disk_sectors_fuzzer", f"{path.stem}", pieces(image, decb_sectors(image)))
    for path in sorted(DATA.glob("dragon/*.dsk")) + sorted(DATA.glob("dragon/*.vdk")):
        image = path.read_bytes()
        image = image[len(image) % SECTOR:]
        save("disk_sectors_fuzzer", path.stem, pieces(image, dragon_sectors(image)))
    wide = bytearray((DATA / "dragon/dragon40-ss-frag.vdk").read_bytes()[12:])
    wide[360 * SECTOR + 252:360 * SECTOR + 256] = bytes([40, 40, 215, 215])
    save("disk_sectors_fuzzer", "dragon-40-sectors", pieces(wide, dragon_sectors(wide)))
    for path in sorted(DATA.glob("os9/*.dsk")):
        image = path.read_bytes()
        save("disk_sectors_fuzzer", path.stem, pieces(image, os9_sectors(image)))
    flex = flex_image()
    save("disk_sectors_fuzzer", "flex", pieces(flex, [2, 4, 5, 10, 11, 12]))

    loop = (DATA / "decb-damaged/loop.dsk").read_bytes()
    dragon = (DATA / "dragon/dragon40-ss-frag.vdk").read_bytes()
    named = (DATA / "dragon/dragon40-ss-named.vdk").read_bytes()
    os9 = (DATA / "os9/os9-40x1-dragonboot.dsk").read_bytes()
    dmk = (DATA / "decb/decb35-imgtool.dmk").read_bytes()
    save("read_disk_fuzzer", "decb-loop", cut_down(loop, decb_sectors(loop)))
    save("read_disk_fuzzer", "decb-ends-in-the-directory", cut_down(loop, [307, 308])[:-100])
    save("read_disk_fuzzer", "vdk", dragon[:12] + cut_down(dragon[12:], dragon_sectors(dragon[12:])))
    save("read_disk_fuzzer", "vdk-header-alone", named[:43])
    save("read_disk_fuzzer", "os9", os9)
    save("read_disk_fuzzer", "flex", flex[:13 * SECTOR])
    save("read_disk_fuzzer", "dmk-two-tracks", dmk[:16 + 2 * 6400])
    save("read_disk_fuzzer", "jvc-in-vdk", b"dk\x14\0" + bytes(7) + b"\x40" + b"TAPE.JVC"
         + bytes([18, 1, 1, 1, 0]) + bytes(2 * SECTOR))
    save("read_disk_fuzzer", "jvc", bytes([18, 1, 1, 1, 0]) + bytes(2 * SECTOR))
    save("read_disk_fuzzer", "hard-disk", b"hd\5" + cut_down(loop, decb_sectors(loop)))
    save("read_disk_fuzzer", "one-sector", bytes(SECTOR))


main()
