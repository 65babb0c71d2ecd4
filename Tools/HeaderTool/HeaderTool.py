#!/usr/bin/env python3
"""Writes <Name>.generated.h and <Name>.gen.cpp for headers that use the reflection macros.

Usage: HeaderTool.py --module <Module> [--module-root <Dir>] --output-dir <Dir> Header.h [Header.h ...]
"""

import argparse
import os
import re
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from headertool.errors import HeaderError  # noqa: E402
from headertool.generated_cpp import write_generated_cpp  # noqa: E402
from headertool.generated_header import write_generated_header  # noqa: E402
from headertool.parser import parse_header  # noqa: E402

INCLUDE_ROOTS = ("Public", "Classes", "Private", "Internal")


def header_paths(header, module_root):
    """The module-relative path and the include path of a header, as the engine records them."""
    relative = os.path.relpath(header, module_root).replace(os.sep, "/")
    if relative.startswith("../"):
        relative = os.path.basename(header)
    parts = relative.split("/")
    include_path = "/".join(parts[1:]) if len(parts) > 1 and parts[0] in INCLUDE_ROOTS else relative
    return relative, include_path


def file_id(module, module_relative_path):
    return "FID_" + re.sub(r"[^A-Za-z0-9]", "_", module + "_" + module_relative_path)


def write_file(path, text):
    """Writes through a temporary file, so that an interrupted run leaves no half-written output."""
    temporary = path + ".tmp"
    with open(temporary, "w", encoding="utf-8", newline="\n") as output:
        output.write(text)
    os.replace(temporary, path)


def find_module_root(header):
    """The folder above the nearest Public, Private or Classes folder of the header, else its own folder."""
    folder = os.path.dirname(header)
    while True:
        if os.path.basename(folder) in INCLUDE_ROOTS:
            return os.path.dirname(folder)
        parent = os.path.dirname(folder)
        if parent == folder:
            return os.path.dirname(header)
        folder = parent


def process(header, module, module_root, output_dir):
    header = os.path.abspath(header)
    try:
        with open(header, "r", encoding="utf-8-sig") as source:
            text = source.read()
    except (OSError, UnicodeDecodeError) as error:
        raise HeaderError(header, 1, "cannot read the header: %s" % error)
    module_relative_path, include_path = header_paths(header, module_root or find_module_root(header))
    model = parse_header(text, header, module, module_relative_path, include_path,
                         file_id(module, module_relative_path))
    base = os.path.splitext(os.path.basename(header))[0]
    generated_header = write_generated_header(model, os.path.basename(header))
    generated_cpp = write_generated_cpp(model)
    write_file(os.path.join(output_dir, base + ".generated.h"), generated_header)
    write_file(os.path.join(output_dir, base + ".gen.cpp"), generated_cpp)


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--module", required=True, help="module name; the types live in /Script/<Module>")
    parser.add_argument("--module-root", default="",
                        help="folder that holds the module's Public/Private; found from each header when not given")
    parser.add_argument("--output-dir", required=True, help="where the generated files go")
    parser.add_argument("headers", nargs="+")
    options = parser.parse_args(arguments)
    os.makedirs(options.output_dir, exist_ok=True)
    failed = False
    for header in options.headers:
        try:
            module_root = os.path.abspath(options.module_root) if options.module_root else ""
            process(header, options.module, module_root, options.output_dir)
        except HeaderError as error:
            print(str(error), file=sys.stderr)
            failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
