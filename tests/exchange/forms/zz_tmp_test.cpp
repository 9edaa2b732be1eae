#include <QTabWidget>
#include <QApplication>
#include "exchange/forms/dialog_fixture.h"
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <iostream>
TEST_F(ImportDialogs, TmpSpeed)
{
    QByteArray bytes = "Имя;Серийный номер;Дата замера;Время замера;Темп.возд;1;2;3;4;5;6;7;8;9;10;11;12;13\n";
    QDate day(2021,1,1);
    for (int i=0;i<100000;++i) {
        const QDate d = day.addDays(i % 700);
        bytes += QString("%1;SN-1;%2;%3;%4").arg(i%3==0?"T.1":i%3==1?"Т-2":"Т-9").arg(d.toString("dd.MM.yyyy")).arg(QTime(0,0).addSecs(i*61).toString("hh:mm:ss")).arg((i%400)/10.0-20).toUtf8();
        for (int k=0;k<13;++k) bytes += ";" + QByteArray::number(-1.0 - k*0.1 + (i%17)*0.01);
        bytes += "\n";
    }
    database->exec("insert into positions_attributes (position_id, temperature_deep_min, temperature_deep_max) values (7,1,10)");
    QString path = write(bytes);
    TSImportCmdDialog dialog;
    dialog.show();
    dialog.findChild<QComboBox*>("ImportTemplate")->setCurrentIndex(2);
    dialog.findChild<QLineEdit*>("FileName")->setText(path);
    dialog.findChild<QRadioButton*>("EncodingCP1251")->setChecked(true);
    QElapsedTimer t; t.start();
    dialog.findChild<QRadioButton*>("EncodingUTF8")->setChecked(true);
    std::cerr << "read " << t.elapsed() << " ms " << dialog.findChild<QLabel*>("SummaryLabel")->text().toStdString() << "\n";
    t.start(); qApp->processEvents(); std::cerr << "paint " << t.elapsed() << "\n";
    dialog.findChild<QComboBox*>("OperatorCombo")->setCurrentIndex(1);
    t.start(); dialog.findChild<QPushButton*>("BTNOperatorToAll")->click();
    std::cerr << "all " << t.elapsed() << "\n";
    t.start();
    auto* m = dialog.findChild<QTableView*>("measuresView")->model();
    m->setData(m->index(5,5), "1.5", Qt::EditRole);
    std::cerr << "one cell " << t.elapsed() << "\n";
    t.start();
    driver.expect("Внимание").press("Да для всех");
    driver.expect("Внимание").press("Да для всех");
    dialog.findChild<QPushButton*>("ImportBtn")->click();
    std::cerr << "import " << t.elapsed() << "\n" << console.text().right(100).toStdString() << driver.report().toStdString() << "\n";
}
TEST_F(ImportDialogs, TmpPicture)
{
    database->exec("delete from ts_elements; delete from cycles; delete from devices");
    database->exec("insert into positions_attributes (position_id, temperature_deep_min, temperature_deep_max) values (7,5,15)");
    QFile sql(TERVA_SOURCE_DIR "/demo/sample.sql"); sql.open(QIODevice::ReadOnly);
    QString t = QString::fromUtf8(sql.readAll());
    t = t.mid(t.indexOf("INSERT INTO cycles"));
    t = t.left(t.indexOf("INSERT INTO performers"));
    database->exec(t);
    QFile el(TERVA_SOURCE_DIR "/demo/boreholes/elements.csv"); el.open(QIODevice::ReadOnly);
    for (const QString& line : QString::fromUtf8(el.readAll()).split('\n', Qt::SkipEmptyParts)) {
        const QStringList c = line.trimmed().split(';');
        if (c[0] == "4") continue;
        database->exec(QString("insert into ts_elements (element_name, state_id, position_id) values ('%1','exist',7)").arg(c[0]));
    }
    database->exec("insert into ts_meas (element_id, cycle_id, meas) select element_id, 1, '5.00:-2.40|15.00:-2.50' from ts_elements");
    openWells(TERVA_SOURCE_DIR "/demo/boreholes/terva.csv").set("OperatorCombo","data:1").press("BTNOperatorToAll")
      .call([](QWidget* w){ w->grab().save("/tmp/import.png"); w->findChild<QTabWidget*>()->setCurrentIndex(1); qApp->processEvents(); w->grab().save("/tmp/import_raw.png"); w->findChild<QTabWidget*>()->setCurrentIndex(0); return QString(); })
      .call([](QWidget* w){ w->resize(w->minimumSizeHint()); qApp->processEvents(); w->grab().save("/tmp/import_small.png"); return QString(); })
      .press("CloseBtn");
    TSImportCmdDialog().exec();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}
