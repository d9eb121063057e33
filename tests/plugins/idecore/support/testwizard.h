// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_SUPPORT_TESTWIZARD_H
#define TESTS_PLUGINS_IDECORE_SUPPORT_TESTWIZARD_H

#include <idecore/interfaces/ifilewizardfactory.h>
#include <idecore/interfaces/iprojectwizardfactory.h>
#include <idecore/interfaces/iwizardfactory.h>

#include <QIcon>
#include <QList>

#include <functional>

/// A wizard of the kind Base that writes down how it is run.
template<class Base>
class TestWizard final : public Base
{
public:
    struct Run
    {
        QWidget *parent;
        QString directory;
    };

    explicit TestWizard(const QString &wizardName, const QString &wizardKey = QString())
        : key(wizardKey)
        , name(wizardName)
        , text(QLatin1String("about ") + wizardName)
    {
    }

    QString key;
    QString name;
    QString text;
    QIcon picture;
    QList<Run> runs;
    std::function<void()> whileRunning;

    QString sortKey() const override { return key; }
    QString displayName() const override { return name; }
    QString description() const override { return text; }
    QIcon icon() const override { return picture; }
    void runWizard(QWidget *parent, const QString &directory) override
    {
        runs.append({parent, directory});
        // On a copy, because it may take the wizard away.
        const std::function<void()> function = whileRunning;
        if (function)
            function();
    }
};

using FileWizard = TestWizard<Core::IFileWizardFactory>;
using ProjectWizard = TestWizard<Core::IProjectWizardFactory>;
/// Neither for files nor for projects.
using PlainWizard = TestWizard<Core::IWizardFactory>;

#endif // TESTS_PLUGINS_IDECORE_SUPPORT_TESTWIZARD_H
