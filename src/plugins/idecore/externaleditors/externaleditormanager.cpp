// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/externaleditormanager.h>

#include <idecore/core/assertion_p.h>
#include <idecore/core/idecore.h>

#include <QHash>
#include <QSettings>

#include <memory>
#include <vector>

namespace Core {

namespace private_impl {

struct ExternalEditorRegistry
{
    QHash<QString, ExternalEditor> editors;
    bool useExternalEditor = false;
};

} // namespace private_impl

using private_impl::ExternalEditorRegistry;

namespace {

ExternalEditorRegistry *d = nullptr;

/// The registries that a later manager has replaced. They stay to the end of the
/// process: no manager knows which of them was its own.
std::vector<std::unique_ptr<ExternalEditorRegistry>> &replacedRegistries()
{
    static std::vector<std::unique_ptr<ExternalEditorRegistry>> registries;
    return registries;
}

QString groupName()
{
    return QStringLiteral("external_editor");
}

QString entryKey(int index)
{
    return QStringLiteral("editor%1").arg(index);
}

QString switchKey()
{
    return QStringLiteral("use_external_editor");
}

void load(ExternalEditorRegistry *registry)
{
    QSettings *settings = IdeCore::userSettings();
    settings->beginGroup(groupName());
    for (int i = 0;; ++i) {
        const QStringList entry = settings->value(entryKey(i)).toStringList();
        if (entry.size() < 4 || entry.at(0).isEmpty())
            break;
        registry->editors.insert(entry.at(0), {entry.at(0), entry.at(1), entry.at(2),
                                               entry.at(3) != QLatin1String("0")});
    }
    registry->useExternalEditor = settings->value(switchKey(), false).toBool();
    settings->endGroup();
}

} // namespace

ExternalEditorManager::ExternalEditorManager(QObject *parent)
    : QObject(parent)
{
    if (d)
        replacedRegistries().emplace_back(d);
    d = new ExternalEditorRegistry;
    load(d);
}

ExternalEditorManager::~ExternalEditorManager()
{
    delete d;
    d = nullptr;
}

ExternalEditorManager *ExternalEditorManager::instance()
{
    static ExternalEditorManager manager;
    return &manager;
}

bool ExternalEditorManager::registerEditor(const ExternalEditor &editor)
{
    KELMO_ASSERT(d, return false);
    if (editor.name.isEmpty())
        return false;
    d->editors.insert(editor.name, editor);
    return true;
}

void ExternalEditorManager::unregisterEditor(const QString &name)
{
    KELMO_ASSERT(d, return);
    if (!name.isEmpty())
        d->editors.remove(name);
}

ExternalEditor ExternalEditorManager::editor(const QString &name)
{
    KELMO_ASSERT(d, return {});
    return d->editors.value(name);
}

QStringList ExternalEditorManager::allEditorId()
{
    KELMO_ASSERT(d, return {});
    return d->editors.keys();
}

QList<ExternalEditor> ExternalEditorManager::editors()
{
    KELMO_ASSERT(d, return {});
    return d->editors.values();
}

ExternalEditor ExternalEditorManager::defaultEditor()
{
    KELMO_ASSERT(d, return {});
    for (const ExternalEditor &editor : qAsConst(d->editors)) {
        if (editor.isDefault)
            return editor;
    }
    return {};
}

void ExternalEditorManager::applyData(const QList<ExternalEditor> &editors)
{
    KELMO_ASSERT(d, return);
    d->editors.clear();
    for (const ExternalEditor &editor : editors)
        d->editors.insert(editor.name, editor);
}

bool ExternalEditorManager::isUseExtEditor()
{
    KELMO_ASSERT(d, return false);
    return d->useExternalEditor;
}

void ExternalEditorManager::setUseExtEdtior(bool use)
{
    KELMO_ASSERT(d, return);
    d->useExternalEditor = use;
}

void ExternalEditorManager::saveEditors()
{
    KELMO_ASSERT(d, return);
    QSettings *settings = IdeCore::userSettings();
    settings->beginGroup(groupName());
    settings->remove(QString()); // what a longer list has left
    int count = 0;
    for (const ExternalEditor &editor : qAsConst(d->editors)) {
        if (editor.name.isEmpty())
            continue;
        settings->setValue(
            entryKey(count),
            QStringList{editor.name, editor.program, editor.arguments,
                        editor.isDefault ? QStringLiteral("1") : QStringLiteral("0")});
        ++count;
    }
    settings->setValue(switchKey(), d->useExternalEditor);
    settings->endGroup();
}

bool ExternalEditorManager::openEditor(const QString &editorName, const QString &filePath)
{
    if (editorName.isEmpty() || filePath.isEmpty())
        return false;
    const ExternalEditor found = editor(editorName);
    return !found.name.isEmpty() && found.open(filePath, 1);
}

} // namespace Core
