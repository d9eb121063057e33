// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projectfolder.h"

#include <fpgaproject/file/projectdocument.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

ProjectFolder::ProjectFolder(const QStringList &files)
{
    Fpga::ProjectDocument document;
    document.setName(QStringLiteral("Test"));
    for (const QString &file : files) {
        const bool missing = file.startsWith(QLatin1Char('!'));
        Fpga::FileEntry entry;
        entry.path = missing ? file.mid(1) : file;
        entry.kind = Fpga::fileKindOf(entry.path);
        document.addFile(entry);
        if (!missing)
            put(file);
    }
    put(QStringLiteral("p.kprj"), document.toXml());
}

QString ProjectFolder::path(const QString &name) const
{
    return name.isEmpty() ? QDir(m_folder.path()).canonicalPath()
                          : QDir(m_folder.path()).canonicalPath() + QLatin1Char('/') + name;
}

QString ProjectFolder::put(const QString &name, const QByteArray &contents) const
{
    const QString whole = path(name);
    QDir().mkpath(QFileInfo(whole).absolutePath());
    QFile file(whole);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write %s", qPrintable(whole));
    return whole;
}

QByteArray ProjectFolder::contents(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}
