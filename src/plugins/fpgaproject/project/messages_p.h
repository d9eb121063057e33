// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PROJECT_MESSAGES_P_H
#define FPGAPROJECT_PROJECT_MESSAGES_P_H

#include <QString>

class QWidget;

namespace Fpga {

/// Tells the user that something failed, and why. Plain text, because the name of a
/// file may look like markup. Without @p parent over what is in front.
void showError(const QString &title, const QString &message, const QString &reason,
               QWidget *parent = nullptr);

/// True for an explicit yes; "No" is what Enter and Escape mean.
bool askYesNo(const QString &title, const QString &question, QWidget *parent = nullptr);

} // namespace Fpga

#endif // FPGAPROJECT_PROJECT_MESSAGES_P_H
