// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/launchrecorder.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <algorithm>

namespace {

constexpr char FOLDER_VARIABLE[] = "KELMO_RECORDER_DIR";
constexpr int PATIENCE_MS = 20000;

} // namespace

LaunchRecorder::LaunchRecorder()
{
    qputenv(FOLDER_VARIABLE, QFile::encodeName(m_folder.path()));
}

LaunchRecorder::~LaunchRecorder()
{
    qunsetenv(FOLDER_VARIABLE);
}

QString LaunchRecorder::program()
{
    return QStringLiteral(RECORDER_PROGRAM);
}

QList<LaunchRecorder::Launch> LaunchRecorder::launches() const
{
    QList<Launch> found;
    const QDir folder(m_folder.path());
    const QStringList records = folder.entryList({QStringLiteral("*.launch")}, QDir::Files);
    for (const QString &record : records) {
        QFile file(folder.filePath(record));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QList<QByteArray> parts = file.readAll().split('\0');
        parts.removeLast(); // behind the last null
        Launch launch;
        for (const QByteArray &part : qAsConst(parts))
            launch.arguments.append(QFile::decodeName(part));
        launch.folder = launch.arguments.takeFirst();
        found.append(launch);
    }
    std::sort(found.begin(), found.end(), [](const Launch &left, const Launch &right) {
        return left.arguments < right.arguments;
    });
    return found;
}

QList<LaunchRecorder::Launch> LaunchRecorder::wait(int count) const
{
    if (!QTest::qWaitFor([&] { return launches().size() >= count; }, PATIENCE_MS))
        QTest::qFail("the program was not started", __FILE__, __LINE__);
    const QList<Launch> found = launches();
    if (found.size() > count)
        QTest::qFail("the program was started too often", __FILE__, __LINE__);
    return found;
}

bool LaunchRecorder::nothingWasStarted() const
{
    // Whatever was started before it is likely to have written by then.
    const bool started = QProcess::startDetached(program(), {QStringLiteral("last")});
    return started && QTest::qWaitFor([&] { return !launches().isEmpty(); }, PATIENCE_MS)
           && launches().size() == 1
           && launches().constFirst().arguments == QStringList(QStringLiteral("last"));
}
