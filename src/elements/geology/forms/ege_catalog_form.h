#pragma once
// The catalogue of engineering-geological elements (TERVA_EGE).

#include "elements/geology/ege_catalogue.h"
#include "formkit/catalogue_list.h"

/// The table of all entries.
class EGECatalogList : public formkit::CatalogueList {
    Q_OBJECT

public:
    explicit EGECatalogList(QWidget* parent = nullptr);

    void refresh() override;

protected:
    void dress(int row, const QString& key) override;
    bool mayDelete(const QString& key) override;

private:
    EgeColumns columns_;
};

class EGECatalogForm : public QDialog {
    Q_OBJECT

public:
    explicit EGECatalogForm(QWidget* parent = nullptr);

private:
    void importFile();
    void exportFile();

    EGECatalogList* list_;
};
