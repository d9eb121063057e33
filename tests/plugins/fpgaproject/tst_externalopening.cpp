// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projectfolder.h"

#include "support/corefixture.h"
#include "support/launchrecorder.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/panel/projectpanel_p.h>
#include <fpgaproject/project/fpgaproject.h>
#include <fpgaproject/wizards/newfilewizard_p.h>
#include <idecore/editors/editormanager.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTreeView>

#include <sys/stat.h>

#include <memory>

using Core::EditorManager;
using Core::ExternalEditor;
using Core::ExternalEditorManager;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

ExternalEditor recorderNamed(const char *name, bool isDefault = true)
{
    return {named(name), LaunchRecorder::program(), named(name) + named(" %f +%l"), isDefault};
}

/// The panel, shown, with a project of @p files in it, and the recorder as the default
/// external editor "outside" that is always to be used.
class Panel final
{
public:
    explicit Panel(const QStringList &files)
        : m_offered(&editors)
        , folder(files)
    {
        ExternalEditorManager::registerEditor(recorderNamed("outside"));
        ExternalEditorManager::setUseExtEdtior(true);
        if (!m_project.open(folder.project()))
            qFatal("the project did not open");
        m_panel.setProject(&m_project);
        m_panel.show();
        if (!QTest::qWaitForWindowExposed(&m_panel))
            QTest::qFail("the panel was not exposed", __FILE__, __LINE__);
    }

    /// Selects the files of that names and presses Enter.
    void open(const QStringList &names) const
    {
        select(names);
        QTest::keyClick(tree(), Qt::Key_Return);
    }

    void select(const QStringList &names) const
    {
        tree()->setCurrentIndex(index(names.constFirst()));
        for (const QString &name : names)
            tree()->selectionModel()->select(index(name), QItemSelectionModel::Select);
    }

    /// The menu Open With of the selected files.
    QMenu *openWith() const
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(tree(), &event);
        const auto *menu = tree()->findChild<QMenu *>(named("FpgaProject.FileMenu"));
        const QList<QAction *> entries = menu ? menu->actions() : QList<QAction *>();
        for (const QAction *entry : entries) {
            if (entry->text() == named("Open With"))
                return entry->menu();
        }
        qFatal("there is no menu Open With");
    }

    /// Picks the entry of that text.
    void openWith(const char *entry) const
    {
        const QList<QAction *> entries = openWith()->actions();
        for (QAction *action : entries) {
            if (action->text() == named(entry))
                return action->trigger();
        }
        QTest::qFail("there is no such entry", __FILE__, __LINE__);
    }

    bool isInside(const char *name) const
    {
        return EditorManager::editorForFile(folder.path(named(name)));
    }

    /// What the recorder is given for the file of that name.
    QStringList expected(const char *name, const char *line = "+1") const
    {
        return {named("outside"), folder.path(named(name)), named(line)};
    }

    const CoreFixture core;
    const LaunchRecorder recorder;
    TestEditorFactory editors{QStringList(named("text/plain"))};

private:
    QTreeView *tree() const { return m_panel.findChild<QTreeView *>(); }
    QModelIndex index(const QString &name) const
    {
        return qobject_cast<Fpga::FileTreeModel *>(tree()->model())->indexOf(name);
    }

    const InPool m_offered;

public:
    const ProjectFolder folder;

private:
    Fpga::FpgaProject m_project;
    Fpga::ProjectPanel m_panel;
};

/// Looks into @p folder first for programs, for the duration of a scope.
class SearchPath final
{
public:
    explicit SearchPath(const QString &folder)
    {
        qputenv("PATH", QFile::encodeName(folder) + ':' + m_before);
    }
    ~SearchPath() { qputenv("PATH", m_before); }
    SearchPath(const SearchPath &) = delete;
    SearchPath &operator=(const SearchPath &) = delete;

private:
    const QByteArray m_before = qgetenv("PATH");
};

} // namespace

class TestExternalOpening final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void filesOpenInTheDefaultEditor()
    {
        const Panel panel({named("rtl/a.v")});
        panel.open({named("rtl/a.v")});
        const LaunchRecorder::Launch launch = panel.recorder.waitForOne();
        QCOMPARE(launch.arguments, panel.expected("rtl/a.v"));
        QCOMPARE(launch.folder, panel.folder.path(named("rtl")));
        QVERIFY(!panel.isInside("rtl/a.v"));
    }

    void switchedOffTheyOpenInside()
    {
        const Panel panel({named("a.v")});
        ExternalEditorManager::setUseExtEdtior(false);
        panel.open({named("a.v")});
        QVERIFY(panel.isInside("a.v"));
        QVERIFY(panel.recorder.nothingWasStarted());
    }

    void withoutADefaultTheyOpenInside()
    {
        const Panel panel({named("a.v")});
        ExternalEditorManager::applyData({recorderNamed("outside", false)});
        panel.open({named("a.v")});
        QVERIFY(panel.isInside("a.v"));
        QVERIFY(panel.recorder.nothingWasStarted());
    }

    void allSelectedFilesOpenOutside()
    {
        const Panel panel({named("a.v"), named("b.vhd"), named("c.sdc"), named("d.v")});
        panel.open(texts({"a.v", "b.vhd", "c.sdc"}));
        const QList<LaunchRecorder::Launch> launches = panel.recorder.wait(3);
        QCOMPARE(launches.at(0).arguments, panel.expected("a.v"));
        QCOMPARE(launches.at(1).arguments, panel.expected("b.vhd"));
        QCOMPARE(launches.at(2).arguments, panel.expected("c.sdc"));
        QVERIFY(EditorManager::allEditors().isEmpty());
    }

    void aFileOpensWhereItStandsInside()
    {
        const Panel panel({named("a.v")});
        QVERIFY(EditorManager::openEditor(panel.folder.path(named("a.v"))));
        panel.editors.last->line = 42;
        panel.open({named("a.v")});
        QCOMPARE(panel.recorder.waitForOne().arguments, panel.expected("a.v", "+42"));
    }

    void anOddLineCountsAsTheFirst()
    {
        const Panel panel({named("a.v")});
        QVERIFY(EditorManager::openEditor(panel.folder.path(named("a.v"))));
        panel.editors.last->line = 0;
        panel.open({named("a.v")});
        QCOMPARE(panel.recorder.waitForOne().arguments, panel.expected("a.v", "+1"));
    }

    void anyNameIsOneArgument_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("blanks") << "my  file.v";
        QTest::newRow("quotes") << "it's \"mine\".v";
        QTest::newRow("command") << "$(touch hacked)`touch hacked`;.v";
        QTest::newRow("line feed") << "two\nlines.v";
        QTest::newRow("option") << "-x.v";
    }

    void anyNameIsOneArgument()
    {
        QFETCH(QString, name);
        const Panel panel({name});
        panel.open({name});
        QCOMPARE(panel.recorder.waitForOne().arguments, panel.expected(name.toUtf8().constData()));
        QVERIFY(!QFile::exists(panel.folder.path(named("hacked"))));
    }

    void otherTextFilesOpenOutside()
    {
        const Panel panel({named("notes.txt")});
        panel.open({named("notes.txt")});
        QCOMPARE(panel.recorder.waitForOne().arguments, panel.expected("notes.txt"));
    }

    void whatIsNoTextStaysInside()
    {
        const Panel panel({named("picture.bin")});
        panel.folder.put(named("picture.bin"), QByteArray("\x00\x01\x02\xff\xfe\x00", 6));
        panel.open({named("picture.bin")});
        QVERIFY(panel.isInside("picture.bin"));
        QVERIFY(panel.recorder.nothingWasStarted());
    }

    void aMissingFileIsNamedInside()
    {
        const Panel panel({named("!a.v")});
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        panel.open({named("a.v")});
        QVERIFY2(box.text().contains(panel.folder.path(named("a.v"))), qPrintable(box.text()));
        QVERIFY(panel.recorder.nothingWasStarted());
    }

    void aProgramThatDoesNotStartIsNamed_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << "/no/such/editor"
                                 << "The program does not exist.";
        QTest::newRow("not on the path") << "no-such-editor"
                                         << "There is no such program in the search path.";
        QTest::newRow("folder") << "/usr/lib"
                                << "It is a folder.";
        QTest::newRow("not executable") << "./plain"
                                        << "The file is not executable.";
        QTest::newRow("broken") << "./broken"
                                << "The system refused to start it.";
        QTest::newRow("text") << "./text"
                              << "It is neither a program nor a script that names its interpreter.";
        QTest::newRow("text on the path")
            << "text"
            << "It is neither a program nor a script that names its interpreter.";
        QTest::newRow("empty file")
            << "./none"
            << "It is neither a program nor a script that names its interpreter.";
        QTest::newRow("script") << "./script"
                                << "The program /no/shell, which is to run it, does not exist.";
        QTest::newRow("script of another system")
            << "./other"
            << R"(The program /bin/sh\r, which is to run it, does not exist.)";
        QTest::newRow("script of a folder") << "./folder"
                                            << "The system refused to start it.";
        QTest::newRow("pipe") << "./pipe"
                              << "The system refused to start it.";
        QTest::newRow("empty") << ""
                               << "No program is named.";
        QTest::newRow("markup") << "/no/<b>%1</b>"
                                << "The program does not exist.";
    }

    void aProgramThatDoesNotStartIsNamed()
    {
        QFETCH(QString, program);
        QFETCH(QString, reason);
        const Panel panel({named("a b.v")});
        panel.folder.put(named("plain"));
        // Executable, but for no machine.
        const QList<QPair<const char *, QByteArray>> programs{
            {"broken", "\177ELF\177\177"},
            {"text", "exit\n"},
            {"none", ""},
            {"script", "#! /no/shell -x\nexit\n"},
            {"other", "#!/bin/sh\r\nexit\r\n"},
            {"folder", "#!/bin\nexit\n"},
        };
        for (const auto &[name, contents] : programs) {
            QFile file(panel.folder.put(named(name), contents));
            QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        }
        QCOMPARE(mkfifo(QFile::encodeName(panel.folder.path(named("pipe"))).constData(), 0700), 0);
        const SearchPath path(panel.folder.path());
        ExternalEditorManager::applyData(
            {{named("my <i>%2</i>"), program, named("-g %f +%l"), true}});
        Qt::TextFormat format = Qt::AutoText;
        ModalDialog box([&](QWidget *widget) {
            format = qobject_cast<QMessageBox *>(widget)->textFormat();
            ModalDialog::press(QMessageBox::Ok)(widget);
        });

        panel.open({named("a b.v")});

        QCOMPARE(box.title(), named("External Editor"));
        QCOMPARE(box.text(),
                 named("The external editor \"my <i>%2</i>\" could not be started.\n\nProgram: ")
                     + program + named("\nArguments: -g \"") + panel.folder.path(named("a b.v"))
                     + named("\" +1\n\n") + reason);
        QCOMPARE(format, Qt::PlainText);
        QVERIFY(panel.isInside("a b.v"));
    }

    void withoutArgumentsTheMessageSaysSo()
    {
        const Panel panel({named("a.v")});
        ExternalEditorManager::applyData({{named("e"), named("/no/e"), QString(), true}});
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        panel.open({named("a.v")});
        QVERIFY2(box.text().contains(named("\nArguments: none\n")), qPrintable(box.text()));
    }

    void aLineFeedInTheMessageIsWritten()
    {
        const Panel panel({named("two\nlines.v")});
        ExternalEditorManager::applyData({{named("e"), named("/no/e"), named("%f"), true}});
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        panel.open({named("two\nlines.v")});
        QVERIFY2(box.text().contains(named("two\\nlines.v")), qPrintable(box.text()));
    }

    void longTextsAreShortened()
    {
        const Panel panel({named("a.v")});
        ExternalEditorManager::applyData(
            {{named("name").repeated(5000), named("/no/e").repeated(5000),
              named("token ").repeated(5000), true}});
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        panel.open({named("a.v")});
        QVERIFY(box.text().contains(named("namename")));
        QVERIFY(box.text().contains(named("/no/e/no/e")));
        QVERIFY(box.text().contains(named("token token")));
        QVERIFY2(box.text().size() < 1700, qPrintable(box.text()));
    }

    void itIsSaidOnceAndAllOpenInside()
    {
        const Panel panel({named("a.v"), named("b.v"), named("c.v")});
        ExternalEditorManager::applyData({{named("e"), named("/no/e"), named("%f"), true}});
        const ModalDialog box(ModalDialog::press(QMessageBox::Ok)); // a second one would hang
        panel.open(texts({"a.v", "b.v", "c.v"}));
        QVERIFY(panel.isInside("a.v") && panel.isInside("b.v") && panel.isInside("c.v"));
    }

    void whatHasStartedDoesNotOpenInsideToo()
    {
        const Panel panel({named("a.v"), named("rtl/b.v"), named("rtl/c.v")});
        // There is one beside the first file only.
        ExternalEditor editor = recorderNamed("outside");
        editor.program = named("./editor");
        QVERIFY(QFile::link(LaunchRecorder::program(), panel.folder.path(named("editor"))));
        ExternalEditorManager::applyData({editor});
        const ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        panel.open(texts({"a.v", "rtl/b.v", "rtl/c.v"}));
        QCOMPARE(panel.recorder.waitForOne().arguments, panel.expected("a.v"));
        QVERIFY(!panel.isInside("a.v"));
        QVERIFY(panel.isInside("rtl/b.v") && panel.isInside("rtl/c.v"));
    }

    void ofSeveralFilesOnlyTextGoesOutside()
    {
        const Panel panel({named("a.v"), named("picture.bin")});
        panel.folder.put(named("picture.bin"), QByteArray("\x00\x01\x02\xff\xfe\x00", 6));
        panel.open(texts({"a.v", "picture.bin"}));
        QCOMPARE(panel.recorder.waitForOne().arguments, panel.expected("a.v"));
        QVERIFY(!panel.isInside("a.v"));
        QVERIFY(panel.isInside("picture.bin"));
    }

    void openWithListsTheEditors()
    {
        const Panel panel({named("a.v")});
        ExternalEditorManager::applyData(
            {recorderNamed("vi"), recorderNamed("Ed & Co", false), recorderNamed("joe", false)});
        panel.select({named("a.v")});
        const QStringList entries = menuEntries(panel.openWith());
        QCOMPARE(entries.mid(1), texts({"System Default Program", "--", "Ed && Co", "joe", "vi"}));
    }

    void withoutEditorsOpenWithHasNoMore()
    {
        const Panel panel({named("a.v")});
        ExternalEditorManager::applyData({});
        panel.select({named("a.v")});
        QCOMPARE(menuEntries(panel.openWith()).mid(1), texts({"System Default Program"}));
    }

    void openWithOpensInTheChosenEditor()
    {
        const Panel panel({named("a.v"), named("b.v")});
        ExternalEditorManager::setUseExtEdtior(false);
        ExternalEditorManager::registerEditor(recorderNamed("chosen", false));
        panel.select(texts({"a.v", "b.v"}));
        panel.openWith("chosen");
        const QList<LaunchRecorder::Launch> launches = panel.recorder.wait(2);
        QCOMPARE(launches.at(0).arguments.constFirst(), named("chosen"));
        QCOMPARE(launches.at(0).arguments.at(1), panel.folder.path(named("a.v")));
        QCOMPARE(launches.at(1).arguments.at(1), panel.folder.path(named("b.v")));
        QVERIFY(EditorManager::allEditors().isEmpty());
    }

    void openWithAProgramThatDoesNotStartOpensInside()
    {
        const Panel panel({named("a.v")});
        ExternalEditorManager::registerEditor({named("gone"), named("/no/e"), named("%f"), false});
        panel.select({named("a.v")});
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        panel.openWith("gone");
        QVERIFY(box.text().contains(named("\"gone\"")));
        QVERIFY(panel.isInside("a.v"));
    }

    void openWithThisProgramStaysInside()
    {
        const Panel panel({named("a.v")});
        panel.select({named("a.v")});
        panel.openWith()->actions().constFirst()->trigger();
        QVERIFY(panel.isInside("a.v"));
        QVERIFY(panel.recorder.nothingWasStarted());
    }

    void openOfTheFileMenuStaysInside()
    {
        const Panel panel({named("a.v")});
        Core::ViewManager::mainWindow()->openFile(panel.folder.path(named("a.v")));
        QVERIFY(panel.isInside("a.v"));
        QVERIFY(panel.recorder.nothingWasStarted());
    }

    void aNewFileOpensOutside()
    {
        const Panel panel({});
        Fpga::NewFileWizard wizard(Fpga::FileKind::TimingConstraint);
        const ModalDialog dialog([](QWidget *widget) { QTest::keyClick(widget, Qt::Key_Return); });
        wizard.runWizard(Core::ViewManager::mainWindow(), panel.folder.path());
        QCOMPARE(panel.recorder.waitForOne().arguments, panel.expected("timing.sdc"));
        QVERIFY(!panel.isInside("timing.sdc"));
    }
};

QTEST_MAIN(TestExternalOpening)
#include "tst_externalopening.moc"
