// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/textjournal_p.h>

#include <utils/systemreason.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace TextEditor {

namespace {

/// So many programs at once can have unsaved text of the same file.
constexpr int maximum = 1000;

} // namespace

QString TextJournal::path(const QString &folder, const QString &fileName, int number)
{
    // A digest, because the name of the file may be as long as a name can be.
    const QByteArray name =
        QCryptographicHash::hash(QFile::encodeName(fileName), QCryptographicHash::Sha1).toHex();
    return folder + QLatin1Char('/') + QString::fromLatin1(name) + QLatin1Char('-')
           + QString::number(number);
}

bool TextJournal::lock(int handle)
{
    // A file system without locks has no other program to tell apart.
    return ::flock(handle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

QByteArray TextJournal::signature()
{
    return QByteArrayLiteral("KelmoWare unsaved text 1\n");
}

TextJournal::TextJournal(const QString &folder)
    : m_folder(folder)
{
    m_pending.open(QIODevice::WriteOnly);
    m_stream.setDevice(&m_pending);
    m_stream.setVersion(QDataStream::Qt_5_15);
}

TextJournal::~TextJournal()
{
    if (isActive() && flush())
        close();
}

bool TextJournal::begin(const QString &fileName, const Base &base,
                        const std::function<Line(int)> &line)
{
    discard();
    if (!create(fileName))
        return false;
    m_stream.writeRawData(signature().constData(), signature().size());
    m_stream << base.digest << static_cast<quint8>(base.usualEnding) << qint32(base.lines);
    for (int i = 0; i < base.lines; ++i) {
        const Line entry = line(i);
        m_stream << entry.text << static_cast<quint8>(entry.ending);
        if (m_pending.pos() > qint64(64) * 1024 && !flush())
            return false;
    }
    return flush();
}

bool TextJournal::create(const QString &fileName)
{
    QDir().mkpath(m_folder);
    for (int number = 0; number < maximum; ++number) {
        const QString path = TextJournal::path(m_folder, fileName, number);
        const int handle = ::open(QFile::encodeName(path).constData(),
                                  O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (handle < 0 && errno == EEXIST)
            continue;
        if (handle < 0)
            break;
        // Somebody looking for text left behind may have been quicker.
        if (!lock(handle)) {
            ::close(handle);
            continue;
        }
        m_path = path;
        m_handle = handle;
        return true;
    }
    m_errorString = Utils::systemReason(qt_error_string());
    return false;
}

void TextJournal::insert(int line, int column, const QString &text)
{
    m_stream << static_cast<quint8>(Change::Insert) << qint32(line) << qint32(column) << text;
}

void TextJournal::remove(int line, int column, int length)
{
    m_stream << static_cast<quint8>(Change::Remove) << qint32(line) << qint32(column)
             << qint32(length);
}

void TextJournal::wrap(int line, int column)
{
    m_stream << static_cast<quint8>(Change::Wrap) << qint32(line) << qint32(column);
}

void TextJournal::unwrap(int line)
{
    m_stream << static_cast<quint8>(Change::Unwrap) << qint32(line);
}

bool TextJournal::flush()
{
    if (!isActive() || writePending())
        return true;
    m_errorString = Utils::systemReason(qt_error_string());
    discard();
    return false;
}

bool TextJournal::writePending()
{
    const char *bytes = m_pending.data().constData();
    // A disk that fills up takes a part first; the reason comes with the rest.
    for (qint64 left = m_pending.pos(); left > 0;) {
        const ssize_t taken = ::write(m_handle, bytes, static_cast<std::size_t>(left));
        if (taken <= 0)
            return false;
        bytes += taken;
        left -= taken;
    }
    forgetPending();
    return true;
}

void TextJournal::discard()
{
    if (!isActive())
        return;
    // Gone before it is unlocked, so that nobody finds it.
    ::unlink(QFile::encodeName(m_path).constData());
    close();
}

void TextJournal::close()
{
    ::close(m_handle);
    m_handle = -1;
    forgetPending();
}

void TextJournal::forgetPending()
{
    m_pending.seek(0);
    m_pending.buffer().clear();
}

} // namespace TextEditor
