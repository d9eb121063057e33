// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/messagerecorder.h"

#include <idecore/options/categorylistview_p.h>
#include <idecore/options/categorylistviewdelegate_p.h>
#include <idecore/options/categorymodel_p.h>

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>

using namespace Core::private_impl;

namespace {

QIcon redIcon()
{
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

/// An entry with that icon and no text, drawn as the selected one or not; what is
/// selected is written in green.
QImage drawn(const QIcon &icon, bool selected)
{
    QStandardItemModel model;
    model.appendRow(new QStandardItem(icon, QString()));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 60, 32);
    option.decorationSize = QSize(24, 24);
    option.state = QStyle::State_Enabled | QStyle::State_Active;
    option.state.setFlag(QStyle::State_Selected, selected);
    option.palette.setColor(QPalette::Highlight, Qt::blue);
    option.palette.setColor(QPalette::HighlightedText, Qt::green);
    QImage image(option.rect.size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const CategoryListViewDelegate delegate;
    delegate.paint(&painter, option, model.index(0, 0));
    return image;
}

bool holds(const QImage &image, const QColor &colour)
{
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, image.height() / 2) == colour)
            return true;
    }
    return false;
}

/// Counts how often it is drawn.
class CountedEngine final : public QIconEngine
{
public:
    explicit CountedEngine(int *drawn)
        : m_drawn(drawn)
    {
    }

    void paint(QPainter *, const QRect &, QIcon::Mode, QIcon::State) override { ++*m_drawn; }
    QIconEngine *clone() const override { return new CountedEngine(m_drawn); }

private:
    int *const m_drawn;
};

} // namespace

class TestCategoryList final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_with = {QStringLiteral("A"), QStringLiteral("with"), redIcon(), {}, nullptr, {}};
        m_without = {QStringLiteral("B"), QStringLiteral("without"), QIcon(), {}, nullptr, {}};
        m_model.setCategories({&m_with, &m_without});
    }

    void theModelHasARowForEachCategory()
    {
        QCOMPARE(m_model.rowCount(), 2);
        QCOMPARE(m_model.rowCount(m_model.index(0)), 0);
    }

    void titleAndToolTipAreTheName()
    {
        QCOMPARE(m_model.index(1).data(Qt::DisplayRole), QVariant(QStringLiteral("without")));
        QCOMPARE(m_model.index(1).data(Qt::ToolTipRole), QVariant(QStringLiteral("without")));
    }

    void theIconIsThatOfTheCategory()
    {
        const QIcon icon = m_model.index(0).data(Qt::DecorationRole).value<QIcon>();
        QCOMPARE(icon.pixmap(24).toImage().pixelColor(12, 12), QColor(Qt::red));
    }

    void aMissingIconIsTransparentAndAsLarge()
    {
        const QIcon icon = m_model.index(1).data(Qt::DecorationRole).value<QIcon>();
        QCOMPARE(icon.availableSizes(), QList<QSize>{QSize(24, 24)});
        QCOMPARE(icon.pixmap(24).toImage().pixelColor(12, 12).alpha(), 0);
    }

    void everyOtherRoleIsInvalid()
    {
        for (const int role : {int(Qt::EditRole), int(Qt::FontRole), int(Qt::UserRole)})
            QVERIFY(!m_model.index(0).data(role).isValid());
        QVERIFY(!m_model.data(QModelIndex(), Qt::DisplayRole).isValid());
    }

    void theListIsAsWideAsItsEntries()
    {
        CategoryListView view;
        QStandardItemModel model;
        model.appendRow(new QStandardItem(QString(40, QLatin1Char('W'))));
        view.setModel(&model);
        QVERIFY(view.sizeHintForColumn(0) > 130);
        QCOMPARE(view.sizeHint(),
                 QSize(view.sizeHintForColumn(0) + 2 * view.frameWidth() + 5, 100));
    }

    void theListIsNotNarrowerThanThis()
    {
        CategoryListView view;
        QCOMPARE(view.sizeHint(), QSize(130, 100));
    }

    void theListLeavesRoomForAScrollBarThatIsShown()
    {
        CategoryListView view;
        QStandardItemModel model;
        for (int i = 0; i < 100; ++i)
            model.appendRow(new QStandardItem(QString(40, QLatin1Char('W'))));
        view.setModel(&model);
        view.resize(400, 200);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QVERIFY(view.verticalScrollBar()->isVisible());
        QCOMPARE(view.sizeHint().width(), view.sizeHintForColumn(0) + 2 * view.frameWidth() + 5
                                              + view.verticalScrollBar()->width());
    }

    void entriesAreAtLeastThisHigh()
    {
        const CategoryListViewDelegate delegate;
        const QStyledItemDelegate plain;
        QStyleOptionViewItem option;
        QStandardItemModel model;
        auto *item = new QStandardItem(QStringLiteral("text"));
        model.appendRow(item);
        QVERIFY(plain.sizeHint(option, item->index()).height() < 32);
        QCOMPARE(delegate.sizeHint(option, item->index()),
                 QSize(plain.sizeHint(option, item->index()).width(), 32));
    }

    void higherEntriesStaySo()
    {
        const CategoryListViewDelegate delegate;
        QStyleOptionViewItem option;
        QStandardItemModel model;
        auto *item = new QStandardItem(QStringLiteral("text"));
        item->setSizeHint(QSize(50, 70));
        model.appendRow(item);
        QCOMPARE(delegate.sizeHint(option, item->index()), QSize(50, 70));
    }

    void anEntryIsMeasuredAnewWhenItHasChanged_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QIcon>("icon");
        QTest::addColumn<int>("pixelSize");
        QTest::addColumn<QSize>("iconSize");
        QTest::newRow("text") << QStringLiteral("longer text") << redIcon() << 12 << QSize(24, 24);
        QTest::newRow("icon") << QStringLiteral("text") << QIcon() << 12 << QSize(24, 24);
        QTest::newRow("font") << QStringLiteral("text") << redIcon() << 40 << QSize(24, 24);
        QTest::newRow("icon size") << QStringLiteral("text") << redIcon() << 12 << QSize(8, 8);
    }

    void anEntryIsMeasuredAnewWhenItHasChanged()
    {
        QFETCH(QString, text);
        QFETCH(QIcon, icon);
        QFETCH(int, pixelSize);
        QFETCH(QSize, iconSize);
        const CategoryListViewDelegate delegate;
        QStandardItemModel model;
        auto *item = new QStandardItem(redIcon(), QStringLiteral("text"));
        model.appendRow(item);
        QStyleOptionViewItem option;
        option.decorationSize = QSize(24, 24);
        option.font.setPixelSize(12);
        const QSize before = delegate.sizeHint(option, item->index());
        QCOMPARE(delegate.sizeHint(option, item->index()), before);
        item->setText(text);
        item->setIcon(icon);
        option.font.setPixelSize(pixelSize);
        option.fontMetrics = QFontMetrics(option.font);
        option.decorationSize = iconSize;
        const QSize after = delegate.sizeHint(option, item->index());
        QVERIFY(after != before);
        QCOMPARE(after, CategoryListViewDelegate().sizeHint(option, item->index()));
    }

    void thePicturesInSightAreRead()
    {
        QStandardItemModel model;
        int drawn[3] = {0, 0, 0};
        for (int &count : drawn)
            model.appendRow(new QStandardItem(QIcon(new CountedEngine(&count)), QString()));
        CategoryListViewDelegate delegate;
        CategoryListView view;
        view.setItemDelegate(&delegate);
        view.setModel(&model);
        view.resize(200, 2 * 32 + 2 * view.frameWidth());
        view.readPictures();
        QCOMPARE(drawn[0], 1);
        QCOMPARE(drawn[1], 1);
        QCOMPARE(drawn[2], 0);
    }

    void anIconHasItsOwnColours() { QVERIFY(holds(drawn(redIcon(), false), Qt::red)); }

    void anIconWithoutAPictureIsDrawnInSilence()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("broken.png"));
        QFile broken(file);
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no picture") > 0);
        broken.close();
        const MessageRecorder log;
        (void)drawn(QIcon(file), true);
        QCOMPARE(log.labelled(), QStringList());
    }

private:
    Category m_with;
    Category m_without;
    CategoryModel m_model;
};

QTEST_MAIN(TestCategoryList)
#include "tst_categorylist.moc"
