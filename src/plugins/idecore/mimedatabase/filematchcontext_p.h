// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_FILEMATCHCONTEXT_P_H
#define IDECORE_MIMEDATABASE_FILEMATCHCONTEXT_P_H

#include <idecore/idecore_export.h>

#include <QByteArray>
#include <QFileInfo>
#include <QString>

namespace Core {
namespace Internal {

/// What one query knows about its file; the file is looked at no sooner than
/// its content is wanted, and read once.
class IDECORE_EXPORT FileMatchContext final
{
public:
    static constexpr int MaxData = 2048;

    enum class State {
        /// A regular, readable file that is not empty.
        DataNotRead,
        DataRead,
        NoDataAvailable
    };

    explicit FileMatchContext(const QFileInfo &fileInfo);

    /// Without the directory.
    [[nodiscard]] const QString &fileName() const { return m_fileName; }
    [[nodiscard]] State state();
    /// At most the first MaxData bytes; empty where there is nothing to read.
    [[nodiscard]] const QByteArray &data();

private:
    Q_DISABLE_COPY(FileMatchContext)

    const QFileInfo m_fileInfo;
    const QString m_fileName;
    QByteArray m_data;
    State m_state = State::NoDataAvailable;
    // Until it is, a look-up by name costs no call of the system.
    bool m_stateKnown = false;
};

} // namespace Internal
} // namespace Core

#endif // IDECORE_MIMEDATABASE_FILEMATCHCONTEXT_P_H
