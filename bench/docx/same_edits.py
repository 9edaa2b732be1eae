"""The edits of bench_docx with python-docx.

same_edits.py make-template FILE TAGS    a template of TAGS controls and a table
same_edits.py make-parts FOLDER COUNT    COUNT documents with a picture each
same_edits.py fill FILE RESULT ROWS WAY  fills it; WAY is "library" (rows and
                                         cells by python-docx) or "elements"
                                         (its tree walked by hand, the fastest
                                         that it allows)
same_edits.py merge RESULT FILE ...      appends the bodies with their pictures

same_edits.py make-hostile FOLDER        files that no program should take long
                                         to refuse

fill and merge print their seconds of the processor, without the start of the interpreter.
"""
import copy
import io
import os
import random
import struct
import sys
import time
import zipfile
import zlib

import docx
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls, qn

COLUMNS = 6


def make_template(path, tags):
    document = docx.Document()
    for i in range(int(tags)):
        paragraph = document.add_paragraph("Value %d: " % i)
        paragraph._p.append(parse_xml(
            "<w:sdt %s><w:sdtPr><w:alias w:val='Value %d'/><w:tag w:val='tag%d'/>"
            "<w:showingPlcHdr/><w:text/></w:sdtPr><w:sdtContent><w:r><w:rPr><w:b/></w:rPr>"
            "<w:t>prompt</w:t></w:r></w:sdtContent></w:sdt>" % (nsdecls("w"), i, i)))
    table = document.add_table(rows=2, cols=COLUMNS, style="Table Grid")
    for row in table.rows:
        for cell in row.cells:
            cell.paragraphs[0].add_run("sample").bold = True
    document.save(path)


def noise(side, seed):
    """A PNG that does not compress, as photographs do not."""
    source = random.Random(seed)
    rows = b"".join(b"\0" + source.randbytes(3 * side) for _ in range(side))

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(
            ">I", zlib.crc32(name + data))
    head = struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(
        b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b"")


def make_parts(folder, count):
    for i in range(int(count)):
        document = docx.Document()
        document.add_heading("Passport %d" % i)
        for line in range(40):
            document.add_paragraph("Line %d of the passport number %d" % (line, i))
        document.add_picture(io.BytesIO(noise(100, i)))
        document.save(os.path.join(folder, "part%04d.docx" % i))


def make_hostile(folder):
    empty = os.path.join(folder, "empty.docx")
    docx.Document().save(empty)
    with zipfile.ZipFile(empty) as old:
        sound = {entry.filename: old.read(entry) for entry in old.infolist()}
    head = b'<w:document xmlns:w="w"><w:body>'
    tail = b"</w:body></w:document>"
    documents = {
        "nested": head + b"<w:p>" * 50000 + b"</w:p>" * 50000 + tail,
        "elements": head + b"<a/>" * 1600000 + tail,
        "justBelow": head + b"<a/>" * 1400000 + b"<b>" + tail,
        "attributes": b"<w:document" + b"".join(b' a%d=""' % i for i in range(300000)) + b"/>",
        "blanks": head + b" " * (63 << 20) + tail[:-3],
        "entities": b'<!DOCTYPE d [<!ENTITY a "b">]>' + head + b"&a;" * 100000 + tail,
    }
    entries = {
        "entryOf300MB": {"word/media/bomb.bin": bytes(300 << 20)},
        "entryOf60MB": {"word/media/bomb.bin": bytes(60 << 20), "../x": b""},
        "entries100000": {"word/e%d" % i: b"" for i in range(100000)},
    }
    for name, data in documents.items():
        write(folder, name, {**sound, "word/document.xml": data})
    for name, more in entries.items():
        write(folder, name, {**sound, **more})


def write(folder, name, entries):
    path = os.path.join(folder, "hostile-%s.docx" % name)
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as new:
        for entry, data in entries.items():
            new.writestr(entry, data)


def fill(path, result, rows, way):
    document = docx.Document(path)
    for control in document.element.body.iter(qn("w:sdt")):
        properties = control.find(qn("w:sdtPr"))
        tag = properties.find(qn("w:tag")).get(qn("w:val"))
        next(control.iter(qn("w:t"))).text = "value of " + tag
        properties.remove(properties.find(qn("w:showingPlcHdr")))
    table = document.tables[0]
    if way == "library":
        for r in range(int(rows)):
            for c, cell in enumerate(table.add_row().cells):
                cell.text = "row %d column %d" % (r, c)
    else:
        sample = table._tbl.tr_lst[-1]
        for r in range(int(rows)):
            row = copy.deepcopy(sample)
            table._tbl.append(row)
            for c, cell in enumerate(row.iterchildren(qn("w:tc"))):
                next(cell.iter(qn("w:t"))).text = "row %d column %d" % (r, c)
    document.save(result)


def merge(result, *files):
    merged = docx.Document(files[0])
    body = merged.element.body
    for path in files[1:]:
        part = docx.Document(path)
        merged.add_page_break()
        for child in part.element.body:
            if child.tag == qn("w:sectPr"):
                continue
            child = copy.deepcopy(child)
            for blip in child.iter(qn("a:blip")):
                image = part.part.related_parts[blip.get(qn("r:embed"))]
                identifier, _ = merged.part.get_or_add_image(io.BytesIO(image.blob))
                blip.set(qn("r:embed"), identifier)
            body.insert(len(body) - 1, child)
    merged.save(result)


def main(command, *arguments):
    start = time.process_time()
    {"make-template": make_template, "make-parts": make_parts, "make-hostile": make_hostile,
     "fill": fill, "merge": merge}[command](*arguments)
    print("%.4f" % (time.process_time() - start))


main(*sys.argv[1:])
