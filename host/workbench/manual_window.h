// The manual that is delivered with the program: its chapters beside the page that
// is read, with a look-up of words.
#pragma once

#include <QTextBrowser>
#include <QWidget>

class QLineEdit;
class QListWidget;

// The first page of the delivered manual: where the package lays it, or in the
// sources that the program was built from. Empty when there is none.
QString manualPage(const QString& programFolder);

// A page whose pictures are never wider than it is.
class ManualPage : public QTextBrowser {
    Q_OBJECT
public:
    using QTextBrowser::QTextBrowser;

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};

class ManualWindow : public QWidget {
    Q_OBJECT
public:
    // `page` as manualPage() gives it: its links are the chapters.
    explicit ManualWindow(const QString& page, QWidget* parent = nullptr);

private:
    void fillChapters(const QString& page);
    void showChapterOf(const QUrl& page);
    void findNext();

    QListWidget* chapters_;
    ManualPage* page_;
    QLineEdit* wanted_;
};
