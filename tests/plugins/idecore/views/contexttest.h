// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_VIEWS_CONTEXTTEST_H
#define TESTS_PLUGINS_IDECORE_VIEWS_CONTEXTTEST_H

#include "support/corefixture.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <QWidget>

#include <memory>

class QLineEdit;

/// The context that is always current.
inline constexpr char GLOBAL[] = "Core.Context.Global";

/// A window with two editing fields: "inner" within a panel, and "other", which
/// has the focus at first.
class FocusWindow final
{
public:
    FocusWindow();

    /// Waits until the focus has moved.
    static void focus(QWidget *widget);

    QWidget window;
    QWidget *panel;
    QLineEdit *inner;
    QLineEdit *other;
};

/// What the tests of the contexts start from: the running core, a window that has
/// the focus, and the lists that are reported from then on.
class ContextTest : public QObject
{
    Q_OBJECT
public:
    ~ContextTest() override;

protected:
    /// Writes the reports of the one view manager into m_changes.
    void record();

    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<FocusWindow> m_window;
    QList<QStringList> m_changes;

private Q_SLOTS:
    void init();
    void cleanup();
};

#endif // TESTS_PLUGINS_IDECORE_VIEWS_CONTEXTTEST_H
