// The command line: what was said, the prompt, and the line that is typed.
#pragma once

#include <QStringList>
#include <QWidget>

class QCompleter;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

class CommandLine : public QWidget {
    Q_OBJECT
public:
    explicit CommandLine(QWidget* parent = nullptr);

    // Text of the console, line ends where they stand.
    void append(const QString& text);
    // The last line of a prompt; empty: waiting for a command.
    void setPrompt(const QString& prompt);
    // Names that are offered while a command is typed.
    void setNames(const QStringList& names);
    // Goes on with a line that was begun elsewhere.
    void type(const QString& text);

signals:
    void entered(const QString& line);
    void cancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void enter();
    void recall(int step);

    QPlainTextEdit* history_;
    QLabel* prompt_;
    QLineEdit* line_;
    QCompleter* completer_ = nullptr;
    QStringList names_, typed_;
    int recalled_ = 0;
};
