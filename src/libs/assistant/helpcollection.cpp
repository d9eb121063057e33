// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "assistant/helpcollection_p.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace ASSISTANT {

namespace {

/// The time of the source is the mark of the copy: the viewer changes its size.
bool refresh(const QFileInfo &source, const QString &stamp, const QString &target)
{
    const QString wanted = QString::number(source.lastModified().toMSecsSinceEpoch())
                           + QLatin1Char(' ') + QString::number(source.size()) + QLatin1Char(' ')
                           + source.absoluteFilePath();
    QFile mark(stamp);
    if (QFile::exists(target) && mark.open(QIODevice::ReadOnly)
        && QString::fromUtf8(mark.readAll()) == wanted)
        return true;
    mark.close();

    QFile from(source.filePath());
    if (!from.open(QIODevice::ReadOnly))
        return false;
    QSaveFile to(target);
    if (!to.open(QIODevice::WriteOnly))
        return false;
    const QByteArray contents = from.readAll();
    // commit() passes over what fails while it empties the buffer.
    if (to.write(contents) != contents.size() || !to.flush() || !to.commit())
        return false;
    // Without the mark the file is only copied again next time.
    QSaveFile newMark(stamp);
    if (newMark.open(QIODevice::WriteOnly)) {
        newMark.write(wanted.toUtf8());
        newMark.commit();
    }
    return true;
}

} // namespace

QString writableCollection(const QString &collection)
{
    const QFileInfo source(collection);
    const QDir target(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                      + QStringLiteral("/KelmoWare/help"));
    if (!target.mkpath(QStringLiteral(".")))
        return collection;
    QFileInfoList files = source.dir().entryInfoList({QStringLiteral("*.qch")}, QDir::Files);
    files.append(source);
    for (const QFileInfo &file : qAsConst(files)) {
        const QString name = file.fileName();
        if (!refresh(file, target.filePath(name + QStringLiteral(".stamp")), target.filePath(name)))
            return collection;
    }
    return target.filePath(source.fileName());
}

} // namespace ASSISTANT
