// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_EXTERNALEDITORMANAGER_H
#define IDECORE_EXTERNALEDITORS_EXTERNALEDITORMANAGER_H

#include <idecore/externaleditors/externaleditor.h>
#include <idecore/idecore_export.h>

#include <QList>
#include <QObject>
#include <QStringList>

namespace Core {

/// The registry of the user's external editors, and whether they are to be used.
///
/// The operations are static and act on the one registry of the process; they change
/// memory only, and saveEditors() alone writes. GUI thread only, and only while the
/// core lives. No operation shows a message.
///
///     const ExternalEditor editor = ExternalEditorManager::defaultEditor();
///     if (ExternalEditorManager::isUseExtEditor() && !editor.name.isEmpty())
///         started = editor.open(path, line);
class IDECORE_EXPORT ExternalEditorManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ExternalEditorManager)
public:
    /// Makes a new registry from the settings, which takes the place of the former
    /// one: what was changed there and not saved is lost.
    explicit ExternalEditorManager(QObject *parent = nullptr);
    /// Ends the registry, whichever manager made it.
    ~ExternalEditorManager() override;

    /// Made by the first call, which thus reads the settings anew.
    static ExternalEditorManager *instance();

    /// Replaces an editor of the same name; false for an empty name.
    static bool registerEditor(const ExternalEditor &editor);
    static void unregisterEditor(const QString &name);
    /// A record without a name when there is no such editor.
    [[nodiscard]] static ExternalEditor editor(const QString &name);
    /// The names, in no particular order, which is that of editors(), too.
    [[nodiscard]] static QStringList allEditorId();
    [[nodiscard]] static QList<ExternalEditor> editors();
    /// A record without a name when no editor is the default one.
    [[nodiscard]] static ExternalEditor defaultEditor();
    /// Replaces all editors; of several with one name the last stays.
    static void applyData(const QList<ExternalEditor> &editors);

    /// Whether the user wants files to be opened outside.
    [[nodiscard]] static bool isUseExtEditor();
    static void setUseExtEdtior(bool use); // spelled so

    /// Writes the editors that have a name, and the switch, to the user's settings.
    static void saveEditors();

    /// Opens @p filePath at its first line; false when there is no such editor or
    /// its program did not start.
    static bool openEditor(const QString &editorName, const QString &filePath);
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_EXTERNALEDITORMANAGER_H
