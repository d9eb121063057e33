// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_CORE_MESSAGES_P_H
#define IDECORE_CORE_MESSAGES_P_H

#include <QMessageBox>

namespace Core {
namespace private_impl {

/// Shows a message with an "OK" button. Plain text, unlike what the static
/// functions of QMessageBox show: a file's name may look like markup.
void showMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                 const QString &text);

/// Shows @p message and, on a line of its own, @p reason over the main window;
/// either may be empty.
void showError(const QString &title, const QString &message, const QString &reason);

} // namespace private_impl
} // namespace Core

#endif // IDECORE_CORE_MESSAGES_P_H
