// The command line: what was said, the prompt, and the line that is typed.
#pragma once

#include <QStringList>
#include <QWidget>

class QCompleter;
class QLabel;
class QStringListModel;
class QLineEdit;
class QPlainTextEdit;

class CommandLine : public QWidget {
    Q_OBJECT
public:
    explicit CommandLine(QWidget* parent = nullptr);
    ~CommandLine() override;

    // Text of the console, line ends where they stand.
    void append(const QString& text);
    // The last line of a prompt; empty: waiting for a command. Its keywords stand
    // beside it to be clicked. `takesBlanks`: a blank belongs to the answer and
    // does not end it.
    void setPrompt(const QString& prompt, const QStringList& keywords = {}, bool takesBlanks = false);
    // Names that are offered while a command is typed.
    void setNames(const QStringList& names);
    // Goes on with a line that was begun elsewhere.
    void type(const QString& text);
    void takeFocus();
    // Lines that were entered, the oldest first.
    QStringList history() const { return typed_; }
    void setHistory(const QStringList& lines);

signals:
    void entered(const QString& line);
    void cancelled();

private:
    void enter();
    void recall(int step);
    void complete(int step);
    void offer(const QString& text);
    bool takeEvent(QEvent* event);
    bool takeKey(int key, Qt::KeyboardModifiers modifiers);
    QStringList offered() const { return keywords_.isEmpty() ? names_ : keywords_; }

    QPlainTextEdit* history_;
    QLabel* prompt_;
    QLineEdit* line_;
    bool lineEnded_ = false; // of the history, and not shown yet
    QLabel* words_;          // keywords of the prompt
    QCompleter* completer_;
    QStringListModel* offers_;
    QStringList names_, keywords_, typed_;
    QStringList turned_; // completions that Tab turns through
    int turn_ = 0;
    bool asking_ = false, takesBlanks_ = false;
    int recalled_ = 0;
};
