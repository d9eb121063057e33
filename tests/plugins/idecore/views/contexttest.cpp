// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "contexttest.h"

#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using Core::ViewManager;

FocusWindow::FocusWindow()
    : panel(new QWidget)
    , inner(new QLineEdit)
    , other(new QLineEdit)
{
    auto *panelLayout = new QVBoxLayout(panel);
    panelLayout->addWidget(inner);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(panel);
    layout->addWidget(other);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        QTest::qFail("the window was not exposed", __FILE__, __LINE__);
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        QTest::qFail("the window did not become active", __FILE__, __LINE__);
    focus(other);
}

void FocusWindow::focus(QWidget *widget)
{
    widget->setFocus();
    if (!QTest::qWaitFor([widget] { return QApplication::focusWidget() == widget; }))
        QTest::qFail("the focus did not move", __FILE__, __LINE__);
}

ContextTest::~ContextTest() = default;

void ContextTest::record()
{
    connect(ViewManager::instance(), &ViewManager::contextsChanged, this,
            [this](const Core::ContextList &contexts) { m_changes.append(contexts); });
    m_changes.clear();
}

void ContextTest::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_window = std::make_unique<FocusWindow>();
    record();
}

void ContextTest::cleanup()
{
    m_core.reset();
    m_window.reset();
}
