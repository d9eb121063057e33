// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Any bytes as MIME definitions, and look-ups in what became of them.

#include <idecore/mimedatabase/mimedatabase.h>

#include <QBuffer>
#include <QByteArray>
#include <QFileInfo>
#include <QString>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray xml(reinterpret_cast<const char *>(data), int(size));
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    Core::MimeDatabase database;
    QString message;
    const bool ok = database.addMimeTypes(&buffer, &message);
    // A success has no message.
    if (ok && !message.isEmpty())
        std::abort();
    for (const char *name : {"top.v", "README", "archive.tar.gz", ""})
        (void)database.findByFile(QFileInfo(QString::fromLatin1(name)));
    (void)database.findByFile(QFileInfo(QStringLiteral("/etc/hostname")));
    (void)database.filterForFileDialog(true);
    return 0;
}
