// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APP_TRANSLATIONS_H
#define APP_TRANSLATIONS_H

#include <QByteArray>
#include <QString>

/// The language of the program, which is the one that the user chose in it and
/// not that of the desktop.
///
/// It is made before the application, and its catalogues are installed as soon
/// as there is one: in between Qt learns its locale, which is what libraries with
/// texts of their own go by.
class Translations final
{
public:
    Translations();
    Q_DISABLE_COPY(Translations)

    /// Installs the catalogues, those of Qt's own dialogs included. @p folder is
    /// where the program's lie. English, no choice and a wrong one need none.
    void install(const QString &folder);

private:
    void tellLibraries(const QByteArray &language);

    bool m_chinese;
    bool m_told = false;
    bool m_wasSet = false;
    QByteArray m_previous;
};

#endif // APP_TRANSLATIONS_H
