// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "workbench.h"

#include "support/accessibilitywalk.h"

#include <assistant/assistantproxy.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/editors/editormanager.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <memory>

using Core::ActionManager;
using Core::EditorManager;
using Core::ExternalEditorManager;
using Core::ViewManager;

namespace C = Core::Constants;

namespace {

void trigger(const char *id)
{
    ActionManager::action(named(id))->trigger();
}

/// A command of the project panel.
void triggerInPanel(const char *name)
{
    ViewManager::mainWindow()->findChild<QAction *>(named(name))->trigger();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Opens a dialog and returns when it is closed.
using Opener = void (*)(const Workbench &);

void selectFile(const QString &name)
{
    auto *const tree = ViewManager::mainWindow()->findChild<QTreeView *>(named("fileTree"));
    const QModelIndexList found =
        tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, name, 1,
                             Qt::MatchContains | Qt::MatchRecursive);
    if (found.isEmpty())
        qFatal("the panel does not show %s", qPrintable(name));
    tree->setCurrentIndex(found.first());
}

} // namespace

Q_DECLARE_METATYPE(Opener)

/// What the program asks and tells, the dialogs that Qt brings, and what comes up for a
/// while.
class TestAccessibilityQuestions final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void messages_data();
    void messages();
    void messagesOfTheAboutDialog();
    void aThemeThatNeedsARestart();
    void anExternalEditorWhoseNameIsTaken();
    void aFileThatCannotBeSaved();
    void dialogsOfQt_data();
    void dialogsOfQt();
    void theFindBar();
    void theReplaceBar();
    void theGoToLineBar();
    void recoveredText();
    void aFloatingPanel();
    void theDocumentSwitcher();
    void menusByTheirKey_data();
    void menusByTheirKey();
};

void TestAccessibilityQuestions::messages_data()
{
    QTest::addColumn<Opener>("open");
    const auto add = [](const char *name, Opener open) { QTest::newRow(name) << open; };
    add("a file that does not open",
        [](const Workbench &workbench) { EditorManager::openEditor(workbench.path("none.v")); });
    add("a project that does not open", [](const Workbench &workbench) {
        write(workbench.path("broken.kprj"), "");
        Core::ProjectManager::openProject(workbench.path("broken.kprj"));
    });
    add("a project with changed files", [](const Workbench &workbench) {
        workbench.openProject();
        Workbench::change(EditorManager::openEditor(workbench.path("rtl/blinky.v")));
        Core::ProjectManager::closeCurrentProject();
    });
    add("a file without a module", [](const Workbench &workbench) {
        write(workbench.path("rtl/blinky.v"), "\n");
        workbench.openProject();
        selectFile(named("blinky.v"));
        triggerInPanel("SetAsTop");
    });
    add("a file of several modules", [](const Workbench &workbench) {
        write(workbench.path("rtl/blinky.v"), "module a;\nendmodule\nmodule b;\nendmodule\n");
        workbench.openProject();
        selectFile(named("blinky.v"));
        triggerInPanel("SetAsTop");
    });
    add("a folder that is gone", [](const Workbench &workbench) {
        workbench.openProject();
        selectFile(named("blinky.v"));
        QDir(workbench.path("rtl")).removeRecursively();
        triggerInPanel("OpenFolder");
    });
    add("help that is not installed", [](const Workbench &) {
        ASSISTANT::AssistantProxy::instance()->setCollectionFile(named("/no/such.qhc"));
        ViewManager::mainWindow()->onOpenKelmoHelp();
    });
    add("an external editor that does not start", [](const Workbench &workbench) {
        ExternalEditorManager::registerEditor(
            {named("gone"), named("/no/such"), named("%f"), true});
        ExternalEditorManager::setUseExtEdtior(true);
        workbench.openProject();
        selectFile(named("blinky.v"));
        triggerInPanel("Open");
    });
}

void TestAccessibilityQuestions::messages()
{
    QFETCH(Opener, open);
    const Workbench workbench;
    {
        const WalkedDialog message;
        open(workbench);
        VERIFY_NONE(message.faults);
    }
    Core::IEditor *const changed = EditorManager::currentEditor();
    if (changed && changed->isModified()) {
        const ModalDialog leave(ModalDialog::press(QMessageBox::Discard));
        Core::ProjectManager::closeCurrentProject();
    }
}

void TestAccessibilityQuestions::messagesOfTheAboutDialog()
{
    const Workbench workbench;
    QStringList faults;
    const ModalDialog about([&faults](QWidget *dialog) {
        auto *const logo = dialog->findChild<QLabel *>(named("labelLogo"));
        for (int click = 1; click <= 50; ++click) {
            if (click != 30 && click != 50) {
                QTest::mouseClick(logo, Qt::LeftButton);
                continue;
            }
            WalkedDialog box;
            QTest::mouseClick(logo, Qt::LeftButton);
            faults += box.faults;
        }
        static_cast<QDialog *>(dialog)->reject();
    });

    ViewManager::mainWindow()->onAboutIde();

    VERIFY_NONE(faults);
}

void TestAccessibilityQuestions::aThemeThatNeedsARestart()
{
    const Workbench workbench;
    const ShownOptions options;
    auto *const themes = options.find<QComboBox>("comboBoxTheme");
    themes->setCurrentIndex(1 - themes->currentIndex());
    const WalkedDialog message;

    const auto *buttons = options.dialog()->findChild<QDialogButtonBox *>();
    buttons->button(QDialogButtonBox::Apply)->click();

    VERIFY_NONE(message.faults);
}

void TestAccessibilityQuestions::anExternalEditorWhoseNameIsTaken()
{
    const Workbench workbench;
    ExternalEditorManager::registerEditor({named("one"), named("/bin/true"), named("%f"), true});
    const ShownOptions options("BA.ExtEditor", "BA.ExtEditor");
    QStringList faults;
    const ModalDialog adding([&faults](QWidget *dialog) {
        dialog->findChild<QLineEdit *>(named("editName"))->setText(named("one"));
        dialog->findChild<QLineEdit *>(named("editPath"))->setText(named("/bin/true"));
        {
            WalkedDialog message;
            static_cast<QDialog *>(dialog)->accept();
            faults = message.faults;
        }
        static_cast<QDialog *>(dialog)->reject();
    });

    options.find<QPushButton>("btnAdd")->click();

    VERIFY_NONE(faults);
}

void TestAccessibilityQuestions::aFileThatCannotBeSaved()
{
    const Workbench workbench;
    Core::IEditor *const editor = EditorManager::openEditor(workbench.path("rtl/blinky.v"));
    Workbench::change(editor);
    QVERIFY(QDir(workbench.path("rtl")).removeRecursively());
    std::unique_ptr<WalkedDialog> failure;
    {
        const ModalDialog question([&failure](QWidget *box) {
            failure = std::make_unique<WalkedDialog>();
            ModalDialog::press(QMessageBox::Save)(box);
        });
        QVERIFY(!EditorManager::closeEditor(editor));
    }
    QVERIFY(failure);

    VERIFY_NONE(failure->faults);
    const ModalDialog leave(ModalDialog::press(QMessageBox::Discard));
    EditorManager::closeEditor(editor);
}

void TestAccessibilityQuestions::dialogsOfQt_data()
{
    QTest::addColumn<Opener>("open");
    const auto add = [](const char *name, Opener open) { QTest::newRow(name) << open; };
    add("Open", [](const Workbench &) { ViewManager::mainWindow()->onOpenFiles(); });
    add("Save As", [](const Workbench &workbench) {
        workbench.openEditors();
        trigger(C::A_FILE_SAVEAS);
    });
    add("a folder", [](const Workbench &) {
        const ShownOptions options;
        options.find<QAbstractButton>("btnBrowseProjectPath")->click();
    });
    add("Print", [](const Workbench &workbench) {
        workbench.openEditors();
        trigger(C::A_FILE_PRINT);
    });
}

void TestAccessibilityQuestions::dialogsOfQt()
{
    QFETCH(Opener, open);
    const Workbench workbench;
    const WalkedDialog dialog;

    open(workbench);

    VERIFY_NONE(dialog.faults);
}

void TestAccessibilityQuestions::theFindBar()
{
    const Workbench workbench;
    QVERIFY(EditorManager::openEditor(workbench.path("rtl/blinky.v"), true));
    trigger(C::A_EDIT_FIND);
    QVERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget())
            || qobject_cast<QComboBox *>(QApplication::focusWidget()));

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
}

void TestAccessibilityQuestions::theReplaceBar()
{
    const Workbench workbench;
    workbench.openEditors();
    trigger(C::A_EDIT_FIND);
    QVERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget())
            || qobject_cast<QComboBox *>(QApplication::focusWidget()));

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
}

void TestAccessibilityQuestions::theGoToLineBar()
{
    const Workbench workbench;
    workbench.openEditors();
    QWidget *const before = QApplication::focusWidget();
    QTest::keyClick(ViewManager::mainWindow()->windowHandle(), Qt::Key_G, Qt::ControlModifier);
    QVERIFY(QApplication::focusWidget() != before);

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
}

void TestAccessibilityQuestions::recoveredText()
{
    const Workbench workbench;
    Core::IEditor *editor = EditorManager::openEditor(workbench.path("rtl/blinky.v"));
    Workbench::change(editor);
    // As if the program had ended.
    delete editor;
    editor = EditorManager::openEditor(workbench.path("rtl/blinky.v"));
    const auto isOffered = [editor] {
        const QList<QWidget *> all = editor->findChildren<QWidget *>();
        return std::any_of(all.cbegin(), all.cend(), [](const QWidget *widget) {
            return widget->inherits("KMessageWidget") && widget->isVisible();
        });
    };
    QTRY_VERIFY(isOffered());

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
}

void TestAccessibilityQuestions::aFloatingPanel()
{
    const Workbench workbench;
    workbench.openProject();
    auto *const dock = ViewManager::mainWindow()->findChild<QDockWidget *>();
    dock->setFloating(true);

    VERIFY_NONE(AccessibilityWalk::faults(dock));
}

void TestAccessibilityQuestions::theDocumentSwitcher()
{
    const Workbench workbench;
    workbench.openEditors();
    // Ctrl stays down.
    QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_Tab, Qt::ControlModifier,
                         QString(), false, -1);
    QVERIFY(
        ViewManager::mainWindow()->findChild<QWidget *>(named("documentSwitcher"))->isVisible());

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
}

void TestAccessibilityQuestions::menusByTheirKey_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("tabs") << named("documentTabBar");
    QTest::newRow("files") << named("fileTree");
    QTest::newRow("text") << QString();
}

void TestAccessibilityQuestions::menusByTheirKey()
{
    QFETCH(QString, name);
    const Workbench workbench;
    workbench.openProject();
    workbench.openEditors();
    selectFile(named("blinky.v"));
    QWidget *widget = EditorManager::currentEditor();
    if (!name.isEmpty())
        widget = ViewManager::mainWindow()->findChild<QWidget *>(name);
    while (widget->focusProxy())
        widget = widget->focusProxy();
    widget->setFocus();
    QStringList faults;
    bool met = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        timer.stop();
        met = true;
        faults = AccessibilityWalk::faults(menu);
        for (const QAction *action : menu->actions()) {
            if (!action->isSeparator() && action->text().isEmpty())
                faults.append(named("nameless"));
        }
        menu->close();
    });
    timer.start(10);

    QContextMenuEvent event(QContextMenuEvent::Keyboard, widget->rect().center(),
                            widget->mapToGlobal(widget->rect().center()));
    QApplication::sendEvent(QApplication::focusWidget(), &event);

    QTRY_VERIFY(met);
    VERIFY_NONE(faults);
}

int main(int argc, char *argv[])
{
    // A file dialog of Qt's own.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestAccessibilityQuestions test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_accessibilityquestions.moc"
