// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostprocess.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <csignal>

namespace {

constexpr int patience = 30000;

void copyFile(const QString &source, const QString &target)
{
    QDir().mkpath(QFileInfo(target).path());
    if (!QFile::copy(source, target))
        qFatal("cannot copy %s to %s", qPrintable(source), qPrintable(target));
}

} // namespace

HostProcess::HostProcess(const QStringList &plugins)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    copyFile(QStringLiteral(HOST_PROGRAM), path(QStringLiteral("bin/kelmo-designer")));
    copyFile(QStringLiteral(EXTSYS_LIBRARY), path(QStringLiteral("lib/libExtSys.so")));
    copyFile(QStringLiteral(APPSTYLE_LIBRARY), path(QStringLiteral("lib/libAppStyle.so")));
    for (const QString &plugin : plugins)
        copy(QStringLiteral("lib%1.so").arg(plugin),
             QStringLiteral("lib/plugins/lib%1.so").arg(plugin));
    removeVariable(QStringLiteral("TEST_CORE"));
}

HostProcess::~HostProcess()
{
    m_process.kill();
    m_process.waitForFinished();
}

QString HostProcess::path(const QString &relative) const
{
    return QDir(QDir(m_tree.path()).canonicalPath()).filePath(relative);
}

QString HostProcess::pluginFile(const QString &plugin) const
{
    return path(QStringLiteral("lib/plugins/lib%1.so").arg(plugin));
}

void HostProcess::copy(const QString &source, const QString &relative)
{
    copyFile(QDir(QStringLiteral(TEST_PLUGIN_DIR)).filePath(source), path(relative));
}

void HostProcess::write(const QString &relative, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path(relative)).path());
    QFile file(path(relative));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

void HostProcess::setVariable(const QString &name, const QString &value)
{
    m_environment.insert(name, value);
}

void HostProcess::removeVariable(const QString &name)
{
    m_environment.remove(name);
}

void HostProcess::start(const QStringList &arguments)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(path(QStringLiteral("bin/kelmo-designer")), arguments);
    if (!m_process.waitForStarted(patience))
        qFatal("cannot start the host program");
}

bool HostProcess::waitForLine(const QString &line)
{
    QElapsedTimer timer;
    timer.start();
    while (!output().contains(line)) {
        if (!isRunning() || timer.elapsed() > patience)
            return output().contains(line);
        m_process.waitForReadyRead(100);
    }
    return true;
}

void HostProcess::send(int signal)
{
    ::kill(static_cast<pid_t>(m_process.processId()), signal);
}

bool HostProcess::waitForEnd()
{
    return (!isRunning() || m_process.waitForFinished(patience))
           && m_process.exitStatus() == QProcess::NormalExit;
}

bool HostProcess::isRunning() const
{
    return m_process.state() == QProcess::Running;
}

QStringList HostProcess::output()
{
    m_output += m_process.readAllStandardOutput();
    return QString::fromLocal8Bit(m_output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString HostProcess::errors()
{
    m_errors += m_process.readAllStandardError();
    return QString::fromLocal8Bit(m_errors);
}

QByteArray HostProcess::mappedFiles() const
{
    QFile maps(QStringLiteral("/proc/%1/maps").arg(m_process.processId()));
    return maps.open(QIODevice::ReadOnly) ? maps.readAll() : QByteArray();
}
