// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_EXTERNALEDITORS_EDITORTEXTS_H
#define TESTS_PLUGINS_IDECORE_EXTERNALEDITORS_EDITORTEXTS_H

#include <idecore/externaleditors/externaleditor.h>

#include <QList>
#include <QStringList>

/// An editor as one text: "name|program|arguments", with a "*" behind the default one.
inline QString asText(const Core::ExternalEditor &editor)
{
    return editor.name + QLatin1Char('|') + editor.program + QLatin1Char('|') + editor.arguments
           + (editor.isDefault ? QStringLiteral("*") : QString());
}

inline QStringList asTexts(const QList<Core::ExternalEditor> &editors)
{
    QStringList list;
    for (const Core::ExternalEditor &editor : editors)
        list.append(asText(editor));
    return list;
}

/// The same in alphabetical order, for what has none of its own.
inline QStringList sortedTexts(const QList<Core::ExternalEditor> &editors)
{
    QStringList list = asTexts(editors);
    list.sort();
    return list;
}

inline Core::ExternalEditor editorNamed(const char *name, bool isDefault = false)
{
    return {QString::fromUtf8(name), QStringLiteral("/bin/") + QString::fromUtf8(name),
            QStringLiteral("%f"), isDefault};
}

#endif // TESTS_PLUGINS_IDECORE_EXTERNALEDITORS_EDITORTEXTS_H
