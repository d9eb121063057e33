// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_KEYBINDINGS_KEYBINDINGSFIXTURE_H
#define TESTS_PLUGINS_KEYBINDINGS_KEYBINDINGSFIXTURE_H

#include "support/corefixture.h"

#include <QDialog>
#include <QKeySequence>
#include <QList>
#include <QPluginLoader>
#include <QStringList>
#include <QVariant>

#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeView;

namespace Core {
class IAction;
class IOptionsPage;
} // namespace Core

namespace ExtSys {
class IPlugin;
}

using Keys = QList<QKeySequence>;

/// Keys from portable texts, one each.
Keys keys(std::initializer_list<const char *> texts);

/// The workbench with the plugin in it, as the host would start them.
class KeyBindingsFixture final
{
public:
    /// The plugin is not yet started, so that what other plugins do before it can
    /// be done.
    explicit KeyBindingsFixture(CoreFixture::Settings settings = CoreFixture::Settings::Keep);
    ~KeyBindingsFixture();
    KeyBindingsFixture(const KeyBindingsFixture &) = delete;
    KeyBindingsFixture &operator=(const KeyBindingsFixture &) = delete;

    void start();
    /// Ends the plugin, not the core.
    void stop();
    /// The one page of the plugin in the pool; null without it.
    [[nodiscard]] static Core::IOptionsPage *page();

    /// Registers a command as its author would.
    static Core::IAction *registerCommand(const QString &id, const Keys &defaults = {},
                                          const QString &text = QStringLiteral("Command"));
    static Core::IAction *command(const QString &id);

    /// The settings of the user's keys, as another program would see them.
    static QVariant stored(const QString &id);
    static void store(const QString &id, const QVariant &value);

    CoreFixture core;

private:
    QPluginLoader m_loader;
    ExtSys::IPlugin *m_plugin = nullptr;
};

/// The page in a dialog, with what is in it by name.
class PageDialog final : public QDialog
{
    Q_OBJECT
public:
    PageDialog();
    ~PageDialog() override;

    /// Makes a command the current one of the list; false when it is not shown.
    [[nodiscard]] bool choose(const QString &id) const;
    /// What the row of a command shows in @p column; "<not shown>" when it is not.
    [[nodiscard]] QString cell(const QString &id, int column, int role = Qt::DisplayRole) const;
    /// Everything that is shown: places, and ids with two blanks in front.
    [[nodiscard]] QStringList rows() const;
    /// The keys of the chosen command as the lower part lists them.
    [[nodiscard]] QStringList keyList() const;
    /// Presses a key, of several strokes also, in the field that records.
    void record(const QKeySequence &key) const;
    /// The same, and adds it.
    void add(const QKeySequence &key) const;
    void apply() const;

    Core::IOptionsPage *const page;
    QWidget *const widget;
    QLineEdit *const filter;
    QLabel *const count;
    QTreeView *const tree;
    QListWidget *const list;
    QLineEdit *const recorder;
    QLabel *const message;
    QPushButton *const addButton;
    QPushButton *const removeButton;
    QPushButton *const resetButton;
    QPushButton *const resetAllButton;

private:
    [[nodiscard]] QModelIndex find(const QString &id) const;
};

#endif // TESTS_PLUGINS_KEYBINDINGS_KEYBINDINGSFIXTURE_H
