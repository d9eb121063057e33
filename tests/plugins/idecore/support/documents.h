// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_SUPPORT_DOCUMENTS_H
#define TESTS_PLUGINS_IDECORE_SUPPORT_DOCUMENTS_H

#include "support/testview.h"

#include <QStringList>

class QAction;

namespace Core {
class IView;
}

namespace Utils {
class MdiArea;
class MdiSubWindow;
} // namespace Utils

/// A new view, shown as a document; with @p journal as TestView has it.
TestView *showTestView(const char *title, QStringList *journal = nullptr);

/// The document area of the main window.
Utils::MdiArea *documentArea();

/// The document's window that holds @p view; null when none does.
Utils::MdiSubWindow *windowOf(const Core::IView *view);

/// The views in the Window menu as it opens, told as by menuEntries().
QStringList listedViews();

/// The File menu's "Close", whatever view it names.
QAction *closeAction();
QAction *closeAllAction();

#endif // TESTS_PLUGINS_IDECORE_SUPPORT_DOCUMENTS_H
