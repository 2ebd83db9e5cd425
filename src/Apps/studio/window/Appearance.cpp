// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Both themes use a style of ours, since the desktop's own style may ignore the palette.
#include "studio/window/Appearance.h"

#include "studio/window/StudioStyle.h"

#include <QApplication>
#include <QSettings>

namespace {

const QString kKey = QStringLiteral("appearance");

struct Colours
{
    QRgb window, base, alternate, button, text, hint, faint, bright, light, mid, dark, accent, link;
};

// White text on the accent has a contrast of 4.5, the accent on window and base one of 3.
constexpr Colours kLight{0xfff1f2f4, 0xffffffff, 0xfff6f7f9, 0xffe9ebee, 0xff1d2026, 0xff6b7079, 0xff8b9099,
                         0xffffffff, 0xffffffff, 0xffbfc4cc, 0xff9aa0aa, 0xff1f7a8c, 0xff14606f};
constexpr Colours kDark{0xff2b2d32, 0xff1d1f22, 0xff25272b, 0xff3c3f46, 0xffe6e8eb, 0xff9ca1aa, 0xff7d828b,
                        0xffffffff, 0xff54585f, 0xff474b52, 0xff15171a, 0xff24818f, 0xff6cc7d6};

QPalette paletteOf(const Colours& c)
{
    QPalette palette;
    const std::pair<QPalette::ColorRole, QRgb> roles[] = {
        {QPalette::Window, c.window},
        {QPalette::Base, c.base},
        {QPalette::AlternateBase, c.alternate},
        {QPalette::Button, c.button},
        {QPalette::WindowText, c.text},
        {QPalette::Text, c.text},
        {QPalette::ButtonText, c.text},
        {QPalette::PlaceholderText, c.hint},
        {QPalette::BrightText, c.bright},
        {QPalette::Light, c.light},
        {QPalette::Midlight, c.button},
        {QPalette::Mid, c.mid},
        {QPalette::Dark, c.dark},
        {QPalette::Shadow, 0xff000000},
        {QPalette::Highlight, c.accent},
        {QPalette::HighlightedText, 0xffffffff},
        {QPalette::Link, c.link},
        {QPalette::LinkVisited, c.link},
        {QPalette::ToolTipBase, c.button},
        {QPalette::ToolTipText, c.text},
    };
    for (const auto& [role, colour] : roles)
        palette.setColor(role, QColor::fromRgb(colour));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(c.faint));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor::fromRgb(c.mid));
    return palette;
}

bool systemIsDark()
{
    static const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    return dark;
}

} // namespace

void applyAppearance(Appearance appearance)
{
    // This must be found out before the application's palette is replaced for the first time.
    const bool asSystem = systemIsDark();
    const bool dark = appearance == Appearance::DARK || (appearance == Appearance::SYSTEM && asSystem);
    QApplication::setStyle(new StudioStyle);
    QApplication::setPalette(paletteOf(dark ? kDark : kLight));
}

Appearance storedAppearance()
{
    const QString text = QSettings().value(kKey).toString();
    return text == QLatin1String("light")  ? Appearance::LIGHT
           : text == QLatin1String("dark") ? Appearance::DARK
                                           : Appearance::SYSTEM;
}

void storeAppearance(Appearance appearance)
{
    QSettings().setValue(kKey, appearance == Appearance::LIGHT  ? QStringLiteral("light")
                               : appearance == Appearance::DARK ? QStringLiteral("dark")
                                                                : QStringLiteral("system"));
}
