// The workbench's window, worked by mouse and keyboard.
#pragma once

#include <workbench/drawing_aids.h>
#include <workbench/main_window.h>

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <render/active_view.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

class MainWindowTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        registerHostCommands();
        closeAllDocuments();
        window = std::make_unique<MainWindow>(folder.filePath(QStringLiteral("p.ini")));
        window->show();
        openStartDocument();
        DrawingAids::instance().setSnaps(false); // points stand where a test clicks
        DrawingAids::instance().setPolar(false);
        DrawingAids::instance().setOrtho(false);
        QTest::qWait(10);
    }

    void TearDown() override
    {
        closeAllDocuments();
        window.reset();
    }

    DrawingView* view() { return window->findChild<DrawingView*>(); }
    QLineEdit* edit() { return window->findChild<QLineEdit*>(QStringLiteral("commandEdit")); }
    QString history() { return window->findChild<QPlainTextEdit*>(QStringLiteral("commandHistory"))->toPlainText(); }
    QString prompt() { return window->findChild<QLabel*>(QStringLiteral("commandPrompt"))->text(); }

    // A view of 100 units over the whole height, about the origin.
    void showHundred()
    {
        ActiveView active;
        active.height = 100.0;
        active.width = 100.0 * view()->width() / view()->height();
        setActiveView(*view()->document().database(), active);
    }

    QPoint pixel(double x, double y)
    {
        const double scale = view()->height() / 100.0;
        return QPoint(qRound(view()->width() / 2.0 + x * scale), qRound(view()->height() / 2.0 - y * scale));
    }

    void move(double x, double y, Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent event(QEvent::MouseMove, pixel(x, y), Qt::NoButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view(), &event);
    }

    void click(double x, double y, Qt::KeyboardModifiers keys = {})
    {
        move(x, y);
        QTest::mouseClick(view(), Qt::LeftButton, keys, pixel(x, y));
    }

    // Runs a command whose prompts are answered by these steps, one a prompt.
    void run(const QString& line, std::vector<std::function<void()>> steps)
    {
        int at = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            if (prompt() != QStringLiteral("Команда:") && at < int(steps.size()))
                steps[size_t(at++)]();
        });
        timer.start(5);
        window->runLine(line);
        EXPECT_EQ(at, int(steps.size()));
    }

    void type(const QString& text)
    {
        edit()->setText(text);
        QTest::keyClick(edit(), Qt::Key_Return);
    }

    // How a drawing made by these commands is shown once saved and opened again.
    ActiveView reopenedView(const QStringList& lines)
    {
        const QString path = folder.filePath(QStringLiteral("reopened.dxf"));
        for (const QString& line : lines)
            window->runLine(line);
        EXPECT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(ncDocManagerPtr()->curDocument(), path)));
        closeAllDocuments();
        EXPECT_TRUE(window->openDrawing(path));
        QTest::qWait(10);
        return activeView(*view()->document().database());
    }

    int count(const char* className)
    {
        int met = 0;
        NcDbBlockTableRecord* space = nullptr;
        ncdbOpenObject(space, view()->document().database()->currentSpaceId(), kForRead);
        const std::unique_ptr<NcDbBlockTableRecordIterator> at(space->newIterator());
        for (at->start(); !at->done(); at->step()) {
            NcDbEntity* entity = nullptr;
            at->getEntity(entity, kForRead);
            met += qstrcmp(entity->isA()->name(), className) == 0;
            entity->close();
        }
        space->close();
        return met;
    }

    QTemporaryDir folder;
    std::unique_ptr<MainWindow> window;
};
