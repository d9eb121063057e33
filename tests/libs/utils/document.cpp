// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "document.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QCloseEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>
#include <QVBoxLayout>

namespace {
class CountingLayout final : public QVBoxLayout
{
public:
    explicit CountingLayout(Document *document)
        : QVBoxLayout(document)
        , m_document(document)
    {
    }

    void setGeometry(const QRect &rect) override
    {
        ++m_document->layouts;
        QVBoxLayout::setGeometry(rect);
    }

private:
    Document *const m_document;
};
} // namespace

Document::Document(const QString &title)
    : edit(new QLineEdit(this))
{
    setWindowTitle(title);
    auto *box = new CountingLayout(this);
    box->addWidget(edit);
}

void Document::closeEvent(QCloseEvent *event)
{
    ++closes;
    if (onClose)
        onClose();
    event->setAccepted(!refuses);
}

void Document::paintEvent(QPaintEvent *event)
{
    ++paints;
    QWidget::paintEvent(event);
}

void Document::resizeEvent(QResizeEvent *event)
{
    ++resizes;
    QWidget::resizeEvent(event);
}

AreaFixture::AreaFixture(bool shown)
    : main(new QMainWindow)
    , area(new Utils::MdiArea(main))
{
    main->setCentralWidget(area);
    main->resize(700, 500);
    QObject::connect(area, &Utils::MdiArea::currentWindowChanged, main,
                     [this](Utils::MdiSubWindow *window) {
                         currents.append(window ? window->shortTitle() : QStringLiteral("-"));
                     });
    QObject::connect(
        area, &Utils::MdiArea::windowClosed, main, [this](Utils::MdiSubWindow *window) {
            const auto *document = qobject_cast<Document *>(window->widget());
            closed.append(document ? document->windowTitle() : QStringLiteral("no document"));
        });
    if (shown && !show())
        qFatal("the main window did not become active");
}

AreaFixture::~AreaFixture()
{
    delete main; // the area first tells what it has to tell
}

Document *AreaFixture::open(const QString &title)
{
    auto *document = new Document(title);
    auto *window = new Utils::MdiSubWindow;
    window->setWidget(document);
    window->setShortTitle(title);
    area->addSubWindow(window);
    return document;
}

Utils::MdiSubWindow *AreaFixture::windowOf(const QWidget *document)
{
    return qobject_cast<Utils::MdiSubWindow *>(document->parentWidget());
}

bool AreaFixture::show()
{
    main->show();
    main->activateWindow();
    return QTest::qWaitForWindowActive(main);
}

Titles titles(const QList<Utils::MdiSubWindow *> &windows)
{
    Titles result;
    for (const Utils::MdiSubWindow *window : windows)
        result.append(window->shortTitle());
    return result;
}
