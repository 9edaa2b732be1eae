#include "command_line.h"

#include <QCompleter>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr int kMostLines = 5000;

} // namespace

CommandLine::CommandLine(QWidget* parent)
    : QWidget(parent), history_(new QPlainTextEdit), prompt_(new QLabel), line_(new QLineEdit)
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
    row->addWidget(line_, 1);
    line_->installEventFilter(this);
    connect(line_, &QLineEdit::returnPressed, this, &CommandLine::enter);
    setPrompt(QString());
}

void CommandLine::append(const QString& text)
{
    QTextCursor end(history_->document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
    history_->verticalScrollBar()->setValue(history_->verticalScrollBar()->maximum());
}

void CommandLine::setPrompt(const QString& prompt)
{
    const QString last = prompt.trimmed().section(QLatin1Char('\n'), -1);
    prompt_->setText(last.isEmpty() ? QStringLiteral("Команда:") : last);
    // Names are offered for commands only.
    line_->setCompleter(last.isEmpty() ? completer_ : nullptr);
}

void CommandLine::setNames(const QStringList& names)
{
    if (names == names_)
        return;
    names_ = names;
    auto* completer = new QCompleter(names, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    if (line_->completer())
        line_->setCompleter(completer);
    delete completer_;
    completer_ = completer;
    if (prompt_->text() == QStringLiteral("Команда:"))
        line_->setCompleter(completer_);
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
    recalled_ = typed_.size();
    emit entered(text);
}

void CommandLine::recall(int step)
{
    recalled_ = qBound(0, recalled_ + step, int(typed_.size()));
    line_->setText(typed_.value(recalled_));
}

bool CommandLine::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Escape:
            line_->clear();
            emit cancelled();
            return true;
        case Qt::Key_Up: recall(-1); return true;
        case Qt::Key_Down: recall(1); return true;
        default: break;
        }
    }
    return QWidget::eventFilter(watched, event);
}
