// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_LIBS_EXTSYS_PLUGINFOLDER_H
#define TESTS_LIBS_EXTSYS_PLUGINFOLDER_H

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

namespace ExtSys {
class PluginSpec;
}

/// A folder with copies of test plugins. Each copy is a library of its own, so
/// that what one test loaded tells nothing in the next.
class PluginFolder final
{
public:
    explicit PluginFolder(const QStringList &plugins = {});

    [[nodiscard]] QString path() const;
    /// The canonical path of lib@p name.so in the folder.
    [[nodiscard]] QString file(const QString &name) const;
    /// Copies @p source, relative to the folder of test plugins, as @p target.
    void copy(const QString &source, const QString &target);
    void write(const QString &fileName, const QByteArray &content);
    [[nodiscard]] QByteArray read(const QString &fileName) const;

private:
    QTemporaryDir m_dir;
};

/// The plugin of that name that the plugin manager found first; null when none.
const ExtSys::PluginSpec *spec(const QString &name);
/// The same, by the path of its file.
const ExtSys::PluginSpec *specOfFile(const QString &path);
/// The names of all that the plugin manager found, in its order.
QStringList foundNames();

#endif // TESTS_LIBS_EXTSYS_PLUGINFOLDER_H
