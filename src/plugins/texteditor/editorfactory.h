// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_EDITORFACTORY_H
#define TEXTEDITOR_EDITORFACTORY_H

#include <idecore/interfaces/ieditorfactory.h>
#include <texteditor/texteditor_export.h>

namespace TextEditor {

class EditorEngine;

/// Makes text editors for plain text, HDL sources and constraint files.
///
/// The library with the engine is loaded by the first editor or settings page. Where that
/// fails, editors are made that refuse every file with the reason, and the next
/// createEditor() tries again.
class TEXTEDITOR_EXPORT EditorFactory final : public Core::IEditorFactory
{
    Q_OBJECT
public:
    explicit EditorFactory(QObject *parent = nullptr);
    /// With the engine in @p enginePath in place of the installed one.
    explicit EditorFactory(const QString &enginePath, QObject *parent = nullptr);
    ~EditorFactory() override;

    [[nodiscard]] QString id() const override;
    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] Core::IEditor *createEditor() override;

    /// What makes the editors, loaded by the first call; null, with the reason, when
    /// it cannot be loaded.
    [[nodiscard]] EditorEngine *engine(QString *errorString);

private:
    const QString m_enginePath;
    EditorEngine *m_engine = nullptr;
};

} // namespace TextEditor

#endif // TEXTEDITOR_EDITORFACTORY_H
