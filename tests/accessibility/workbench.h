// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_ACCESSIBILITY_WORKBENCH_H
#define TESTS_ACCESSIBILITY_WORKBENCH_H

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <QDialog>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// Says which there are.
#define VERIFY_NONE(list)                                                                          \
    do {                                                                                           \
        const QStringList found = (list);                                                          \
        QVERIFY2(found.isEmpty(), qPrintable(QLatin1Char('\n') + found.join(QLatin1Char('\n'))));  \
    } while (false)

namespace Core {
class IEditor;
class OptionDialog;
} // namespace Core

namespace ExtSys {
class IPlugin;
}

QString named(const char *text);

/// The workbench with its companions and a copy of the example project.
class Workbench final
{
public:
    explicit Workbench(CoreFixture::Settings settings = CoreFixture::Settings::Drop);
    ~Workbench();
    Workbench(const Workbench &) = delete;
    Workbench &operator=(const Workbench &) = delete;

    [[nodiscard]] QString path(const char *name = "") const;
    void openProject() const;
    void openEditors() const;
    /// Types something into @p editor, which is modified then.
    static void change(Core::IEditor *editor);

    CoreFixture core;

private:
    QTemporaryDir m_folder;
    QList<ExtSys::IPlugin *> m_plugins;
};

/// The faults of a dialog that is about to be opened; it is closed again.
class WalkedDialog final
{
public:
    WalkedDialog();

    QStringList faults;

private:
    ModalDialog m_dialog;
};

/// The Options dialog, not modal, as a person has opened it.
class ShownOptions final
{
public:
    explicit ShownOptions(const char *category = "A.Core", const char *page = "A.General");
    ~ShownOptions();
    ShownOptions(const ShownOptions &) = delete;
    ShownOptions &operator=(const ShownOptions &) = delete;

    [[nodiscard]] QDialog *dialog() const;
    /// The visible one of that name.
    template<class Widget>
    [[nodiscard]] Widget *find(const char *name) const
    {
        const QList<Widget *> all = dialog()->template findChildren<Widget *>(named(name));
        for (Widget *widget : all) {
            if (widget->isVisible())
                return widget;
        }
        qFatal("there is no %s", name);
    }
    void choose(int row) const;
    /// Those of the category that is shown.
    [[nodiscard]] QTabWidget *tabs() const;
    /// With the place of each.
    [[nodiscard]] QStringList faults() const;

private:
    const std::unique_ptr<Core::OptionDialog> m_dialog;
};

#endif // TESTS_ACCESSIBILITY_WORKBENCH_H
