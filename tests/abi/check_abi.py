#!/usr/bin/env python3
"""Checks the built shared object of one variant against everything that its interface fixes about the file: entries,
slot table, names, versions, needed objects, imports, and the constants that stand in it.

usage: check_abi.py --variant h9|x9 --list tools/exports.tsv --exports entries/exports.txt OBJECT

--list has all names of the interface, one a line, with the folder of each; --exports those declared in the headers of
this build. Prints one line a check; fails if one of them does.
"""
import argparse
import collections
import os
import re
import struct
import subprocess
import sys
from pathlib import Path

CORE = set("""
    orvAlignPtr orvFree orvGetCpuFeatures orvGetEnabledCpuFeatures orvGetMaxCacheSizeB orvMalloc
    ownGetFeature ownGetNumThreads""".split())
OPENMP = set("""
    __kmpc_global_thread_num __kmpc_ok_to_fork __kmpc_push_num_threads __kmpc_fork_call __kmpc_serialized_parallel
    __kmpc_end_serialized_parallel __kmpc_master __kmpc_end_master __kmpc_barrier
    omp_get_num_threads omp_get_thread_num""".split())
MATHS = set("cos sin sincos log exp exp2 pow atan2 cosh sinh".split())  # of the C library itself: nothing

NEEDED = ["liborvcore.so.8.2", "libomp.so.5", "libc.so.6", "libm.so.6"]


class Variant:
    """What differs between the variants."""

    def __init__(self, code):
        wide = code == "x9"
        self.code = code
        self.elf_class = "ELF64" if wide else "ELF32"
        self.machine = "X86-64" if wide else "80386"
        self.pointer = 8 if wide else 4
        self.relative = "R_X86_64_RELATIVE" if wide else "R_386_RELATIVE"
        self.jump_slot = "R_X86_64_JUMP_SLOT" if wide else "R_386_JUMP_SLOT"
        self.entry_size, self.entry_pitch = (6, 8) if wide else (21, 24)
        self.glibc = "GLIBC_2.2.5" if wide else "GLIBC_2.0"
        self.soname = f"liborvs{code}.so.8.2"


Section = collections.namedtuple("Section", "name address offset size flags")
Symbol = collections.namedtuple("Symbol", "address size type bind visibility section name")
Relocation = collections.namedtuple("Relocation", "address type symbol addend")


class ElfObject:
    """The file, as readelf and objdump tell it. Numbers of tables are read from the file itself."""

    def __init__(self, path, variant):
        self.path, self.variant = path, variant
        self.content = Path(path).read_bytes()
        self.header = self.run("readelf", "-W", "-h")
        self.sections = self.read_sections()
        self.dynamic_symbols = self.read_symbols("--dyn-syms")
        self.symbols = self.read_symbols("--syms")
        self.dynamic = self.read_dynamic()
        self.versions = self.run("readelf", "-W", "-V")
        self.relocations = self.read_relocations()
        self.by_name = collections.defaultdict(list)
        for symbol in self.symbols:
            self.by_name[symbol.name].append(symbol)

    def run(self, *command):
        return subprocess.run([*command, self.path], check=True, stdout=subprocess.PIPE, text=True,
                              env=dict(os.environ, LC_ALL="C")).stdout

    def read_sections(self):
        pattern = re.compile(r"^\s*\[\s*(\d+)\]\s+(\S*)\s+[A-Z_]+\s+([0-9a-f]+) ([0-9a-f]+) ([0-9a-f]+) [0-9a-f]+ +(\w*?) +\d+ +\d+ +\d+$",
                             re.MULTILINE)
        return {int(number): Section(name, int(address, 16), int(offset, 16), int(size, 16), flags)
                for number, name, address, offset, size, flags in pattern.findall(self.run("readelf", "-W", "-S"))}

    def read_symbols(self, table):
        symbols = []
        for line in self.run("readelf", "-W", table).splitlines():
            words = line.split()
            if len(words) >= 7 and re.fullmatch(r"\d+:", words[0]) and words[0] != "0:":
                name = words[7] if len(words) > 7 else ""
                size = int(words[2], 0)
                symbols.append(Symbol(int(words[1], 16), size, words[3], words[4], words[5], words[6], name))
        return symbols

    def read_dynamic(self):
        pattern = re.compile(r"^ 0x[0-9a-f]+ \((\w+)\)\s+(.*)$", re.MULTILINE)
        return pattern.findall(self.run("readelf", "-W", "-d"))

    def read_relocations(self):
        pattern = re.compile(r"^([0-9a-f]{8,16})  [0-9a-f]{8,16} (R_\w+) *(.*)$", re.MULTILINE)
        relocations = []
        for address, kind, rest in pattern.findall(self.run("readelf", "-W", "-r")):
            words = rest.split()
            if kind != self.variant.relative:
                addend, symbol = None, words[1] if len(words) > 1 else ""
            elif words:
                addend, symbol = int(words[0], 16), ""
            else:
                addend, symbol = self.number(int(address, 16), 4), ""  # stands in the word itself
            relocations.append(Relocation(int(address, 16), kind, symbol, addend))
        return relocations

    def named_section(self, name):
        found = [section for section in self.sections.values() if section.name == name]
        return found[0] if len(found) == 1 else Section(name, 0, 0, 0, "")

    def section_of(self, symbol):
        return self.sections[int(symbol.section)].name if symbol.section.isdigit() else symbol.section

    def bytes_at(self, address, size):
        for section in self.sections.values():
            if section.address and section.address <= address and address + size <= section.address + section.size:
                at = section.offset + address - section.address
                return self.content[at:at + size]
        return b"\0" * size

    def number(self, address, size):
        return int.from_bytes(self.bytes_at(address, size), "little")

    def text_at(self, address):
        text = b""
        while len(text) < 200 and (byte := self.bytes_at(address + len(text), 1)) != b"\0":
            text += byte
        return text.decode("ascii", errors="replace")

    def dynamic_values(self, tag):
        return [value for name, value in self.dynamic if name == tag]

    def bracketed(self, tag):
        return [re.search(r"\[(.*)\]", value).group(1) for value in self.dynamic_values(tag)]

    def instructions(self, start, stop):
        """(address, text without prefixes of encoding) of the code between two addresses."""
        listing = self.run("objdump", "-d", "-w", "--no-show-raw-insn", f"--start-address={start}",
                           f"--stop-address={stop}")
        pattern = re.compile(r"^\s*([0-9a-f]+):\s+(.*?)\s*$", re.MULTILINE)
        return [(int(address, 16), re.sub(r"\s+", " ", text)) for address, text in pattern.findall(listing)]


class Abi:
    """The checks: each method yields what is wrong, and its first line of documentation says what is right."""

    def __init__(self, elf, variant, interface, declared):
        self.elf, self.variant, self.interface, self.declared = elf, variant, interface, declared
        self.definitions = [s for s in elf.dynamic_symbols if s.section != "UND"]
        self.imports = [s for s in elf.dynamic_symbols if s.section == "UND"]
        self.names = sorted(declared)
        self.slots = sorted((s for s in elf.symbols if s.name.endswith("_arraddr")), key=lambda s: s.address)
        self.slot_address = {s.name.removesuffix("_arraddr"): s.address for s in self.slots}
        self.relative = {}
        for relocation in elf.relocations:
            if relocation.type == variant.relative:
                self.relative.setdefault(relocation.address, []).append(relocation.addend)
        self.entries = sorted((s for s in self.definitions if s.name in declared), key=lambda s: s.address)

    # ---- The object

    def check_kind(self):
        """is a shared object of this variant's word size, without an executable stack or relocated code"""
        for wanted in (self.variant.elf_class, self.variant.machine, "DYN"):
            if wanted not in self.elf.header:
                yield f"not {wanted}"
        stack = re.search(r"GNU_STACK.*", self.elf.run("readelf", "-W", "-l"))
        if not stack or "RWE" in stack.group():
            yield "the stack is executable"
        if self.elf.dynamic_values("TEXTREL") or "TEXTREL" in "".join(self.elf.dynamic_values("FLAGS")):
            yield "code is relocated"

    def check_soname(self):
        """bears its shared-object name"""
        if self.elf.bracketed("SONAME") != [self.variant.soname]:
            yield f"the name is {self.elf.bracketed('SONAME')}"

    def check_needed(self):
        """needs the core library, the OpenMP runtime, the C library and the maths library, in this order"""
        if self.elf.bracketed("NEEDED") != NEEDED:
            yield f"it needs {self.elf.bracketed('NEEDED')}"

    def check_load_and_unload(self):
        """runs _init when loaded and _fini when unloaded, and nothing else"""
        for tag, name in (("INIT", "_init"), ("FINI", "_fini")):
            addresses = [int(value, 16) for value in self.elf.dynamic_values(tag)]
            symbols = [s.address for s in self.elf.by_name[name] if s.type == "FUNC"]
            if len(addresses) != 1 or addresses != symbols:
                yield f"DT_{tag} is {addresses}, {name} at {symbols}"
        for tag in ("INIT_ARRAY", "FINI_ARRAY", "PREINIT_ARRAY"):
            if self.elf.dynamic_values(tag):
                yield f"there is a DT_{tag}"

    # ---- Names and versions

    def check_definitions(self):
        """defines the declared exports as global functions, and nothing else"""
        defined = [s.name for s in self.definitions]
        yield from (f"{name} is missing" for name in sorted(self.declared - set(defined)))
        yield from (f"{name} is defined as well" for name in sorted(set(defined) - self.declared))
        if len(defined) != len(set(defined)):
            yield "a name is defined twice"
        for s in self.definitions:
            if (s.type, s.bind, s.visibility) != ("FUNC", "GLOBAL", "DEFAULT"):
                yield f"{s.name} is {s.type} {s.bind} {s.visibility}"

    def check_interface(self):
        """defines only names of the interface"""
        yield from (f"{s.name} is not in the list" for s in self.definitions if s.name not in self.interface)

    def check_no_versions(self):
        """defines no version, and no name carries one"""
        if "Version definition section" in self.elf.versions or self.elf.dynamic_values("VERDEF"):
            yield "versions are defined"
        yield from (f"{s.name} has a version" for s in self.definitions if "@" in s.name)

    def check_needed_versions(self):
        """needs versions of the OpenMP runtime, the C library and the maths library only, and one of each"""
        allowed = {"libomp.so.5": {"VERSION"}, "libc.so.6": {self.variant.glibc}, "libm.so.6": {self.variant.glibc}}
        file = None
        for line in self.elf.versions.splitlines():
            if found := re.search(r"Version: \d+  File: (\S+)", line):
                file = found.group(1)
            elif (found := re.search(r"Name: (\S+)  Flags:", line)) and found.group(1) not in allowed.get(file, ()):
                yield f"{found.group(1)} of {file}"

    # ---- Imports

    def check_imports(self):
        """takes functions of the core library, of the OpenMP runtime and of the maths library, each by its version"""
        for s in self.imports:
            name, _, version = s.name.partition("@")
            version = version.lstrip("@")
            if name in CORE:
                wanted = ""
            elif name in OPENMP:
                wanted = "VERSION"
            elif name in MATHS:
                wanted = self.variant.glibc
            else:
                yield f"{s.name} is taken from elsewhere"
                continue
            if version != wanted:
                yield f"{s.name} has the version '{version}', not '{wanted}'"
            if s.bind != "GLOBAL":
                yield f"{s.name} is {s.bind}"
        if self.declared == set(self.interface):
            taken = {s.name.partition("@")[0] for s in self.imports}
            yield from (f"{name} is not taken" for name in sorted((CORE | OPENMP) - taken))

    def check_lazy_binding(self):
        """binds each import lazily, through a linkage entry of its own"""
        flags = "".join(self.elf.dynamic_values("FLAGS") + self.elf.dynamic_values("FLAGS_1"))
        if self.elf.dynamic_values("BIND_NOW") or "NOW" in flags:
            yield "all is bound at load time"
        count = collections.Counter()
        for relocation in self.elf.relocations:
            if relocation.type == self.variant.jump_slot:
                count[relocation.symbol.partition("@")[0]] += 1
            elif relocation.type != self.variant.relative:
                yield f"{relocation.type} for {relocation.symbol or 'no symbol'} at {relocation.address:x}"
        names = {s.name.partition("@")[0] for s in self.imports}
        for name in sorted(names | set(count)):
            if count[name] != 1 or name not in names:
                yield f"{name} has {count[name]} linkage entries"

    # ---- Entries

    def check_entries(self):
        """has an entry for each export: of one size, at one pitch, with no-operations between"""
        for s in self.entries:
            if self.elf.section_of(s) != ".text" or s.size != self.variant.entry_size:
                yield f"{s.name} has {s.size} bytes in {self.elf.section_of(s)}"
        for s, following in zip(self.entries, self.entries[1:]):
            if following.address - s.address != self.variant.entry_pitch:
                yield f"{following.name} is {following.address - s.address} bytes behind {s.name}"
        if not self.entries:
            yield "there are none"
            return
        for s in self.entries:
            padding = range(s.address + s.size, s.address + self.variant.entry_pitch)
            if any(self.elf.number(address, 1) != 0x90 for address in padding):
                yield f"there are no no-operations behind {s.name}"

    def check_entry_code(self):
        """each entry finds the slot of its own name, jumps through it, and changes nothing but ecx (h9) or nothing"""
        if not self.entries:
            yield "there are none"
            return
        start, stop = self.entries[0].address, self.entries[-1].address + self.variant.entry_size
        code = self.elf.instructions(start, stop)
        position = 0
        for s in self.entries:
            while position < len(code) and code[position][0] < s.address:
                position += 1
            first = position
            while position < len(code) and code[position][0] < s.address + s.size:
                position += 1
            slot = self.slot_of_code(code[first:position])
            if slot is None:
                yield f"{s.name}: {'; '.join(text for _, text in code[first:position])}"
            elif slot != self.slot_address.get(s.name):
                yield f"{s.name} jumps through the slot at {slot:x}"

    def slot_of_code(self, code):
        """The address of the slot that an entry jumps through; None if it is not written as an entry is."""
        texts = [text for _, text in code]
        if self.variant.code == "x9":
            patterns = [r"jmp \*-?0x[0-9a-f]+\(%rip\) # ([0-9a-f]+).*"]
        else:
            patterns = [r"call ([0-9a-f]+) .*", r"pop %ecx", r"add \$(-?0x[0-9a-f]+),%ecx",
                        r"mov (-?0x[0-9a-f]+)\(%ecx\),%ecx", r"notrack jmp \*%ecx"]
        matches = [re.fullmatch(pattern, text) for pattern, text in zip(patterns, texts)]
        if len(texts) != len(patterns) or not all(matches):
            return None
        if self.variant.code == "x9":
            return int(matches[0].group(1), 16)
        own_address = code[1][0]
        if int(matches[0].group(1), 16) != own_address:
            return None
        return (own_address + int(matches[2].group(1), 16) + int(matches[3].group(1), 16)) % 2**32

    def check_modules(self):
        """has a source module jmp_<name> for each entry"""
        modules = collections.Counter(s.name for s in self.elf.symbols if s.type == "FILE" and s.name.startswith("jmp_"))
        wanted = {f"jmp_{name}" for name in self.declared}
        yield from (f"{name} is missing" for name in sorted(wanted - set(modules)))
        yield from (f"{name} is there {n} times, wanted {int(name in wanted)}"
                    for name, n in sorted(modules.items()) if n != 1 or name not in wanted)

    # ---- Slots

    def check_slots(self):
        """has one slot for each export, named after it"""
        counts = collections.Counter(s.name for s in self.slots)
        wanted = {f"{name}_arraddr" for name in self.declared}
        yield from (f"{name} is missing" for name in sorted(wanted - set(counts)))
        yield from (f"{name} is there {n} times, wanted {int(name in wanted)}"
                    for name, n in sorted(counts.items()) if n != 1 or name not in wanted)
        for s in self.slots:
            if (s.type, s.size, self.elf.section_of(s)) != ("OBJECT", self.variant.pointer, ".data"):
                yield f"{s.name}: {s.type} of {s.size} bytes in {self.elf.section_of(s)}"

    def check_table(self):
        """has the slots without a gap at the begin of the initialised data, in strictly descending order of names"""
        data = self.elf.named_section(".data")
        if "W" not in data.flags:
            yield "the data cannot be written"
        for i, s in enumerate(self.slots):
            if s.address != data.address + i * self.variant.pointer:
                yield f"{s.name} is at {s.address:x}, not {data.address + i * self.variant.pointer:x}"
        in_order = [s.name.removesuffix("_arraddr").encode() for s in self.slots]
        yield from (f"{after.decode()} stands behind {before.decode()}"
                    for before, after in zip(in_order, in_order[1:]) if not after < before)
        if in_order != sorted((name.encode() for name in self.declared), reverse=True):
            yield "the names are not those of the exports"

    def check_bodies(self):
        """fills each slot with the body of its own name, by one relative relocation"""
        bodies = {}
        for s in self.slots:
            name = s.name.removesuffix("_arraddr")
            filled = self.relative.get(s.address, [])
            body = [b for b in self.elf.by_name[f"{self.variant.code}_{name}"] if b.type == "FUNC"]
            if len(filled) != 1:
                yield f"{s.name} has {len(filled)} relative relocations"
            elif len(body) != 1 or body[0].address != filled[0]:
                yield f"{s.name} has {filled[0]:x}, the body is at {', '.join(f'{b.address:x}' for b in body) or 'no address'}"
            else:
                bodies.setdefault(filled[0], []).append(name)
                if (body[0].bind, self.elf.section_of(body[0])) != ("LOCAL", ".text"):
                    yield f"the body of {name} is {body[0].bind} in {self.elf.section_of(body[0])}"
        yield from (f"one body for {', '.join(names)}" for names in bodies.values() if len(names) > 1)
        if not self.slots:
            yield "there are none"

    # ---- Data

    def check_version_record(self):
        """has one version record with the right constants"""
        records = [s for s in self.elf.symbols if s.type == "OBJECT" and "s_libVer" in s.name]
        if len(records) != 1:
            yield f"there are {len(records)}"
            return
        code, pointer = self.variant.code, self.variant.pointer
        first_text = 20 if pointer == 4 else 24
        if records[0].size != first_text + 3 * pointer:
            yield f"it has {records[0].size} bytes"
        at = records[0].address
        numbers = struct.unpack("<4i4s", self.elf.bytes_at(at, 20))
        if numbers != (8, 2, 0, 43166, code.encode() + b"\0\0"):
            yield f"the numbers are {numbers}"
        texts = [f"orvSP AVX2 ({code} threaded)", "8.2.0 (r43166)", "Jul  7 2014"]
        for i, wanted in enumerate(texts):
            filled = self.relative.get(at + first_text + i * pointer, [])
            text = self.elf.text_at(filled[0]) if len(filled) == 1 else None
            if text != wanted:
                yield f"'{text}' instead of '{wanted}'"

    def check_variant_index(self):
        """has the variant index as a private 32-bit number without an initial value"""
        found = self.elf.by_name[f"{self.variant.code}_orvJumpIndexForMergedDLL"]
        if [(s.type, s.size, s.bind, self.elf.section_of(s)) for s in found] != [("OBJECT", 4, "LOCAL", ".bss")]:
            yield str(found)

    # ----

    def failures(self):
        count = 0
        for name in [name for name in vars(Abi) if name.startswith("check_")]:
            method = getattr(self, name)
            faults = list(method())
            print(f"abi: {method.__doc__}: {'FAILED' if faults else 'ok'}")
            for fault in faults[:5]:
                print(f"     {fault}")
            if len(faults) > 5:
                print(f"     and {len(faults) - 5} more")
            count += bool(faults)
        return count

    def print_missing(self):
        standing = {s.name for s in self.definitions} & set(self.interface)
        missing = collections.Counter(folder for name, folder in self.interface.items() if name not in standing)
        print(f"abi: {len(standing)} of {len(self.interface)} exports stand")
        if missing:
            print("     missing: " + ", ".join(f"{folder} {n}" for folder, n in sorted(missing.items())))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--variant", choices=("h9", "x9"), required=True)
    parser.add_argument("--list", type=Path, required=True)
    parser.add_argument("--exports", type=Path, required=True)
    parser.add_argument("object")
    args = parser.parse_args()

    variant = Variant(args.variant)
    interface = dict(line.split("\t") for line in args.list.read_text().splitlines())
    declared = set(args.exports.read_text().split())
    abi = Abi(ElfObject(args.object, variant), variant, interface, declared)
    failures = abi.failures()
    abi.print_missing()
    if failures:
        sys.exit(f"abi: {failures} checks failed for {args.object}")


main()
