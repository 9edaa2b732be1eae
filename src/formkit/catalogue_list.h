#pragma once
// A catalogue as a list with its buttons: shows the rows of a table, opens
// their record, deletes what nothing refers to.

#include "base/statement.h"
#include "formkit/record_dialog.h"

#include <memory>

class QAbstractButton;
class QAbstractItemView;
class QMenu;

namespace formkit {

/// The button of a catalogue; one without a name is not there.
struct ToolButton {
    QString name;
    QString caption;
    QString tip;
    QString icon = QString(); ///< of the set; with one the button shows it in the place of its caption
};

struct Catalogue {
    QString listName;                ///< object name of the view
    const char* statement = nullptr; ///< the key first, then what is shown
    int texts = 1;                   ///< columns that are shown
    /// Titles of the columns; without them an entry is one line, its texts
    /// joined by " - ".
    std::vector<QString> titles;
    /// Statements with the key for %1 whose one number says how often the entry
    /// is used: any but 0 refuses its deletion.
    std::vector<const char*> counts;
    QString refusal;
    QString question;             ///< %1 is the entry's text
    const char* remove = nullptr; ///< statement with the key for %1
    std::function<std::unique_ptr<RecordDialog>(QWidget* parent)> record;
    QString notConnected;      ///< printed when a refresh finds no connection
    QString filterName;        ///< object name of the line that filters; empty: none
    bool createsByMenu = true; ///< the menu offers `create` too
    ToolButton create{QStringLiteral("CreateBTN"), QStringLiteral("Создать"), {}};
    ToolButton edit{QStringLiteral("EditBTN"), QStringLiteral("Редактировать"), {}};
    ToolButton erase{QStringLiteral("DeleteBTN"), QStringLiteral("Удалить"), {}};
    ToolButton reload; ///< e.g. {"RefreshBTN", "Обновить"}
};

class CatalogueList : public QWidget {
    Q_OBJECT

public:
    /// Empty until refresh().
    explicit CatalogueList(const Catalogue& catalogue, QWidget* parent = nullptr);

    /// Reads the catalogue; the chosen entry stays chosen.
    virtual void refresh();

    QString currentKey() const; ///< empty when nothing is chosen
    QString currentText() const;
    void setCurrentKey(const QString& key);
    int count() const;

    void createEntry();
    void editCurrent();
    void deleteCurrent();

signals:
    /// The user has added, changed or deleted an entry.
    void changed();

protected:
    QAbstractItemView* view() const { return view_; }
    /// Reads other rows from now on.
    void setStatement(const Statement& statement) { statement_ = statement; }
    /// What stands between the list and its buttons.
    void putUnderList(QLayout* content);
    /// The text of the entry; empty when there is none of the key.
    QString textOf(const QString& key) const;
    /// An entry stands in its row: its marks, its icon.
    virtual void dress(int row, const QString& key);
    /// What the menu of the list holds above the buttons' own entries.
    virtual void addToMenu(QMenu& menu);
    /// A double click: opens the entry's record.
    virtual void activate(const QModelIndex& place);
    /// Whether something refers to the entry; tells so.
    bool isUsed(const QString& key);
    /// Whether the entry may go; tells why not.
    virtual bool mayDelete(const QString& key);

private:
    QLayout* buttonRow();
    QAbstractButton* buttonOf(const ToolButton& wanted, void (CatalogueList::*slot)());
    int rowOf(const QString& key) const;
    void addEntry(const sql::Result& rows, int row);
    void showMenu(const QPoint& place);
    void showFiltered(const QString& text);
    void finish();
    void runRecord(RecordDialog& dialog);

    Catalogue catalogue_;
    Statement statement_;
    QAbstractItemView* view_;
};

} // namespace formkit
