// One program a step: TERVA_FUZZ_STEP names it (fuzzDrawing, fuzzProject or fuzzTable).
#include "reader_fuzz.h"

#include <QApplication>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static QApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QString fault = TERVA_FUZZ_STEP(QByteArray(reinterpret_cast<const char*>(bytes), int(size)));
    if (!fault.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(fault));
        std::abort();
    }
    return 0;
}
