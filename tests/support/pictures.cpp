#include "support/pictures.h"

#include "support/looks.h"
#include "support/test_database.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSignalBlocker>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

struct Replacement {
    QString pattern;
    QString shown;
};

std::vector<Replacement> replacements()
{
    const auto plain = [](const QString& text) { return QRegularExpression::escape(text); };
    std::vector<Replacement> rows{
        {plain(QDir::tempPath()) + "/[^/\\s]*-[A-Za-z0-9]{6}", "/home/ivanov/gorod"},
        {plain(QCoreApplication::applicationDirPath()), "/opt/terva"},
        {plain(TERVA_SOURCE_DIR), "/opt/terva"},
        {"\\bterva_[a-z]+_[0-9a-f_]{5,}\\b", "gorod"},
    };
    if (!TestServer::password().isEmpty()) {
        rows.push_back({plain(TestServer::password()), "пароль"});
        rows.push_back({"(?<![0-9])" + plain(TestServer::port()) + "(?![0-9])", "5432"});
    }
    return rows;
}

// Puts other texts into a form, and the old ones back when it goes.
class NeutralTexts {
public:
    explicit NeutralTexts(QWidget& form)
    {
        for (auto* edit : form.findChildren<QLineEdit*>())
            replace(edit, edit->text(), [edit](const QString& text) { edit->setText(text); });
        for (auto* label : form.findChildren<QLabel*>())
            replace(label, label->text(), [label](const QString& text) { label->setText(text); });
        for (auto* log : form.findChildren<QPlainTextEdit*>())
            replace(log, log->toPlainText(), [log](const QString& text) { log->setPlainText(text); });
        for (auto* combo : form.findChildren<QComboBox*>()) {
            for (int i = 0; i < combo->count(); ++i)
                replace(combo, combo->itemText(i), [combo, i](const QString& text) { combo->setItemText(i, text); });
        }
        for (auto* view : form.findChildren<QAbstractItemView*>()) {
            if (view->model())
                replaceCells(*view->model());
        }
    }
    ~NeutralTexts()
    {
        for (const auto& restore : restores_)
            restore();
    }
    NeutralTexts(const NeutralTexts&) = delete;
    NeutralTexts& operator=(const NeutralTexts&) = delete;

private:
    void replace(QObject* owner, const QString& text, const std::function<void(const QString&)>& set)
    {
        const QString shown = withoutMachine(text);
        if (shown == text)
            return;
        const auto silently = [owner, set](const QString& value) {
            const QSignalBlocker blocker(owner);
            set(value);
        };
        silently(shown);
        restores_.push_back([silently, text] { silently(text); });
    }
    // Tables and lists; what stands below a node of a tree names nothing of the machine.
    void replaceCells(QAbstractItemModel& model)
    {
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                const QPersistentModelIndex cell(model.index(row, column));
                replace(&model, cell.data().toString(),
                        [&model, cell](const QString& text) { model.setData(cell, text, Qt::DisplayRole); });
            }
        }
    }

    std::vector<std::function<void()>> restores_;
};

} // namespace

QString withoutMachine(QString text)
{
    static const std::vector<Replacement> rows = replacements();
    for (const Replacement& row : rows)
        text.replace(QRegularExpression(row.pattern), row.shown);
    return text;
}

bool takePicture(QWidget& form, const QString& name)
{
    form.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(cutOff(form), QStringList()) << name;
    EXPECT_EQ(tooLarge(form), QString()) << name;
    EXPECT_EQ(tabFaults(form), QStringList()) << name;
    EXPECT_EQ(unitFaults(form), QStringList()) << name;
    const NeutralTexts neutral(form);
    const QPixmap picture = form.grab();
    const QString folder = qEnvironmentVariable("TERVA_PICTURES");
    return !picture.isNull() && (folder.isEmpty() || picture.save(QDir(folder).filePath(name + ".png")));
}
