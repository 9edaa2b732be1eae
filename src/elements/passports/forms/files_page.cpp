#include "elements/passports/forms/files_page.h"

#include "elements/forms/image_uploader.h"
#include "elements/forms/label_clickable.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

namespace {

const QString words = QStringLiteral("Двойной клик \n для загрузки");

} // namespace

FilesPage::FilesPage(PassportRecord& record, QWidget* parent)
    : PassportPage(record, parent),
      labels_{named<QLabelClickable>("Photo", words), named<QLabelClickable>("NDeskChema", words),
              named<QLabelClickable>("Column ScreenShot", words)}
{
    layOut(this).row({
        growing(group("Фотография").column({growing(labelOf(PictureSlot::Photo))})),
        growing(group("Абрис").column({growing(labelOf(PictureSlot::Sketch))})),
        growing(group(record.family().thirdPicture).column({growing(labelOf(PictureSlot::Column))})),
    });
    for (const PictureSlot slot : pictureSlots)
        connect(labelOf(slot), &QLabelClickable::doubleClicked, this, [this, slot] { choose(slot); });
}

void FilesPage::showRecord()
{
    isRead_ = false;
    if (isVisible())
        readPictures();
}

void FilesPage::showEvent(QShowEvent* event)
{
    PassportPage::showEvent(event);
    readPictures();
}

void FilesPage::readPictures()
{
    if (isRead_)
        return;
    isRead_ = true;
    for (const PictureSlot slot : pictureSlots)
        labelOf(slot)->setPhoto(record().row.isRead() ? loadPicture(record().family().tables(), record().id(), slot)
                                                      : QPixmap());
}

void FilesPage::choose(PictureSlot slot)
{
    if (!record().row.isRead())
        return;
    const std::optional<QPixmap> chosen = askForPicture(labelOf(slot));
    if (!chosen)
        return;
    labelOf(slot)->setPhoto(*chosen);
    storePicture(record().family().tables(), record().id(), slot, *chosen);
}
