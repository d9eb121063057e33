// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_ORDINARYUSER_H
#define TESTS_SUPPORT_ORDINARYUSER_H

#include <QTest>

#include <unistd.h>

/// The rights of an ordinary user, as long as it lives: nothing is forbidden to
/// the superuser.
class OrdinaryUser final
{
public:
    OrdinaryUser()
        : m_before(::geteuid())
    {
        // The real id as well: it is the one that access() asks for.
        if (m_before == 0 && ::setresuid(Id, Id, m_before) != 0)
            QTest::qFail("the rights could not be dropped", __FILE__, __LINE__);
    }
    ~OrdinaryUser()
    {
        if (::geteuid() != m_before && ::setresuid(m_before, m_before, m_before) != 0)
            QTest::qFail("the rights could not be taken back", __FILE__, __LINE__);
    }
    Q_DISABLE_COPY(OrdinaryUser)

private:
    static constexpr uid_t Id = 65534;

    const uid_t m_before;
};

#endif // TESTS_SUPPORT_ORDINARYUSER_H
