// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_FOLDERWATCHER_P_H
#define FPGAPROJECT_PANEL_FOLDERWATCHER_P_H

#include <fpgaproject/fpgaproject_export.h>

#include <QHash>
#include <QMultiHash>
#include <QObject>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

class QSocketNotifier;

namespace Fpga {

/// Tells of files that appear, change and vanish in folders, by their names; also
/// in folders that are not there yet, or no longer.
///
/// One watch for a folder, not one for a file, of which there may be ten thousand.
class FPGAPROJECT_EXPORT FolderWatcher final : public QObject
{
    Q_OBJECT
public:
    explicit FolderWatcher(QObject *parent = nullptr);
    ~FolderWatcher() override;

    /// Watches @p folders (absolute paths) and nothing else.
    void setFolders(const QStringList &folders);

Q_SIGNALS:
    /// The file may be there now, be gone, or hold something else.
    void fileTouched(const QString &folder, const QString &name);
    /// All files of the folder may be others now.
    void folderTouched(const QString &folder);

private:
    /// A folder that is watched, or that a watched one lies in.
    struct Node
    {
        bool wanted = false;
        /// Names that lead to watched folders.
        QSet<QString> children;
        int watch = -1;
        /// It is there, but the system will not watch it.
        bool refused = false;
    };

    void add(const QString &folder);
    void watchAll();
    void watch(const QString &folder, Node *node);
    /// True when nothing would tell that @p folder comes back.
    [[nodiscard]] bool isUnseen(const QString &folder) const;
    void dropWatches();
    void readEvents();
    void handle(int watch, unsigned mask, const QString &name);
    void handleAt(const QString &folder, unsigned mask, const QString &name);
    /// Every watched folder at or below @p folder is another one now.
    void lose(const QString &folder);
    void tell();
    void poll();

    int m_descriptor = -1;
    QSocketNotifier *m_notifier = nullptr;
    QHash<QString, Node> m_nodes;
    /// One folder may have several paths.
    QMultiHash<int, QString> m_paths;
    /// Those that are looked at now and then, because nobody tells of them.
    QSet<QString> m_polled;
    QTimer m_delay;
    QTimer m_poll;
    QSet<QPair<QString, QString>> m_files;
    QSet<QString> m_folders;
    bool m_lost = false;
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_FOLDERWATCHER_P_H
