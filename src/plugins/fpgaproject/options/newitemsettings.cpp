// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/options/newitemsettings_p.h>

#include <fpgaproject/fpgaprojectconstants.h>
#include <idecore/core/idecore.h>

#include <QSettings>
#include <QStringList>
#include <QVariant>

namespace Fpga {

namespace {

constexpr int LONGEST_AUTHOR = 200;

QString textOf(const QSettings &settings, const char *key)
{
    const QVariant value = settings.value(QLatin1String(key));
    // A comma that somebody wrote by hand, as in "Doe, Jane", makes a list.
    return value.type() == QVariant::StringList ? value.toStringList().join(QLatin1String(", "))
                                                : value.toString();
}

} // namespace

QString authorLine(const QString &text)
{
    return text.simplified().left(LONGEST_AUTHOR).trimmed();
}

NewItemSettings NewItemSettings::load()
{
    const QSettings *const settings = Core::IdeCore::userSettings();
    const QString header = textOf(*settings, Constants::SET_NEW_FILE_HEADER);
    NewItemSettings wanted;
    // Any other text would be true to QVariant.
    wanted.header = header.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0
                    || header == QLatin1String("1");
    wanted.author = authorLine(textOf(*settings, Constants::SET_AUTHOR));
    wanted.device = textOf(*settings, Constants::SET_DEFAULT_DEVICE).trimmed();
    return wanted;
}

void NewItemSettings::store() const
{
    QSettings *const settings = Core::IdeCore::userSettings();
    settings->setValue(QLatin1String(Constants::SET_NEW_FILE_HEADER), header);
    settings->setValue(QLatin1String(Constants::SET_AUTHOR), authorLine(author));
    settings->setValue(QLatin1String(Constants::SET_DEFAULT_DEVICE), device);
}

} // namespace Fpga
