// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_SUPPORT_TESTPROJECT_H
#define TESTS_PLUGINS_IDECORE_SUPPORT_TESTPROJECT_H

#include <idecore/interfaces/iprojecctfactory.h>
#include <idecore/interfaces/iproject.h>

#include <QPointer>
#include <QStringList>

#include <functional>

class QAction;
class QMenu;

/// A project that opens and closes as it is told, without looking into its file.
class TestProject final : public Core::IProject
{
    Q_OBJECT
public:
    /// Writes down what it is asked into @p journal, "<name> test|open|close|gone"
    /// with the name of the file asked for; it has to outlive the project.
    explicit TestProject(QStringList *journal = nullptr);
    ~TestProject() override;

    // How it behaves
    bool refuseTest = false;
    bool refuseOpen = false;
    bool refuseClose = false;
    /// Run inside canOpen(), open() and close(), before they answer.
    std::function<void()> whileTesting;
    std::function<void()> whileOpening;
    std::function<void()> whileClosing;
    /// What fileName() says; empty gives the path it was opened with.
    QString path;
    QString directory;

    // What it was asked, with which paths
    QStringList tested;
    QStringList opened;
    int closes = 0;

    [[nodiscard]] QString displayName() const override { return {}; }
    [[nodiscard]] QString fileName() const override;
    [[nodiscard]] QString projectDir() const override { return directory; }
    bool open(const QString &fileName) override;
    bool close() override;
    bool canOpen(const QString &fileName) override;
    [[nodiscard]] QStringList files() const override { return {}; }
    bool addFiles(const QStringList &files) override;

private:
    void note(const char *what) const;

    QStringList *m_journal;
    QString m_name;
};

/// Makes TestProjects. Not in the pool by itself.
class TestProjectFactory final : public Core::IProjecctFactory
{
    Q_OBJECT
public:
    explicit TestProjectFactory(const QString &name = QStringLiteral("FPGA"),
                                QStringList *journal = nullptr);

    bool makeNothing = false;
    /// Applied to every new project before it is handed out.
    std::function<void(TestProject *)> prepare;
    /// One for each call of createProject().
    QList<QPointer<TestProject>> made;

    /// Null when the project made last is gone.
    [[nodiscard]] TestProject *last() const;

    [[nodiscard]] QString projectTemplate() const override { return m_template; }
    [[nodiscard]] Core::IProject *createProject() override;

private:
    QString m_template;
    QStringList *m_journal;
};

/// Writes a project file and gives its canonical path; makes folders on the way.
QString writeProject(const QString &path,
                     const QByteArray &content = "<p><Template>FPGA</Template></p>\n");

/// The File menu's "Close Project" and "Recent Projects".
QAction *closeProjectAction();
QMenu *recentProjectsMenu();

#endif // TESTS_PLUGINS_IDECORE_SUPPORT_TESTPROJECT_H
