#pragma once
// The fields of a record as a form: shows a row and gives it back.

#include "formkit/field.h"

#include <QStringList>
#include <QWidget>

class QFormLayout;

namespace formkit {

/// A field as it stands in a form.
struct FieldEditor {
    QWidget* widget = nullptr; ///< named as the field
    QWidget* place = nullptr;  ///< what the layout holds: the widget, or it with its button
    std::function<QString()> text;
    std::function<void(const QString& value)> show;
    std::function<void()> reload; ///< choices anew; may be empty
};

/// Makes the editor; `changed` is called whenever its text becomes another.
FieldEditor makeEditor(const Field& field, const std::function<void()>& changed);

class FieldPane : public QWidget {
    Q_OBJECT

public:
    explicit FieldPane(const FieldList& fields, QWidget* parent = nullptr);

    /// Shows the values in the order of the fields; those missing are cleared.
    void showRow(const QStringList& values);
    /// Shows the columns of a row from this one on; without the row everything is cleared.
    void showRow(const sql::Result& rows, int row, int firstColumn);
    /// What a new record starts with.
    void showStart();
    /// The values in the order of the fields, an empty one as the field says.
    QStringList row() const;

    QString text(const QString& name) const;
    void setText(const QString& name, const QString& value);
    /// Choices are read anew; what was chosen stays where it is still offered.
    void reloadChoices();

    /// The field's widget by its object name, for what is special about it.
    template <class Widget>
    Widget* widget(const QString& name) const
    {
        return findChild<Widget*>(name);
    }
    /// The field with its caption is seen or not.
    void setFieldVisible(const QString& name, bool visible);

    /// Whether the user has changed anything since the row was shown.
    bool isDirty() const { return dirty_; }
    void setClean() { dirty_ = false; }

    /// What is wrong with the first field whose rule is broken; empty when nothing is.
    QString fault() const;

signals:
    /// A field's text became another, by the user or by a program.
    void changed();

private:
    int indexOf(const QString& name) const;
    void noteChange();

    FieldList fields_;
    std::vector<FieldEditor> editors_;
    QFormLayout* layout_;
    bool dirty_ = false;
    bool showing_ = false;
};

} // namespace formkit
