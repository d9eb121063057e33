// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MAINWINDOW_PANEFOCUS_P_H
#define IDECORE_MAINWINDOW_PANEFOCUS_P_H

#include <QObject>

class QMainWindow;
class QWidget;

namespace Utils {
class MdiArea;
}

namespace Core {
namespace private_impl {

/// Moves the focus between the documents and the panels by keys: in an editor, Tab
/// belongs to the text.
class PaneFocus final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(PaneFocus)
public:
    /// Registers the two commands. Both widgets outlive it; @p window is its parent.
    PaneFocus(QMainWindow *window, Utils::MdiArea *documents);
    ~PaneFocus() override;

private:
    void addCommand(const char *commandId, const QString &text, const QKeySequence &key, int step);
    /// What can be seen and take the focus, as it lies: from left to right, from top
    /// to bottom.
    [[nodiscard]] QList<QWidget *> panes() const;
    void move(int step);
    void enter(QWidget *pane) const;

    QMainWindow *const m_window;
    Utils::MdiArea *const m_documents;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_MAINWINDOW_PANEFOCUS_P_H
