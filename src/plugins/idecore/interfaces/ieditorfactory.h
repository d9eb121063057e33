// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IEDITORFACTORY_H
#define IDECORE_INTERFACES_IEDITORFACTORY_H

#include <idecore/idecore_export.h>

#include <QObject>
#include <QStringList>

namespace Core {

class IEditor;

/// Makes editors for the files of certain MIME types.
///
/// Put into the object pool by its plugin, which owns it; among factories of
/// the same type the one that came first wins.
class IDECORE_EXPORT IEditorFactory : public QObject
{
    Q_OBJECT
public:
    explicit IEditorFactory(QObject *parent = nullptr);
    ~IEditorFactory() override;

    /// Unique among all factories; never shown.
    [[nodiscard]] virtual QString id() const = 0;
    /// What a user reads where editors are offered for choice.
    [[nodiscard]] virtual QString displayName() const = 0;
    /// The names of the MIME types whose files the editors can show. Types
    /// derived from one of these are opened too where nothing fits better.
    [[nodiscard]] virtual QStringList mimeTypes() const = 0;
    /// A new editor that has not opened a file yet; the caller owns it.
    [[nodiscard]] virtual IEditor *createEditor() = 0;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IEDITORFACTORY_H
