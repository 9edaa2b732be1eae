"""Word files through other eyes than ours: python-docx and lxml.

independent.py fill VALUES SOURCE TARGET ...   fills controls without our code
independent.py read FILE ...                   opens files with python-docx
"""
import json
import sys
import zipfile

import docx
from lxml import etree

W = "{http://schemas.openxmlformats.org/wordprocessingml/2006/main}"


def fill(values, source, target):
    """Puts each value into the first w:t of the last control of its tag; all
    else is copied as it is."""
    with zipfile.ZipFile(source) as old, zipfile.ZipFile(target, "w") as new:
        for entry in old.infolist():
            data = old.read(entry)
            if entry.filename == "word/document.xml":
                data = filled(data, values)
            new.writestr(entry.filename, data, zipfile.ZIP_DEFLATED)


def filled(xml, values):
    root = etree.fromstring(xml)
    controls = {}
    for control in root.iter(W + "sdt"):
        tag = control.find(W + "sdtPr/" + W + "tag")
        controls["" if tag is None else tag.get(W + "val")] = control
    for tag, value in values.items():
        control = controls[tag]
        next(control.iter(W + "t")).text = value
        prompt = control.find(W + "sdtPr/" + W + "showingPlcHdr")
        if prompt is not None:
            prompt.getparent().remove(prompt)
    return etree.tostring(root, xml_declaration=True, encoding="UTF-8", standalone=True)


def read(path):
    document = docx.Document(path)
    images = [part for part in document.part.package.iter_parts()
              if part.content_type.startswith("image/")]
    return {
        "paragraphs": [p.text for p in document.paragraphs],
        "cells": [[c.text for c in row.cells] for t in document.tables for row in t.rows],
        "sections": len(document.sections),
        "headers": [p.text for s in document.sections for p in s.header.paragraphs],
        "images": len(images),
        "text": "".join(t.text or "" for t in document.element.body.iter(W + "t")),
    }


def main(command, *arguments):
    if command == "fill":
        values = json.load(open(arguments[0], encoding="utf-8"))
        for source, target in zip(arguments[1::2], arguments[2::2]):
            fill(values[source], source, target)
    elif command == "read":
        json.dump({path: read(path) for path in arguments}, sys.stdout)


main(*sys.argv[1:])
