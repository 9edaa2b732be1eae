#include "elements/geology/ground_hatches.h"

#include "charts/hatch/hatch_picture.h"
#include "session/project_session.h"

#include <QDir>

QString GroundHatches::deliveredFolder() { return session().moduleDir + QStringLiteral("pats/"); }

QStringList GroundHatches::patternFiles(const QString& folder)
{
    const QString plain = QString(folder).replace(QLatin1Char('\\'), QLatin1Char('/'));
    return QDir(plain).entryList({QStringLiteral("*.pat")}, QDir::Files, QDir::Name);
}

const HatchPattern& GroundHatches::pattern(const QString& name)
{
    const auto known = read_.constFind(name);
    if (known != read_.constEnd())
        return *known;
    HatchPattern found;
    QString problem; // a missing pattern is seen as such
    if (!name.isEmpty())
        readHatchPattern(folder_, name, found, problem);
    return *read_.insert(name, found);
}

QImage GroundHatches::picture(const GroundLook& look, const QSize& size, double ratio)
{
    HatchLook hatch;
    hatch.scale = look.scale;
    hatch.background = QColor(groundColor(look.color));
    if (!hatch.background.isValid())
        hatch.background = Qt::white;
    hatch.ratio = ratio;
    return hatchPicture(pattern(look.pattern), size, hatch);
}
