// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/fulldisk.h"
#include "support/modaldialog.h"
#include "support/testhome.h"

#include <assistant/assistantproxy.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <csignal>

using ASSISTANT::AssistantProxy;

class TestAssistantProxy : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void startRunsTheViewerUnderRemoteControl();
    void secondStartRaisesTheRunningViewer();
    void showPageStartsTheViewerAndSendsThePage();
    void showPageOfARunningViewerSendsThePage();
    void semicolonInAPageIsNoCommandEnd();
    void stopEndsTheViewerAndLeavesNoChild();
    void stopWithoutViewerDoesNothing();
    void stopForcesAStubbornViewer();
    void viewerKilledFromOutsideIsStartedAnewSilently();
    void viewerClosedByTheUserIsStartedAnew();
    void missingViewerProgramIsTold();
    void viewerThatCannotStartIsTold();
    void missingCollectionIsTold();
    void pathIsNoMarkupInAMessage();
    void viewerThatFailsIsTold();
    void viewerMayBeStartedAnewWhileItsFailureIsTold();
    void stopKeepsAFailureToItself();
    void collectionIsFoundFromTheExecutable();
    void collectionIsCopiedForTheUser();
    void newerCollectionIsCopiedAgain();
    void collectionIsUsedInPlaceWhenItCannotBeCopied();
    void fullDiskLeavesNoHalfCollection();

private:
    [[nodiscard]] QStringList log() const;
    [[nodiscard]] static QString userFolder();
    void writeCollection(const QByteArray &content);
    [[nodiscard]] static QList<qint64> children();

    std::unique_ptr<QTemporaryDir> m_dir;
    AssistantProxy *m_proxy = AssistantProxy::instance();
};

void TestAssistantProxy::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    removeFromTestHome(userFolder());
    writeCollection("one");
    qputenv("FAKE_VIEWER_LOG", QFile::encodeName(m_dir->filePath(QStringLiteral("log"))));
    qunsetenv("FAKE_VIEWER_MODE");
    m_proxy->setViewerProgram(QStringLiteral(FAKE_VIEWER));
    m_proxy->setCollectionFile(m_dir->filePath(QStringLiteral("help/kelmo.qhc")));
}

void TestAssistantProxy::cleanup()
{
    m_proxy->stopAssistant();
}

QStringList TestAssistantProxy::log() const
{
    QFile file(m_dir->filePath(QStringLiteral("log")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString TestAssistantProxy::userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
           + QStringLiteral("/KelmoWare");
}

void TestAssistantProxy::writeCollection(const QByteArray &content)
{
    QDir(m_dir->path()).mkpath(QStringLiteral("help"));
    for (const QString &name :
         {QStringLiteral("help/kelmo.qhc"), QStringLiteral("help/kelmo.qch")}) {
        QFile file(m_dir->filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(name));
    }
}

QList<qint64> TestAssistantProxy::children()
{
    QFile file(
        QStringLiteral("/proc/self/task/%1/children").arg(QCoreApplication::applicationPid()));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot list the child processes");
    QList<qint64> pids;
    const QByteArrayList words = file.readAll().simplified().split(' ');
    for (const QByteArray &word : words) {
        if (!word.isEmpty())
            pids.append(word.toLongLong());
    }
    return pids;
}

void TestAssistantProxy::startRunsTheViewerUnderRemoteControl()
{
    m_proxy->startAssistant();

    QVERIFY(m_proxy->isRunning());
    QTRY_COMPARE(log(), QStringList{QStringLiteral("start -collectionFile %1/help/kelmo.qhc "
                                                   "-enableRemoteControl")
                                        .arg(userFolder())});
}

void TestAssistantProxy::secondStartRaisesTheRunningViewer()
{
    m_proxy->startAssistant();

    m_proxy->startAssistant();

    QTRY_COMPARE(log().value(1), QStringLiteral("told show contents"));
    QCOMPARE(log().size(), 2);
    QCOMPARE(children().size(), 1);
}

void TestAssistantProxy::showPageStartsTheViewerAndSendsThePage()
{
    m_proxy->showPage(QUrl(QStringLiteral("qthelp://kelmoware.designer/manual/keys.html")));

    QTRY_COMPARE(log().value(1),
                 QStringLiteral("told setSource qthelp://kelmoware.designer/manual/keys.html"));
}

void TestAssistantProxy::showPageOfARunningViewerSendsThePage()
{
    m_proxy->startAssistant();

    m_proxy->showPage(QUrl(QStringLiteral("qthelp://k/a b.html")));

    QTRY_COMPARE(log().value(1), QStringLiteral("told setSource qthelp://k/a%20b.html"));
    QCOMPARE(children().size(), 1);
}

void TestAssistantProxy::semicolonInAPageIsNoCommandEnd()
{
    m_proxy->showPage(QUrl(QStringLiteral("qthelp://k/a;b.html")));

    QTRY_COMPARE(log().value(1), QStringLiteral("told setSource qthelp://k/a%3Bb.html"));
}

void TestAssistantProxy::stopEndsTheViewerAndLeavesNoChild()
{
    m_proxy->startAssistant();

    m_proxy->stopAssistant();

    QVERIFY(!m_proxy->isRunning());
    QCOMPARE(children(), QList<qint64>());
}

void TestAssistantProxy::stopWithoutViewerDoesNothing()
{
    m_proxy->stopAssistant();

    QVERIFY(!m_proxy->isRunning());
    QCOMPARE(log(), QStringList());
}

void TestAssistantProxy::stopForcesAStubbornViewer()
{
    qputenv("FAKE_VIEWER_MODE", "stubborn");
    m_proxy->startAssistant();
    QTRY_COMPARE(log().size(), 1);

    QElapsedTimer timer;
    timer.start();
    m_proxy->stopAssistant();

    QVERIFY2(timer.elapsed() >= 2900, "it was not given the time to end by itself");
    QCOMPARE(children(), QList<qint64>());
}

void TestAssistantProxy::viewerKilledFromOutsideIsStartedAnewSilently()
{
    m_proxy->startAssistant();
    QTRY_COMPARE(log().size(), 1);
    ::kill(static_cast<pid_t>(children().first()), SIGKILL);
    QTRY_VERIFY(!m_proxy->isRunning());
    QVERIFY(!QApplication::activeModalWidget());

    m_proxy->startAssistant();

    QTRY_COMPARE(log().size(), 2);
    QVERIFY(log().at(1).startsWith(QStringLiteral("start ")));
    QCOMPARE(children().size(), 1);
}

void TestAssistantProxy::viewerClosedByTheUserIsStartedAnew()
{
    m_proxy->startAssistant();
    QTRY_COMPARE(log().size(), 1);
    ::kill(static_cast<pid_t>(children().first()), SIGTERM);
    QTRY_VERIFY(!m_proxy->isRunning());

    m_proxy->showPage(QUrl(QStringLiteral("qthelp://k/x.html")));

    QTRY_COMPARE(log().value(2), QStringLiteral("told setSource qthelp://k/x.html"));
}

void TestAssistantProxy::missingViewerProgramIsTold()
{
    m_proxy->setViewerProgram(m_dir->filePath(QStringLiteral("no-viewer")));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    m_proxy->startAssistant();

    QVERIFY(box.met());
    QCOMPARE(box.title(), QStringLiteral("Help"));
    QVERIFY2(box.text().contains(m_dir->filePath(QStringLiteral("no-viewer"))),
             qPrintable(box.text()));
    QVERIFY(!m_proxy->isRunning());
}

void TestAssistantProxy::viewerThatCannotStartIsTold()
{
    const QString program = m_dir->filePath(QStringLiteral("no-program"));
    QFile file(program);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    m_proxy->setViewerProgram(program);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    m_proxy->startAssistant();

    QCOMPARE(box.text(),
             QStringLiteral("The help viewer \"%1\" could not be started: Permission denied")
                 .arg(program));
}

void TestAssistantProxy::missingCollectionIsTold()
{
    const QString file = m_dir->filePath(QStringLiteral("none.qhc"));
    m_proxy->setCollectionFile(file);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    m_proxy->startAssistant();

    QCOMPARE(box.text(),
             QStringLiteral("The help cannot be shown: the manual \"%1\" is missing.").arg(file));
    QCOMPARE(log(), QStringList());
}

void TestAssistantProxy::pathIsNoMarkupInAMessage()
{
    m_proxy->setCollectionFile(m_dir->filePath(QStringLiteral("<b>none<br>.qhc")));
    Qt::TextFormat format = Qt::AutoText;
    ModalDialog box([&format](QWidget *widget) {
        format = static_cast<QMessageBox *>(widget)->textFormat();
        ModalDialog::press(QMessageBox::Ok)(widget);
    });

    m_proxy->startAssistant();

    QCOMPARE(format, Qt::PlainText);
}

void TestAssistantProxy::viewerThatFailsIsTold()
{
    qputenv("FAKE_VIEWER_MODE", "fail");
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    m_proxy->startAssistant();

    QTRY_VERIFY(box.met());
    QCOMPARE(box.text(), QStringLiteral("The help viewer \"%1\" ended with the exit status 3.")
                             .arg(QStringLiteral(FAKE_VIEWER)));
}

void TestAssistantProxy::viewerMayBeStartedAnewWhileItsFailureIsTold()
{
    qputenv("FAKE_VIEWER_MODE", "fail");
    ModalDialog box([this](QWidget *widget) {
        qunsetenv("FAKE_VIEWER_MODE");
        m_proxy->startAssistant();
        static_cast<QMessageBox *>(widget)->button(QMessageBox::Ok)->click();
    });

    m_proxy->startAssistant();

    QTRY_VERIFY(box.met());
    QVERIFY(m_proxy->isRunning());
    QCOMPARE(children().size(), 1);
}

void TestAssistantProxy::stopKeepsAFailureToItself()
{
    qputenv("FAKE_VIEWER_MODE", "fail");
    m_proxy->startAssistant();
    auto *process = QCoreApplication::instance()->findChild<QProcess *>();
    QVERIFY(process);
    QVERIFY(process->waitForFinished());
    bool told = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&told] {
        if (QWidget *box = QApplication::activeModalWidget()) {
            told = true;
            box->close();
        }
    });
    watch.start(0);

    m_proxy->stopAssistant();

    QCoreApplication::processEvents();
    QVERIFY(!told);
}

void TestAssistantProxy::collectionIsFoundFromTheExecutable()
{
    m_proxy->setCollectionFile(QString());

    QCOMPARE(m_proxy->collectionFile(),
             QDir::cleanPath(QCoreApplication::applicationDirPath()
                             + QStringLiteral("/../share/help/kelmo.qhc")));
}

void TestAssistantProxy::collectionIsCopiedForTheUser()
{
    m_proxy->startAssistant();

    QFile help(userFolder() + QStringLiteral("/help/kelmo.qch"));
    QVERIFY(help.open(QIODevice::ReadOnly));
    QCOMPARE(help.readAll(), QByteArray("one"));
}

void TestAssistantProxy::newerCollectionIsCopiedAgain()
{
    m_proxy->startAssistant();
    m_proxy->stopAssistant();
    writeCollection("another");

    m_proxy->startAssistant();

    QFile help(userFolder() + QStringLiteral("/help/kelmo.qch"));
    QVERIFY(help.open(QIODevice::ReadOnly));
    QCOMPARE(help.readAll(), QByteArray("another"));
}

void TestAssistantProxy::collectionIsUsedInPlaceWhenItCannotBeCopied()
{
    QVERIFY(QDir().mkpath(QFileInfo(userFolder()).absolutePath()));
    QFile inTheWay(userFolder());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));

    m_proxy->startAssistant();

    QTRY_COMPARE(log().value(0), QStringLiteral("start -collectionFile %1 -enableRemoteControl")
                                     .arg(m_dir->filePath(QStringLiteral("help/kelmo.qhc"))));
    QVERIFY(inTheWay.remove());
}

void TestAssistantProxy::fullDiskLeavesNoHalfCollection()
{
    writeCollection(QByteArray(5000, 'x'));
    {
        const FullDisk full(2000);

        m_proxy->startAssistant();

        QTRY_COMPARE(log().value(0), QStringLiteral("start -collectionFile %1 -enableRemoteControl")
                                         .arg(m_dir->filePath(QStringLiteral("help/kelmo.qhc"))));
    }
    QVERIFY(!QFile::exists(userFolder() + QStringLiteral("/help/kelmo.qch")));
}

QTEST_MAIN(TestAssistantProxy)
#include "tst_assistantproxy.moc"
