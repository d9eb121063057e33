// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_FPGAPROJECT_FILETREE_H
#define TESTS_FPGAPROJECT_FILETREE_H

#include "projectfolder.h"

#include "support/corefixture.h"

#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/project/fpgaproject.h>

#include <QAbstractItemModelTester>
#include <QString>

// What happens on disk has to show within a second.
constexpr int SOON_MS = 1000;

inline QString named(const char *text)
{
    return QString::fromUtf8(text);
}

/// A project with its model.
class Tree final
{
public:
    explicit Tree(const QStringList &files)
        : folder(files)
    {
        if (!project.open(folder.project()))
            qFatal("the project did not open");
        model.setProject(&project);
    }

    bool isMissing(const char *path) const
    {
        return model.indexOf(named(path)).data(Fpga::FileTreeModel::MissingRole).toBool();
    }

    const CoreFixture core;
    const ProjectFolder folder;
    Fpga::FpgaProject project;
    Fpga::FileTreeModel model;
    const QAbstractItemModelTester tester{&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest};
};

#endif // TESTS_FPGAPROJECT_FILETREE_H
