// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/project/messages_p.h>

#include <idecore/views/viewmanager.h>

#include <QMessageBox>

namespace Fpga {

void showError(const QString &title, const QString &message, const QString &reason, QWidget *parent)
{
    const QString text = reason.isEmpty() ? message : message + QLatin1Char('\n') + reason;
    QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Ok,
                    parent ? parent : Core::ViewManager::dialogParent());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool askYesNo(const QString &title, const QString &question, QWidget *parent)
{
    QMessageBox box(QMessageBox::Question, title, question, QMessageBox::Yes | QMessageBox::No,
                    parent ? parent : Core::ViewManager::dialogParent());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

} // namespace Fpga
