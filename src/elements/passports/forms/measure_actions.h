#pragma once
// What can be done with a stored measure wherever one is shown.

#include "elements/passports/passport_record.h"

#include <QObject>

class QMenu;
class QWidget;

class MeasureActions : public QObject {
    Q_OBJECT

public:
    /// Belongs to the widget that shows the measures.
    MeasureActions(PassportRecord& record, QWidget* parent);

    /// Each asks, writes, tells on the console and reads the record's measures anew.
    void edit(int measureId);
    void erase(int measureId);
    void addTo(QMenu& menu, int measureId);

signals:
    /// The record's measures became others.
    void changed();

private:
    void readAgain();

    PassportRecord& record_;
    QWidget* parent_;
};
