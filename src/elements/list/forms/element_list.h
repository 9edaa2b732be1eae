#pragma once
// The table of all elements of the project, on its palette page.

#include "elements/list/element_changes.h"

#include <QWidget>

class ElementListProxyFilterModel;
class HierarchyCombo;
class QComboBox;
class QHelpEvent;
class QLabel;
class QLayout;
class QLineEdit;
class QTableView;

class ElementList : public QWidget {
    Q_OBJECT

public:
    explicit ElementList(QWidget* parent = nullptr);

    /// Reads what may be chosen and the elements anew; what was chosen stays.
    void refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLayout* controls();
    void prepareView();
    void fillChoices();
    void loadTable();
    void filterBy(const QString& text);
    void countSelected();

    ListedElement elementIn(const QModelIndex& shown) const;
    /// The elements of all selected rows, in the order in which they are seen.
    ListedElements selected() const;

    void showMenu(const QPoint& place);
    void showHeaderMenu(const QPoint& place);
    void chooseColumns();
    void changeTypes();
    void changeStates();
    void movePositions();
    void copySelected() const;
    void showCutText(const QHelpEvent& event) const;
    void openCurrent();
    void deleteSelected();

    QComboBox* families_ = nullptr;
    HierarchyCombo* places_ = nullptr;
    QComboBox* cycles_ = nullptr;
    QLineEdit* filter_ = nullptr;
    QLabel* status_ = nullptr;
    QTableView* view_ = nullptr;
    ElementListModel model_;
    ElementListProxyFilterModel* order_ = nullptr;
};
