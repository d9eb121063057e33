// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/keyrules_p.h>

#include <initializer_list>
#include <utility>

namespace KeyBindings {

namespace {

// Four strokes of the longest names are shorter by far.
constexpr int LongestText = 200;

constexpr std::pair<const char *, QChar> Escapes[] = {
    {"%25", QLatin1Char('%')}, {"%2F", QLatin1Char('/')}, {"%5C", QLatin1Char('\\')}};

int keyOf(int stroke)
{
    return stroke & ~int(Qt::KeyboardModifierMask);
}

int modifiersOf(int stroke)
{
    return stroke & int(Qt::KeyboardModifierMask);
}

bool isValid(const QKeySequence &key)
{
    for (int i = 0; i < key.count(); ++i) {
        if (keyOf(key[i]) == 0 || keyOf(key[i]) == Qt::Key_unknown)
            return false;
    }
    return !key.isEmpty();
}

bool movesOrEdits(int key)
{
    switch (key) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Insert:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Menu:
        return true;
    default:
        return false;
    }
}

/// Empty when @p text is no key.
QKeySequence parse(const QString &text)
{
    if (text.size() > LongestText)
        return QKeySequence();
    const QKeySequence key = QKeySequence::fromString(text, QKeySequence::PortableText);
    if (!isValid(key))
        return QKeySequence();
    // A fifth stroke would be dropped without a word.
    const QString again = key.toString(QKeySequence::PortableText);
    return again.count(QLatin1Char(',')) < text.count(QLatin1Char(',')) ? QKeySequence() : key;
}

} // namespace

bool KeyRules::clash(const QKeySequence &one, const QKeySequence &other)
{
    return !one.isEmpty() && !other.isEmpty()
           && (one.matches(other) != QKeySequence::NoMatch
               || other.matches(one) != QKeySequence::NoMatch);
}

QString KeyRules::whyReserved(const QKeySequence &key)
{
    if (key.isEmpty())
        return QString();
    // Only the first stroke is pressed while everything else still works.
    const int pressed = keyOf(key[0]);
    const int modifiers = modifiersOf(key[0]);
    if (pressed == Qt::Key_Tab || pressed == Qt::Key_Backtab)
        return tr("It moves the focus or changes the document.");
    if (modifiers == int(Qt::ALT) && (pressed == Qt::Key_F4 || pressed == Qt::Key_Space))
        return tr("It belongs to the window manager.");
    if ((modifiers & ~int(Qt::SHIFT)) == 0) {
        if (movesOrEdits(pressed))
            return tr("Texts and lists need it.");
        if (pressed < Qt::Key_Escape)
            return tr("It types a character.");
    }
    return QString();
}

QString KeyRules::text(const Keys &keys)
{
    return QKeySequence::listToString(keys, QKeySequence::NativeText);
}

QString KeyRules::withoutMnemonic(const QString &text)
{
    QString plain;
    plain.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        // Languages without the letter add it behind the text: "File(&F)".
        if (text.at(i) == QLatin1Char('(') && i + 3 < text.size()
            && text.at(i + 1) == QLatin1Char('&') && text.at(i + 2) != QLatin1Char('&')
            && text.at(i + 3) == QLatin1Char(')')) {
            i += 3;
            continue;
        }
        if (text.at(i) == QLatin1Char('&') && ++i == text.size())
            break;
        plain += text.at(i);
    }
    return plain.trimmed();
}

QVariant KeyRules::stored(const Keys &keys)
{
    QStringList texts;
    for (const QKeySequence &key : keys)
        texts.append(key.toString(QKeySequence::PortableText));
    // A list of none or one would not come back as what it is.
    if (texts.size() < 2)
        return texts.value(0, QLatin1String(""));
    return texts;
}

Keys KeyRules::read(const QVariant &stored, QStringList *problems)
{
    QStringList texts;
    if (stored.type() == QVariant::String) {
        if (stored.toString().isEmpty())
            return Keys();
        texts.append(stored.toString());
    } else if (stored.type() == QVariant::StringList) {
        texts = stored.toStringList();
    } else {
        problems->append(QStringLiteral("the value is no key"));
        return Keys();
    }
    Keys keys;
    for (const QString &text : qAsConst(texts)) {
        const QKeySequence key = parse(text);
        if (key.isEmpty())
            problems->append(QStringLiteral("\"%1\" is no key").arg(text.left(LongestText)));
        else if (!whyReserved(key).isEmpty())
            problems->append(QStringLiteral("\"%1\" is not for commands").arg(text));
        else if (!keys.contains(key))
            keys.append(key);
    }
    return keys;
}

QString KeyRules::storedId(const QString &id)
{
    QString stored = id;
    for (const auto &[escape, sign] : Escapes)
        stored.replace(sign, QLatin1String(escape));
    return stored;
}

QString KeyRules::readId(const QString &stored)
{
    QString id = stored;
    // The sign that escapes comes last, or what it gives would be read again.
    for (auto it = std::rbegin(Escapes); it != std::rend(Escapes); ++it)
        id.replace(QLatin1String(it->first), QString(it->second), Qt::CaseInsensitive);
    return id;
}

} // namespace KeyBindings
