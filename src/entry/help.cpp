#include "entry/help.h"

#include <QDesktopServices>

QUrl manualAddress()
{
    return QUrl(QStringLiteral("https://docs.terva.example/books/tervagmn-rukovodstvo-polzovatelia"));
}

void openManual() { QDesktopServices::openUrl(manualAddress()); }
