// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Settings that nobody would expect: the program starts, its options can be opened
// and applied, and it ends.

#include "support/corefixture.h"
#include "support/ordinaryuser.h"

#include <appstyle/appstylemanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/options/optiondialog.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>

using namespace Core;

namespace {

/// What the dialog showed before it was left by OK.
struct Seen
{
    QString theme;
    QString language;
    QString iconSize;
    QString directory;
    bool warned = false;
    QString warning;
};

void remove(const QString &path)
{
    if (QFileInfo(path).isDir())
        QDir(path).removeRecursively();
    else
        QFile::remove(path);
}

/// A file for sure; what was there goes.
void put(const QString &path, const QByteArray &bytes)
{
    remove(path);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Looks through all pages of the dialog.
Seen look(const QWidget *dialog)
{
    auto *list = dialog->findChild<QListView *>(QStringLiteral("categoryList"));
    for (int row = list->model()->rowCount() - 1; row >= 0; --row)
        list->setCurrentIndex(list->model()->index(row, 0));
    const auto box = [dialog](const char *name) {
        return dialog->findChild<QComboBox *>(QLatin1String(name))->currentText();
    };
    const auto *warning = dialog->findChild<QLabel *>(QStringLiteral("storeLabel"));
    return {box("comboBoxTheme"),
            box("comboBoxLanguage"),
            box("comboBoxIconSize"),
            dialog->findChild<QLineEdit *>(QStringLiteral("lineEditProjectPath"))->text(),
            warning->isVisible(),
            warning->text()};
}

/// Opens the options, looks at them and leaves them by OK; messages that come are
/// acknowledged.
Seen openOptions()
{
    Seen seen;
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [&seen] {
        QWidget *modal = QApplication::activeModalWidget();
        if (auto *message = qobject_cast<QMessageBox *>(modal)) {
            message->accept();
        } else if (auto *dialog = qobject_cast<OptionDialog *>(modal)) {
            seen = look(dialog);
            // Not from here: the timer would not tick for the message that follows.
            QMetaObject::invokeMethod(dialog, &OptionDialog::accept, Qt::QueuedConnection);
        }
    });
    answers.start(5);
    if (!OptionDialog::getOptionDialog(ViewManager::mainWindow(), QString(), QString())
             ->execDialog())
        QTest::qFail("the options were not applied", __FILE__, __LINE__);
    return seen;
}

} // namespace

class TestBadSettings final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { clear(); }
    void cleanup()
    {
        m_core.reset();
        clear();
        APPSTYLE::AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC);
    }

    void aDamagedFileGivesWhatItHolds_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("iconSize");
        QByteArray noise;
        for (int i = 0; i < 4096; ++i)
            noise.append(char(i * 7919 % 251));
        QTest::newRow("empty") << QByteArray() << QStringLiteral("20*20");
        QTest::newRow("binary") << noise << QStringLiteral("20*20");
        QTest::newRow("zeros") << QByteArray(5000, '\0') << QStringLiteral("20*20");
        QTest::newRow("one byte") << QByteArray("[") << QStringLiteral("20*20");
        QTest::newRow("truncated in a value")
            << QByteArray("[Core]\nToolbarIconSize=16\nRecentFiles=@ByteArray(\\x")
            << QStringLiteral("16*16");
        QTest::newRow("truncated in a key")
            << QByteArray("[Core]\nToolbarIconSize=28\nRecen") << QStringLiteral("28*28");
        QTest::newRow("truncated in a group")
            << QByteArray("[Core]\nToolbarIconSize=16\n[exter") << QStringLiteral("16*16");
        QTest::newRow("long line")
            << QByteArray("[Core]\nToolbarIconSize=16\nx=") + QByteArray(2000000, 'y')
            << QStringLiteral("16*16");
    }

    void aDamagedFileGivesWhatItHolds()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, iconSize);
        put(CoreFixture::settingsFile(), bytes);
        put(CoreFixture::settingsFile(QStringLiteral("IDE_GUI")), bytes);
        start();
        const Seen seen = openOptions();
        QCOMPARE(seen.theme, QStringLiteral("Classic"));
        QCOMPARE(seen.language, QStringLiteral("English"));
        QCOMPARE(seen.iconSize, iconSize);
        QVERIFY2(!seen.warned, qPrintable(seen.warning));
    }

    void aDamagedFileIsWrittenAgain()
    {
        put(CoreFixture::settingsFile(), QByteArray("\x00\xff[[\n=\n", 7));
        start();
        (void)openOptions();
        m_core.reset();
        QCOMPARE(CoreFixture::storedSetting(QStringLiteral("Language")).toString(),
                 QStringLiteral("en"));
    }

    void settingsThatCannotBeWrittenAreToldOf_data()
    {
        QTest::addColumn<QString>("obstacle");
        QTest::newRow("a folder of that name") << QStringLiteral("IDE.ini");
        QTest::newRow("a file in place of the folder") << QStringLiteral("KelmoWare");
    }

    void settingsThatCannotBeWrittenAreToldOf()
    {
        QFETCH(const QString, obstacle);
        const QString file = CoreFixture::settingsFile();
        if (obstacle == QLatin1String("IDE.ini"))
            QVERIFY(QDir().mkpath(file + QStringLiteral("/inner")));
        else
            put(QFileInfo(file).absolutePath(), "in the way");
        start();
        const Seen seen = openOptions();
        QVERIFY(seen.warned);
        QVERIFY2(seen.warning.contains(QDir::toNativeSeparators(file)), qPrintable(seen.warning));
        QCOMPARE(seen.theme, QStringLiteral("Classic"));
    }

    void aReadOnlyFileIsToldOfWithTheValuesInIt()
    {
        put(CoreFixture::settingsFile(), "[General]\nTheme=Classic\nLanguage=zh_CN\n");
        QVERIFY(QFile::setPermissions(CoreFixture::settingsFile(),
                                      QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
        start();
        Seen seen;
        {
            const OrdinaryUser user;
            seen = openOptions();
        }
        QVERIFY(seen.warned);
        QCOMPARE(seen.language, QStringLiteral("Simplified Chinese"));
    }

    void settingsThatBecomeReadOnlyAreToldOfWhenTheyAreApplied()
    {
        start();
        auto *dialog =
            OptionDialog::getOptionDialog(ViewManager::mainWindow(), QString(), QString());
        dialog->show();
        const auto *warning = dialog->findChild<QLabel *>(QStringLiteral("storeLabel"));
        const bool before = warning->isVisible();
        remove(CoreFixture::settingsFile());
        QVERIFY(QDir().mkpath(CoreFixture::settingsFile() + QStringLiteral("/inner")));
        QTimer answers;
        connect(&answers, &QTimer::timeout, this, [] {
            if (auto *message = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                message->accept();
        });
        answers.start(5);
        dialog->apply();
        const bool after = warning->isVisible();
        dialog->reject();
        delete dialog;
        QVERIFY(!before);
        QVERIFY(after);
    }

    void settingsThatCanBeWrittenAgainAreNotToldOfAnyLonger()
    {
        QVERIFY(QDir().mkpath(CoreFixture::settingsFile() + QStringLiteral("/inner")));
        start();
        auto *dialog =
            OptionDialog::getOptionDialog(ViewManager::mainWindow(), QString(), QString());
        dialog->show();
        QTimer answers;
        connect(&answers, &QTimer::timeout, this, [] {
            if (auto *message = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                message->accept();
        });
        answers.start(5);
        dialog->apply();
        const auto *warning = dialog->findChild<QLabel *>(QStringLiteral("storeLabel"));
        const bool before = warning->isVisible();
        remove(CoreFixture::settingsFile());
        dialog->apply();
        const bool after = warning->isVisible();
        dialog->reject();
        delete dialog;
        QVERIFY(before);
        QVERIFY(!after);
        QVERIFY(QFileInfo(CoreFixture::settingsFile()).isFile());
    }

    void aStoreOfTheWindowThatCannotBeWrittenHindersNothing_data()
    {
        QTest::addColumn<bool>("folder");
        QTest::newRow("a folder") << true;
        QTest::newRow("read-only") << false;
    }

    void aStoreOfTheWindowThatCannotBeWrittenHindersNothing()
    {
        QFETCH(const bool, folder);
        const QString file = CoreFixture::settingsFile(QStringLiteral("IDE_GUI"));
        if (folder) {
            QVERIFY(QDir().mkpath(file + QStringLiteral("/inner")));
        } else {
            put(file, "[Core]\nVersion=0\n");
            QVERIFY(QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadOther));
        }
        start();
        bool closed = false;
        Seen seen;
        {
            const OrdinaryUser user;
            seen = openOptions();
            closed = ViewManager::mainWindow()->close();
        }
        QVERIFY2(closed && !ViewManager::mainWindow()->isVisible(), "the window stayed open");
        QCOMPARE(QFileInfo(file).isDir(), folder);
    }

    void whatIsChangedHoldsUntilTheEndWhereNothingCanBeWritten()
    {
        QVERIFY(QDir().mkpath(CoreFixture::settingsFile() + QStringLiteral("/inner")));
        start();
        (void)openOptions();
        QCOMPARE(ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"))->iconSize(),
                 QSize(20, 20));
        QCOMPARE(openOptions().iconSize, QStringLiteral("20*20"));
    }

    void aValueOfAWrongTypeDoesNoHarm_data()
    {
        QTest::addColumn<QString>("store");
        QTest::addColumn<QByteArray>("text");
        const QList<QPair<const char *, const char *>> values = {
            {"list", "a, b, c"},
            {"one empty text", "\"\""},
            {"nothing", ""},
            {"invalid", "@Invalid()"},
            {"bytes", "@ByteArray(\\0\\x1\\xff)"},
            {"number", "99999999999999999999"},
            {"negative", "-1"},
            {"bool", "true"},
            {"rectangle", "@Rect(1 2 3 4)"},
            {"broken rectangle", "@Rect(1"},
            {"variant", "@Variant(\\0\\0\\0\\x11\\x1)"},
            {"broken variant", "@Variant(\\0\\0\\0\\xb\\0\\0)"},
            {"unknown", "@What(is this)"},
            {"long", nullptr},
        };
        const QList<QPair<const char *, const char *>> general = {
            {"General", "Theme"},
            {"General", "Language"},
            {"Core", "ToolbarIconSize"},
            {"Core", "RecentFiles"},
            {"Core", "RecentProjects"},
            {"Core", "DefaultWorkDir"},
            {"TextEditor", "ColorScheme"},
            {"external_editor", "editor0"},
            {"external_editor", "use_external_editor"},
        };
        const QList<QPair<const char *, const char *>> gui = {
            {"Core", "Version"},
            {"Core", "MainwindowGeometry"},
            {"Core", "MainwindowState"},
        };
        const auto rows = [&values](const QString &store, const auto &keys) {
            for (const auto &key : keys) {
                for (const auto &value : values) {
                    const QByteArray text =
                        value.second ? QByteArray(value.second) : QByteArray(100000, 'x');
                    QTest::addRow("%s: %s", key.second, value.first)
                        << store
                        << QByteArray("[") + key.first + "]\n" + key.second + '=' + text + '\n';
                }
            }
        };
        rows(QStringLiteral("IDE"), general);
        rows(QStringLiteral("IDE_GUI"), gui);
    }

    void aValueOfAWrongTypeDoesNoHarm()
    {
        QFETCH(const QString, store);
        QFETCH(const QByteArray, text);
        put(CoreFixture::settingsFile(store), text);
        start();
        (void)openOptions();
        const int size =
            ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"))->iconSize().width();
        QVERIFY2(size == 16 || size == 20 || size == 24 || size == 28,
                 qPrintable(QString::number(size)));
        // The second time everything is as the first one left it.
        const Seen seen = openOptions();
        QVERIFY2(texts({"English", "Simplified Chinese"}).contains(seen.language),
                 qPrintable(seen.language));
        QCOMPARE(seen.iconSize, QStringLiteral("%1*%1").arg(size));
        QVERIFY2(texts({"Classic", "Dark", ""}).contains(seen.theme), qPrintable(seen.theme));
        QVERIFY(!seen.warned);
    }

private:
    void start()
    {
        m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);
        ViewManager::mainWindow()->prepareToShow();
        QVERIFY(ViewManager::mainWindow()->isVisible());
    }

    static void clear()
    {
        const QString file = CoreFixture::settingsFile();
        remove(file);
        remove(CoreFixture::settingsFile(QStringLiteral("IDE_GUI")));
        // In one test the folder is a file.
        const QString folder = QFileInfo(file).absolutePath();
        if (QFileInfo(folder).isFile())
            remove(folder);
    }

    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestBadSettings)
#include "tst_badsettings.moc"
