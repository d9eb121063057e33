// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "program.h"
#include "support/testhome.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The program started with a project on its command line.
class TestProjectOption final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void anotherSpellingOpensNothing_data();
    void anotherSpellingOpensNothing();
    void aProjectThatCannotBeOpenedIsToldOverTheWindow();
    void twoStartsOfOneProjectShareIt();

private:
    static QStringList recentProjects();
    /// A copy of the example, which stays as it is.
    [[nodiscard]] QString copyExample() const;

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestProjectOption::init()
{
    removeFromTestHome(QStringLiteral(".config"));
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

QStringList TestProjectOption::recentProjects()
{
    return storedPaths(QStringLiteral("Core/RecentProjects"));
}

QString TestProjectOption::copyExample() const
{
    const QDir target(QFileInfo(m_dir->path()).canonicalFilePath());
    const QDir source(QStringLiteral(EXAMPLE_PROJECT));
    QDirIterator files(source.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = target.filePath(source.relativeFilePath(files.next()));
        QDir().mkpath(QFileInfo(path).path());
        if (!QFile::copy(files.filePath(), path))
            QTest::qFail(qPrintable(path), __FILE__, __LINE__);
    }
    return target.filePath(QStringLiteral("blinky.kprj"));
}

void TestProjectOption::anotherSpellingOpensNothing_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<bool>("withPath");
    QTest::newRow("upper case") << QStringList{QStringLiteral("-PRJ")} << true;
    QTest::newRow("alone") << QStringList{QStringLiteral("-prj")} << false;
    QTest::newRow("second place") << QStringList{QStringLiteral("--verbose"),
                                                 QStringLiteral("-prj")}
                                  << true;
}

void TestProjectOption::anotherSpellingOpensNothing()
{
    QFETCH(QStringList, before);
    QFETCH(const bool, withPath);
    const QString project = copyExample();
    // Opened after the project would be, and so telling when it has not been.
    const QString file = QFileInfo(project).dir().filePath(QStringLiteral("rtl/blinky.v"));
    if (withPath)
        before.append(project);
    Program program;
    QCOMPARE(program.start(before), QString());
    program.picture(QStringLiteral("no-project"));
    program.key(QStringLiteral("ctrl+o"));
    QVERIFY(program.waitForActive(QStringLiteral("Open File")));
    program.type(file);
    program.key(QStringLiteral("Return"));
    SOON_COMPARE(storedPaths(QStringLiteral("Core/RecentFiles")), QStringList{file});

    QVERIFY(recentProjects().isEmpty());
    QCOMPARE(program.windowTitles().size(), 1);
    // Not endWell(): one of them talks.
    program.closeMainWindow();
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.exitCode(), 0);
}

void TestProjectOption::aProjectThatCannotBeOpenedIsToldOverTheWindow()
{
    Program program;
    // The message takes the keyboard from the main window.
    const QStringList arguments = {QStringLiteral("-prj"), QStringLiteral("/no/such/p.kprj")};
    QCOMPARE(program.launch(arguments), QString());
    QVERIFY(program.waitForActive(QStringLiteral("Open Project")));
    program.picture(QStringLiteral("prj-missing"));
    program.key(QStringLiteral("Return"));
    QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));

    QVERIFY(recentProjects().isEmpty());
    endWell(&program);
}

void TestProjectOption::twoStartsOfOneProjectShareIt()
{
    const QString project = copyExample();
    const QByteArray before = contentOf(project);
    const QStringList arguments = {QStringLiteral("-prj"), project, QStringLiteral("--plugin-path"),
                                   QStringLiteral(PROBE_PLUGIN_DIR)};
    Program first;
    Program second;
    QCOMPARE(first.launch(arguments), QString());
    QCOMPARE(second.launch(arguments), QString());
    for (const Program *program : {&first, &second}) {
        QVERIFY(program->waitForMainWindow());
        SOON_COMPARE(program->lastLine(QStringLiteral("project ")),
                     QString(QStringLiteral("project ") + project));
    }
    second.picture(QStringLiteral("two-starts"));

    endWell(&second);
    endWell(&first);
    QCOMPARE(contentOf(project), before);
    QCOMPARE(recentProjects(), QStringList{project});
}

QTEST_MAIN(TestProjectOption)
#include "tst_projectoption.moc"
