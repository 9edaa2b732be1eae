#include "formkit/file_questions.h"

#include "base/placeholders.h"
#include "formkit/boxes.h"

#include <QFileDialog>
#include <QHash>
#include <QRegularExpression>

namespace formkit {

namespace {

QHash<QString, QString>& lastFolders()
{
    static QHash<QString, QString> folders;
    return folders;
}

QString startOf(const QString& title, const QString& start)
{
    return start.isEmpty() ? lastFolders().value(title) : start;
}

QString askFile(QWidget* parent, const FileQuestion& question, QFileDialog::AcceptMode mode)
{
    const QString start = startOf(question.title, question.start);
    const QFileInfo place(start);
    const bool namesFile = !start.isEmpty() && !place.isDir();
    QFileDialog box(parent, question.title, namesFile ? place.path() : start, question.filter);
    box.setAcceptMode(mode);
    box.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (question.chosenFilter && !question.chosenFilter->isEmpty())
        box.selectNameFilter(*question.chosenFilter);
    if (mode == QFileDialog::AcceptSave) {
        box.setOption(QFileDialog::DontConfirmOverwrite); // it would ask in another language
        box.setDefaultSuffix(suffixOf(box.selectedNameFilter()));
        QObject::connect(&box, &QFileDialog::filterSelected, &box,
                         [&box](const QString& filter) { box.setDefaultSuffix(suffixOf(filter)); });
    }
    if (namesFile)
        box.selectFile(place.fileName());
    if (box.exec() != QDialog::Accepted)
        return {};
    QString path = box.selectedFiles().value(0);
    lastFolders()[question.title] = QFileInfo(path).path();
    if (question.chosenFilter)
        *question.chosenFilter = box.selectedNameFilter();
    return path;
}

} // namespace

QString askFileToOpen(QWidget* parent, const FileQuestion& question)
{
    return askFile(parent, question, QFileDialog::AcceptOpen);
}

QString askFileToSave(QWidget* parent, const FileQuestion& question)
{
    const QString path = askFile(parent, question, QFileDialog::AcceptSave);
    const bool isThere = !path.isEmpty() && QFileInfo::exists(path);
    return !isThere || confirm(parent, fill("Файл '%1' уже существует.\nЗаменить его?", path)) ? path : QString();
}

QString askFolder(QWidget* parent, const QString& title, const QString& start)
{
    QString folder = QFileDialog::getExistingDirectory(parent, title, startOf(title, start),
                                                       QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (!folder.isEmpty())
        lastFolders()[title] = folder;
    return folder;
}

QString suffixOf(const QString& filter)
{
    static const QRegularExpression pattern(QStringLiteral("\\*\\.([^*\\s);]+)"));
    return pattern.match(filter).captured(1);
}

} // namespace formkit
