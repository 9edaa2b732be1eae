// Two things are read by hand: numbers of survey files, and the bounds of an XML
// part before a tree is made of it. Beside each stands the toolkit's road over
// the same input; both must say the same.
#include "exchange/number_text.h"
#include "reports/docx/xml_scan.h"

#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamReader>
#include <benchmark/benchmark.h>
#include <limits>

namespace {

const QStringList& cells()
{
    static const QStringList texts = {"-1.23", "-5,126", "12",         "ТС-17", "",
                                      "0.06",  "-0,4",   "28.03.2010", "Нет",   "103.4415"};
    return texts;
}

bool findByExpression(const QString& text, double& number)
{
    static const QRegularExpression expression(QStringLiteral("[+-]?(?:\\d*[.,])?\\d+"));
    const QRegularExpressionMatch match = expression.match(text);
    if (!match.hasMatch())
        return false;
    bool ok = false;
    number = match.captured().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    if (!ok)
        number = std::numeric_limits<double>::infinity();
    return true;
}

void numberByHand(benchmark::State& state)
{
    for (auto _ : state) {
        for (const QString& text : cells()) {
            double number = 0;
            benchmark::DoNotOptimize(findNumber(text, SignOf::Number, number));
        }
    }
    state.SetItemsProcessed(state.iterations() * cells().size());
}

void numberByExpression(benchmark::State& state)
{
    for (const QString& text : cells()) {
        double one = 0, other = 0;
        if (findNumber(text, SignOf::Number, one) != findByExpression(text, other) || one != other)
            state.SkipWithError("the two roads differ");
    }
    for (auto _ : state) {
        for (const QString& text : cells()) {
            double number = 0;
            benchmark::DoNotOptimize(findByExpression(text, number));
        }
    }
    state.SetItemsProcessed(state.iterations() * cells().size());
}

QByteArray part(int paragraphs)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><w:document xmlns:w=\"urn:w\"><w:body>";
    for (int i = 0; i < paragraphs; ++i)
        xml += "<w:p w:rsidR=\"00A1\"><w:r><w:rPr><w:b w:val=\"1\"/></w:rPr><w:t xml:space=\"preserve\">Марка "
            + QByteArray::number(i) + "</w:t></w:r></w:p>";
    return xml + "</w:body></w:document>";
}

void boundsByHand(benchmark::State& state)
{
    const QByteArray xml = part(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(docx::findFault(xml).isEmpty());
    state.SetBytesProcessed(state.iterations() * xml.size());
}

void boundsByStreamReader(benchmark::State& state)
{
    const QByteArray xml = part(int(state.range(0)));
    for (auto _ : state) {
        QXmlStreamReader reader(xml);
        int depth = 0, deepest = 0, nodes = 0;
        while (!reader.atEnd()) {
            const auto token = reader.readNext();
            depth += token == QXmlStreamReader::StartElement ? 1 : token == QXmlStreamReader::EndElement ? -1 : 0;
            deepest = qMax(deepest, depth);
            nodes += 1 + reader.attributes().size();
        }
        benchmark::DoNotOptimize(deepest + nodes);
    }
    state.SetBytesProcessed(state.iterations() * xml.size());
}

BENCHMARK(numberByHand);
BENCHMARK(numberByExpression);
BENCHMARK(boundsByHand)->Arg(1000)->Arg(100000);
BENCHMARK(boundsByStreamReader)->Arg(1000)->Arg(100000);

} // namespace

BENCHMARK_MAIN();
