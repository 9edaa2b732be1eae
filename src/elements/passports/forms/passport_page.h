#pragma once
// One page of a passport.

#include "elements/passports/passport_record.h"

#include <QWidget>

class PassportPage : public QWidget {
    Q_OBJECT

public:
    explicit PassportPage(PassportRecord& record, QWidget* parent = nullptr) : QWidget(parent), record_(record) { }

    /// The record was read, or read anew. Also called for a record without a row.
    virtual void showRecord() = 0;
    /// The record's measures became others on another page.
    virtual void showMeasures() { }
    /// What keeps the page from being stored, as the text of a warning.
    virtual QString fault() const { return {}; }
    /// Writes what the page edits. False when the server refuses.
    virtual bool store() { return true; }
    /// Everything was written.
    virtual void tellStored() { }

signals:
    /// The record's measures became others on this page.
    void measuresChanged();

protected:
    PassportRecord& record() { return record_; }
    const PassportRecord& record() const { return record_; }

private:
    PassportRecord& record_;
};
