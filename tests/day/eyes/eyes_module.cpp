// A module that looks: it tells a test outside of the program where widgets, menu
// items and points of the drawing stand on the screen, and what is shown there. It
// does nothing by itself: hands are the keys and the mouse of the screen.
//
// A question is a file `ask` in the folder TERVA_EYES, the answer a file `answer`.
#include <drawing/application.h>
#include <drawing/grips.h>
#include <drawing/host_access.h>
#include <render/active_view.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTimer>

namespace {

QString plain(QString text) { return text.remove(QLatin1Char('&')); }

QString textOf(const QRect& rect)
{
    return QStringLiteral("%1 %2 %3 %4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

QString placeOf(const QWidget& widget, const QRect& rect)
{
    const double dots = widget.devicePixelRatioF(); // hands know nothing of the screen's scale
    const QPoint at = widget.mapToGlobal(rect.topLeft());
    return textOf(QRectF(at.x() * dots, at.y() * dots, rect.width() * dots, rect.height() * dots).toAlignedRect());
}

// What the user has before him: the form in front, or the window.
QWidget* front()
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : ndsw_ncadMainWnd();
}

QWidget* shown(const QString& name)
{
    for (QWidget* widget : front()->findChildren<QWidget*>(name))
        if (widget->isVisible() && !widget->visibleRegion().isEmpty())
            return widget;
    return nullptr;
}

QWidget* view()
{
    for (QWidget* widget : ndsw_ncadMainWnd()->findChildren<QWidget*>())
        if (widget->inherits("DrawingView") && widget->isVisible())
            return widget;
    return nullptr;
}

Document* document() { return static_cast<Document*>(ncDocManagerPtr()->curDocument()); }

QString placeOf(const NcGePoint3d& world)
{
    const QWidget* widget = view();
    if (!widget || !document())
        return {};
    const ActiveView seen = activeView(*document()->database());
    const double scale = widget->height() / seen.height;
    const QPoint at(qRound(widget->width() / 2.0 + (world.x - seen.center.x()) * scale),
                    qRound(widget->height() / 2.0 - (world.y - seen.center.y()) * scale));
    return widget->rect().contains(at) ? placeOf(*widget, {at, QSize(1, 1)}) : QString();
}

QString placeOfAction(const QWidget& bar, const QString& name)
{
    for (QAction* action : bar.actions()) {
        if (plain(action->text()) != name && action->objectName() != name)
            continue;
        const auto* menu = qobject_cast<const QMenu*>(&bar);
        const auto* menuBar = qobject_cast<const QMenuBar*>(&bar);
        const QRect rect = menu ? menu->actionGeometry(action) : menuBar->actionGeometry(action);
        return placeOf(bar, rect) + (action->isEnabled() ? QString() : QStringLiteral(" grey ") + action->toolTip());
    }
    return {};
}

QModelIndex cellOf(const QAbstractItemModel& model, const QModelIndex& parent, const QString& text)
{
    for (int row = 0; row < model.rowCount(parent); ++row)
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex index = model.index(row, column, parent);
            if (index.data().toString().startsWith(text))
                return index;
            const QModelIndex below = column == 0 ? cellOf(model, index, text) : QModelIndex();
            if (below.isValid())
                return below;
        }
    return {};
}

QString placeOfCell(const QString& name, const QString& text)
{
    auto* items = qobject_cast<QAbstractItemView*>(shown(name));
    const QModelIndex index = items ? cellOf(*items->model(), {}, text) : QModelIndex();
    const QRect rect = index.isValid() ? items->visualRect(index) : QRect();
    return rect.isEmpty() ? QString() : placeOf(*items->viewport(), rect);
}

QString contentOf(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    const auto* edit = qobject_cast<const QLineEdit*>(widget);
    const auto* box = qobject_cast<const QComboBox*>(widget);
    const auto* spin = qobject_cast<const QAbstractSpinBox*>(widget);
    const auto* log = qobject_cast<const QPlainTextEdit*>(widget);
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    return label ? label->text()
        : edit   ? edit->text()
        : box    ? box->currentText()
        : spin   ? spin->text()
        : log    ? log->toPlainText()
        : button ? QString::number(button->isChecked())
                 : QString();
}

// Labels of a box that has no names.
QString boxText()
{
    QStringList texts;
    for (const QLabel* label : front()->findChildren<QLabel*>())
        if (label->isVisible() && !label->text().isEmpty())
            texts << label->text();
    return texts.join(QLatin1Char('\n'));
}

QString placeOfButton(const QString& caption)
{
    for (const QAbstractButton* button : front()->findChildren<QAbstractButton*>())
        if (button->isVisible() && plain(button->text()) == caption)
            return placeOf(*button, button->rect());
    return {};
}

QString placeOfGrip(const QString& parameter)
{
    if (!document() || document()->pickfirst().empty())
        return {};
    const auto* entity = HostAccess::objectAs<NcDbEntity>(document()->pickfirst().front());
    for (const Grip& grip : gripsOf(*entity))
        if (grip.parameter == parameter)
            return placeOf(grip.at);
    return {};
}

QString picked()
{
    QStringList classes;
    if (document())
        for (const NcDbObjectId& id : document()->pickfirst())
            classes << QString::fromLatin1(HostAccess::object(id)->isA()->name());
    return classes.join(QLatin1Char(' '));
}

QString visibleDock(const QString& title)
{
    for (const QDockWidget* dock : ndsw_ncadMainWnd()->findChildren<QDockWidget*>())
        if (dock->windowTitle() == title)
            return QString::number(dock->isVisible() && !dock->visibleRegion().isEmpty());
    return QStringLiteral("0");
}

QString answer(const QString& question)
{
    const QString verb = question.section(QLatin1Char(' '), 0, 0), rest = question.section(QLatin1Char(' '), 1);
    QWidget* popup = QApplication::activePopupWidget();
    if (verb == QLatin1String("title"))
        return front()->windowTitle();
    if (verb == QLatin1String("box"))
        return boxText();
    if (verb == QLatin1String("widget")) {
        const QWidget* widget = shown(rest);
        if (!widget)
            return {};
        QRect rect = widget->rect();
        if (widget->inherits("QCheckBox") || widget->inherits("QRadioButton"))
            rect.setWidth(rect.height()); // its mark: beside its words a click does nothing
        return placeOf(*widget, rect);
    }
    if (verb == QLatin1String("button"))
        return placeOfButton(rest);
    if (verb == QLatin1String("content"))
        return contentOf(shown(rest));
    if (verb == QLatin1String("menu"))
        return placeOfAction(*static_cast<QMainWindow*>(ndsw_ncadMainWnd())->menuBar(), rest);
    if (verb == QLatin1String("item"))
        return qobject_cast<QMenu*>(popup) ? placeOfAction(*popup, rest) : QString();
    if (verb == QLatin1String("cell"))
        return placeOfCell(rest.section(QLatin1Char(' '), 0, 0), rest.section(QLatin1Char(' '), 1));
    if (verb == QLatin1String("world"))
        return placeOf(NcGePoint3d(rest.section(QLatin1Char(' '), 0, 0).toDouble(),
                                   rest.section(QLatin1Char(' '), 1, 1).toDouble(), 0.0));
    if (verb == QLatin1String("grip"))
        return placeOfGrip(rest);
    if (verb == QLatin1String("picked"))
        return picked();
    if (verb == QLatin1String("dock"))
        return visibleDock(rest);
    if (verb == QLatin1String("screen"))
        return textOf(ndsw_ncadMainWnd()->frameGeometry());
    return QStringLiteral("?");
}

void look()
{
    static const QDir folder(qEnvironmentVariable("TERVA_EYES"));
    QFile ask(folder.filePath(QStringLiteral("ask")));
    if (!ndsw_ncadMainWnd() || !ask.open(QIODevice::ReadOnly))
        return;
    const QString question = QString::fromUtf8(ask.readAll());
    ask.remove();
    QFile told(folder.filePath(QStringLiteral("answer.part")));
    if (told.open(QIODevice::WriteOnly)) {
        told.write(answer(question).toUtf8());
        told.close();
        told.rename(folder.filePath(QStringLiteral("answer")));
    }
}

QTimer* timer = nullptr;

} // namespace

extern "C" Q_DECL_EXPORT int ncrxEntryPoint(int message, void* packet)
{
    if (message == kInitAppMsg) {
        GetDynamicLinker()->unlockApplication(packet);
        timer = new QTimer;
        QObject::connect(timer, &QTimer::timeout, look);
        timer->start(10);
    } else if (message == kUnloadAppMsg) {
        delete timer;
    }
    return 0;
}
