// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

void removeFromTestHome(const QString &path)
{
    const QDir home = QDir::home();
    if (qEnvironmentVariable("KELMO_TEST_HOME") != home.path())
        qFatal("This test clears its home. Run it by ctest, or through run-isolated.");
    const QString whole = home.filePath(path);
    if (QFileInfo(whole).isDir())
        QDir(whole).removeRecursively();
    else
        QFile::remove(whole);
}
