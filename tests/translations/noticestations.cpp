// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "noticestations.h"

#include "walking.h"

#include "support/corefixture.h"

#include <assistant/assistantproxy.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QInputMethodEvent>
#include <QListWidget>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

using ASSISTANT::AssistantProxy;
using Core::EditorManager;

namespace {

/// Does what the command does where @p editor has the focus.
void trigger(const char *command, Core::IEditor *editor)
{
    editor->activateWindow();
    typedInto(editor)->setFocus();
    Core::IAction *const action = Core::ActionManager::action(QLatin1String(command));
    if (!QTest::qWaitFor([action] { return action->isEnabled(); }))
        qFatal("%s cannot be chosen", command);
    action->trigger();
}

Core::IEditor *open(const QString &path)
{
    Core::IEditor *const editor = EditorManager::openEditor(path);
    if (!editor)
        qFatal("%s did not open", qPrintable(path));
    return editor;
}

/// The message above the text; null when there is none.
const QWidget *notice(const QWidget *editor)
{
    const QList<QWidget *> widgets = editor->findChildren<QWidget *>();
    const auto found = std::find_if(widgets.begin(), widgets.end(), [](const QWidget *widget) {
        return widget->inherits("KMessageWidget") && widget->isVisible();
    });
    return found == widgets.end() ? nullptr : *found;
}

/// Looks at it when it has grown to its height.
void lookAtNotice(const Core::IEditor *editor, const Look &look, const char *name)
{
    int height = 0;
    int unchanged = 0;
    const auto stands = [&] {
        const QWidget *const message = notice(editor);
        const int before = std::exchange(height, message ? message->height() : 0);
        unchanged = height == before ? unchanged + 1 : 0;
        return height > 0 && unchanged == 20;
    };
    if (!QTest::qWaitFor(stands))
        qFatal("nothing is said about %s", name);
    look(Core::ViewManager::mainWindow(), QLatin1String(name));
}

void discard(Core::IEditor *editor)
{
    const ModalDialog question(ModalDialog::press(QMessageBox::Discard));
    EditorManager::closeEditor(editor);
}

} // namespace

void walkFileFaults(const Look &look)
{
    const QTemporaryDir folder;
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a file that is gone")));
        EditorManager::openEditor(folder.filePath(QStringLiteral("gone.v")));
    }
    const QString inner = folder.filePath(QStringLiteral("folder.v"));
    if (!QDir().mkdir(inner))
        qFatal("cannot make %s", qPrintable(inner));
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a folder as a file")));
        EditorManager::openEditor(inner);
    }
    const QString path = folder.filePath(QStringLiteral("sub/a.v"));
    write(path, "module a;\nendmodule\n");
    Core::IEditor *const editor = open(path);
    {
        const ModalDialog files(lookAt(look, QStringLiteral("Save As")));
        trigger(Core::Constants::A_FILE_SAVEAS, editor);
    }
    QTest::keyClicks(typedInto(editor), QStringLiteral("wire w;"));
    if (!QDir(folder.filePath(QStringLiteral("sub"))).removeRecursively())
        qFatal("the folder cannot be removed");
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a document that cannot be saved")));
        trigger(Core::Constants::A_FILE_SAVE, editor);
    }
    {
        // It comes when the question has gone.
        std::unique_ptr<ModalDialog> failure;
        const ModalDialog question([&](QWidget *box) {
            ModalDialog::press(QMessageBox::Save)(box);
            failure = std::make_unique<ModalDialog>(
                lookAt(look, QStringLiteral("a document that stays open")));
        });
        EditorManager::closeEditor(editor);
    }
    discard(editor);
}

void walkNotices(const Look &look)
{
    const QTemporaryDir folder;
    const QString binary = folder.filePath(QStringLiteral("binary.v"));
    write(binary, QByteArray("module\0\1\2\n", 10));
    Core::IEditor *editor = open(binary);
    lookAtNotice(editor, look, "a file that is no text");
    EditorManager::closeEditor(editor);

    const QString wrong = folder.filePath(QStringLiteral("wrong.v"));
    write(wrong, QByteArray("module \xef\xbb\xbf wrong;\xf4\x90\x80\x80\r\nendmodule\n"));
    editor = open(wrong);
    look(Core::ViewManager::mainWindow(), QStringLiteral("a file with mixed line ends"));
    EditorManager::closeEditor(editor);

    const QString path = folder.filePath(QStringLiteral("changed.v"));
    write(path, "module changed;\nendmodule\n");
    editor = open(path);
    // What happens within the second in which the watch began may be missed.
    const auto isTold = [&](const std::function<void()> &change) {
        return QTest::qWaitFor([&] {
            change();
            return notice(editor) != nullptr;
        });
    };
    if (!isTold([&path] { write(path, "module other;\nendmodule\n"); }))
        qFatal("a change of the file is not told");
    lookAtNotice(editor, look, "a file that another program has changed");
    QTest::keyClicks(typedInto(editor), QStringLiteral("wire w;"));
    {
        const ModalDialog box(lookAt(look, QStringLiteral("saving over a changed file")));
        trigger(Core::Constants::A_FILE_SAVE, editor);
    }
    discard(editor);

    editor = open(path);
    if (!isTold([&path] { QFile::remove(path); }))
        qFatal("a file that is gone is not told");
    lookAtNotice(editor, look, "a file that another program has deleted");
    discard(editor);

    const QString latin = folder.filePath(QStringLiteral("latin.v"));
    write(latin, "// gr\xfc\xdf\nmodule latin;\nendmodule\n");
    editor = open(latin);
    QInputMethodEvent typed;
    typed.setCommitString(QString(QChar(0x4e2d)));
    QApplication::sendEvent(typedInto(editor), &typed);
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a character that has no code")));
        trigger(Core::Constants::A_FILE_SAVE, editor);
    }
    lookAtNotice(editor, look, "a document with such a character");
    discard(editor);
}

void walkSwitcher(const Look &look)
{
    EditorManager::openEditor(QStringLiteral(EXAMPLE_PROJECT "/rtl/counter.sv"));
    Core::IEditor *const editor =
        EditorManager::openEditor(QStringLiteral(EXAMPLE_PROJECT "/rtl/blinky.v"));
    QWidget *const text = typedInto(editor);
    QTest::keyPress(text, Qt::Key_Tab, Qt::ControlModifier);
    auto *const window = Core::ViewManager::mainWindow();
    if (!named<QListWidget>(window, "documentSwitcher")->isVisible())
        qFatal("the documents are not shown");
    look(window, QStringLiteral("going through the documents"));
    QTest::keyRelease(text, Qt::Key_Control);
}

void walkHelp(const Look &look)
{
    const QTemporaryDir folder;
    AssistantProxy *const help = AssistantProxy::instance();
    const QString viewer = help->viewerProgram();
    const QString collection = help->collectionFile();
    help->setCollectionFile(folder.filePath(QStringLiteral("manual.qhc")));
    help->setViewerProgram(QStringLiteral("/bin/false"));
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a manual that is gone")));
        Core::ViewManager::mainWindow()->onOpenKelmoHelp();
    }
    write(help->collectionFile(), "no manual");
    help->setViewerProgram(folder.filePath(QStringLiteral("viewer")));
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a help viewer that is gone")));
        Core::ViewManager::mainWindow()->onOpenKelmoHelp();
    }
    help->setViewerProgram(viewer);
    help->setCollectionFile(collection);
}

void walkUnwritableSettings(const Look &look)
{
    // A folder in place of the file, for the superuser may write everywhere.
    const QString file = CoreFixture::settingsFile();
    const QString aside = file + QStringLiteral(".aside");
    const bool had = QFile::rename(file, aside);
    if (!QDir().mkpath(file + QStringLiteral("/inner")))
        qFatal("cannot make %s", qPrintable(file));
    {
        const ModalDialog options([&look](QWidget *dialog) {
            look(dialog, QStringLiteral("options that are not kept"));
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        Core::ViewManager::mainWindow()->onShowOptionDialog();
    }
    if (!QDir(file).removeRecursively() || (had && !QFile::rename(aside, file)))
        qFatal("cannot put %s back", qPrintable(file));
}
