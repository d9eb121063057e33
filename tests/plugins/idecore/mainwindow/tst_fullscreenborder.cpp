// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mainwindow/idemainwindow.h>

#include <QGuiApplication>
#include <QTest>
#include <QWindow>

namespace {

struct Call
{
    QWindow *window;
    bool border;
};

bool s_offered = false;
QVector<Call> s_calls;
QByteArrayList s_asked;

void setHasBorderInFullScreen(QWindow *window, bool border)
{
    s_calls.append({window, border});
}

} // namespace

// Stands in for Qt's own, for this program and the libraries it uses: the
// platforms at hand do not offer the function.
QFunctionPointer QGuiApplication::platformFunction(const QByteArray &function)
{
    s_asked.append(function);
    if (s_offered && function == "WindowsSetHasBorderInFullScreen")
        return reinterpret_cast<QFunctionPointer>(&setHasBorderInFullScreen);
    return nullptr;
}

class TestFullScreenBorder final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        s_calls.clear();
        s_asked.clear();
    }

    void theShownWindowGetsABorderInFullScreen()
    {
        s_offered = true;
        Core::IdeMainWindow window;
        window.show();
        QCOMPARE(s_calls.size(), 1);
        QVERIFY(s_calls.constFirst().window);
        QCOMPARE(s_calls.constFirst().window, window.windowHandle());
        QVERIFY(s_calls.constFirst().border);
    }

    void whereThePlatformLacksTheFunctionNothingHappens()
    {
        s_offered = false;
        Core::IdeMainWindow window;
        window.show();
        QVERIFY(s_asked.contains("WindowsSetHasBorderInFullScreen"));
        QVERIFY(window.isVisible());
        QVERIFY(s_calls.isEmpty());
    }
};

QTEST_MAIN(TestFullScreenBorder)
#include "tst_fullscreenborder.moc"
