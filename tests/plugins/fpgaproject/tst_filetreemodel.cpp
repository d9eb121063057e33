// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projectfolder.h"

#include "support/corefixture.h"

#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/project/fpgaproject.h>
#include <idecore/core/idecore.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/mimedatabase/mimetype.h>

#include <QAbstractItemModelTester>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

using Fpga::FileTreeModel;
using Fpga::FpgaProject;

namespace {

// What happens on disk has to show within a second.
constexpr int SOON_MS = 1000;

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

/// The rows with their kinds, and what is special about them.
QStringList rows(const FileTreeModel &model)
{
    QStringList list;
    for (int group = 0; group < model.rowCount(); ++group) {
        const QModelIndex kind = model.index(group, 0);
        list.append(kind.data().toString());
        for (int i = 0; i < model.rowCount(kind); ++i) {
            const QModelIndex file = model.index(i, 0, kind);
            QString text = QLatin1String("  ") + file.data(FileTreeModel::PathRole).toString();
            if (file.data(FileTreeModel::MissingRole).toBool())
                text += QLatin1String(" missing");
            if (!file.data(FileTreeModel::EnabledRole).toBool())
                text += QLatin1String(" disabled");
            if (file.data(FileTreeModel::TopRole).toBool())
                text += QLatin1String(" top");
            list.append(text);
        }
    }
    return list;
}

} // namespace

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
        return model.indexOf(named(path)).data(FileTreeModel::MissingRole).toBool();
    }

    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    FileTreeModel model;
    const QAbstractItemModelTester tester{&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest};
};

class TestFileTreeModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void filesStandUnderTheirKinds();
    void noProjectShowsNothing();
    void missingDisabledAndTopFilesAreMarked();
    void aFolderInPlaceOfAFileIsMissing();
    void aFileOfManyThatIsMissingIsFound();
    void aLinkToAFileIsThere();
    void anAddedFileIsOneRow();
    void aFileOfANewKindBringsTheKind();
    void theLastFileOfAKindTakesTheKind();
    void switchingAFileOffChangesItsRowAlone();
    void persistentIndexesSurviveKindsThatComeAndGo();
    void manyChangesAreTakenAtOnce();
    void aNewTopChangesBothRows();
    void aFileThatVanishesShowsAsMissing();
    void aFileThatAppearsIsNoLongerMissing();
    void aFileThatChangesTellsItsRowAlone();
    void aFileSavedByReplacingItIsStillThere();
    void aFolderThatGoesTakesItsFiles();
    void aFolderThatComesBringsItsFiles();
    void aFolderMovedAwayAndBackIsFollowed();
    void aFileOutsideTheProjectIsWatched();
    void filesOfOthersAreNotTold();
    void aNewNameIsAskedFor();
    void aKindCannotBeRenamed();
    void localFilesCanBeDropped();
    void otherThingsCannotBeDropped();
    void theToolTipShowsNamesAsTheyAre();
    void theToolTipNamesTheTypeOfTheCore();
    void everySuffixOfTheCoresTypesHasItsKind_data();
    void everySuffixOfTheCoresTypesHasItsKind();
    void whatIsSpecialIsReadOut();
};

void TestFileTreeModel::filesStandUnderTheirKinds()
{
    const Tree tree({named("z.v"), named("a/b.v"), named("t.sdc"), named("p.pcn"), named("e.vhd"),
                     named("s.sv"), named("notes.txt")});

    QCOMPARE(rows(tree.model),
             texts({"Verilog", "  a/b.v", "  z.v", "SystemVerilog", "  s.sv", "VHDL", "  e.vhd",
                    "Timing Constraints", "  t.sdc", "Physical Constraints", "  p.pcn",
                    "Other Files", "  notes.txt"}));
}

void TestFileTreeModel::noProjectShowsNothing()
{
    Tree tree({named("a.v")});

    tree.model.setProject(nullptr);

    QCOMPARE(tree.model.rowCount(), 0);
}

void TestFileTreeModel::missingDisabledAndTopFilesAreMarked()
{
    Tree tree({named("a.v"), named("b.v"), named("!c.v")});
    tree.project.setEnabled({named("b.v")}, false);
    tree.project.setTop({named("a"), named("a.v")});

    QCOMPARE(rows(tree.model), texts({"Verilog", "  a.v top", "  b.v disabled", "  c.v missing"}));
}

void TestFileTreeModel::aFolderInPlaceOfAFileIsMissing()
{
    Tree tree({named("!a.v")});
    QVERIFY(QDir().mkdir(tree.folder.path(named("a.v"))));

    tree.model.setProject(&tree.project);

    QVERIFY(tree.isMissing("a.v"));
}

void TestFileTreeModel::aFileOfManyThatIsMissingIsFound()
{
    QStringList files{named("!m/gone.v")};
    for (int i = 0; i < 100; ++i)
        files.append(named("m/f%1.v").arg(i));

    const Tree tree(files);

    QCOMPARE(rows(tree.model).filter(named("missing")), QStringList(named("  m/gone.v missing")));
}

void TestFileTreeModel::aLinkToAFileIsThere()
{
    QStringList files{named("!m/good.v"), named("!m/broken.v")};
    for (int i = 0; i < 100; ++i)
        files.append(named("m/f%1.v").arg(i));
    Tree tree(files);
    QVERIFY(QFile::link(tree.folder.path(named("m/f1.v")), tree.folder.path(named("m/good.v"))));
    QVERIFY(QFile::link(named("/none"), tree.folder.path(named("m/broken.v"))));

    tree.model.setProject(&tree.project);

    QVERIFY(!tree.isMissing("m/good.v"));
    QVERIFY(tree.isMissing("m/broken.v"));
}

void TestFileTreeModel::anAddedFileIsOneRow()
{
    Tree tree({named("a.v"), named("c.v")});
    const QString file = tree.folder.put(named("b.v"));
    const QSignalSpy inserted(&tree.model, &FileTreeModel::rowsInserted);
    const QSignalSpy reset(&tree.model, &FileTreeModel::modelReset);

    QVERIFY(tree.project.addFiles({file}));

    QCOMPARE(rows(tree.model), texts({"Verilog", "  a.v", "  b.v", "  c.v"}));
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(inserted.first().at(1).toInt(), 1);
    QCOMPARE(reset.size(), 0);
}

void TestFileTreeModel::aFileOfANewKindBringsTheKind()
{
    Tree tree({named("a.v"), named("c.sdc")});

    QVERIFY(tree.project.addFiles({tree.folder.put(named("b.vhd"))}));

    QCOMPARE(rows(tree.model),
             texts({"Verilog", "  a.v", "VHDL", "  b.vhd", "Timing Constraints", "  c.sdc"}));
}

void TestFileTreeModel::theLastFileOfAKindTakesTheKind()
{
    Tree tree({named("a.v"), named("c.sdc")});

    QVERIFY(tree.project.removeFiles({named("a.v")}));

    QCOMPARE(rows(tree.model), texts({"Timing Constraints", "  c.sdc"}));
}

void TestFileTreeModel::switchingAFileOffChangesItsRowAlone()
{
    Tree tree({named("a.v"), named("b.v")});
    const QSignalSpy changed(&tree.model, &FileTreeModel::dataChanged);
    const QSignalSpy reset(&tree.model, &FileTreeModel::modelReset);
    const QSignalSpy removed(&tree.model, &FileTreeModel::rowsRemoved);

    QVERIFY(tree.project.setEnabled({named("b.v")}, false));

    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().toModelIndex(), tree.model.indexOf(named("b.v")));
    QCOMPARE(reset.size() + removed.size(), 0);
}

void TestFileTreeModel::persistentIndexesSurviveKindsThatComeAndGo()
{
    Tree tree({named("a.v"), named("c.sdc")});
    const QPersistentModelIndex file = tree.model.indexOf(named("c.sdc"));

    QVERIFY(tree.project.addFiles({tree.folder.put(named("b.vhd"))}));
    QVERIFY(tree.project.removeFiles({named("a.v")}));

    QCOMPARE(file.data(FileTreeModel::PathRole).toString(), named("c.sdc"));
    QCOMPARE(file.parent().data().toString(), named("Timing Constraints"));
}

void TestFileTreeModel::manyChangesAreTakenAtOnce()
{
    Tree tree({named("a.v")});
    QStringList files;
    for (int i = 0; i < 600; ++i)
        files.append(tree.folder.put(named("m/f%1.v").arg(i)));

    QVERIFY(tree.project.addFiles(files));

    QCOMPARE(tree.model.rowCount(tree.model.index(0, 0)), 601);
    QFile::remove(files.last());
    QTRY_VERIFY_WITH_TIMEOUT(tree.isMissing("m/f599.v"), SOON_MS);
}

void TestFileTreeModel::aNewTopChangesBothRows()
{
    Tree tree({named("a.v"), named("b.v")});
    tree.project.setTop({named("a"), named("a.v")});
    const QSignalSpy changed(&tree.model, &FileTreeModel::dataChanged);

    tree.project.setTop({named("b"), named("b.v")});

    QCOMPARE(changed.size(), 2);
    QCOMPARE(rows(tree.model), texts({"Verilog", "  a.v", "  b.v top"}));
}

void TestFileTreeModel::aFileThatVanishesShowsAsMissing()
{
    Tree tree({named("a.v"), named("b.v")});

    QVERIFY(QFile::remove(tree.folder.path(named("a.v"))));

    QTRY_VERIFY_WITH_TIMEOUT(tree.isMissing("a.v"), SOON_MS);
    QVERIFY(!tree.isMissing("b.v"));
}

void TestFileTreeModel::aFileThatAppearsIsNoLongerMissing()
{
    Tree tree({named("!a.v")});
    QVERIFY(tree.isMissing("a.v"));

    tree.folder.put(named("a.v"));

    QTRY_VERIFY_WITH_TIMEOUT(!tree.isMissing("a.v"), SOON_MS);
}

void TestFileTreeModel::aFileThatChangesTellsItsRowAlone()
{
    Tree tree({named("a.v"), named("b.v")});
    QSignalSpy changed(&tree.model, &FileTreeModel::dataChanged);
    const QSignalSpy reset(&tree.model, &FileTreeModel::modelReset);
    const QString before = tree.model.indexOf(named("b.v")).data(Qt::ToolTipRole).toString();

    tree.folder.put(named("b.v"), "module b; endmodule\n");

    QVERIFY(changed.wait(SOON_MS));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().toModelIndex(), tree.model.indexOf(named("b.v")));
    QVERIFY(tree.model.indexOf(named("b.v")).data(Qt::ToolTipRole).toString() != before);
    QCOMPARE(reset.size(), 0);
}

void TestFileTreeModel::aFileSavedByReplacingItIsStillThere()
{
    Tree tree({named("a.v")});
    QSignalSpy changed(&tree.model, &FileTreeModel::dataChanged);
    tree.folder.put(named("new"), "other\n");

    QCOMPARE(std::rename(qPrintable(tree.folder.path(named("new"))),
                         qPrintable(tree.folder.path(named("a.v")))),
             0);

    QVERIFY(changed.wait(SOON_MS));
    QVERIFY(!tree.isMissing("a.v"));
}

void TestFileTreeModel::aFolderThatGoesTakesItsFiles()
{
    Tree tree({named("deep/er/a.v"), named("b.v")});

    QVERIFY(QDir(tree.folder.path(named("deep"))).removeRecursively());

    QTRY_VERIFY_WITH_TIMEOUT(tree.isMissing("deep/er/a.v"), SOON_MS);
    QVERIFY(!tree.isMissing("b.v"));
}

void TestFileTreeModel::aFolderThatComesBringsItsFiles()
{
    Tree tree({named("!deep/er/a.v"), named("b.v")});

    tree.folder.put(named("deep/er/a.v"));

    QTRY_VERIFY_WITH_TIMEOUT(!tree.isMissing("deep/er/a.v"), SOON_MS);
}

void TestFileTreeModel::aFolderMovedAwayAndBackIsFollowed()
{
    Tree tree({named("deep/er/a.v")});
    const QString here = tree.folder.path(named("deep"));
    const QString away = tree.folder.path(named("away"));

    QVERIFY(QDir().rename(here, away));
    QTRY_VERIFY_WITH_TIMEOUT(tree.isMissing("deep/er/a.v"), SOON_MS);
    QVERIFY(QDir().rename(away, here));
    QTRY_VERIFY_WITH_TIMEOUT(!tree.isMissing("deep/er/a.v"), SOON_MS);
    QVERIFY(QFile::remove(here + named("/er/a.v")));
    QTRY_VERIFY_WITH_TIMEOUT(tree.isMissing("deep/er/a.v"), SOON_MS);
}

void TestFileTreeModel::aFileOutsideTheProjectIsWatched()
{
    const ProjectFolder other;
    const QString outside = other.put(named("a.v"));
    Tree tree({named("b.v")});
    QVERIFY(tree.project.addFiles({outside}));
    const QByteArray path = tree.project.relativePath(outside).toUtf8();
    QVERIFY(!tree.isMissing(path));

    QVERIFY(QFile::remove(outside));

    QTRY_VERIFY_WITH_TIMEOUT(tree.isMissing(path), SOON_MS);
}

void TestFileTreeModel::filesOfOthersAreNotTold()
{
    Tree tree({named("a.v")});
    QSignalSpy changed(&tree.model, &FileTreeModel::dataChanged);

    tree.folder.put(named("other.v"));
    tree.folder.put(named("a.v"), "later\n");

    QVERIFY(changed.wait(SOON_MS));
    QCOMPARE(changed.size(), 1);
}

void TestFileTreeModel::aNewNameIsAskedFor()
{
    Tree tree({named("rtl/a.v")});
    const QSignalSpy asked(&tree.model, &FileTreeModel::renameRequested);
    const QModelIndex file = tree.model.indexOf(named("rtl/a.v"));
    QCOMPARE(file.data(Qt::EditRole).toString(), named("a.v"));

    QVERIFY(tree.model.setData(file, named("b.v"), Qt::EditRole));
    QVERIFY(tree.model.setData(file, named("a.v"), Qt::EditRole));

    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.first(), QVariantList({named("rtl/a.v"), named("b.v")}));
}

void TestFileTreeModel::aKindCannotBeRenamed()
{
    Tree tree({named("a.v")});

    QVERIFY(!(tree.model.index(0, 0).flags() & Qt::ItemIsEditable));
    QVERIFY(!tree.model.setData(tree.model.index(0, 0), named("b"), Qt::EditRole));
}

void TestFileTreeModel::localFilesCanBeDropped()
{
    Tree tree({named("a.v")});
    const QSignalSpy dropped(&tree.model, &FileTreeModel::filesDropped);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(named("/x/b c.v")), QUrl(named("https://example.com/d.v"))});

    QVERIFY(tree.model.dropMimeData(&data, Qt::CopyAction, -1, -1, tree.model.index(0, 0)));

    QCOMPARE(dropped.size(), 1);
    QCOMPARE(dropped.first().first().toStringList(), QStringList(named("/x/b c.v")));
}

void TestFileTreeModel::otherThingsCannotBeDropped()
{
    Tree tree({named("a.v")});
    QMimeData text;
    text.setText(named("a.v"));
    QMimeData remote;
    remote.setUrls({QUrl(named("https://example.com/d.v"))});

    QVERIFY(!tree.model.canDropMimeData(&text, Qt::CopyAction, -1, -1, {}));
    QVERIFY(!tree.model.canDropMimeData(&remote, Qt::CopyAction, -1, -1, {}));
}

void TestFileTreeModel::theToolTipShowsNamesAsTheyAre()
{
    const Tree tree({named("<b>&x.v")});

    const QString tip = tree.model.indexOf(named("<b>&x.v")).data(Qt::ToolTipRole).toString();

    QVERIFY2(tip.contains(named("&lt;b&gt;&amp;x.v")), qPrintable(tip));
}

void TestFileTreeModel::theToolTipNamesTheTypeOfTheCore()
{
    const Tree tree({named("a.sv"), named("!b.sdc"), named("notes")});
    const auto tip = [&](const char *path) {
        return tree.model.indexOf(named(path)).data(Qt::ToolTipRole).toString();
    };

    QVERIFY2(tip("a.sv").contains(named("SystemVerilog (Verilog HDL File)")),
             qPrintable(tip("a.sv")));
    QVERIFY2(tip("b.sdc").contains(named("(KELMO Timing Constraints File)")),
             qPrintable(tip("b.sdc")));
    QVERIFY2(tip("notes").contains(named("Other Files (Plain Text File)")),
             qPrintable(tip("notes")));
}

void TestFileTreeModel::everySuffixOfTheCoresTypesHasItsKind_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("kinds");
    const auto row = [](const char *type, const char *kinds) {
        QTest::newRow(type) << named(type) << named(kinds).split(QLatin1Char(' '));
    };
    row("text/verilog", "verilog systemverilog");
    row("text/vhdl", "vhdl");
    row("text/sdc", "timing-constraint");
    row("text/pcn", "physical-constraint");
    row("text/fdc", "physical-constraint");
    row("text/adc", "physical-constraint");
    row("text/ksc", "synthesis-constraint");
    row("text/mnx", "memory");
    row("text/ufx", "memory");
}

void TestFileTreeModel::everySuffixOfTheCoresTypesHasItsKind()
{
    QFETCH(QString, type);
    QFETCH(QStringList, kinds);
    const CoreFixture core;

    const QStringList suffixes = Core::IdeCore::mimeDatabase()->findByType(type).suffixes();

    QVERIFY(!suffixes.isEmpty());
    for (const QString &suffix : suffixes) {
        const QString kind = Fpga::fileKindName(Fpga::fileKindOf(QLatin1String("a.") + suffix));
        QVERIFY2(kinds.contains(kind), qPrintable(suffix + QLatin1String(": ") + kind));
    }
}

void TestFileTreeModel::whatIsSpecialIsReadOut()
{
    Tree tree({named("!a.v")});
    tree.project.setEnabled({named("a.v")}, false);

    QCOMPARE(tree.model.indexOf(named("a.v")).data(Qt::AccessibleTextRole).toString(),
             named("a.v, disabled, missing"));
}

QTEST_MAIN(TestFileTreeModel)
#include "tst_filetreemodel.moc"
