#pragma once
// Asks what many elements become: a type, a state, a position.

#include "formkit/choices.h"

#include <QDialog>

class ElementListChanger : public QDialog {
    Q_OBJECT

public:
    ElementListChanger(const QString& label, const formkit::Choices& choices, QWidget* parent = nullptr);

    QVariant chosen() const;

private:
    QComboBox* selection_;
};

/// Asks which columns are seen; false when the user leaves the question.
bool askColumns(QWidget* parent, const QStringList& titles, QVector<bool>& seen);
