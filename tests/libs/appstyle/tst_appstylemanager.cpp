// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/contrast.h"
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
#include <QMetaEnum>
#include <QPalette>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QStyle>
#include <QTest>
#include <QToolTip>

using APPSTYLE::AppStyleManager;
using APPSTYLE::THEME_CLASSIC;
using APPSTYLE::THEME_DARK;

namespace {

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

bool isDark(const QColor &ground)
{
    return Contrast::ratio(Qt::white, ground) > Contrast::ratio(Qt::black, ground);
}

bool isDark()
{
    return isDark(QApplication::palette().color(QPalette::Window));
}

void themes()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("classic") << THEME_CLASSIC;
    QTest::newRow("dark") << THEME_DARK;
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
    void toolTipsAreReadable_data();
    void toolTipsAreReadable();
    void selectionStandsOut_data();
    void selectionStandsOut();
    void disabledTextIsFainter_data();
    void disabledTextIsFainter();
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

    QVERIFY(isDark(window.palette().color(QPalette::Window)));
    QVERIFY(isDark(menu.palette().color(QPalette::Window)));
    QVERIFY(isDark(QToolTip::palette().color(QPalette::ToolTipBase)));
    const QImage shown = window.grab().toImage();
    QVERIFY(isDark(shown.pixelColor(shown.width() - 1, shown.height() - 1)));
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
    QTest::addColumn<double>("least");
    using P = QPalette;
    // Whatever a text is for, it is met on each of these.
    QVector<QPair<P::ColorRole, P::ColorRole>> pairs{{P::HighlightedText, P::Highlight}};
    for (const P::ColorRole text : {P::WindowText, P::Text, P::ButtonText, P::BrightText,
                                    P::PlaceholderText, P::Link, P::LinkVisited}) {
        for (const P::ColorRole ground : {P::Window, P::Base, P::AlternateBase, P::Button})
            pairs.append({text, ground});
    }
    const QMetaEnum roles = QMetaEnum::fromType<P::ColorRole>();
    for (const QString &theme : {THEME_CLASSIC, THEME_DARK}) {
        for (const P::ColorGroup group : {P::Active, P::Inactive, P::Disabled}) {
            for (const auto &pair : pairs) {
                QTest::addRow("%s %d: %s on %s", qPrintable(theme), group,
                              roles.valueToKey(pair.first), roles.valueToKey(pair.second))
                    << theme << group << pair.first << pair.second
                    << (group == P::Disabled ? Contrast::DISABLED : Contrast::TEXT);
            }
            // What a tool tip tells of may be disabled; it is not.
            QTest::addRow("%s %d: tool tip", qPrintable(theme), group)
                << theme << group << P::ToolTipText << P::ToolTipBase << Contrast::TEXT;
        }
    }
}

void TestAppStyleManager::textIsReadable()
{
    QFETCH(QString, theme);
    QFETCH(QPalette::ColorGroup, group);
    QFETCH(QPalette::ColorRole, text);
    QFETCH(QPalette::ColorRole, ground);
    QFETCH(double, least);

    AppStyleManager::instance()->setAppStyle(theme);

    const QPalette palette = QApplication::palette();
    const double ratio = Contrast::ratio(palette.color(group, text), palette.color(group, ground));
    QVERIFY2(ratio >= least, qPrintable(QString::number(ratio)));
}

void TestAppStyleManager::toolTipsAreReadable_data()
{
    themes();
}

void TestAppStyleManager::toolTipsAreReadable()
{
    QFETCH(QString, theme);

    AppStyleManager::instance()->setAppStyle(theme);

    const QPalette palette = QToolTip::palette();
    const QColor ground = palette.color(QPalette::ToolTipBase);
    // The keys in the tool tips of commands are gray.
    for (const QColor &text :
         {palette.color(QPalette::ToolTipText), palette.color(QPalette::Link),
          palette.color(QPalette::LinkVisited), QColor(QStringLiteral("gray"))})
        QVERIFY2(Contrast::ratio(text, ground) >= Contrast::TEXT, qPrintable(text.name()));
}

void TestAppStyleManager::selectionStandsOut_data()
{
    themes();
}

void TestAppStyleManager::selectionStandsOut()
{
    QFETCH(QString, theme);

    AppStyleManager::instance()->setAppStyle(theme);

    const QPalette palette = QApplication::palette();
    for (const QPalette::ColorRole ground :
         {QPalette::Window, QPalette::Base, QPalette::AlternateBase}) {
        QVERIFY(Contrast::ratio(palette.color(QPalette::Highlight), palette.color(ground))
                >= Contrast::SIGN);
    }
}

void TestAppStyleManager::disabledTextIsFainter_data()
{
    themes();
}

void TestAppStyleManager::disabledTextIsFainter()
{
    QFETCH(QString, theme);

    AppStyleManager::instance()->setAppStyle(theme);

    const QPalette palette = QApplication::palette();
    const double disabled = Contrast::ratio(palette.color(QPalette::Disabled, QPalette::WindowText),
                                            palette.color(QPalette::Disabled, QPalette::Window));
    const double active = Contrast::ratio(palette.color(QPalette::Active, QPalette::WindowText),
                                          palette.color(QPalette::Active, QPalette::Window));
    QVERIFY2(disabled < active / 2, qPrintable(QString::number(disabled)));
}

void TestAppStyleManager::paletteIsComplete_data()
{
    themes();
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
