// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "growth.h"

#include "documentbench.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>

namespace {

constexpr int few = 100;
constexpr int many = 500;
constexpr int last = 10;
constexpr int patienceMs = 120'000;

/// The process that has opened all but the last ten of its documents.
class Opener
{
public:
    Opener(const QStringList &arguments, int upTo)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(),
                        arguments + QStringList(QString::number(upTo - last)));
    }
    ~Opener()
    {
        m_process.closeWriteChannel();
        // It shall not do any more: closing hundreds of documents is not asked for.
        m_process.kill();
        m_process.waitForFinished();
    }
    Opener(const Opener &) = delete;
    Opener &operator=(const Opener &) = delete;

    void waitUntilReady() { readLine(); }
    void openOne()
    {
        m_process.write("open\n");
        const QList<QByteArray> figures = readLine().split(' ');
        m_ms.append(figures.value(0).toDouble());
        m_bytes.append(figures.value(1).toDouble());
    }
    [[nodiscard]] double ms() const { return median(m_ms); }
    [[nodiscard]] double bytes() const { return median(m_bytes); }

private:
    QByteArray readLine()
    {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(patienceMs))
                qFatal("a process that opens documents does not answer: %s",
                       qPrintable(m_process.errorString()));
        }
        return m_process.readLine().trimmed();
    }

    QProcess m_process;
    QVector<double> m_ms;
    QVector<double> m_bytes;
};

/// The other process has had the focus meanwhile; opening costs more with it.
void takeFocus()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    const auto window = std::find_if(widgets.cbegin(), widgets.cend(),
                                     [](const QWidget *widget) { return widget->isVisible(); });
    if (window == widgets.cend())
        qFatal("there is no window");
    QElapsedTimer waiting;
    waiting.start();
    while (!(*window)->isActiveWindow()) {
        if (waiting.hasExpired(patienceMs))
            qFatal("the window does not become the active one");
        (*window)->activateWindow();
        settle();
        QThread::msleep(5);
    }
    settle();
}

void print(const char *name, const char *figure, double ours, double peer)
{
    const double value = peer > 0 ? ours / peer : 0;
    std::printf("RATIO %s_growth_%s %.3f %.3f %.2f limit 1.30 %s\n", name, figure, ours, peer,
                value, peer > 0 && value <= 1.3 ? "ok" : "MISSED");
    std::fflush(stdout);
}

} // namespace

void compareGrowth(const char *name, const QStringList &arguments)
{
    Opener withMany(arguments, many);
    Opener withFew(arguments, few);
    withMany.waitUntilReady();
    withFew.waitUntilReady();
    for (int i = 0; i < last; ++i) {
        withFew.openOne();
        withMany.openOne();
    }
    print(name, "ms", withMany.ms(), withFew.ms());
    print(name, "bytes", withMany.bytes(), withFew.bytes());
}

void serveOpenings(int already, const std::function<Opening(int)> &open)
{
    for (int i = 0; i < already; ++i)
        open(i);
    std::puts("ready");
    std::fflush(stdout);
    std::string line;
    for (int i = already; std::getline(std::cin, line); ++i) {
        takeFocus();
        const Opening opening = open(i);
        std::printf("%.6f %.0f\n", opening.ms, opening.bytes);
        std::fflush(stdout);
    }
}
