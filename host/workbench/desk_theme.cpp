#include "desk_theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

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

} // namespace

void setDarkTheme(bool dark)
{
    static bool isDark = false;
    if (dark != isDark)
        QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
    isDark = dark;
}
