#pragma once
// An entry of the catalogue of ground elements. Its fields are the commented
// columns of the table.

#include "elements/geology/ege_catalogue.h"
#include "formkit/record_dialog.h"

class EGEEditDialog : public formkit::RecordDialog {
    Q_OBJECT

public:
    /// Reads the columns.
    explicit EGEEditDialog(QWidget* parent = nullptr);

protected:
    std::optional<QStringList> load(const QString& key) override;
    void shown() override;
    QString fault() const override;
    QString faultTitle() const override;
    bool store() override;

private:
    EGEEditDialog(const EgeColumns& columns, QWidget* parent);
    EgeValues entered() const;
    QString offeredPattern(const QString& stored) const;

    EgeColumns columns_;
};
