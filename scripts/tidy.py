#!/usr/bin/env python3
"""Runs clang-tidy over the product's translation units of a build folder: tidy.py BUILD_DIR

A unit whose command, configuration and dependencies have not changed since it was last found clean is skipped; the
record of clean units lies beside ccache's, under the user's cache folder."""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = (ROOT / sys.argv[1]).resolve()
CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME", pathlib.Path.home() / ".cache")) / "disclosure-tidy"
LEFT_OUT = re.compile(r"/(mocs_compilation|moc_|qrc_)|_autogen/|^(tests|bench)/")


def dependencies():
    """Object file -> the project's own files it was built from, as ninja recorded them."""
    text = subprocess.run(["ninja", "-C", BUILD, "-t", "deps"], capture_output=True, text=True, check=True).stdout
    found, current = {}, None
    for line in text.splitlines():
        if line and not line.startswith(" "):
            current = found.setdefault(line.split(":")[0], [])
        elif line.strip() and current is not None:
            path = (BUILD / line.strip()).resolve()
            if ROOT in path.parents:
                current.append(path)
    return found


def object_of(unit):
    """The object file as ninja names it; not every version of CMake tells it by itself."""
    return unit.get("output") or re.search(r" -o (\S+)", unit["command"]).group(1)


def key(unit, files):
    digest = hashlib.sha256(unit["command"].replace(str(ROOT), "").encode())
    for path in [ROOT / ".clang-tidy", *sorted(set(files))]:
        digest.update(str(path.relative_to(ROOT)).encode())
        digest.update(path.read_bytes() if path.exists() else b"")
    return digest.hexdigest()


def check(unit):
    result = subprocess.run(["clang-tidy", "-p", BUILD, "--quiet", unit["file"]], capture_output=True, text=True)
    return unit["file"], result.returncode, result.stdout


def main():
    units = [u for u in json.loads((BUILD / "compile_commands.json").read_text()) if not LEFT_OUT.search(os.path.relpath(u["file"], ROOT))]
    deps = dependencies()
    CACHE.mkdir(parents=True, exist_ok=True)
    todo = []
    for unit in units:
        stamp = CACHE / key(unit, deps[object_of(unit)] + [pathlib.Path(unit["file"])])
        if not stamp.exists():
            todo.append((unit, stamp))
    print(f"clang-tidy: {len(todo)} of {len(units)} files", flush=True)
    failed = False
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for (unit, stamp), (name, code, output) in zip(todo, pool.map(check, [u for u, _ in todo])):
            if code == 0:
                stamp.touch()
            else:
                failed = True
                print(f"{name}\n{output}", flush=True)
    sys.exit(1 if failed else 0)


main()
