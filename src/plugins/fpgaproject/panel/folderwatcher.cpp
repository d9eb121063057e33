// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/folderwatcher_p.h>

#include <QDir>
#include <QFile>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstddef>
#include <sys/inotify.h>
#include <unistd.h>

namespace Fpga {

namespace {

// A program that writes a file in pieces is told of once.
constexpr int DELAY_MS = 100;
constexpr int POLL_MS = 500;
constexpr unsigned OF_FOLDERS = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF
                                | IN_MOVE_SELF | IN_ONLYDIR;
constexpr unsigned OF_FILES = OF_FOLDERS | IN_CLOSE_WRITE | IN_MODIFY | IN_ATTRIB;

QString parentOf(const QString &folder)
{
    const int slash = folder.lastIndexOf(QLatin1Char('/'));
    return slash <= 0 ? QStringLiteral("/") : folder.left(slash);
}

} // namespace

FolderWatcher::FolderWatcher(QObject *parent)
    : QObject(parent)
    , m_descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    , m_delay(this)
    , m_poll(this)
{
    if (m_descriptor >= 0) {
        m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &FolderWatcher::readEvents);
    }
    m_delay.setSingleShot(true);
    m_delay.setInterval(DELAY_MS);
    connect(&m_delay, &QTimer::timeout, this, &FolderWatcher::tell);
    m_poll.setInterval(POLL_MS);
    connect(&m_poll, &QTimer::timeout, this, &FolderWatcher::poll);
}

FolderWatcher::~FolderWatcher()
{
    delete m_notifier; // before what it listens to
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void FolderWatcher::setFolders(const QStringList &folders)
{
    dropWatches();
    m_nodes.clear();
    m_polled.clear();
    m_files.clear();
    m_folders.clear();
    m_poll.stop();
    for (const QString &folder : folders)
        add(QDir::cleanPath(folder));
    watchAll();
}

void FolderWatcher::add(const QString &folder)
{
    m_nodes[folder].wanted = true;
    QString child = folder;
    while (child != QLatin1String("/")) {
        const QString parent = parentOf(child);
        Node &node = m_nodes[parent];
        const QString name = child.mid(child.lastIndexOf(QLatin1Char('/')) + 1);
        if (node.children.contains(name))
            break;
        node.children.insert(name);
        child = parent;
    }
}

void FolderWatcher::watchAll()
{
    // From above, so that what appears between is told by the folder it lies in.
    QStringList folders = m_nodes.keys();
    folders.sort();
    for (const QString &folder : qAsConst(folders))
        watch(folder, &m_nodes[folder]);
    m_polled.clear();
    for (auto node = m_nodes.cbegin(); node != m_nodes.cend(); ++node) {
        if (node->wanted && node->watch < 0 && isUnseen(node.key()))
            m_polled.insert(node.key());
    }
    if (m_polled.isEmpty())
        m_poll.stop();
    else if (!m_poll.isActive())
        m_poll.start();
}

bool FolderWatcher::isUnseen(const QString &folder) const
{
    for (QString path = folder;; path = parentOf(path)) {
        if (m_nodes.value(path).refused)
            return true;
        if (path == QLatin1String("/"))
            return false;
    }
}

void FolderWatcher::watch(const QString &folder, Node *node)
{
    const QByteArray path = QFile::encodeName(folder);
    const int watch = m_descriptor < 0 ? -1
                                       : inotify_add_watch(m_descriptor, path.constData(),
                                                           node->wanted ? OF_FILES : OF_FOLDERS);
    node->refused = m_descriptor < 0 || (watch < 0 && errno != ENOENT && errno != ENOTDIR);
    if (watch == node->watch)
        return;
    m_paths.remove(node->watch, folder);
    node->watch = watch;
    if (watch >= 0)
        m_paths.insert(watch, folder);
}

void FolderWatcher::dropWatches()
{
    const QList<int> watches = m_paths.uniqueKeys();
    for (const int watch : watches)
        inotify_rm_watch(m_descriptor, watch);
    m_paths.clear();
}

void FolderWatcher::readEvents()
{
    alignas(inotify_event) std::array<char, 65536> buffer{};
    for (;;) {
        const ssize_t size = ::read(m_descriptor, buffer.data(), buffer.size());
        if (size <= 0)
            break;
        for (ssize_t at = 0; at + ssize_t(sizeof(inotify_event)) <= size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + at);
            handle(event->wd, event->mask,
                   event->len > 0 ? QFile::decodeName(event->name) : QString());
            at += ssize_t(sizeof(inotify_event)) + ssize_t(event->len);
        }
    }
    if ((m_lost || !m_files.isEmpty() || !m_folders.isEmpty()) && !m_delay.isActive())
        m_delay.start();
}

void FolderWatcher::handle(int watch, unsigned mask, const QString &name)
{
    if (mask & IN_Q_OVERFLOW) {
        lose(QStringLiteral("/"));
        return;
    }
    const QStringList folders = m_paths.values(watch);
    for (const QString &folder : folders) {
        if (mask & IN_IGNORED) {
            m_paths.remove(watch, folder);
            m_nodes[folder].watch = -1;
            lose(folder);
        } else {
            handleAt(folder, mask, name);
        }
    }
}

void FolderWatcher::handleAt(const QString &folder, unsigned mask, const QString &name)
{
    const Node &node = m_nodes[folder];
    const bool comesOrGoes = mask & (IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO);
    if (mask & (IN_DELETE_SELF | IN_MOVE_SELF))
        lose(folder);
    else if (comesOrGoes && node.children.contains(name))
        lose(QDir::cleanPath(folder + QLatin1Char('/') + name));
    else if (node.wanted && !name.isEmpty())
        m_files.insert({folder, name});
}

void FolderWatcher::lose(const QString &folder)
{
    m_lost = true;
    const QString below =
        folder.endsWith(QLatin1Char('/')) ? folder : QString(folder + QLatin1Char('/'));
    for (auto it = m_nodes.begin(); it != m_nodes.end(); ++it) {
        if (it->wanted && (it.key() == folder || it.key().startsWith(below)))
            m_folders.insert(it.key());
        // A folder moved away is still watched, under a name it no longer has.
        if (it->watch >= 0 && (it.key() == folder || it.key().startsWith(below))) {
            m_paths.remove(it->watch, it.key());
            if (!m_paths.contains(it->watch))
                inotify_rm_watch(m_descriptor, it->watch);
            it->watch = -1;
        }
    }
}

void FolderWatcher::tell()
{
    if (m_lost) {
        m_lost = false;
        watchAll();
    }
    const QSet<QString> folders = std::move(m_folders);
    const QSet<QPair<QString, QString>> files = std::move(m_files);
    m_folders.clear();
    m_files.clear();
    for (const QString &folder : folders)
        Q_EMIT folderTouched(folder);
    for (const auto &[folder, name] : files) {
        if (!folders.contains(folder))
            Q_EMIT fileTouched(folder, name);
    }
}

void FolderWatcher::poll()
{
    const QSet<QString> folders = m_polled;
    // There may be watches left again by now.
    watchAll();
    for (const QString &folder : folders)
        Q_EMIT folderTouched(folder);
}

} // namespace Fpga
