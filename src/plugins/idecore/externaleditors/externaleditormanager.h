// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_EXTERNALEDITORMANAGER_H
#define IDECORE_EXTERNALEDITORS_EXTERNALEDITORMANAGER_H

#include <idecore/idecore_export.h>

#include <QObject>

namespace Core {

/// The registry of external editor programs; offers nothing yet.
class IDECORE_EXPORT ExternalEditorManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ExternalEditorManager)
public:
    explicit ExternalEditorManager(QObject *parent = nullptr);
    ~ExternalEditorManager() override;
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_EXTERNALEDITORMANAGER_H
