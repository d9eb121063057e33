// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_GENERALOPTIONPAGE_H
#define IDECORE_OPTIONS_GENERALOPTIONPAGE_H

#include <idecore/interfaces/ioptionspage.h>

namespace Core {

/// The general page; shows nothing yet.
class IDECORE_EXPORT GeneralOptionPage final : public IOptionsPage
{
    Q_OBJECT
    Q_DISABLE_COPY(GeneralOptionPage)
public:
    explicit GeneralOptionPage(QObject *parent = nullptr);
    ~GeneralOptionPage() override;

    QWidget *widget() override;
    void apply() override;
    void finish() override;
};

} // namespace Core

#endif // IDECORE_OPTIONS_GENERALOPTIONPAGE_H
