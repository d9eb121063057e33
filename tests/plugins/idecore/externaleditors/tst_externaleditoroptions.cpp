// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The page in the Options dialog, from the first click to the settings.

#include "editortexts.h"

#include "support/corefixture.h"
#include "support/launchrecorder.h"
#include "support/modaldialog.h"

#include <idecore/core/idecore.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/options/optiondialog.h>
#include <idecore/views/viewmanager.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Core::ExternalEditorManager;

namespace {

template<class Part>
Part *part(const QWidget *dialog, const char *objectName)
{
    Part *found = dialog->findChild<Part *>(QString::fromLatin1(objectName));
    if (!found)
        qFatal("the dialog has no %s", objectName);
    return found;
}

void press(const QWidget *dialog, QDialogButtonBox::StandardButton which)
{
    // The first is the dialog's own; a page may have others.
    auto *const box = dialog->findChild<QDialogButtonBox *>();
    QTest::mouseClick(box->button(which), Qt::LeftButton);
}

void press(const QWidget *dialog, const char *objectName)
{
    QTest::mouseClick(part<QPushButton>(dialog, objectName), Qt::LeftButton);
}

/// Selects the row of that name.
void select(const QWidget *dialog, const char *name)
{
    auto *const table = part<QTableView>(dialog, "tableView");
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        if (table->model()->index(row, 0).data().toString() == QString::fromLatin1(name))
            return table->selectRow(row);
    }
    qFatal("there is no editor %s", name);
}

/// Fills the dialog of one editor that comes and accepts it.
ModalDialog::Handler fill(const char *name, const QString &program, const char *arguments)
{
    return [=](QWidget *dialog) {
        part<QLineEdit>(dialog, "editName")->setText(QString::fromLatin1(name));
        part<QLineEdit>(dialog, "editPath")->setText(program);
        part<QLineEdit>(dialog, "editArgs")->setText(QString::fromLatin1(arguments));
        press(dialog, QDialogButtonBox::Ok);
    };
}

/// Runs the Options dialog at that category; @p use has to close it.
bool runOptions(const char *category, const ModalDialog::Handler &use)
{
    const ModalDialog met(use);
    return Core::OptionDialog::getOptionDialog(Core::ViewManager::mainWindow(),
                                               QString::fromLatin1(category), QString())
        ->execDialog();
}

bool runPage(const ModalDialog::Handler &use)
{
    return runOptions("BA.ExtEditor", use);
}

QStringList storedKeys()
{
    return Core::IdeCore::userSettings()->allKeys().filter(QStringLiteral("external_editor/"));
}

} // namespace

class TestExternalEditorOptions final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_core = std::make_unique<CoreFixture>();
        m_core->show();
    }

    void cleanup() { m_core.reset(); }

    void okOfAnotherPageChangesNothing()
    {
        ExternalEditorManager::applyData({editorNamed("a", true)});
        ExternalEditorManager::setUseExtEdtior(true);
        // A theme that is not stored counts as changed, and a message comes.
        Core::IdeCore::userSettings()->setValue(QStringLiteral("Theme"), QStringLiteral("Classic"));
        QVERIFY(runOptions("A.Core", [](QWidget *dialog) { press(dialog, QDialogButtonBox::Ok); }));
        QCOMPARE(storedKeys(), QStringList());
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/bin/a|%f*"}));
        QVERIFY(ExternalEditorManager::isUseExtEditor());
    }

    void cancelLeavesRegistryAndSettings()
    {
        ExternalEditorManager::applyData({editorNamed("a", true), editorNamed("b")});
        ExternalEditorManager::saveEditors();
        QVERIFY(!runPage([](QWidget *dialog) {
            select(dialog, "b");
            press(dialog, "btnRemove");
            part<QCheckBox>(dialog, "useExtEditorCheckBox")->setChecked(true);
            press(dialog, QDialogButtonBox::Cancel);
        }));
        QCOMPARE(sortedTexts(ExternalEditorManager::editors()),
                 texts({"a|/bin/a|%f*", "b|/bin/b|%f"}));
        QVERIFY(!ExternalEditorManager::isUseExtEditor());
        QCOMPARE(storedKeys().size(), 3);
    }

    void cancelBehindApplyKeepsWhatWasApplied()
    {
        ExternalEditorManager::applyData({editorNamed("a", true), editorNamed("b")});
        QVERIFY(runPage([](QWidget *dialog) {
            select(dialog, "b");
            press(dialog, "btnDefault");
            press(dialog, QDialogButtonBox::Apply);
            select(dialog, "a");
            press(dialog, "btnRemove");
            press(dialog, QDialogButtonBox::Cancel);
        }));
        QCOMPARE(sortedTexts(ExternalEditorManager::editors()),
                 texts({"a|/bin/a|%f", "b|/bin/b|%f*"}));
    }

    void theNextTimeThePageShowsTheRegistryAgain()
    {
        ExternalEditorManager::applyData({editorNamed("a")});
        runPage([](QWidget *dialog) {
            select(dialog, "a");
            press(dialog, "btnRemove");
            press(dialog, QDialogButtonBox::Cancel);
        });
        int rows = 0;
        runPage([&](QWidget *dialog) {
            rows = part<QTableView>(dialog, "tableView")->model()->rowCount();
            press(dialog, QDialogButtonBox::Cancel);
        });
        QCOMPARE(rows, 1);
    }

    void whatWasSetUpStartsAfterARestart()
    {
        runPage([](QWidget *dialog) {
            for (const char *name : {"old", "mine"}) {
                const ModalDialog adding(fill(name, LaunchRecorder::program(), "-g %f +%l"));
                press(dialog, "btnAdd");
            }
            select(dialog, "old");
            press(dialog, "btnRemove");
            select(dialog, "mine");
            press(dialog, "btnDefault");
            part<QCheckBox>(dialog, "useExtEditorCheckBox")->click();
            press(dialog, QDialogButtonBox::Ok);
        });
        m_core.reset();
        m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);

        QVERIFY(ExternalEditorManager::isUseExtEditor());
        const Core::ExternalEditor editor = ExternalEditorManager::defaultEditor();
        QCOMPARE(asText(editor), QStringLiteral("mine|") + LaunchRecorder::program()
                                     + QStringLiteral("|-g %f +%l*"));
        QCOMPARE(ExternalEditorManager::allEditorId(), texts({"mine"}));
        const QTemporaryDir folder;
        const LaunchRecorder recorder;
        const QString file = folder.filePath(QStringLiteral("my top.v"));
        QVERIFY(editor.open(file, 12));
        QCOMPARE(recorder.waitForOne().arguments,
                 QStringList({QStringLiteral("-g"), file, QStringLiteral("+12")}));
    }

    // Otherwise what is changed in memory would be lost with the first call later.
    void afterApplyTheManagerDoesNotReadAnew()
    {
        ExternalEditorManager::applyData({editorNamed("a", true)});
        runPage([](QWidget *dialog) { press(dialog, QDialogButtonBox::Ok); });
        ExternalEditorManager::registerEditor(editorNamed("unsaved"));
        ExternalEditorManager::instance();
        QCOMPARE(sortedTexts(ExternalEditorManager::editors()),
                 texts({"a|/bin/a|%f*", "unsaved|/bin/unsaved|%f"}));
    }

private:
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestExternalEditorOptions)
#include "tst_externaleditoroptions.moc"
