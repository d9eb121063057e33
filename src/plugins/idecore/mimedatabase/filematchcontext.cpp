// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/filematchcontext_p.h>

#include <QFile>
#include <QtDebug>

namespace Core {
namespace Internal {

FileMatchContext::FileMatchContext(const QFileInfo &fileInfo)
    : m_fileInfo(fileInfo)
    , m_fileName(fileInfo.fileName())
{
}

FileMatchContext::State FileMatchContext::state()
{
    if (!m_stateKnown) {
        m_stateKnown = true;
        if (m_fileInfo.isFile() && m_fileInfo.isReadable() && m_fileInfo.size() > 0)
            m_state = State::DataNotRead;
    }
    return m_state;
}

const QByteArray &FileMatchContext::data()
{
    if (state() != State::DataNotRead)
        return m_data;
    const QString path = m_fileInfo.absoluteFilePath();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        qWarning("%s failed to open %s: %s\n", Q_FUNC_INFO, qUtf8Printable(path),
                 qUtf8Printable(file.errorString()));
        m_state = State::NoDataAvailable;
        return m_data;
    }
    m_data = file.read(MaxData);
    m_state = State::DataRead;
    return m_data;
}

} // namespace Internal
} // namespace Core
