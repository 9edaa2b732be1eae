#pragma once
// The catalogue of thermostabiliser types (TERVA_TSG_CATALOG): the entries on
// the left, the chosen one on the right.

#include "formkit/catalogue_list.h"

class QPushButton;
class TSGEntryPane;

class TSGCatalogList : public formkit::CatalogueList {
    Q_OBJECT

public:
    explicit TSGCatalogList(QWidget* parent = nullptr);

signals:
    void chosen(const QString& key);

protected:
    void dress(int row, const QString& key) override;
};

class TSGCatalogForm : public QDialog {
    Q_OBJECT

public:
    explicit TSGCatalogForm(QWidget* parent = nullptr);

    /// Asks before changes are lost.
    void reject() override;

private:
    void chooseEntry(const QString& key);
    void returnToShown();
    void showEntry(const QString& key);
    void createEntry();
    void copyEntry();
    void deleteEntry();
    void saveEntry();
    void insertEntry(const QStringList& values);
    void refreshAt(const QString& key);
    bool isNameTaken(const QString& name, const QString& key);
    bool mayLoseChanges();
    void tellRefusal();

    TSGCatalogList* list_;
    TSGEntryPane* entry_;
    QPushButton* save_;
    QString shown_; ///< key of the entry on the right; empty for none
    bool refreshing_ = false;
};
