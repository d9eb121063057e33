// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostprocess.h"

#include <QTest>

#include <csignal>

static QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// The program on a real window system.
class TestHostWindow final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void startsAndEnds();
    void noGlIsLoadedUnlessTheUserWantsIt();
    void noNetworkAndNoSvgIsLoaded();

private:
    /// The libraries that the program has mapped once its window is shown.
    static QByteArray loaded(HostProcess *host);
};

void TestHostWindow::startsAndEnds()
{
    HostProcess host;
    host.start();
    QVERIFY(host.waitForLine(text("splash gone")));
    QCOMPARE(host.output().filter(text("splash there")).size(), 1);

    host.send(SIGTERM);

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
}

QByteArray TestHostWindow::loaded(HostProcess *host)
{
    host->start();
    if (!host->waitForLine(text("splash gone")))
        return {};
    return host->mappedFiles();
}

void TestHostWindow::noGlIsLoadedUnlessTheUserWantsIt()
{
    HostProcess host;
    host.removeVariable(text("QT_XCB_GL_INTEGRATION"));

    const QByteArray files = loaded(&host);

    QVERIFY(files.contains("libQt5XcbQpa"));
    QVERIFY(!files.contains("libqxcb-glx-integration"));
    QVERIFY(!files.contains("libqxcb-egl-integration"));
}

void TestHostWindow::noNetworkAndNoSvgIsLoaded()
{
    HostProcess host;

    const QByteArray files = loaded(&host);

    QVERIFY(files.contains("libQt5Widgets"));
    QVERIFY(!files.contains("libQt5Network"));
    QVERIFY(!files.contains("libQt5Svg"));
}

QTEST_GUILESS_MAIN(TestHostWindow)
#include "tst_hostwindow.moc"
