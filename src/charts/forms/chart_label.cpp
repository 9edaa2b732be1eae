#include "charts/forms/chart_label.h"

#include "base/file_name.h"
#include "base/placeholders.h"
#include "files/written_file.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "session/project_session.h"

#include <QBuffer>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QGuiApplication>
#include <QMenu>

namespace {

// Wide enough for a page of a report, twice as sharp.
const QSize kFileSize(900, 640);
constexpr double kFileRatio = 2.0;

} // namespace

ChartLabel::ChartLabel(const QString& words, QWidget* parent) : QLabel(parent), words_(words)
{
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::StyledPanel);
    // The picture follows the label, never the label the picture.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setMinimumSize(280, 200);
    setText(words_);
}

void ChartLabel::setRender(Render render)
{
    render_ = std::move(render);
    refresh();
}

void ChartLabel::refresh()
{
    if (isVisible())
        renderNow();
}

void ChartLabel::renderNow()
{
    const QPixmap picture = render_ ? render_(contentsRect().size(), devicePixelRatioF()) : QPixmap();
    if (picture.isNull())
        setText(words_);
    else
        setPixmap(picture);
}

QPixmap ChartLabel::pictureForFile() const { return render_ ? render_(kFileSize, kFileRatio) : QPixmap(); }

void ChartLabel::savePicture()
{
    const QPixmap picture = pictureForFile();
    if (picture.isNull())
        return formkit::warn(this, words_);
    const QString folder = session().exportPath.isEmpty() ? session().workDir : session().exportPath;
    const QString path = formkit::askFileToSave(this,
                                                {QStringLiteral("Сохранить рисунок"), QStringLiteral("PNG (*.png)"),
                                                 QDir(folder).filePath(plainName(fileName_) + QStringLiteral(".png"))});
    if (path.isEmpty())
        return;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    QString problem;
    if (!saveFile(path, png, &problem))
        formkit::warn(this, fill("Не удалось записать файл %1: %2", path, problem));
}

void ChartLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    refresh();
}

void ChartLabel::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    renderNow();
}

void ChartLabel::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.addAction(QStringLiteral("Сохранить рисунок"), this, &ChartLabel::savePicture);
    menu.addAction(QStringLiteral("Копировать рисунок"), this, [this] {
        const QPixmap picture = pictureForFile();
        if (!picture.isNull())
            QGuiApplication::clipboard()->setPixmap(picture);
    });
    menu.exec(event->globalPos());
}
