// Which states of elements a map or list takes.
#pragma once

#include <QDialog>
#include <QStringList>

class QListWidget;

class StateFilterForm : public QDialog {
    Q_OBJECT
public:
    // `chosen` are the state_ids checked at start.
    explicit StateFilterForm(const QStringList& chosen, QWidget* parent = nullptr);

    // The checked state_ids, in key order.
    QStringList chosenStates() const;

private:
    void setAll(bool checked);

    QListWidget* states_;
};

// The notes of the states, joined for a label; "Все" when none is chosen.
QString stateNotes(const QStringList& states);
