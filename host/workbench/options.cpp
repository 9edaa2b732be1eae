#include "options.h"

#include <QCommandLineParser>

bool parseOptions(const QStringList& arguments, Options& options, QString& message, bool& good)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Терва: чертежи и данные геотехнического мониторинга.\n"
                                                    "Без --batch открывает рабочее окно."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Эта справка."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Версия."));
    const QCommandLineOption batch(QStringLiteral("batch"), QStringLiteral("Исполнить сценарий без окна."),
                                   QStringLiteral("файл"));
    const QCommandLineOption play(QStringLiteral("play"), QStringLiteral("Исполнить сценарий в окне и закрыть его."),
                                  QStringLiteral("файл"));
    const QCommandLineOption start(QStringLiteral("start"),
                                   QStringLiteral("Исполнить сценарий в окне и оставить окно открытым."),
                                   QStringLiteral("файл"));
    const QCommandLineOption module(QStringLiteral("module"),
                                    QStringLiteral("Загрузить модуль (по умолчанию terva.nrx рядом с программой)."),
                                    QStringLiteral("файл"));
    const QCommandLineOption noModule(QStringLiteral("no-module"), QStringLiteral("Не загружать модуль по умолчанию."));
    const QCommandLineOption variable(QStringLiteral("var"), QStringLiteral("Переменная сценария."),
                                      QStringLiteral("ИМЯ=ЗНАЧЕНИЕ"));
    const QCommandLineOption timeout(QStringLiteral("timeout"),
                                     QStringLiteral("Сколько секунд ждать одного шага сценария (60)."),
                                     QStringLiteral("секунды"));
    const QCommandLineOption profile(QStringLiteral("profile"), QStringLiteral("Файл настроек окна."),
                                     QStringLiteral("файл"));
    parser.addOptions({help, version, batch, play, start, module, noModule, variable, timeout, profile});
    parser.addPositionalArgument(QStringLiteral("файлы"),
                                 QStringLiteral("Проекты .terva, чертежи .dxf и .dwg, сценарии .script."),
                                 QStringLiteral("[файлы...]"));

    good = parser.parse(arguments);
    message = good ? parser.helpText() : parser.errorText();
    if (good && parser.isSet(version))
        message = QStringLiteral("Терва " TERVA_VERSION);
    if (!good || parser.isSet(help) || parser.isSet(version))
        return false;
    options.batch = parser.value(batch);
    options.play = parser.value(play);
    options.start = parser.value(start);
    options.modules = parser.values(module);
    options.defaultModule = !parser.isSet(noModule) && options.modules.isEmpty();
    options.drawings = parser.positionalArguments();
    options.profile = parser.value(profile);
    good = false;
    const QStringList assignments = parser.values(variable);
    for (const QString& assignment : assignments) {
        const int at = assignment.indexOf(QLatin1Char('='));
        message = QStringLiteral("Переменная пишется как ИМЯ=ЗНАЧЕНИЕ: ") + assignment;
        if (at < 1)
            return false;
        options.variables.append({assignment.left(at), assignment.mid(at + 1)});
    }
    if (parser.isSet(timeout)) {
        options.stepTimeout = parser.value(timeout).toDouble();
        message = QStringLiteral("Время шага должно быть больше нуля");
        if (!(options.stepTimeout > 0.0))
            return false;
    }
    good = true;
    return true;
}
