// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/modaldialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

ModalDialog::ModalDialog(Handler handler)
    : m_handler(std::move(handler))
    , m_timer(new QTimer(this))
{
    m_timer->setInterval(10);
    connect(m_timer, &QTimer::timeout, this, &ModalDialog::look);
    m_timer->start();
}

ModalDialog::~ModalDialog()
{
    if (!m_met)
        QTest::qFail("no modal dialog came", __FILE__, __LINE__);
}

ModalDialog::Handler ModalDialog::press(int button)
{
    return [button](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QAbstractButton *found =
            box ? box->button(static_cast<QMessageBox::StandardButton>(button)) : nullptr;
        if (!found) {
            QTest::qFail("the dialog is no message box with that button", __FILE__, __LINE__);
            if (auto *dialog = qobject_cast<QDialog *>(widget))
                dialog->reject();
            return;
        }
        // Not with the mouse: on a busy machine the dialog is met before it has its
        // size, and a button without height cannot be hit.
        found->click();
    };
}

ModalDialog::Handler ModalDialog::cancel()
{
    return [](QWidget *widget) { QTest::keyClick(widget, Qt::Key_Escape); };
}

ModalDialog::Handler ModalDialog::onceFocused(const std::function<void()> &acts)
{
    return [acts](QWidget *widget) {
        const QPointer<QWidget> shown(widget);
        const bool focused =
            QTest::qWaitFor([widget] { return widget->isAncestorOf(QApplication::focusWidget()); });
        if (focused)
            acts();
        else
            QTest::qFail("the dialog did not get the focus", __FILE__, __LINE__);
        if (shown && shown->isVisible()) {
            QTest::qFail("the dialog stayed open", __FILE__, __LINE__);
            qobject_cast<QDialog *>(widget)->reject();
        }
    };
}

void ModalDialog::look()
{
    QWidget *widget = QApplication::activeModalWidget();
    if (!widget || m_met)
        return;
    m_met = true;
    m_timer->stop();
    m_title = widget->windowTitle();
    m_parent = widget->parentWidget();
    if (auto *box = qobject_cast<QMessageBox *>(widget)) {
        m_text = box->text();
        m_icon = box->icon();
    }
    m_handler(widget);
}
