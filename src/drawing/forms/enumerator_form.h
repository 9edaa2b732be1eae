// How the elements of one family are numbered.
#pragma once

#include "session/enumerator.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QSpinBox;

class EnumeratorForm : public QDialog {
    Q_OBJECT

public:
    /// Accepting writes to the record; it must outlive the form.
    explicit EnumeratorForm(Enumerator& enumerator, QWidget* parent = nullptr);

    void accept() override;

private:
    Enumerator entered() const;
    void showPreview();

    Enumerator& enumerator_;
    QLineEdit* prefix_;
    QLineEdit* counter_;
    QSpinBox* trailing_;
    QLabel* preview_;
};
