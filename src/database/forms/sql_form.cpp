#include "database/forms/sql_form.h"

#include "database/forms/projection_fields.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"
#include "session/forms/connection_fields.h"
#include "session/forms/palette_refresh.h"
#include "session/project_session.h"

#include <QScrollArea>
#include <QScrollBar>

using namespace formkit;

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

FieldList pageFields()
{
    Choices kinds;
    for (const ServerKind& kind : serverKinds)
        kinds.append({QString::fromLatin1(kind.text), kinds.size()});
    FieldList fields = connectionFields({"Сервер", "Порт", "База данных", "Пользователь", "Пароль"});
    fields.insert(fields.begin(), Field::choice("SQL_type", "Сервер SQL", [kinds] { return kinds; }));
    return fields;
}

} // namespace

// The page may be docked low, so it scrolls; it does not get too narrow for its
// buttons.
SQLForm::SQLForm(QWidget* parent) : QWidget(parent)
{
    nameForm(this, "SQLForm", QString());
    auto* page = new QWidget;
    layOut(page).column({
        fields_ = new FieldPane(pageFields()),
        log_ = logBox("ConnOutput", 4),
        roomy("btn_testconnect", "Тест соединения", &SQLForm::testConnection),
        row({
            save_ = disabled(roomy("btn_saveparams", "Сохранить", &SQLForm::saveParameters)),
            connect_ = disabled(roomy("ConnectBTN", "Подключить", &SQLForm::openConnection)),
        }),
        projectionFields(proj4_, session().moduleDir),
        updateGeometry_ = roomy("btn_updategeom", "Обновить геометрию (PostGIS)", &SQLForm::updateGeometry),
        stretch(),
    });
    type_ = fields_->widget<QComboBox>("SQL_type");
    connect(type_, QOverload<int>::of(&QComboBox::activated), this, &SQLForm::chooseServerKind);

    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(page);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setMinimumWidth(page->minimumSizeHint().width() + scroll->verticalScrollBar()->sizeHint().width());
    layOut(this).column({scroll});
    layout()->setContentsMargins(0, 0, 0, 0);
    refresh();
}

QPushButton* SQLForm::roomy(const QString& name, const QString& caption, void (SQLForm::*slot)())
{
    QPushButton* made = button(name, caption, this, slot);
    keepRoomFor(made, caption);
    return made;
}

void SQLForm::refresh()
{
    const ProjectSession& now = session();
    type_->setCurrentIndex(now.sqlType);
    showConnection(*fields_, connectionOf(now));
    updateGeometry_->setEnabled(session().checkConnection());
    refreshProjection();
}

void SQLForm::refreshProjection()
{
    const sql::Result row = session().run("select proj4text from spatial_ref_sys where srid = 9999");
    if (row.ntuples() == 0)
        return;
    session().proj4Text = row.getvalue(0, 0);
    proj4_->setPlainText(session().proj4Text);
}

void SQLForm::chooseServerKind(int kind)
{
    fields_->setText("SQL_port", serverKinds[kind].port);
    log_->clear();
}

// The log shows the whole string, password included: users read it to find
// what they have typed wrong.
void SQLForm::testConnection()
{
    if (type_->currentIndex() != 0)
        return;
    log_->clear();
    const ConnectionParameters tested = connectionIn(*fields_);
    const QString conninfo = mainConnInfo(tested);
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
    putConnection(session(), tested);
}

// Opens the connection as it is: the project's row and the rights are read
// only when the user connects or loads a project.
void SQLForm::saveParameters()
{
    ProjectSession& now = session();
    now.sqlType = type_->currentIndex();
    const ConnectionParameters wanted = connectionIn(*fields_);
    putConnection(now, wanted);
    if (now.sqlType != 0 || !now.openConnection(mainConnInfo(wanted)))
        return;
    now.connected = true;
    saveProjection();
    now.saveProject();
}

void SQLForm::openConnection()
{
    ProjectSession& now = session();
    // Where the database before is gone the check cannot bring it back: what was tested is opened.
    if (now.checkConnection() || now.openConnection(now.buildConnInfo())) {
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
