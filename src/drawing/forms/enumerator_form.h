// How the elements of one family are numbered.
#pragma once

#include "formkit/record_dialog.h"
#include "session/enumerator.h"

class EnumeratorForm : public formkit::FieldsDialog {
    Q_OBJECT

public:
    /// Accepting writes to the record; it must outlive the form.
    explicit EnumeratorForm(Enumerator& enumerator, QWidget* parent = nullptr);

protected:
    bool store() override;

private:
    Enumerator entered() const;
    void showPreview();

    Enumerator& enumerator_;
};
