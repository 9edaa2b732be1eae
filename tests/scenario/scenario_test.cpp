// Every folder beside this file is a test: its script is played by the program,
// and what the database and the user's folder hold is looked at afterwards.
#include "expected_rows.h"
#include "relay.h"
#include "scenario.h"
#include "support/test_database.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

constexpr int longestRun = 60000; // ms

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::unique_ptr<TestDatabase> makeDatabase(ScenarioSettings::Database kind)
{
    switch (kind) {
    case ScenarioSettings::Database::WithProject: {
        auto database = std::make_unique<TestDatabase>();
        database->exec(readText(scenarioFolder(QStringLiteral("common")) + QStringLiteral("/base.sql"), {}));
        return database;
    }
    case ScenarioSettings::Database::Empty: return std::make_unique<TestDatabase>(TestDatabase::Content::Empty);
    case ScenarioSettings::Database::None: break;
    }
    return nullptr;
}

} // namespace

class Scenario : public ::testing::TestWithParam<QString> {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(TestServer::isKnown());
        settings_ = readSettings(GetParam());
        ASSERT_TRUE(settings_.unknown.isEmpty()) << settings_.unknown.join(QLatin1Char('\n')).toStdString();
        database_ = makeDatabase(settings_.database);
        nameThings();
        ASSERT_TRUE(folder_.isValid());
        ASSERT_TRUE(layFiles(GetParam(), folder_.path(), variables_));
        const QString before = readStatements(own("before.sql"), variables_);
        if (!before.isEmpty() && database_) {
            ASSERT_TRUE(database_->exec(before));
        }
    }

    void TearDown() override
    {
        const sql::Connection server(TestServer::conninfo(QStringLiteral("postgres")));
        server.runScript(expand(QStringLiteral("drop database if exists ${NEW_DATABASE} with (force)"), variables_));
        database_.reset();
        server.runScript(expand(QStringLiteral("drop role if exists ${ROLE}"), variables_));
    }

    QString own(const char* file) const { return scenarioFolder(GetParam()) + QLatin1Char('/') + QLatin1String(file); }
    QString inFolder(const QString& path) const { return QDir(folder_.path()).filePath(path); }

    void nameThings()
    {
        const QString database = database_ ? database_->name() : QStringLiteral("terva_test_none");
        const QString program = QCoreApplication::applicationDirPath();
        variables_ = {
            {"HOST", TestServer::host()},
            {"PORT", TestServer::port()},
            {"USER", TestServer::user()},
            {"PASSWORD", TestServer::password()},
            {"PASSWORD64", QString::fromLatin1(TestServer::password().toUtf8().toBase64())},
            {"DATABASE", database},
            {"NEW_DATABASE", QStringLiteral("%1_new_%2").arg(database).arg(QCoreApplication::applicationPid())},
            {"ROLE", QStringLiteral("terva_test_role_%1").arg(QCoreApplication::applicationPid())},
            {"FOLDER", folder_.path()},
            {"PROJECT", folder_.path() + QStringLiteral("/project.terva")},
            {"SCENARIO", scenarioFolder(GetParam())},
            {"COMMON", scenarioFolder(QStringLiteral("common"))},
            {"PROGRAM", program},
            {"RELAY", QString::number(freePort())},
        };
    }

    // The rights of a file, as chmod takes them.
    void setRights(const QString& path, const QString& octal) const
    {
        EXPECT_EQ(QProcess::execute(QStringLiteral("chmod"), {"-R", octal, inFolder(path)}), 0);
    }

    // Rights stop no superuser: the program then runs without its privileges.
    bool asSuperuser() const { return QFileInfo(QDir::rootPath()).isWritable(); }
    void shutFiles() const
    {
        for (const QString& mode : settings_.modes)
            setRights(mode.section(QLatin1Char(' '), 1), mode.section(QLatin1Char(' '), 0, 0));
    }
    void openFiles() const
    {
        if (!settings_.modes.isEmpty())
            setRights(QStringLiteral("."), QStringLiteral("u+rwX"));
    }

    void start(QProcess& process) const
    {
        const QString program =
            QCoreApplication::applicationDirPath() + (wantsPlayer(GetParam()) ? "/test_scenario" : "/terva");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        environment.insert(QStringLiteral("HOME"), folder_.path());
        for (const QString& name : {QStringLiteral("PASSWORD"), QStringLiteral("PASSWORD64")})
            environment.insert(name, variables_[name]);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder_.path());
        if (!settings_.modes.isEmpty() && asSuperuser())
            process.start(QStringLiteral("setpriv"),
                          QStringList{"--bounding-set=-dac_override,-dac_read_search", program} + arguments());
        else
            process.start(program, arguments());
    }

    // Without the password: a command line is seen by all.
    QStringList arguments() const
    {
        const QString script = own("scenario.script");
        QStringList words = wantsPlayer(GetParam()) ? QStringList{"--play", script} : QStringList{"--batch", script};
        for (auto variable = variables_.begin(); variable != variables_.end(); ++variable) {
            if (variable.key().startsWith(QLatin1String("PASSWORD")))
                continue;
            if (!wantsPlayer(GetParam()))
                words.append(QStringLiteral("--var"));
            words.append(variable.key() + QLatin1Char('=') + variable.value());
        }
        return words;
    }

    void play()
    {
        QProcess program;
        start(program);
        ASSERT_TRUE(program.waitForStarted());
        if (!program.waitForFinished(longestRun)) {
            program.kill();
            program.waitForFinished();
            ADD_FAILURE() << "The program did not end";
        }
        const QString console = QString::fromUtf8(program.readAllStandardOutput());
        const QString errors = QString::fromUtf8(program.readAllStandardError());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), settings_.exitCode);
        for (const QString& text : settings_.onStderr)
            EXPECT_TRUE(errors.contains(expand(text, variables_))) << text.toStdString();
        if (settings_.onStderr.isEmpty()) {
            EXPECT_EQ(errors, QString());
        }
        if (HasFailure())
            std::printf("%s\n%s\n", console.toUtf8().constData(), errors.toUtf8().constData());
    }

    void lookAtRows() const
    {
        const QString expected = readText(own("rows.txt"), variables_);
        if (expected.isEmpty())
            return;
        const QString difference = differenceFromFile(expected, variables_[QStringLiteral("DATABASE")],
                                                      [](const QString& name) { return TestServer::conninfo(name); });
        EXPECT_TRUE(difference.isEmpty()) << difference.toStdString();
    }

    ScenarioSettings settings_;
    std::unique_ptr<TestDatabase> database_;
    QTemporaryDir folder_;
    Variables variables_;
};

TEST_P(Scenario, GoesAsWritten)
{
    QMap<QString, QByteArray> before;
    for (const QString& path : settings_.unchanged)
        before[path] = bytesOf(inFolder(path));
    shutFiles();
    play();
    openFiles();
    lookAtRows();
    for (const QString& path : settings_.unchanged) {
        EXPECT_FALSE(before[path].isEmpty()) << path.toStdString();
        EXPECT_EQ(bytesOf(inFolder(path)), before[path]) << path.toStdString();
    }
    for (const QString& path : settings_.missing)
        EXPECT_FALSE(QFile::exists(inFolder(path))) << path.toStdString();
    for (const QString& line : settings_.lacking) {
        const QByteArray content = bytesOf(inFolder(line.section(QLatin1Char(' '), 0, 0)));
        EXPECT_FALSE(content.isEmpty()) << line.toStdString();
        EXPECT_FALSE(QString::fromUtf8(content).contains(line.section(QLatin1Char(' '), 1))) << line.toStdString();
    }
}

namespace {

std::vector<QString> allScenarios()
{
    const QStringList names = scenarioNames();
    return {names.begin(), names.end()};
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Played, Scenario, ::testing::ValuesIn(allScenarios()),
                         [](const auto& info) { return info.param.toStdString(); });

// A scenario that checks nothing would pass whatever the program does.
TEST(Scenarios, EachLooksAtSomething)
{
    for (const QString& name : scenarioNames()) {
        const QString script = readText(scenarioFolder(name) + QStringLiteral("/scenario.script"), {});
        bool looks = QFile::exists(scenarioFolder(name) + QStringLiteral("/rows.txt"));
        for (const char* check : {"\nexpect ", "\ncheck ", "\ncontains ", "\ntext ", "\ncount ", "\ndatabase ",
                                  "\nrows ", "\ncheck-cell ", "\nfile-contains "})
            looks = looks || script.contains(QLatin1String(check));
        EXPECT_TRUE(looks) << name.toStdString();
    }
}
