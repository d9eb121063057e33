// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_LIBS_UTILS_DOCUMENT_H
#define TESTS_LIBS_UTILS_DOCUMENT_H

#include <QEvent>
#include <QList>
#include <QVector>
#include <QWidget>

#include <functional>
#include <utility>

class QLineEdit;
class QMainWindow;

namespace Utils {
class MdiArea;
class MdiSubWindow;
} // namespace Utils

/// A document that counts what is done to it.
class Document final : public QWidget
{
    Q_OBJECT
public:
    explicit Document(const QString &title);

    QLineEdit *edit;
    bool refuses = false;
    std::function<void()> onClose;
    int closes = 0;
    int paints = 0;
    int resizes = 0;
    int layouts = 0;

    void forgetCounts() { closes = paints = resizes = layouts = 0; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};

/// Does something when a watched object gets an event, before the object does.
class OnEvent final : public QObject
{
    Q_OBJECT
public:
    OnEvent(QEvent::Type type, std::function<void()> what)
        : m_type(type)
        , m_what(std::move(what))
    {
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == m_type)
            m_what();
        return QObject::eventFilter(watched, event);
    }

private:
    const QEvent::Type m_type;
    const std::function<void()> m_what;
};

/// Short titles of documents.
using Titles = QVector<QString>;

/// A main window with an area, and what the area has reported.
class AreaFixture final
{
public:
    explicit AreaFixture(bool shown = true);
    ~AreaFixture();
    AreaFixture(const AreaFixture &) = delete;
    AreaFixture &operator=(const AreaFixture &) = delete;

    Document *open(const QString &title);
    [[nodiscard]] static Utils::MdiSubWindow *windowOf(const QWidget *document);
    /// Shows the main window and waits until it is the active one.
    [[nodiscard]] bool show();

    QMainWindow *main;
    Utils::MdiArea *area;
    Titles currents; // "-" for none
    Titles closed;
};

[[nodiscard]] Titles titles(const QList<Utils::MdiSubWindow *> &windows);

#endif // TESTS_LIBS_UTILS_DOCUMENT_H
