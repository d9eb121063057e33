// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_SUPPORT_COREFIXTURE_H
#define TESTS_PLUGINS_IDECORE_SUPPORT_COREFIXTURE_H

#include <QString>
#include <QStringList>

#include <initializer_list>
#include <memory>

class QMenu;
class QObject;
class QVariant;

namespace Core {
class IdeCore;
}

/// The core, initialised as its plugin does it and shut down at the end of the
/// scope. The main window exists and stays hidden until show().
///
/// The settings lie in a folder of the test program's own, also when it runs
/// without its isolating script.
class CoreFixture final
{
public:
    /// Drop starts with empty settings, Keep with what an earlier fixture or
    /// storeSetting() left.
    enum class Settings { Drop, Keep };

    explicit CoreFixture(Settings settings = Settings::Drop);
    ~CoreFixture();
    CoreFixture(const CoreFixture &) = delete;
    CoreFixture &operator=(const CoreFixture &) = delete;

    /// Shows the main window and waits until it is exposed and, where there is a
    /// window manager, active.
    void show();
    /// Shuts down before the end of the scope.
    void shutdown();

    // The stores without a running core; @p store is "IDE" or "IDE_GUI".
    static void dropSettings();
    static QVariant storedSetting(const QString &key, const QString &store = QStringLiteral("IDE"));
    static void storeSetting(const QString &key, const QVariant &value,
                             const QString &store = QStringLiteral("IDE"));
    static QString settingsFile(const QString &store = QStringLiteral("IDE"));

private:
    std::unique_ptr<Core::IdeCore> m_core;
};

/// Keeps an object in the pool of the plugin host for the duration of a scope.
class InPool final
{
public:
    explicit InPool(QObject *object);
    ~InPool();
    InPool(const InPool &) = delete;
    InPool &operator=(const InPool &) = delete;

private:
    QObject *m_object;
};

/// A list of texts, written shortly.
QStringList texts(std::initializer_list<const char *> list);

/// The entries of @p menu as they stand, hidden ones included: texts with their
/// mnemonics, "--" for a separator, "> " in front of a sub-menu's title, "[x] "
/// or "[ ] " in front of what is checkable.
QStringList menuEntries(const QMenu *menu);

#endif // TESTS_PLUGINS_IDECORE_SUPPORT_COREFIXTURE_H
