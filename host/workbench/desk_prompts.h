// Prompts of the workbench: answered on the command line or in the drawing.
#pragma once

#include "command_line.h"
#include "drawing_view.h"

#include <drawing/prompt_backend.h>
#include <script/console.h>

#include <QEventLoop>
#include <functional>

class DeskPrompts : public QObject, public PromptBackend {
    Q_OBJECT
public:
    // `view` gives the view of the drawing that is worked on; it may be null.
    DeskPrompts(CommandLine& line, std::function<DrawingView*()> view, QObject* parent = nullptr);

    PromptReply ask(const PromptRequest& request) override;
    void print(const QString& text) override { console_.print(text); }

    Console& console() { return console_; }
    bool isAsking() const { return loop_ != nullptr; }
    // Ends the prompt that waits, as Esc does.
    void cancel();
    // A line that was typed; false when no prompt waits for one.
    bool take(const QString& line);
    // What was done in the drawing. Nothing happens when no prompt waits for it.
    void takePoint(const NcGePoint3d& world);
    void takeEntity(NcDbObjectId entity, const NcGePoint3d& world);
    void takeEntities(const NcDbObjectIdArray& entities);
    void finish();

private:
    void answer(const PromptReply& reply, const QString& echo);
    void showRequest();

    CommandLine& line_;
    std::function<DrawingView*()> view_;
    Console console_;
    // Of the prompt that waits.
    QEventLoop* loop_ = nullptr;
    const PromptRequest* request_ = nullptr;
    PromptReply reply_;
    NcDbObjectIdArray gathered_;
};
