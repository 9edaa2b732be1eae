// The view of an import's table. It may hold a million rows: only those in sight
// are given the height of their texts, and few differ in what they need, so
// heights are measured once a look.
#pragma once

#include <QHash>
#include <QTableView>
#include <vector>

class MeasuresView : public QTableView {
    Q_OBJECT

public:
    explicit MeasuresView(QWidget* parent = nullptr);

    /// Gives every row the height of its texts once it is seen.
    void fitRows();

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void reset() override;

protected:
    int sizeHintForRow(int row) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

private:
    int page() const;
    void fitShown();
    void fit(int first, int count);

    mutable QHash<QString, int> heights_;
    std::vector<bool> fitted_;
};
