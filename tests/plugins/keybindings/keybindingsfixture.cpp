// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "keybindingsfixture.h"

#include <extsys/iplugin.h>
#include <extsys/pluginmanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/interfaces/ioptionspage.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

using Core::ActionManager;
using Core::IAction;

namespace {

QString settingOf(const QString &id)
{
    return QStringLiteral("KeyBindings/") + id;
}

template<class Widget>
Widget *named(QWidget *parent, const char *name)
{
    auto *widget = parent->findChild<Widget *>(QLatin1String(name));
    if (!widget)
        qFatal("the page has no %s", name);
    return widget;
}

} // namespace

Keys keys(std::initializer_list<const char *> texts)
{
    Keys keys;
    for (const char *text : texts)
        keys.append(QKeySequence::fromString(QLatin1String(text), QKeySequence::PortableText));
    return keys;
}

KeyBindingsFixture::KeyBindingsFixture(CoreFixture::Settings settings)
    : core(settings)
    , m_loader(QStringLiteral(KEYBINDINGS_PLUGIN))
{
    m_plugin = qobject_cast<ExtSys::IPlugin *>(m_loader.instance());
    if (!m_plugin)
        qFatal("the plugin cannot be loaded: %s", qPrintable(m_loader.errorString()));
}

KeyBindingsFixture::~KeyBindingsFixture()
{
    if (page())
        stop();
}

void KeyBindingsFixture::start()
{
    if (!m_plugin->initialize())
        qFatal("the plugin did not start");
    m_plugin->extensionsInitialized();
}

void KeyBindingsFixture::stop()
{
    m_plugin->shutDown();
}

Core::IOptionsPage *KeyBindingsFixture::page()
{
    const QList<Core::IOptionsPage *> pages =
        ExtSys::PluginManager::instance()->getObjects<Core::IOptionsPage>();
    for (Core::IOptionsPage *page : pages) {
        if (page->id() == QLatin1String("K.KeyBindings"))
            return page;
    }
    return nullptr;
}

IAction *KeyBindingsFixture::registerCommand(const QString &id, const Keys &defaults,
                                             const QString &text)
{
    auto *action = new QAction(text);
    action->setShortcuts(defaults);
    return ActionManager::registerAction(action, id);
}

IAction *KeyBindingsFixture::command(const QString &id)
{
    return ActionManager::action(id);
}

QVariant KeyBindingsFixture::stored(const QString &id)
{
    return CoreFixture::storedSetting(settingOf(id));
}

void KeyBindingsFixture::store(const QString &id, const QVariant &value)
{
    CoreFixture::storeSetting(settingOf(id), value);
}

PageDialog::PageDialog()
    : page(KeyBindingsFixture::page())
    , widget(page->widget())
    , filter(named<QLineEdit>(widget, "editFilter"))
    , count(named<QLabel>(widget, "labelCount"))
    , tree(named<QTreeView>(widget, "treeCommands"))
    , list(named<QListWidget>(widget, "listKeys"))
    , recorder(named<QLineEdit>(widget, "editKey"))
    , message(named<QLabel>(widget, "labelMessage"))
    , addButton(named<QPushButton>(widget, "btnAdd"))
    , removeButton(named<QPushButton>(widget, "btnRemove"))
    , resetButton(named<QPushButton>(widget, "btnReset"))
    , resetAllButton(named<QPushButton>(widget, "btnResetAll"))
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(widget);
    // As the Options dialog has them.
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(800, 450);
    show();
    activateWindow();
    if (!QTest::qWaitForWindowActive(this))
        qFatal("the dialog did not become active");
}

PageDialog::~PageDialog()
{
    page->finish();
}

bool PageDialog::choose(const QString &id) const
{
    const QModelIndex index = find(id);
    tree->setCurrentIndex(index);
    return index.isValid();
}

QString PageDialog::cell(const QString &id, int column, int role) const
{
    const QModelIndex index = find(id);
    return index.isValid() ? index.sibling(index.row(), column).data(role).toString()
                           : QStringLiteral("<not shown>");
}

QStringList PageDialog::rows() const
{
    QStringList rows;
    const QAbstractItemModel *model = tree->model();
    for (int place = 0; place < model->rowCount(); ++place) {
        const QModelIndex parent = model->index(place, 0);
        rows.append(parent.data().toString());
        for (int row = 0; row < model->rowCount(parent); ++row)
            rows.append(QStringLiteral("  ") + model->index(row, 2, parent).data().toString());
    }
    return rows;
}

QStringList PageDialog::keyList() const
{
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts.append(list->item(row)->text());
    return texts;
}

void PageDialog::record(const QKeySequence &key) const
{
    recorder->setFocus();
    for (int stroke = 0; stroke < key.count(); ++stroke) {
        // Through the window, so that shortcuts may take it as for a real key.
        const int modifiers = key[stroke] & int(Qt::KeyboardModifierMask);
        QTest::keyClick(windowHandle(), static_cast<Qt::Key>(key[stroke] & ~modifiers),
                        Qt::KeyboardModifiers(modifiers));
    }
}

void PageDialog::add(const QKeySequence &key) const
{
    record(key);
    QTest::mouseClick(addButton, Qt::LeftButton);
}

void PageDialog::apply() const
{
    page->apply();
}

QModelIndex PageDialog::find(const QString &id) const
{
    const QAbstractItemModel *model = tree->model();
    for (int place = 0; place < model->rowCount(); ++place) {
        const QModelIndex parent = model->index(place, 0);
        for (int row = 0; row < model->rowCount(parent); ++row) {
            if (model->index(row, 2, parent).data().toString() == id)
                return model->index(row, 0, parent);
        }
    }
    return QModelIndex();
}
