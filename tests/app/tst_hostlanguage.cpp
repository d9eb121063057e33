// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostprocess.h"

#include <QTest>

static QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// The language of the program from outside, with a core that was made for this test.
class TestHostLanguage final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLanguageIsTakenFromTheSettings_data();
    void theLanguageIsTakenFromTheSettings();
    void aPluginBringsACatalogueOfItsOwn();
    void theLanguageIsThatOfLibrariesAndNotOfOtherPrograms_data();
    void theLanguageIsThatOfLibrariesAndNotOfOtherPrograms();
    void catalogues_data();
    void catalogues();
    void aMissingCatalogueIsSilent();
    void betterWordsThanQtsAreAskedFirst();
};

void TestHostLanguage::theLanguageIsTakenFromTheSettings_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("cancel");
    const QString english = text("Cancel");
    QTest::newRow("Chinese") << QByteArray("[General]\nLanguage=zh_CN\n") << QStringLiteral("取消");
    QTest::newRow("English") << QByteArray("[General]\nLanguage=en\n") << english;
    QTest::newRow("missing") << QByteArray() << english;
    QTest::newRow("unknown") << QByteArray("[General]\nLanguage=tlh\n") << english;
    QTest::newRow("a path") << QByteArray("[General]\nLanguage=../zh_CN\n") << english;
    QTest::newRow("a list") << QByteArray("[General]\nLanguage=zh_CN, en\n") << english;
    QTest::newRow("wrong type") << QByteArray("[General]\nLanguage=@ByteArray(\\0\\0\\x1)\n")
                                << english;
    QTest::newRow("corrupt file") << QByteArray("[[[\n\xff\xfe=\n;;\0", 12) << english;
}

void TestHostLanguage::theLanguageIsTakenFromTheSettings()
{
    QFETCH(const QByteArray, settings);
    QFETCH(const QString, cancel);
    HostProcess host;
    host.copy(text("qtbase_zh_CN.qm"), text("share/translations/qtbase_zh_CN.qm"));
    host.write(text("config/KelmoWare/IDE.ini"), settings);
    host.setVariable(text("XDG_CONFIG_HOME"), host.path(text("config")));
    host.tell(text("close"));

    host.start();

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY2(host.output().contains(cancel), qPrintable(host.output().join(QLatin1Char('\n'))));
    QCOMPARE(host.errors(), text("a warning\n"));
}

void TestHostLanguage::aPluginBringsACatalogueOfItsOwn()
{
    HostProcess host;
    host.copy(text("testplugin_zh_CN.qm"), text("share/translations/testplugin_zh_CN.qm"));
    host.write(text("config/KelmoWare/IDE.ini"), "[General]\nLanguage=zh_CN\n");
    host.setVariable(text("XDG_CONFIG_HOME"), host.path(text("config")));
    host.tell(text("close"));

    host.start();

    QVERIFY(host.waitForEnd());
    QVERIFY(host.output().contains(QStringLiteral("插件的文本")));
}

void TestHostLanguage::theLanguageIsThatOfLibrariesAndNotOfOtherPrograms_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("said");
    const QByteArray chinese = "[General]\nLanguage=zh_CN\n";
    const QByteArray english = "[General]\nLanguage=en\n";
    QTest::newRow("Chinese on an English desktop")
        << chinese << text("en_US.UTF-8") << QString() << text("locale zh_CN, LANGUAGE ");
    QTest::newRow("Chinese on one with a list")
        << chinese << text("de_DE.UTF-8") << text("de:en") << text("locale zh_CN, LANGUAGE de:en");
    QTest::newRow("Chinese on a Chinese one")
        << chinese << text("zh_CN.UTF-8") << QString() << text("locale zh_CN, LANGUAGE ");
    QTest::newRow("Chinese without a locale")
        << chinese << text("C.UTF-8") << QString() << text("locale zh_CN, LANGUAGE ");
    QTest::newRow("English on a Chinese one")
        << english << text("zh_CN.UTF-8") << QString() << text("locale en_US, LANGUAGE ");
    QTest::newRow("English on one with a list")
        << english << text("en_GB.UTF-8") << text("zh_CN") << text("locale en_GB, LANGUAGE zh_CN");
    QTest::newRow("no choice on a German one")
        << QByteArray() << text("de_DE.UTF-8") << QString() << text("locale en_US, LANGUAGE ");
    QTest::newRow("English on an English one")
        << english << text("en_GB.UTF-8") << QString() << text("locale en_GB, LANGUAGE ");
    QTest::newRow("English without a locale")
        << english << text("C.UTF-8") << QString() << text("locale C, LANGUAGE ");
}

void TestHostLanguage::theLanguageIsThatOfLibrariesAndNotOfOtherPrograms()
{
    QFETCH(const QByteArray, settings);
    QFETCH(const QString, desktop);
    QFETCH(const QString, variable);
    QFETCH(const QString, said);
    HostProcess host;
    host.write(text("config/KelmoWare/IDE.ini"), settings);
    host.setVariable(text("XDG_CONFIG_HOME"), host.path(text("config")));
    host.removeVariable(text("LC_ALL"));
    host.setVariable(text("LANG"), desktop);
    host.removeVariable(text("LANGUAGE"));
    if (!variable.isEmpty())
        host.setVariable(text("LANGUAGE"), variable);
    host.tell(text("close"));

    host.start();

    QVERIFY(host.waitForEnd());
    QVERIFY2(host.output().contains(said), qPrintable(host.output().join(QLatin1Char('\n'))));
}

void TestHostLanguage::catalogues_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<bool>("loads");
    QTest::newRow("Chinese loads its own") << QByteArray("[General]\nLanguage=zh_CN\n") << true;
    QTest::newRow("English loads none") << QByteArray("[General]\nLanguage=en\n") << false;
    QTest::newRow("no choice loads none") << QByteArray() << false;
}

void TestHostLanguage::catalogues()
{
    QFETCH(const QByteArray, settings);
    QFETCH(const bool, loads);
    HostProcess host;
    host.copy(text("qtbase_zh_CN.qm"), text("share/translations/qtbase_zh_CN.qm"));
    host.copy(text("testplugin_zh_CN.qm"), text("share/translations/testplugin_zh_CN.qm"));
    host.write(text("config/KelmoWare/IDE.ini"), settings);
    host.setVariable(text("XDG_CONFIG_HOME"), host.path(text("config")));
    host.tell(text("close"));

    host.start();

    QVERIFY(host.waitForEnd());
    // Qt's and the plugin's.
    QVERIFY(host.output().contains(loads ? text("catalogues 2") : text("catalogues 0")));
}

void TestHostLanguage::aMissingCatalogueIsSilent()
{
    HostProcess host;
    host.write(text("config/KelmoWare/IDE.ini"), "[General]\nLanguage=zh_CN\n");
    host.setVariable(text("XDG_CONFIG_HOME"), host.path(text("config")));
    host.tell(text("close"));

    host.start();

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.errors(), text("a warning\n"));
}

void TestHostLanguage::betterWordsThanQtsAreAskedFirst()
{
    HostProcess host;
    host.copy(text("testplugin_zh_CN.qm"), text("share/translations/qt_zh_CN.qm"));
    host.write(text("config/KelmoWare/IDE.ini"), "[General]\nLanguage=zh_CN\n");
    host.setVariable(text("XDG_CONFIG_HOME"), host.path(text("config")));
    host.tell(text("close late-catalogue"));

    host.start();

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY2(host.output().contains(QStringLiteral("插件的文本, others late")),
             qPrintable(host.output().join(QLatin1Char('\n'))));
}

QTEST_GUILESS_MAIN(TestHostLanguage)
#include "tst_hostlanguage.moc"
