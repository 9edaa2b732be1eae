#include "elements/list/forms/hierarchy_combo.h"

#include "formkit/choices.h"

#include <QStyledItemDelegate>

namespace {

constexpr int kIndent = 16; // pixels a level

// The list of the box shows by indents how deep an entry lies.
class IndentedEntries : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem indented(option);
        indented.rect.adjust(indentOf(index), 0, 0, 0);
        QStyledItemDelegate::paint(painter, indented, index);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(indentOf(index), 0);
    }

private:
    static int indentOf(const QModelIndex& index)
    {
        return kIndent * (placeOf(index.data(Qt::UserRole).toString()).level + 1);
    }
};

} // namespace

HierarchyCombo::HierarchyCombo(QWidget* parent) : QComboBox(parent)
{
    setItemDelegate(new IndentedEntries(this));
    reload();
}

void HierarchyCombo::reload()
{
    formkit::Choices choices = {{QStringLiteral("Все"), QString()}};
    for (const HierarchyNode& node : readHierarchy())
        choices.append({node.name, placeText(node.place)});
    formkit::setChoices(this, choices);
}

HierarchyPlace HierarchyCombo::place() const { return placeOf(currentData().toString()); }
