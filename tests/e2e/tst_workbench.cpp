// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "program.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QRect>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

class TestWorkbench final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        removeFromTestHome(QStringLiteral(".config"));
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

    void theWindowIsMaximisedAtFirstAndComesBackWhereItWasUntilTheBuildChanges()
    {
        QRect left;
        {
            Program program;
            QCOMPARE(program.start(), QString());
            program.picture(QStringLiteral("first-start"));
            SOON_VERIFY(isMaximised(program));
            program.moveMainWindow(QRect(180, 120, 900, 620));
            SOON_VERIFY(!isMaximised(program));
            SOON_COMPARE(program.mainWindowGeometry().size(), QSize(900, 620));
            left = program.mainWindowGeometry();
            endWell(&program);
        }
        {
            Program program;
            QCOMPARE(program.start(), QString());
            SOON_COMPARE(program.mainWindowGeometry(), left);
            program.picture(QStringLiteral("second-start"));
            QVERIFY(!isMaximised(program));
            endWell(&program);
        }
        QSettings settings(settingsFile(QStringLiteral("IDE_GUI")), QSettings::IniFormat);
        const QString version = settings.value(QStringLiteral("Core/Version")).toString();
        QVERIFY(!version.isEmpty());
        settings.setValue(QStringLiteral("Core/Version"),
                          QString(version + QStringLiteral("-other")));
        settings.sync();
        {
            Program program;
            QCOMPARE(program.start(), QString());
            SOON_VERIFY(isMaximised(program));
            endWell(&program);
        }
    }

    void aFileIsOpenedByKeysEditedAndSaved()
    {
        const QString path = file(QStringLiteral("top.v"), "module top;\nendmodule\n");
        Program program;
        QCOMPARE(program.start(), QString());
        program.key(QStringLiteral("ctrl+o"));
        QVERIFY(program.waitForActive(QStringLiteral("Open File")));
        program.picture(QStringLiteral("open-dialog"));
        program.type(path);
        program.key(QStringLiteral("Return"));
        QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));
        SOON_COMPARE(recentFiles(), QStringList{path});
        program.key(QStringLiteral("ctrl+Home"));
        program.type(QStringLiteral("// hello"));
        program.key(QStringLiteral("Return"));
        program.picture(QStringLiteral("edited"));
        QCOMPARE(contentOf(path), QByteArray("module top;\nendmodule\n"));
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(path), QByteArray("// hello\nmodule top;\nendmodule\n"));
        endWell(&program);
    }

    void theProgramSpeaksTheChosenLanguage()
    {
        QSettings settings(settingsFile(QStringLiteral("IDE")), QSettings::IniFormat);
        settings.setValue(QStringLiteral("Language"), QStringLiteral("zh_CN"));
        settings.sync();
        Program program;
        QCOMPARE(program.start({file(QStringLiteral("a.v"), "module a;\nendmodule\n")}), QString());
        program.key(QStringLiteral("ctrl+f"));
        program.picture(QStringLiteral("chinese"));
        program.key(QStringLiteral("ctrl+o"));
        QVERIFY(program.waitForActive(QStringLiteral("打开文件")));
        program.picture(QStringLiteral("chinese-open"));
        program.key(QStringLiteral("Escape"));
        QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));
        endWell(&program);
    }

    void undoCutCopyAndPasteReachTheFocusedEditorOnly()
    {
        const QString first = file(QStringLiteral("a.v"), "wire a;\n");
        const QString second = file(QStringLiteral("b.vhd"), "signal b;\n");
        Program program;
        QCOMPARE(program.start({first, second}), QString());
        SOON_COMPARE(recentFiles(), (QStringList{second, first}));
        // The second file is the current one.
        program.keys(
            {QStringLiteral("ctrl+Home"), QStringLiteral("ctrl+a"), QStringLiteral("ctrl+x")});
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(second), QByteArray());
        program.keys({QStringLiteral("ctrl+v"), QStringLiteral("ctrl+v")});
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(second), QByteArray("signal b;\nsignal b;\n"));
        program.key(QStringLiteral("ctrl+z"));
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(second), QByteArray("signal b;\n"));
        program.key(QStringLiteral("ctrl+y"));
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(second), QByteArray("signal b;\nsignal b;\n"));
        QCOMPARE(contentOf(first), QByteArray("wire a;\n"));
        // The other one takes what was cut here.
        program.key(QStringLiteral("ctrl+Tab"));
        program.keys({QStringLiteral("ctrl+End"), QStringLiteral("ctrl+v")});
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(first), QByteArray("wire a;\nsignal b;\n"));
        QCOMPARE(contentOf(second), QByteArray("signal b;\nsignal b;\n"));
        program.picture(QStringLiteral("two-editors"));
        endWell(&program);
    }

    void saveAllSavesEveryModifiedDocument()
    {
        const QString first = file(QStringLiteral("a.v"), "a\n");
        const QString second = file(QStringLiteral("README"), "b\n");
        Program program;
        QCOMPARE(program.start({first, second}), QString());
        SOON_COMPARE(recentFiles().size(), 2);
        program.key(QStringLiteral("ctrl+Home"));
        program.type(QStringLiteral("2"));
        program.key(QStringLiteral("ctrl+Tab"));
        program.key(QStringLiteral("ctrl+Home"));
        program.type(QStringLiteral("1"));
        program.key(QStringLiteral("ctrl+shift+s"));
        SOON_COMPARE(contentOf(first), QByteArray("1a\n"));
        SOON_COMPARE(contentOf(second), QByteArray("2b\n"));
        endWell(&program);
    }

    void closingWithUnsavedWorkAsks_data()
    {
        QTest::addColumn<QStringList>("answer");
        QTest::addColumn<bool>("ends");
        QTest::addColumn<QByteArray>("left");
        QTest::newRow("cancel") << QStringList{QStringLiteral("Escape")} << false
                                << QByteArray("old\n");
        QTest::newRow("save") << QStringList{QStringLiteral("Return")} << true
                              << QByteArray("new old\n");
        QTest::newRow("discard") << QStringList{QStringLiteral("Tab"), QStringLiteral("space")}
                                 << true << QByteArray("old\n");
    }

    void closingWithUnsavedWorkAsks()
    {
        QFETCH(QStringList, answer);
        QFETCH(bool, ends);
        QFETCH(QByteArray, left);
        const QString path = file(QStringLiteral("a.v"), "old\n");
        Program program;
        QCOMPARE(program.start({path}), QString());
        SOON_COMPARE(recentFiles().size(), 1);
        program.key(QStringLiteral("ctrl+Home"));
        program.type(QStringLiteral("new "));
        const int before = program.windowTitles().size();
        program.closeMainWindow();
        SOON_VERIFY(program.windowTitles().size() > before);
        program.picture(QStringLiteral("unsaved"));
        program.keys(answer);
        if (ends) {
            QVERIFY(program.waitForEnd());
            QVERIFY(program.exitedNormally());
            QCOMPARE(program.exitCode(), 0);
        } else {
            SOON_COMPARE(program.windowTitles().size(), before);
            QVERIFY(program.isRunning());
        }
        QCOMPARE(contentOf(path), left);
    }

    void sigtermClosesLikeTheCloseButton()
    {
        const QString path = file(QStringLiteral("a.v"), "old\n");
        Program program;
        QCOMPARE(program.start({path}), QString());
        SOON_COMPARE(recentFiles().size(), 1);
        program.type(QStringLiteral("x"));
        const int before = program.windowTitles().size();
        program.kill(SIGTERM);
        SOON_VERIFY(program.windowTitles().size() > before);
        program.key(QStringLiteral("Escape"));
        SOON_COMPARE(program.windowTitles().size(), before);
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(path), QByteArray("xold\n"));
        program.kill(SIGTERM);
        QVERIFY(program.waitForEnd());
        QVERIFY(program.exitedNormally());
        QCOMPARE(program.exitCode(), 0);
    }

    void f11GoesIntoFullScreenAndBack()
    {
        Program program;
        QCOMPARE(program.start(), QString());
        const auto isFullScreen = [&program] {
            return program.mainWindowProperty(QStringLiteral("_NET_WM_STATE"))
                .contains(QLatin1String("FULLSCREEN"));
        };
        program.key(QStringLiteral("F11"));
        SOON_VERIFY(isFullScreen());
        program.key(QStringLiteral("F11"));
        SOON_VERIFY(!isFullScreen());
        endWell(&program);
    }

    void aRecentFileIsOpenedFromTheMenuAndClearForgetsAll()
    {
        const QString path = file(QStringLiteral("a.v"), "old\n");
        {
            Program program;
            QCOMPARE(program.start({path}), QString());
            SOON_COMPARE(recentFiles().size(), 1);
            endWell(&program);
        }
        Program program;
        QCOMPARE(program.start(), QString());
        // Up from the end: Exit, a separator, Recent Projects, Recent Files.
        const QStringList toRecentFiles = {QStringLiteral("alt+f"), QStringLiteral("Up"),
                                           QStringLiteral("Up"), QStringLiteral("Up"),
                                           QStringLiteral("Right")};
        program.keys(toRecentFiles);
        program.picture(QStringLiteral("recent-files"));
        program.key(QStringLiteral("Return"));
        QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));
        program.key(QStringLiteral("ctrl+Home"));
        program.type(QStringLiteral("new "));
        program.key(QStringLiteral("ctrl+s"));
        SOON_COMPARE(contentOf(path), QByteArray("new old\n"));
        program.keys(toRecentFiles);
        program.keys({QStringLiteral("Up"), QStringLiteral("Return")});
        SOON_VERIFY(recentFiles().isEmpty());
        endWell(&program);
    }

    void aStartLoadsNoReaderOfPicturesAndNoEditor()
    {
        Program program;
        QCOMPARE(program.start(), QString());
        QFile maps(QStringLiteral("/proc/%1/maps").arg(program.pid()));
        QVERIFY(maps.open(QIODevice::ReadOnly));
        const QByteArray loaded = maps.readAll();
        QVERIFY(loaded.contains("libTextEditor.so"));
        for (const char *library : {"/imageformats/", "libQt5Svg", "libTextEditorEngine", "libKF5"})
            QVERIFY2(!loaded.contains(library), library);
        endWell(&program);
    }

private:
    static bool isMaximised(const Program &program)
    {
        return program.mainWindowProperty(QStringLiteral("_NET_WM_STATE"))
            .contains(QLatin1String("MAXIMIZED_VERT"));
    }

    QString file(const QString &name, const QByteArray &bytes)
    {
        const QString path = m_dir->filePath(name);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return path;
    }

    static QString settingsFile(const QString &name)
    {
        return QDir::homePath() + QStringLiteral("/.config/KelmoWare/") + name
               + QStringLiteral(".ini");
    }

    static QStringList recentFiles() { return storedPaths(QStringLiteral("Core/RecentFiles")); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_MAIN(TestWorkbench)
#include "tst_workbench.moc"
