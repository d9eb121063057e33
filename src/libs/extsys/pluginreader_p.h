// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_PLUGINREADER_P_H
#define EXTSYS_PLUGINREADER_P_H

#include "pluginspec_p.h"

#include <QStringList>

class QJsonObject;

namespace ExtSys {

/// Finds plugin files and reads what they say of themselves, without loading
/// their code.
class PluginReader final
{
public:
    /// The plugin files of @p folders, in the order of the folders and of the
    /// names within; a file that can be reached twice comes once.
    [[nodiscard]] static QStringList files(const QStringList &folders);
    /// Never null: what is wrong with the file is the error() of what is returned.
    [[nodiscard]] static std::unique_ptr<PluginSpec> read(const QString &filePath);

private:
    static void readMetaData(PluginSpec::Private *spec, const QJsonObject &library);
    static void readDependencies(PluginSpec::Private *spec, const QJsonObject &data);
};

} // namespace ExtSys

#endif // EXTSYS_PLUGINREADER_P_H
