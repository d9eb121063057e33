// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editorfixture.h"
#include "support/messagerecorder.h"
#include "support/modaldialog.h"
#include "support/testview.h"

#include <idecore/core/ideicon.h>
#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

using Core::EditorManager;
using Core::IEditor;
using Core::ViewManager;

namespace {

int subWindowCount()
{
    return ViewManager::mainWindow()->documentArea()->subWindows().size();
}

QByteArray pixels(const QIcon &icon)
{
    const QImage image = icon.pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32);
    return QByteArray(reinterpret_cast<const char *>(image.constBits()),
                      static_cast<int>(image.sizeInBytes()));
}

} // namespace

class TestOpenEditor final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_fixture = std::make_unique<EditorFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void editorGetsTheAbsolutePath();
    void editorIsCurrentAndListed();
    void currentEditorCanBeQueuedByName();
    void readOnlyIsPassedOn();
    void openingOrder();
    void editorWithoutAnIconGetsTheDefaultOne();
    void editorWithAnIconKeepsIt();
    void editorCarriesTheEditorContext();
    void editorKeepsItsFocusPolicy();
    void openingAgainShowsTheSameEditor();
    void relativeAndAbsolutePathAreTheSameFile();
    void pathWithDotsIsTheSameFile();
    void openingAgainIgnoresReadOnly();
    void openingAgainRecordsBeforeShowing();
    void openingAgainReportsASaveOnce();
    void letterCaseMakesAnotherFile();
    void linkIsAnotherFile();
    void editorForFileFollowsARename();
    void editorForFileIsTheFirstOfTwo();
    void editorForFileOfNone();
    void editorWithoutAFile();
    void missingFile();
    void missingFileIsToldOverTheModalDialog();
    void noFactory();
    void factoryThatMakesNothing();
    void failedOpen();
    void failedOpenWithoutAReason();
    void failedEditorIsDestroyedBehindTheMessage();
    void openErrorUsesNativeSeparators();
    void openErrorsParentIsTheMainWindow();
    void openErrorsParentIsTheMainWindowUnderAModalDialog();
    void currentEditorFollowsTheViews();
    void otherViewClearsTheCurrentEditor();
    void currentEditorIsReported();
    void savedIsReported();
    void savedBeforeItStandsOpenIsNotReported();
    void savedByNoEditorIsIgnored();
    void logLines();
    void stepsOfOpeningInOrder();
    void refusedFilesAreNotLogged();
    void openingAsksEachOpenEditorOnce();

private:
    std::unique_ptr<EditorFixture> m_fixture;
};

void TestOpenEditor::editorGetsTheAbsolutePath()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));

    EditorManager::openEditor(QDir::current().relativeFilePath(path), false);

    QCOMPARE(m_fixture->factory.last->opened, QStringList{path});
}

void TestOpenEditor::editorIsCurrentAndListed()
{
    IEditor *first = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    IEditor *second =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);

    QCOMPARE(EditorManager::allEditors(), (QList<IEditor *>{first, second}));
    QCOMPARE(EditorManager::currentEditor(), second);
    QCOMPARE(ViewManager::currentView(), second);
    QCOMPARE(subWindowCount(), 2);
}

void TestOpenEditor::currentEditorCanBeQueuedByName()
{
    QSignalSpy spy(EditorManager::instance(), SIGNAL(currentEditorChanged(Core::IEditor *)));

    IEditor *editor = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")));

    QVERIFY(editor);
    QCOMPARE(spy.constLast().constFirst().value<IEditor *>(), editor);
}

void TestOpenEditor::readOnlyIsPassedOn()
{
    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), true);
    QCOMPARE(m_fixture->factory.last->readOnlySet, QList<bool>{true});
    QVERIFY(m_fixture->factory.last->isReadOnly());

    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);
    QCOMPARE(m_fixture->factory.last->readOnlySet, QList<bool>{false});

    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("c.txt")));
    QCOMPARE(m_fixture->factory.last->readOnlySet, QList<bool>{false});
}

void TestOpenEditor::openingOrder()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    QStringList order;
    m_fixture->factory.prepare = [&](TestEditor *editor) {
        editor->whileOpening = [&] {
            order.append(
                QStringLiteral("open, recent: %1").arg(EditorManager::recentFiles().size()));
        };
        editor->whileSettingReadOnly = [&] {
            order.append(QStringLiteral("read-only, recent: %1, editors: %2")
                             .arg(EditorManager::recentFiles().size())
                             .arg(EditorManager::allEditors().size()));
        };
    };
    connect(EditorManager::instance(), &EditorManager::currentEditorChanged, this, [&] {
        order.append(QStringLiteral("current, recent: %1, editors: %2")
                         .arg(EditorManager::recentFiles().size())
                         .arg(EditorManager::allEditors().size()));
    });

    EditorManager::openEditor(path, true);

    QCOMPARE(order, texts({"open, recent: 0", "read-only, recent: 0, editors: 0",
                           "current, recent: 1, editors: 1"}));
}

void TestOpenEditor::editorWithoutAnIconGetsTheDefaultOne()
{
    const IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    QVERIFY(!editor->windowIcon().isNull());
    QCOMPARE(pixels(editor->windowIcon()),
             pixels(Core::ideIcon(QStringLiteral(":/core/image/editor_default.png"))));
}

void TestOpenEditor::editorWithAnIconKeepsIt()
{
    QPixmap red(32, 32);
    red.fill(Qt::red);
    m_fixture->factory.prepare = [&red](TestEditor *editor) { editor->setWindowIcon(QIcon(red)); };

    const IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    QCOMPARE(pixels(editor->windowIcon()), pixels(QIcon(red)));
}

void TestOpenEditor::editorCarriesTheEditorContext()
{
    IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    QStringList current;
    connect(ViewManager::instance(), &ViewManager::contextsChanged, this,
            [&current](const Core::ContextList &contexts) { current = contexts; });

    ViewManager::instance()->updateFocusWidget(nullptr, editor);

    QCOMPARE(current, texts({"Core.EditorManager.Context", "Core.Context.Global"}));
}

void TestOpenEditor::editorKeepsItsFocusPolicy()
{
    m_fixture->factory.prepare = [](TestEditor *editor) { editor->setFocusPolicy(Qt::WheelFocus); };

    const IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    QCOMPARE(editor->focusPolicy(), Qt::WheelFocus);
}

void TestOpenEditor::openingAgainShowsTheSameEditor()
{
    const QString a = m_fixture->makeFile(QStringLiteral("a.txt"));
    const QString b = m_fixture->makeFile(QStringLiteral("b.txt"));
    IEditor *first = EditorManager::openEditor(a, false);
    EditorManager::openEditor(b, false);

    QCOMPARE(EditorManager::openEditor(a, false), first);

    QCOMPARE(subWindowCount(), 2);
    QCOMPARE(EditorManager::currentEditor(), first);
    QCOMPARE(m_fixture->factory.made, 2);
    QCOMPARE(EditorManager::recentFiles(), (QStringList{a, b}));
}

void TestOpenEditor::relativeAndAbsolutePathAreTheSameFile()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    const QString relative = QDir::current().relativeFilePath(path);
    QVERIFY(relative != path);

    IEditor *first = EditorManager::openEditor(relative, false);

    QCOMPARE(EditorManager::openEditor(path, false), first);
    QCOMPARE(EditorManager::editorForFile(relative), first);
    QCOMPARE(subWindowCount(), 1);
    QCOMPARE(EditorManager::recentFiles(), QStringList{path});
}

void TestOpenEditor::pathWithDotsIsTheSameFile()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    QVERIFY(QDir(m_fixture->folder.path()).mkdir(QStringLiteral("sub")));
    IEditor *first = EditorManager::openEditor(path, false);

    QCOMPARE(EditorManager::openEditor(m_fixture->folder.filePath(QStringLiteral("sub/.././a.txt")),
                                       false),
             first);
}

void TestOpenEditor::openingAgainIgnoresReadOnly()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    const IEditor *editor = EditorManager::openEditor(path, false);

    EditorManager::openEditor(path, true);

    QVERIFY(!editor->isReadOnly());
    QCOMPARE(m_fixture->factory.last->readOnlySet.size(), 1);
}

void TestOpenEditor::openingAgainRecordsBeforeShowing()
{
    const QString a = m_fixture->makeFile(QStringLiteral("a.txt"));
    EditorManager::openEditor(a, false);
    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);
    QStringList recent;
    connect(EditorManager::instance(), &EditorManager::currentEditorChanged, this,
            [&recent] { recent = EditorManager::recentFiles(); });

    EditorManager::openEditor(a, false);

    QCOMPARE(recent.value(0), a);
}

void TestOpenEditor::openingAgainReportsASaveOnce()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    EditorManager::openEditor(path, false);
    EditorManager::openEditor(path, false);
    int saved = 0;
    connect(EditorManager::instance(), &EditorManager::fileSaved, this, [&saved] { ++saved; });

    Q_EMIT m_fixture->factory.last->saved();

    QCOMPARE(saved, 1);
}

void TestOpenEditor::letterCaseMakesAnotherFile()
{
    IEditor *lower = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    IEditor *upper = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("A.txt")), false);

    QVERIFY(lower != upper);
    QCOMPARE(subWindowCount(), 2);
}

void TestOpenEditor::linkIsAnotherFile()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    const QString link = m_fixture->folder.filePath(QStringLiteral("link.txt"));
    QVERIFY(QFile::link(path, link));

    QVERIFY(EditorManager::openEditor(path, false) != EditorManager::openEditor(link, false));
}

void TestOpenEditor::editorForFileFollowsARename()
{
    IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    const QString other = m_fixture->folder.filePath(QStringLiteral("sub/../b.txt"));

    m_fixture->factory.last->setFileName(other);

    QCOMPARE(EditorManager::editorForFile(m_fixture->folder.filePath(QStringLiteral("a.txt"))),
             nullptr);
    QCOMPARE(EditorManager::editorForFile(m_fixture->folder.filePath(QStringLiteral("b.txt"))),
             editor);
    m_fixture->factory.last->setFileName(
        m_fixture->folder.filePath(QStringLiteral("sub/b.txt/..")));
    QCOMPARE(EditorManager::editorForFile(m_fixture->folder.filePath(QStringLiteral("sub"))),
             editor);
}

void TestOpenEditor::editorForFileIsTheFirstOfTwo()
{
    IEditor *first = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);

    m_fixture->factory.last->setFileName(first->fileName());

    QCOMPARE(EditorManager::editorForFile(first->fileName()), first);
}

void TestOpenEditor::editorForFileOfNone()
{
    QCOMPARE(EditorManager::editorForFile(m_fixture->makeFile(QStringLiteral("a.txt"))), nullptr);
}

void TestOpenEditor::editorWithoutAFile()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    EditorManager::openEditor(path, false);
    m_fixture->factory.last->setFileName(QString());
    MessageRecorder log;

    QCOMPARE(EditorManager::editorForFile(path), nullptr);

    QVERIFY(log.messages().isEmpty());
}

void TestOpenEditor::missingFile()
{
    const QString missing = m_fixture->folder.filePath(QStringLiteral("sub/../missing.txt"));
    QMessageBox::StandardButtons buttons;
    bool okIsDefault = false;
    ModalDialog box([&](QWidget *widget) {
        const auto *message = qobject_cast<QMessageBox *>(widget);
        buttons = message->standardButtons();
        const QAbstractButton *defaultButton = message->defaultButton();
        okIsDefault = defaultButton && defaultButton == message->button(QMessageBox::Ok);
        ModalDialog::press(QMessageBox::Ok)(widget);
    });

    QCOMPARE(EditorManager::openEditor(missing, false), nullptr);

    QCOMPARE(box.title(), QStringLiteral("Warning"));
    QCOMPARE(box.text(), QStringLiteral("Can not open %1, file does not exist.").arg(missing));
    QCOMPARE(box.icon(), int(QMessageBox::Warning));
    QCOMPARE(box.parentOfDialog(), ViewManager::mainWindow());
    QCOMPARE(buttons, QMessageBox::Ok);
    QVERIFY(okIsDefault);
    QVERIFY(EditorManager::recentFiles().isEmpty());
    QCOMPARE(m_fixture->factory.made, 0);
}

void TestOpenEditor::missingFileIsToldOverTheModalDialog()
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    QWidget *parent = nullptr;
    // Only the message box is to be met, the dialog is modal before it.
    QTimer::singleShot(0, this, [&parent] {
        QWidget *box = QApplication::activeModalWidget();
        parent = box->parentWidget();
        ModalDialog::press(QMessageBox::Ok)(box);
    });

    EditorManager::openEditor(m_fixture->folder.filePath(QStringLiteral("missing.txt")), false);

    QCOMPARE(parent, &dialog);
}

void TestOpenEditor::noFactory()
{
    m_fixture->factory.types.clear();
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QCOMPARE(EditorManager::openEditor(path, false), nullptr);

    QCOMPARE(box.title(), QStringLiteral("Open File"));
    QCOMPARE(box.text(), QStringLiteral("Can not open file \"%1\"").arg(path));
    QCOMPARE(box.icon(), int(QMessageBox::Critical));
    QVERIFY(EditorManager::recentFiles().isEmpty());
}

void TestOpenEditor::factoryThatMakesNothing()
{
    m_fixture->factory.makeNothing = true;
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QCOMPARE(EditorManager::openEditor(path, false), nullptr);

    QCOMPARE(box.text(), QStringLiteral("Can not open file \"%1\"").arg(path));
    QCOMPARE(subWindowCount(), 0);
    QVERIFY(EditorManager::allEditors().isEmpty());
}

void TestOpenEditor::failedOpen()
{
    m_fixture->factory.prepare = [](TestEditor *editor) {
        editor->failOpen = true;
        editor->errorText = QStringLiteral("It is %1 secret.");
    };
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QCOMPARE(EditorManager::openEditor(path, false), nullptr);

    QCOMPARE(box.title(), QStringLiteral("Open File"));
    QCOMPARE(box.text(), QString(QStringLiteral("Can not open file \"") + path
                                 + QStringLiteral("\"\nIt is %1 secret.")));
    QVERIFY(EditorManager::recentFiles().isEmpty());
    QVERIFY(EditorManager::allEditors().isEmpty());
    QCOMPARE(subWindowCount(), 0);
}

void TestOpenEditor::failedOpenWithoutAReason()
{
    m_fixture->factory.prepare = [](TestEditor *editor) { editor->failOpen = true; };
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    EditorManager::openEditor(path, false);

    QCOMPARE(box.text(), QStringLiteral("Can not open file \"%1\"").arg(path));
}

void TestOpenEditor::failedEditorIsDestroyedBehindTheMessage()
{
    QPointer<TestEditor> failed;
    m_fixture->factory.prepare = [&failed](TestEditor *editor) {
        editor->failOpen = true;
        failed = editor;
    };
    bool livesInTheBox = false;
    ModalDialog box([&](QWidget *widget) {
        livesInTheBox = failed;
        ModalDialog::press(QMessageBox::Ok)(widget);
    });

    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    QCOMPARE(m_fixture->factory.made, 1);
    QVERIFY(livesInTheBox);
    QVERIFY(!failed);
}

void TestOpenEditor::openErrorUsesNativeSeparators()
{
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    Core::private_impl::openError(QStringLiteral("/a/b"), QString());

    QCOMPARE(box.text(), QStringLiteral("Can not open file \"%1\"")
                             .arg(QDir::toNativeSeparators(QStringLiteral("/a/b"))));
}

void TestOpenEditor::openErrorsParentIsTheMainWindow()
{
    QMessageBox::StandardButtons buttons;
    ModalDialog box([&buttons](QWidget *widget) {
        buttons = qobject_cast<QMessageBox *>(widget)->standardButtons();
        ModalDialog::press(QMessageBox::Ok)(widget);
    });

    Core::private_impl::openError(QStringLiteral("/a/b"), QString());

    QCOMPARE(box.parentOfDialog(), ViewManager::mainWindow());
    QCOMPARE(buttons, QMessageBox::Ok);
}

void TestOpenEditor::openErrorsParentIsTheMainWindowUnderAModalDialog()
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    QWidget *parent = nullptr;
    // Only the message box is to be met, the dialog is modal before it.
    QTimer::singleShot(0, this, [&parent] {
        QWidget *box = QApplication::activeModalWidget();
        parent = box->parentWidget();
        ModalDialog::press(QMessageBox::Ok)(box);
    });

    Core::private_impl::openError(QStringLiteral("/a/b"), QString());

    QCOMPARE(parent, ViewManager::mainWindow());
}

void TestOpenEditor::currentEditorFollowsTheViews()
{
    IEditor *first = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);

    ViewManager::showView(first);

    QCOMPARE(EditorManager::currentEditor(), first);
}

void TestOpenEditor::otherViewClearsTheCurrentEditor()
{
    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    ViewManager::showView(new TestView(QStringLiteral("no editor")));

    QCOMPARE(EditorManager::currentEditor(), nullptr);
    QCOMPARE(EditorManager::allEditors().size(), 1);
}

void TestOpenEditor::currentEditorIsReported()
{
    QList<IEditor *> reported;
    connect(EditorManager::instance(), &EditorManager::currentEditorChanged, this,
            [&reported](IEditor *editor) {
                QCOMPARE(EditorManager::currentEditor(), editor);
                reported.append(editor);
            });

    IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    ViewManager::showView(new TestView(QStringLiteral("no editor")));

    QCOMPARE(reported, (QList<IEditor *>{editor, nullptr}));
}

void TestOpenEditor::savedIsReported()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    EditorManager::openEditor(path, false);
    QStringList saved;
    connect(EditorManager::instance(), &EditorManager::fileSaved, this,
            [&saved](const QString &file) { saved.append(file); });

    Q_EMIT m_fixture->factory.last->saved();

    QCOMPARE(saved, QStringList{path});
}

void TestOpenEditor::savedBeforeItStandsOpenIsNotReported()
{
    int saved = 0;
    connect(EditorManager::instance(), &EditorManager::fileSaved, this, [&saved] { ++saved; });
    connect(EditorManager::instance(), &EditorManager::currentEditorChanged, this,
            [](IEditor *editor) { Q_EMIT editor->saved(); });

    QVERIFY(EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false));

    QCOMPARE(saved, 0);
}

void TestOpenEditor::savedByNoEditorIsIgnored()
{
    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    int saved = 0;
    connect(EditorManager::instance(), &EditorManager::fileSaved, this, [&saved] { ++saved; });

    EditorManager::instance()->onEditorSaved();

    QCOMPARE(saved, 0);
}

void TestOpenEditor::logLines()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    MessageRecorder log;

    const IEditor *editor = EditorManager::openEditor(path, false);
    EditorManager::openEditor(path, false);

    const QString opening = QStringLiteral("open editor for: \"%1\"").arg(path);
    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("open editor for:")),
             (QStringList{opening, opening}));
    const QStringList created = log.lines(QtDebugMsg, QStringLiteral("create editor:"));
    QCOMPARE(created.size(), 1);
    const QString address = QStringLiteral("0x%1").arg(quintptr(editor), 0, 16);
    QVERIFY2(created.constFirst().contains(address), qPrintable(created.constFirst()));
}

void TestOpenEditor::stepsOfOpeningInOrder()
{
    MessageRecorder log;

    const IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    // The context is there when the focus comes.
    const QString registered =
        QStringLiteral("register context: %1 \"Core.EditorManager.Context\"").arg(logged(editor));
    QStringList steps;
    const QStringList lines = log.lines(QtDebugMsg);
    for (const QString &line : lines) {
        for (const char *start : {"open editor for:", "create editor:", "register context:",
                                  "show view:", "current view:"}) {
            if (line.startsWith(QLatin1String(start)))
                steps.append(QLatin1String(start));
        }
    }
    QCOMPARE(steps, texts({"open editor for:", "create editor:", "register context:", "show view:",
                           "current view:"}));
    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("register context:")), QStringList{registered});
}

void TestOpenEditor::refusedFilesAreNotLogged()
{
    MessageRecorder log;
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    EditorManager::openEditor(m_fixture->folder.filePath(QStringLiteral("missing.txt")), false);

    QVERIFY(log.lines(QtDebugMsg, QStringLiteral("open editor for:")).isEmpty());
}

void TestOpenEditor::openingAsksEachOpenEditorOnce()
{
    int asked = 0;
    m_fixture->factory.prepare = [&asked](TestEditor *editor) { editor->fileNameAsked = &asked; };
    const auto openOne = [&](int number) {
        const QString path = m_fixture->makeFile(QStringLiteral("%1.txt").arg(number));
        asked = 0;
        EditorManager::openEditor(path, false);
        return asked;
    };
    for (int i = 0; i < 100; ++i)
        openOne(i);

    const int askedOf100 = openOne(100);

    QVERIFY2(askedOf100 <= 100 + 2, qPrintable(QString::number(askedOf100)));
    QCOMPARE(EditorManager::allEditors().size(), 101);
}

QTEST_MAIN(TestOpenEditor)
#include "tst_openeditor.moc"
