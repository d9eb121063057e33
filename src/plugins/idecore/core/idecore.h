// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_CORE_IDECORE_H
#define IDECORE_CORE_IDECORE_H

#include <idecore/idecore_export.h>

#include <QObject>

class QSettings;

namespace DEV {
class DeviceDb;
}

namespace Core {

class MimeDatabase;

/// The central services: creates every manager in a fixed order, holds the
/// settings stores and the databases, and tears everything down again.
///
/// The static accessors are valid from the start of initialize() to the end of
/// shutdown(). After that they return pointers to deleted objects, so nothing
/// that is destroyed later may use them. GUI thread only.
class IDECORE_EXPORT IdeCore final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(IdeCore)
public:
    explicit IdeCore(QObject *parent = nullptr);
    ~IdeCore() override;

    /// The general settings, store "IDE".
    [[nodiscard]] static QSettings *userSettings();
    /// The state of windows and tool bars, store "IDE_GUI".
    [[nodiscard]] static QSettings *userSettingsGUI();
    /// The absolute path of the folder that holds userSettings().
    [[nodiscard]] static QString userConfigDir();
    /// The canonical path of the folder "data" of the installation; empty when
    /// there is none.
    [[nodiscard]] static QString appDataDir();
    [[nodiscard]] static MimeDatabase *mimeDatabase();
    [[nodiscard]] static DEV::DeviceDb *deviceDataBase();

    void initialize();
    /// Schedules the main window to be shown and the project named on the
    /// command line to be opened.
    void extensionsInitialized();
    void shutdown();

public Q_SLOTS:
    /// Opens the project named on the command line by "-prj" and a path as the
    /// first two arguments.
    void openProject();
};

} // namespace Core

#endif // IDECORE_CORE_IDECORE_H
