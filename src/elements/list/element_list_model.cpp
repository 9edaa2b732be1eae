#include "elements/list/element_list_model.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "elements/list/list_statement.h"
#include "session/project_session.h"

#include <QSignalBlocker>

namespace {

const char* const positionsStatement =
    "select position_id, position, subobject_id from positions join subobjects using(subobject_id) order by "
    "subobjects.appearence,positions.appearence";

void readMap(const Statement& statement, StringMap& map)
{
    const sql::Result rows = session().run(statement);
    if (!rows.isTuples())
        return;
    map.clear();
    for (int row = 0; row < rows.ntuples(); ++row)
        map.insert(rows.getvalue(row, 0), rows.getvalue(row, 1));
}

void readPositions(ComboData& positions)
{
    const sql::Result rows = session().run(positionsStatement);
    if (!rows.isTuples())
        return;
    positions.entries.clear();
    for (int row = 0; row < rows.ntuples(); ++row)
        positions.entries.append({rows.toInt(row, 0), rows.getvalue(row, 1)});
}

QStandardItem* lockedItem(const QString& text)
{
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    return item;
}

QStandardItem* rightItem(QStandardItem* item)
{
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QStandardItem* choiceItem(const QString& text, const QVariant& key, const QVariant& choices)
{
    auto* item = new QStandardItem(text);
    item->setData(key, ElementListModel::KeyRole);
    item->setData(choices, ElementListModel::ChoicesRole);
    return item;
}

// "Цикл: 1,3" of the ids "4,7".
QString cyclesText(const QString& ids)
{
    if (ids.isEmpty())
        return QStringLiteral("Нет");
    QStringList numbers;
    for (const QString& id : ids.split(QLatin1Char(',')))
        numbers.append(session().cycles.value(id.toInt()).value(0));
    return fill("Цикл: %1", numbers.join(QLatin1Char(',')));
}

QStandardItem* fileItem(const sql::Result& rows, int row, ListColumn column)
{
    const int at = int(column);
    if (at >= rows.nfields())
        return rightItem(lockedItem(QStringLiteral("-")));
    const int count = rows.toInt(row, at);
    QStandardItem* item = lockedItem(count > 0 ? QStringLiteral("загр.") : QStringLiteral("нет"));
    item->setData(count, ElementListModel::KeyRole);
    return rightItem(item);
}

// An empty number is absent.
QString numberForStatement(const QString& text) { return text.isEmpty() ? QStringLiteral("NULL") : text; }

} // namespace

QString ComboData::textOf(int id) const
{
    for (const auto& [key, text] : entries) {
        if (key == id)
            return text;
    }
    return {};
}

ElementListModel::ElementListModel(QObject* parent) : QStandardItemModel(parent)
{
    qRegisterMetaType<StringMap>("StringMap");
    qRegisterMetaType<ComboData>("ComboData");
    setHorizontalHeaderLabels(titles());
    for (int column = 0; column < ColumnCount; ++column)
        setHeaderData(column, Qt::Horizontal, titles().at(column), Qt::ToolTipRole);
    connect(this, &QStandardItemModel::itemChanged, this, &ElementListModel::edited);
}

QStringList ElementListModel::titles()
{
    return {"Id",       "Имя",    "Тип",       "Состояние", "Позиция(Проект)", "X",      "Y",
            "Абс.Отм.", "Высота", "Измерения", "Фото",      "Абрис",           "Колонка"};
}

void ElementListModel::readChoices()
{
    for (const ListFamily& family : listFamilies())
        readMap(compose("select type_id, name from %1", Identifier(family.tables().types)),
                types_[size_t(family.family)]);
    readMap("select state_id, note  from states", states_);
    readPositions(positions_);
}

void ElementListModel::load(const ListRequest& request)
{
    // One reset in the place of a notice a row: whoever shows the table sorts it once.
    beginResetModel();
    {
        const QSignalBlocker quiet(this);
        removeRows(0, rowCount());
        for (const ListFamily* family : familiesOfKey(request.shortKey)) {
            const sql::Result rows = session().run(listStatement(*family, request.place, request.cycleId));
            for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
                appendRow(rowOf(*family, rows, row));
        }
    }
    endResetModel();
}

QList<QStandardItem*> ElementListModel::rowOf(const ListFamily& family, const sql::Result& rows, int row) const
{
    const auto value = [&](ListColumn column) { return rows.getvalue(row, int(column)); };
    const QString name = value(ListColumn::Name), type = value(ListColumn::TypeId), state = value(ListColumn::StateId);
    const int position = rows.toInt(row, int(ListColumn::PositionId));
    const StringMap& types = typesOf(family);
    QList<QStandardItem*> items = {
        lockedItem(value(ListColumn::Id)),
        choiceItem(name, name, name),
        choiceItem(types.value(type, type), type, QVariant::fromValue(types)),
        choiceItem(states_.value(state, state), state, QVariant::fromValue(states_)),
        choiceItem(positions_.textOf(position), position, QVariant::fromValue(positions_)),
    };
    for (ListColumn column : {ListColumn::X, ListColumn::Y, ListColumn::Z, ListColumn::H})
        items.append(rightItem(new QStandardItem(value(column))));
    items.append(rightItem(lockedItem(cyclesText(value(ListColumn::Cycles)))));
    for (ListColumn column : {ListColumn::Photos, ListColumn::Sketches, ListColumn::Geology})
        items.append(fileItem(rows, row, column));
    for (QStandardItem* item : qAsConst(items))
        item->setData(family.tables().elements, TableRole);
    return items;
}

Identifier ElementListModel::tableAt(int row) const { return Identifier(index(row, Id).data(TableRole).toString()); }

QString ElementListModel::textAt(int row, int column) const { return index(row, column).data().toString(); }

QString ElementListModel::keyAt(int row, int column) const { return index(row, column).data(KeyRole).toString(); }

ListedElement ElementListModel::elementAt(int row) const
{
    ListedElement element;
    const QString table = index(row, Id).data(TableRole).toString();
    for (const ListFamily& family : listFamilies()) {
        if (family.tables().elements == table)
            element.family = &family;
    }
    element.id = textAt(row, Id).toInt();
    element.name = textAt(row, Name);
    element.typeId = keyAt(row, Type);
    element.positionId = keyAt(row, Position).toInt();
    element.x = textAt(row, X);
    element.y = textAt(row, Y);
    return element;
}

// --- editing ---------------------------------------------------------------------

void ElementListModel::edited(QStandardItem* item)
{
    Answer answer = Answer::Write;
    {
        const QSignalBlocker quiet(this); // what is put right here is no edit
        if (item->column() == Name)
            answer = checkName(item);
        else if (item->column() == Position)
            answer = checkPosition(item);
    }
    if (answer == Answer::Write)
        writeRow(item->row());
    if (answer == Answer::Refuse)
        emit nameTaken();
}

bool ElementListModel::isTaken(int row, const QString& name, int positionId) const
{
    return session()
        .run(compose("select element_id from %1 where element_name='%2' and %3=%4", tableAt(row), name,
                     Identifier("position_id"), positionId))
        .hasRow();
}

ElementListModel::Answer ElementListModel::checkName(QStandardItem* item)
{
    const QString before = item->data(ChoicesRole).toString(), name = item->text();
    if (name == before)
        return Answer::Write;
    if (isTaken(item->row(), name, keyAt(item->row(), Position).toInt())) {
        item->setText(before);
        item->setData(before, KeyRole);
        return Answer::Refuse;
    }
    item->setData(name, KeyRole);
    item->setData(name, ChoicesRole);
    return Answer::Write;
}

ElementListModel::Answer ElementListModel::checkPosition(QStandardItem* item)
{
    const QVariant before = item->data(OldPositionRole);
    item->setData(QVariant(), OldPositionRole);
    const int position = item->data(KeyRole).toInt();
    if (!before.isValid() || before.toInt() == position)
        return Answer::Nothing;
    if (!isTaken(item->row(), textAt(item->row(), Name), position))
        return Answer::Write;
    item->setText(positions_.textOf(before.toInt()));
    item->setData(before, KeyRole);
    return Answer::Refuse;
}

void ElementListModel::writeRow(int row) const
{
    const auto number = [&](int column) { return Numeral(numberForStatement(textAt(row, column))); };
    session().run(
        compose("update  %1 set (type_id, element_name, state_id, %2,x,y,z,h) =('%3','%4','%5',%6,%7,%8,%9,%10) where "
                "element_id=%11",
                tableAt(row), Identifier("position_id"), keyAt(row, Type), textAt(row, Name), keyAt(row, State),
                Numeral(keyAt(row, Position)), number(X), number(Y), number(Z), number(H), Numeral(textAt(row, Id))));
}
