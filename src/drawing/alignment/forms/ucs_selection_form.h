// The coordinate systems that the database keeps: choosing one for the drawing,
// renaming, changing and deleting them.
#pragma once

#include "drawing/alignment/ucs_record.h"

#include <QDialog>
#include <array>

class QLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

class UCSSelectionForm : public QDialog {
    Q_OBJECT

public:
    /// Reads the list.
    explicit UCSSelectionForm(QWidget* parent = nullptr);

    /// The chosen system with the numbers of the fields, saved or not; nothing
    /// while none is chosen or a field holds no number.
    std::optional<UcsRecord> shownUcs() const;

private:
    QLayout* numbers();
    void fillList();
    void showCurrent();
    void enableButtons();
    void saveCurrent();
    void deleteCurrent();
    void showMenu(const QPoint& place);

    QListWidget* list_ = nullptr;
    std::array<QLineEdit*, 9> fields_{};
    QPushButton* save_ = nullptr;
    QPushButton* ok_ = nullptr;
};
