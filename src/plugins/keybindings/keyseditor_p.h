// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_KEYSEDITOR_P_H
#define KEYBINDINGS_KEYSEDITOR_P_H

#include <keybindings/fixedkeys_p.h>

#include <QGroupBox>

#include <vector>

class QLabel;
class QListWidget;
class QPixmap;
class QPushButton;

namespace KeyBindings {

class CommandModel;
class KeyRecorder;
struct Command;

/// Changes the keys that one command of a model shall have, and says beforehand
/// what stands against a key.
class KeysEditor final : public QGroupBox
{
    Q_OBJECT
public:
    /// @p model outlives it.
    explicit KeysEditor(CommandModel *model, QWidget *parent = nullptr);
    ~KeysEditor() override;

    /// Shows the keys of command @p id, read anew; none when it is not in the
    /// model. What was recorded for another command is dropped.
    void setCommand(const QString &id);
    /// @p sign stands in front of warnings.
    void setSign(const QPixmap &sign);
    /// Moves the focus to where a key is recorded, if there is a command.
    void record();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

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

    /// Null without a current command.
    [[nodiscard]] const Command *current() const;
    void showCurrent();
    void onKeyRecorded();
    void onKeyRefused(const QKeySequence &key);
    void updateButtons();
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
    /// cancelled. None of the arguments may lie in the model, whose list may be
    /// filled anew while the user is asked.
    bool give(const QString &id, const Keys &keys, const Keys &fresh);
    [[nodiscard]] Choice ask(const QKeySequence &key, const QString &holders);

    CommandModel *const m_model;
    const FixedKeys m_fixed;
    QListWidget *m_keys;
    QPushButton *m_remove;
    QPushButton *m_reset;
    KeyRecorder *m_recorder;
    QPushButton *m_add;
    QPushButton *m_resetAll;
    QLabel *m_sign;
    QLabel *m_message;
    /// Empty without a current command.
    QString m_id;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_KEYSEDITOR_P_H
