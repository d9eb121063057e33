// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/gotopanel_p.h>

#include <fpgaproject/fpgaprojectconstants.h>
#include <fpgaproject/panel/projectpanel_p.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/interfaces/iview.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QApplication>
#include <QKeySequence>

namespace Fpga {

GoToPanel::GoToPanel(ProjectPanel *panel)
    : m_panel(panel)
    , m_action(new QAction(tr("Go to Project Panel")))
{
    m_action->setShortcut(QKeySequence(int(Qt::ALT) + int(Qt::Key_1)));
    connect(m_action, &QAction::triggered, this, &GoToPanel::run);
    // It is in no menu; the window is where its key is pressed.
    Core::ViewManager::mainWindow()->addAction(
        Core::ActionManager::registerAction(m_action, QLatin1String(Constants::A_PROJECT_PANEL)));
}

GoToPanel::~GoToPanel()
{
    // The registry may be gone before the plugin, and the action with it.
    if (!m_action)
        return;
    Core::ActionManager::unregisterAction(QLatin1String(Constants::A_PROJECT_PANEL));
    delete m_action;
}

void GoToPanel::run()
{
    if (!m_panel)
        return;
    if (m_panel->isAncestorOf(QApplication::focusWidget())) {
        if (Core::IView *const view = Core::ViewManager::currentView())
            view->setFocus();
        return;
    }
    Core::ViewManager::showPanel(m_panel);
    m_panel->setFocus();
}

} // namespace Fpga
