// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/textfile_p.h>

#include <utils/systemreason.h>

#include <QFile>
#include <QLocale>
#include <QTextCodec>

#include <algorithm>
#include <array>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace TextEditor {

namespace {

/// A descriptor that is closed with its owner.
class Descriptor
{
public:
    explicit Descriptor(int fd)
        : m_fd(fd)
    {
    }
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Q_DISABLE_COPY(Descriptor)
    [[nodiscard]] int get() const { return m_fd; }

private:
    int m_fd;
};

QString kindOf(mode_t mode)
{
    if (S_ISDIR(mode))
        return TextFile::tr("It is a folder.");
    if (S_ISFIFO(mode))
        return TextFile::tr("It is a named pipe, not a file.");
    if (S_ISSOCK(mode))
        return TextFile::tr("It is a socket, not a file.");
    return TextFile::tr("It is a device, not a file.");
}

struct Mark
{
    const char *codec;
    const char *bytes;
    int size;
};

// UTF-32 first: its mark begins with that of UTF-16.
constexpr std::array<Mark, 5> marks{{{"UTF-32LE", "\xff\xfe\0\0", 4},
                                     {"UTF-32BE", "\0\0\xfe\xff", 4},
                                     {"UTF-8", "\xef\xbb\xbf", 3},
                                     {"UTF-16LE", "\xff\xfe", 2},
                                     {"UTF-16BE", "\xfe\xff", 2}}};

/// The byte order that unmarked UTF-16 gives away by the zero bytes of its
/// plain characters; null where it is none.
const char *unmarkedUtf16(const QByteArray &bytes)
{
    const int size = std::min(bytes.size(), 64 * 1024) & ~1;
    if (size < 4 || bytes.size() % 2 != 0)
        return nullptr;
    int even = 0;
    int odd = 0;
    for (int i = 0; i < size; i += 2) {
        even += bytes.at(i) == '\0';
        odd += bytes.at(i + 1) == '\0';
    }
    const int most = size / 2 * 9 / 10;
    if (odd >= most && even == 0)
        return "UTF-16LE";
    if (even >= most && odd == 0)
        return "UTF-16BE";
    return nullptr;
}

} // namespace

std::optional<TextFile> TextFile::read(const QString &fileName, QString *errorString)
{
    const auto fail = [errorString](const QString &reason) {
        if (errorString)
            *errorString = Utils::systemReason(reason);
        return std::nullopt;
    };
    const QByteArray path = QFile::encodeName(fileName);
    struct stat status = {};
    // Looked at before it is opened, because opening a device can act on it, and
    // again afterwards, because it may have been replaced.
    if (::stat(path.constData(), &status) != 0)
        return fail(qt_error_string());
    if (!S_ISREG(status.st_mode))
        return fail(kindOf(status.st_mode));
    const Descriptor fd(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (fd.get() < 0 || ::fstat(fd.get(), &status) != 0)
        return fail(qt_error_string());
    if (!S_ISREG(status.st_mode))
        return fail(kindOf(status.st_mode));
    if (status.st_size > sizeLimit) {
        const QLocale locale;
        return fail(tr("It is too large for the text editor: it has %1, and %2 is the limit.")
                        .arg(locale.formattedDataSize(status.st_size),
                             locale.formattedDataSize(sizeLimit)));
    }
    QFile file;
    if (!file.open(fd.get(), QIODevice::ReadOnly))
        return fail(file.errorString());
    const QByteArray bytes = file.read(sizeLimit);
    if (file.error() != QFileDevice::NoError)
        return fail(file.errorString());

    TextFile result;
    result.disk = DiskState(status, DiskState::digestOf(bytes));
    result.decode(bytes);
    return result;
}

void TextFile::decode(const QByteArray &bytes)
{
    for (const Mark &mark : marks) {
        if (std::memcmp(bytes.constData(), mark.bytes,
                        static_cast<std::size_t>(std::min(bytes.size(), mark.size)))
                != 0
            || bytes.size() < mark.size)
            continue;
        if (decodeAs(mark.codec, bytes.mid(mark.size)) && !text.contains(QChar(0))) {
            byteOrderMark = bytes.left(mark.size);
            return;
        }
    }
    if (const char *const codecName = unmarkedUtf16(bytes)) {
        if (decodeAs(codecName, bytes))
            return;
    }
    binary = bytes.contains('\0');
    if (!binary && decodeAs("UTF-8", bytes))
        return;
    // The characters that Windows put where Latin-1 has control codes.
    const bool windows = std::any_of(bytes.begin(), bytes.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 && byte < 0xa0;
    });
    if (!binary && windows && decodeAs("windows-1252", bytes))
        return;
    decodeAs("ISO-8859-1", bytes);
}

bool TextFile::decodeAs(const char *name, const QByteArray &bytes)
{
    QTextCodec *const found = QTextCodec::codecForName(name);
    if (!found)
        return false;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    text = found->toUnicode(bytes.constData(), bytes.size(), &state);
    codec = name;
    if (state.invalidChars != 0 || state.remainingChars != 0)
        return false;
    // Only an encoding that leads back to the same bytes may be written with.
    QTextCodec::ConverterState back(QTextCodec::IgnoreHeader);
    return found->fromUnicode(text.constData(), text.size(), &back) == bytes;
}

} // namespace TextEditor
