// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appstyle/themepalette_p.h"

#include <QColor>

namespace APPSTYLE {

namespace {

constexpr QRgb toolTipText = 0xffe6e7e9;

struct Colours
{
    QRgb window;
    QRgb base;
    QRgb alternateBase;
    QRgb button;
    QRgb text;
    QRgb disabledText;
    QRgb placeholder;
    QRgb highlight;
    QRgb disabledHighlight;
    QRgb link;
    QRgb linkVisited;
    QRgb toolTip;
    QRgb brightText;
    // Edges, from the lit side to the shadow.
    QRgb light;
    QRgb midlight;
    QRgb mid;
    QRgb dark;
    QRgb shadow;
};

constexpr Colours classic{0xffefefef, 0xffffffff, 0xfff5f6f7, 0xfff4f4f4, 0xff1d1f23, 0xff787c82,
                          0xff666b72, 0xff1f6fb8, 0xffb4bac1, 0xff1a5fa8, 0xff6b3fa0, 0xff121316,
                          0xffb3261e, 0xffffffff, 0xffe4e5e7, 0xffb9bcc0, 0xff9da1a6, 0xff6c7075};
constexpr Colours nightly{0xff2b2d31, 0xff1d1f23, 0xff232529, 0xff36393f, 0xffe6e7e9, 0xff959aa2,
                          0xffb4b9c0, 0xff377ab4, 0xff43474e, 0xff6cb2f5, 0xffbd9bf0, 0xff121316,
                          0xffff8a80, 0xff4c5058, 0xff3f434a, 0xff25272b, 0xff1b1c1f, 0xff0e0f11};

void fill(QPalette &palette, QPalette::ColorGroup group, const Colours &colours, QRgb text,
          QRgb highlight, QRgb highlightedText)
{
    const auto set = [&](QPalette::ColorRole role, QRgb colour) {
        palette.setColor(group, role, QColor(colour));
    };
    set(QPalette::Window, colours.window);
    set(QPalette::WindowText, text);
    set(QPalette::Base, colours.base);
    set(QPalette::AlternateBase, colours.alternateBase);
    set(QPalette::Text, text);
    set(QPalette::Button, colours.button);
    set(QPalette::ButtonText, text);
    // A tool tip may tell of something disabled; it is never disabled itself. It is
    // dark in either theme: the keys in the tool tips of commands are "gray", which
    // can be read on hardly anything else.
    set(QPalette::ToolTipBase, colours.toolTip);
    set(QPalette::ToolTipText, toolTipText);
    set(QPalette::PlaceholderText, group == QPalette::Disabled ? text : colours.placeholder);
    set(QPalette::BrightText, colours.brightText);
    set(QPalette::Highlight, highlight);
    set(QPalette::HighlightedText, highlightedText);
    set(QPalette::Link, group == QPalette::Disabled ? text : colours.link);
    set(QPalette::LinkVisited, group == QPalette::Disabled ? text : colours.linkVisited);
    set(QPalette::Light, colours.light);
    set(QPalette::Midlight, colours.midlight);
    set(QPalette::Mid, colours.mid);
    set(QPalette::Dark, colours.dark);
    set(QPalette::Shadow, colours.shadow);
    set(QPalette::NoRole, colours.window);
}

QPalette paletteOf(const Colours &colours)
{
    constexpr QRgb white = 0xffffffff;
    QPalette palette;
    fill(palette, QPalette::Active, colours, colours.text, colours.highlight, white);
    // The same as the active group: where they differ, every widget of a window is
    // painted anew whenever the window becomes the active one.
    fill(palette, QPalette::Inactive, colours, colours.text, colours.highlight, white);
    fill(palette, QPalette::Disabled, colours, colours.disabledText, colours.disabledHighlight,
         colours.text);
    return palette;
}

} // namespace

QPalette lightPalette()
{
    return paletteOf(classic);
}

QPalette darkPalette()
{
    return paletteOf(nightly);
}

QPalette toolTipPalette(const QPalette &palette)
{
    QPalette toolTip(palette);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase})
        toolTip.setBrush(role, palette.brush(QPalette::ToolTipBase));
    for (const auto role : {QPalette::WindowText, QPalette::Text})
        toolTip.setBrush(role, palette.brush(QPalette::ToolTipText));
    toolTip.setColor(QPalette::Link, nightly.link);
    toolTip.setColor(QPalette::LinkVisited, nightly.linkVisited);
    return toolTip;
}

} // namespace APPSTYLE
