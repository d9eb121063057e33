// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "documentbench.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <KTextEditor/Document>
#include <KTextEditor/Editor>
#include <KTextEditor/View>

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QStatusBar>
#include <QThread>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <limits>
#include <malloc.h>
#include <memory>
#include <vector>

double cpuMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

void warmMemory()
{
    constexpr std::size_t piece = std::size_t(16) << 20;
    constexpr int pieces = 40; // 500 editors
    mallopt(M_MMAP_THRESHOLD, 2 * piece);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    std::vector<std::unique_ptr<char[]>> memory;
    for (int i = 0; i < pieces; ++i) {
        memory.emplace_back(new char[piece]);
        std::memset(memory.back().get(), i, piece);
    }
}

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values.at(values.size() / 2);
}

void settle()
{
    for (int i = 0; i < 3; ++i) {
        QApplication::sendPostedEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
}

QWidget *makePage(int number)
{
    auto *page = new QWidget;
    page->setWindowTitle(QStringLiteral("file%1.v").arg(number));
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(new QLabel(page->windowTitle()));
    layout->addWidget(new QLineEdit(QStringLiteral("module top")));
    auto *text = new QPlainTextEdit(QStringLiteral("module top(input clk);\nendmodule\n"));
    layout->addWidget(text);
    page->setFocusProxy(text);
    return page;
}

QWidget *makeEditor(int number)
{
    auto *document = KTextEditor::Editor::instance()->createDocument(nullptr);
    document->setText(QStringLiteral("module top(input clk);\nendmodule\n"));
    auto *view = document->createView(nullptr);
    view->setWindowTitle(QStringLiteral("file%1.v").arg(number));
    QObject::connect(view, &QObject::destroyed, document, &QObject::deleteLater);
    return view;
}

Host::Host()
    : m_window(std::make_unique<QMainWindow>())
{
}

Host::~Host() = default;

void Host::show(QWidget *middle)
{
    m_window->menuBar()->addMenu(QStringLiteral("File"));
    m_window->statusBar()->showMessage(QStringLiteral("Ready"));
    m_window->setCentralWidget(middle);
    m_window->resize(1200, 800);
    m_window->show();
    const auto isOnScreen = [this] {
        return m_window->isActiveWindow() && m_window->windowHandle()->isExposed();
    };
    QElapsedTimer waited;
    waited.start();
    while (!isOnScreen() && !waited.hasExpired(10000)) {
        QApplication::processEvents();
        QThread::msleep(10);
        // Asked too early, the window manager may have missed it.
        m_window->activateWindow();
    }
    // A window that is not painted would look cheap.
    if (!isOnScreen())
        qFatal("the window does not come onto the screen");
    settle();
}

AreaHost::AreaHost()
    : m_area(new Utils::MdiArea)
{
    show(m_area);
}

void AreaHost::open(QWidget *document, int number)
{
    auto *window = new Utils::MdiSubWindow;
    window->setWidget(document);
    window->setShortTitle(QStringLiteral("file%1.v").arg(number));
    m_area->addSubWindow(window);
}

void AreaHost::closeCurrent()
{
    m_area->closeCurrent();
}

StackHost::StackHost()
    : m_stack(new QStackedWidget)
{
    show(m_stack);
}

void StackHost::open(QWidget *document, int)
{
    m_stack->addWidget(document);
    m_stack->setCurrentWidget(document);
    document->setFocus();
}

void StackHost::closeCurrent()
{
    if (QWidget *page = m_stack->currentWidget()) {
        m_stack->removeWidget(page);
        page->deleteLater();
    }
}

QVector<double> openMany(Host &host, QWidget *(*make)(int), int count)
{
    QVector<double> result;
    for (int i = 0; i < count; ++i) {
        QWidget *document = make(i);
        const double begin = cpuMilliseconds();
        host.open(document, i);
        settle();
        result.append(cpuMilliseconds() - begin);
    }
    return result;
}
