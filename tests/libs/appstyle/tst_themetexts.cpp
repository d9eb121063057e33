// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/contrast.h"

#include <appstyle/appstylemanager.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>

#include <memory>

using APPSTYLE::AppStyleManager;

namespace {

/// Makes a control that shows a text.
using Maker = QWidget *(*)(const QString &text);

QImage shown(QWidget *control, bool enabled)
{
    control->setEnabled(enabled);
    control->ensurePolished();
    control->resize(500, 80);
    return control->grab().toImage();
}

/// The contrast that a text has where it stands out most from what is there without
/// it.
double ratioOf(const QImage &with, const QImage &without)
{
    double best = 1;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x)
            best = qMax(best, Contrast::ratio(with.pixelColor(x, y), without.pixelColor(x, y)));
    }
    return best;
}

template<class Button>
QWidget *button(const QString &text)
{
    auto *const control = new Button;
    control->setText(text);
    return control;
}

QWidget *pressed(const QString &text)
{
    auto *const control = new QPushButton(text);
    control->setDown(true);
    return control;
}

QWidget *checkedTool(const QString &text)
{
    auto *const control = new QToolButton;
    control->setText(text);
    control->setCheckable(true);
    control->setChecked(true);
    return control;
}

QWidget *tab(const QString &text, bool current)
{
    auto *const bar = new QTabBar;
    bar->addTab(QString());
    bar->addTab(text);
    bar->setCurrentIndex(current ? 1 : 0);
    return bar;
}

QWidget *list(const QString &text, bool selected)
{
    auto *const control = new QListWidget;
    control->addItem(text);
    control->item(0)->setSelected(selected);
    return control;
}

QWidget *menu(const QString &text, bool active)
{
    auto *const control = new QMenu;
    QAction *const action = control->addAction(text);
    if (active)
        control->setActiveAction(action);
    return control;
}

QWidget *dock(const QString &text)
{
    // By itself it would be a window with the title bar of the desktop.
    auto *const control = new QMainWindow;
    auto *const panel = new QDockWidget(text);
    panel->setWidget(new QWidget);
    control->addDockWidget(Qt::LeftDockWidgetArea, panel);
    return control;
}

QWidget *document(const QString &text, bool active)
{
    auto *const control = new QMdiArea;
    QMdiSubWindow *const window = control->addSubWindow(new QWidget);
    window->setWindowTitle(text);
    window->setGeometry(0, 0, 500, 80);
    if (!active)
        control->addSubWindow(new QWidget)->setGeometry(0, 60, 10, 10);
    control->show();
    return control;
}

QWidget *progress(const QString &text, int value)
{
    auto *const control = new QProgressBar;
    control->setValue(value);
    control->setFormat(text);
    return control;
}

void add(const char *name, Maker maker)
{
    for (const bool enabled : {true, false}) {
        QTest::addRow("%s%s", name, enabled ? "" : ", disabled") << maker << enabled;
    }
}

} // namespace

Q_DECLARE_METATYPE(Maker)

/// The texts of controls can be read on what the style draws below them, which is not
/// always a colour of the palette.
class TestThemeTexts final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase();
    void textsAreReadable_data();
    void textsAreReadable();
};

void TestThemeTexts::initTestCase_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("classic") << APPSTYLE::THEME_CLASSIC;
    QTest::newRow("dark") << APPSTYLE::THEME_DARK;
}

void TestThemeTexts::initTestCase()
{
    // Strokes of several pixels show their colour.
    QFont font = QApplication::font();
    font.setPixelSize(36);
    QApplication::setFont(font);
}

void TestThemeTexts::textsAreReadable_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<bool>("enabled");
    add("push button", button<QPushButton>);
    add("pressed button", pressed);
    add("tool button", button<QToolButton>);
    add("checked tool button", checkedTool);
    add("check box", button<QCheckBox>);
    add("radio button", button<QRadioButton>);
    add("label", button<QLabel>);
    add("group", [](const QString &text) -> QWidget * { return new QGroupBox(text); });
    add("field", [](const QString &text) -> QWidget * { return new QLineEdit(text); });
    add("hint in a field", [](const QString &text) -> QWidget * {
        auto *const control = new QLineEdit;
        control->setPlaceholderText(text);
        return control;
    });
    add("combo box", [](const QString &text) -> QWidget * {
        auto *const control = new QComboBox;
        control->addItem(text);
        return control;
    });
    add("hint in a combo box", [](const QString &text) -> QWidget * {
        auto *const control = new QComboBox;
        control->setPlaceholderText(text);
        return control;
    });
    add("spin box", [](const QString &text) -> QWidget * {
        auto *const control = new QSpinBox;
        control->setSpecialValueText(text.isEmpty() ? QStringLiteral(" ") : text);
        return control;
    });
    add("tab", [](const QString &text) { return tab(text, false); });
    add("current tab", [](const QString &text) { return tab(text, true); });
    add("list", [](const QString &text) { return list(text, false); });
    add("selected row", [](const QString &text) { return list(text, true); });
    add("header", [](const QString &text) -> QWidget * {
        auto *const control = new QTableWidget(1, 1);
        control->setHorizontalHeaderItem(0, new QTableWidgetItem(text));
        return control;
    });
    add("menu", [](const QString &text) { return menu(text, false); });
    add("active entry of a menu", [](const QString &text) { return menu(text, true); });
    add("menu bar", [](const QString &text) -> QWidget * {
        auto *const control = new QMenuBar;
        control->addAction(text.isEmpty() ? QStringLiteral(" ") : text);
        return control;
    });
    add("status bar", [](const QString &text) -> QWidget * {
        auto *const control = new QStatusBar;
        control->showMessage(text);
        return control;
    });
    add("panel", dock);
    add("document", [](const QString &text) { return document(text, true); });
    add("document behind another", [](const QString &text) { return document(text, false); });
    add("progress, empty", [](const QString &text) { return progress(text, 0); });
    add("progress, full", [](const QString &text) { return progress(text, 100); });
}

void TestThemeTexts::textsAreReadable()
{
    QFETCH_GLOBAL(QString, theme);
    QFETCH(Maker, maker);
    QFETCH(bool, enabled);
    AppStyleManager::instance()->setAppStyle(theme);
    const std::unique_ptr<QWidget> with(maker(QStringLiteral("MMMMMM")));
    const std::unique_ptr<QWidget> without(maker(QString()));

    const double ratio = ratioOf(shown(with.get(), enabled), shown(without.get(), enabled));

    QVERIFY2(ratio >= (enabled ? Contrast::TEXT : Contrast::DISABLED),
             qPrintable(QString::number(ratio)));
}

QTEST_MAIN(TestThemeTexts)
#include "tst_themetexts.moc"
