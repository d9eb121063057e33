// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projectfolder.h"

#include "support/contrast.h"
#include "support/corefixture.h"

#include <appstyle/appstylemanager.h>
#include <fpgaproject/file/filekind.h>
#include <fpgaproject/panel/fileicons_p.h>
#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/panel/projectpanel_p.h>
#include <fpgaproject/project/fpgaproject.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <QTreeView>

using APPSTYLE::AppStyleManager;
using Fpga::FileTreeModel;
using Fpga::FpgaProject;
using Fpga::ProjectPanel;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

/// What the panel draws in colours of its own can be read in either theme.
class TestPanelColours final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase_data();
    void rowsAreReadable_data();
    void rowsAreReadable();
    void signsOfFilesAreReadable_data();
    void signsOfFilesAreReadable();
    void iconsOfFilesFollowTheTheme();
    void cleanupTestCase() { AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC); }
};

void TestPanelColours::initTestCase_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("classic") << APPSTYLE::THEME_CLASSIC;
    QTest::newRow("dark") << APPSTYLE::THEME_DARK;
}

void TestPanelColours::rowsAreReadable_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("selected");
    for (const char *file : {"plain.v", "missing.v", "disabled.v"}) {
        QTest::newRow(file) << named(file) << false;
        QTest::addRow("%s, selected", file) << named(file) << true;
    }
}

void TestPanelColours::rowsAreReadable()
{
    QFETCH_GLOBAL(QString, theme);
    QFETCH(QString, file);
    QFETCH(bool, selected);
    const CoreFixture core;
    AppStyleManager::instance()->setAppStyle(theme);
    const ProjectFolder folder({named("plain.v"), named("!missing.v"), named("disabled.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    QVERIFY(project.setEnabled({named("disabled.v")}, false));
    ProjectPanel panel;
    panel.setProject(&project);
    auto *const tree = panel.findChild<QTreeView *>();
    QFont large = tree->font();
    // Strokes of several pixels show their colour.
    large.setPixelSize(36);
    tree->setFont(large);
    panel.resize(1000, 500);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    const QModelIndex row = qobject_cast<FileTreeModel *>(tree->model())->indexOf(file);
    QVERIFY(row.isValid());
    if (selected)
        tree->setCurrentIndex(row);
    else
        tree->selectionModel()->clear();

    const QRect rect = tree->visualRect(row);
    const QImage image = tree->viewport()->grab(rect).toImage();

    const QColor ground = tree->palette().color(selected ? QPalette::Highlight : QPalette::Base);
    // The name behind the icon, and what is noted behind the name.
    const int name = tree->iconSize().width() > 0 ? tree->iconSize().width() + 8 : 24;
    const int note = name + QFontMetrics(large).horizontalAdvance(file) + 12;
    for (const QRect &part : {QRect(name, 0, 150, rect.height()),
                              QRect(note, 0, image.width() - note, rect.height())}) {
        double best = 1;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x)
                best = qMax(best, Contrast::ratio(image.pixelColor(x, y), ground));
        }
        // Nothing is noted of a plain file.
        const bool empty = part.left() != name && file == named("plain.v");
        QVERIFY2(empty || best >= Contrast::TEXT, qPrintable(QString::number(best)));
    }
}

void TestPanelColours::signsOfFilesAreReadable_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("Verilog") << int(Fpga::FileKind::Verilog);
    QTest::newRow("VHDL") << int(Fpga::FileKind::Vhdl);
    QTest::newRow("constraint") << int(Fpga::FileKind::TimingConstraint);
    QTest::newRow("memory") << int(Fpga::FileKind::Memory);
}

void TestPanelColours::signsOfFilesAreReadable()
{
    QFETCH(int, kind);
    const QImage image = Fpga::fileIcon(Fpga::FileKind(kind)).pixmap(48).toImage();

    // On the badge, above the letters.
    const QColor badge = image.pixelColor(image.width() - 8, image.height() / 2);

    QCOMPARE(badge.alpha(), 255);
    QVERIFY(Contrast::ratio(Qt::white, badge) >= Contrast::TEXT);
    QVERIFY(Contrast::ratio(badge, QColor(0x1d, 0x1f, 0x23)) >= Contrast::SIGN);
}

void TestPanelColours::iconsOfFilesFollowTheTheme()
{
    const QIcon icon = Fpga::fileIcon(Fpga::FileKind::Other);
    AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC);
    const QImage onLight = icon.pixmap(16).toImage();

    AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_DARK);

    QVERIFY(icon.pixmap(16).toImage() != onLight);
}

QTEST_MAIN(TestPanelColours)
#include "tst_panelcolours.moc"
