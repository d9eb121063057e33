// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_APP_HOSTPROCESS_H
#define TESTS_APP_HOSTPROCESS_H

#include <QProcess>
#include <QTemporaryDir>

/// The host program in a tree of its own, copied, with the plugins that the test
/// puts there. The core of the test says what happens to it on standard output.
class HostProcess final
{
public:
    explicit HostProcess(const QStringList &plugins = {QStringLiteral("IdeCore")});
    ~HostProcess();

    [[nodiscard]] QString path(const QString &relative) const;
    [[nodiscard]] QString pluginFile(const QString &plugin) const;
    /// Copies a file made for the tests to @p relative in the tree.
    void copy(const QString &source, const QString &relative);
    void write(const QString &relative, const QByteArray &content);
    void setVariable(const QString &name, const QString &value);
    void removeVariable(const QString &name);
    /// What the core of the test does; see there.
    void tell(const QString &words) { setVariable(QStringLiteral("TEST_CORE"), words); }

    void start(const QStringList &arguments = {});
    /// True once the program has said @p line; false when it ends or is silent.
    bool waitForLine(const QString &line);
    void send(int signal);
    /// True once the program has ended by itself, not by a signal.
    bool waitForEnd();

    [[nodiscard]] bool isRunning() const;
    [[nodiscard]] int status() const { return m_process.exitCode(); }
    [[nodiscard]] QStringList output();
    [[nodiscard]] QString errors();
    /// What the running program has mapped into its memory.
    [[nodiscard]] QByteArray mappedFiles() const;

private:
    QTemporaryDir m_tree;
    QProcess m_process;
    QProcessEnvironment m_environment;
    QByteArray m_output;
    QByteArray m_errors;
};

#endif // TESTS_APP_HOSTPROCESS_H
