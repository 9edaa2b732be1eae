"""Pieces of a Word file: runs, controls, tables, and the package around them."""
import struct
import zipfile
import zlib
from xml.sax.saxutils import escape, quoteattr

WORD = 'http://schemas.openxmlformats.org/wordprocessingml/2006/main'
PACKAGE = 'http://schemas.openxmlformats.org/package/2006'
OFFICE = 'http://schemas.openxmlformats.org/officeDocument/2006'
DRAWING = 'http://schemas.openxmlformats.org/drawingml/2006'
TYPES = 'application/vnd.openxmlformats-officedocument.wordprocessingml'
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'

TWIPS = 567  # of a centimetre
EMU = 360000

# Size in half points, bold.
TITLE, HEADING, BODY, CELL, CELL_HEADING = (32, True), (26, True), (24, False), (17, False), (17, True)
SMALL = 12  # of cells in tables of many columns
PAGE_BREAK = '<w:p><w:r><w:br w:type="page"/></w:r></w:p>'


def run(text, style):
    if not text:
        return ''
    size, bold = style
    weight = '<w:b/>' if bold else ''
    return (f'<w:r><w:rPr>{weight}<w:sz w:val="{size}"/><w:szCs w:val="{size}"/></w:rPr>'
            f'<w:t xml:space="preserve">{escape(text)}</w:t></w:r>')


def paragraph(content, align, before, after, keep=False, style=''):
    """`style` names the look of what is typed or filled in: some programs give a
    control the look of its paragraph, not that of its text."""
    named = f'<w:pStyle w:val="{style}"/>' if style else ''
    keeps = '<w:keepNext/>' if keep else ''
    return (f'<w:p><w:pPr>{named}{keeps}<w:spacing w:before="{before}" w:after="{after}"/><w:jc w:val="{align}"/></w:pPr>'
            f'{content}</w:p>')


def text_control(tag, prompt, style):
    return (f'<w:sdt><w:sdtPr><w:alias w:val={quoteattr(prompt)}/><w:tag w:val={quoteattr(tag)}/>'
            f'<w:text/></w:sdtPr><w:sdtContent>{run(prompt, style)}</w:sdtContent></w:sdt>')


def picture_control(tag, prompt, number, width, height):
    extent = f'cx="{int(width * EMU)}" cy="{int(height * EMU)}"'
    return (f'<w:sdt><w:sdtPr><w:alias w:val={quoteattr(prompt)}/><w:tag w:val={quoteattr(tag)}/><w:picture/>'
            '</w:sdtPr><w:sdtContent><w:r><w:drawing><wp:inline distT="0" distB="0" distL="0" distR="0">'
            f'<wp:extent {extent}/><wp:docPr id="{number}" name={quoteattr(prompt)}/>'
            f'<a:graphic><a:graphicData uri="{DRAWING}/picture"><pic:pic>'
            f'<pic:nvPicPr><pic:cNvPr id="{number}" name={quoteattr(prompt)}/><pic:cNvPicPr/></pic:nvPicPr>'
            '<pic:blipFill><a:blip r:embed="rIdPlace"/><a:stretch><a:fillRect/></a:stretch></pic:blipFill>'
            f'<pic:spPr><a:xfrm><a:off x="0" y="0"/><a:ext {extent}/></a:xfrm><a:prstGeom prst="rect"><a:avLst/>'
            '</a:prstGeom></pic:spPr></pic:pic></a:graphicData></a:graphic></wp:inline></w:drawing></w:r>'
            '</w:sdtContent></w:sdt>')


class Table:
    """Heading rows and the sample row. In a row "^" goes on with the cell
    above, "<" belongs to the cell at its left; "~" in front of a text puts it
    at the left of its cell."""

    def __init__(self, tag, widths, small=False):
        self.tag, self.widths, self.small, self.rows = tag, widths, small, []

    def add_row(self, texts, heading):
        if len(texts) != len(self.widths):
            raise SystemExit(f'{self.tag}: {len(texts)} cells for {len(self.widths)} columns')
        self.rows.append((texts, heading))

    def cell(self, number, column, span):
        texts, heading = self.rows[number]
        text = texts[column]
        below = self.rows[number + 1][0][column] if number + 1 < len(self.rows) else ''
        properties = f'<w:tcW w:w="{int(sum(self.widths[column:column + span]) * TWIPS)}" w:type="dxa"/>'
        if span > 1:
            properties += f'<w:gridSpan w:val="{span}"/>'
        if text == '^':
            properties += '<w:vMerge/>'
        elif below == '^':
            properties += '<w:vMerge w:val="restart"/>'
        if heading:
            properties += '<w:shd w:val="clear" w:color="auto" w:fill="E7EBF0"/>'
        style = CELL_HEADING if heading else CELL
        style = (SMALL, heading) if self.small else style
        content = '' if text == '^' else run(text.lstrip('~'), style)
        if number == 0 and column == 0:
            content += text_control(self.tag, ' ', CELL)
        align = 'left' if text.startswith('~') else 'center'
        return (f'<w:tc><w:tcPr>{properties}<w:vAlign w:val="center"/></w:tcPr>'
                f'{paragraph(content, align, 0, 0)}</w:tc>')

    def row(self, number):
        texts, heading = self.rows[number]
        cells, column = '', 0
        while column < len(texts):
            span = 1
            while column + span < len(texts) and texts[column + span] == '<':
                span += 1
            cells += self.cell(number, column, span)
            column += span
        repeats = '<w:trPr><w:cantSplit/><w:tblHeader/></w:trPr>' if heading else '<w:trPr><w:cantSplit/></w:trPr>'
        return f'<w:tr>{repeats}{cells}</w:tr>'

    def xml(self):
        sides = ''.join(f'<w:{side} w:val="single" w:sz="4" w:space="0" w:color="7F7F7F"/>'
                        for side in ('top', 'left', 'bottom', 'right', 'insideH', 'insideV'))
        margin = 10 if self.small else 40
        grid = ''.join(f'<w:gridCol w:w="{int(width * TWIPS)}"/>' for width in self.widths)
        rows = ''.join(self.row(number) for number in range(len(self.rows)))
        return ('<w:tbl><w:tblPr><w:tblW w:w="5000" w:type="pct"/>'
                f'<w:tblBorders>{sides}</w:tblBorders><w:tblLayout w:type="autofit"/>'
                f'<w:tblCellMar><w:left w:w="{margin}" w:type="dxa"/><w:right w:w="{margin}" w:type="dxa"/></w:tblCellMar>'
                f'</w:tblPr><w:tblGrid>{grid}</w:tblGrid>{rows}</w:tbl>')


def placeholder():
    """A light grey picture as PNG."""
    side = 16
    lines = b''.join(b'\0' + b'\xee' * side for _ in range(side))

    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', side, side, 8, 0, 0, 0, 0))
            + chunk(b'IDAT', zlib.compress(lines)) + chunk(b'IEND', b''))


STYLES = HEAD + (
    f'<w:styles xmlns:w="{WORD}"><w:docDefaults><w:rPrDefault><w:rPr><w:rFonts w:ascii="Times New Roman" '
    'w:hAnsi="Times New Roman" w:cs="Times New Roman"/><w:lang w:val="ru-RU"/></w:rPr></w:rPrDefault>'
    '<w:pPrDefault/></w:docDefaults><w:style w:type="paragraph" w:default="1" w:styleId="Normal">'
    '<w:name w:val="Normal"/></w:style>'
    + ''.join(f'<w:style w:type="paragraph" w:styleId="{key}"><w:name w:val="{name}"/><w:basedOn w:val="Normal"/>'
              f'<w:rPr>{"<w:b/>" if bold else ""}<w:sz w:val="{size}"/><w:szCs w:val="{size}"/></w:rPr></w:style>'
              for key, name, (size, bold) in (('Title', 'Title', TITLE), ('Heading1', 'heading 1', HEADING),
                                              ('BodyText', 'Body Text', BODY)))
    + '</w:styles>')


def relationships(rows):
    return HEAD + f'<Relationships xmlns="{PACKAGE}/relationships">' + ''.join(
        f'<Relationship Id="{key}" Type="{OFFICE}/relationships/{kind}" Target="{target}"/>'
        for key, kind, target in rows) + '</Relationships>'


def edge_part(name, content):
    return HEAD + f'<w:{name} xmlns:w="{WORD}">{content}</w:{name}>'


def page_number():
    def field(kind):
        return f'<w:r><w:fldChar w:fldCharType="{kind}"/></w:r>'
    return (field('begin') + '<w:r><w:instrText xml:space="preserve"> PAGE </w:instrText></w:r>' + field('separate')
            + run('1', CELL) + field('end'))


PAGES = {'portrait': (11906, 16838), 'landscape': (16838, 11906), 'a3': (23811, 16838)}


def section(page, header, footer):
    wide, high = PAGES[page]
    turned = ' w:orient="landscape"' if wide > high else ''
    edges = ('<w:headerReference w:type="default" r:id="rIdHeader"/>' if header else '') + (
        '<w:footerReference w:type="default" r:id="rIdFooter"/>' if footer else '')
    return (f'<w:sectPr>{edges}<w:pgSz w:w="{wide}" w:h="{high}"{turned}/><w:pgMar w:top="1134" w:right="850" '
            'w:bottom="1134" w:left="1134" w:header="567" w:footer="567" w:gutter="0"/></w:sectPr>')


def write_package(path, body, page, header, footer, has_pictures):
    document = HEAD + (f'<w:document xmlns:w="{WORD}" xmlns:r="{OFFICE}/relationships" '
                       f'xmlns:wp="{DRAWING}/wordprocessingDrawing" xmlns:a="{DRAWING}/main" '
                       f'xmlns:pic="{DRAWING}/picture"><w:body>{body}{section(page, header, footer)}</w:body>'
                       '</w:document>')
    parts = [('document', 'document', 'document.main', document), ('styles', 'styles', 'styles', STYLES)]
    if header:
        text = paragraph(run(header, CELL), 'right', 0, 0)
        parts.append(('Header', 'header1', 'header', edge_part('hdr', text)))
    if footer:
        text = paragraph(run(footer + '    ', CELL) + page_number(), 'right', 0, 0)
        parts.append(('Footer', 'footer1', 'footer', edge_part('ftr', text)))
    types = HEAD + (f'<Types xmlns="{PACKAGE}/content-types"><Default Extension="rels" '
                    'ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
                    '<Default Extension="xml" ContentType="application/xml"/>'
                    '<Default Extension="png" ContentType="image/png"/>') + ''.join(
        f'<Override PartName="/word/{name}.xml" ContentType="{TYPES}.{kind}+xml"/>' for _, name, kind, _ in parts
    ) + '</Types>'
    links = [('rId' + key, key.lower(), name + '.xml') for key, name, _, _ in parts[1:]]
    entries = [('[Content_Types].xml', types),
               ('_rels/.rels', relationships([('rId1', 'officeDocument', 'word/document.xml')]))]
    entries += [(f'word/{name}.xml', text) for _, name, _, text in parts]
    if has_pictures:
        links.append(('rIdPlace', 'image', 'media/place.png'))
        entries.append(('word/media/place.png', placeholder()))
    entries.append(('word/_rels/document.xml.rels', relationships(links)))
    with zipfile.ZipFile(path, 'w', zipfile.ZIP_DEFLATED) as package:
        for name, content in entries:
            entry = zipfile.ZipInfo(name, date_time=(2026, 1, 1, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            package.writestr(entry, content if isinstance(content, bytes) else content.encode('utf-8'))
