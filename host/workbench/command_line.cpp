#include "command_line.h"

#include "completion.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStringListModel>
#include <QVBoxLayout>
#include <functional>

namespace {

constexpr int kMostLines = 5000;
constexpr int kMostRemembered = 200;

// The list of completions hands its keys past all filters to the line itself.
class CommandEdit : public QLineEdit {
public:
    std::function<bool(QEvent*)> take;

protected:
    bool event(QEvent* event) override { return (take && take(event)) || QLineEdit::event(event); }
};

} // namespace

CommandLine::CommandLine(QWidget* parent)
    : QWidget(parent),
      history_(new QPlainTextEdit),
      prompt_(new QLabel),
      line_(new CommandEdit),
      words_(new QLabel),
      completer_(new QCompleter(this)),
      offers_(new QStringListModel(this))
{
    history_->setObjectName(QStringLiteral("commandHistory"));
    line_->setObjectName(QStringLiteral("commandEdit"));
    prompt_->setObjectName(QStringLiteral("commandPrompt"));
    history_->setReadOnly(true);
    history_->setMaximumBlockCount(kMostLines);
    history_->setFocusPolicy(Qt::ClickFocus);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    history_->setFont(fixed);
    line_->setFont(fixed);
    prompt_->setFont(fixed);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 2, 4, 4);
    column->setSpacing(3);
    column->addWidget(history_);
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    row->addWidget(prompt_);
    row->addWidget(words_);
    row->addWidget(line_, 1);
    words_->setObjectName(QStringLiteral("commandKeywords"));
    words_->setTextFormat(Qt::RichText);
    connect(words_, &QLabel::linkActivated, this, &CommandLine::entered);
    // The list is filled as one types, best first.
    completer_->setModel(offers_);
    completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    line_->setCompleter(completer_);
    connect(line_, &QLineEdit::textEdited, this, &CommandLine::offer);
    static_cast<CommandEdit*>(line_)->take = [this](QEvent* event) { return takeEvent(event); };
    connect(line_, &QLineEdit::returnPressed, this, &CommandLine::enter);
    setPrompt(QString());
}

// The line is taken down after this, and has events still.
CommandLine::~CommandLine() { static_cast<CommandEdit*>(line_)->take = nullptr; }

// The pane is low: it ends with its last words, and no empty lines stand between
// what one writer ended and the next begins.
void CommandLine::append(const QString& text)
{
    const QChar lineEnd = QLatin1Char('\n');
    int from = 0, to = text.size();
    while (lineEnded_ && from < to && text[from] == lineEnd)
        ++from;
    while (to > from && text[to - 1] == lineEnd)
        --to;
    if (to > from) {
        QTextCursor end(history_->document());
        end.movePosition(QTextCursor::End);
        end.insertText((lineEnded_ && !history_->document()->isEmpty() ? QString(lineEnd) : QString())
                       + text.mid(from, to - from));
        lineEnded_ = false;
    }
    lineEnded_ = lineEnded_ || to < text.size();
    history_->verticalScrollBar()->setValue(history_->verticalScrollBar()->maximum());
}

void CommandLine::setPrompt(const QString& prompt, const QStringList& keywords, bool takesBlanks)
{
    const QString last = prompt.trimmed().section(QLatin1Char('\n'), -1);
    prompt_->setText(last.isEmpty() ? QStringLiteral("Команда:") : last);
    asking_ = !last.isEmpty();
    takesBlanks_ = takesBlanks;
    keywords_ = keywords;
    offers_->setStringList({});
    QStringList links;
    for (const QString& word : keywords)
        links << QStringLiteral("<a href=\"") + word.toHtmlEscaped() + QStringLiteral("\">") + word.toHtmlEscaped()
                + QStringLiteral("</a>");
    words_->setText(links.join(QStringLiteral("&nbsp; ")));
    words_->setVisible(!links.isEmpty());
}

void CommandLine::setNames(const QStringList& names) { names_ = names; }

// Names are offered for commands, keywords for prompts that have some.
void CommandLine::offer(const QString& text)
{
    turned_.clear();
    const bool nameless = asking_ && keywords_.isEmpty();
    offers_->setStringList(nameless ? QStringList() : completions(text, offered()));
}

void CommandLine::complete(int step)
{
    if (turned_.isEmpty()) {
        turned_ = asking_ && keywords_.isEmpty() ? QStringList() : completions(line_->text(), offered());
        turn_ = step > 0 ? -1 : 0;
    }
    if (turned_.isEmpty())
        return;
    turn_ = (turn_ + step + turned_.size()) % turned_.size();
    line_->setText(turned_[turn_]);
}

void CommandLine::takeFocus() { line_->setFocus(); }

void CommandLine::setHistory(const QStringList& lines)
{
    typed_ = lines.mid(qMax(0, lines.size() - kMostRemembered));
    recalled_ = typed_.size();
}

void CommandLine::type(const QString& text)
{
    line_->setFocus();
    line_->insert(text);
}

void CommandLine::enter()
{
    const QString text = line_->text();
    line_->clear();
    if (!text.trimmed().isEmpty() && (typed_.isEmpty() || typed_.last() != text))
        typed_ << text;
    turned_.clear();
    offers_->setStringList({});
    completer_->popup()->hide(); // the toolkit leaves an empty list standing when Tab has completed the line
    recalled_ = typed_.size();
    emit entered(text);
}

void CommandLine::recall(int step)
{
    recalled_ = qBound(0, recalled_ + step, int(typed_.size()));
    line_->setText(typed_.value(recalled_));
}

bool CommandLine::takeKey(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Escape:
        line_->clear();
        emit cancelled();
        return true;
    case Qt::Key_Up: recall(-1); return true;
    case Qt::Key_Down: recall(1); return true;
    case Qt::Key_Tab: complete(1); return true;
    case Qt::Key_Backtab: complete(-1); return true;
    case Qt::Key_Space:
        // As Enter, but where a blank is part of the answer.
        if (takesBlanks_ || modifiers != Qt::NoModifier)
            return false;
        enter();
        return true;
    default: return false;
    }
}

bool CommandLine::takeEvent(QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        return takeKey(key->key(), key->modifiers());
    }
    // An empty line has nothing to copy or to undo: these keys belong to the drawing.
    if (event->type() == QEvent::ShortcutOverride && line_->text().isEmpty()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->modifiers() & Qt::ControlModifier) || key->key() == Qt::Key_Delete) {
            event->ignore();
            return true;
        }
    }
    return false;
}
