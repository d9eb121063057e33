// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/fileopening_p.h>

#include <fpgaproject/file/filekind.h>
#include <fpgaproject/project/messages_p.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/mimedatabase/mimedatabase.h>

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

namespace Fpga {

namespace {

using Core::EditorManager;
using Core::ExternalEditor;
using Core::ExternalEditorManager;

/// What a message shows of a long text.
constexpr int SHOWN_LENGTH = 500;

struct FileOpening final
{
    Q_DECLARE_TR_FUNCTIONS(Fpga::FileOpening)
};

/// Whether a text editor is for @p file; binary files are of no known type. One that
/// is missing is for nobody: this program says so, another would make it.
bool isText(const QString &file)
{
    const QFileInfo info(file);
    return info.isFile()
           && (fileKindOf(file) != FileKind::Other
               || !Core::IdeCore::mimeDatabase()->findByFile(info).isNull());
}

/// The line at which @p file stands inside, else the first.
int knownLine(const QString &file)
{
    const Core::IEditor *const open = EditorManager::editorForFile(file);
    return open ? std::max(1, open->currentLine()) : 1;
}

QString shortened(const QString &text)
{
    return text.size() <= SHOWN_LENGTH ? text : text.left(SHOWN_LENGTH) + QChar(0x2026);
}

/// The arguments as one line, those that would be read wrongly in quotation marks.
QString shown(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return FileOpening::tr("none");
    QStringList list;
    for (QString argument : arguments) {
        argument.replace(QLatin1Char('\n'), QLatin1String("\\n"));
        argument.replace(QLatin1Char('\r'), QLatin1String("\\r"));
        const bool plain =
            std::none_of(argument.begin(), argument.end(), [](QChar c) { return c.isSpace(); });
        list.append(plain ? argument : QLatin1Char('"') + argument + QLatin1Char('"'));
    }
    return shortened(list.join(QLatin1Char(' ')));
}

/// Why the system does not run the executable @p file.
QString refusal(const QString &file)
{
    QFile program(file);
    // Reading a pipe would wait for who writes into it.
    if (QFileInfo(file).isFile() && program.open(QIODevice::ReadOnly)) {
        const QByteArray beginning = program.read(256);
        if (beginning.startsWith("#!")) {
            // To the first blank; a carriage return belongs to the name.
            const QString line = QFile::decodeName(beginning.mid(2).split('\n').constFirst());
            const QString runner =
                line.split(QRegularExpression(QStringLiteral("[ \t]")), Qt::SkipEmptyParts)
                    .value(0);
            if (!runner.isEmpty() && !QFileInfo::exists(runner)) {
                return FileOpening::tr("The program %1, which is to run it, does not exist.")
                    .arg(shown({runner}));
            }
        } else if (!beginning.startsWith("\177ELF")) {
            return FileOpening::tr(
                "It is neither a program nor a script that names its interpreter.");
        }
    }
    return FileOpening::tr("The system refused to start it.");
}

/// Why @p program, as started in @p folder, did not start.
QString reason(const QString &program, const QString &folder)
{
    if (program.isEmpty())
        return FileOpening::tr("No program is named.");
    if (!program.contains(QLatin1Char('/'))) {
        const QString found = QStandardPaths::findExecutable(program);
        return found.isEmpty() ? FileOpening::tr("There is no such program in the search path.")
                               : refusal(found);
    }
    const QFileInfo file(QDir(folder), program);
    if (!file.exists())
        return FileOpening::tr("The program does not exist.");
    if (file.isDir())
        return FileOpening::tr("It is a folder.");
    if (!file.isExecutable())
        return FileOpening::tr("The file is not executable.");
    return refusal(file.filePath());
}

void showNotStarted(const ExternalEditor &editor, const QString &file, int line)
{
    // At once, because a path or a name may look like a place mark.
    showError(
        FileOpening::tr("External Editor"),
        FileOpening::tr(
            "The external editor \"%1\" could not be started.\n\nProgram: %2\nArguments: %3\n")
            .arg(shortened(editor.name), shortened(QDir::toNativeSeparators(editor.program)),
                 shown(editor.argumentsFor(file, line))),
        reason(editor.program, QFileInfo(file).absolutePath()));
}

} // namespace

void openFiles(const QStringList &files)
{
    const ExternalEditor editor = ExternalEditorManager::isUseExtEditor()
                                      ? ExternalEditorManager::defaultEditor()
                                      : ExternalEditor();
    if (editor.name.isEmpty()) {
        openFilesInside(files);
        return;
    }
    QStringList outside;
    QStringList inside;
    for (const QString &file : files)
        (isText(file) ? outside : inside).append(file);
    openFilesWith(editor, outside);
    openFilesInside(inside);
}

void openFilesInside(const QStringList &files)
{
    for (const QString &file : files)
        EditorManager::openEditor(file);
}

void openFilesWith(const ExternalEditor &editor, const QStringList &files)
{
    for (int i = 0; i < files.size(); ++i) {
        const QString &file = files.at(i);
        const int line = knownLine(file);
        if (editor.open(file, line))
            continue;
        // Said once; the others would fare no better.
        showNotStarted(editor, file, line);
        openFilesInside(files.mid(i));
        return;
    }
}

void addExternalEditors(QMenu *menu, const QStringList &files)
{
    QList<ExternalEditor> editors = ExternalEditorManager::editors();
    if (editors.isEmpty())
        return;
    std::sort(editors.begin(), editors.end(), [](const auto &left, const auto &right) {
        return left.name.localeAwareCompare(right.name) < 0;
    });
    menu->addSeparator();
    for (const ExternalEditor &editor : qAsConst(editors)) {
        QString text = editor.name;
        text.replace(QLatin1Char('&'), QLatin1String("&&"));
        QObject::connect(menu->addAction(text), &QAction::triggered, menu,
                         [editor, files] { openFilesWith(editor, files); });
    }
}

} // namespace Fpga
