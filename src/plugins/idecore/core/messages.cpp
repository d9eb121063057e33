// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/core/messages_p.h>

#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

namespace Core {
namespace private_impl {

void showMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox box(icon, title, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Ok);
    box.exec();
}

void showError(const QString &title, const QString &message, const QString &reason)
{
    QString text = message;
    if (!reason.isEmpty()) {
        if (!text.isEmpty())
            text += QLatin1Char('\n');
        text += reason;
    }
    showMessage(QMessageBox::Critical, ViewManager::mainWindow(), title, text);
}

} // namespace private_impl
} // namespace Core
