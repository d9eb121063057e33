// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editorfixture.h"
#include "support/modaldialog.h"

#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTranslator>

#include <memory>

using Core::EditorManager;
using Core::private_impl::EditorManagerPrivate;

namespace {

/// Puts a "~" behind every text.
class Tilde final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char *disambiguation,
                      int n) const override
    {
        Q_UNUSED(context)
        Q_UNUSED(disambiguation)
        Q_UNUSED(n)
        return QString::fromUtf8(sourceText) + QLatin1Char('~');
    }
};

} // namespace

/// Which texts are translated.
class TestEditorTexts final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void commandsAreTranslated();
    void recentMenuIsTranslated();
    void openErrorIsTranslated();
    void saveErrorIsTranslated();
    void saveAsDialogIsTranslated();
    void missingFileIsToldUntranslated();

private:
    QString open();

    Tilde m_translator;
    std::unique_ptr<EditorFixture> m_fixture;
};

void TestEditorTexts::init()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::installTranslator(&m_translator);
    m_fixture = std::make_unique<EditorFixture>();
}

void TestEditorTexts::cleanup()
{
    m_fixture.reset();
    QCoreApplication::removeTranslator(&m_translator);
}

QString TestEditorTexts::open()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    EditorManager::openEditor(path, false);
    return path;
}

void TestEditorTexts::commandsAreTranslated()
{
    open();

    const EditorManagerPrivate *d = EditorManagerPrivate::get();
    QCOMPARE(d->actSave->text(), QStringLiteral("&Save \"a.txt\"~"));
    QCOMPARE(d->actSave->toolTip(), QStringLiteral("Save \"a.txt\"~"));
    QCOMPARE(d->actSaveAs->text(), QStringLiteral("Save \"a.txt\" &As...~"));
    QCOMPARE(d->actSaveAs->toolTip(), QStringLiteral("Save \"a.txt\" As~"));
}

void TestEditorTexts::recentMenuIsTranslated()
{
    const QString path = open();

    EditorManager::instance()->showRecentMenu();

    QMenu *menu = EditorManagerPrivate::get()->recentMenu;
    QCOMPARE(menu->title(), QStringLiteral("Recent Files~"));
    QCOMPARE(menuEntries(menu),
             (QStringList{path, QStringLiteral("--"), QStringLiteral("Clear~")}));
}

void TestEditorTexts::openErrorIsTranslated()
{
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    Core::private_impl::openError(QStringLiteral("/a"), QStringLiteral("reason"));

    QCOMPARE(box.title(), QStringLiteral("Open File~"));
    QCOMPARE(box.text(), QStringLiteral("Can not open file \"/a\"~\nreason"));
}

void TestEditorTexts::saveErrorIsTranslated()
{
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    Core::private_impl::saveError(QStringLiteral("/a"), QStringLiteral("reason"));

    QCOMPARE(box.title(), QStringLiteral("Save File~"));
    QCOMPARE(box.text(), QStringLiteral("Can not save to file \"/a\"~\nreason"));
}

void TestEditorTexts::saveAsDialogIsTranslated()
{
    open();
    ModalDialog dialog(ModalDialog::cancel());

    EditorManager::instance()->onActSaveAs();

    QCOMPARE(dialog.title(), QStringLiteral("Save As~"));
}

void TestEditorTexts::missingFileIsToldUntranslated()
{
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    EditorManager::openEditor(QStringLiteral("/missing"), false);

    QCOMPARE(box.title(), QStringLiteral("Warning"));
    QCOMPARE(box.text(), QStringLiteral("Can not open /missing, file does not exist."));
}

QTEST_MAIN(TestEditorTexts)
#include "tst_editortexts.moc"
