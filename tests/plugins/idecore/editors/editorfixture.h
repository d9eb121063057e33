// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_EDITORS_EDITORFIXTURE_H
#define TESTS_PLUGINS_IDECORE_EDITORS_EDITORFIXTURE_H

#include "support/corefixture.h"
#include "support/testeditor.h"

#include <idecore/mimedatabase/mimetype.h>

#include <QTemporaryDir>

/// The core with an editor for plain text in the pool, and a folder for files.
class EditorFixture final
{
public:
    /// @p folderTemplate is where the folder is made, by default below that of the
    /// test run.
    explicit EditorFixture(const QString &folderTemplate = QString());
    EditorFixture(const EditorFixture &) = delete;
    EditorFixture &operator=(const EditorFixture &) = delete;

    // In this order, because the editors go with the core.
    QTemporaryDir folder;
    TestEditorFactory factory;
    CoreFixture core;

    /// Writes a file into the folder and gives its path.
    QString makeFile(const QString &name, const QByteArray &content = "text\n") const;

private:
    const InPool m_inPool;
};

/// Adds a type to the database of the running core; without a @p suffix no file
/// has it.
void addType(const QString &name, const QString &suffix = {}, const QStringList &parents = {});
Core::MimeType mimeType(const QString &name);

#endif // TESTS_PLUGINS_IDECORE_EDITORS_EDITORFIXTURE_H
