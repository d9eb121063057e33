// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_MODALDIALOG_H
#define TESTS_SUPPORT_MODALDIALOG_H

#include <QObject>
#include <QString>

#include <functional>

class QTimer;
class QWidget;

/// Meets the modal dialogs that code under test opens.
///
/// Make one before the call that opens the dialog; it waits for the active modal
/// widget, hands it to the test's function (which has to close it), and fails
/// the test when none has come by the time it is destroyed. One dialog each: a
/// second one is for another ModalDialog.
///
///     ModalDialog box(ModalDialog::press(QMessageBox::Ok));
///     manager.openEditor(missing, false);
///     QCOMPARE(box.text(), ...);
class ModalDialog final : public QObject
{
public:
    using Handler = std::function<void(QWidget *)>;

    explicit ModalDialog(Handler handler);
    ~ModalDialog() override;

    /// True once a dialog has come and was handed over.
    [[nodiscard]] bool met() const { return m_met; }
    /// What the met dialog showed: its window title, the parent it was given and,
    /// of a message box, its text and its icon (a QMessageBox::Icon).
    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] QString text() const { return m_text; }
    [[nodiscard]] QWidget *parentOfDialog() const { return m_parent; }
    [[nodiscard]] int icon() const { return m_icon; }

    /// Presses the standard button @p button (a QMessageBox::StandardButton) of
    /// the message box that comes.
    static Handler press(int button);
    /// Presses Escape.
    static Handler cancel();
    /// Runs @p acts, which has to close the dialog, once the focus is in it.
    static Handler onceFocused(const std::function<void()> &acts);

private:
    void look();

    Handler m_handler;
    QTimer *m_timer;
    bool m_met = false;
    QString m_title;
    QString m_text;
    QWidget *m_parent = nullptr;
    int m_icon = -1;
};

#endif // TESTS_SUPPORT_MODALDIALOG_H
