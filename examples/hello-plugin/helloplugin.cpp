// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "helloplugin.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QMenu>
#include <QMessageBox>

namespace {

QString commandId()
{
    return QStringLiteral("HelloPlugin.Action.SayHello");
}

} // namespace

bool HelloPlugin::initialize()
{
    // The core is there already: it is among the plugin's dependencies.
    QMenu *tools = Core::ActionManager::menu(QString::fromLatin1(Core::Constants::M_TOOL));
    if (!tools)
        return false;

    // The registry owns the action and serves it through a proxy. Only the proxy
    // is shown: another plugin may serve the same id in a context of its own.
    auto *action = new QAction(tr("Say Hello"), this);
    connect(action, &QAction::triggered, this, &HelloPlugin::greet);
    tools->addAction(Core::ActionManager::registerAction(
        action, commandId(), QString::fromLatin1(Core::Constants::C_GLOBAL)));
    return true;
}

void HelloPlugin::extensionsInitialized()
{
    // Every plugin is initialised by now; this one has nothing to ask of them.
}

void HelloPlugin::shutDown()
{
    // What was put into the object pool would have to be taken out here, too.
    Core::ActionManager::unregisterAction(commandId());
}

void HelloPlugin::greet()
{
    QMessageBox::information(Core::ViewManager::dialogParent(), tr("Hello"),
                             tr("Hello from a plugin."));
}
