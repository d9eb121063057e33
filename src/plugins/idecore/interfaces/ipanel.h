// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IPANEL_H
#define IDECORE_INTERFACES_IPANEL_H

#include <idecore/idecore_export.h>

#include <QWidget>

namespace Core {

/// A tool window docked at a side of the main window.
class IDECORE_EXPORT IPanel : public QWidget
{
    Q_OBJECT
public:
    explicit IPanel(QWidget *parent = nullptr);
    ~IPanel() override;

    /// The title of the dock; the window title by default.
    [[nodiscard]] virtual QString displayName() const;
    /// Unique among all panels: names the dock and finds it again.
    [[nodiscard]] virtual QString name() const = 0;
    /// Where the panel docks first, and again when the layout is reset.
    [[nodiscard]] virtual Qt::DockWidgetArea area() const = 0;
    /// Where the user may dock it; all four areas by default.
    [[nodiscard]] virtual Qt::DockWidgetAreas allowedAreas() const;
    /// Within one area, panels of a larger priority come first; 50 by default.
    [[nodiscard]] virtual int layoutPriority() const;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IPANEL_H
