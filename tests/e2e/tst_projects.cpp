// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Projects from the first to the last day, with keys, clicks and a real drag.

#include "program.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QString MAIN_WINDOW = QStringLiteral("KELMO FPGA Designer");

QStringList recentProjects()
{
    return storedPaths(QStringLiteral("Core/RecentProjects"));
}

QStringList recentFiles()
{
    return storedPaths(QStringLiteral("Core/RecentFiles"));
}

/// Into the blank part of the project panel, below its few files.
void clickIntoPanel(Program &program)
{
    const QRect window = program.mainWindowGeometry();
    program.click(window.left() + 60, window.bottom() - 200);
}

} // namespace

class TestProjects final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        removeFromTestHome(QStringLiteral(".config"));
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

    void aProjectIsMadeFilledClosedAndFoundAgain()
    {
        const QString project = path(QStringLiteral("blink/blink.kprj"));
        const QString source = path(QStringLiteral("blink/src/counter.v"));
        Program program;
        QCOMPARE(program.start(), QString());
        program.picture(QStringLiteral("project-1-none"));

        // A new project; its wizard is the first.
        program.key(QStringLiteral("ctrl+n"));
        QVERIFY(program.waitForActive(QStringLiteral("New")));
        program.picture(QStringLiteral("project-2-new-dialog"));
        program.key(QStringLiteral("Return"));
        QVERIFY(program.waitForActive(QStringLiteral("New FPGA Project")));
        program.type(QStringLiteral("blink"));
        program.keys({QStringLiteral("alt+f"), QStringLiteral("ctrl+a")});
        program.type(m_dir->path());
        program.picture(QStringLiteral("project-3-name"));
        program.key(QStringLiteral("Return"));
        program.type(QStringLiteral("hx1k tq144"));
        program.picture(QStringLiteral("project-4-device"));
        program.key(QStringLiteral("Return"));
        program.picture(QStringLiteral("project-5-summary"));
        program.key(QStringLiteral("Return"));
        SOON_COMPARE(recentProjects(), QStringList{project});
        QVERIFY(program.waitForActive(MAIN_WINDOW));
        QVERIFY(contentOf(project).contains("<Device part=\"iCE40HX1K-TQ144\" package=\"TQ144\""));
        QVERIFY(QFileInfo(path(QStringLiteral("blink/src"))).isDir());
        program.picture(QStringLiteral("project-6-open"));

        // A Verilog file in it; typing finds its wizard.
        program.key(QStringLiteral("ctrl+n"));
        QVERIFY(program.waitForActive(QStringLiteral("New")));
        program.type(QStringLiteral("Verilog"));
        program.key(QStringLiteral("Return"));
        QVERIFY(program.waitForActive(QStringLiteral("New Verilog File")));
        program.type(QStringLiteral("counter"));
        program.picture(QStringLiteral("project-7-new-file"));
        program.key(QStringLiteral("Return"));
        SOON_COMPARE(recentFiles(), QStringList{source});
        QVERIFY(program.waitForActive(MAIN_WINDOW));
        QVERIFY(contentOf(project).contains("<File path=\"src/counter.v\" kind=\"verilog\""));

        // It is edited and saved.
        const QByteArray made = contentOf(source);
        QVERIFY(made.startsWith("module counter"));
        program.key(QStringLiteral("ctrl+Home"));
        program.type(QStringLiteral("// first"));
        program.key(QStringLiteral("Return"));
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(source), QByteArray("// first\n" + made));
        program.picture(QStringLiteral("project-8-edited"));

        // The project is closed, with its documents. Up from the end of the menu: Exit,
        // Recent Projects, Recent Files, Print, Close Project.
        program.keys({QStringLiteral("alt+f"), QStringLiteral("Up"), QStringLiteral("Up"),
                      QStringLiteral("Up"), QStringLiteral("Up"), QStringLiteral("Up")});
        program.picture(QStringLiteral("project-9-close"));
        program.key(QStringLiteral("Return"));
        program.picture(QStringLiteral("project-10-closed"));
        clickIntoPanel(program);
        program.keys({QStringLiteral("Home"), QStringLiteral("Down"), QStringLiteral("Return")});
        program.type(QStringLiteral("nobody hears this"));
        program.key(QStringLiteral("ctrl+s"));

        // It is opened again from the recent ones, and its file from the panel.
        program.keys({QStringLiteral("alt+f"), QStringLiteral("Up"), QStringLiteral("Up"),
                      QStringLiteral("Right")});
        program.picture(QStringLiteral("project-11-recent"));
        program.key(QStringLiteral("Return"));
        QVERIFY(program.waitForActive(MAIN_WINDOW));
        program.keys({QStringLiteral("alt+1"), QStringLiteral("Home"), QStringLiteral("Down"),
                      QStringLiteral("Return")});
        program.picture(QStringLiteral("project-12-again"));
        program.key(QStringLiteral("ctrl+Home"));
        program.type(QStringLiteral("// second"));
        program.key(QStringLiteral("Return"));
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(source), QByteArray("// second\n// first\n" + made));

        // From the document into the panel and back.
        program.keys(
            {QStringLiteral("alt+1"), QStringLiteral("alt+1"), QStringLiteral("ctrl+Home")});
        program.type(QStringLiteral("// third "));
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(source), QByteArray("// third // second\n// first\n" + made));
        endWell(&program);
    }

    void theExampleIsOpenedFromTheCommandLine()
    {
        const QString project = copyOfTheExample();
        Program program;
        QCOMPARE(program.start({QStringLiteral("-prj"), project}), QString());
        SOON_COMPARE(recentProjects(), QStringList{project});
        program.picture(QStringLiteral("example"));
        clickIntoPanel(program);
        program.keys({QStringLiteral("Home"), QStringLiteral("Down"), QStringLiteral("Return")});
        SOON_COMPARE(recentFiles(), QStringList{path(QStringLiteral("blinky/rtl/blinky.v"))});
        program.picture(QStringLiteral("example-file"));
        endWell(&program);
    }

    void filesOfAnotherProgramAreDroppedOnThePanel()
    {
        const QString project = copyOfTheExample();
        const QString dropped = path(QStringLiteral("extra top.sv"));
        QFile file(dropped);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        Program program;
        QCOMPARE(program.start({QStringLiteral("-prj"), project}), QString());
        SOON_COMPARE(recentProjects(), QStringList{project});
        const QRect window = program.mainWindowGeometry();
        const QPoint panel(window.left() + 100, window.bottom() - 200);
        QProcess source;
        source.start(QStringLiteral(DRAG_SOURCE), {dropped});
        QVERIFY(program.waitForActive(QStringLiteral("drag source")));
        program.picture(QStringLiteral("drag-1-begins"));
        // The window of the source is in the upper right corner.
        program.drag(QPoint(1550, 30), panel);
        SOON_VERIFY(contentOf(project).contains(
            "<File path=\"../extra top.sv\" kind=\"systemverilog\" enabled=\"true\"/>"));
        program.picture(QStringLiteral("drag-2-dropped"));
        source.kill();
        QVERIFY(source.waitForFinished());
        endWell(&program);
    }

private:
    [[nodiscard]] QString path(const QString &name) const { return m_dir->filePath(name); }

    /// Its project file.
    QString copyOfTheExample()
    {
        const QString from = QStringLiteral(EXAMPLE_PROJECT);
        const QString to = path(QStringLiteral("blinky"));
        if (QProcess::execute(QStringLiteral("cp"), {QStringLiteral("-r"), from, to}) != 0)
            QTest::qFail("the example could not be copied", __FILE__, __LINE__);
        return to + QStringLiteral("/blinky.kprj");
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_MAIN(TestProjects)
#include "tst_projects.moc"
