// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/editors/editormanager.h>

#include <extsys/pluginmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/core/ideicon.h>
#include <idecore/core/messages_p.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/interfaces/ieditorfactory.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/views/viewmanager.h>

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QSet>

#include <algorithm>
#include <vector>

namespace Core {

namespace {

EditorManager *m_instance = nullptr;
private_impl::EditorManagerPrivate *d = nullptr;

} // namespace

namespace private_impl {

MimeType determineMimeType(const QString &file)
{
    const MimeType type = IdeCore::mimeDatabase()->findByFile(QFileInfo(file));
    return type.isNull() ? IdeCore::mimeDatabase()->findByType(QStringLiteral("text/plain")) : type;
}

namespace {

/// A type on the way up the hierarchy, and which of its parents comes next.
struct Step
{
    QString type;
    QStringList parents;
    int next;
};

/// @p type is a parent of the last of @p path, in which it stands already.
void warnOfCycle(const std::vector<Step> &path, const QString &type)
{
    QStringList names{type};
    auto step = path.crbegin();
    do
        names.append(step->type);
    while ((step++)->type != type);
    qWarning("%s: Inconsistent mime hierarchy detected, cycle of types: %s.", Q_FUNC_INFO,
             qUtf8Printable(names.join(QLatin1String(" > "))));
}

} // namespace

QList<IEditorFactory *> getFactoriesRecursively(const MimeType &mimeType,
                                                const QList<IEditorFactory *> &factories)
{
    QList<IEditorFactory *> found;
    // The hierarchy comes from files, so neither its depth nor that it ends can
    // be relied on.
    std::vector<Step> path;
    QSet<QString> onPath;
    const auto enter = [&](const MimeType &entered) {
        const QString type = entered.type();
        if (onPath.contains(type)) {
            warnOfCycle(path, type);
            return;
        }
        for (IEditorFactory *factory : factories) {
            if (factory->mimeTypes().contains(type))
                found.append(factory);
        }
        onPath.insert(type);
        path.push_back({type, entered.subClassesOf(), 0});
    };
    enter(mimeType);
    while (!path.empty()) {
        Step &step = path.back();
        if (step.next < step.parents.size()) {
            enter(IdeCore::mimeDatabase()->findByType(step.parents.at(step.next++)));
        } else {
            onPath.remove(step.type);
            path.pop_back();
        }
    }
    return found;
}

void openError(const QString &file, const QString &errorString)
{
    showError(EditorManager::tr("Open File"),
              EditorManager::tr("Can not open file \"%1\"").arg(QDir::toNativeSeparators(file)),
              errorString);
}

void saveError(const QString &file, const QString &errorString)
{
    showError(EditorManager::tr("Save File"),
              EditorManager::tr("Can not save to file \"%1\"").arg(QDir::toNativeSeparators(file)),
              errorString);
}

EditorManagerPrivate *EditorManagerPrivate::get()
{
    return d;
}

IEditor *EditorManagerPrivate::createEditor(const QString &file)
{
    IEditorFactory *factory = EditorManager::factoryForFile(file);
    return factory ? factory->createEditor() : nullptr;
}

void EditorManagerPrivate::placeEditor(IEditor *editor)
{
    if (editor->windowIcon().isNull())
        editor->setWindowIcon(ideIcon(QStringLiteral(":/core/image/editor_default.png")));
    editors.append(editor);
    QObject::connect(editor, &IEditor::modificationStateChanged, EditorManager::instance(),
                     &EditorManager::onEditorModified);
    QObject::connect(editor, &QObject::destroyed, EditorManager::instance(),
                     [this](const QObject *gone) { onEditorDestroyed(gone); });
    ViewManager::registerContext(editor, EDITOR_CONTEXT, false);
    ViewManager::showView(editor);
}

void EditorManagerPrivate::onEditorDestroyed(const QObject *editor)
{
    const auto known = std::find(editors.begin(), editors.end(), editor);
    if (known == editors.end())
        return; // closed before
    editors.erase(known);
    updateActions();
}

} // namespace private_impl

using private_impl::EditorManagerPrivate;

EditorManager::EditorManager()
{
    // By the name that currentEditorChanged() has it under, so that the signal can
    // be queued and recorded.
    qRegisterMetaType<IEditor *>("Core::IEditor*");
    m_instance = this;
    d = new EditorManagerPrivate;
}

EditorManager::~EditorManager()
{
    delete d;
    d = nullptr;
    m_instance = nullptr;
}

EditorManager *EditorManager::instance()
{
    return m_instance;
}

IEditor *EditorManager::openEditor(const QString &file, bool readOnly)
{
    const QFileInfo info(file);
    if (!info.exists()) {
        private_impl::showMessage(
            QMessageBox::Warning, ViewManager::dialogParent(), QStringLiteral("Warning"),
            QStringLiteral("Can not open %1, file does not exist.").arg(file));
        return nullptr;
    }
    const QString path = info.absoluteFilePath();
    qDebug() << "open editor for:" << path;
    if (IEditor *open = editorForFile(path)) {
        d->addFile(path);
        ViewManager::showView(open);
        return d->editors.contains(open) ? open : nullptr;
    }
    IEditor *editor = EditorManagerPrivate::createEditor(path);
    if (!editor) {
        private_impl::openError(path, QString());
        return nullptr;
    }
    QString errorString;
    if (!editor->open(path, &errorString)) {
        private_impl::openError(path, errorString);
        delete editor; // not placed yet, so nobody else owns it
        return nullptr;
    }
    qDebug() << "create editor:" << editor;
    editor->setReadOnly(readOnly);
    d->addFile(path);
    d->placeEditor(editor);
    // Whoever was told of the new current editor may have closed it already.
    if (!d->editors.contains(editor))
        return nullptr;
    connect(editor, &IEditor::saved, instance(), &EditorManager::onEditorSaved);
    return editor;
}

IEditor *EditorManager::editorForFile(const QString &file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    const auto lastPart = [](const QString &name) {
        return name.midRef(name.lastIndexOf(QLatin1Char('/')) + 1);
    };
    const QStringRef wanted = lastPart(path);
    for (IEditor *editor : qAsConst(d->editors)) {
        const QString name = editor->fileName();
        // Making a path absolute costs; with hundreds of editors most are told
        // apart by their last part, which only "." and ".." would change.
        const QStringRef part = lastPart(name);
        if (part != wanted && !part.isEmpty() && part != QLatin1String(".")
            && part != QLatin1String("..")) {
            continue;
        }
        if (QFileInfo(name).absoluteFilePath() == path)
            return editor;
    }
    return nullptr;
}

QList<IEditorFactory *> EditorManager::factoriesForFile(const QString &file)
{
    const QList<IEditorFactory *> factories =
        ExtSys::PluginManager::instance()->getObjects<IEditorFactory>();
    const QList<IEditorFactory *> found =
        private_impl::getFactoriesRecursively(private_impl::determineMimeType(file), factories);
    QList<IEditorFactory *> best;
    for (IEditorFactory *factory : found) {
        if (!best.contains(factory))
            best.append(factory);
    }
    return best;
}

IEditorFactory *EditorManager::factoryForFile(const QString &file)
{
    return factoriesForFile(file).value(0);
}

IEditor *EditorManager::currentEditor()
{
    return d->current();
}

QList<IEditor *> EditorManager::allEditors()
{
    return d->editors;
}

bool EditorManager::closeEditor(IEditor *editor)
{
    return editor && ViewManager::closeView(editor);
}

bool EditorManager::closeEditor(const QString &file)
{
    return closeEditor(editorForFile(file));
}

void EditorManager::onCurrentViewChanged(Core::IView *widget)
{
    d->currentEditor = qobject_cast<IEditor *>(widget);
    d->updateActions();
    Q_EMIT currentEditorChanged(d->current());
}

void EditorManager::onEditorModified(bool modified)
{
    Q_UNUSED(modified)
    if (qobject_cast<IEditor *>(sender()))
        d->updateActions();
}

void EditorManager::onEditorSaved()
{
    if (const auto *editor = qobject_cast<IEditor *>(sender()))
        Q_EMIT fileSaved(editor->fileName());
}

} // namespace Core
