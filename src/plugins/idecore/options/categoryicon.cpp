// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/categoryicon_p.h>

#include <idecore/core/ideicon.h>

#include <QFileInfo>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QString>

namespace Core {
namespace private_impl {

namespace {

class CategoryIconEngine final : public QIconEngine
{
public:
    explicit CategoryIconEngine(const QString &file)
        : m_file(file)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        // The size is in pixels, of which the icon takes several to a point by itself.
        const qreal ratio = QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps)
                                ? qGuiApp->devicePixelRatio()
                                : 1.0;
        QPixmap picture = icon().pixmap((QSizeF(size) / ratio).toSize(), mode, state);
        picture.setDevicePixelRatio(1.0);
        return picture;
    }

    /// The room that a list of categories keeps for each of them.
    QSize actualSize(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        return size.boundedTo(QSize(CATEGORY_ICON_SIZE, CATEGORY_ICON_SIZE));
    }

    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) const override
    {
        return icon().availableSizes(mode, state);
    }

    QString key() const override { return QStringLiteral("Core::CategoryIconEngine"); }
    QIconEngine *clone() const override { return new CategoryIconEngine(m_file); }

private:
    /// A plugin may bring a picture of any kind and shape; those of the size that the
    /// list shows are drawn like the program's own.
    const QIcon &icon() const
    {
        if (m_icon.isNull()) {
            const QImageReader reader(m_file, "png");
            m_icon = reader.size() == QSize(CATEGORY_ICON_SIZE, CATEGORY_ICON_SIZE)
                         ? ideIcon(m_file)
                         : QIcon(m_file);
        }
        return m_icon;
    }

    const QString m_file;
    mutable QIcon m_icon;
};

} // namespace

QIcon categoryIcon(const QString &file)
{
    return QFileInfo(file).isFile() ? QIcon(new CategoryIconEngine(file)) : QIcon();
}

} // namespace private_impl
} // namespace Core
