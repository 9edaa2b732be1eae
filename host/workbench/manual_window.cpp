#include "manual_window.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QSplitter>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int kMargin = 24, kChaptersWidth = 290;
constexpr int kUp = 4; // folders over the program's own in which the manual may lie

} // namespace

QString manualPage(const QString& programFolder)
{
    QDir folder(programFolder);
    for (int up = 0; up <= kUp; ++up, folder.cdUp())
        for (const char* below : {"share/doc/terva/guide/README.md", "docs/guide/README.md"})
            if (QFileInfo(folder.filePath(QString::fromLatin1(below))).isFile())
                return QDir::cleanPath(folder.filePath(QString::fromLatin1(below)));
    return {};
}

QVariant ManualPage::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource)
        return QTextBrowser::loadResource(type, name);
    const QImage picture(source().resolved(name).toLocalFile());
    const int room = viewport()->width() - kMargin;
    return picture.width() > room ? picture.scaledToWidth(qMax(1, room), Qt::SmoothTransformation) : picture;
}

ManualWindow::ManualWindow(const QString& page, QWidget* parent)
    : QWidget(parent, Qt::Window), chapters_(new QListWidget), page_(new ManualPage), wanted_(new QLineEdit)
{
    setObjectName(QStringLiteral("manual"));
    setWindowTitle(QStringLiteral("Руководство"));
    chapters_->setObjectName(QStringLiteral("manualChapters"));
    chapters_->setWordWrap(true);
    page_->setObjectName(QStringLiteral("manualPage"));
    page_->setOpenExternalLinks(true);
    wanted_->setObjectName(QStringLiteral("manualWord"));
    wanted_->setPlaceholderText(QStringLiteral("Найти в главе"));
    wanted_->setClearButtonEnabled(true);

    auto* row = new QHBoxLayout;
    const auto addStep = [&](QStyle::StandardPixmap icon, const QString& tip, void (QTextBrowser::*step)(),
                             void (QTextBrowser::*possible)(bool)) {
        auto* button = new QToolButton;
        button->setIcon(style()->standardIcon(icon));
        button->setToolTip(tip);
        button->setAutoRaise(true);
        button->setEnabled(false);
        connect(button, &QToolButton::clicked, page_, step);
        connect(page_, possible, button, &QToolButton::setEnabled);
        row->addWidget(button);
    };
    addStep(QStyle::SP_ArrowBack, QStringLiteral("Назад"), &QTextBrowser::backward, &QTextBrowser::backwardAvailable);
    addStep(QStyle::SP_ArrowForward, QStringLiteral("Вперёд"), &QTextBrowser::forward, &QTextBrowser::forwardAvailable);
    row->addWidget(wanted_, 1);

    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    auto* sides = new QSplitter;
    sides->addWidget(chapters_);
    sides->addWidget(page_);
    sides->setStretchFactor(1, 1);
    sides->setSizes({kChaptersWidth, 3 * kChaptersWidth});
    column->addWidget(sides, 1);
    resize(1080, 680);

    fillChapters(page);
    connect(chapters_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* chapter) {
        if (chapter && page_->source() != chapter->data(Qt::UserRole).toUrl())
            page_->setSource(chapter->data(Qt::UserRole).toUrl());
    });
    connect(page_, &QTextBrowser::sourceChanged, this, &ManualWindow::showChapterOf);
    connect(wanted_, &QLineEdit::returnPressed, this, &ManualWindow::findNext);
    auto* close = new QAction(this);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, wanted_, [this] { wanted_->setFocus(); });
    addAction(find);
    chapters_->setCurrentRow(0);
}

// The first page itself, then what it links to, in its order.
void ManualWindow::fillChapters(const QString& page)
{
    const auto add = [this](const QString& title, const QString& path) {
        auto* item = new QListWidgetItem(title, chapters_);
        item->setData(Qt::UserRole, QUrl::fromLocalFile(path));
    };
    add(QStringLiteral("Содержание"), page);
    QFile file(page);
    if (!file.open(QIODevice::ReadOnly))
        return;
    static const QRegularExpression link(QStringLiteral("\\[([^\\]]+)\\]\\(([^)#:]+\\.md)\\)"));
    auto found = link.globalMatch(QString::fromUtf8(file.readAll()));
    while (found.hasNext()) {
        const QRegularExpressionMatch chapter = found.next();
        const QString path = QFileInfo(page).dir().filePath(chapter.captured(2));
        if (QFileInfo(path).isFile())
            add(chapter.captured(1), path);
    }
}

void ManualWindow::showChapterOf(const QUrl& page)
{
    for (int row = 0; row < chapters_->count(); ++row)
        if (chapters_->item(row)->data(Qt::UserRole).toUrl() == page.adjusted(QUrl::RemoveFragment))
            chapters_->setCurrentRow(row);
}

// From the top again when the end is met.
void ManualWindow::findNext()
{
    if (wanted_->text().isEmpty() || page_->find(wanted_->text()))
        return;
    page_->moveCursor(QTextCursor::Start);
    page_->find(wanted_->text());
}
