// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pluginfolder.h"

#include <extsys/pluginmanager.h>
#include <extsys/pluginspec.h>

#include <QDir>
#include <QFile>

using ExtSys::PluginManager;
using ExtSys::PluginSpec;

static QString fileName(const QString &name)
{
    return QStringLiteral("lib%1.so").arg(name);
}

PluginFolder::PluginFolder(const QStringList &plugins)
{
    for (const QString &plugin : plugins)
        copy(fileName(plugin), fileName(plugin));
}

QString PluginFolder::path() const
{
    return QDir(m_dir.path()).canonicalPath();
}

QString PluginFolder::file(const QString &name) const
{
    return QDir(path()).filePath(fileName(name));
}

void PluginFolder::copy(const QString &source, const QString &target)
{
    const QString from = QDir(QStringLiteral(TEST_PLUGIN_DIR)).filePath(source);
    if (!QFile::copy(from, QDir(path()).filePath(target)))
        qFatal("cannot copy %s", qPrintable(from));
}

void PluginFolder::write(const QString &name, const QByteArray &content)
{
    QFile file(QDir(path()).filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

QByteArray PluginFolder::read(const QString &name) const
{
    QFile file(QDir(path()).filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

const PluginSpec *spec(const QString &name)
{
    const auto plugins = PluginManager::instance()->plugins();
    for (const PluginSpec *plugin : plugins) {
        if (plugin->name() == name)
            return plugin;
    }
    return nullptr;
}

const PluginSpec *specOfFile(const QString &path)
{
    const auto plugins = PluginManager::instance()->plugins();
    for (const PluginSpec *plugin : plugins) {
        if (plugin->filePath() == path)
            return plugin;
    }
    return nullptr;
}

QStringList foundNames()
{
    QStringList names;
    const auto plugins = PluginManager::instance()->plugins();
    for (const PluginSpec *plugin : plugins)
        names.append(plugin->name());
    return names;
}
