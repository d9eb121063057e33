// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_FPGAPROJECT_SHOWNPANEL_H
#define TESTS_PLUGINS_FPGAPROJECT_SHOWNPANEL_H

#include "projectfolder.h"

#include "support/corefixture.h"
#include "support/testeditor.h"

#include <fpgaproject/panel/projectpanel_p.h>
#include <fpgaproject/project/fpgaproject.h>

class QAction;
class QTreeView;

QString named(const char *text);

/// The panel, shown, with a project in it.
class Shown final
{
public:
    explicit Shown(const QStringList &files);
    ~Shown();

    QTreeView *tree() const;
    QModelIndex index(const char *path) const;
    void select(const char *path) const;
    void selectAlso(const char *path) const;
    QAction *action(const char *name) const;
    /// The entries of the menu that the key asks for.
    QStringList menu() const;
    QString label(const char *name) const;

    const CoreFixture core;
    TestEditorFactory editors;

private:
    const InPool m_offered;

public:
    const ProjectFolder folder;
    Fpga::FpgaProject project;
    Fpga::ProjectPanel panel;
};

#endif // TESTS_PLUGINS_FPGAPROJECT_SHOWNPANEL_H
