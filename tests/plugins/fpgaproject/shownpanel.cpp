// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "shownpanel.h"

#include <fpgaproject/panel/filetreemodel_p.h>

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QTreeView>

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

Shown::Shown(const QStringList &files)
    : editors(QStringList(named("text/plain")))
    , m_offered(&editors)
    , folder(files)
{
    if (!project.open(folder.project()))
        qFatal("the project did not open");
    panel.setProject(&project);
    panel.resize(320, 500);
    panel.show();
    if (!QTest::qWaitForWindowExposed(&panel))
        QTest::qFail("the panel was not exposed", __FILE__, __LINE__);
}

Shown::~Shown() = default;

QTreeView *Shown::tree() const
{
    return panel.findChild<QTreeView *>();
}

QModelIndex Shown::index(const char *path) const
{
    return qobject_cast<Fpga::FileTreeModel *>(tree()->model())->indexOf(named(path));
}

void Shown::select(const char *path) const
{
    tree()->setCurrentIndex(index(path));
}

void Shown::selectAlso(const char *path) const
{
    tree()->selectionModel()->select(index(path), QItemSelectionModel::Select);
}

QAction *Shown::action(const char *name) const
{
    return panel.findChild<QAction *>(named(name));
}

QStringList Shown::menu() const
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(tree(), &event);
    auto *shown = tree()->findChild<QMenu *>(named("FpgaProject.FileMenu"));
    if (!shown)
        return {};
    QStringList entries = menuEntries(shown);
    delete shown;
    return entries;
}

QString Shown::label(const char *name) const
{
    return panel.findChild<QLabel *>(named(name))->text();
}
