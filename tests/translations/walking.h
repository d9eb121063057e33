// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_TRANSLATIONS_WALKING_H
#define TESTS_TRANSLATIONS_WALKING_H

#include "stations.h"

#include "support/modaldialog.h"

#include <QByteArray>
#include <QWidget>

class QAbstractButton;

// What the stations walk with. A step that cannot be made ends the program.

/// The one of that name in @p parent.
template<class Widget>
Widget *named(const QWidget *parent, const char *name)
{
    auto *widget = parent->findChild<Widget *>(QLatin1String(name));
    if (!widget)
        qFatal("%s has no %s", parent->metaObject()->className(), name);
    return widget;
}

/// Looks at the dialog that comes, then presses Escape.
ModalDialog::Handler lookAt(const Look &look, const QString &name);

/// Looks at the dialog that a click on @p button opens, then presses Escape in it.
void lookBehind(QAbstractButton *button, const Look &look, const QString &name);

/// Where the keys go that are typed into @p widget.
QWidget *typedInto(QWidget *widget);

/// Writes the file @p path, and makes the folders to it.
void write(const QString &path, const QByteArray &content);

#endif // TESTS_TRANSLATIONS_WALKING_H
