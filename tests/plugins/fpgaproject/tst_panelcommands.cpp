// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// What the project panel opens: dialogs, folders, files.

#include "shownpanel.h"

#include "support/modaldialog.h"

#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/wizards/devicedialog_p.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/views/viewmanager.h>

#include <devicedb/devicedb.h>

#include <QAction>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QUrl>

using Core::EditorManager;
using Fpga::DeviceChoice;
using Fpga::DeviceDialog;

namespace {

const DeviceChoice HX8K{QStringLiteral("iCE40HX8K-CT256"), QStringLiteral("CT256"),
                        QStringLiteral("HX")};

QPushButton *okOf(const QWidget &dialog)
{
    return dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
}

QLineEdit *filterOf(const QWidget &dialog)
{
    return dialog.findChild<QLineEdit *>(named("editFilter"));
}

QVector<DEV::Device> devices()
{
    return DEV::DeviceDb(QStringLiteral(DEVICE_TABLE)).rows();
}

} // namespace

class TestPanelCommands : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private Q_SLOTS:
    void init()
    {
        m_opened.clear();
        QDesktopServices::setUrlHandler(named("file"), this, "openUrl");
    }

    void cleanup() { QDesktopServices::unsetUrlHandler(named("file")); }

    void openOpensAllThatIsSelected()
    {
        const Shown shown({named("a.v"), named("b.v"), named("c.v")});
        shown.select("a.v");
        shown.selectAlso("c.v");

        shown.action("Open")->trigger();

        QCOMPARE(EditorManager::allEditors().size(), 2);
        QVERIFY(!EditorManager::editorForFile(shown.folder.path(named("b.v"))));
    }

    void theFolderOfTheFileIsOpened()
    {
        const Shown shown({named("rtl/a.v")});
        shown.select("rtl/a.v");

        shown.action("OpenFolder")->trigger();

        QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(shown.folder.path(named("rtl")))});
    }

    void withoutAFileTheFolderOfTheProjectIsOpened()
    {
        const Shown shown({named("rtl/a.v")});
        shown.tree()->clearSelection();

        shown.action("OpenFolder")->trigger();

        QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(shown.folder.path())});
    }

    void aFolderThatIsGoneIsSaid()
    {
        const Shown shown({named("!rtl/a.v")});
        shown.select("rtl/a.v");
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));

        shown.action("OpenFolder")->trigger();

        QCOMPARE(box.text(),
                 QString(QLatin1String("Can not open folder \"") + shown.folder.path(named("rtl"))
                         + QLatin1String("\"\nThe folder does not exist.")));
        QVERIFY(m_opened.isEmpty());
    }

    void existingFilesAreChosenInADialog()
    {
        const Shown shown({named("a.v")});
        shown.folder.put(named("b.v"));
        shown.folder.put(named("c.vhd"));
        QString start;
        ModalDialog dialog([&](QWidget *widget) {
            auto *choice = qobject_cast<QFileDialog *>(widget);
            start = choice->directory().canonicalPath();
            choice->findChild<QLineEdit *>(named("fileNameEdit"))
                ->setText(named("\"b.v\" \"c.vhd\""));
            QMetaObject::invokeMethod(choice, "accept");
        });

        shown.action("AddExisting")->trigger();

        QCOMPARE(start, shown.folder.path());
        QVERIFY(shown.index("b.v").isValid());
        QVERIFY(shown.index("c.vhd").isValid());
        QCOMPARE(shown.tree()->currentIndex(), shown.index("b.v"));
    }

    void aCancelledChoiceAddsNothing()
    {
        const Shown shown({named("a.v")});
        const QByteArray before = shown.folder.contents(named("p.kprj"));
        ModalDialog dialog(ModalDialog::cancel());

        shown.action("AddExisting")->trigger();

        QVERIFY(dialog.met());
        QCOMPARE(shown.folder.contents(named("p.kprj")), before);
    }

    void newFileAsksWhichOne()
    {
        const Shown shown({named("a.v")});
        ModalDialog dialog(ModalDialog::cancel());

        shown.action("NewFile")->trigger();

        QVERIFY(dialog.met());
        QCOMPARE(dialog.title(), named("New"));
    }

    void removeTakesTheFilesOut()
    {
        const Shown shown({named("a.v"), named("b.v")});
        shown.select("a.v");

        shown.action("Remove")->trigger();

        QVERIFY(!shown.index("a.v").isValid());
        QVERIFY(shown.index("b.v").isValid());
    }

    void withoutAProjectNothingCanBeDone()
    {
        Shown shown({named("a.v")});

        shown.panel.setProject(nullptr);

        const QList<QAction *> actions = shown.tree()->actions();
        QVERIFY(actions.size() > 9);
        for (const QAction *action : actions)
            QVERIFY2(!action->isEnabled(), qPrintable(action->objectName()));
    }

    void theDeviceIsChangedByTheMenu()
    {
        const Shown shown({named("a.v")});
        QVERIFY(shown.menu().contains(named("Change Device...")));
        ModalDialog dialog([](QWidget *widget) {
            QTest::keyClicks(filterOf(*widget), named("hx8k ct256"));
            QTest::keyClick(filterOf(*widget), Qt::Key_Return);
        });

        shown.action("ChangeDevice")->trigger();

        QCOMPARE(dialog.title(), named("Change Device"));
        QVERIFY(shown.project.document().device() == HX8K);
        QCOMPARE(shown.label("labelDevice"), HX8K.part);
        QVERIFY(shown.folder.contents(named("p.kprj")).contains("part=\"iCE40HX8K-CT256\""));
    }

    void theDeviceIsChangedByTheButtonBesideIt()
    {
        const Shown shown({named("a.v")});
        auto *const button = shown.panel.findChild<QToolButton *>(named("btnChangeDevice"));
        QVERIFY(button);
        QVERIFY(button->isVisible());
        QVERIFY(button->focusPolicy() & Qt::TabFocus);
        ModalDialog dialog([](QWidget *widget) {
            QTest::keyClicks(filterOf(*widget), named("hx8k ct256"));
            okOf(*widget)->click();
        });

        QTest::keyClick(button, Qt::Key_Space);

        QVERIFY(shown.project.document().device() == HX8K);
    }

    void aCancelledChangeKeepsTheDevice()
    {
        Shown shown({named("a.v")});
        shown.project.setDevice(HX8K);
        const QByteArray before = shown.folder.contents(named("p.kprj"));
        ModalDialog dialog([](QWidget *widget) {
            QTest::keyClicks(filterOf(*widget), named("up5k sg48"));
            QTest::keyClick(widget, Qt::Key_Escape);
        });

        shown.action("ChangeDevice")->trigger();

        QVERIFY(dialog.met());
        QCOMPARE(shown.folder.contents(named("p.kprj")), before);
    }

    void theDialogShowsTheDeviceOfNow()
    {
        const DeviceDialog dialog(HX8K, devices());
        QCOMPARE(dialog.findChild<QLabel *>(named("labelNow"))->text(),
                 named("Now: iCE40HX8K-CT256"));
        QVERIFY(dialog.choice() == HX8K);
        QVERIFY(okOf(dialog)->isEnabled());
    }

    void aDeviceThatIsInNoTableIsNamed()
    {
        const DeviceDialog dialog({named("ours-1"), named("BGA"), {}}, devices());
        QCOMPARE(dialog.findChild<QLabel *>(named("labelNow"))->text(), named("Now: ours-1"));
        QVERIFY(dialog.choice().isEmpty());
        QVERIFY(!okOf(dialog)->isEnabled());
    }

    void withoutAChoiceThereIsNothingToAccept()
    {
        DeviceDialog dialog({}, devices());
        QVERIFY(!okOf(dialog)->isEnabled());
        QTest::keyClicks(filterOf(dialog), named("hx1k"));
        QVERIFY(!okOf(dialog)->isEnabled());
        QTest::keyClick(filterOf(dialog), Qt::Key_Down);
        QVERIFY(okOf(dialog)->isEnabled());
        QTest::keyClicks(filterOf(dialog), named(" none"));
        QVERIFY(!okOf(dialog)->isEnabled());
    }

    void aDoubleClickTakesTheDevice()
    {
        DeviceDialog dialog({}, devices());
        dialog.show();
        auto *const table = dialog.findChild<QTableView *>();
        const QPoint place = table->visualRect(table->model()->index(2, 0)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.choice().part, devices().at(2).part);
    }

private:
    QList<QUrl> m_opened;
};

QTEST_MAIN(TestPanelCommands)
#include "tst_panelcommands.moc"
