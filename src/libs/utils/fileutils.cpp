// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/fileutils.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QHash>

namespace Utils {

namespace {
QHash<QString, QString> &lastFolders()
{
    static QHash<QString, QString> folders;
    return folders;
}
} // namespace

QString FileUtils::getOpenFileName(QWidget *parent, const QString &purpose, const QString &caption,
                                   const QString &directory, const QString &filter)
{
    QString start = lastFolders().value(purpose, directory);
    if (!QFileInfo(start).isDir())
        start = directory;
    const QString file = QFileDialog::getOpenFileName(parent, caption, start, filter);
    if (!file.isEmpty())
        lastFolders().insert(purpose, QFileInfo(file).absolutePath());
    return file;
}

} // namespace Utils
