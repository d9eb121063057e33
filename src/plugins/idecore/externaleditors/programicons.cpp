// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/programicons_p.h>

#include <QElapsedTimer>
#include <QFileInfo>

namespace Core {

namespace {

/// More than a person has editors.
constexpr int AT_ONCE = 32;
/// Longer than from one step of the wheel to the next.
constexpr int PAUSE_MS = 150;
/// A part of a frame.
constexpr int SLICE_MS = 4;

} // namespace

ProgramIcons::ProgramIcons(QObject *parent)
    : QObject(parent)
    , m_general(QStringLiteral(":/core/image/exteditor.png"))
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &ProgramIcons::lookUpSome);
}

QIcon ProgramIcons::icon(const QString &program)
{
    const auto known = m_icons.constFind(program);
    if (known != m_icons.constEnd())
        return *known;
    if (m_icons.size() < AT_ONCE)
        return *m_icons.insert(program, lookUp(program));
    m_waiting.append(program);
    m_pause.start(PAUSE_MS);
    return *m_icons.insert(program, m_general);
}

QIcon ProgramIcons::lookUp(const QString &program)
{
    const QFileInfo file(program);
    return file.isFile() ? m_provider.icon(file) : m_general;
}

void ProgramIcons::lookUpSome()
{
    QElapsedTimer timer;
    timer.start();
    bool changed = false;
    while (!m_waiting.isEmpty() && timer.elapsed() < SLICE_MS) {
        const QString program = m_waiting.takeLast();
        const QFileInfo file(program);
        if (!file.isFile())
            continue;
        m_icons.insert(program, m_provider.icon(file));
        changed = true;
    }
    if (!m_waiting.isEmpty())
        m_pause.start(0);
    if (changed)
        Q_EMIT found();
}

} // namespace Core
