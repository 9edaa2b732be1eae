// A module as small as can be, for the tests of loading. It tells what it was
// sent through dynamic properties of the application.
#include <nrx/application.h>

#include <QCoreApplication>
#include <QVariant>

namespace {

void note(const QString& text)
{
    const QString before = qApp->property("sampleModule").toString();
    qApp->setProperty("sampleModule", before + text);
}

void sayHello() { note(QStringLiteral("hello;")); }

} // namespace

extern "C" Q_DECL_EXPORT int ncrxEntryPoint(int message, void* packet)
{
    note(QStringLiteral("message %1;").replace(QLatin1String("%1"), QString::number(message)));
    if (message == kInitAppMsg) {
        GetDynamicLinker()->unlockApplication(packet);
        GetDynamicLinker()->setMultiDocumentAware(packet);
        GetCommandStack()->addCommand(QStringLiteral("SAMPLE"), QStringLiteral("_SAMPLE_HELLO"),
                                      QStringLiteral("SAMPLE_HELLO"), kTransparent, sayHello, nullptr, -1, nullptr,
                                      nullptr);
        qApp->setProperty("sampleModulePath", ncModulePath(reinterpret_cast<const void*>(&sayHello)));
    } else if (message == kUnloadAppMsg) {
        GetCommandStack()->removeGroup(QStringLiteral("SAMPLE"));
    }
    return 0;
}
