// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_FPGAPROJECT_PROJECTFOLDER_H
#define TESTS_PLUGINS_FPGAPROJECT_PROJECTFOLDER_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A folder with a project file in it and the files it lists.
class ProjectFolder final
{
public:
    /// Makes the files of the project, too, unless a name starts with "!", which
    /// lists a missing one.
    explicit ProjectFolder(const QStringList &files = {});

    [[nodiscard]] QString path(const QString &name = QString()) const;
    [[nodiscard]] QString project() const { return path(QStringLiteral("p.kprj")); }
    /// Writes a file, and the folders to it.
    QString put(const QString &name, const QByteArray &contents = "\n") const;
    [[nodiscard]] QByteArray contents(const QString &name) const;

private:
    QTemporaryDir m_folder;
};

#endif // TESTS_PLUGINS_FPGAPROJECT_PROJECTFOLDER_H
