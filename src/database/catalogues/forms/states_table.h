#pragma once
// The states of elements with their colours; the checked ones are shown.

#include "formkit/catalogue_list.h"

#include <QSet>

class StatesTable : public formkit::CatalogueList {
    Q_OBJECT

public:
    explicit StatesTable(QWidget* parent = nullptr);

    /// What the user has ticked stays.
    void refresh() override;
    /// Ticks what the session's filter holds.
    void showFilter();
    /// The ticked states: state_id to note.
    QMap<QString, QString> checkedStates() const;

protected:
    void dress(int row, const QString& key) override;
    void activate(const QModelIndex& place) override;
    bool mayDelete(const QString& key) override;

private:
    void paint(int row, int colorIndex);

    QSet<QString> ticked_;
};
