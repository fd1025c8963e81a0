#!/usr/bin/env python3
"""Writes a settings file of many keys: makesettings.py keys file

The documents' groups share them. No program reads most of them, so that there is something to say of nearly each.
"""

import sys

GROUPS = ("receiptdoc", "fiscaldoc", "reportdoc", "invoicedoc", "doc")


def main():
    keys, path = int(sys.argv[1]), sys.argv[2]
    each = keys // len(GROUPS)
    with open(path, "w", encoding="ascii") as out:
        out.write("zelmora: \n{\n")
        for group in GROUPS:
            out.write(f'    {group}: \n    {{\n        paperWidth = "32";\n')
            out.writelines(f'        paperColour{i} = "white";\n' for i in range(1, each))
            out.write("    };\n\n")
        out.write("};\n\n")


main()
