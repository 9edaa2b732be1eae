#include "analysis/profiles/forms/profile_dialog.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/boxes.h"
#include "formkit/table_items.h"
#include "formkit/unit.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QInputDialog>

using namespace formkit;

ProfileDialog::ProfileDialog(const ProfileWords& words, const ProfileFamily& family, QWidget* parent)
    : QDialog(parent), words_(words), family_(family)
{
    nameForm(this, words.name, words.title);
}

void ProfileDialog::layOutProfile(const std::vector<Item>& own, const Item& tables, QWidget* ends)
{
    std::vector<Item> panes = {linePane(), placePane()};
    panes.insert(panes.end(), own.begin(), own.end());
    panes.push_back(stretch());
    panes.push_back(status_ = note("StatusLabel"));
    layOut(this).column({
        growing(row({column(panes), growing(tables)})),
        row({
            button("WriteDBbtn", "Записать в БД", this, &ProfileDialog::save),
            button("CSVExpBtn", "Экспорт в .CSV", this,
                   [this] { exportCsv(this, exported(), words_.fileParts, "Экспорт в csv"); }),
            button("ClipExpBtn", "Экспорт в буфер обмена", this, [this] { copyTable(exported(), WithTitles); }),
            stretch(),
            ends,
        }),
    });
    for (QRadioButton* choice : {byPosition_, exact_})
        connect(choice, &QRadioButton::toggled, this, [this] {
            tolerance_->setEnabled(!exact_->isChecked());
            reload();
        });
    connect(tolerance_, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this] { reload(); });
    showLine(false);
    resize(1260, 640);
}

Item ProfileDialog::linePane()
{
    return group("Линия профиля")
        .grid({
            {"Линия", growing(picked_ = readOut("PolySelected"))},
            {"Длина", length_ = readOut("ProfLength")},
            {"Вершин", vertices_ = readOut("ProfVertexCount")},
        });
}

Item ProfileDialog::placePane()
{
    QWidget* place = group(words_.elements)
                         .row({
                             byPosition_ = radio("SelectByPosition", "По позиции", true),
                             byDatabase_ = radio("SelectByDataBase", "По всей базе"),
                             stretch(),
                         });
    QWidget* corridor = group("Привязка к линии")
                            .row({
                                exact_ = radio("MatchPreciss", "Точно"),
                                corridor_ = radio("MatcTolerance", words_.corridor, true),
                                tolerance_ = inUnit("м", realSpin("Tolerance", 0.01, 1000.0, 0.5)),
                                stretch(),
                            });
    tolerance_->setValue(Corridor::start);
    return row({place, growing(corridor)}); // side by side, for screens that are not high
}

double ProfileDialog::tolerance() const { return Corridor{exact_->isChecked(), tolerance_->value()}.tolerance(); }

std::optional<int> ProfileDialog::searchedPosition() const
{
    return byPosition_->isChecked() ? std::make_optional(session().currentPositionId) : std::nullopt;
}

void ProfileDialog::setLine(const ProfileLine& line)
{
    line_ = line;
    record_ = ProfileRecord();
    showLine(true);
    reload();
}

bool ProfileDialog::showRecord(int id, int* lost)
{
    if (!loadProfile(family_, id, record_, lost))
        return false;
    line_ = ProfileLine::ofText(record_.lineText);
    showLine(false);
    return true;
}

void ProfileDialog::forgetRecord()
{
    record_ = ProfileRecord();
    line_ = ProfileLine();
    showLine(false);
}

// Where elements are looked for matters for a picked line alone: a stored
// profile knows its own.
void ProfileDialog::showLine(bool picked)
{
    const bool isStored = record_.id >= 0 && !picked;
    picked_->setText(picked         ? QStringLiteral("Указана")
                         : isStored ? QStringLiteral("Из профиля")
                                    : QStringLiteral("Не указана"));
    length_->setText(hasLine() ? fill("%1 м", fixed(line_.length(), 2)) : QStringLiteral("--"));
    vertices_->setText(line_.vertexCount() > 0 ? QString::number(line_.vertexCount()) : QStringLiteral("--"));
    for (QWidget* control : std::initializer_list<QWidget*>{byPosition_, byDatabase_, exact_, corridor_})
        control->setEnabled(!isStored);
    tolerance_->setEnabled(!isStored && !exact_->isChecked());
}

void ProfileDialog::save()
{
    ProfileRecord wanted = record_;
    wanted.points = elementsToStore();
    wanted.view = viewToStore();
    wanted.positionId = session().currentPositionId;
    if (record_.lineText.isEmpty())
        wanted.lineText = line_.text();
    if (!hasLine() && record_.id < 0)
        return warn(this, "Не указана линия профиля.");
    if (wanted.points.empty())
        return warn(this, "Вдоль линии не выбрано ни одного элемента: сохранять нечего.");
    wanted.name =
        QInputDialog::getText(this, QStringLiteral("Сохранение профиля"), words_.nameAsked, QLineEdit::Normal,
                              record_.id >= 0 ? record_.name : presetName(family_, session().currentPositionId));
    if (wanted.name.isEmpty())
        return;
    QString problem;
    if (!storeProfile(family_, wanted, &problem)) {
        setStatus(fill("Ошибка записи в БД %1", problem));
        say(fill("\nОшибка записи в БД %1\n", problem));
        return;
    }
    record_ = wanted;
    setStatus(fill("Профиль %1 записан в базу данных", wanted.name));
    say(fill("\nПрофиль %1 записан в базу данных\n", wanted.name));
    stored();
}
