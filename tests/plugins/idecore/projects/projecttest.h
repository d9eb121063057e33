// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_PROJECTS_PROJECTTEST_H
#define TESTS_PLUGINS_IDECORE_PROJECTS_PROJECTTEST_H

#include "support/corefixture.h"
#include "support/testproject.h"

#include <idecore/projects/projectmanager.h>

#include <QObject>
#include <QTemporaryDir>

#include <memory>

/// A test that has, for each of its functions, a folder of its own and the core
/// with a factory of test projects in the pool.
class ProjectTest : public QObject
{
protected:
    void setUp()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_factory = std::make_unique<TestProjectFactory>();
        m_inPool = std::make_unique<InPool>(m_factory.get());
        m_core = std::make_unique<CoreFixture>();
    }
    void tearDown()
    {
        Core::ProjectManager::closeCurrentProject();
        m_core.reset();
        m_inPool.reset();
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<TestProjectFactory> m_factory;
    std::unique_ptr<InPool> m_inPool;
    std::unique_ptr<CoreFixture> m_core;
};

#endif // TESTS_PLUGINS_IDECORE_PROJECTS_PROJECTTEST_H
