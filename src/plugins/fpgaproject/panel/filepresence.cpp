// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/filepresence_p.h>

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace Fpga {

namespace {

// Below this asking one by one is faster than listing a folder of unknown size.
constexpr int WORTH_LISTING = 32;

bool isFile(int folder, const char *name)
{
    struct stat status = {};
    return fstatat(folder, name, &status, 0) == 0 && !S_ISDIR(status.st_mode);
}

} // namespace

FilePresence::FilePresence(const QString &folder, int asked)
    : m_folder(QFile::encodeName(folder).append('/'))
{
    if (asked >= WORTH_LISTING) {
        m_listed = list();
    }
}

bool FilePresence::list()
{
    struct Closer
    {
        void operator()(DIR *directory) const { closedir(directory); }
    };
    const std::unique_ptr<DIR, Closer> directory(opendir(m_folder.constData()));
    if (!directory)
        return false;
    std::vector<std::size_t> ends;
    while (const dirent *entry = readdir(directory.get())) {
        // What a link leads to is only known when it is followed.
        const bool sure = entry->d_type != DT_LNK && entry->d_type != DT_UNKNOWN;
        if (sure ? entry->d_type != DT_DIR : isFile(dirfd(directory.get()), entry->d_name))
            m_text.insert(m_text.end(), entry->d_name, entry->d_name + qstrlen(entry->d_name));
        if (ends.empty() ? !m_text.empty() : m_text.size() > ends.back())
            ends.push_back(m_text.size());
    }
    // Only now, because the text has moved while it grew.
    m_names.reserve(ends.size());
    std::size_t start = 0;
    for (const std::size_t end : ends) {
        m_names.insert(std::string_view(m_text.data() + start, end - start));
        start = end;
    }
    return true;
}

bool FilePresence::contains(const QString &name) const
{
    const QByteArray encoded = QFile::encodeName(name);
    return m_listed ? m_names.count({encoded.constData(), std::size_t(encoded.size())}) > 0
                    : isFile(AT_FDCWD, QByteArray(m_folder + encoded).constData());
}

} // namespace Fpga
