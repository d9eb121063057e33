// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_OPTIONS_OPTIONFIXTURE_H
#define TESTS_PLUGINS_IDECORE_OPTIONS_OPTIONFIXTURE_H

#include "support/corefixture.h"
#include "testpage.h"

#include <extsys/pluginmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/options/optiondialog.h>
#include <idecore/views/viewmanager.h>

#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QRegularExpression>
#include <QStackedLayout>
#include <QTabWidget>
#include <QTest>

#include <memory>
#include <vector>

/// The core with pages of the test's own in the pool, in place of the built-in
/// ones.
class OptionFixture final
{
public:
    OptionFixture()
        : m_builtIn(pool()->getObjects<Core::IOptionsPage>())
    {
        for (Core::IOptionsPage *page : m_builtIn)
            pool()->removeObject(page);
    }
    ~OptionFixture()
    {
        while (!m_pages.empty())
            remove(m_pages.back().get());
        // The core takes them out itself.
        for (Core::IOptionsPage *page : m_builtIn)
            pool()->addObject(page);
    }
    OptionFixture(const OptionFixture &) = delete;
    OptionFixture &operator=(const OptionFixture &) = delete;

    TestPage *add(const char *category, const char *id)
    {
        m_pages.push_back(
            std::make_unique<TestPage>(QLatin1String(category), QLatin1String(id), &log));
        pool()->addObject(m_pages.back().get());
        return m_pages.back().get();
    }
    /// Takes the page out of the pool and destroys it.
    void remove(TestPage *page)
    {
        pool()->removeObject(page);
        for (auto it = m_pages.begin(); it != m_pages.end(); ++it) {
            if (it->get() == page) {
                const std::unique_ptr<TestPage> doomed = std::move(*it);
                m_pages.erase(it);
                return;
            }
        }
    }

    /// The dialog as the main window asks for it.
    static Core::OptionDialog *dialog(const char *category = "", const char *page = "")
    {
        return Core::OptionDialog::getOptionDialog(Core::ViewManager::mainWindow(),
                                                   QLatin1String(category), QLatin1String(page));
    }
    /// The entries of those of @p log that start with @p what.
    [[nodiscard]] QStringList logged(const char *what) const
    {
        return log.filter(QRegularExpression(QLatin1Char('^') + QLatin1String(what)));
    }

    CoreFixture core;
    QStringList log;

private:
    static ExtSys::PluginManager *pool() { return ExtSys::PluginManager::instance(); }

    QList<Core::IOptionsPage *> m_builtIn;
    std::vector<std::unique_ptr<TestPage>> m_pages;
};

inline QListView *listOf(const QWidget *dialog)
{
    return dialog->findChild<QListView *>(QStringLiteral("categoryList"));
}

/// What a column of texts in the list shows.
inline QStringList categoriesOf(const QWidget *dialog)
{
    QStringList titles;
    const QAbstractItemModel *model = listOf(dialog)->model();
    for (int row = 0; row < model->rowCount(); ++row)
        titles.append(model->index(row, 0).data().toString());
    return titles;
}

/// The tabs of the category that is shown; null when none is.
inline QTabWidget *tabsOf(const QWidget *dialog)
{
    return qobject_cast<QTabWidget *>(dialog->findChild<QStackedLayout *>()->currentWidget());
}

inline QStringList tabTitlesOf(const QWidget *dialog)
{
    QStringList titles;
    const QTabWidget *tabs = tabsOf(dialog);
    for (int i = 0; i < tabs->count(); ++i)
        titles.append(tabs->tabText(i));
    return titles;
}

/// What is shown: "category title/tab title".
inline QString placeOf(const QWidget *dialog)
{
    const QTabWidget *tabs = tabsOf(dialog);
    return listOf(dialog)->currentIndex().data().toString() + QLatin1Char('/')
           + (tabs ? tabs->tabText(tabs->currentIndex()) : QString());
}

/// Chooses a category as a person does.
inline void choose(const QWidget *dialog, int row)
{
    listOf(dialog)->setCurrentIndex(listOf(dialog)->model()->index(row, 0));
}

inline QPushButton *buttonOf(const QWidget *dialog, QDialogButtonBox::StandardButton which)
{
    return dialog->findChild<QDialogButtonBox *>()->button(which);
}

#endif // TESTS_PLUGINS_IDECORE_OPTIONS_OPTIONFIXTURE_H
