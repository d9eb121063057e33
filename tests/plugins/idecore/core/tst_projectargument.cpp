// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/testproject.h"

#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// What the core does when it is started with @p arguments, in order.
QStringList linesOf(const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(PROJECT_PROBE), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'));
}

} // namespace

class TestProjectArgument final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theProjectNamedIsOpenedJustAfterTheWindowIsShown()
    {
        const QStringList lines =
            linesOf({QStringLiteral("-prj"), QStringLiteral("/a b/top.kprj"), QStringLiteral("x")});
        const int shown = lines.indexOf(QStringLiteral("shown"));
        const int opened = lines.indexOf(QStringLiteral("open project: \"/a b/top.kprj\""));
        QVERIFY2(shown > lines.indexOf(QStringLiteral("before 1000")),
                 qPrintable(lines.join(QLatin1Char('\n'))));
        QVERIFY2(shown < lines.indexOf(QStringLiteral("after 1000")),
                 qPrintable(lines.join(QLatin1Char('\n'))));
        QVERIFY2(opened > shown, qPrintable(lines.join(QLatin1Char('\n'))));
        QVERIFY2(opened > lines.indexOf(QStringLiteral("before 1050")),
                 qPrintable(lines.join(QLatin1Char('\n'))));
        QVERIFY2(opened < lines.indexOf(QStringLiteral("after 1050")),
                 qPrintable(lines.join(QLatin1Char('\n'))));
    }

    void theProjectIsOpen()
    {
        const QTemporaryDir folder;
        const QString file = writeProject(folder.filePath(QStringLiteral("a b/top.kprj")));
        const QStringList lines =
            linesOf({QStringLiteral("-prj"), folder.filePath(QStringLiteral("a b/./top.kprj"))});
        QVERIFY2(lines.contains(QStringLiteral("current: ") + file),
                 qPrintable(lines.join(QLatin1Char('\n'))));
    }

    void twoStartsOpenTheSameProject()
    {
        const QTemporaryDir folder;
        const QString file = writeProject(folder.filePath(QStringLiteral("top.kprj")));
        QProcess first;
        QProcess second;
        for (QProcess *process : {&first, &second}) {
            process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
            process->start(QStringLiteral(PROJECT_PROBE), {QStringLiteral("-prj"), file});
        }
        for (QProcess *process : {&first, &second}) {
            QVERIFY(process->waitForFinished());
            QCOMPARE(process->exitCode(), 0);
            const QString output = QString::fromUtf8(process->readAllStandardOutput());
            QVERIFY2(output.contains(QStringLiteral("current: ") + file), qPrintable(output));
        }
        const QSettings settings(QSettings::IniFormat, QSettings::UserScope,
                                 QStringLiteral("KelmoWare"), QStringLiteral("IDE"));
        QCOMPARE(settings.value(QStringLiteral("Core/RecentProjects")).toStringList().count(file),
                 1);
    }

    void otherCommandLinesOpenNothing_data()
    {
        QTest::addColumn<QStringList>("arguments");
        const QString prj = QStringLiteral("-prj");
        const QString file = QStringLiteral("/no/such/top.kprj");
        QTest::newRow("none") << QStringList();
        QTest::newRow("no path") << QStringList{prj};
        QTest::newRow("upper case") << QStringList{QStringLiteral("-PRJ"), file};
        QTest::newRow("second place") << QStringList{file, prj, file};
        QTest::newRow("two dashes") << QStringList{QStringLiteral("--prj"), file};
        QTest::newRow("the path alone") << QStringList{file};
    }

    void otherCommandLinesOpenNothing()
    {
        QFETCH(QStringList, arguments);
        const QStringList lines = linesOf(arguments);
        // The probe ran until the core had had its look.
        QVERIFY(lines.contains(QStringLiteral("after 1050")));
        QVERIFY2(lines.filter(QStringLiteral("open project:")).isEmpty(),
                 qPrintable(lines.join(QLatin1Char('\n'))));
    }
};

QTEST_MAIN(TestProjectArgument)
#include "tst_projectargument.moc"
