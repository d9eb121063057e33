// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostprocess.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <memory>

namespace {

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// The session manager of a desktop as a process.
class SessionManager final
{
    Q_DISABLE_COPY(SessionManager)
public:
    SessionManager()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(text(SESSION_MANAGER_PROGRAM), QStringList());
        if (m_process.waitForStarted() && (m_process.canReadLine() || m_process.waitForReadyRead()))
            m_address = QString::fromLocal8Bit(m_process.readLine()).trimmed();
    }
    ~SessionManager()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// What its clients look for in the variable SESSION_MANAGER.
    [[nodiscard]] QString address() const { return m_address; }

    void tell(const char *word)
    {
        m_process.write(word);
        m_process.write("\n");
        m_process.waitForBytesWritten();
    }

    /// True once it has seen the client do @p what @p times.
    bool waitFor(const char *what, int times = 1)
    {
        QElapsedTimer timer;
        timer.start();
        while (seen().count(text(what)) < times) {
            if (timer.elapsed() > 30000 || m_process.state() != QProcess::Running)
                return false;
            m_process.waitForReadyRead(100);
        }
        return true;
    }

    /// What the client did, in order.
    [[nodiscard]] QStringList seen()
    {
        m_output += m_process.readAllStandardOutput();
        return QString::fromLocal8Bit(m_output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QProcess m_process;
    QString m_address;
    QByteArray m_output;
};

} // namespace

/// The program in a desktop session that ends.
class TestHostSession final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_session = std::make_unique<SessionManager>();
        QVERIFY(!m_session->address().isEmpty());
        m_host = std::make_unique<HostProcess>();
        m_host->setVariable(text("SESSION_MANAGER"), m_session->address());
    }

    void joiningASessionClosesNothing()
    {
        startShown();
        QVERIFY(m_session->waitFor("saved"));
        QVERIFY(m_host->isRunning());
        QVERIFY(!m_host->output().contains(text("closed")));
    }

    void theEndOfTheSessionClosesTheMainWindow()
    {
        startShown();
        QVERIFY(m_session->waitFor("saved"));

        m_session->tell("end");

        QVERIFY(m_host->waitForEnd());
        QCOMPARE(m_host->status(), 0);
        QCOMPARE(afterSplash(),
                 (QStringList{text("closed"), text("core shutDown"), text("core destroyed")}));
        // The session goes on ending only when the window has closed.
        QVERIFY(m_session->waitFor("saved", 2));
        QCOMPARE(m_session->seen().mid(0, 4),
                 (QStringList{text("saved"), text("asks"), text("asked"), text("saved")}));
    }

    void aRefusedCloseKeepsTheSession()
    {
        m_host->tell(text("refuse-once"));
        startShown();
        QVERIFY(m_session->waitFor("saved"));

        m_session->tell("end");

        QVERIFY(m_session->waitFor("not saved"));
        QCOMPARE(m_session->seen(),
                 (QStringList{text("saved"), text("asks"), text("cancels"), text("not saved")}));
        QVERIFY(m_host->waitForLine(text("refused")));
        QVERIFY(m_host->isRunning());
        QCOMPARE(afterSplash(), QStringList{text("refused")});

        m_session->tell("end");
        QVERIFY(m_host->waitForEnd());
        QCOMPARE(m_host->status(), 0);
        QVERIFY(m_host->output().contains(text("closed")));
    }

    void aDialogKeepsTheSession()
    {
        m_host->tell(text("dialog"));
        m_host->start();
        QVERIFY(m_host->waitForLine(text("dialog")));
        QVERIFY(m_session->waitFor("saved"));

        m_session->tell("end");

        QVERIFY(m_session->waitFor("cancels"));
        QVERIFY(m_host->isRunning());
        QVERIFY(!m_host->output().contains(text("closed")));
    }

    void whereNothingMayBeAskedTheWindowStays()
    {
        startShown();
        QVERIFY(m_session->waitFor("saved"));

        m_session->tell("end-silently");

        QVERIFY(m_session->waitFor("saved", 2));
        QVERIFY(m_host->isRunning());
        QCOMPARE(m_session->seen(), (QStringList{text("saved"), text("saved")}));
        QCOMPARE(afterSplash(), QStringList());
    }

    void toldToDieTheProgramEnds()
    {
        startShown();
        QVERIFY(m_session->waitFor("saved"));

        m_session->tell("die");

        QVERIFY(m_host->waitForEnd());
        QCOMPARE(m_host->status(), 0);
        QVERIFY(m_host->output().contains(text("core destroyed")));
    }

    void theEndBeforeTheWindowIsShownEndsTheProgram()
    {
        m_host->tell(text("hidden"));
        m_host->start();
        QVERIFY(m_host->waitForLine(text("ready")));
        QVERIFY(m_session->waitFor("saved"));

        m_session->tell("end");

        QVERIFY(m_host->waitForEnd());
        QCOMPARE(m_host->status(), 0);
        QVERIFY(!m_host->output().contains(text("closed")));
    }

private:
    void startShown()
    {
        m_host->start();
        QVERIFY(m_host->waitForLine(text("splash gone")));
    }

    QStringList afterSplash()
    {
        const QStringList lines = m_host->output();
        return lines.mid(lines.indexOf(text("splash gone")) + 1);
    }

    std::unique_ptr<SessionManager> m_session;
    std::unique_ptr<HostProcess> m_host;
};

QTEST_GUILESS_MAIN(TestHostSession)
#include "tst_hostsession.moc"
