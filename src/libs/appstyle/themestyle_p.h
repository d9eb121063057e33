// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPSTYLE_THEMESTYLE_P_H
#define APPSTYLE_THEMESTYLE_P_H

#include <QProxyStyle>

namespace APPSTYLE {

/// Fusion, with what it draws too faintly drawn so that it is seen on dark ground
/// as on light: check boxes, the focus, the current tab, title bars, icons in selected rows.
///
/// What is drawn follows the palette of the moment.
class ThemeStyle final : public QProxyStyle
{
    Q_OBJECT
    Q_DISABLE_COPY(ThemeStyle)
public:
    using QProxyStyle::polish;

    /// Has the object name "fusion".
    ThemeStyle();
    ~ThemeStyle() override;

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    /// What a style sheet has coloured too near to its ground is made readable: a
    /// style sheet does not know the theme.
    void drawItemText(QPainter *painter, const QRect &rect, int flags, const QPalette &palette,
                      bool enabled, const QString &text, QPalette::ColorRole role) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    /// The one place that makes the icons of selected rows, whoever drew them: nearly
    /// in the colour of the text beside them.
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap,
                                const QStyleOption *option) const override;
    /// Tells in Qt's file dialogs which label names which list: who hears the dialog is
    /// told nothing else about them.
    void polish(QWidget *widget) override;
    /// Draws the signs on the small buttons of bars and docks itself: they follow the
    /// theme, and a start does not load every plugin for pictures to read a file.
    QIcon standardIcon(StandardPixmap picture, const QStyleOption *option,
                       const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override;

private:
    /// Without what is kept from an earlier time.
    void drawPrimitiveItself(PrimitiveElement element, const QStyleOption *option,
                             QPainter *painter, const QWidget *widget) const;
};

} // namespace APPSTYLE

#endif // APPSTYLE_THEMESTYLE_P_H
