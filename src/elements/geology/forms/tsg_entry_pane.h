#pragma once
// One type of thermostabiliser, as the catalogue shows and edits it.

#include "formkit/field_pane.h"

class HeatExchangeTable;
class QLabel;

class TSGEntryPane : public QWidget {
    Q_OBJECT

public:
    explicit TSGEntryPane(QWidget* parent = nullptr);

    /// The values in the order of the catalogue's statements: name and note,
    /// condenser, evaporator, exchanger, the pairs of the heat exchange.
    void showRow(const QStringList& shown);
    QStringList values() const;
    QString name() const;

    /// What is wrong with the entry; empty when nothing is.
    QString fault() const;
    /// Whether the user has changed anything since the row was shown.
    bool isDirty() const;

private:
    QLabel* title_;
    std::vector<formkit::FieldPane*> parts_;
    HeatExchangeTable* exchange_;
    bool exchangeDirty_ = false;
};
