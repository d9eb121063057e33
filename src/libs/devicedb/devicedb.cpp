// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <devicedb/devicedb.h>

#include "devicedb/csvreader_p.h"

#include <QFile>
#include <QHash>
#include <QtDebug>

#include <array>

namespace DEV {

namespace {

struct TextColumn
{
    const char *name;
    QString Device::*field;
};

struct NumberColumn
{
    const char *name;
    int Device::*field;
};

constexpr std::array<TextColumn, 4> textColumns{{{"Series", &Device::series},
                                                 {"Device", &Device::name},
                                                 {"Package", &Device::package},
                                                 {"SpeedGrade", &Device::speedGrade}}};
constexpr std::array<NumberColumn, 6> numberColumns{{{"LogicCells", &Device::logicCells},
                                                     {"FlipFlops", &Device::flipFlops},
                                                     {"BlockRamBits", &Device::blockRamBits},
                                                     {"DspBlocks", &Device::dspBlocks},
                                                     {"Plls", &Device::plls},
                                                     {"UserIos", &Device::userIos}}};
constexpr const char *partColumn = "Part";

/// Each value once, in the order met, of the rows that @p wanted accepts.
template<class Predicate>
QStringList distinct(const QVector<Device> &rows, QString Device::*field, Predicate wanted)
{
    QStringList values;
    for (const Device &row : rows) {
        if (wanted(row) && !values.contains(row.*field))
            values.append(row.*field);
    }
    return values;
}

} // namespace

class DeviceDb::Private
{
public:
    void read();
    bool readHeader(const QStringList &names);
    void addRow(const QStringList &fields);
    void warn(int line, const QString &reason) const;

    QString file;
    bool wasRead = false;
    int line = 0;
    QHash<QString, int> columns; // lower-case name -> index
    QVector<Device> rows;
    QHash<QString, int> rowByPart;
};

void DeviceDb::Private::warn(int atLine, const QString &reason) const
{
    qWarning().noquote().nospace() << file << ':' << atLine << ": " << reason;
}

void DeviceDb::Private::read()
{
    QFile source(file);
    if (!source.exists())
        return;
    if (!source.open(QIODevice::ReadOnly)) {
        qWarning().noquote().nospace() << file << ": " << source.errorString();
        return;
    }
    const QByteArray bytes = source.readAll();
    if (source.error() != QFileDevice::NoError) {
        qWarning().noquote().nospace() << file << ": " << source.errorString();
        return;
    }
    QString text = QString::fromUtf8(bytes);
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);

    CsvReader reader(text);
    if (!reader.next())
        return;
    line = reader.line();
    if (!reader.error().isEmpty()) {
        warn(line, reader.error());
        return;
    }
    if (!readHeader(reader.fields()))
        return;
    while (reader.next()) {
        line = reader.line();
        if (reader.error().isEmpty())
            addRow(reader.fields());
        else
            warn(line, reader.error());
    }
}

bool DeviceDb::Private::readHeader(const QStringList &names)
{
    for (int i = 0; i < names.size(); ++i) {
        const QString name = names.at(i).toLower();
        if (columns.contains(name)) {
            warn(line, QStringLiteral("the column %1 is there twice").arg(names.at(i)));
            return false;
        }
        columns.insert(name, i);
    }
    QStringList missing;
    const auto require = [&](const char *name) {
        if (!columns.contains(QString::fromLatin1(name).toLower()))
            missing.append(QString::fromLatin1(name));
    };
    for (const TextColumn &column : textColumns)
        require(column.name);
    for (const NumberColumn &column : numberColumns)
        require(column.name);
    if (missing.isEmpty())
        return true;
    warn(line, QStringLiteral("the header row lacks the columns %1")
                   .arg(missing.join(QStringLiteral(", "))));
    return false;
}

void DeviceDb::Private::addRow(const QStringList &fields)
{
    if (fields.size() != columns.size()) {
        warn(line,
             QStringLiteral("%1 fields instead of %2").arg(fields.size()).arg(columns.size()));
        return;
    }
    const auto value = [&](const char *name) {
        const int index = columns.value(QString::fromLatin1(name).toLower(), -1);
        return index < 0 ? QString() : fields.at(index);
    };
    Device row;
    for (const TextColumn &column : textColumns) {
        row.*column.field = value(column.name);
        if ((row.*column.field).isEmpty()) {
            warn(line, QStringLiteral("%1 is empty").arg(QLatin1String(column.name)));
            return;
        }
    }
    for (const NumberColumn &column : numberColumns) {
        bool ok = false;
        row.*column.field = value(column.name).toInt(&ok);
        if (!ok || row.*column.field < 0) {
            warn(line, QStringLiteral("%1 is not a count: '%2'")
                           .arg(QLatin1String(column.name), value(column.name)));
            return;
        }
    }
    row.part = value(partColumn);
    if (row.part.isEmpty())
        row.part = row.name + QLatin1Char('-') + row.speedGrade + QLatin1Char('-') + row.package;
    if (rowByPart.contains(row.part)) {
        warn(line, QStringLiteral("the part %1 is there twice").arg(row.part));
        return;
    }
    rowByPart.insert(row.part, rows.size());
    rows.append(row);
}

DeviceDb::DeviceDb(const QString &csvFile)
    : d(std::make_unique<Private>())
{
    d->file = csvFile;
}

DeviceDb::~DeviceDb() = default;

const DeviceDb::Private &DeviceDb::table() const
{
    if (!d->wasRead) {
        d->wasRead = true;
        d->read();
    }
    return *d;
}

bool DeviceDb::isEmpty() const
{
    return table().rows.isEmpty();
}

const QVector<Device> &DeviceDb::rows() const
{
    return table().rows;
}

QStringList DeviceDb::series() const
{
    return distinct(table().rows, &Device::series, [](const Device &) { return true; });
}

QStringList DeviceDb::devices(const QString &series) const
{
    return distinct(table().rows, &Device::name,
                    [&](const Device &row) { return row.series == series; });
}

QStringList DeviceDb::packages(const QString &device) const
{
    return distinct(table().rows, &Device::package,
                    [&](const Device &row) { return row.name == device; });
}

QStringList DeviceDb::speedGrades(const QString &device, const QString &package) const
{
    return distinct(table().rows, &Device::speedGrade, [&](const Device &row) {
        return row.name == device && row.package == package;
    });
}

std::optional<Device> DeviceDb::device(const QString &part) const
{
    const Private &devices = table();
    const auto found = devices.rowByPart.constFind(part);
    if (found == devices.rowByPart.cend())
        return std::nullopt;
    return devices.rows.at(*found);
}

std::optional<Device> DeviceDb::device(const QString &device, const QString &package,
                                       const QString &speedGrade) const
{
    for (const Device &row : table().rows) {
        if (row.name == device && row.package == package && row.speedGrade == speedGrade)
            return row;
    }
    return std::nullopt;
}

} // namespace DEV
