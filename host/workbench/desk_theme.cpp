#include "desk_theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace {

QPalette darkPalette()
{
    QPalette palette;
    const QColor ground(44, 49, 54), field(33, 37, 41), text(222, 226, 230), grey(128, 135, 142);
    const std::pair<QPalette::ColorRole, QColor> roles[] = {{QPalette::Window, ground},
                                                            {QPalette::WindowText, text},
                                                            {QPalette::Base, field},
                                                            {QPalette::AlternateBase, QColor(40, 45, 50)},
                                                            {QPalette::Text, text},
                                                            {QPalette::Button, QColor(54, 60, 66)},
                                                            {QPalette::ButtonText, text},
                                                            {QPalette::BrightText, QColor(255, 120, 120)},
                                                            {QPalette::ToolTipBase, field},
                                                            {QPalette::ToolTipText, text},
                                                            {QPalette::Link, QColor(77, 208, 225)},
                                                            {QPalette::Highlight, QColor(0, 120, 140)},
                                                            {QPalette::HighlightedText, Qt::white},
                                                            {QPalette::PlaceholderText, grey},
                                                            {QPalette::Mid, QColor(30, 33, 37)},
                                                            {QPalette::Light, QColor(70, 77, 84)},
                                                            {QPalette::Dark, QColor(26, 29, 32)},
                                                            {QPalette::Shadow, QColor(16, 18, 20)}};
    for (const auto& role : roles)
        palette.setColor(role.first, role.second);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, grey);
    return palette;
}

bool isDarkPalette(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

// The toolkit draws the edges of fields and boxes darker than what they stand on,
// which on dark windows nobody sees.
class DeskStyle : public QProxyStyle {
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (!isDarkPalette(option->palette))
            return;
        const QColor edge = option->palette.color(option->state & State_Enabled ? QPalette::Active : QPalette::Disabled,
                                                  QPalette::PlaceholderText);
        painter->save();
        painter->setBrush(Qt::NoBrush);
        painter->setPen(edge);
        if (element == PE_IndicatorItemViewItemCheck || element == PE_IndicatorCheckBox
            || (element == PE_FrameLineEdit && !(option->state & State_HasFocus)))
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        if (element == PE_IndicatorTabClose) {
            QRectF cross(0, 0, 8, 8);
            cross.moveCenter(QRectF(option->rect).center());
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(QPen(option->palette.color(QPalette::WindowText), 1.6));
            painter->drawLine(cross.topLeft(), cross.bottomRight());
            painter->drawLine(cross.topRight(), cross.bottomLeft());
        }
        painter->restore();
    }
};

} // namespace

void setDarkTheme(bool dark)
{
    static bool isDark = false, styled = false;
    if (!std::exchange(styled, true))
        QApplication::setStyle(new DeskStyle);
    if (dark != isDark)
        QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
    isDark = dark;
}
