#pragma once
// The contours of a position: drawing them again and deleting them.

#include "formkit/catalogue_list.h"

class ContoursListWidget : public formkit::CatalogueList {
    Q_OBJECT

public:
    explicit ContoursListWidget(QWidget* parent = nullptr);

    /// Shows the contours of this position.
    void setPosition(int positionId);
    /// The ticked ones, in the order of the list.
    QVector<int> checkedContours() const;

protected:
    void dress(int row, const QString& key) override;
    void addToMenu(QMenu& menu) override;
    void activate(const QModelIndex& place) override;
    bool mayDelete(const QString& key) override;

private:
    void drawCurrent();
};

/// The position's contours in a box of their own; waits for its end.
void openPositionContours(int positionId, QWidget* parent);
