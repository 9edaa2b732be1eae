#include "color_dialog.h"

#include <drawing/palette.h>
#include <nrx/application.h>

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kCell = 17;
constexpr int kColumns = 24;

const QString kByLayerText = QStringLiteral("ПоСлою");
const QString kByBlockText = QStringLiteral("ПоБлоку");

// The palette as a picture: 24 hues of ten shades, then the named and grey ones.
class PaletteGrid : public QWidget {
public:
    explicit PaletteGrid(std::function<void(int)> chosen) : chosen_(std::move(chosen))
    {
        setFixedSize(kColumns * kCell + 1, 12 * kCell + 1);
        setMouseTracking(true);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        for (int row = 0; row < 12; ++row)
            for (int column = 0; column < kColumns; ++column)
                if (const int index = indexAt(row, column); index > 0)
                    paintCell(painter, row, column, index);
    }

    void mousePressEvent(QMouseEvent* event) override
    {
        const int index = indexAt(event->y() / kCell, event->x() / kCell);
        if (index > 0)
            chosen_(index);
    }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        const int index = indexAt(event->y() / kCell, event->x() / kCell);
        setToolTip(index > 0 ? QString::number(index) : QString());
    }

private:
    static void paintCell(QPainter& painter, int row, int column, int index)
    {
        const PaletteColor color = paletteColor(index);
        painter.setPen(QColor(120, 120, 120));
        painter.setBrush(QColor(color.red, color.green, color.blue));
        painter.drawRect(column * kCell, row * kCell, kCell, kCell);
    }

    static int indexAt(int row, int column)
    {
        if (row < 0 || column < 0 || column >= kColumns)
            return 0;
        if (row < 10)
            return 10 + 10 * column + row;
        if (row == 11 && column < 9)
            return 1 + column;
        if (row == 11 && column >= 10 && column < 16)
            return 240 + column;
        return 0;
    }

    std::function<void(int)> chosen_;
};

// Null for a text that names no colour.
std::optional<NcCmColor> readColor(const QString& text, bool trueColor, bool allowMeta)
{
    if (text.compare(kByLayerText, Qt::CaseInsensitive) == 0)
        return allowMeta ? std::optional(NcCmColor::fromIndex(256)) : std::nullopt;
    if (text.compare(kByBlockText, Qt::CaseInsensitive) == 0)
        return allowMeta ? std::optional(NcCmColor::fromIndex(0)) : std::nullopt;
    bool ok = false;
    const int index = text.toInt(&ok);
    if (ok && (allowMeta ? index >= 0 && index <= 256 : index >= 1 && index <= 255))
        return NcCmColor::fromIndex(index);
    const QStringList parts = text.split(QLatin1Char(','));
    int rgb[3] = {};
    for (int i = 0; trueColor && parts.size() == 3 && i < 3; ++i) {
        rgb[i] = parts[i].trimmed().toInt(&ok);
        if (!ok || rgb[i] < 0 || rgb[i] > 255)
            return std::nullopt;
    }
    return trueColor && parts.size() == 3 ? std::optional(NcCmColor::fromRGB(rgb[0], rgb[1], rgb[2])) : std::nullopt;
}

QString colorText(const NcCmColor& color)
{
    switch (color.method()) {
    case NcCmColor::kByLayer: return kByLayerText;
    case NcCmColor::kByBlock: return kByBlockText;
    case NcCmColor::kByIndex: return QString::number(color.colorIndex());
    case NcCmColor::kByColor: break;
    }
    return QStringList{QString::number(color.red()), QString::number(color.green()), QString::number(color.blue())}
        .join(QLatin1Char(','));
}

QColor shownColor(const NcCmColor& color)
{
    if (color.method() == NcCmColor::kByColor)
        return QColor(color.red(), color.green(), color.blue());
    const PaletteColor entry = paletteColor(color.method() == NcCmColor::kByIndex ? color.colorIndex() : 7);
    return QColor(entry.red, entry.green, entry.blue);
}

} // namespace

ColorDialog::ColorDialog(const NcCmColor& start, bool trueColor, bool allowMeta, QWidget* parent)
    : QDialog(parent),
      color_(start),
      trueColor_(trueColor),
      allowMeta_(allowMeta),
      value_(new QLineEdit),
      sample_(new QLabel)
{
    setWindowTitle(QStringLiteral("Выбор цвета"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(new PaletteGrid([this](int index) { choose(NcCmColor::fromIndex(index)); }));

    auto* row = new QHBoxLayout;
    column->addLayout(row);
    value_->setObjectName(QStringLiteral("colorValue"));
    sample_->setFixedSize(48, 22);
    row->addWidget(new QLabel(QStringLiteral("Цвет")));
    row->addWidget(value_);
    row->addWidget(sample_);
    const auto addButton = [row](const QString& text, const char* name) {
        auto* button = new QPushButton(text);
        button->setObjectName(QString::fromLatin1(name));
        row->addWidget(button);
        return button;
    };
    if (allowMeta) {
        connect(addButton(kByLayerText, "byLayerButton"), &QPushButton::clicked, this,
                [this] { choose(NcCmColor::fromIndex(256)); });
        connect(addButton(kByBlockText, "byBlockButton"), &QPushButton::clicked, this,
                [this] { choose(NcCmColor::fromIndex(0)); });
    }
    if (trueColor)
        connect(addButton(QStringLiteral("Другой…"), "otherButton"), &QPushButton::clicked, this,
                &ColorDialog::chooseOther);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(value_, &QLineEdit::textEdited, this, &ColorDialog::typed);
    choose(start);
}

void ColorDialog::choose(const NcCmColor& color)
{
    color_ = color;
    value_->setText(colorText(color));
    showColor();
}

void ColorDialog::typed(const QString& text)
{
    if (const auto color = readColor(text.trimmed(), trueColor_, allowMeta_)) {
        color_ = *color;
        showColor();
    }
}

void ColorDialog::chooseOther()
{
    const QColor chosen = QColorDialog::getColor(shownColor(color_), this, QStringLiteral("Другой цвет"));
    if (chosen.isValid())
        choose(NcCmColor::fromRGB(chosen.red(), chosen.green(), chosen.blue()));
}

void ColorDialog::showColor()
{
    QPixmap sample(sample_->size());
    sample.fill(shownColor(color_));
    sample_->setPixmap(sample);
}

PromptReply askColor(const PromptRequest& request)
{
    ColorDialog dialog(request.color, request.trueColor, request.allowMeta, ndsw_ncadMainWnd());
    PromptReply reply;
    reply.color = request.color;
    if (dialog.exec() == QDialog::Accepted) {
        reply.status = kPromptNormal;
        reply.color = dialog.color();
    }
    return reply;
}
