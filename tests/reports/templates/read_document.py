"""Word files as python-docx reads them, as JSON.

read_document.py FILE ...
"""
import json
import sys

import docx
from docx.oxml.ns import qn


def cell_of(cell):
    shade = cell.find(qn('w:tcPr') + '/' + qn('w:shd'))
    text = '\n'.join(''.join(t.text or '' for t in paragraph.iter(qn('w:t'))) for paragraph in cell.iter(qn('w:p')))
    return {'text': text, 'shade': '' if shade is None else shade.get(qn('w:fill')),
            'pictures': len(list(cell.iter(qn('w:drawing'))))}


def read(path):
    document = docx.Document(path)
    images = [part for part in document.part.package.iter_parts() if part.content_type.startswith('image/')]
    lines = [''.join(t.text or '' for t in paragraph.iter(qn('w:t')))
             for paragraph in document.element.body if paragraph.tag == qn('w:p')]
    return {'lines': [line for line in lines if line],
            'tables': [[[cell_of(cell) for cell in row._tr.tc_lst] for row in table.rows] for table in document.tables],
            'images': len(images)}


json.dump({path: read(path) for path in sys.argv[1:]}, sys.stdout)
