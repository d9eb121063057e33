// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_VIEWS_PANELDOCK_P_H
#define IDECORE_VIEWS_PANELDOCK_P_H

#include <QDockWidget>

namespace Core {

class IPanel;

namespace private_impl {

/// The dock of a panel; owns it, and tells when it goes on its own.
class PanelDock final : public QDockWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(PanelDock)
public:
    PanelDock(IPanel *panel, QWidget *parent);
    ~PanelDock() override;

Q_SIGNALS:
    /// The panel was destroyed or taken out; the dock is empty now.
    void panelLost();

protected:
    void childEvent(QChildEvent *event) override;

private:
    /// Compared only: what leaves may be cut down to a QObject already.
    const QObject *m_panel;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_VIEWS_PANELDOCK_P_H
