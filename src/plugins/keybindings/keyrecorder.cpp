// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/keyrecorder_p.h>

#include <keybindings/keyrules_p.h>

#include <QKeyEvent>

#include <array>

namespace KeyBindings {

namespace {

constexpr int MostStrokes = 4;

/// What is pressed on the way to a stroke, or means none.
bool isNoStroke(int key)
{
    return key == 0 || key == Qt::Key_unknown || (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock)
           || key == Qt::Key_Super_L || key == Qt::Key_Super_R || key == Qt::Key_Hyper_L
           || key == Qt::Key_Hyper_R || key == Qt::Key_AltGr || key == Qt::Key_Multi_key
           || key == Qt::Key_Mode_switch
           || (key >= Qt::Key_Dead_Grave && key <= Qt::Key_Dead_Longsolidusoverlay);
}

int strokeOf(const QKeyEvent *event)
{
    const int key = event->key();
    // The number pad and the row of another layout are no keys of their own.
    int modifiers = static_cast<int>(event->modifiers())
                    & ~(int(Qt::KeypadModifier) | int(Qt::GroupSwitchModifier));
    // A sign that needs Shift on this keyboard is written without it.
    const bool sign = key > Qt::Key_Space && key < Qt::Key_Escape && !QChar(key).isLetterOrNumber();
    if (sign)
        modifiers &= ~int(Qt::SHIFT);
    return key | modifiers;
}

QKeySequence sequence(const std::array<int, MostStrokes> &strokes)
{
    return QKeySequence(strokes[0], strokes[1], strokes[2], strokes[3]);
}

} // namespace

KeyRecorder::KeyRecorder(QWidget *parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    // Keys are wanted, not what they would write.
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setPlaceholderText(tr("Press the keys"));
    setMinimumWidth(minimumSizeHint().width() + fontMetrics().horizontalAdvance(placeholderText()));
}

KeyRecorder::~KeyRecorder() = default;

void KeyRecorder::setKey(const QKeySequence &key)
{
    if (key == m_key)
        return;
    m_key = key;
    setText(key.toString(QKeySequence::NativeText));
    Q_EMIT keyChanged();
}

bool KeyRecorder::event(QEvent *event)
{
    // Before a shortcut of the dialog or of the program gets it.
    if (event->type() == QEvent::ShortcutOverride && takes(static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void KeyRecorder::keyPressEvent(QKeyEvent *event)
{
    if (!takes(event)) {
        event->ignore();
        return;
    }
    event->accept();
    const int stroke = strokeOf(event);
    if (isNoStroke(event->key()) || event->isAutoRepeat())
        return;
    if (!m_key.isEmpty() && (stroke == Qt::Key_Return || stroke == Qt::Key_Enter)) {
        Q_EMIT finished();
    } else if (!m_key.isEmpty() && stroke == Qt::Key_Escape) {
        setKey(QKeySequence());
    } else if (!m_key.isEmpty() && stroke == Qt::Key_Backspace) {
        std::array<int, MostStrokes> strokes{};
        for (int i = 0; i + 1 < m_key.count(); ++i)
            strokes[i] = m_key[i];
        setKey(sequence(strokes));
    } else {
        record(stroke);
    }
}

bool KeyRecorder::takes(const QKeyEvent *event) const
{
    switch (event->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Backspace:
        return !m_key.isEmpty()
               || (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0;
    default:
        return true;
    }
}

void KeyRecorder::record(int stroke)
{
    std::array<int, MostStrokes> strokes{};
    const int count = m_key.count() < MostStrokes ? m_key.count() : 0;
    for (int i = 0; i < count; ++i)
        strokes[i] = m_key[i];
    strokes[count] = stroke;
    const QKeySequence key = sequence(strokes);
    if (!KeyRules::whyReserved(key).isEmpty()) {
        setKey(QKeySequence());
        Q_EMIT refused(key);
    } else {
        setKey(key);
    }
}

} // namespace KeyBindings
