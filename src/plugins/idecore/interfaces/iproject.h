// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IPROJECT_H
#define IDECORE_INTERFACES_IPROJECT_H

#include <idecore/idecore_export.h>

#include <QObject>
#include <QStringList>

namespace Core {

/// An open project. Made by an IProjecctFactory, owned by the ProjectManager
/// while it is open.
class IDECORE_EXPORT IProject : public QObject
{
    Q_OBJECT
public:
    explicit IProject(QObject *parent = nullptr);
    ~IProject() override;

    [[nodiscard]] virtual QString displayName() const = 0;
    /// The path of the project file.
    [[nodiscard]] virtual QString fileName() const = 0;
    /// The project's directory; new files go into its folder "src".
    [[nodiscard]] virtual QString projectDir() const = 0;
    /// Reads the project file. Reports its own errors.
    virtual bool open(const QString &fileName) = 0;
    /// False when the user refused: the project stays open.
    virtual bool close() = 0;
    /// The test made before another project is closed for this one; tells the
    /// user why when it refuses.
    virtual bool canOpen(const QString &fileName) = 0;
    /// The project's files, as absolute paths.
    [[nodiscard]] virtual QStringList files() const = 0;
    /// Adds files, given as absolute paths; false when one could not be added.
    virtual bool addFiles(const QStringList &files) = 0;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IPROJECT_H
