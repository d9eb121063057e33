// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_CORE_OPTIONPAGES_H
#define TESTS_PLUGINS_IDECORE_CORE_OPTIONPAGES_H

#include <extsys/pluginmanager.h>
#include <idecore/interfaces/ioptionspage.h>

#include <QObject>

/// The option pages in the pool, in its order.
inline QObjectList optionPages()
{
    QObjectList pages;
    const QList<Core::IOptionsPage *> found =
        ExtSys::PluginManager::instance()->getObjects<Core::IOptionsPage>();
    for (Core::IOptionsPage *page : found)
        pages.append(page);
    return pages;
}

#endif // TESTS_PLUGINS_IDECORE_CORE_OPTIONPAGES_H
