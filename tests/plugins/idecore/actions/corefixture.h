// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_ACTIONS_COREFIXTURE_H
#define TESTS_PLUGINS_IDECORE_ACTIONS_COREFIXTURE_H

#include <idecore/core/idecore.h>

/// The running core, from start to shut-down.
class CoreFixture final
{
    Q_DISABLE_COPY(CoreFixture)
public:
    CoreFixture() { m_core.initialize(); }
    ~CoreFixture() { m_core.shutdown(); }

private:
    Core::IdeCore m_core;
};

#endif // TESTS_PLUGINS_IDECORE_ACTIONS_COREFIXTURE_H
