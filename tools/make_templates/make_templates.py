#!/usr/bin/env python3
"""Makes the sample Word templates and their descriptions from templates.txt.

Usage: make_templates.py SOURCE FOLDER
"""
import re
import sys
from pathlib import Path
from xml.sax.saxutils import quoteattr

import word_parts as word

CONTROL = re.compile(r'\{([\w)]+)=([\w)]+)\|([^}]*)\}')


class Template:
    def __init__(self, file_name, key, name):
        self.file_name, self.key, self.name = file_name, key, name
        self.blocks, self.substitutions = [], []
        self.page, self.small, self.pictures = 'portrait', False, 0
        self.header, self.footer = '', ''
        self.table = None

    # --- lines of the source ---------------------------------------------------

    def add(self, kind, text):
        if self.table and kind not in ('row', 'sample'):
            self.close_table()
        getattr(self, 'add_' + kind)(text)

    def add_page(self, text):
        self.page = text

    def add_small(self, _):
        self.small = True

    def add_header(self, text):
        self.header = text

    def add_footer(self, text):
        self.footer = text

    def add_title(self, text):
        self.blocks.append(word.paragraph(self.inline(text, word.TITLE), 'center', 240, 240, style='Title'))

    def add_heading(self, text):
        self.blocks.append(word.paragraph(self.inline(text, word.HEADING), 'left', 240, 120, keep=True, style='Heading1'))

    def add_text(self, text):
        self.blocks.append(word.paragraph(self.inline(text, word.BODY), 'both', 0, 60, style='BodyText'))

    def add_break(self, _):
        self.blocks.append(word.PAGE_BREAK)

    def add_picture(self, text):
        """{tag=variable|prompt} WIDTH HEIGHT in centimetres."""
        control, width, height = text.rsplit(' ', 2)
        tag, variable, prompt = CONTROL.fullmatch(control).groups()
        self.substitutions.append((tag, variable))
        self.pictures += 1
        self.blocks.append(word.paragraph(
            word.picture_control(tag, prompt, self.pictures, float(width), float(height)), 'center', 60, 60))

    def add_table(self, text):
        """{tag=variable|} WIDTH,WIDTH,... in centimetres; "row" and "sample" lines follow."""
        control, widths = text.rsplit(' ', 1)
        tag, variable, _ = CONTROL.fullmatch(control).groups()
        self.substitutions.append((tag, variable))
        self.table = word.Table(tag, [float(width) for width in widths.split(',')],
                                self.small)

    def add_row(self, text):
        self.table.add_row(text.split('|'), heading=True)

    def add_sample(self, text):
        self.table.add_row(text.split('|'), heading=False)

    def close_table(self):
        self.blocks.append(self.table.xml())
        self.blocks.append(word.paragraph('', 'left', 0, 60))
        self.table = None

    def inline(self, text, style):
        parts, at = [], 0
        for found in CONTROL.finditer(text):
            parts.append(word.run(text[at:found.start()], style))
            tag, variable, prompt = found.groups()
            parts.append(word.text_control(tag, prompt, style))
            self.substitutions.append((tag, variable))
            at = found.end()
        parts.append(word.run(text[at:], style))
        return ''.join(parts)

    # --- files -----------------------------------------------------------------

    def description(self):
        file_name = Path(self.file_name).with_suffix('.xml').name
        rows = ''.join(f'  <substitution tag={quoteattr(tag)} var={quoteattr(variable)} text=""/>\n'
                       for tag, variable in self.substitutions)
        return (f'<template>\n <meta>\n  <template_type value="{self.key}"/>\n'
                f'  <template_name value={quoteattr(self.name)}/>\n  <template_path value="{file_name}"/>\n'
                f'  <template_docx_path value="{self.file_name}"/>\n </meta>\n <substitutions>\n{rows}'
                ' </substitutions>\n</template>\n')

    def write(self, folder):
        if self.table:
            self.close_table()
        path = folder / self.file_name
        word.write_package(path, ''.join(self.blocks), self.page, self.header, self.footer, self.pictures > 0)
        path.with_suffix('.xml').write_text(self.description(), encoding='utf-8')


KINDS = ('page', 'small', 'header', 'footer', 'title', 'heading', 'text', 'break', 'picture', 'table', 'row', 'sample')


def read(source):
    templates = []
    for number, line in enumerate(source.read_text(encoding='utf-8').splitlines(), 1):
        if not line.strip() or line.startswith('#'):
            continue
        kind, _, rest = line.partition(' ')
        if kind == 'template':
            templates.append(Template(*rest.split(' ', 2)))
        elif kind in KINDS and templates:
            templates[-1].add(kind, rest)
        else:
            sys.exit(f'{source}:{number}: no line of a template: {kind}')
    return templates


def main():
    source, folder = Path(sys.argv[1]), Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    for template in read(source):
        template.write(folder)


if __name__ == '__main__':
    main()
