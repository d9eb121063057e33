// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_EXTERNALEDITOROPTIONPAGE_H
#define IDECORE_EXTERNALEDITORS_EXTERNALEDITOROPTIONPAGE_H

#include <idecore/interfaces/ioptionspage.h>

namespace Core {

/// The page of the external editors; shows nothing yet.
class IDECORE_EXPORT ExternalEditorOptionPage final : public IOptionsPage
{
    Q_OBJECT
    Q_DISABLE_COPY(ExternalEditorOptionPage)
public:
    explicit ExternalEditorOptionPage(QObject *parent = nullptr);
    ~ExternalEditorOptionPage() override;

    QWidget *widget() override;
    void apply() override;
    void finish() override;
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_EXTERNALEDITOROPTIONPAGE_H
