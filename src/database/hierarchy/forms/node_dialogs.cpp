#include "database/hierarchy/forms/node_dialogs.h"

#include "database/hierarchy/node_levels.h"
#include "formkit/layout.h"
#include "formkit/modal.h"
#include "formkit/record_dialog.h"
#include "formkit/widgets.h"

using namespace formkit;

namespace {

const QString okName = QStringLiteral("OkBtn");

// Several can be chosen, as in the lists of positions elsewhere; one is asked for.
class PositionChoice : public QDialog {
public:
    explicit PositionChoice(QWidget* parent) : QDialog(parent)
    {
        nameForm(this, "PositionChoice", "Выбор позиции");
        layOut(this).column({
            growing(positions_ = listBox("Positions")),
            endButtons(this, {accepts(okName, "Ок"), cancel()}),
        });
        positions_->setSelectionMode(QAbstractItemView::ExtendedSelection);
        const sql::Result rows =
            session().run("select position_id, position from positions   order by subobject_id,appearence");
        for (const ComboEntry& position : choicesOf(rows)) {
            auto* item = new QListWidgetItem(position.text, positions_);
            item->setData(Qt::UserRole, position.data);
        }
        resize(360, 420);
    }

    std::optional<int> position() const
    {
        const QList<QListWidgetItem*> chosen = positions_->selectedItems();
        if (chosen.size() != 1)
            return {};
        return chosen.first()->data(Qt::UserRole).toInt();
    }

private:
    QListWidget* positions_;
};

} // namespace

std::optional<QString> askNodeName(QWidget* parent, const QString& now)
{
    // Both letters of the button are Cyrillic.
    FieldsDialog dialog("RenameForm", "Переименовать", {Field::text("Name", "Имя")}, {accepts(okName, "ОК"), cancel()},
                        parent);
    dialog.setMinimumWidth(340);
    dialog.fields().setText("Name", now);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.fields().text("Name");
}

std::optional<int> askParent(QWidget* parent, int level, int now)
{
    const char* statement = nodeLevels()[size_t(level)].parents;
    const auto parents = [statement] { return choicesOf(session().run(statement)); };
    FieldsDialog dialog("MoveForm", "Переместить в ", {Field::choice("Parent", "Раздел", parents)}, {ok(), cancel()},
                        parent);
    dialog.setMinimumWidth(340);
    dialog.fields().setText("Parent", QString::number(now));
    if (dialog.exec() != QDialog::Accepted || dialog.fields().text("Parent").isEmpty())
        return {};
    return dialog.fields().text("Parent").toInt();
}

std::optional<int> askPosition() { return askModal(&PositionChoice::position); }
