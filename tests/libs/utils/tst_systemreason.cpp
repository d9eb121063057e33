// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/systemreason.h>

#include <QDir>
#include <QFile>
#include <QTest>
#include <QTranslator>

#include <cerrno>
#include <cstring>

using Utils::systemReason;

class TestSystemReason final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whatHappensOftenIsInTheCatalogue_data();
    void whatHappensOftenIsInTheCatalogue();
    void theReasonOfAFileIsTranslated();
    void withoutACatalogueItStays();
    void othersStayAsTheyAre();
};

void TestSystemReason::whatHappensOftenIsInTheCatalogue_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("chinese");
    const auto row = [](const char *name, int code, const char *chinese) {
        QTest::newRow(name) << code << QString::fromUtf8(chinese);
    };
    row("EACCES", EACCES, "权限不足");
    row("EBUSY", EBUSY, "设备或资源忙");
    row("EDQUOT", EDQUOT, "超出磁盘配额");
    row("EEXIST", EEXIST, "文件已存在");
    row("EFBIG", EFBIG, "文件过大");
    row("EIO", EIO, "输入/输出错误");
    row("EISDIR", EISDIR, "是目录");
    row("ELOOP", ELOOP, "符号链接层数过多");
    row("EMFILE", EMFILE, "打开的文件过多");
    row("ENAMETOOLONG", ENAMETOOLONG, "文件名过长");
    row("ENOENT", ENOENT, "没有此文件或目录");
    row("ENOSPC", ENOSPC, "设备上没有剩余空间");
    row("ENOTDIR", ENOTDIR, "不是目录");
    row("ENOTEMPTY", ENOTEMPTY, "目录非空");
    row("EPERM", EPERM, "不允许的操作");
    row("EROFS", EROFS, "只读文件系统");
    row("ETXTBSY", ETXTBSY, "文本文件忙");
}

void TestSystemReason::whatHappensOftenIsInTheCatalogue()
{
    QFETCH(const int, code);
    QFETCH(const QString, chinese);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(CATALOGUE)));
    QCoreApplication::installTranslator(&translator);

    QCOMPARE(systemReason(QString::fromLocal8Bit(std::strerror(code))), chinese);
}

void TestSystemReason::theReasonOfAFileIsTranslated()
{
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(CATALOGUE)));
    QCoreApplication::installTranslator(&translator);
    QFile file(QDir::tempPath() + QStringLiteral("/none/none"));
    QVERIFY(!file.open(QIODevice::ReadOnly));

    QCOMPARE(systemReason(file.errorString()), QStringLiteral("没有此文件或目录"));
}

void TestSystemReason::withoutACatalogueItStays()
{
    QCOMPARE(systemReason(QStringLiteral("Permission denied")),
             QStringLiteral("Permission denied"));
}

void TestSystemReason::othersStayAsTheyAre()
{
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(CATALOGUE)));
    QCoreApplication::installTranslator(&translator);

    QCOMPARE(systemReason(QString()), QString());
    QCOMPARE(systemReason(QStringLiteral("The moon is full")), QStringLiteral("The moon is full"));
}

QTEST_GUILESS_MAIN(TestSystemReason)
#include "tst_systemreason.moc"
