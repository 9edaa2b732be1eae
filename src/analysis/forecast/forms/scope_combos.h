// Four boxes that narrow what is taken: project, object, subobject, position,
// each with the entry "Все".
#pragma once

#include "analysis/forecast/predictions.h"

#include <QComboBox>
#include <QObject>
#include <array>

class ScopeCombos : public QObject {
    Q_OBJECT

public:
    /// Starts with the session's current position.
    explicit ScopeCombos(QObject* parent = nullptr);

    enum Level { Project, Object, Subobject, Position };
    QComboBox* combo(Level level) const { return combos_[level]; }

    ForecastScope scope() const;
    /// The narrowest name that is chosen; "Все" when none is.
    QString text() const;

signals:
    void changed();

private:
    void fillFrom(int level);

    std::array<QComboBox*, 4> combos_;
};
