// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pluginreader_p.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QSet>

#include <algorithm>
#include <optional>
#include <utility>

namespace ExtSys {

namespace {

const QLatin1String coreInterface("Core.CorePlugin/1.0");

QString baseName(const QString &filePath)
{
    const QString name = QFileInfo(filePath).completeBaseName();
    return name.startsWith(QLatin1String("lib")) ? name.mid(3) : name;
}

/// The version that @p value writes, "1", "1.2" and so on; absent when it is
/// anything else.
std::optional<QVersionNumber> toVersion(const QJsonValue &value)
{
    // QVersionNumber::fromString() is declared pure, so that compilers may drop
    // what it writes into its second argument, the place where it stopped.
    const QStringList parts = value.toString().split(QLatin1Char('.'));
    QVector<int> segments;
    for (const QString &part : parts) {
        const bool digits = std::all_of(part.cbegin(), part.cend(), [](QChar c) {
            return c >= QLatin1Char('0') && c <= QLatin1Char('9');
        });
        bool good = false;
        segments.append(part.toInt(&good));
        if (!good || !digits)
            return std::nullopt;
    }
    return QVersionNumber(segments);
}

/// Why the Qt that the library was built for is not the one that runs; empty
/// when it fits. The loader gives out the metadata in either case.
QString qtMismatch(const QJsonObject &library)
{
    const int built = library.value(QLatin1String("version")).toInt();
    const int builtMajor = built >> 16;
    const int builtMinor = (built >> 8) & 0xff;
    const QVersionNumber running = QLibraryInfo::version();
    if (builtMajor == running.majorVersion() && builtMinor <= running.minorVersion())
        return {};
    return QStringLiteral("it is built for Qt %1.%2, this is Qt %3")
        .arg(builtMajor)
        .arg(builtMinor)
        .arg(running.toString());
}

} // namespace

QStringList PluginReader::files(const QStringList &folders)
{
    QStringList result;
    QSet<QString> known;
    for (const QString &folder : folders) {
        const QFileInfoList entries =
            QDir(folder).entryInfoList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
        for (const QFileInfo &entry : entries) {
            // As a name filter it would be made a regular expression, at each start.
            if (!entry.fileName().endsWith(QLatin1String(".so"), Qt::CaseInsensitive))
                continue;
            // A link that leads nowhere has no canonical path, and is reported
            // under its own one.
            QString path = entry.canonicalFilePath();
            if (path.isEmpty())
                path = entry.absoluteFilePath();
            if (known.contains(path))
                continue;
            known.insert(path);
            result.append(path);
        }
    }
    return result;
}

std::unique_ptr<PluginSpec> PluginReader::read(const QString &filePath)
{
    std::unique_ptr<PluginSpec> result(new PluginSpec);
    PluginSpec::Private *spec = result->d.get();
    spec->filePath = filePath;
    spec->name = baseName(filePath);

    const QFileInfo file(filePath);
    if (!file.exists()) {
        spec->fail(QStringLiteral("the file does not exist"));
    } else if (!file.isFile()) {
        // Opening a pipe would wait for a writer.
        spec->fail(QStringLiteral("it is not a regular file"));
    } else if (!file.isReadable()) {
        spec->fail(QStringLiteral("the file cannot be read"));
    } else {
        auto loader = std::make_unique<QPluginLoader>(filePath);
        const QJsonObject library = loader->metaData();
        if (library.isEmpty())
            spec->fail(loader->errorString());
        else if (const QString error = qtMismatch(library); !error.isEmpty())
            spec->fail(error);
        else
            readMetaData(spec, library);
        if (!spec->isStopped())
            spec->loader = std::move(loader);
    }
    return result;
}

void PluginReader::readMetaData(PluginSpec::Private *spec, const QJsonObject &library)
{
    const QString interface = library.value(QLatin1String("IID")).toString();
    if (interface == coreInterface) {
        // The core says nothing of itself; it is built with this library.
        spec->core = true;
        spec->version = QVersionNumber::fromString(QStringLiteral(EXTSYS_VERSION));
        return;
    }
    const QLatin1String expected(qobject_interface_iid<IPlugin *>());
    if (interface != expected) {
        spec->fail(QStringLiteral("it is made for the interface \"%1\", not for \"%2\"")
                       .arg(interface, expected));
        return;
    }
    const QJsonObject data = library.value(QLatin1String("MetaData")).toObject();
    const QString name = data.value(QLatin1String("Name")).toString();
    if (name.isEmpty()) {
        spec->fail(QStringLiteral("its metadata has no \"Name\""));
        return;
    }
    spec->name = name;
    spec->description = data.value(QLatin1String("Description")).toString();
    const auto version = toVersion(data.value(QLatin1String("Version")));
    if (version)
        spec->version = *version;
    else
        spec->fail(
            QStringLiteral("the \"Version\" in its metadata is missing or no version number"));
    readDependencies(spec, data);
}

void PluginReader::readDependencies(PluginSpec::Private *spec, const QJsonObject &data)
{
    const QJsonValue list = data.value(QLatin1String("Dependencies"));
    if (list.isUndefined())
        return;
    if (!list.isArray()) {
        spec->fail(QStringLiteral("the \"Dependencies\" in its metadata are not a list"));
        return;
    }
    const QJsonArray entries = list.toArray();
    for (const QJsonValue &entry : entries) {
        PluginDependency dependency;
        bool good = true;
        if (entry.isObject()) {
            const QJsonObject object = entry.toObject();
            dependency.name = object.value(QLatin1String("Name")).toString();
            const QJsonValue minimum = object.value(QLatin1String("Version"));
            const auto version = toVersion(minimum);
            good = version || minimum.isUndefined();
            dependency.minimumVersion = version.value_or(QVersionNumber());
        } else {
            dependency.name = entry.toString();
        }
        if (!good || dependency.name.isEmpty()) {
            spec->fail(QStringLiteral("entry %1 of the \"Dependencies\" in its metadata is neither "
                                      "a name nor an object of \"Name\" and \"Version\"")
                           .arg(spec->dependencies.size() + 1));
            return;
        }
        spec->dependencies.append(dependency);
    }
}

} // namespace ExtSys
