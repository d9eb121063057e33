// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/project/projecteditors_p.h>

#include <fpgaproject/project/messages_p.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/views/viewmanager.h>

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSet>

#include <algorithm>

namespace Fpga {

namespace {

// How many names the question lists.
constexpr int MAX_NAMES = 10;

} // namespace

ProjectEditors::ProjectEditors(const QStringList &files)
{
    const QList<Core::IEditor *> editors = Core::EditorManager::allEditors();
    if (editors.isEmpty())
        return;
    const QSet<QString> wanted(files.cbegin(), files.cend());
    for (Core::IEditor *editor : editors) {
        const QFileInfo info(editor->fileName());
        if (wanted.contains(QDir::cleanPath(info.absoluteFilePath()))
            || wanted.contains(info.canonicalFilePath())) {
            m_editors.append(editor);
        }
    }
}

QList<Core::IEditor *> ProjectEditors::modified() const
{
    QList<Core::IEditor *> found;
    for (const QPointer<Core::IEditor> &editor : m_editors) {
        if (editor && editor->isModified())
            found.append(editor);
    }
    return found;
}

bool ProjectEditors::isModified() const
{
    return !modified().isEmpty();
}

bool ProjectEditors::close(const QString &projectName)
{
    if (isModified()) {
        switch (ask(projectName)) {
        case Answer::Save:
            if (!saveAll())
                return false;
            break;
        case Answer::Discard:
            break;
        case Answer::Cancel:
            return false;
        }
    }
    for (const QPointer<Core::IEditor> &editor : qAsConst(m_editors)) {
        if (editor)
            closeUnasked(editor);
    }
    return true;
}

ProjectEditors::Answer ProjectEditors::ask(const QString &projectName) const
{
    const QList<Core::IEditor *> editors = modified();
    QStringList names;
    const QList<Core::IEditor *> named = editors.mid(0, MAX_NAMES);
    for (const Core::IEditor *editor : named)
        names.append(QDir::toNativeSeparators(editor->fileName()));
    if (editors.size() > MAX_NAMES)
        names.append(tr("and %n more", nullptr, editors.size() - MAX_NAMES));
    QMessageBox box(QMessageBox::Warning, tr("Close Project"),
                    tr("Files of the project \"%1\" have unsaved changes.").arg(projectName),
                    QMessageBox::SaveAll | QMessageBox::Discard | QMessageBox::Cancel,
                    Core::ViewManager::dialogParent());
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(names.join(QLatin1Char('\n')));
    box.setDefaultButton(QMessageBox::SaveAll);
    box.setEscapeButton(QMessageBox::Cancel);
    box.button(QMessageBox::SaveAll)->setText(tr("Save All"));
    switch (box.exec()) {
    case QMessageBox::SaveAll:
        return Answer::Save;
    case QMessageBox::Discard:
        return Answer::Discard;
    default:
        return Answer::Cancel;
    }
}

bool ProjectEditors::saveAll() const
{
    const QList<Core::IEditor *> editors = modified();
    for (Core::IEditor *editor : editors) {
        QString reason;
        if (!editor->save(&reason)) {
            showError(
                tr("Save File"),
                tr("Can not save to file \"%1\"").arg(QDir::toNativeSeparators(editor->fileName())),
                reason);
            return false;
        }
    }
    return true;
}

void ProjectEditors::closeUnasked(Core::IEditor *editor)
{
    // Read again, an editor has no changes left to ask about, or to keep for a
    // recovery that nobody wants.
    QString reason;
    if (editor->isModified() && !editor->open(editor->fileName(), &reason)) {
        Core::ViewManager::removeView(editor);
        return;
    }
    if (!Core::EditorManager::closeEditor(editor))
        Core::ViewManager::removeView(editor);
}

} // namespace Fpga
