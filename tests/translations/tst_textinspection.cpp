// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "textinspection.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

#include <functional>

using Fill = std::function<void(QWidget *window)>;
Q_DECLARE_METATYPE(Fill)

namespace {

bool isTranslated(const QString &text, const QString & /*place*/)
{
    return !text.contains(QLatin1String("raw"));
}

QString words()
{
    return QStringLiteral("some words that need their room");
}

/// Where nothing is too small.
const QRect wide(10, 10, 380, 80);

template<class Widget>
Widget *put(QWidget *window, const QRect &place)
{
    auto *const widget = new Widget(window);
    widget->setGeometry(place);
    return widget;
}

} // namespace

/// What walks the windows finds what is wrong there, and nothing else.
class TestTextInspection final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<Fill>(); }

    void faults_data()
    {
        QTest::addColumn<Fill>("fill");
        QTest::addColumn<QString>("fault");
        const auto row = [](const char *name, const char *fault, const Fill &fill) {
            QTest::newRow(name) << fill << QString::fromLatin1(fault);
        };
        const QString raw = QStringLiteral("raw");
        const QRect narrow(10, 10, 30, 40);

        row("a label as it should be", "",
            [](QWidget *window) { put<QLabel>(window, wide)->setText(words()); });
        row("a label", "not translated",
            [raw](QWidget *window) { put<QLabel>(window, wide)->setText(raw); });
        row("a hidden label", "", [raw](QWidget *window) {
            auto *const label = put<QLabel>(window, wide);
            label->setText(raw);
            label->hide();
        });
        row("a tool tip", "not translated",
            [raw](QWidget *window) { put<QWidget>(window, wide)->setToolTip(raw); });
        row("an accessible name", "not translated",
            [raw](QWidget *window) { put<QWidget>(window, wide)->setAccessibleName(raw); });
        row("an action", "not translated",
            [raw](QWidget *window) { window->addAction(new QAction(raw, window)); });
        row("the window's title", "not translated",
            [raw](QWidget *window) { window->setWindowTitle(raw); });
        row("an entry", "not translated",
            [raw](QWidget *window) { put<QComboBox>(window, wide)->addItem(raw); });
        row("a placeholder", "not translated",
            [raw](QWidget *window) { put<QLineEdit>(window, wide)->setPlaceholderText(raw); });
        row("what the user typed", "",
            [raw](QWidget *window) { put<QLineEdit>(window, wide)->setText(raw); });
        row("a text to be read", "not translated", [raw](QWidget *window) {
            auto *const area = put<QPlainTextEdit>(window, wide);
            area->setReadOnly(true);
            area->setPlainText(raw);
        });
        row("a text of the user's", "",
            [raw](QWidget *window) { put<QPlainTextEdit>(window, wide)->setPlainText(raw); });
        row("a tab", "not translated",
            [raw](QWidget *window) { put<QTabWidget>(window, wide)->addTab(new QWidget, raw); });
        row("a cell", "not translated", [raw](QWidget *window) {
            auto *const table = put<QTableWidget>(window, wide);
            table->setColumnCount(1);
            table->setRowCount(1);
            table->setItem(0, 0, new QTableWidgetItem(raw));
        });

        row("a narrow label", "no room",
            [narrow](QWidget *window) { put<QLabel>(window, narrow)->setText(words()); });
        row("a narrow label with its text as tool tip", "", [narrow](QWidget *window) {
            auto *const label = put<QLabel>(window, narrow);
            label->setText(words());
            label->setToolTip(words());
        });
        row("a low label", "no room",
            [](QWidget *window) { put<QLabel>(window, QRect(10, 10, 380, 8))->setText(words()); });
        row("a label of several lines", "", [](QWidget *window) {
            auto *const label = put<QLabel>(window, QRect(10, 10, 150, 80));
            label->setWordWrap(true);
            label->setText(words());
        });
        row("a low one of several lines", "no room", [](QWidget *window) {
            auto *const label = put<QLabel>(window, QRect(10, 10, 100, 20));
            label->setWordWrap(true);
            label->setText(words());
        });
        row("a narrow button", "no room",
            [narrow](QWidget *window) { put<QPushButton>(window, narrow)->setText(words()); });
        row("a button beyond the border", "cut off", [](QWidget *window) {
            put<QPushButton>(window, QRect(300, 10, 380, 40))->setText(words());
        });
        row("a narrow list", "no room",
            [narrow](QWidget *window) { put<QComboBox>(window, narrow)->addItem(words()); });
        row("a narrow group", "no room",
            [narrow](QWidget *window) { put<QGroupBox>(window, narrow)->setTitle(words()); });
        row("a narrow placeholder", "no room", [narrow](QWidget *window) {
            put<QLineEdit>(window, narrow)->setPlaceholderText(words());
        });
        row("a narrow header", "no room", [](QWidget *window) {
            auto *const table = put<QTableWidget>(window, wide);
            table->setColumnCount(1);
            table->setHorizontalHeaderLabels({words()});
            table->setColumnWidth(0, 30);
        });
        row("a narrow cell", "no room", [](QWidget *window) {
            auto *const table = put<QTableWidget>(window, wide);
            table->setColumnCount(1);
            table->setRowCount(1);
            table->setItem(0, 0, new QTableWidgetItem(words()));
            table->setColumnWidth(0, 30);
        });
        row("a narrow cell of a tree with its text as tool tip", "", [](QWidget *window) {
            auto *const tree = put<QTreeWidget>(window, wide);
            tree->setColumnCount(2);
            tree->setHeaderLabels({QString(), QString()});
            auto *const item = new QTreeWidgetItem(tree, {words()});
            item->setToolTip(0, words());
            tree->setColumnWidth(0, 30);
        });
        row("a narrow cell of a tree", "no room", [](QWidget *window) {
            auto *const tree = put<QTreeWidget>(window, wide);
            tree->setColumnCount(2);
            tree->setHeaderLabels({QString(), QString()});
            (void)new QTreeWidgetItem(tree, {words()});
            tree->setColumnWidth(0, 30);
        });
    }

    void faults()
    {
        QFETCH(const Fill, fill);
        QFETCH(const QString, fault);
        QWidget window;
        window.resize(400, 100);
        fill(&window);
        window.show();
        TextInspection inspection(isTranslated);

        inspection.inspect(&window, QStringLiteral("window"));

        const QString found = inspection.faults().join(QLatin1Char('\n'));
        QVERIFY2(fault.isEmpty() ? found.isEmpty() : found.contains(fault), qPrintable(found));
    }

    void menusInMenusAreLookedAt()
    {
        QMenu menu(QStringLiteral("menu"));
        menu.addMenu(QStringLiteral("inner"))->addAction(QStringLiteral("raw"));
        TextInspection inspection(isTranslated);

        inspection.inspectMenu(&menu, QStringLiteral("menu"));

        QVERIFY(inspection.faults().constFirst().startsWith(
            QLatin1String("menu > inner: action: not translated: \"raw\"")));
    }

    void menusInAnOpenMenuAreLookedAt()
    {
        QMenu menu;
        menu.addMenu(QStringLiteral("inner"))->addAction(QStringLiteral("raw"));
        TextInspection inspection(isTranslated);

        inspection.inspect(&menu, QStringLiteral("menu"));

        QVERIFY(inspection.faults().constFirst().startsWith(
            QLatin1String("menu > inner: action: not translated: \"raw\"")));
    }
};

QTEST_MAIN(TestTextInspection)
#include "tst_textinspection.moc"
