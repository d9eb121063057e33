// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_SUPPORT_TESTVIEW_H
#define TESTS_PLUGINS_IDECORE_SUPPORT_TESTVIEW_H

#include <idecore/interfaces/iview.h>

#include <QStringList>

#include <functional>

/// A view that refuses to close when told, and writes down what happens to it.
class TestView final : public Core::IView
{
    Q_OBJECT
public:
    /// With @p journal, several views write into one list, "<title> activated",
    /// "<title> deactivated", "<title> asked" (to close); it has to outlive them.
    explicit TestView(const QString &title, QStringList *journal = nullptr);

    bool refuseClose = false;
    /// Runs inside the close handling, before the answer is given.
    std::function<void()> whileClosing;
    /// Run inside onActivated() and onDeactivated().
    std::function<void()> whileActivated;
    std::function<void()> whileDeactivated;
    int activated = 0;
    int deactivated = 0;
    int asked = 0;

    void onActivated() override;
    void onDeactivated() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void note(const char *what);

    QStringList *m_journal;
};

#endif // TESTS_PLUGINS_IDECORE_SUPPORT_TESTVIEW_H
