// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APP_TRANSLATIONS_H
#define APP_TRANSLATIONS_H

class QString;

namespace Translations {

/// Installs the catalogues of the language that the user chose, those of Qt's
/// own dialogs included. @p folder is where the program's catalogues lie. English,
/// no choice and a wrong one need none.
void install(const QString &folder);

} // namespace Translations

#endif // APP_TRANSLATIONS_H
