#!/usr/bin/env python3
"""Checks that the house runs one way: no file includes, and no target links, a layer above it.

Every folder stands in a layer; a subsystem's logic may use the logic of a subsystem before it
in SUBSYSTEMS, and a subsystem's screens use logic and the shared widgets, never another
subsystem's screens. Tests and benchmarks stand above everything and are not checked.
Exits 1 and names each offence; prints the order it enforces either way.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# The subsystems' logic, lowest first: each may use those before it.
SUBSYSTEMS = ["tools", "safety", "position", "ledger", "market", "simulation", "charts"]

LAYERS = [
    "run time (runtime)",
    "store (store)",
    "the run's context (context)",
    "each subsystem's logic (" + ", ".join(SUBSYSTEMS) + ")",
    "shared widgets (widgets)",
    "each subsystem's screens (<subsystem>/ui)",
    "the frame and the program (app)",
    "the command line (cli)",
]
RUNTIME, STORE, CONTEXT, LOGIC, WIDGETS, SCREENS, FRAME, EXECUTABLES = range(len(LAYERS))

SOURCE_SUFFIXES = {".h", ".cpp"}
SKIPPED = {"tests", "bench", ".git", ".ci", "scripts", "cmake", "help"}


def unit_of(path):
    """The layer of a file or folder relative to the root, and its subsystem where it has one."""
    parts = pathlib.PurePosixPath(path).parts
    if parts[0] == "runtime":
        return RUNTIME, None
    if parts[0] == "context":
        return CONTEXT, None
    if parts[0] == "app":
        return FRAME, None
    if parts[0] == "store":
        return STORE, None
    if parts[0] == "widgets":
        return WIDGETS, None
    if parts[0] == "cli":
        return EXECUTABLES, None
    if parts[0] in SUBSYSTEMS:
        return (SCREENS if "ui" in parts[1:-1] or (len(parts) > 1 and parts[1] == "ui") else LOGIC), parts[0]
    return None


def describe(unit):
    layer, subsystem = unit
    if layer == LOGIC:
        return f"{subsystem} logic"
    if layer == SCREENS:
        return f"{subsystem} screens"
    return LAYERS[layer]


def offence(user, used):
    """Why `user` may not use `used`, or None when it may."""
    if used[0] > user[0]:
        return "a higher layer"
    if user[0] == used[0] == LOGIC and SUBSYSTEMS.index(used[1]) > SUBSYSTEMS.index(user[1]):
        return "a subsystem after it"
    if user[0] == used[0] == SCREENS and used[1] != user[1]:
        return "another subsystem's screens"
    return None


def sources():
    for path in sorted(ROOT.rglob("*")):
        rel = path.relative_to(ROOT)
        if rel.parts[0] in SKIPPED or rel.parts[0].startswith("build") or path.suffix not in SOURCE_SUFFIXES:
            continue
        yield rel


INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)


def include_offences():
    found = []
    for rel in sources():
        user = unit_of(rel)
        if user is None:
            found.append(f"{rel}: stands in no layer")
            continue
        for target in INCLUDE.findall((ROOT / rel).read_text(encoding="utf-8", errors="replace")):
            if not (ROOT / target).exists():
                continue  # a header of the same folder by its bare name, or generated
            used = unit_of(target)
            why = used and offence(user, used)
            if why:
                found.append(f"{rel} ({describe(user)}) includes {target}: {why} ({describe(used)})")
    return found


TARGET = re.compile(r"add_(?:library|executable)\(\s*([\w-]+)([^)]*)\)", re.S)
LINK = re.compile(r"target_link_libraries\(\s*([\w-]+)([^)]*)\)", re.S)


def cmake_files():
    for path in sorted(ROOT.rglob("CMakeLists.txt")):
        rel = path.relative_to(ROOT)
        if len(rel.parts) > 1 and (rel.parts[0] in SKIPPED or rel.parts[0].startswith("build")):
            continue
        yield rel


def link_offences():
    units, links, found = {}, [], []
    for rel in cmake_files():
        text = (ROOT / rel).read_text(encoding="utf-8")
        if "if(EXISTS" in text.replace(" ", ""):
            found.append(f"{rel}: builds a target only when a file happens to be there (if(EXISTS))")
        folder = rel.parent
        for name, body in TARGET.findall(text):
            files = [w for w in body.split() if w.endswith(".cpp")]
            if not files:
                continue  # an interface target: flags, no code
            target_units = {unit_of(folder / f) for f in files}
            if len(target_units) != 1 or None in target_units:
                found.append(f"{rel}: target {name} spans {sorted(map(str, target_units))}")
                continue
            units[name] = target_units.pop()
        links += [(rel, name, body.split()) for name, body in LINK.findall(text)]
    for rel, name, words in links:
        if name not in units:
            continue
        for used in words:
            if used in units:
                why = offence(units[name], units[used])
                if why:
                    found.append(f"{rel}: {name} ({describe(units[name])}) links {used}: {why} "
                                 f"({describe(units[used])})")
    return found


def main():
    print("layers, lowest first:")
    for number, layer in enumerate(LAYERS):
        print(f"  {number}. {layer}")
    found = include_offences() + link_offences()
    for line in found:
        print("layer check:", line)
    if found:
        print(f"layer check: {len(found)} use(s) against the order above")
        return 1
    print("layer check: every include and link runs down")
    return 0


if __name__ == "__main__":
    sys.exit(main())
