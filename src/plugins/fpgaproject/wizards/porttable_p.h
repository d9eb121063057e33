// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_PORTTABLE_P_H
#define FPGAPROJECT_WIZARDS_PORTTABLE_P_H

#include <fpgaproject/hdl/sourcetemplate_p.h>

#include <QWidget>

class QTableWidget;

namespace Fpga {

/// The ports of a new module: name, direction and width, row by row.
class PortTable final : public QWidget
{
    Q_OBJECT
public:
    explicit PortTable(QWidget *parent = nullptr);
    ~PortTable() override;

    /// Rows without a name are left out.
    [[nodiscard]] QVector<Port> ports() const;

Q_SIGNALS:
    void changed();

private:
    void addPort();
    void removePort();

    QTableWidget *const m_table;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_PORTTABLE_P_H
