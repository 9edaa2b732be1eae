#include "reports/docx/table_grid.h"

#include "reports/docx/xml_walk.h"

namespace docx {
namespace {

QStringList prefixed(const char* names)
{
    QStringList list = QString::fromLatin1(names).split(QLatin1Char(' '));
    for (QString& name : list)
        name.prepend(QLatin1String("w:"));
    return list;
}

int widthOf(const QDomElement& cell)
{
    const QDomElement span = gridSpanOf(cell);
    return span.isNull() ? 1 : span.attribute(QStringLiteral("w:val")).toInt();
}

} // namespace

QVector<QDomElement> rowsOf(const QDomElement& table) { return ownElements(table, "w:tr"); }

QVector<QDomElement> cellsOf(const QDomElement& row) { return ownElements(row, "w:tc"); }

QDomElement rowOf(const QDomElement& table, int index) { return ownElement(table, "w:tr", index); }

QDomElement cellOf(const QDomElement& row, int index) { return ownElement(row, "w:tc", index); }

QDomElement cellProperties(const QDomElement& cell) { return cell.firstChildElement(QStringLiteral("w:tcPr")); }

QDomElement gridSpanOf(const QDomElement& cell)
{
    return cellProperties(cell).firstChildElement(QStringLiteral("w:gridSpan"));
}

int cellOfColumn(const QVector<QDomElement>& cells, int column)
{
    qint64 end = 0;
    for (int place = 0; place < cells.size(); ++place) {
        end += widthOf(cells.at(place));
        if (end > column)
            return column < 0 ? -1 : place;
    }
    return -1;
}

QDomElement cellAtGrid(const QDomElement& table, int row, int column)
{
    const QString value = QStringLiteral("w:val");
    const QVector<QDomElement> cells = cellsOf(rowOf(table, row));
    const int cell = cellOfColumn(cells, column);
    QDomElement at = cells.value(cell);
    for (; !at.isNull(); at = cellOf(rowOf(table, --row), cell)) {
        const QDomElement merge = cellProperties(at).firstChildElement(QStringLiteral("w:vMerge"));
        if (merge.isNull())
            return at;
        if (merge.hasAttribute(value))
            return merge.attribute(value) == QLatin1String("restart") ? at : QDomElement();
    }
    return QDomElement();
}

const QStringList& cellPropertyOrder()
{
    static const QStringList order =
        prefixed("cnfStyle tcW gridSpan hMerge vMerge tcBorders shd noWrap tcMar textDirection "
                 "tcFitText vAlign hideMark headers cellIns cellDel cellMerge tcPrChange");
    return order;
}

const QStringList& paragraphPropertyOrder()
{
    static const QStringList order =
        prefixed("pStyle keepNext keepLines pageBreakBefore framePr widowControl numPr suppressLineNumbers "
                 "pBdr shd tabs suppressAutoHyphens kinsoku wordWrap overflowPunct topLinePunct autoSpaceDE "
                 "autoSpaceDN bidi adjustRightInd snapToGrid spacing ind contextualSpacing mirrorIndents "
                 "suppressOverlap jc textDirection textAlignment textboxTightWrap outlineLvl divId cnfStyle "
                 "rPr sectPr pPrChange");
    return order;
}

QDomElement makeCellProperties(QDomElement cell)
{
    QDomElement properties = cellProperties(cell);
    if (properties.isNull()) {
        properties = cell.ownerDocument().createElement(QStringLiteral("w:tcPr"));
        cell.insertBefore(properties, cell.firstChild());
    }
    return properties;
}

} // namespace docx
