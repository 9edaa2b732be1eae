#include "form_places.h"

#include <drawing/application.h>

#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>

namespace {

const QString kPlaces = QStringLiteral("forms/");
// What a window manager puts around a form that was not shown yet.
constexpr int kFrame = 8, kTitle = 32;

QRect roomFor(const QDialog& form)
{
    const QWidget* window = ndsw_ncadMainWnd();
    const QScreen* screen = window ? window->screen() : form.screen();
    return screen->availableGeometry().adjusted(kFrame, kTitle, -kFrame, -kFrame);
}

// Boxes and the toolkit's own forms know their size themselves.
bool keepsItsPlace(const QDialog& form)
{
    return !form.objectName().isEmpty() && !qobject_cast<const QMessageBox*>(&form)
        && !qobject_cast<const QFileDialog*>(&form);
}

QLayoutItem* endButtons(const QLayout& layout)
{
    const auto* column = qobject_cast<const QBoxLayout*>(&layout);
    if (!column || column->direction() != QBoxLayout::TopToBottom || !column->count())
        return nullptr;
    QLayoutItem* last = column->itemAt(column->count() - 1);
    if (qobject_cast<QDialogButtonBox*>(last->widget()))
        return last;
    for (int i = 0; last->layout() && i < last->layout()->count(); ++i)
        if (qobject_cast<QDialogButtonBox*>(last->layout()->itemAt(i)->widget()))
            return last;
    return nullptr;
}

} // namespace

QRect placeWithin(QRect place, const QRect& room)
{
    place.setSize(place.size().boundedTo(room.size()));
    place.moveLeft(qBound(room.left(), place.left(), room.right() - place.width() + 1));
    place.moveTop(qBound(room.top(), place.top(), room.bottom() - place.height() + 1));
    return place;
}

void makeScrollable(QWidget& form)
{
    QLayout* before = form.layout();
    if (!before)
        return;
    QLayoutItem* ends = endButtons(*before);
    if (ends)
        before->removeItem(ends);
    auto* content = new QWidget;
    content->setLayout(before); // which takes it from the form
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    form.setMinimumSize(0, 0);
    auto* column = new QVBoxLayout(&form);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(area, 1);
    if (!ends)
        return;
    auto* row = new QHBoxLayout;
    row->setContentsMargins(before->contentsMargins());
    column->addLayout(row);
    if (QWidget* box = ends->widget()) {
        row->addWidget(box);
        delete ends;
    } else {
        ends->layout()->setParent(nullptr);
        row->addLayout(ends->layout());
    }
}

FormPlaces::FormPlaces(QSettings& settings, QObject* parent) : QObject(parent), settings_(settings)
{
    qApp->installEventFilter(this);
}

bool FormPlaces::eventFilter(QObject* watched, QEvent* event)
{
    if ((event->type() == QEvent::Show || event->type() == QEvent::Hide) && !event->spontaneous())
        if (auto* form = qobject_cast<QDialog*>(watched); form && form->isWindow())
            event->type() == QEvent::Show ? place(*form) : remember(*form);
    return QObject::eventFilter(watched, event);
}

void FormPlaces::place(QDialog& form) const
{
    const QRect room = roomFor(form);
    const QSize least = form.minimumSizeHint().expandedTo(form.minimumSize());
    const bool scrolls = least.width() > room.width() || least.height() > room.height();
    const QRect kept = keepsItsPlace(form) ? settings_.value(kPlaces + form.objectName()).toRect() : QRect();
    const QRect opens(form.pos(),
                      form.testAttribute(Qt::WA_Resized) ? form.size() : form.size().expandedTo(form.sizeHint()));
    if (scrolls)
        makeScrollable(form);
    if (kept.isValid())
        form.setGeometry(placeWithin(kept, room));
    else if (scrolls || opens.width() > room.width() || opens.height() > room.height())
        form.setGeometry(placeWithin(QRect(room.topLeft(), opens.size()), room));
}

void FormPlaces::remember(const QDialog& form) const
{
    if (keepsItsPlace(form) && !form.isMaximized() && !form.isMinimized())
        settings_.setValue(kPlaces + form.objectName(), form.geometry());
}
