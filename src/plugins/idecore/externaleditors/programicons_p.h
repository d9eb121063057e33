// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_PROGRAMICONS_P_H
#define IDECORE_EXTERNALEDITORS_PROGRAMICONS_P_H

#include <QFileIconProvider>
#include <QHash>
#include <QIcon>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace Core {

/// The icons that the desktop has for programs; each program is looked up once.
///
/// The disk is read for the first few at once and for all others later, while nobody
/// asks for more: a long table scrolls at the pace of memory.
class ProgramIcons final : public QObject
{
    Q_OBJECT
public:
    explicit ProgramIcons(QObject *parent = nullptr);

    /// The icon of the file @p program; a general one when there is no such file, and
    /// as long as nothing is known about it.
    [[nodiscard]] QIcon icon(const QString &program);

Q_SIGNALS:
    /// icon() has other answers than before.
    void found();

private:
    QIcon lookUp(const QString &program);
    void lookUpSome();

    const QFileIconProvider m_provider;
    const QIcon m_general;
    QHash<QString, QIcon> m_icons;
    /// The one asked for last, most likely visible, is the last.
    QStringList m_waiting;
    QTimer m_pause;
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_PROGRAMICONS_P_H
