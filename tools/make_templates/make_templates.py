#!/usr/bin/env python3
"""Makes the sample Word templates and their descriptions from templates.txt.

Usage: make_templates.py SOURCE FOLDER
"""
import re
import sys
import zipfile
from pathlib import Path
from xml.sax.saxutils import escape, quoteattr

WORD = 'http://schemas.openxmlformats.org/wordprocessingml/2006/main'
PACKAGE = 'http://schemas.openxmlformats.org/package/2006'
OFFICE = 'http://schemas.openxmlformats.org/officeDocument/2006'
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
CONTROL = re.compile(r'\{(\w+)=(\w+)\|([^}]*)\}')

CONTENT_TYPES = HEAD + (
    f'<Types xmlns="{PACKAGE}/content-types">'
    '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
    '<Default Extension="xml" ContentType="application/xml"/>'
    '<Override PartName="/word/document.xml" ContentType="application/vnd.openxmlformats-officedocument.'
    'wordprocessingml.document.main+xml"/></Types>')
RELATIONSHIPS = HEAD + (
    f'<Relationships xmlns="{PACKAGE}/relationships"><Relationship Id="rId1" '
    f'Type="{OFFICE}/relationships/officeDocument" Target="word/document.xml"/></Relationships>')
DOCUMENT_RELATIONSHIPS = HEAD + f'<Relationships xmlns="{PACKAGE}/relationships"/>'


def run(text, bold):
    properties = '<w:rPr><w:b/><w:sz w:val="32"/></w:rPr>' if bold else '<w:rPr><w:sz w:val="24"/></w:rPr>'
    return f'<w:r>{properties}<w:t xml:space="preserve">{escape(text)}</w:t></w:r>'


def control(tag, prompt, bold):
    return (f'<w:sdt><w:sdtPr><w:alias w:val={quoteattr(prompt)}/><w:tag w:val={quoteattr(tag)}/>'
            f'<w:showingPlcHdr/><w:text/></w:sdtPr><w:sdtContent>{run(prompt, bold)}</w:sdtContent></w:sdt>')


class Template:
    def __init__(self, file_name, key, name):
        self.file_name, self.key, self.name = file_name, key, name
        self.paragraphs, self.substitutions = [], []

    def add(self, kind, text):
        bold, parts, at = kind == 'heading', [], 0
        for found in CONTROL.finditer(text):
            if found.start() > at:
                parts.append(run(text[at:found.start()], bold))
            tag, variable, prompt = found.groups()
            parts.append(control(tag, prompt, bold))
            self.substitutions.append((tag, variable))
            at = found.end()
        if at < len(text):
            parts.append(run(text[at:], bold))
        spacing = '<w:pPr><w:spacing w:before="240" w:after="120"/></w:pPr>' if bold else ''
        self.paragraphs.append(f'<w:p>{spacing}{"".join(parts)}</w:p>')

    def document(self):
        return HEAD + (f'<w:document xmlns:w="{WORD}"><w:body>{"".join(self.paragraphs)}<w:sectPr>'
                       '<w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1134" w:right="850" w:bottom="1134" '
                       'w:left="1701" w:header="709" w:footer="709" w:gutter="0"/></w:sectPr></w:body></w:document>')

    def description(self):
        file_name = Path(self.file_name).with_suffix('.xml').name
        rows = ''.join(f'  <substitution tag="{tag}" var="{variable}" text=""/>\n'
                       for tag, variable in self.substitutions)
        return (f'<template>\n <meta>\n  <template_type value="{self.key}"/>\n'
                f'  <template_name value={quoteattr(self.name)}/>\n  <template_path value="{file_name}"/>\n'
                f'  <template_docx_path value="{self.file_name}"/>\n </meta>\n <substitutions>\n{rows}'
                ' </substitutions>\n</template>\n')

    def write(self, folder):
        path = folder / self.file_name
        with zipfile.ZipFile(path, 'w', zipfile.ZIP_DEFLATED) as package:
            for name, text in (('[Content_Types].xml', CONTENT_TYPES), ('_rels/.rels', RELATIONSHIPS),
                               ('word/document.xml', self.document()),
                               ('word/_rels/document.xml.rels', DOCUMENT_RELATIONSHIPS)):
                entry = zipfile.ZipInfo(name, date_time=(2026, 1, 1, 0, 0, 0))
                entry.compress_type = zipfile.ZIP_DEFLATED
                package.writestr(entry, text.encode('utf-8'))
        path.with_suffix('.xml').write_text(self.description(), encoding='utf-8')


def read(source):
    templates = []
    for number, line in enumerate(source.read_text(encoding='utf-8').splitlines(), 1):
        if not line.strip() or line.startswith('#'):
            continue
        kind, _, rest = line.partition(' ')
        if kind == 'template':
            templates.append(Template(*rest.split(' ', 2)))
        elif kind in ('heading', 'text') and templates:
            templates[-1].add(kind, rest)
        else:
            sys.exit(f'{source}:{number}: neither template, heading nor text')
    return templates


def main():
    source, folder = Path(sys.argv[1]), Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    for template in read(source):
        template.write(folder)


if __name__ == '__main__':
    main()
