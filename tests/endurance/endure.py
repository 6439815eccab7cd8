"""Runs the parts that are named, or all, and prints a table; ends with 1 when a goal is missed."""
import argparse
import shutil
import sys
import tempfile

import parts


def main():
    parser = argparse.ArgumentParser(prog="scripts/endure", description=__doc__)
    parser.add_argument("parts", nargs="*", help=", ".join(parts.PARTS))
    parser.add_argument("--kills", type=int, default=200)
    parser.add_argument("--flood", type=int, default=60, help="seconds")
    parser.add_argument("--pause", type=int, default=30, help="seconds")
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    unknown = set(options.parts) - set(parts.PARTS)
    if unknown:
        parser.error("no such part: " + ", ".join(sorted(unknown)))
    missed = 0
    folder = tempfile.mkdtemp(prefix="korvel-endure-")
    for name in options.parts or parts.PARTS:
        print(f"== {name}: {parts.PARTS[name].__doc__.splitlines()[0]}", flush=True)
        for what, measured, met in parts.PARTS[name](f"{folder}/{name}", options):
            print(f"   {'ok    ' if met else 'MISSED'} {what}: {measured}", flush=True)
            missed += not met
    shutil.rmtree(folder, ignore_errors=True)
    print(f"{missed} goals missed")
    return 1 if missed else 0


sys.exit(main())
