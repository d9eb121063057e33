// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Stands in for a file manager: a small window in the upper right corner from which
// the files of the command line can be dragged.

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QScreen>
#include <QUrl>

namespace {

class Source final : public QLabel
{
public:
    explicit Source(const QStringList &files)
    {
        for (const QString &file : files)
            m_urls.append(QUrl::fromLocalFile(file));
        setText(QStringLiteral("drag me"));
        setWindowTitle(QStringLiteral("drag source"));
        setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        setGeometry(screen.right() - 100, screen.top(), 100, 60);
    }

protected:
    void mousePressEvent(QMouseEvent *event) override { event->accept(); }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (!(event->buttons() & Qt::LeftButton))
            return;
        // Belongs to itself, and goes with the end of the drag.
        auto *const drag = new QDrag(this);
        auto *const carried = new QMimeData;
        carried->setUrls(m_urls);
        drag->setMimeData(carried);
        drag->exec(Qt::CopyAction);
    }

private:
    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    Source source(QCoreApplication::arguments().mid(1));
    source.show();
    return QApplication::exec();
}
