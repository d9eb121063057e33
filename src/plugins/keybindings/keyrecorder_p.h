// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_KEYRECORDER_P_H
#define KEYBINDINGS_KEYRECORDER_P_H

#include <QKeySequence>
#include <QLineEdit>

namespace KeyBindings {

/// A field that takes the keys pressed in it as a key for a command: each press
/// is one more stroke, and a fifth begins anew.
///
/// Nobody is caught in it: Tab leaves it as it leaves any field. Backspace takes
/// the last stroke back, Escape all of them, and Return is done; with nothing
/// recorded they are the dialog's.
class KeyRecorder final : public QLineEdit
{
    Q_OBJECT
public:
    explicit KeyRecorder(QWidget *parent = nullptr);
    ~KeyRecorder() override;

    [[nodiscard]] QKeySequence key() const { return m_key; }
    void setKey(const QKeySequence &key);

Q_SIGNALS:
    /// key() is another one now.
    void keyChanged();
    /// A first stroke that no command may have was pressed, and not taken.
    void refused(const QKeySequence &key);
    /// Return was pressed on a recorded key.
    void finished();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// True when the press is for this field and not for the dialog.
    [[nodiscard]] bool takes(const QKeyEvent *event) const;
    void record(int stroke);

    QKeySequence m_key;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_KEYRECORDER_P_H
