// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// External editors, set up by keys alone and used from the project panel.

#include "program.h"
#include "support/launchrecorder.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QString MAIN_WINDOW = QStringLiteral("KELMO FPGA Designer");
// All that a shell or a list of words would stumble over.
const QString SOURCE = QStringLiteral("my \"top\" it's $(x).v");

} // namespace

class TestExternalProgram final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void sourcesOpenInTheDefaultEditorThatWasSetUp();
    void aProgramThatDoesNotStartIsToldAndTheFileOpensInside();

private:
    [[nodiscard]] QString path(const QString &name) const { return m_folder + name; }
    [[nodiscard]] QStringList arguments() const;
    void write(const QString &name, const QByteArray &bytes) const;

    /// Shows the page, with the keyboard on its check box.
    static void openPage(Program *program);
    /// With the keyboard on "Add", before and after.
    static void add(Program *program, const QString &name, const QString &path,
                    const QString &arguments);
    /// The first of the project.
    static void openSource(Program *program);
    static void accept(Program *program);
    static QStringList recentFiles() { return storedPaths(QStringLiteral("Core/RecentFiles")); }

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_folder;
};

void TestExternalProgram::init()
{
    removeFromTestHome(named(".config"));
    // One that is stored is no news to the page of the themes, which would tell.
    QSettings settings(QDir::homePath() + named("/.config/KelmoWare/IDE.ini"),
                       QSettings::IniFormat);
    settings.setValue(named("Theme"), named("Classic"));
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_folder = QFileInfo(m_dir->path()).canonicalFilePath() + named("/a project/");
    QVERIFY(QDir().mkpath(path(named("rtl"))));
    write(named("p.kprj"), "<Project>\n  <Template>FPGA</Template>\n  <Files>\n"
                           "    <File kind=\"verilog\" path=\"rtl/"
                               + SOURCE.toUtf8().replace('"', "&quot;")
                               + "\"/>\n  </Files>\n</Project>\n");
    write(named("rtl/") + SOURCE, "one\ntwo\nthree\n");
}

QStringList TestExternalProgram::arguments() const
{
    return {named("-prj"), path(named("p.kprj")), named("--plugin-path"),
            named(LISTENER_PLUGIN_DIR)};
}

void TestExternalProgram::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        QTest::qFail(qPrintable(file.fileName()), __FILE__, __LINE__);
}

void TestExternalProgram::openPage(Program *program)
{
    press(program, {"alt+t", "o"});
    if (!program->waitForActive(named("Options")))
        QTest::qFail("the options did not come", __FILE__, __LINE__);
    // From the categories over the tabs.
    press(program, {"Home", "Down", "Down", "Tab", "Tab"});
}

void TestExternalProgram::add(Program *program, const QString &name, const QString &path,
                              const QString &arguments)
{
    press(program, {"space"});
    if (!program->waitForActive(named("Create an external editor")))
        QTest::qFail("the dialog did not come", __FILE__, __LINE__);
    program->type(name);
    press(program, {"Tab"});
    program->type(path);
    press(program, {"Tab", "Tab"});
    program->type(arguments);
    press(program, {"Return"});
    if (!program->waitForActive(named("Options")))
        QTest::qFail("the dialog did not go", __FILE__, __LINE__);
}

void TestExternalProgram::openSource(Program *program)
{
    press(program, {"alt+1", "Home", "Down", "Return"});
}

void TestExternalProgram::accept(Program *program)
{
    press(program, {"Return"});
    QVERIFY(program->waitForActive(MAIN_WINDOW));
}

void TestExternalProgram::sourcesOpenInTheDefaultEditorThatWasSetUp()
{
    const QString source = path(named("rtl/") + SOURCE);
    const QString editor = LaunchRecorder::program();
    const auto recorder = std::make_unique<LaunchRecorder>();
    Program program;
    QCOMPARE(program.start(arguments()), QString());
    openPage(&program);
    // Always; then over the table to "Add".
    press(&program, {"space", "Tab", "Tab"});
    add(&program, named("gone"), named("/no/such/editor"), named("%f"));
    add(&program, named("other"), editor, named("other"));
    add(&program, named("mine"), editor, named("not yet"));
    // The first, which is the default, goes.
    press(&program, {"shift+Tab", "Down", "Up", "Up", "Up", "Tab", "Tab", "space"});
    // The last is given its arguments and made the default.
    press(&program, {"shift+Tab", "shift+Tab", "Down", "Down", "F2"});
    QVERIFY(program.waitForActive(named("Modifying editor")));
    press(&program, {"Tab", "Tab", "Tab", "ctrl+a"});
    program.type(named("line:%l in %f"));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("Options")));
    press(&program, {"Tab", "Tab", "Tab", "space"});
    program.picture(named("external-page"));
    accept(&program);

    openSource(&program);
    const LaunchRecorder::Launch launch = recorder->waitForOne();
    QCOMPARE(launch.arguments, (QStringList{named("line:1"), named("in"), source}));
    QCOMPARE(launch.folder, path(named("rtl")));
    endWell(&program);
    QCOMPARE(recentFiles(), QStringList());

    // After a restart, too. What the program is started with opens inside; it is where it
    // stands there that it is opened outside.
    QCOMPARE(program.start(arguments() << source), QString());
    SOON_COMPARE(recentFiles(), QStringList{source});
    press(&program, {"ctrl+Home", "Down", "Down"});
    openSource(&program);
    const QList<LaunchRecorder::Launch> launches = recorder->wait(2);
    QCOMPARE(launches.at(1).arguments, (QStringList{named("line:3"), named("in"), source}));
    QCOMPARE(launches.at(1).folder, path(named("rtl")));
    endWell(&program);
}

void TestExternalProgram::aProgramThatDoesNotStartIsToldAndTheFileOpensInside()
{
    const QString source = path(named("rtl/") + SOURCE);
    Program program;
    QCOMPARE(program.start(arguments()), QString());
    openPage(&program);
    press(&program, {"space", "Tab", "Tab"});
    add(&program, named("gone"), named("/no/such editor"), named("at %l %f"));
    accept(&program);

    openSource(&program);
    QVERIFY(program.waitForActive(named("External Editor")));
    program.picture(named("external-not-started"));
    SOON_COMPARE(
        program.lastLine(named("message ")),
        named("message External Editor|The external editor \"gone\" could not be started.\\n"
              "\\nProgram: /no/such editor\\nArguments: at 1 \"")
            + source + named("\"\\n\\nThe program does not exist.|OK"));
    press(&program, {"Return"});
    SOON_COMPARE(recentFiles(), QStringList{source});
    QVERIFY(program.waitForActive(MAIN_WINDOW));
    press(&program, {"ctrl+End"});
    program.type(named("inside"));
    press(&program, {"ctrl+s"});
    SOON_COMPARE(contentOf(source), QByteArray("one\ntwo\nthree\ninside"));
    endWell(&program);
}

QTEST_GUILESS_MAIN(TestExternalProgram)
#include "tst_externalprogram.moc"
