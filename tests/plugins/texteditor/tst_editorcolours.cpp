// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "ktexteditoraccess.h"
#include "support/contrast.h"
#include "texteditorfixture.h"

#include <appstyle/appstylemanager.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <texteditor/abstracttexteditor.h>

#include <KTextEditor/ConfigInterface>
#include <KTextEditor/View>

#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/Theme>

#include <QAction>
#include <QApplication>
#include <QColor>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QSettings>
#include <QTest>

using APPSTYLE::AppStyleManager;
using TextEditor::AbstractTextEditor;

namespace {

QVariant configValue(const AbstractTextEditor *editor, const char *key)
{
    const KTextEditor::Document *const document = documentIn(editor);
    auto *config = document
                       ? qobject_cast<KTextEditor::ConfigInterface *>(document->views().value(0))
                       : nullptr;
    return config ? config->configValue(QLatin1String(key)) : QVariant();
}

QString colours(const AbstractTextEditor *editor)
{
    return configValue(editor, "theme").toString();
}

void choose(const QVariant &scheme)
{
    Core::IdeCore::userSettings()->setValue(QStringLiteral("TextEditor/ColorScheme"), scheme);
}

} // namespace

/// The colours follow the scheme in the settings and the theme of the program.
class TestEditorColours final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<TextEditorFixture>(); }
    void cleanup()
    {
        m_fixture.reset();
        AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC);
    }

    void schemeAndThemeNameTheColours_data();
    void schemeAndThemeNameTheColours();
    void coloursAreReadable_data();
    void coloursAreReadable();
    void theGroundIsThatOfTheTheme_data();
    void theGroundIsThatOfTheTheme();
    void whatIsSearchedForIsReadable_data();
    void whatIsSearchedForIsReadable();
    void messagesAreReadable_data();
    void messagesAreReadable();
    void openEditorsFollowTheTheme();
    void openEditorsFollowTheSchemeWhenTheUserComesBack();
    void laterEditorsFollowTheScheme();
    void nothingIsFollowedWhenTheCoreIsGone();
    void coloursAreFollowedAgainWithTheNextCore();

private:
    std::unique_ptr<TextEditorFixture> m_fixture;
};

void TestEditorColours::schemeAndThemeNameTheColours_data()
{
    QTest::addColumn<QVariant>("scheme");
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("expected");

    const QString classic = APPSTYLE::THEME_CLASSIC;
    const QString dark = APPSTYLE::THEME_DARK;
    const QString light = QStringLiteral("Kelmo Light");
    QTest::newRow("none") << QVariant() << classic << light;
    QTest::newRow("none, dark") << QVariant() << dark << QStringLiteral("Kelmo Dark");
    QTest::newRow("default") << QVariant(QStringLiteral("Default")) << classic << light;
    QTest::newRow("desert") << QVariant(QStringLiteral("Desert")) << classic
                            << QStringLiteral("Kelmo Desert Light");
    QTest::newRow("desert, dark") << QVariant(QStringLiteral("Desert")) << dark
                                  << QStringLiteral("Kelmo Desert Dark");
    QTest::newRow("another case") << QVariant(QStringLiteral("desert")) << classic << light;
    QTest::newRow("unknown") << QVariant(QStringLiteral("?")) << classic << light;
    QTest::newRow("number") << QVariant(7) << classic << light;
    QTest::newRow("list") << QVariant(QStringList{QStringLiteral("Desert"), QStringLiteral("a")})
                          << classic << light;
}

void TestEditorColours::schemeAndThemeNameTheColours()
{
    QFETCH(QVariant, scheme);
    QFETCH(QString, theme);
    QFETCH(QString, expected);
    choose(scheme);
    AppStyleManager::instance()->setAppStyle(theme);

    const AbstractTextEditor *const editor = m_fixture->open(QStringLiteral("a.v"), "wire a;\n");

    QVERIFY(editor);
    QCOMPARE(colours(editor), expected);
    QVERIFY(KTextEditor::Editor::instance()->repository().theme(expected).isValid());
    const bool isDark = configValue(editor, "background-color").value<QColor>().lightness() < 128;
    QCOMPARE(isDark, theme == APPSTYLE::THEME_DARK);
}

void TestEditorColours::coloursAreReadable_data()
{
    QTest::addColumn<QString>("theme");
    for (const char *name :
         {"Kelmo Light", "Kelmo Dark", "Kelmo Desert Light", "Kelmo Desert Dark"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestEditorColours::coloursAreReadable()
{
    using Theme = KSyntaxHighlighting::Theme;
    QFETCH(QString, theme);
    // The engine brings the themes.
    QVERIFY(m_fixture->open(QStringLiteral("a.v"), "wire a;\n"));
    const Theme colours = KTextEditor::Editor::instance()->repository().theme(theme);
    QVERIFY(colours.isValid());
    const auto verify = [&colours](QRgb text, Theme::EditorColorRole ground, const char *what) {
        const double ratio = Contrast::ratio(QColor(text), QColor(colours.editorColor(ground)));
        QVERIFY2(ratio >= Contrast::TEXT,
                 qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(what)).arg(ratio)));
    };

    const QMetaEnum styles = QMetaEnum::fromType<Theme::TextStyle>();
    for (int i = 0; i < styles.keyCount(); ++i) {
        const auto style = Theme::TextStyle(styles.value(i));
        verify(colours.textColor(style), Theme::BackgroundColor, styles.key(i));
        verify(colours.textColor(style), Theme::CurrentLine, styles.key(i));
        verify(colours.selectedTextColor(style), Theme::TextSelection, styles.key(i));
    }
    verify(colours.textColor(Theme::Normal), Theme::SearchHighlight, "found");
    verify(colours.textColor(Theme::Normal), Theme::ReplaceHighlight, "replaced");
    verify(colours.textColor(Theme::Normal), Theme::BracketMatching, "bracket");
    verify(colours.editorColor(Theme::LineNumbers), Theme::IconBorder, "line number");
    verify(colours.editorColor(Theme::CurrentLineNumber), Theme::IconBorder, "current line");
}

void TestEditorColours::theGroundIsThatOfTheTheme_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("classic") << APPSTYLE::THEME_CLASSIC;
    QTest::newRow("dark") << APPSTYLE::THEME_DARK;
}

void TestEditorColours::theGroundIsThatOfTheTheme()
{
    QFETCH(QString, theme);
    AppStyleManager::instance()->setAppStyle(theme);

    const AbstractTextEditor *const editor = m_fixture->open(QStringLiteral("a.v"), "wire a;\n");

    QCOMPARE(configValue(editor, "background-color").value<QColor>(),
             QApplication::palette().color(QPalette::Base));
}

void TestEditorColours::whatIsSearchedForIsReadable_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("sought");
    for (const QString &before : {APPSTYLE::THEME_CLASSIC, APPSTYLE::THEME_DARK}) {
        for (const QString &theme : {APPSTYLE::THEME_CLASSIC, APPSTYLE::THEME_DARK}) {
            for (const QString &sought : {QStringLiteral("wire"), QStringLiteral("nothing")}) {
                QTest::addRow("%s in %s, then %s", qPrintable(sought), qPrintable(before),
                              qPrintable(theme))
                    << before << theme << sought;
            }
        }
    }
}

void TestEditorColours::whatIsSearchedForIsReadable()
{
    QFETCH(QString, before);
    QFETCH(QString, theme);
    QFETCH(QString, sought);
    m_fixture->core.show();
    AppStyleManager::instance()->setAppStyle(before);
    AbstractTextEditor *const editor = m_fixture->open(QStringLiteral("a.v"), "wire a;\n");
    QVERIFY(editor);
    editor->perform(TextEditor::Command::Find);
    auto *const box = editor->findChild<QComboBox *>(QStringLiteral("pattern"));
    QVERIFY(box && box->lineEdit());

    box->setEditText(sought);
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    const auto ground = [box] { return box->lineEdit()->palette().color(QPalette::Base); };
    // Found or not is said by it.
    QVERIFY(ground() != QApplication::palette().color(QPalette::Base));
    AppStyleManager::instance()->setAppStyle(theme);

    const double ratio =
        Contrast::ratio(box->lineEdit()->palette().color(QPalette::Text), ground());
    QVERIFY2(ratio >= Contrast::TEXT, qPrintable(QString::number(ratio)));
}

void TestEditorColours::messagesAreReadable_data()
{
    theGroundIsThatOfTheTheme_data();
}

void TestEditorColours::messagesAreReadable()
{
    QFETCH(QString, theme);
    m_fixture->core.show();
    AppStyleManager::instance()->setAppStyle(theme);
    AbstractTextEditor *editor = m_fixture->open(QStringLiteral("a.v"), "wire a;\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    // As if the program had ended: the text is offered when the file is opened again.
    delete editor;
    editor = TextEditorFixture::open(m_fixture->path(QStringLiteral("a.v")));
    const auto message = [editor]() -> QLabel * {
        const QList<QLabel *> labels = editor->findChildren<QLabel *>();
        for (QLabel *label : labels) {
            if (label->isVisible() && label->parentWidget()->inherits("KMessageWidget"))
                return label;
        }
        return nullptr;
    };
    QTRY_VERIFY(message());
    QLabel *const label = message();
    const QColor text = label->palette().color(QPalette::WindowText);

    const QImage shown = editor->grab().toImage();

    // A corner of the text, where no letter is.
    const QColor ground = shown.pixelColor(label->mapTo(editor, QPoint(1, 1)));
    const double ratio = Contrast::ratio(text, ground);
    QVERIFY2(ratio >= Contrast::TEXT, qPrintable(QString::number(ratio)));
    TextEditorFixture::messageButton(editor, QStringLiteral("Discard"))->trigger();
}

void TestEditorColours::openEditorsFollowTheTheme()
{
    const AbstractTextEditor *const first = m_fixture->open(QStringLiteral("a.v"), "wire a;\n");
    const AbstractTextEditor *const second = m_fixture->open(QStringLiteral("b.v"), "wire b;\n");
    QVERIFY(first && second);

    AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_DARK);

    QCOMPARE(colours(first), QStringLiteral("Kelmo Dark"));
    QCOMPARE(colours(second), QStringLiteral("Kelmo Dark"));
}

void TestEditorColours::openEditorsFollowTheSchemeWhenTheUserComesBack()
{
    m_fixture->core.show();
    const AbstractTextEditor *const editor = m_fixture->open(QStringLiteral("a.v"), "wire a;\n");
    QVERIFY(editor);
    QWidget options;
    options.show();
    options.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&options));

    choose(QStringLiteral("Desert"));
    QCOMPARE(colours(editor), QStringLiteral("Kelmo Light"));
    options.close();
    Core::ViewManager::mainWindow()->activateWindow();

    QTRY_COMPARE(colours(editor), QStringLiteral("Kelmo Desert Light"));
}

void TestEditorColours::laterEditorsFollowTheScheme()
{
    QVERIFY(m_fixture->open(QStringLiteral("a.v"), "wire a;\n"));
    choose(QStringLiteral("Desert"));

    const AbstractTextEditor *const later = m_fixture->open(QStringLiteral("b.v"), "wire b;\n");

    QVERIFY(later);
    QCOMPARE(colours(later), QStringLiteral("Kelmo Desert Light"));
}

void TestEditorColours::nothingIsFollowedWhenTheCoreIsGone()
{
    QVERIFY(m_fixture->open(QStringLiteral("a.v"), "wire a;\n"));
    m_fixture.reset();

    // Who followed it would ask for settings that are gone.
    AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_DARK);

    QCOMPARE(AppStyleManager::instance()->currentTheme(), APPSTYLE::THEME_DARK);
}

void TestEditorColours::coloursAreFollowedAgainWithTheNextCore()
{
    QVERIFY(m_fixture->open(QStringLiteral("a.v"), "wire a;\n"));
    m_fixture.reset();
    m_fixture = std::make_unique<TextEditorFixture>();
    const AbstractTextEditor *const editor = m_fixture->open(QStringLiteral("a.v"), "wire a;\n");
    QVERIFY(editor);

    AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_DARK);

    QCOMPARE(colours(editor), QStringLiteral("Kelmo Dark"));
}

QTEST_MAIN(TestEditorColours)
#include "tst_editorcolours.moc"
