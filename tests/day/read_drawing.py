"""Reads a drawing by an independent library: what it finds there, as JSON."""
import json
import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1])
space = drawing.modelspace()
found = {
    "faults": [str(fault.message) for fault in drawing.audit().errors],
    "kinds": {},
    "texts": [entity.dxf.text for entity in space.query("TEXT")],
    "groups": [name for name, _ in drawing.groups],
    "blocks": [],
}
for entity in space:
    kind = entity.dxftype()
    found["kinds"][kind] = found["kinds"].get(kind, 0) + 1
for block in space.query("INSERT"):
    names = {each.dxf.tag: each for each in block.attribs}
    if "element_id" in names and "name" in names:
        label = names["name"].dxf.insert
        found["blocks"].append({
            "id": names["element_id"].dxf.text, "name": names["name"].dxf.text,
            "x": block.dxf.insert.x, "y": block.dxf.insert.y, "labelX": label.x, "labelY": label.y})
print(json.dumps(found))
