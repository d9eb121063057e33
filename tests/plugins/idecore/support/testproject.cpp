// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/testproject.h"

#include <idecore/actions/actionmanager.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QTest>

namespace {

QAction *fileEntry(const QString &text)
{
    const QList<QAction *> actions =
        Core::ActionManager::menu(QStringLiteral("Core.Menu.File"))->actions();
    for (QAction *action : actions) {
        if (action->text() == text)
            return action;
    }
    QTest::qFail("the File menu has no such entry", __FILE__, __LINE__);
    return nullptr;
}

} // namespace

TestProject::TestProject(QStringList *journal)
    : m_journal(journal)
{
}

TestProject::~TestProject()
{
    note("gone");
}

void TestProject::note(const char *what) const
{
    if (m_journal)
        m_journal->append(m_name + QLatin1Char(' ') + QLatin1String(what));
}

QString TestProject::fileName() const
{
    return path.isEmpty() ? opened.value(0) : path;
}

bool TestProject::canOpen(const QString &fileName)
{
    m_name = QFileInfo(fileName).fileName();
    note("test");
    tested.append(fileName);
    if (whileTesting)
        whileTesting();
    return !refuseTest;
}

bool TestProject::open(const QString &fileName)
{
    note("open");
    opened.append(fileName);
    if (whileOpening)
        whileOpening();
    return !refuseOpen;
}

bool TestProject::close()
{
    note("close");
    ++closes;
    const bool refuse = refuseClose;
    const std::function<void()> run = whileClosing;
    if (run)
        run(); // may delete the project
    return !refuse;
}

bool TestProject::addFiles(const QStringList &files)
{
    Q_UNUSED(files)
    return false;
}

TestProjectFactory::TestProjectFactory(const QString &name, QStringList *journal)
    : m_template(name)
    , m_journal(journal)
{
}

TestProject *TestProjectFactory::last() const
{
    return made.isEmpty() ? nullptr : made.constLast().data();
}

Core::IProject *TestProjectFactory::createProject()
{
    auto *project = makeNothing ? nullptr : new TestProject(m_journal);
    made.append(project);
    if (project && prepare)
        prepare(project);
    return project;
}

QString writeProject(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("the project file could not be written", __FILE__, __LINE__);
    file.close();
    return QFileInfo(path).canonicalFilePath();
}

QAction *closeProjectAction()
{
    return fileEntry(QStringLiteral("Close Project"));
}

QMenu *recentProjectsMenu()
{
    QAction *entry = fileEntry(QStringLiteral("Recent Projects"));
    return entry ? entry->menu() : nullptr;
}
