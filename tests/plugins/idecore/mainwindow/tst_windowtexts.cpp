// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Every text of the main window in another language.

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QTranslator>

#include <memory>

using namespace Core;

namespace {

/// Puts what the main window says into square brackets.
class Brackets final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        if (qstrcmp(context, "Core::IdeMainWindow") != 0)
            return {};
        return QLatin1Char('[') + QString::fromUtf8(text) + QLatin1Char(']');
    }
};

QString bracketed(const char *text)
{
    return QLatin1Char('[') + QString::fromLatin1(text) + QLatin1Char(']');
}

} // namespace

class TestWindowTexts final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void init()
    {
        QCoreApplication::installTranslator(&m_translator);
        m_core = std::make_unique<CoreFixture>();
    }

    void cleanup()
    {
        m_core.reset();
        QCoreApplication::removeTranslator(&m_translator);
    }

    void menusAreTranslated()
    {
        QStringList titles;
        const QList<QAction *> menus =
            ActionManager::menuBar(QStringLiteral("Core.MenuBar"))->actions();
        for (const QAction *menu : menus)
            titles.append(menu->text());
        QCOMPARE(titles, texts({"[&File]", "[&Edit]", "[&Tools]", "[&Window]", "[&Help]"}));
    }

    void entriesAreTranslated_data()
    {
        QTest::addColumn<QString>("menuId");
        QTest::addColumn<QStringList>("expected");
        const auto row = [](const char *menuId, const QStringList &expected) {
            QTest::newRow(menuId) << QString::fromLatin1(menuId) << expected;
        };
        row("Core.Menu.File", texts({"[&New...]", "[&Open...]", "[&Save]", "[Save &As...]",
                                     "[Save All]", "[&Print...]", "[&Exit]"}));
        row("Core.Menu.Edit", texts({"[&Undo]", "[&Redo]", "[Cu&t]", "[&Copy]", "[&Paste]",
                                     "[Select &All]", "[&Find && Replace]"}));
        row("Core.Menu.Tool", texts({"[&Options...]"}));
        row("Core.Menu.Window", texts({"[&Full Screen]", "[Tile]", "[Cascade]"}));
        row("Core.Menu.Help", texts({"[View Help]", "[Contact Us]", "[About...]"}));
    }

    void entriesAreTranslated()
    {
        QFETCH(const QString, menuId);
        QFETCH(const QStringList, expected);
        QStringList found;
        const QList<QAction *> entries = ActionManager::menu(menuId)->actions();
        for (const QAction *entry : entries) {
            // Others add entries of their own.
            if (entry->text().startsWith(QLatin1Char('[')))
                found.append(entry->text());
        }
        QCOMPARE(found, expected);
    }

    void toolTipsAreTranslated_data()
    {
        QTest::addColumn<QString>("menuId");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *menuId, const char *text, const char *toolTip) {
            QTest::newRow(text) << QString::fromLatin1(menuId) << bracketed(toolTip);
        };
        row("Core.Menu.File", "&New...", "New File or Project");
        row("Core.Menu.File", "&Open...", "Open File or Project");
        row("Core.Menu.File", "&Save", "Save");
        row("Core.Menu.File", "Save &As...", "Save As");
        row("Core.Menu.File", "Save All", "Save All");
        row("Core.Menu.File", "&Print...", "Print");
        row("Core.Menu.File", "&Exit", "Exit");
        row("Core.Menu.Edit", "&Undo", "Undo");
        row("Core.Menu.Edit", "&Redo", "Redo");
        row("Core.Menu.Edit", "Cu&t", "Cut");
        row("Core.Menu.Edit", "&Copy", "Copy");
        row("Core.Menu.Edit", "&Paste", "Paste");
        row("Core.Menu.Edit", "Select &All", "Select All");
        row("Core.Menu.Edit", "&Find && Replace", "Find & Replace");
        row("Core.Menu.Window", "&Full Screen", "Full Screen");
        row("Core.Menu.Window", "Tile", "Tile");
        row("Core.Menu.Window", "Cascade", "Cascade");
    }

    void toolTipsAreTranslated()
    {
        QFETCH(const QString, menuId);
        QFETCH(const QString, expected);
        QString toolTip;
        const QList<QAction *> entries = ActionManager::menu(menuId)->actions();
        for (const QAction *entry : entries) {
            if (entry->text() == bracketed(QTest::currentDataTag()))
                toolTip = entry->toolTip();
        }
        QVERIFY2(toolTip.contains(expected), qPrintable(toolTip));
    }

    void toolBarsAreTranslated()
    {
        QStringList titles;
        for (const char *id : {"Core.Toolbar.File", "Core.Toolbar.Edit", "Core.Toolbar.Tools",
                               "Core.Toolbar.Process"})
            titles.append(ActionManager::toolBar(QString::fromLatin1(id))->windowTitle());
        QCOMPARE(titles,
                 texts({"[File ToolBar]", "[Edit ToolBar]", "[Common Tools]", "[Process Tools]"}));
    }

    void theDialogForFilesIsTranslated()
    {
        ModalDialog dialog(ModalDialog::cancel());
        ViewManager::mainWindow()->onOpenFiles();
        QCOMPARE(dialog.title(), QStringLiteral("[Open File]"));
    }

private:
    Brackets m_translator;
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestWindowTexts)
#include "tst_windowtexts.moc"
