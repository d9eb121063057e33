// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editorfixture.h"

#include <idecore/core/idecore.h>
#include <idecore/mimedatabase/mimedatabase.h>

#include <QFile>
#include <QTest>

EditorFixture::EditorFixture(const QString &folderTemplate)
    : folder(folderTemplate)
    , factory(texts({"text/plain"}))
    , m_inPool(&factory)
{
}

QString EditorFixture::makeFile(const QString &name, const QByteArray &content) const
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("the file could not be made", __FILE__, __LINE__);
    return file.fileName();
}

void addType(const QString &name, const QString &suffix, const QStringList &parents)
{
    Core::MimeType type;
    type.setType(name);
    type.setSubClassesOf(parents);
    if (!suffix.isEmpty())
        type.setGlobPatterns({Core::MimeGlobPattern(QStringLiteral("*.") + suffix)});
    if (!Core::IdeCore::mimeDatabase()->addMimeType(type))
        QTest::qFail("the type was not added", __FILE__, __LINE__);
}

Core::MimeType mimeType(const QString &name)
{
    return Core::IdeCore::mimeDatabase()->findByType(name);
}
