"""Reads Mach-O executables: what macOS's loader and runtime will find in them."""
import hashlib
import struct

PROCESSORS = {0x0100000C: "arm64", 0x01000007: "x86_64"}
EXECUTABLE = 2
FLAGS = {"NOUNDEFS": 0x1, "DYLDLINK": 0x4, "TWOLEVEL": 0x80, "PIE": 0x200000}

LC_SEGMENT_64, LC_SYMTAB, LC_LOAD_DYLIB, LC_LOAD_DYLINKER = 0x19, 0x2, 0xC, 0xE
LC_CODE_SIGNATURE, LC_BUILD_VERSION, LC_MAIN = 0x1D, 0x32, 0x80000028
# Other ways to a library: weak, re-exported, upward, lazy; and paths to search.
OTHER_LIBRARIES = {0x80000018, 0x8000001F, 0x80000023, 0x20, 0x8000001C}


def slices(data):
    """The programs of a universal file, by processor."""
    magic, count = struct.unpack_from(">II", data)
    assert magic == 0xCAFEBABE, "not universal"
    found = {}
    for index in range(count):
        processor, _, offset, size, alignment = struct.unpack_from(">5I", data, 8 + 20 * index)
        page = {"arm64": 14, "x86_64": 12}[PROCESSORS[processor]]
        assert alignment >= page and offset % (1 << alignment) == 0, "a slice begins on a page"
        assert offset + size <= len(data), "cut off"
        found[PROCESSORS[processor]] = Executable(data[offset:offset + size])
        assert found[PROCESSORS[processor]].processor == PROCESSORS[processor]
    assert len(found) == count
    return found


class Executable:
    def __init__(self, data):
        self.data = data
        magic, processor, _, self.kind, count, _, self.flags, _ = struct.unpack_from("<8I", data)
        assert magic == 0xFEEDFACF, "not for 64 bits"
        self.processor = PROCESSORS[processor]
        self.commands, at = [], 32
        for _ in range(count):
            command, size = struct.unpack_from("<II", data, at)
            self.commands.append((command, data[at:at + size]))
            at += size
        self.sections = dict(self._sections())

    def _of(self, command):
        return [body for each, body in self.commands if each == command]

    def _sections(self):
        for body in self._of(LC_SEGMENT_64):
            for index in range(struct.unpack_from("<I", body, 64)[0]):
                section, segment, address, size, offset = struct.unpack_from("<16s16sQQI", body, 72 + 80 * index)
                name = segment.rstrip(b"\0").decode() + "," + section.rstrip(b"\0").decode()
                yield name, (address, size, offset)

    def section(self, name):
        """The bytes of the section of this name in whichever segment; none when there is none."""
        for full, (_, size, offset) in self.sections.items():
            if full.endswith("," + name):
                return self.data[offset:offset + size]
        return b""

    def _at(self, address, size):
        for start, length, offset in self.sections.values():
            if start <= address < start + length:
                return self.data[offset + address - start:][:size]
        raise AssertionError(f"nothing at {address:#x}")

    def _word(self, address):
        return struct.unpack("<Q", self._at(address, 8))[0]

    def _text(self, address):
        return self._at(address, 1000).split(b"\0")[0].decode()

    def has_main(self):
        return len(self._of(LC_MAIN)) == 1

    def loader(self):
        return [body[12:].rstrip(b"\0").decode() for body in self._of(LC_LOAD_DYLINKER)]

    def build_versions(self):
        """Of each entry the platform (1 is macOS) and the oldest version, as numbers."""
        found = [struct.unpack_from("<II", body, 8) for body in self._of(LC_BUILD_VERSION)]
        return [(platform, (version >> 16, version >> 8 & 255, version & 255)) for platform, version in found]

    def libraries(self):
        """The install names, in the order by which symbols refer to them."""
        assert not OTHER_LIBRARIES & {command for command, _ in self.commands}
        return [body[24:].rstrip(b"\0").decode() for body in self._of(LC_LOAD_DYLIB)]

    def imports(self):
        """What is taken of other libraries: the library's install name by symbol."""
        (body,), libraries, found = self._of(LC_SYMTAB), self.libraries(), {}
        symbols, count, strings, _ = struct.unpack_from("<4I", body, 8)
        for index in range(count):
            name, kind, _, description, _ = struct.unpack_from("<IBBHQ", self.data, symbols + 16 * index)
            if kind & 0xE0 == 0 and kind & 0x0E == 0: # no debugging entry, and undefined
                start = strings + name
                end = self.data.index(b"\0", start)
                found[self.data[start:end].decode()] = libraries[(description >> 8) - 1]
        return found

    def classes(self):
        """The Objective-C classes that the runtime registers: the selectors of their own methods by their names."""
        found = {}
        for address, in struct.iter_unpack("<Q", self.section("__objc_classlist")):
            # A class points to its constant part, which points to its name and to its methods.
            constants = self._word(address + 32) & ~7
            found[self._text(self._word(constants + 24))] = self._selectors(self._word(constants + 32))
        return found

    def _selectors(self, methods):
        if not methods:
            return []
        size, count = struct.unpack("<II", self._at(methods, 8))
        assert size == 24, "methods are three pointers each: selector, types, code"
        return [self._text(self._word(methods + 8 + size * index)) for index in range(count)]

    def signature(self):
        """The flags of the signature, all of whose hashes are right; nothing when there is none."""
        if not self._of(LC_CODE_SIGNATURE):
            return None
        (body,) = self._of(LC_CODE_SIGNATURE)
        offset, size = struct.unpack_from("<II", body, 8)
        blob = self.data[offset:offset + size]
        magic, _, count = struct.unpack_from(">III", blob)
        assert magic == 0xFADE0CC0 and count >= 1
        _, start = struct.unpack_from(">II", blob, 12)
        directory = blob[start:]
        magic, _, _, flags, hashes, _, _, pages, limit, length, kind, _, page = struct.unpack_from(
            ">9I4B", directory)
        assert magic == 0xFADE0C02 and (length, kind) == (32, 2), "hashes are SHA-256"
        assert limit == offset, "all that comes before the signature is signed"
        for index in range(pages):
            signed = self.data[index << page:min((index + 1) << page, limit)]
            expected = directory[hashes + 32 * index:hashes + 32 * index + 32]
            assert hashlib.sha256(signed).digest() == expected, f"page {index} is not what was signed"
        assert pages == -(-limit >> page)
        return flags
