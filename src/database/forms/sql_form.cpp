#include "database/forms/sql_form.h"

#include "database/forms/field_rows.h"
#include "database/forms/projection_fields.h"
#include "session/forms/palette_refresh.h"
#include "session/project_session.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

struct ServerKind {
    const char* text;
    const char* port;
};

// The ports are what users have met since the first version, transposed digits
// and all; they write their own over them.
const ServerKind serverKinds[] = {
    {"Postgree SQL", "5342"},
    {"MS SQL", "3306"},
    {"My SQL (Maria DB)", "1434"},
};

} // namespace

// The page may be docked low, so it scrolls; it does not get too narrow for its
// buttons.
SQLForm::SQLForm(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("SQLForm"));
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    buildConnection(layout);
    buildProjection(layout);

    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(page);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setMinimumWidth(page->minimumSizeHint().width() + scroll->verticalScrollBar()->sizeHint().width());
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(scroll);
    refresh();
}

void SQLForm::buildConnection(QVBoxLayout* layout)
{
    type_ = new QComboBox;
    type_->setObjectName(QStringLiteral("SQL_type"));
    for (const ServerKind& kind : serverKinds)
        type_->addItem(QString::fromLatin1(kind.text));
    connect(type_, QOverload<int>::of(&QComboBox::activated), this, &SQLForm::chooseServerKind);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Сервер SQL"), type_);
    host_ = addLineRow(form, QStringLiteral("Сервер"), "SQL_host");
    port_ = addLineRow(form, QStringLiteral("Порт"), "SQL_port");
    database_ = addLineRow(form, QStringLiteral("База данных"), "Database");
    user_ = addLineRow(form, QStringLiteral("Пользователь"), "Username");
    password_ = addLineRow(form, QStringLiteral("Пароль"), "Password");
    password_->setEchoMode(QLineEdit::Password);
    log_ = makeLog("ConnOutput", 4);

    test_ = makeButton(QStringLiteral("Тест соединения"), "btn_testconnect");
    save_ = makeButton(QStringLiteral("Сохранить"), "btn_saveparams");
    connect_ = makeButton(QStringLiteral("Подключить"), "ConnectBTN");
    save_->setEnabled(false);
    connect_->setEnabled(false);
    connect(test_, &QPushButton::clicked, this, &SQLForm::testConnection);
    connect(save_, &QPushButton::clicked, this, &SQLForm::saveParameters);
    connect(connect_, &QPushButton::clicked, this, &SQLForm::openConnection);

    auto* pair = new QHBoxLayout;
    pair->addWidget(save_);
    pair->addWidget(connect_);
    layout->addLayout(form);
    layout->addWidget(log_);
    layout->addWidget(test_);
    layout->addLayout(pair);
}

void SQLForm::buildProjection(QVBoxLayout* layout)
{
    proj4_ = addProjectionFields(layout, session().moduleDir).text;
    updateGeometry_ = makeButton(QStringLiteral("Обновить геометрию (PostGIS)"), "btn_updategeom");
    connect(updateGeometry_, &QPushButton::clicked, this, &SQLForm::updateGeometry);
    layout->addWidget(updateGeometry_);
    layout->addStretch();
}

void SQLForm::refresh()
{
    const ProjectSession& now = session();
    type_->setCurrentIndex(now.sqlType);
    host_->setText(now.sqlHost);
    port_->setText(now.sqlPort);
    database_->setText(now.sqlDatabase);
    user_->setText(now.sqlUser);
    password_->setText(now.sqlPass);
    updateGeometry_->setEnabled(session().checkConnection());
    refreshProjection();
}

void SQLForm::refreshProjection()
{
    const sql::Result row = session().run(QStringLiteral("select proj4text from spatial_ref_sys where srid = 9999"));
    if (row.ntuples() == 0)
        return;
    session().proj4Text = row.getvalue(0, 0);
    proj4_->setPlainText(session().proj4Text);
}

ConnectionParameters SQLForm::parameters() const
{
    return {host_->text(), port_->text(), database_->text(), user_->text(), password_->text()};
}

void SQLForm::putParametersIntoSession() const
{
    ProjectSession& now = session();
    now.sqlHost = host_->text();
    now.sqlPort = port_->text();
    now.sqlDatabase = database_->text();
    now.sqlUser = user_->text();
    now.sqlPass = password_->text();
}

void SQLForm::chooseServerKind(int kind)
{
    port_->setText(QString::fromLatin1(serverKinds[kind].port));
    log_->clear();
}

// The log shows the whole string, password included: users read it to find
// what they have typed wrong.
void SQLForm::testConnection()
{
    if (type_->currentIndex() != 0)
        return;
    log_->clear();
    const QString conninfo = mainConnInfo(parameters());
    appendToLog(log_, conninfo);
    const sql::Connection test(conninfo);
    if (!test.isOk()) {
        appendToLog(log_, QStringLiteral("\n") + sql::decodeServerMessage(test.rawErrorMessage()));
        return;
    }
    appendToLog(log_, QStringLiteral("\nOK\n"));
    save_->setEnabled(true);
    connect_->setEnabled(true);
    session().sqlType = 0;
    session().connected = true;
    putParametersIntoSession();
}

// Opens the connection as it is: the project's row and the rights are read
// only when the user connects or loads a project.
void SQLForm::saveParameters()
{
    ProjectSession& now = session();
    now.sqlType = type_->currentIndex();
    putParametersIntoSession();
    if (now.sqlType != 0 || !now.openConnection(mainConnInfo(parameters())))
        return;
    now.connected = true;
    saveProjection();
    now.saveProject();
}

void SQLForm::openConnection()
{
    ProjectSession& now = session();
    if (now.checkConnection()) {
        now.connect();
        refreshProjection();
        now.setCurrentPosition(-1);
        now.baseCycleId = -1;
        now.currentCycleId = -1;
        now.reloadCycles();
        now.reloadStates();
        now.reloadPredictions();
        now.reloadLevelMaps();
    }
    refreshPalettes();
}

void SQLForm::saveProjection()
{
    session().proj4Text = proj4_->toPlainText();
    if (!session().saveProjection())
        return;
    appendToLog(log_, QStringLiteral("Параметры проекции сохранены"));
    session().updateGeometry();
}

void SQLForm::updateGeometry()
{
    saveProjection();
    session().updateGeometry();
}
