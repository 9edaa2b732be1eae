// The view of an import's table. It may hold a hundred thousand rows of which
// few differ in what they need for room: heights are measured once a look.
#pragma once

#include <QHash>
#include <QTableView>

class MeasuresView : public QTableView {
    Q_OBJECT

public:
    explicit MeasuresView(QWidget* parent = nullptr);

    /// Gives every row the height of its texts.
    void fitRows();

protected:
    int sizeHintForRow(int row) const override;

private:
    mutable QHash<QString, int> heights_;
};
