// Writes one file by the one helper: write_once path size letter. Ends with 0
// when the helper says that it was written.
#include "files/written_file.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList words = application.arguments();
    if (words.size() != 4)
        return 2;
    return saveFile(words[1], QByteArray(words[2].toInt(), words[3].at(0).toLatin1()), nullptr, WrittenFile::Private)
        ? 0
        : 1;
}
