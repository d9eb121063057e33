// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "program.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QPoint>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The program with a plugin of somebody else's: its panels of priorities 10, 90 and 50
/// at the bottom, and its requests to open and close a project.
class TestPlugin final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void panelsOfOneAreaAreTabsInTheOrderOfTheirPriorities();
    void resetLayoutBringsDraggedPanelsBack();
    void panelsAreHiddenAndShownFromTheMenu();
    void requestsOpenAndCloseTheProject();
    void requestToCloseAsksAboutUnsavedWork();
    void requestForAMissingFileIsTold();

private:
    static QStringList arguments();
    static QString layout(const Program &program);
    /// Where the plugin said that @p what ("tab 90", "title 50") is.
    static QPoint placeOf(const Program &program, const QString &what);
    static void bringForward(Program *program, const QString &panel);
    static void resetLayout(Program *program);
    static void request(Program *program, const QString &letter);

    [[nodiscard]] QString write(const QString &name, const QByteArray &bytes) const;
    [[nodiscard]] QString writeProject() const;

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

const QString AT_HOME = QStringLiteral("layout left [Project]; bottom [90] 50 10");
const QString TO_OPEN = QStringLiteral("r");
const QString TO_CLOSE = QStringLiteral("c");

} // namespace

void TestPlugin::init()
{
    removeFromTestHome(QStringLiteral(".config"));
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    qunsetenv("PROBE_PROJECT");
}

QStringList TestPlugin::arguments()
{
    return {QStringLiteral("--plugin-path"), QStringLiteral(PROBE_PLUGIN_DIR)};
}

QString TestPlugin::layout(const Program &program)
{
    return program.lastLine(QStringLiteral("layout "));
}

QPoint TestPlugin::placeOf(const Program &program, const QString &what)
{
    const QStringList words =
        program.lastLine(what + QLatin1Char(' ')).split(QLatin1Char(' ')).mid(2);
    return {words.value(0).toInt(), words.value(1).toInt()};
}

void TestPlugin::bringForward(Program *program, const QString &panel)
{
    const QPoint tab = placeOf(*program, QLatin1String("tab ") + panel);
    program->click(tab.x(), tab.y());
    SOON_VERIFY(layout(*program).contains(QLatin1Char('[') + panel + QLatin1Char(']')));
}

void TestPlugin::resetLayout(Program *program)
{
    // Up from the end: Panels, a separator, Reset Layout.
    program->keys({QStringLiteral("alt+w"), QStringLiteral("Up"), QStringLiteral("Up"),
                   QStringLiteral("Return")});
}

void TestPlugin::request(Program *program, const QString &letter)
{
    program->keys({QStringLiteral("alt+t"), letter});
}

QString TestPlugin::write(const QString &name, const QByteArray &bytes) const
{
    const QString path = QDir(QFileInfo(m_dir->path()).canonicalFilePath()).filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

QString TestPlugin::writeProject() const
{
    return write(QStringLiteral("p.kprj"),
                 "<Project>\n  <Template>FPGA</Template>\n  <Files>\n"
                 "    <File kind=\"verilog\" path=\"a.v\"/>\n  </Files>\n</Project>\n");
}

void TestPlugin::panelsOfOneAreaAreTabsInTheOrderOfTheirPriorities()
{
    Program program;
    QCOMPARE(program.start(arguments()), QString());

    SOON_COMPARE(layout(program), AT_HOME);
    program.picture(QStringLiteral("panels"));

    endWell(&program);
}

void TestPlugin::resetLayoutBringsDraggedPanelsBack()
{
    Program program;
    QCOMPARE(program.start(arguments()), QString());
    SOON_COMPARE(layout(program), AT_HOME);
    const QRect window = program.mainWindowGeometry();

    // Into the middle, where it floats.
    program.drag(placeOf(program, QStringLiteral("title 90")), window.center());
    SOON_COMPARE(layout(program),
                 QStringLiteral("layout left [Project]; bottom [50] 10; floating 90"));
    program.picture(QStringLiteral("panels-floating"));
    // To the right edge.
    bringForward(&program, QStringLiteral("10"));
    program.drag(placeOf(program, QStringLiteral("title 10")),
                 QPoint(window.right() - 12, window.center().y()));
    SOON_COMPARE(layout(program),
                 QStringLiteral("layout left [Project]; right [10]; bottom [50]; floating 90"));
    program.picture(QStringLiteral("panels-right"));
    // Onto the panel at the left, as a tab beside it.
    program.drag(placeOf(program, QStringLiteral("title 50")),
                 placeOf(program, QStringLiteral("title Project")) + QPoint(40, 200));
    SOON_COMPARE(layout(program),
                 QStringLiteral("layout left [50] Project; right [10]; floating 90"));
    program.picture(QStringLiteral("panels-dragged"));

    resetLayout(&program);

    SOON_COMPARE(layout(program), AT_HOME);
    program.picture(QStringLiteral("panels-reset"));
    endWell(&program);
}

void TestPlugin::panelsAreHiddenAndShownFromTheMenu()
{
    Program program;
    QCOMPARE(program.start(arguments()), QString());
    SOON_COMPARE(layout(program), AT_HOME);
    // Up from the end: Panels, and in it the second of the plugin's.
    const QStringList toPanel = {QStringLiteral("alt+w"), QStringLiteral("Up"),
                                 QStringLiteral("Right"), QStringLiteral("Down")};

    program.keys(toPanel);
    program.picture(QStringLiteral("panels-menu"));
    program.key(QStringLiteral("Return"));
    SOON_COMPARE(layout(program),
                 QStringLiteral("layout left [Project]; bottom [50] 10; hidden 90"));
    program.keys(toPanel);
    program.key(QStringLiteral("Return"));

    SOON_COMPARE(layout(program), QStringLiteral("layout left [Project]; bottom 90 [50] 10"));
    endWell(&program);
}

void TestPlugin::requestsOpenAndCloseTheProject()
{
    const QString project = writeProject();
    qputenv("PROBE_PROJECT", QFile::encodeName(project));
    Program program;
    QCOMPARE(program.start(arguments()), QString());

    request(&program, TO_OPEN);
    SOON_COMPARE(program.lastLine(QStringLiteral("project ")),
                 QString(QStringLiteral("project ") + project));
    QCOMPARE(storedPaths(QStringLiteral("Core/RecentProjects")), QStringList{project});
    program.picture(QStringLiteral("opened-by-event"));
    request(&program, TO_CLOSE);

    SOON_COMPARE(program.lastLine(QStringLiteral("project ")), QStringLiteral("project none"));
    endWell(&program);
}

void TestPlugin::requestToCloseAsksAboutUnsavedWork()
{
    const QString project = writeProject();
    const QString file = write(QStringLiteral("a.v"), "old\n");
    qputenv("PROBE_PROJECT", QFile::encodeName(project));
    Program program;
    QCOMPARE(program.start(arguments() + QStringList{file}), QString());
    SOON_COMPARE(storedPaths(QStringLiteral("Core/RecentFiles")), QStringList{file});
    program.key(QStringLiteral("ctrl+Home"));
    program.type(QStringLiteral("new "));
    request(&program, TO_OPEN);
    const QString opened = QStringLiteral("project ") + project;
    SOON_COMPARE(program.lastLine(QStringLiteral("project ")), opened);

    const int before = program.windowTitles().size();
    request(&program, TO_CLOSE);
    SOON_VERIFY(program.windowTitles().size() > before);
    program.picture(QStringLiteral("close-by-event"));
    program.key(QStringLiteral("Escape"));
    SOON_COMPARE(program.windowTitles().size(), before);

    QCOMPARE(program.lastLine(QStringLiteral("project ")), opened);
    // Nothing is lost.
    program.key(QStringLiteral("ctrl+s"));
    SOON_COMPARE(contentOf(file), QByteArray("new old\n"));
    endWell(&program);
}

void TestPlugin::requestForAMissingFileIsTold()
{
    qputenv("PROBE_PROJECT", "/no/such/p.kprj");
    Program program;
    QCOMPARE(program.start(arguments()), QString());

    request(&program, TO_OPEN);

    QVERIFY(program.waitForActive(QStringLiteral("Open Project")));
    program.picture(QStringLiteral("missing-project"));
    program.key(QStringLiteral("Return"));
    QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));
    QCOMPARE(program.lastLine(QStringLiteral("project ")), QString());
    QVERIFY(storedPaths(QStringLiteral("Core/RecentProjects")).isEmpty());
    endWell(&program);
}

QTEST_MAIN(TestPlugin)
#include "tst_plugin.moc"
