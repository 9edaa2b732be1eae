"""Audits drawings with an independent library; prints a line for each fault.

Each argument is a file. The exit code is the number of files with faults.
"""
import sys

import ezdxf


def faults(path):
    try:
        auditor = ezdxf.readfile(path).audit()
    except Exception as error:  # the library raises many kinds
        return ["%s: %s" % (type(error).__name__, error)]
    return ["%s: %s" % (entry.code, entry.message) for entry in auditor.errors + auditor.fixes]


def main(paths):
    failed = 0
    for path in paths:
        found = faults(path)
        for fault in found:
            print("%s: %s" % (path, fault))
        failed += bool(found)
    print("audited %d" % len(paths))
    return min(failed, 100)


sys.stdout.reconfigure(encoding="utf-8")
sys.exit(main(sys.argv[1:]))
