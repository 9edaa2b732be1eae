#pragma once
// The frame of a form over elements and cycles: family, place, two cycles, the
// table. An heir reads the rows and does what its buttons say.

#include "elements/list/cycle_rows.h"
#include "formkit/choices.h"
#include "formkit/layout.h"

#include <QDialog>

class CycleTableView;
class HierarchyCombo;

class ElementsByCycleForm : public QDialog {
    Q_OBJECT

protected:
    struct Words {
        const char* name;
        const char* title;
        const char* view;    ///< object name of the table
        const char* target;  ///< caption of the cycle that is worked on
        const char* reading; ///< shown while rows are read
        QStringList columns; ///< before those of the cycles
    };
    /// The id of a family's choice is its key.
    ElementsByCycleForm(const Words& words, const formkit::Choices& families, QWidget* parent);

    /// Puts the buttons below the table, "Закрыть" behind them, and reads the table.
    void finish(std::initializer_list<formkit::Item> buttons);

    virtual std::optional<CycleRows> readRows(const HierarchyPlace& place, const ElementProgress& progress) = 0;
    /// A cell that holds something was double-clicked.
    virtual void open(int elementId, int id) = 0;

    /// Reads the rows anew; where they cannot be read the table stays as it was.
    void reload(CycleTable::Elements elements = CycleTable::Elements::Same);
    /// Runs the work on many elements with a box that shows how far it has come.
    void work(const QString& text, const std::function<void(const ElementProgress&)>& steps);

    QComboBox* families() const { return families_; }
    int source() const { return formkit::chosenId(source_); }
    int target() const { return formkit::chosenId(target_); }
    /// The number of the cycle, as questions name it.
    static QString numberOf(int cycleId);
    CycleRows markedRows() const;
    CycleTable& table() { return table_; }
    /// A button that needs two different cycles.
    QWidget* copyButton(QWidget* button);

private:
    void connectChoices();

    Words words_;
    QComboBox* families_;
    HierarchyCombo* places_;
    QComboBox* source_;
    QComboBox* target_;
    QWidget* copy_ = nullptr;
    CycleTable table_;
    CycleTableView* view_;
};
