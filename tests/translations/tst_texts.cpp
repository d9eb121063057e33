// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "stations.h"
#include "textinspection.h"

#include "support/corefixture.h"

#include <appstyle/appstylemanager.h>
#include <devicedb/devicedb.h>
#include <extsys/iplugin.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QKeySequence>
#include <QLibraryInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPluginLoader>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>
#include <QTest>
#include <QTranslator>

#include <algorithm>
#include <memory>

namespace {

/// The parts of the table of devices, and what they are sorted by.
bool isOfDevice(const QString &text)
{
    static const QSet<QString> names = [] {
        QSet<QString> all;
        const DEV::DeviceDb table(QStringLiteral(DEVICE_TABLE));
        for (const DEV::Device &device : table.rows()) {
            for (const QString &name :
                 {device.series, device.package, device.speedGrade, device.part})
                all.insert(name);
        }
        return all;
    }();
    return names.contains(text);
}

/// An id of a command, or its keys as they are printed on the keyboard.
bool isOfCommand(const QString &text)
{
    const QList<Core::IAction *> commands = Core::ActionManager::actions();
    return std::any_of(commands.begin(), commands.end(), [&text](const Core::IAction *command) {
        return text == command->id()
               || text
                      == QKeySequence::listToString(command->shortcuts(), QKeySequence::NativeText);
    });
}

/// What is the same in every language: names, units, what the user typed and what
/// stands in files.
bool isFixed(const QString &text, const QString &place)
{
    // Chosen, and stored, by these names.
    if (place.endsWith(QLatin1String("QComboBox comboBoxTheme, entry")))
        return text == APPSTYLE::THEME_CLASSIC || text == APPSTYLE::THEME_DARK;
    // Boxes that have this title in every language, one with its text.
    if (place == QLatin1String("a name that is taken title")
        || place == QLatin1String("a file that is gone title"))
        return text == QLatin1String("Warning");
    if (place.startsWith(QLatin1String("a file that is gone: ")))
        return text.endsWith(QLatin1String(", file does not exist."));
    if (place.contains(QLatin1String("QTreeView treeCommands, "))
        || place.contains(QLatin1String("QListWidget listKeys, ")))
        return isOfCommand(text);
    // The file that a wizard is going to write.
    if (place.endsWith(QLatin1String("QPlainTextEdit preview, text")))
        return true;
    // By its name it offers itself.
    if (isOfDevice(text) || text == QApplication::applicationDisplayName())
        return true;
    static const QSet<QString> fixed{QStringLiteral("KELMO FPGA Designer"),
                                     QStringLiteral("README"),
                                     QStringLiteral("All Files (*)"),
                                     QStringLiteral("Verilog"),
                                     QStringLiteral("SystemVerilog"),
                                     QStringLiteral("VHDL"),
                                     QStringLiteral("DSP"),
                                     QStringLiteral("PLL"),
                                     QStringLiteral("UTF-8"),
                                     QStringLiteral("English")};
    if (fixed.contains(text))
        return true;
    // Numbers, files and folders, devices, ports and their directions.
    static const QRegularExpression data(QStringLiteral(
        "^([\\d.,/ xX*:|-]*|%f|~?/.*(\\n/.*)*|[\\w./-]+\\.(v|sv|vhd|sdc|pcn|kprj|ini)\\*?"
        "|[\\w. ]*blinky[\\w. ]*|walked|counter|pwm|src|in|out|inout|input|output"
        "|[A-Z]\\d+|[-\\w]+ \\(.*\\))$"));
    return data.match(text).hasMatch();
}

/// In the pseudo-language all that is translated stands between these.
bool isPseudo(QString text)
{
    // Files, patterns of files, keys.
    static const QRegularExpression data(
        QStringLiteral("[\\w./-]+\\.(v|sv|vhd|sdc|pcn|kprj)\\b|\\bREADME\\b|\\(\\*[^)]*\\)"
                       "|\\b((Ctrl|Alt|Shift)\\+)+\\w+$"));
    text.remove(data);
    static const QRegularExpression translated(QStringLiteral("«[^«»]*»"));
    for (QString before; before != text;) {
        before = text;
        text.remove(translated);
    }
    static const QRegularExpression letters(QStringLiteral("\\p{L}{2}"));
    return !text.contains(letters) && !text.contains(QChar(0xab)) && !text.contains(QChar(0xbb));
}

/// One by one: what a check says is cut after some lines.
void tell(const QStringList &faults)
{
    for (const QString &fault : faults)
        qWarning().noquote() << fault;
}

bool isChinese(const QString &text)
{
    static const QRegularExpression characters(QStringLiteral("\\p{Han}"));
    return text.contains(characters);
}

} // namespace

/// Walks the windows of the program in one language.
class TestTexts final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyTextIsTranslatedAndHasRoom_data();
    void everyTextIsTranslatedAndHasRoom();
    void theMenusAreTranslated();
    void fileTypesAreTranslated();
    void buttonsOfQtAreTranslated_data();
    void buttonsOfQtAreTranslated();
    void cleanupTestCase();

private:
    void load(const QString &name, const QString &folder);
    void start(const char *library);

    bool m_isPseudo = false;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
    std::unique_ptr<CoreFixture> m_core;
    std::vector<std::unique_ptr<QPluginLoader>> m_plugins;
};

void TestTexts::load(const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    QVERIFY2(translator->load(name, folder), qPrintable(folder + QLatin1Char('/') + name));
    QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
}

void TestTexts::start(const char *library)
{
    auto loader = std::make_unique<QPluginLoader>(QLatin1String(library));
    auto *const plugin = qobject_cast<ExtSys::IPlugin *>(loader->instance());
    QVERIFY2(plugin, qPrintable(loader->errorString()));
    QVERIFY(plugin->initialize());
    plugin->extensionsInitialized();
    m_plugins.push_back(std::move(loader));
}

void TestTexts::initTestCase()
{
    const QString language = QStringLiteral(WALKED_LANGUAGE);
    const QString folder = QStringLiteral(CATALOGUES);
    m_isPseudo = language != QLatin1String("zh_CN");
    if (!m_isPseudo)
        load(QStringLiteral("qtbase_zh_CN"),
             QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    const QStringList catalogues =
        QDir(folder).entryList({QLatin1String("*_") + language + QLatin1String(".qm")});
    QVERIFY(catalogues.size() >= 7);
    for (const QString &catalogue : catalogues)
        load(catalogue, folder);
    // A file dialog of Qt's own.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_core = std::make_unique<CoreFixture>();
    // Stored, because the options dialog shows what is.
    Core::IdeCore::userSettings()->setValue(
        QStringLiteral("Theme"), qEnvironmentVariable("KELMO_TEXT_THEME", APPSTYLE::THEME_CLASSIC));
    APPSTYLE::AppStyleManager::instance()->updateStyle();
    start(TEXTEDITOR_PLUGIN);
    start(FPGAPROJECT_PLUGIN);
    start(KEYBINDINGS_PLUGIN);
    m_core->show();
    Core::ProjectManager::openProject(QStringLiteral(EXAMPLE_PROJECT "/blinky.kprj"));
    QVERIFY(Core::ProjectManager::currentProject());
    QVERIFY(Core::EditorManager::openEditor(QStringLiteral(EXAMPLE_PROJECT "/rtl/blinky.v")));
}

void TestTexts::everyTextIsTranslatedAndHasRoom_data()
{
    QTest::addColumn<int>("number");
    int number = 0;
    const std::vector<Station> all = stations();
    for (const Station &station : all)
        QTest::newRow(station.name) << number++;
}

void TestTexts::everyTextIsTranslatedAndHasRoom()
{
    QFETCH(const int, number);
    TextInspection inspection([this](const QString &text, const QString &place) {
        return isFixed(text, place) || (m_isPseudo ? isPseudo(text) : isChinese(text));
    });
    int windows = 0;

    stations().at(number).walk([&](QWidget *window, const QString &name) {
        ++windows;
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTest::qWait(0);
        inspection.inspect(window, name);
        const QString pictures = qEnvironmentVariable("KELMO_TEXT_PICTURES");
        if (!pictures.isEmpty()) {
            window->grab().save(QStringLiteral("%1/%2-%3-%4.png")
                                    .arg(pictures, QStringLiteral(WALKED_LANGUAGE))
                                    .arg(number)
                                    .arg(windows));
        }
    });

    QVERIFY(windows > 0);
    tell(inspection.faults());
    QVERIFY(inspection.faults().isEmpty());
}

void TestTexts::theMenusAreTranslated()
{
    TextInspection inspection([this](const QString &text, const QString &place) {
        return isFixed(text, place) || (m_isPseudo ? isPseudo(text) : isChinese(text));
    });
    const QMenuBar *const bar = Core::ViewManager::mainWindow()->menuBar();
    const QList<QAction *> actions = bar->actions();

    for (const QAction *action : actions) {
        QVERIFY(action->menu());
        inspection.inspectMenu(action->menu(), action->text());
    }

    QVERIFY(inspection.texts() > 50);
    tell(inspection.faults());
    QVERIFY(inspection.faults().isEmpty());
}

void TestTexts::fileTypesAreTranslated()
{
    const QStringList filters = Core::IdeCore::mimeDatabase()->filterStrings();

    QVERIFY(filters.contains(m_isPseudo ? QStringLiteral("«VHDL Fílé~~~~~» (*.vhd *.vhdl)")
                                        : QStringLiteral("VHDL 文件 (*.vhd *.vhdl)")));
    TextInspection inspection([this](const QString &text, const QString &) {
        return m_isPseudo ? isPseudo(text) : isChinese(text);
    });
    for (const QString &filter : filters)
        inspection.inspectText(filter, QStringLiteral("file types"));
    tell(inspection.faults());
    QVERIFY(inspection.faults().isEmpty());
}

void TestTexts::buttonsOfQtAreTranslated_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("chinese");
    QTest::newRow("OK") << int(QMessageBox::Ok) << QStringLiteral("确定");
    QTest::newRow("Cancel") << int(QMessageBox::Cancel) << QStringLiteral("取消");
    QTest::newRow("Apply") << int(QMessageBox::Apply) << QStringLiteral("应用");
    QTest::newRow("Discard") << int(QMessageBox::Discard) << QStringLiteral("丢弃");
    QTest::newRow("Save All") << int(QMessageBox::SaveAll) << QStringLiteral("全部保存");
    QTest::newRow("Yes") << int(QMessageBox::Yes) << QStringLiteral("是(&Y)");
    QTest::newRow("No") << int(QMessageBox::No) << QStringLiteral("否(&N)");
}

void TestTexts::buttonsOfQtAreTranslated()
{
    QFETCH(const int, button);
    QFETCH(const QString, chinese);

    QMessageBox box;
    const QString text = box.addButton(static_cast<QMessageBox::StandardButton>(button))->text();

    if (m_isPseudo)
        QVERIFY2(isPseudo(QString(text).remove(QLatin1Char('&'))), qPrintable(text));
    else
        QCOMPARE(text, chinese);
}

void TestTexts::cleanupTestCase()
{
    QVERIFY(Core::ProjectManager::closeCurrentProject());
    while (!m_plugins.empty()) {
        qobject_cast<ExtSys::IPlugin *>(m_plugins.back()->instance())->shutDown();
        m_plugins.pop_back();
    }
    m_core.reset();
}

QTEST_MAIN(TestTexts)
#include "tst_texts.moc"
