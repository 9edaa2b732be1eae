#pragma once
// The table of all elements: one row an element, edited in place.

#include "elements/list/hierarchy.h"
#include "elements/list/list_family.h"

#include <QMap>
#include <QStandardItemModel>
#include <array>

namespace sql {
class Result;
}

/// What a cell may become: key and shown text.
using StringMap = QMap<QString, QString>;

/// The same with whole keys, in an order of their own.
struct ComboData {
    QVector<QPair<int, QString>> entries;
    QString textOf(int id) const; ///< empty for an unknown one
};
Q_DECLARE_METATYPE(ComboData)

struct ListedElement {
    const ListFamily* family = nullptr;
    int id = -1;
    QString name;
    QString typeId;
    int positionId = -1;
    QString x, y; ///< as the server wrote them
};
using ListedElements = QVector<ListedElement>;

struct ListRequest {
    QString shortKey; ///< of a family, or that of all
    HierarchyPlace place;
    int cycleId = -1; ///< whose measures are shown; -1 all
};

class ElementListModel : public QStandardItemModel {
    Q_OBJECT

public:
    enum Column { Id, Name, Type, State, Position, X, Y, Z, H, Measures, Photo, Sketch, Geology, ColumnCount };
    enum Role {
        KeyRole = Qt::UserRole,       ///< of a name the name itself, of a file the count
        ChoicesRole,                  ///< StringMap, or the ComboData of a position; of a name the last accepted one
        OldPositionRole,              ///< while a position is being changed
        TableRole = Qt::UserRole + 8, ///< name of the element's table
    };

    explicit ElementListModel(QObject* parent = nullptr);

    /// Reads the types of all families, states and positions. One that cannot be
    /// read stays as it was.
    void readChoices();
    /// Shows what is asked for; a family that cannot be read is left out.
    void load(const ListRequest& request);

    ListedElement elementAt(int row) const;
    const StringMap& typesOf(const ListFamily& family) const { return types_[size_t(family.family)]; }
    const StringMap& states() const { return states_; }
    const ComboData& positions() const { return positions_; }

    static QStringList titles();

signals:
    /// A name was refused, the row shows the old one.
    void nameTaken();

private:
    QList<QStandardItem*> rowOf(const ListFamily& family, const sql::Result& rows, int row) const;
    enum class Answer { Write, Nothing, Refuse };
    void edited(QStandardItem* item);
    Answer checkName(QStandardItem* item);
    Answer checkPosition(QStandardItem* item);
    bool isTaken(int row, const QString& name, int positionId) const;
    void writeRow(int row) const;
    Identifier tableAt(int row) const;
    QString textAt(int row, int column) const;
    QString keyAt(int row, int column) const;

    std::array<StringMap, familyCount> types_;
    StringMap states_;
    ComboData positions_;
};
