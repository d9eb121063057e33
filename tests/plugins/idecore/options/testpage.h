// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_OPTIONS_TESTPAGE_H
#define TESTS_PLUGINS_IDECORE_OPTIONS_TESTPAGE_H

#include <idecore/interfaces/ioptionspage.h>

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>

/// A page that notes what is asked of it, as "apply b" for the page with the id b.
class TestPage final : public Core::IOptionsPage
{
    Q_OBJECT
public:
    TestPage(const QString &category, const QString &id, QStringList *log = nullptr)
        : m_log(log)
    {
        setCategoryId(category);
        setId(id);
        setDisplayName(QStringLiteral("tab ") + id);
        setDisplayCategory(QStringLiteral("category ") + category);
    }
    ~TestPage() override { delete shown; }

    void setTexts(const QString &displayCategory, const QString &icon = QString())
    {
        setDisplayCategory(displayCategory);
        setCategoryIcon(icon);
    }

    void rename(const QString &id) { setId(id); }

    [[nodiscard]] QWidget *widget() override
    {
        note("widget");
        if (withoutWidget)
            return nullptr;
        if (!shown)
            shown = makeWidget ? makeWidget() : new QWidget;
        return shown;
    }
    void apply() override
    {
        note("apply");
        if (onApply)
            onApply();
    }
    void finish() override
    {
        note("finish");
        if (onFinish)
            onFinish();
        if (!keepsWidget)
            delete shown;
    }

    QPointer<QWidget> shown;
    bool withoutWidget = false;
    bool keepsWidget = false;
    std::function<QWidget *()> makeWidget;
    std::function<void()> onApply;
    std::function<void()> onFinish;

private:
    void note(const char *what) const
    {
        if (m_log)
            m_log->append(QLatin1String(what) + QLatin1Char(' ') + id());
    }

    QStringList *m_log;
};

#endif // TESTS_PLUGINS_IDECORE_OPTIONS_TESTPAGE_H
