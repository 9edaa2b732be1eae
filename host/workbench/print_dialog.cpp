#include "print_dialog.h"

#include <nrx/database.h>
#include <render/map_legend.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr double kAround = 12.0; // pixels about the sheet in the preview
constexpr int kFieldLength = 38; // characters in sight
const QString kSettings = QStringLiteral("print/");

QString scaleText(double scale) { return QStringLiteral("1:") + QString::number(scale, 'g', 8); }

} // namespace

// --- the preview

SheetPreview::SheetPreview(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("printPreview"));
    setMinimumSize(420, 320);
    setCursor(Qt::OpenHandCursor);
    setToolTip(QStringLiteral("Потяните мышью, чтобы сдвинуть чертёж на листе"));
}

void SheetPreview::show(const Sheet& sheet, const DisplayList& list)
{
    sheet_ = sheet;
    list_ = &list;
    update();
}

double SheetPreview::dots() const
{
    const QSizeF paper = paperSize(sheet_);
    return std::min((width() - 2 * kAround) / paper.width(), (height() - 2 * kAround) / paper.height());
}

void SheetPreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    if (!list_)
        return;
    const QSizeF paper = paperSize(sheet_) * dots();
    painter.translate(0.5 * (width() - paper.width()), 0.5 * (height() - paper.height()));
    painter.fillRect(QRectF(QPointF(3, 3), paper), QColor(0, 0, 0, 70));
    paintSheet(painter, sheet_, *list_, dots());
}

void SheetPreview::mousePressEvent(QMouseEvent* event) { from_ = event->pos(); }

void SheetPreview::mouseMoveEvent(QMouseEvent* event)
{
    if (!from_)
        return;
    const QPointF moved = QPointF(event->pos() - *from_) / (dots() * millimetresOfUnit(sheet_));
    from_ = event->pos();
    emit centerMoved(sheet_.center - QPointF(moved.x(), -moved.y()));
}

// --- the dialog

PrintDialog::PrintDialog(NcDbDatabase& drawing, const Sheet& start, const QRectF& seen, QSettings& settings,
                         QWidget* parent)
    : QDialog(parent),
      drawing_(drawing),
      settings_(settings),
      sheet_(start),
      list_(
          recordDrawing(drawing, start.millimetres ? QStringLiteral("*Paper_Space") : QStringLiteral("*Model_Space"))),
      seen_(seen),
      preview_(new SheetPreview),
      paper_(new QComboBox),
      direction_(new QComboBox),
      scale_(new QComboBox),
      note_(new QLabel)
{
    setObjectName(QStringLiteral("printDialog"));
    setWindowTitle(QStringLiteral("Печать"));
    sheet_.paper = settings.value(kSettings + "paper", sheet_.paper).toString();
    sheet_.landscape = settings.value(kSettings + "landscape", sheet_.landscape).toBool();
    sheet_.organisation = settings.value(kSettings + "organisation").toString();
    sheet_.author = settings.value(kSettings + "author").toString();
    place(seen_.isEmpty() ? list_.box() : seen_);
    tellMap(drawing_, list_, sheet_);
    auto* row = new QHBoxLayout(this);
    row->addLayout(makeFields());
    row->addWidget(preview_, 1);
    connect(preview_, &SheetPreview::centerMoved, this, [this](const QPointF& center) {
        sheet_.center = center;
        refresh();
    });
    fit(seen_.isEmpty() ? list_.box() : seen_);
    resize(1000, 640);
}

QLineEdit* PrintDialog::addField(QLayout* form, const QString& caption, const char* name, QString Sheet::*field)
{
    auto* edit = new QLineEdit(sheet_.*field);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * kFieldLength);
    edit->setCursorPosition(0);
    static_cast<QFormLayout*>(form)->addRow(caption, edit);
    connect(edit, &QLineEdit::textChanged, this, [this, field](const QString& text) {
        sheet_.*field = text;
        refresh();
    });
    return edit;
}

QCheckBox* PrintDialog::addCheck(QLayout* column, const QString& caption, const char* name, bool Sheet::*field)
{
    auto* check = new QCheckBox(caption);
    check->setObjectName(QString::fromLatin1(name));
    check->setChecked(sheet_.*field);
    column->addWidget(check);
    connect(check, &QCheckBox::toggled, this, [this, field](bool on) {
        sheet_.*field = on;
        refresh();
    });
    return check;
}

QLayout* PrintDialog::makeFields()
{
    auto* column = new QVBoxLayout;
    auto* form = new QFormLayout;
    column->addLayout(form);
    addPaperFields(form);
    addField(form, QStringLiteral("&Чертёж:"), "printTitle", &Sheet::title);
    addField(form, QStringLiteral("О&бъект:"), "printProject", &Sheet::project);
    addField(form, QStringLiteral("Организаци&я:"), "printOrganisation", &Sheet::organisation);
    addField(form, QStringLiteral("Исполни&тель:"), "printAuthor", &Sheet::author);
    addField(form, QStringLiteral("&Цикл:"), "printCycle", &Sheet::cycle);
    addField(form, QStringLiteral("&Глубина, отметка:"), "printDepth", &Sheet::depth);
    addField(form, QStringLiteral("&Дата:"), "printDate", &Sheet::date);
    addCheck(column, QStringLiteral("&Рамка"), "printFrame", &Sheet::frame);
    addCheck(column, QStringLiteral("&Штамп"), "printBlock", &Sheet::titleBlock);
    addCheck(column, QStringLiteral("Масштабная л&инейка"), "printBar", &Sheet::scaleBar);
    addCheck(column, QStringLiteral("Стрелка на &север"), "printNorth", &Sheet::northArrow);
    addCheck(column, QStringLiteral("&Условные обозначения"), "printLegend", &Sheet::legend);
    note_->setObjectName(QStringLiteral("printNote"));
    note_->setWordWrap(true);
    column->addWidget(note_);
    column->addStretch(1);
    column->addWidget(makeEnds());
    return column;
}

void PrintDialog::addPaperFields(QFormLayout* form)
{
    paper_->setObjectName(QStringLiteral("printPaper"));
    paper_->addItems(paperNames());
    paper_->setCurrentText(sheet_.paper);
    direction_->setObjectName(QStringLiteral("printDirection"));
    direction_->addItems({QStringLiteral("Альбомный"), QStringLiteral("Книжный")});
    direction_->setCurrentIndex(sheet_.landscape ? 0 : 1);
    scale_->setObjectName(QStringLiteral("printScale"));
    scale_->setEditable(true);
    for (const double scale : usualScales())
        scale_->addItem(scaleText(scale));
    form->addRow(QStringLiteral("Ф&ормат:"), paper_);
    form->addRow(QStringLiteral("&Лист:"), direction_);
    form->addRow(QStringLiteral("&Масштаб:"), scale_);
    auto* places = new QHBoxLayout;
    for (const bool whole : {true, false}) {
        auto* button = new QPushButton(whole ? QStringLiteral("&Весь чертёж") : QStringLiteral("Что на &экране"));
        button->setObjectName(whole ? QStringLiteral("printAll") : QStringLiteral("printSeen"));
        button->setAutoDefault(false);
        places->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, whole] { fit(whole ? list_.box() : seen_); });
    }
    form->addRow(places);
    connect(paper_, &QComboBox::currentTextChanged, this, [this](const QString& name) {
        sheet_.paper = name;
        refresh();
    });
    connect(direction_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        sheet_.landscape = index == 0;
        refresh();
    });
    connect(scale_, &QComboBox::editTextChanged, this, &PrintDialog::takeScale);
}

QWidget* PrintDialog::makeEnds()
{
    auto* ends = new QDialogButtonBox;
    auto* pdf = ends->addButton(QStringLiteral("В &PDF…"), QDialogButtonBox::AcceptRole);
    auto* paper = ends->addButton(QStringLiteral("На при&нтер…"), QDialogButtonBox::ApplyRole);
    auto* close = ends->addButton(QStringLiteral("&Закрыть"), QDialogButtonBox::RejectRole);
    pdf->setObjectName(QStringLiteral("printPdf"));
    paper->setObjectName(QStringLiteral("printPrinter"));
    connect(pdf, &QPushButton::clicked, this, &PrintDialog::pdfWanted);
    connect(paper, &QPushButton::clicked, this, &PrintDialog::printWanted);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    return ends;
}

void PrintDialog::place(const QRectF& world)
{
    sheet_.center = world.center();
    sheet_.scale = sheet_.millimetres ? 1.0 : fittingScale(sheet_, world);
}

void PrintDialog::fit(const QRectF& world)
{
    place(world);
    scale_->setEditText(scaleText(sheet_.scale));
    refresh();
}

void PrintDialog::takeScale(const QString& text)
{
    if (const double scale = readScale(text); scale > 0.0) {
        sheet_.scale = scale;
        refresh();
    } else {
        note_->setText(QStringLiteral("Масштаб пишется так: 1:500."));
    }
}

void PrintDialog::refresh()
{
    sheet_.signs = legendOf(drawing_, list_, sheet_);
    settings_.setValue(kSettings + "paper", sheet_.paper);
    settings_.setValue(kSettings + "landscape", sheet_.landscape);
    settings_.setValue(kSettings + "organisation", sheet_.organisation);
    settings_.setValue(kSettings + "author", sheet_.author);
    // A line along an axis has no area, and no rectangle meets what has none.
    const QRectF box = list_.box(), shown = shownWorld(sheet_), all = box.adjusted(-1e-6, -1e-6, 1e-6, 1e-6);
    note_->setText(box.isNull()              ? QStringLiteral("Чертёж пуст.")
                       : shown.contains(all) ? QStringLiteral("Чертёж помещается целиком.")
                       : shown.intersects(all) ? QStringLiteral("На лист попадает часть чертежа.")
                                               : QStringLiteral("На лист не попадает ничего."));
    preview_->show(sheet_, list_);
}
