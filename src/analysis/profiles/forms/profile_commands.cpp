#include "analysis/profiles/forms/profile_commands.h"

#include "analysis/maps/forms/iso_contours_cmd_dialog.h"
#include "analysis/profiles/epure.h"
#include "analysis/profiles/forms/create_profile_form.h"
#include "analysis/profiles/forms/deformation_lines_form.h"
#include "analysis/profiles/forms/temperature_profile_form.h"
#include "base/placeholders.h"
#include "formkit/modal.h"
#include "hostkit/console.h"

#include <nrx/editor.h>

using namespace formkit;

namespace {

QString linePrompt() { return QStringLiteral("Укажите линию профиля (ESC список в позиции)"); }

// In world coordinates; nothing, and told, without a point.
std::optional<NcGePoint3d> askForPlace()
{
    NcGePoint3d answer;
    if (ncedGetPoint(nullptr, QStringLiteral("Точка вставки профиля:"), answer) != kPromptNormal) {
        say(QStringLiteral("Необходимо указать точку вставки профиля"));
        return std::nullopt;
    }
    NcGePoint3d place = answer;
    ncdbUcs2Wcs(answer, place);
    return place;
}

// The isotherms on the layers that the user chooses. False when the user left.
bool drawIsotherms(const TemperatureSection& section, int mapType, QWidget* host, NcDbObjectIdArray& drawn)
{
    if (!section.spansSurface()) {
        say(QStringLiteral("\nИзотермы не построены: нужны замеры не менее чем двух скважин на разном расстоянии.\n"));
        return true;
    }
    IsoContoursCmdDialog dialog(host);
    dialog.SetPoints(section.points());
    QStringList names;
    for (const SectionWell& well : section.wells()) {
        for (size_t reading = 0; reading < well.log.size(); ++reading)
            names << well.name;
    }
    dialog.SetPointNames(names);
    dialog.SetBounds(section.outline(), true);
    dialog.HidePointSelection(true);
    dialog.HideBoundSelection(true);
    dialog.SetMapType(mapType);
    dialog.setSubject({QStringLiteral("Температуры по профилю, °С"), {}, {}});
    if (dialog.exec() != QDialog::Accepted)
        return false;
    if (!dialog.build())
        say(QStringLiteral("\nИзотермы не построены.\n"));
    for (const NcDbObjectIdArray* ids : {&dialog.hatchIds(), &dialog.isolineIds(), &dialog.isocontourIds()})
        drawn.insert(drawn.end(), ids->begin(), ids->end());
    return true;
}

void drawSection(const SectionForm& form, QWidget* host)
{
    const std::vector<SectionWell> wells = form.usedWells();
    const std::optional<NcGePoint3d> place = askForPlace();
    if (!place)
        return;
    SectionView view = form.view();
    view.origX = place->x;
    view.origY = place->y;
    const TemperatureSection section(wells, form.lineLength(), view);
    NcDbObjectIdArray isotherms;
    if (!drawIsotherms(section, form.mapType(), host, isotherms))
        return;
    const SectionFrame frame = sectionFrame(section, form.titles());
    drawSketch(frame.sketch, QStringLiteral("TERVA_PROF_"), isotherms);
    if (frame.leftOut > 0)
        say(fill("\nПодписей, которым не хватило места: %1. Выберите масштаб крупнее, чтобы увидеть их.\n",
                 frame.leftOut));
}

template <class Form>
void runSection()
{
    OverHost host;
    Form form(host);
    ProfileLine line;
    switch (askForLine(linePrompt(), line)) {
    case LinePick::NotALine: return;
    case LinePick::Picked: form.setLine(line); break;
    case LinePick::Left: form.offerStored(); break;
    }
    if (form.exec() == QDialog::Accepted)
        drawSection(form, host);
}

void createProfile(const ProfileFamily& family)
{
    ProfileLine line;
    if (askForLine(QStringLiteral("Укажите линию профиля"), line) == LinePick::Picked)
        runModal<CreateProfileForm>(family, line);
}

} // namespace

void buildTemperatureProfile() { runSection<TemperatureProfileForm>(); }

void buildTemperatureDiffProfile() { runSection<TemperatureDiffProfileForm>(); }

void buildDeformationLines()
{
    OverHost host;
    DeformationLinesForm form(host);
    ProfileLine line;
    const LinePick picked = askForLine(linePrompt(), line);
    if (picked == LinePick::NotALine)
        return;
    if (picked == LinePick::Picked)
        form.setLine(line);
    if (form.exec() != QDialog::Accepted)
        return;
    const std::optional<NcGePoint3d> place = askForPlace();
    if (!place)
        return;
    const EpureView view{place->x, place->y, form.scale(), form.title()};
    drawSketch(epureSketch(form.usedProfiles(), view, form.limit()), QStringLiteral("TERVA_DEF_"));
}

void addDeformationProfile() { createProfile(deformationProfiles()); }

void addTemperatureProfile() { createProfile(temperatureProfiles()); }
