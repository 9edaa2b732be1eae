#include "drawing/alignment/forms/name_choice.h"

#include "formkit/modal.h"

#include <QComboBox>
#include <QInputDialog>

namespace {

constexpr int namesWidth = 30;

void prepare(QInputDialog& box, const QString& title, const QString& label, const QStringList& names)
{
    box.setWindowTitle(title);
    box.setLabelText(label);
    box.setComboBoxItems(names);
    // Room for the title and for names longer than the first.
    if (auto* list = box.findChild<QComboBox*>())
        list->setMinimumContentsLength(namesWidth);
}

// Follows which item an edited text was made of.
class ItemInHand {
public:
    explicit ItemInHand(QInputDialog& box)
    {
        auto* list = box.findChild<QComboBox*>();
        if (!list)
            return;
        // Enter must not add the edited text as an item of its own.
        list->setInsertPolicy(QComboBox::NoInsert);
        QObject::connect(list, qOverload<int>(&QComboBox::currentIndexChanged), &box,
                         [this](int index) { index_ = index >= 0 ? index : index_; });
    }
    int index() const { return index_; }

private:
    int index_ = 0;
};

} // namespace

std::optional<QString> chooseName(const QString& title, const QString& label, const QStringList& names)
{
    formkit::OverHost host;
    QInputDialog box(host);
    prepare(box, title, label, names);
    if (box.exec() != QDialog::Accepted || names.isEmpty())
        return {};
    return box.textValue();
}

std::optional<UcsChoice> chooseAndEditName(const QString& title, const QString& label, const QStringList& names)
{
    formkit::OverHost host;
    QInputDialog box(host);
    prepare(box, title, label, names);
    box.setComboBoxEditable(true);
    const ItemInHand inHand(box);
    if (box.exec() != QDialog::Accepted || box.textValue().trimmed().isEmpty())
        return {};
    const int equal = names.indexOf(box.textValue());
    const bool chosen = equal < 0 || names.value(inHand.index()) == box.textValue();
    return UcsChoice{chosen ? inHand.index() : equal, box.textValue()};
}
