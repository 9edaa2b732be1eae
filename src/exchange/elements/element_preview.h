// How records look before they are imported.
#pragma once

#include "exchange/elements/attribute_update.h"

struct PreviewCell {
    enum Tone { Plain, Good, Bad };
    QString text;
    Tone tone = Plain;
};

const QStringList& importTitles();
/// `ids` are those of the known names.
QVector<PreviewCell> importPreview(const ElementRecord& record, const QHash<QString, int>& ids);

const QStringList& updateTitles();
/// What differs from the row is shown with the row's own value, the new one first.
QVector<PreviewCell> updatePreview(const ElementRecord& record, const BaseElements& base);
