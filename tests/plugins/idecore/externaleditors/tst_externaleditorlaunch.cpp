// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editortexts.h"

#include "support/corefixture.h"
#include "support/launchrecorder.h"

#include <idecore/externaleditors/externaleditormanager.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Core::ExternalEditor;
using Core::ExternalEditorManager;

namespace {

ExternalEditor recorderWith(const QString &arguments)
{
    return {QStringLiteral("recorder"), LaunchRecorder::program(), arguments, false};
}

} // namespace

class TestExternalEditorLaunch final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_recorder = std::make_unique<LaunchRecorder>();
    }

    void cleanup()
    {
        m_recorder.reset();
        m_dir.reset();
    }

    void templatesBecomeArguments_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("file and line") << "%f +%l" << texts({"/w/top.v", "+12"});
        QTest::newRow("both in one") << "-g %f:%l" << texts({"-g", "/w/top.v:12"});
        QTest::newRow("line behind") << "%f -n%l" << texts({"/w/top.v", "-n12"});
        QTest::newRow("empty") << "" << QStringList();
        QTest::newRow("blanks only") << " \t \n" << QStringList();
        QTest::newRow("without a file") << "--new" << texts({"--new"});
        QTest::newRow("line twice in one") << "%l%l" << texts({"1212"});
        QTest::newRow("file twice in one") << "%f:%f" << texts({"/w/top.v:/w/top.v"});
        QTest::newRow("many blanks")
            << "  a   %f\t\tb\n%l\r" << texts({"a", "/w/top.v", "b", "12"});
        QTest::newRow("other white space")
            << QString::fromUtf8("a\u00a0b\u2003c\u3000%l\u2028d\u000be")
            << texts({"a", "b", "c", "12", "d", "e"});
        QTest::newRow("quotes") << R"("%f" 'a b' `c`)"
                                << texts({R"("/w/top.v")", "'a", "b'", "`c`"});
        QTest::newRow("lone %") << "% a% %" << texts({"%", "a%", "%"});
        QTest::newRow("%%f") << "%%f %%l %%%f" << texts({"%/w/top.v", "%12", "%%/w/top.v"});
        QTest::newRow("capitals") << "%F %L" << texts({"%F", "%L"});
        QTest::newRow("other letters") << "%1 %n %s" << texts({"%1", "%n", "%s"});
        QTest::newRow("signs of a shell")
            << "$HOME ~ *.v $(id) ; | > x && y"
            << texts({"$HOME", "~", "*.v", "$(id)", ";", "|", ">", "x", "&&", "y"});
    }

    void templatesBecomeArguments()
    {
        QFETCH(QString, arguments);
        QFETCH(QStringList, expected);
        QCOMPARE(recorderWith(arguments).argumentsFor(QStringLiteral("/w/top.v"), 12), expected);
    }

    void theProgramGetsTheArguments_data() { templatesBecomeArguments_data(); }

    void theProgramGetsTheArguments()
    {
        QFETCH(QString, arguments);
        QFETCH(QStringList, expected);
        const QString file = m_dir->filePath(QStringLiteral("top.v"));
        expected.replaceInStrings(QStringLiteral("/w/top.v"), file);

        QVERIFY(recorderWith(arguments).open(file, 12));

        QCOMPARE(m_recorder->waitForOne().arguments, expected);
    }

    void thePlaceMarkOfTheLineCountsInThePath()
    {
        QCOMPARE(recorderWith(QStringLiteral("%f")).argumentsFor(QStringLiteral("/w/a%l.v"), 3),
                 texts({"/w/a3.v"}));
    }

    void linesArePlainNumbers()
    {
        const ExternalEditor editor = recorderWith(QStringLiteral("%l"));
        QCOMPARE(editor.argumentsFor(QStringLiteral("/f"), 1234567), texts({"1234567"}));
        QCOMPARE(editor.argumentsFor(QStringLiteral("/f"), 0), texts({"0"}));
        QCOMPARE(editor.argumentsFor(QStringLiteral("/f"), -1), texts({"-1"}));
    }

    void thousandsOfTokensArePassed()
    {
        constexpr int count = 5000;
        QString tokens;
        for (int i = 0; i < count; ++i)
            tokens += QStringLiteral("%l:%1 ").arg(i);
        QVERIFY(recorderWith(tokens).open(m_dir->filePath(QStringLiteral("f")), 7));
        const QStringList arguments = m_recorder->waitForOne().arguments;
        QCOMPARE(arguments.size(), count);
        QCOMPARE(arguments.constFirst(), QStringLiteral("7:0"));
        QCOMPARE(arguments.constLast(), QStringLiteral("7:4999"));
    }

    void moreThanTheSystemTakesDoesNotStart()
    {
        // Far beyond what one argument may have.
        QVERIFY(!recorderWith(QString(4 * 1024 * 1024, QLatin1Char('x')))
                     .open(m_dir->filePath(QStringLiteral("f")), 1));
    }

    void anyNameOfAFileIsOneArgument_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("blanks") << "my file  here.v";
        QTest::newRow("double quotes") << R"(a"b c".v)";
        QTest::newRow("quotes") << "it's.v";
        QTest::newRow("command") << "$(touch hacked) `touch hacked`.v";
        QTest::newRow("separators") << "a; touch hacked && b | c > d.v";
        QTest::newRow("line feed") << "two\nlines.v";
        QTest::newRow("tab") << "a\tb.v";
        QTest::newRow("backslash") << R"(a\ b\n.v)";
        QTest::newRow("pattern") << "*?[a].v";
        QTest::newRow("option") << "--help.v";
        QTest::newRow("percent") << "100%.v";
        QTest::newRow("letters of the world") << "größe 设计.v";
    }

    void anyNameOfAFileIsOneArgument()
    {
        QFETCH(QString, name);
        const QString file = m_dir->filePath(name);
        QVERIFY(recorderWith(QStringLiteral("-g %f +%l")).open(file, 3));
        QCOMPARE(m_recorder->waitForOne().arguments,
                 QStringList({QStringLiteral("-g"), file, QStringLiteral("+3")}));
        QVERIFY(!QFile::exists(m_dir->filePath(QStringLiteral("hacked"))));
    }

    void theFolderOfTheFileIsTheWorkingFolder_data() { anyNameOfAFileIsOneArgument_data(); }

    void theFolderOfTheFileIsTheWorkingFolder()
    {
        QFETCH(QString, name);
        QVERIFY(QDir(m_dir->path()).mkdir(name));
        const QString folder = m_dir->filePath(name);
        QVERIFY(recorderWith(QString()).open(folder + QStringLiteral("/top.v"), 1));
        QCOMPARE(m_recorder->waitForOne().folder, QFileInfo(folder).canonicalFilePath());
    }

    void aRelativePathIsPassedAsItIs()
    {
        QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("sub")));
        const QString before = QDir::currentPath();
        QDir::setCurrent(m_dir->path());
        const bool started =
            recorderWith(QStringLiteral("%f")).open(QStringLiteral("sub/top.v"), 1);
        QDir::setCurrent(before);
        QVERIFY(started);
        const LaunchRecorder::Launch launch = m_recorder->waitForOne();
        QCOMPARE(launch.arguments, texts({"sub/top.v"}));
        QCOMPARE(launch.folder,
                 QFileInfo(m_dir->filePath(QStringLiteral("sub"))).canonicalFilePath());
    }

    void theProgramIsNobodysChild()
    {
        // It tells whose child it is, and stays until it is told to go.
        const QString record = m_dir->filePath(QStringLiteral("parent"));
        const QString leave = m_dir->filePath(QStringLiteral("leave"));
        ExternalEditor editor = recorderWith(QStringLiteral("%f"));
        editor.program = m_dir->filePath(QStringLiteral("editor"));
        QFile script(editor.program);
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nexec >/dev/null 2>&1\n"
                     "echo $PPID >parent.part && mv parent.part parent || exit\n"
                     "for i in $(seq 300); do [ -e leave ] && mv leave left && exit\n"
                     "sleep 0.1; done\n");
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        script.close();

        QVERIFY(editor.open(m_dir->filePath(QStringLiteral("top.v")), 1));

        QTRY_VERIFY(QFile::exists(record));
        QFile parent(record);
        QVERIFY(parent.open(QIODevice::ReadOnly));
        QVERIFY(parent.readAll().trimmed().toLongLong() != QCoreApplication::applicationPid());
        QVERIFY(QFile(leave).open(QIODevice::WriteOnly));
        QTRY_VERIFY(QFile::exists(m_dir->filePath(QStringLiteral("left"))));
    }

    void theFileNeedNotExist()
    {
        const QString file = m_dir->filePath(QStringLiteral("none.v"));
        QVERIFY(recorderWith(QStringLiteral("%f")).open(file, 1));
        QCOMPARE(m_recorder->waitForOne().arguments, QStringList(file));
        QVERIFY(!QFile::exists(file));
    }

    void aBareNameIsLookedForInTheSearchPath()
    {
        QVERIFY(
            QFile::link(LaunchRecorder::program(), m_dir->filePath(QStringLiteral("my-editor"))));
        const QByteArray before = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(m_dir->path()) + ':' + before);
        ExternalEditor editor = recorderWith(QStringLiteral("found"));
        editor.program = QStringLiteral("my-editor");
        const bool started = editor.open(QStringLiteral("/f"), 1);
        qputenv("PATH", before);
        QVERIFY(started);
        QCOMPARE(m_recorder->waitForOne().arguments, texts({"found"}));
    }

    void theProgramIsUsedAsItStands()
    {
        const QString odd = m_dir->filePath(QStringLiteral("my $(editor) \"x\""));
        QVERIFY(QFile::link(LaunchRecorder::program(), odd));
        ExternalEditor editor = recorderWith(QStringLiteral("odd"));
        editor.program = odd;
        QVERIFY(editor.open(QStringLiteral("/f"), 1));
        QCOMPARE(m_recorder->waitForOne().arguments, texts({"odd"}));
    }

    void whatIsNoProgramDoesNotStart_data()
    {
        QTest::addColumn<QString>("program");
        QTest::newRow("empty") << "";
        QTest::newRow("missing") << "/no/such/editor";
        QTest::newRow("missing in the search path") << "no-such-editor-anywhere";
        QTest::newRow("folder") << "/usr";
        QTest::newRow("not executable") << "plain.txt";
        QTest::newRow("with arguments") << LaunchRecorder::program() + QStringLiteral(" %f");
        QTest::newRow("in quotes")
            << QLatin1Char('"') + LaunchRecorder::program() + QLatin1Char('"');
        QTest::newRow("command of a shell") << "true;";
        QTest::newRow("home") << "~/editor";
        QTest::newRow("blank") << " ";
    }

    void whatIsNoProgramDoesNotStart()
    {
        QFETCH(QString, program);
        if (program == QLatin1String("plain.txt")) {
            program = m_dir->filePath(program);
            QFile plain(program);
            QVERIFY(plain.open(QIODevice::WriteOnly));
        }
        ExternalEditor editor = recorderWith(QStringLiteral("%f"));
        editor.program = program;
        QVERIFY(!editor.open(m_dir->filePath(QStringLiteral("top.v")), 1));
        QVERIFY(!QApplication::activeModalWidget()); // and nothing is said
        QVERIFY(m_recorder->nothingWasStarted());
    }

    void anEditorIsOpenedByName()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(recorderWith(QStringLiteral("%f +%l")));
        const QString file = m_dir->filePath(QStringLiteral("top.v"));
        QVERIFY(ExternalEditorManager::openEditor(QStringLiteral("recorder"), file));
        const LaunchRecorder::Launch launch = m_recorder->waitForOne();
        QCOMPARE(launch.arguments, QStringList({file, QStringLiteral("+1")}));
        QCOMPARE(launch.folder, QFileInfo(m_dir->path()).canonicalFilePath());
    }

    void whatCannotBeOpenedByNameStartsNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("file");
        QTest::newRow("empty name") << ""
                                    << "/w/top.v";
        QTest::newRow("empty file") << "recorder"
                                    << "";
        QTest::newRow("unknown name") << "Recorder"
                                      << "/w/top.v";
    }

    void whatCannotBeOpenedByNameStartsNothing()
    {
        QFETCH(QString, name);
        QFETCH(QString, file);
        const CoreFixture core;
        ExternalEditor nameless = recorderWith(QStringLiteral("%f"));
        nameless.name.clear();
        ExternalEditorManager::applyData({recorderWith(QStringLiteral("%f")), nameless});
        QVERIFY(!ExternalEditorManager::openEditor(name, file));
        QVERIFY(m_recorder->nothingWasStarted());
    }

    void anEditorThatDoesNotStartIsNotOpened()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("no-such-editor"));
        QVERIFY(!ExternalEditorManager::openEditor(QStringLiteral("no-such-editor"),
                                                   QStringLiteral("/w/top.v")));
    }

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<LaunchRecorder> m_recorder;
};

QTEST_MAIN(TestExternalEditorLaunch)
#include "tst_externaleditorlaunch.moc"
