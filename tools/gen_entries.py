#!/usr/bin/env python3
"""Writes what stands between an exported name and its body, from the declarations in the public headers.

For each ORVAPI line of the headers:
  jmp_<name>.s   the entry: the exported symbol, which jumps through the slot of its name
and for all together:
  slots.s        the table of body addresses, one named slot an export, in descending byte order of the names
  exports.map    the linker's version script: the exported names and nothing else, without a version
  exports.txt    the exported names in ascending byte order

A name that is not in the list of the interface is refused. Files are rewritten only when their text changes.
"""
import argparse
import pathlib
import re
import sys

DECLARATION = re.compile(r"^ORVAPI\(\s*([^,]+?)\s*,\s*(\w+)\s*,\s*\(", re.MULTILINE)

# An entry is position independent and touches only a caller-saved register. 32-bit code takes its own address from the
# stack; with the notrack prefix it has 21 bytes, and 24 with padding. 64-bit code reaches the slot directly.
ENTRY = {
    "h9": """\
    call 1f
1:  popl %ecx
    addl ${name}_arraddr - 1b, %ecx
    {{disp32}} movl 0(%ecx), %ecx
    notrack jmp *%ecx
""",
    "x9": """\
    jmp *{name}_arraddr(%rip)
""",
}
PADDING = {"h9": 3, "x9": 2}  # single no-operations up to the pitch of 24 or 8 bytes
POINTER = {"h9": (".long", 4), "x9": (".quad", 8)}

MODULE = """\
    .file "jmp_{name}"
    .text
    .p2align 3
    .globl {name}
    .type {name}, @function
{name}:
{code}    .size {name}, . - {name}
    .fill {padding}, 1, 0x90
    .section .note.GNU-stack, "", @progbits
"""

SLOT = """\
    .globl {name}_arraddr
    .hidden {name}_arraddr
    .type {name}_arraddr, @object
    .size {name}_arraddr, {size}
{name}_arraddr:
    {directive} {variant}_{name}
"""


def declared_names(headers):
    names = []
    for header in headers:
        names += [match.group(2) for match in DECLARATION.finditer(pathlib.Path(header).read_text())]
    return names


def write_if_changed(path, text):
    if not path.exists() or path.read_text() != text:
        path.write_text(text)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--variant", choices=ENTRY, required=True)
    parser.add_argument("--list", required=True, help="all names of the interface, one a line, name and folder")
    parser.add_argument("--out", type=pathlib.Path, required=True)
    parser.add_argument("headers", nargs="+")
    args = parser.parse_args()

    names = declared_names(args.headers)
    known = {line.split("\t")[0] for line in pathlib.Path(args.list).read_text().splitlines()}
    unknown = [name for name in names if name not in known]
    twice = sorted({name for name in names if names.count(name) > 1})
    if unknown or twice:
        sys.exit(f"gen_entries: not in {args.list}: {unknown or 'none'}; declared twice: {twice or 'none'}")

    args.out.mkdir(parents=True, exist_ok=True)
    directive, size = POINTER[args.variant]
    names.sort()  # code points of ASCII names: byte order
    for name in names:
        code = ENTRY[args.variant].format(name=name)
        write_if_changed(args.out / f"jmp_{name}.s", MODULE.format(name=name, code=code, padding=PADDING[args.variant]))
    slots = "".join(
        SLOT.format(name=name, size=size, directive=directive, variant=args.variant) for name in reversed(names))
    write_if_changed(args.out / "slots.s", f'    .file "slots"\n    .data\n    .p2align 5\n{slots}'
                     '    .section .note.GNU-stack, "", @progbits\n')
    exported = "".join(f"        {name};\n" for name in names)
    write_if_changed(args.out / "exports.map", "{\n    global:\n" + exported + "    local:\n        *;\n};\n")
    write_if_changed(args.out / "exports.txt", "".join(name + "\n" for name in names))


main()
