#pragma once
// Dialogs that are lists of fields. What a record needs stands in its row; an
// heir overrides the one step that really differs.

#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/field_pane.h"

#include <QDialog>
#include <optional>

namespace formkit {

/// Fields and the buttons that end them. Enter in a rule's fault: a box tells
/// it, and the dialog stays open.
class FieldsDialog : public QDialog {
    Q_OBJECT

public:
    FieldsDialog(const QString& name, const QString& title, const FieldList& fields,
                 std::initializer_list<EndButton> ends, QWidget* parent = nullptr);

    FieldPane& fields() { return *fields_; }
    const FieldPane& fields() const { return *fields_; }

    /// Checks, stores, ends; stays open when either says no.
    void accept() override;

protected:
    /// What keeps the dialog open, as the text of a box; empty when nothing does.
    virtual QString fault() const { return fields_->fault(); }
    /// The title of that box.
    virtual QString faultTitle() const { return attention(); }
    /// False keeps the dialog open; whoever says so has told why.
    virtual bool store() { return true; }

private:
    FieldPane* fields_;
};

/// A row of a table. The statements hold %1, %2, ... for the values in the
/// order of the fields; in `update` the key follows them.
struct Record {
    QString name; ///< object name of the dialog
    QString title;
    FieldList fields;
    const char* load = nullptr;   ///< of the key %1; gives the key and then the fields, in their order
    const char* insert = nullptr; ///< may return the new key
    const char* update = nullptr;
    /// Where the fields do not stand in the order of `load` behind the key: the
    /// column of each, -1 of one that the statements do not know. The markers
    /// stand for the columns in their order.
    std::vector<int> columns = {};
    EndButton save = accepts(QStringLiteral("SaveBtn"), QStringLiteral("Сохранить"));
    EndButton leave = cancel();
};

class RecordDialog : public FieldsDialog {
    Q_OBJECT

public:
    explicit RecordDialog(const Record& record, QWidget* parent = nullptr);

    /// A record that is not stored yet.
    void showNew();
    /// The stored record; false when there is none of the key.
    bool showStored(const QString& key);

    /// Of the record in the dialog; empty until a new one is stored.
    QString key() const { return key_; }
    bool isNew() const { return key_.isEmpty(); }

protected:
    /// The values of the stored record in the order of the fields; nothing when
    /// there is none of the key.
    virtual std::optional<QStringList> load(const QString& key);
    /// The fields show the record: what is still to be set or hidden.
    virtual void shown() { }
    /// The values for the statements.
    virtual QStringList values() const;
    /// Runs the insert or the update. Its failure is not told and does not keep
    /// the dialog open: the list that shows the records shows the truth.
    bool store() override;
    /// The record in the dialog is stored under the key from now on.
    void setKey(const QString& key) { key_ = key; }

private:
    int columnOf(int field) const;

    Record record_;
    QString key_;
};

} // namespace formkit
