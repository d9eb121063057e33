// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <fpgaproject/hdl/sourcetemplate_p.h>
#include <fpgaproject/options/newitempage_p.h>
#include <fpgaproject/options/newitemsettings_p.h>
#include <fpgaproject/wizards/newfilewizard_p.h>
#include <fpgaproject/wizards/newprojectdialog_p.h>
#include <fpgaproject/wizards/newprojectwizard_p.h>
#include <idecore/core/idecore.h>
#include <idecore/interfaces/iwizardfactory.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSettings>
#include <QTest>

using Fpga::FileKind;
using Fpga::NewItemPage;
using Fpga::NewItemSettings;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

const QString HEADER = named("FpgaProject/NewFileHeader");
const QString AUTHOR = named("FpgaProject/Author");
const QString DEVICE = named("FpgaProject/DefaultDevice");
const QString PART = named("iCE40HX8K-CT256");

void store(const QString &key, const QVariant &value)
{
    Core::IdeCore::userSettings()->setValue(key, value);
}

QVariant stored(const QString &key)
{
    return Core::IdeCore::userSettings()->value(key);
}

/// Runs the wizard and looks at its dialog before anybody did anything in it.
template<class Look>
void meet(Core::IWizardFactory *wizard, Look look)
{
    const ModalDialog dialog([&look](QWidget *widget) {
        look(widget);
        static_cast<QDialog *>(widget)->reject();
    });
    wizard->runWizard(nullptr, named("/d"));
}

QString proposedPart()
{
    QString part;
    Fpga::NewProjectWizard wizard;
    meet(&wizard, [&part](QWidget *dialog) {
        part = static_cast<Fpga::NewProjectDialog *>(dialog)->project().device.part;
    });
    return part;
}

QStringList proposedText(FileKind kind)
{
    QString text;
    Fpga::NewFileWizard wizard(kind);
    meet(&wizard,
         [&text](QWidget *dialog) { text = dialog->findChild<QPlainTextEdit *>()->toPlainText(); });
    return text.split(QLatin1Char('\n'));
}

} // namespace

class TestNewItemPage final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void thePageHasACategoryOfItsOwn();
    void nothingIsChosenAtFirst();
    void thePageShowsWhatIsStored();
    void applyStoresWhatIsShown();
    void withoutApplyNothingIsStored();
    void applyWithoutAWidgetStoresNothing();
    void theWidgetIsMadeAgainAfterFinish();
    void aDeviceThatIsNotInTheTableStays();
    void theHeaderIsProposed();
    void theAuthorIsNamedInTheHeader();
    void withoutAHeaderNobodyIsNamed();
    void anAuthorCannotEndTheComment();
    void theDeviceIsProposed();
    void anUnknownDeviceIsNotProposed();
    void wrongTypes_data();
    void wrongTypes();
    void aHandWrittenCommaBelongsToTheName();
};

void TestNewItemPage::thePageHasACategoryOfItsOwn()
{
    const NewItemPage page;

    QCOMPARE(page.id(), named("A.NewItems"));
    QCOMPARE(page.categoryId(), named("C.FpgaProject"));
    QCOMPARE(page.displayName(), named("New Files and Projects"));
    QCOMPARE(page.displayCategory(), named("FPGA Project"));
    QVERIFY(QFile::exists(page.categoryIcon()));
}

void TestNewItemPage::nothingIsChosenAtFirst()
{
    const CoreFixture core;
    NewItemPage page;
    const QWidget *const widget = page.widget();

    QVERIFY(!widget->findChild<QCheckBox *>()->isChecked());
    QCOMPARE(widget->findChild<QLineEdit *>(named("editAuthor"))->text(), QString());
    QCOMPARE(widget->findChild<QComboBox *>()->currentText(), named("none"));
}

void TestNewItemPage::thePageShowsWhatIsStored()
{
    const CoreFixture core;
    store(HEADER, true);
    store(AUTHOR, named("Doe, Jane"));
    store(DEVICE, PART);
    NewItemPage page;
    const QWidget *const widget = page.widget();

    QVERIFY(widget->findChild<QCheckBox *>()->isChecked());
    QCOMPARE(widget->findChild<QLineEdit *>(named("editAuthor"))->text(), named("Doe, Jane"));
    QCOMPARE(widget->findChild<QComboBox *>()->currentText(), PART);
}

void TestNewItemPage::applyStoresWhatIsShown()
{
    const CoreFixture core;
    NewItemPage page;
    const QWidget *const widget = page.widget();
    auto *const box = widget->findChild<QComboBox *>();
    QVERIFY2(box->count() > 1, "the table of devices is missing");
    widget->findChild<QCheckBox *>()->click();
    QTest::keyClicks(widget->findChild<QLineEdit *>(named("editAuthor")), named("  Jane  Doe "));
    box->setCurrentIndex(1);

    page.apply();

    QCOMPARE(stored(HEADER), QVariant(true));
    QCOMPARE(stored(AUTHOR), QVariant(named("Jane Doe")));
    QCOMPARE(stored(DEVICE), QVariant(box->itemText(1)));
}

void TestNewItemPage::withoutApplyNothingIsStored()
{
    const CoreFixture core;
    NewItemPage page;
    page.widget()->findChild<QCheckBox *>()->click();

    page.finish();

    QVERIFY(!Core::IdeCore::userSettings()->contains(HEADER));
}

void TestNewItemPage::applyWithoutAWidgetStoresNothing()
{
    const CoreFixture core;
    NewItemPage page;
    page.apply();
    delete page.widget();

    page.apply();

    QVERIFY(!Core::IdeCore::userSettings()->contains(HEADER));
}

void TestNewItemPage::theWidgetIsMadeAgainAfterFinish()
{
    const CoreFixture core;
    NewItemPage page;
    const QPointer<QWidget> first = page.widget();
    QCOMPARE(page.widget(), first.data());

    page.finish();

    QVERIFY(!first);
    QVERIFY(page.widget());
}

void TestNewItemPage::aDeviceThatIsNotInTheTableStays()
{
    const CoreFixture core;
    store(DEVICE, named("of tomorrow"));
    NewItemPage page;
    QCOMPARE(page.widget()->findChild<QComboBox *>()->currentText(), named("of tomorrow"));

    page.apply();

    QCOMPARE(stored(DEVICE), QVariant(named("of tomorrow")));
}

void TestNewItemPage::theHeaderIsProposed()
{
    const CoreFixture core;
    store(HEADER, true);

    QCOMPARE(proposedText(FileKind::TimingConstraint).mid(0, 1), texts({"# timing.sdc"}));
}

void TestNewItemPage::theAuthorIsNamedInTheHeader()
{
    const CoreFixture core;
    store(HEADER, true);
    store(AUTHOR, named("Zoë Müller"));

    QCOMPARE(proposedText(FileKind::PhysicalConstraint).mid(2, 2),
             (QStringList{named("# Author: Zoë Müller"), QString()}));
}

void TestNewItemPage::withoutAHeaderNobodyIsNamed()
{
    const CoreFixture core;
    store(AUTHOR, named("Jane"));

    QVERIFY(proposedText(FileKind::TimingConstraint).filter(named("Jane")).isEmpty());
}

void TestNewItemPage::anAuthorCannotEndTheComment()
{
    Fpga::SourceTemplate source;
    source.kind = FileKind::Verilog;
    source.fileName = named("a.v");
    source.module = named("a");
    source.headerDate = QDate(2026, 1, 2);
    source.author = named("one\n`include\r\"x\"");

    QCOMPARE(QString::fromUtf8(Fpga::sourceText(source)).section(QLatin1Char('\n'), 0, 4),
             named("// a.v\n// 2026-01-02\n// Author: one `include \"x\"\n\nmodule a;"));
}

void TestNewItemPage::theDeviceIsProposed()
{
    const CoreFixture core;
    QCOMPARE(proposedPart(), QString());

    store(DEVICE, PART);

    QCOMPARE(proposedPart(), PART);
}

void TestNewItemPage::anUnknownDeviceIsNotProposed()
{
    const CoreFixture core;

    store(DEVICE, named("of tomorrow"));

    QCOMPARE(proposedPart(), QString());
}

void TestNewItemPage::wrongTypes_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("a number") << QVariant(7);
    QTest::newRow("a list") << QVariant(QStringList{named("a"), named("b")});
    QTest::newRow("a mixed list") << QVariant(QVariantList{1, named("b")});
    QTest::newRow("a map") << QVariant(QVariantMap{{named("a"), 1}});
    QTest::newRow("bytes") << QVariant(QByteArray("\0\xff\n", 3));
    QTest::newRow("a size") << QVariant(QSize(1, 2));
    QTest::newRow("a long text") << QVariant(QString(100000, QLatin1Char('x')));
    QTest::newRow("lines") << QVariant(named("a\nb\r\n\tc"));
}

void TestNewItemPage::wrongTypes()
{
    QFETCH(QVariant, value);
    const CoreFixture core;
    for (const QString &key : {HEADER, AUTHOR, DEVICE})
        store(key, value);

    const NewItemSettings wanted = NewItemSettings::load();
    NewItemPage page;
    QVERIFY(page.widget());
    page.apply();

    QVERIFY(!wanted.header);
    QVERIFY(wanted.author.size() <= 200);
    QVERIFY(!wanted.author.contains(QLatin1Char('\n')));
    QCOMPARE(proposedPart(), QString());
    QCOMPARE(proposedText(FileKind::TimingConstraint).first().left(8), named("# Clocks"));
}

void TestNewItemPage::aHandWrittenCommaBelongsToTheName()
{
    const CoreFixture core;
    store(AUTHOR, QStringList{named("Doe"), named("Jane")});

    QCOMPARE(NewItemSettings::load().author, named("Doe, Jane"));
}

QTEST_MAIN(TestNewItemPage)
#include "tst_newitempage.moc"
