// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PROJECT_PROJECTEDITORS_P_H
#define FPGAPROJECT_PROJECT_PROJECTEDITORS_P_H

#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>

namespace Core {
class IEditor;
}

namespace Fpga {

/// The open editors of files of a project.
class ProjectEditors final
{
    Q_DECLARE_TR_FUNCTIONS(Fpga::ProjectEditors)
public:
    /// Of @p files, absolute paths. A file that is open by way of a link counts.
    explicit ProjectEditors(const QStringList &files);

    [[nodiscard]] bool isEmpty() const { return m_editors.isEmpty(); }
    [[nodiscard]] bool isModified() const;

    /// Asks once for all with unsaved changes (Save All, Discard, Cancel) and closes
    /// the editors, also those without. False, and all still open, when the user
    /// cancelled or one could not be saved, which the user has been told.
    [[nodiscard]] bool close(const QString &projectName);

private:
    enum class Answer { Save, Discard, Cancel };

    [[nodiscard]] QList<Core::IEditor *> modified() const;
    [[nodiscard]] Answer ask(const QString &projectName) const;
    [[nodiscard]] bool saveAll() const;
    static void closeUnasked(Core::IEditor *editor);

    QList<QPointer<Core::IEditor>> m_editors;
};

} // namespace Fpga

#endif // FPGAPROJECT_PROJECT_PROJECTEDITORS_P_H
