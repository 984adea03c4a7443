#!/usr/bin/env python3
"""Describes what programs that were compiled against the libraries rely on, and compares it with a record.

abi.py [--accept] RECORD LIBRARY...: fails when the libraries differ from the record; with --accept records them anew.

Recorded are the exported symbols and, for what the public headers define, the layout of classes, the slots of virtual
operations and the values of enumerations. Needed are debug information in the libraries, abidw and c++filt.
"""

import collections
import difflib
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

NAMESPACES = ("TESSEL", "KORMAK")
BROKEN = """\
Programs that were compiled against the recorded libraries would break: a line with '-' is what they rely on.
Undo that, or, before a new major version, record it with
    scripts/abi --accept
"""
GROWN = """\
There is more than is recorded, which compiled programs do not mind. Once it is what you want, record it with
    scripts/abi --accept
"""


def output_of(*command, text=None):
    return subprocess.run(command, input=text, capture_output=True, text=True, check=True).stdout


def demangled(names):
    names = list(names)
    return dict(zip(names, output_of("c++filt", text="\n".join(names) + "\n").splitlines()))


class Library:
    """What abidw tells about a library."""

    def __init__(self, path):
        root = ElementTree.fromstring(output_of("abidw", path))
        self.exported = {s.get("name") for s in root.iter("elf-symbol") if s.get("is-defined") == "yes"}
        self.types = {}  # id: (element, qualified name)
        self.private_functions = set()  # mangled names
        self.private_types = set()
        for unit in root.iter("abi-instr"):
            self.enter(unit, "", False)

    def enter(self, scope, prefix, is_private):
        for child in scope:
            hidden = is_private or child.get("access") == "private"
            name = prefix + child.get("name", "")
            if child.get("id"):
                known = self.types.get(child.get("id"))
                if known is None or known[0].get("is-declaration-only"):
                    self.types[child.get("id")] = (child, name)
            if child.tag == "function-decl" and hidden:
                self.private_functions.add(child.get("mangled-name"))
            elif child.tag == "class-decl":
                if hidden:
                    self.private_types.add(name)
                self.enter(child, name + "::", False)
            elif child.tag == "namespace-decl":
                self.enter(child, name + "::", False)
            else:  # the frame around a member
                self.enter(child, prefix, hidden)

    def type_name(self, type_id):
        element, name = self.types[type_id]
        inner = element.get("type-id")
        if element.tag == "pointer-type-def":
            return self.type_name(inner) + " *"
        if element.tag == "reference-type-def":
            return self.type_name(inner) + (" &" if element.get("kind") == "lvalue" else " &&")
        if element.tag == "qualified-type-def":
            return "const " * (element.get("const") == "yes") + self.type_name(inner)
        if element.tag == "typedef-decl":
            return self.type_name(inner)
        return name

    def public_types(self):
        for element, name in self.types.values():
            header = element.get("filepath", "")
            if name.split("::")[0] in NAMESPACES and header.endswith(".h") and not header.endswith("_p.h"):
                if not element.get("is-declaration-only"):
                    yield element, name

    def slot_count(self, element):
        """With those of the bases: a class that programs derive from may not get more of them."""
        bases = (self.types[base.get("type-id")][0] for base in element.findall("base-class"))
        own = (int(member.get("vtable-offset", -1)) + 1 for member in element.findall("member-function"))
        return max([0, *own, *map(self.slot_count, bases)])

    def describe_class(self, element, name):
        yield f"class {name}: {int(element.get('size-in-bits')) // 8} bytes, {self.slot_count(element)} slots"
        parts = []  # (order, line)
        slots = {}
        for base in element.findall("base-class"):
            at = int(base.get("layout-offset-in-bits")) // 8
            parts.append((at, f"at {at}: base {self.type_name(base.get('type-id'))}"))
        for member in element.findall("data-member"):
            if member.get("static") != "yes":
                at = int(member.get("layout-offset-in-bits")) // 8
                field = member[0]
                parts.append((at, f"at {at}: {self.type_name(field.get('type-id'))} {field.get('name')}"))
        for member in element.findall("member-function"):
            if member.get("vtable-offset") and member.get("destructor") != "yes":
                slots[int(member.get("vtable-offset"))] = member[0].get("mangled-name")
        names = demangled(slots.values())
        yield from (f"  {line}" for _, line in sorted(parts))
        yield from (f"  slot {slot}: {re.sub(r'^.*::(?=[^:(]*[(])', '', names[slots[slot]])}" for slot in sorted(slots))

    def describe_enumeration(self, element, name):
        values = [f"{e.get('name')} {e.get('value')}" for e in element.findall("enumerator")]
        size = int(self.types[element.find("underlying-type").get("type-id")][0].get("size-in-bits")) // 8
        yield f"enum {name}: {size} bytes"
        yield from (f"  {value}" for value in values)

    def descriptions(self):
        for element, name in self.public_types():
            if element.tag == "class-decl":
                yield name, list(self.describe_class(element, name))
            elif element.tag == "enum-decl":
                yield name, list(self.describe_enumeration(element, name))

    def describe_symbols(self):
        count = collections.Counter()
        for symbol, name in demangled(self.exported).items():
            # Inline functions call some of them.
            count[name + " (private)" if symbol in self.private_functions else name] += 1
        for name in sorted(count):
            yield "export " + name + (f" ({count[name]} symbols)" if count[name] > 1 else "")

    def unwanted(self):
        """Exported names that no program should get to see."""
        ours = re.compile(r"((vtable|typeinfo|typeinfo name) for )?((%s)::.*)" % "|".join(NAMESPACES))
        for name in demangled(self.exported).values():
            match = ours.match(name)
            if not match:
                yield f"{name} is no part of the library"
            elif any(match[3].startswith((scope + "::", scope + "<")) for scope in self.private_types):
                yield f"{name} belongs to a private class"


def main(arguments):
    accept = "--accept" in arguments
    record, *paths = [a for a in arguments if a != "--accept"]
    libraries = [Library(path) for path in paths]

    unwanted = sorted({problem for library in libraries for problem in library.unwanted()})
    if unwanted:
        print("Exported, though it should not be (mark the class ..._NO_EXPORT):", *unwanted, sep="\n  ")
        return 1

    types = {name: lines for library in libraries for name, lines in library.descriptions()}
    current = [line for name in sorted(types) for line in types[name]]
    for library in libraries:
        current += library.describe_symbols()

    record = pathlib.Path(record)
    recorded = record.read_text(encoding="utf-8").splitlines() if record.exists() else []
    if current == recorded:
        print("As recorded.")
        return 0
    difference = list(difflib.unified_diff(recorded, current, str(record), "built", lineterm="", n=2))
    print(*difference, sep="\n")
    if accept:
        record.write_text("\n".join(current) + "\n", encoding="utf-8")
        print(f"Recorded in {record}.")
        return 0
    removed = any(line.startswith("-") for line in difference[2:])
    print("", BROKEN if removed else GROWN, sep="\n")
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
