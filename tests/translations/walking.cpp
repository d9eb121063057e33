// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "walking.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

ModalDialog::Handler lookAt(const Look &look, const QString &name)
{
    return [look, name](QWidget *dialog) {
        look(dialog, name);
        QTest::keyClick(dialog, Qt::Key_Escape);
    };
}

void lookBehind(QAbstractButton *button, const Look &look, const QString &name)
{
    const ModalDialog dialog(lookAt(look, name));
    // Not with the mouse: the room for a button is what is looked at only now.
    button->click();
}

QWidget *typedInto(QWidget *widget)
{
    while (widget->focusProxy())
        widget = widget->focusProxy();
    return widget;
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).absolutePath()) || !file.open(QIODevice::WriteOnly)
        || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}
