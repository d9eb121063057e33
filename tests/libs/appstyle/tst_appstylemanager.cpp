// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/testhome.h"

#include <appstyle/appstylemanager.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPalette>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QStyle>
#include <QTest>
#include <QToolTip>
#include <QtMath>

using APPSTYLE::AppStyleManager;
using APPSTYLE::THEME_CLASSIC;
using APPSTYLE::THEME_DARK;

namespace {

double channel(double value)
{
    return value <= 0.03928 ? value / 12.92 : qPow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * channel(colour.redF()) + 0.7152 * channel(colour.greenF())
           + 0.0722 * channel(colour.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double light = qMax(luminance(a), luminance(b));
    const double dark = qMin(luminance(a), luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

QString settingsFile()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("KelmoWare"),
                     QStringLiteral("IDE"))
        .fileName();
}

void store(const QByteArray &content)
{
    QDir().mkpath(QFileInfo(settingsFile()).absolutePath());
    QFile file(settingsFile());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

bool isDark()
{
    return luminance(QApplication::palette().color(QPalette::Window)) < 0.2;
}

} // namespace

class TestAppStyleManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void classicIsCurrentBeforeAnythingWasApplied();
    void updateStyleTakesTheStoredTheme_data();
    void updateStyleTakesTheStoredTheme();
    void updateStyleWithoutSettingsIsClassic();
    void updateStyleReadsTheStoreAfresh();
    void setAppStyleStoresNothing();
    void unknownThemeIsClassic_data();
    void unknownThemeIsClassic();
    void styleIsFusion();
    void iconsAreDrawnForTheTheme();
    void styleIsNotMadeAnewForAnotherTheme();
    void openWindowsMenusAndToolTipsFollow();
    void themeChangedIsSentAfterTheChange();
    void sameThemeAgainSendsNothing();
    void setCurrentThemeNotesWithoutApplying();
    void notedThemeIsStillApplied();
    void textIsReadable_data();
    void textIsReadable();
    void disabledTextIsFainterYetVisible_data();
    void disabledTextIsFainterYetVisible();
    void paletteIsComplete_data();
    void paletteIsComplete();
};

void TestAppStyleManager::cleanup()
{
    removeFromTestHome(settingsFile());
    AppStyleManager::instance()->setAppStyle(THEME_CLASSIC);
}

void TestAppStyleManager::classicIsCurrentBeforeAnythingWasApplied()
{
    QCOMPARE(AppStyleManager::instance()->currentTheme(), THEME_CLASSIC);
}

void TestAppStyleManager::updateStyleTakesTheStoredTheme_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("theme");
    QTest::newRow("dark") << QByteArray("[General]\nTheme=Dark\n") << THEME_DARK;
    QTest::newRow("classic") << QByteArray("[General]\nTheme=Classic\n") << THEME_CLASSIC;
    QTest::newRow("empty") << QByteArray("[General]\nTheme=\n") << THEME_CLASSIC;
    QTest::newRow("unknown") << QByteArray("[General]\nTheme=Solar\n") << THEME_CLASSIC;
    QTest::newRow("other case") << QByteArray("[General]\nTheme=dark\n") << THEME_CLASSIC;
    QTest::newRow("list") << QByteArray("[General]\nTheme=Dark, Classic\n") << THEME_CLASSIC;
    QTest::newRow("bytes") << QByteArray("[General]\nTheme=@ByteArray(Dark)\n") << THEME_CLASSIC;
    QTest::newRow("corrupt") << QByteArray("[Gener\0\xff=\n=Dark", 15) << THEME_CLASSIC;
}

void TestAppStyleManager::updateStyleTakesTheStoredTheme()
{
    QFETCH(QByteArray, stored);
    QFETCH(QString, theme);
    // The other one first, so that the outcome shows.
    AppStyleManager::instance()->setAppStyle(theme == THEME_DARK ? THEME_CLASSIC : THEME_DARK);
    store(stored);

    AppStyleManager::instance()->updateStyle();

    QCOMPARE(AppStyleManager::instance()->currentTheme(), theme);
    QCOMPARE(isDark(), theme == THEME_DARK);
}

void TestAppStyleManager::updateStyleWithoutSettingsIsClassic()
{
    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    AppStyleManager::instance()->updateStyle();

    QVERIFY(!isDark());
}

void TestAppStyleManager::updateStyleReadsTheStoreAfresh()
{
    AppStyleManager::instance()->updateStyle();
    QSettings user(settingsFile(), QSettings::IniFormat);
    user.setValue(QStringLiteral("Theme"), THEME_DARK);
    user.sync();

    AppStyleManager::instance()->updateStyle();

    QVERIFY(isDark());
}

void TestAppStyleManager::setAppStyleStoresNothing()
{
    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    QVERIFY(!QFile::exists(settingsFile()));
}

void TestAppStyleManager::unknownThemeIsClassic_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("unknown") << QStringLiteral("Desert");
    QTest::newRow("other case") << QStringLiteral("DARK");
}

void TestAppStyleManager::unknownThemeIsClassic()
{
    QFETCH(QString, theme);
    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    AppStyleManager::instance()->setAppStyle(theme);

    QCOMPARE(AppStyleManager::instance()->currentTheme(), THEME_CLASSIC);
    QVERIFY(!isDark());
}

void TestAppStyleManager::iconsAreDrawnForTheTheme()
{
    // As a desktop says it; the test's platform knows no icons.
    QIcon::setThemeSearchPaths(QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                                         QStringLiteral("icons"),
                                                         QStandardPaths::LocateDirectory));
    QIcon::setThemeName(QStringLiteral("hicolor"));
    AppStyleManager::instance()->setAppStyle(THEME_DARK);
    QTRY_COMPARE(QIcon::fallbackThemeName(), QStringLiteral("breeze-dark"));
    const QImage dark = QIcon::fromTheme(QStringLiteral("document-save")).pixmap(16).toImage();
    AppStyleManager::instance()->setAppStyle(THEME_CLASSIC);
    QTRY_COMPARE(QIcon::fallbackThemeName(), QStringLiteral("breeze"));
    const QImage light = QIcon::fromTheme(QStringLiteral("document-save")).pixmap(16).toImage();
    QVERIFY(!dark.isNull());
    QVERIFY(dark != light);
}

void TestAppStyleManager::styleIsFusion()
{
    QApplication::setStyle(QStringLiteral("Windows"));

    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    QCOMPARE(QApplication::style()->objectName().toLower(), QStringLiteral("fusion"));
}

void TestAppStyleManager::styleIsNotMadeAnewForAnotherTheme()
{
    const QStyle *before = QApplication::style();

    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    QCOMPARE(QApplication::style(), before);
}

void TestAppStyleManager::openWindowsMenusAndToolTipsFollow()
{
    QLabel window(QStringLiteral("text"));
    QMenu menu;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    QVERIFY(luminance(window.palette().color(QPalette::Window)) < 0.2);
    QVERIFY(luminance(menu.palette().color(QPalette::Window)) < 0.2);
    QVERIFY(luminance(QToolTip::palette().color(QPalette::ToolTipBase)) < 0.2);
    const QImage shown = window.grab().toImage();
    QVERIFY(luminance(shown.pixelColor(shown.width() - 1, shown.height() - 1)) < 0.2);
}

void TestAppStyleManager::themeChangedIsSentAfterTheChange()
{
    bool darkWhenSent = false;
    QString sent;
    QObject context;
    connect(AppStyleManager::instance(), &AppStyleManager::themeChanged, &context,
            [&](const QString &theme) {
                sent = theme;
                darkWhenSent = isDark();
            });

    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    QCOMPARE(sent, THEME_DARK);
    QVERIFY(darkWhenSent);
}

void TestAppStyleManager::sameThemeAgainSendsNothing()
{
    AppStyleManager::instance()->setAppStyle(THEME_DARK);
    const QSignalSpy spy(AppStyleManager::instance(), &AppStyleManager::themeChanged);

    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    QCOMPARE(spy.count(), 0);
}

void TestAppStyleManager::setCurrentThemeNotesWithoutApplying()
{
    const QSignalSpy spy(AppStyleManager::instance(), &AppStyleManager::themeChanged);

    AppStyleManager::instance()->setCurrentTheme(THEME_DARK);

    QCOMPARE(AppStyleManager::instance()->currentTheme(), THEME_DARK);
    QVERIFY(!isDark());
    QCOMPARE(spy.count(), 0);
}

void TestAppStyleManager::notedThemeIsStillApplied()
{
    AppStyleManager::instance()->setCurrentTheme(THEME_DARK);

    AppStyleManager::instance()->setAppStyle(THEME_DARK);

    QVERIFY(isDark());
}

void TestAppStyleManager::textIsReadable_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QPalette::ColorGroup>("group");
    QTest::addColumn<QPalette::ColorRole>("text");
    QTest::addColumn<QPalette::ColorRole>("ground");
    using P = QPalette;
    const QVector<QPair<P::ColorRole, P::ColorRole>> pairs{{P::WindowText, P::Window},
                                                           {P::Text, P::Base},
                                                           {P::Text, P::AlternateBase},
                                                           {P::ButtonText, P::Button},
                                                           {P::ToolTipText, P::ToolTipBase},
                                                           {P::PlaceholderText, P::Base},
                                                           {P::HighlightedText, P::Highlight},
                                                           {P::Link, P::Base},
                                                           {P::Link, P::Window},
                                                           {P::LinkVisited, P::Base},
                                                           {P::LinkVisited, P::Window},
                                                           {P::BrightText, P::Window}};
    for (const QString &theme : {THEME_CLASSIC, THEME_DARK}) {
        for (P::ColorGroup group : {P::Active, P::Inactive}) {
            for (const auto &pair : pairs)
                QTest::addRow("%s %d: %d on %d", qPrintable(theme), group, pair.first, pair.second)
                    << theme << group << pair.first << pair.second;
        }
    }
}

void TestAppStyleManager::textIsReadable()
{
    QFETCH(QString, theme);
    QFETCH(QPalette::ColorGroup, group);
    QFETCH(QPalette::ColorRole, text);
    QFETCH(QPalette::ColorRole, ground);

    AppStyleManager::instance()->setAppStyle(theme);

    const QPalette palette = QApplication::palette();
    const double ratio = contrast(palette.color(group, text), palette.color(group, ground));
    QVERIFY2(ratio >= 4.5, qPrintable(QString::number(ratio)));
}

void TestAppStyleManager::disabledTextIsFainterYetVisible_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("classic") << THEME_CLASSIC;
    QTest::newRow("dark") << THEME_DARK;
}

void TestAppStyleManager::disabledTextIsFainterYetVisible()
{
    QFETCH(QString, theme);

    AppStyleManager::instance()->setAppStyle(theme);

    const QPalette palette = QApplication::palette();
    const double disabled = contrast(palette.color(QPalette::Disabled, QPalette::WindowText),
                                     palette.color(QPalette::Disabled, QPalette::Window));
    const double active = contrast(palette.color(QPalette::Active, QPalette::WindowText),
                                   palette.color(QPalette::Active, QPalette::Window));
    QVERIFY2(disabled >= 3.0 && disabled < active / 2, qPrintable(QString::number(disabled)));
}

void TestAppStyleManager::paletteIsComplete_data()
{
    disabledTextIsFainterYetVisible_data();
}

void TestAppStyleManager::paletteIsComplete()
{
    QFETCH(QString, theme);

    AppStyleManager::instance()->setAppStyle(theme);

    const QPalette palette = QApplication::palette();
    for (int role = 0; role < QPalette::NColorRoles; ++role)
        QVERIFY2(palette.resolve() & (1U << role), qPrintable(QString::number(role)));
}

QTEST_MAIN(TestAppStyleManager)
#include "tst_appstylemanager.moc"
