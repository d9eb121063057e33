// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_KEYBINDINGSWIDGET_P_H
#define KEYBINDINGS_KEYBINDINGSWIDGET_P_H

#include <keybindings/fixedkeys_p.h>

#include <QWidget>

#include <vector>

class QBoxLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTimer;
class QTreeView;

namespace KeyBindings {

class CommandModel;
class KeyRecorder;
class UserKeys;
struct Command;

/// The list of all commands with their keys, and below it what changes the keys
/// of the current one. Nothing holds until apply().
class KeyBindingsWidget final : public QWidget
{
    Q_OBJECT
public:
    explicit KeyBindingsWidget(UserKeys *userKeys, QWidget *parent = nullptr);
    ~KeyBindingsWidget() override;

    /// Stores what was changed and gives it to the commands.
    void apply();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// What stands against giving a key to the current command.
    struct Obstacle
    {
        /// Why it cannot be; empty when it can.
        QString refusal;
        /// Other commands that have it.
        std::vector<const Command *> holders;
    };
    enum class Choice { Reassign, Share, Cancel };

    void createList(QBoxLayout *layout);
    void createEditor(QBoxLayout *layout);
    void fillList();
    void setFilter(const QString &text);
    void showList();
    void select(const QString &id);
    [[nodiscard]] QString firstShown() const;
    /// Null without a current command.
    [[nodiscard]] const Command *current() const;

    void onCurrentChanged();
    void onKeyRecorded();
    void onKeyRefused(const QKeySequence &key);
    void showCurrent();
    void updateButtons();
    void updateIcons();
    void say(const QString &text, bool warning);
    void sayClashes(const Command &command);
    [[nodiscard]] static QString namesOf(const std::vector<const Command *> &commands);

    [[nodiscard]] Obstacle obstacleTo(const QKeySequence &key) const;
    void addRecorded();
    void removeSelected();
    void resetCurrent();
    void resetAll();
    /// Gives @p keys to command @p id, after the user has said what is to become
    /// of the other commands with @p fresh ones of them. False when that was
    /// cancelled.
    bool give(const QString &id, const Keys &keys, const Keys &fresh);
    [[nodiscard]] Choice ask(const QKeySequence &key, const QString &holders);

    UserKeys *const m_userKeys;
    const FixedKeys m_fixed;
    CommandModel *m_model;
    QLineEdit *m_filter;
    QLabel *m_count;
    QTreeView *m_list;
    QGroupBox *m_editor;
    QListWidget *m_keys;
    QPushButton *m_remove;
    QPushButton *m_reset;
    KeyRecorder *m_recorder;
    QPushButton *m_add;
    QLabel *m_sign;
    QLabel *m_message;
    QPushButton *m_resetAll;
    QTimer *m_refresh;
    /// The command chosen last; stays while the filter hides it.
    QString m_current;
    /// The one that the lower part is about; empty without any.
    QString m_shown;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_KEYBINDINGSWIDGET_P_H
