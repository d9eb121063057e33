// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PROJECT_SAVEPROJECTAS_P_H
#define FPGAPROJECT_PROJECT_SAVEPROJECTAS_P_H

#include <fpgaproject/fpgaproject_export.h>

#include <QObject>
#include <QPointer>

class QAction;

namespace Core {
class IProject;
}

namespace Fpga {

/// "Save Project As..." of the File menu: makes a copy of the open project and opens
/// that.
class FPGAPROJECT_EXPORT SaveProjectAs final : public QObject
{
    Q_OBJECT
public:
    explicit SaveProjectAs(QObject *parent = nullptr);
    ~SaveProjectAs() override;

private:
    void onProjectChanged(Core::IProject *project);
    void run();

    QPointer<QAction> m_action;
};

} // namespace Fpga

#endif // FPGAPROJECT_PROJECT_SAVEPROJECTAS_P_H
