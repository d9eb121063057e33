// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
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
    QTemporaryDir m_folder;
    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<TestEditorFactory> m_factory;
    std::unique_ptr<InPool> m_inPool;
};

void TestEditorTexts::init()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::installTranslator(&m_translator);
    m_core = std::make_unique<CoreFixture>();
    m_factory = std::make_unique<TestEditorFactory>(texts({"text/plain"}));
    m_inPool = std::make_unique<InPool>(m_factory.get());
}

void TestEditorTexts::cleanup()
{
    m_inPool.reset();
    m_core.reset();
    m_factory.reset();
    QCoreApplication::removeTranslator(&m_translator);
}

QString TestEditorTexts::open()
{
    QFile file(m_folder.filePath(QStringLiteral("a.txt")));
    if (!file.open(QIODevice::WriteOnly))
        QTest::qFail("the file could not be made", __FILE__, __LINE__);
    EditorManager::openEditor(file.fileName(), false);
    return file.fileName();
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
