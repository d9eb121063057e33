// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/externaleditor.h>

#include <QFileInfo>
#include <QProcess>
#include <QRegExp>

namespace Core {

QStringList ExternalEditor::argumentsFor(const QString &filePath, int line) const
{
    // QRegExp knows every white space of Unicode as such.
    QStringList result = arguments.split(QRegExp(QStringLiteral("\\s")), Qt::SkipEmptyParts);
    for (QString &token : result) {
        // One after the other: "%l" in the path of the file counts as well.
        token.replace(QLatin1String("%f"), filePath);
        token.replace(QLatin1String("%l"), QString::number(line));
    }
    return result;
}

bool ExternalEditor::open(const QString &filePath, int line) const
{
    return QProcess::startDetached(program, argumentsFor(filePath, line),
                                   QFileInfo(filePath).absolutePath());
}

} // namespace Core
