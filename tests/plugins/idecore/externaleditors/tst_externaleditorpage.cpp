// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editortexts.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <idecore/core/idecore.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/externaleditors/externaleditoroptionpage_p.h>

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTest>

#include <memory>

using Core::ExternalEditor;
using Core::ExternalEditorManager;
using Core::ExternalEditorOptionPage;

class TestExternalEditorPage final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_core = std::make_unique<CoreFixture>();
        m_page = std::make_unique<ExternalEditorOptionPage>();
    }

    void cleanup()
    {
        m_page.reset();
        m_core.reset();
    }

    void itHasItsTexts()
    {
        QCOMPARE(m_page->id(), QStringLiteral("BA.ExtEditor"));
        QCOMPARE(m_page->categoryId(), QStringLiteral("BA.ExtEditor"));
        QCOMPARE(m_page->displayName(), QStringLiteral("External Editor"));
        QCOMPARE(m_page->displayCategory(), QStringLiteral("External Editor"));
        QCOMPARE(m_page->categoryIcon(), QStringLiteral(":/core/image/exteditor.png"));
    }

    void theWidgetIsMadeOnce()
    {
        QWidget *widget = m_page->widget();
        QVERIFY(widget);
        QVERIFY(!widget->parent());
        QCOMPARE(m_page->widget(), widget);
    }

    void theFormHasItsParts()
    {
        QCOMPARE(part<QCheckBox>("useExtEditorCheckBox")->text(),
                 QStringLiteral("Always Use External Editor"));
        QCOMPARE(add()->text(), QStringLiteral("Add"));
        QCOMPARE(removing()->text(), QStringLiteral("Remove"));
        QCOMPARE(makeDefault()->text(), QStringLiteral("Make Default"));
        QCOMPARE(table()->metaObject()->className(), "Core::ExternalEditorTable");
    }

    void theFormIsLaidOut()
    {
        const auto *grid = qobject_cast<QGridLayout *>(m_page->widget()->layout());
        QVERIFY(grid);
        const auto *column = part<QVBoxLayout>("verticalLayout");
        QCOMPARE(grid->itemAtPosition(0, 0)->widget(), part<QCheckBox>("useExtEditorCheckBox"));
        QCOMPARE(grid->itemAtPosition(1, 0)->widget(), table());
        QCOMPARE(grid->itemAtPosition(1, 1)->layout(), column);
        QCOMPARE(column->itemAt(0)->widget(), add());
        QCOMPARE(column->itemAt(1)->widget(), removing());
        QCOMPARE(column->itemAt(2)->widget(), makeDefault());
        QVERIFY(column->itemAt(3)->spacerItem());
    }

    void theTableHasAName() { QVERIFY(!table()->accessibleName().isEmpty()); }

    void noButtonIsTheOneForEnter()
    {
        for (const QPushButton *button : {add(), removing(), makeDefault()})
            QVERIFY(!button->autoDefault());
    }

    void itShowsTheSwitch_data()
    {
        QTest::addColumn<bool>("on");
        QTest::newRow("on") << true;
        QTest::newRow("off") << false;
    }

    void itShowsTheSwitch()
    {
        QFETCH(bool, on);
        ExternalEditorManager::setUseExtEdtior(on);
        QCOMPARE(part<QCheckBox>("useExtEditorCheckBox")->isChecked(), on);
    }

    void atFirstOnlyAddIsEnabled()
    {
        show({editorNamed("a", true), editorNamed("b")});
        QVERIFY(add()->isEnabled());
        QCOMPARE(buttons(), QString());
    }

    void theButtonsFollowTheSelection()
    {
        show({editorNamed("a", true), editorNamed("b"), editorNamed("c")});
        click("b");
        QCOMPARE(buttons(), QStringLiteral("remove default"));
        click("a"); // is the default one already
        QCOMPARE(buttons(), QStringLiteral("remove"));
        click("c");
        QCOMPARE(buttons(), QStringLiteral("remove default"));
        table()->clearSelection();
        QCOMPARE(buttons(), QString());
    }

    void twoSelectedRowsHaveNoDefaultToMake()
    {
        show({editorNamed("a", true), editorNamed("b"), editorNamed("c")});
        click("b");
        click("c", Qt::ControlModifier);
        QCOMPARE(buttons(), QStringLiteral("remove"));
        click("c", Qt::ControlModifier);
        QCOMPARE(buttons(), QStringLiteral("remove default"));
    }

    void withoutACurrentRowTheButtonStaysAsItIs()
    {
        show({editorNamed("a", true), editorNamed("b"), editorNamed("c")});
        QItemSelectionModel *selection = table()->selectionModel();
        const auto rows = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
        selection->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
        selection->select(cell("b"), rows);
        QCOMPARE(buttons(), QStringLiteral("remove"));
        click("c");
        QCOMPARE(buttons(), QStringLiteral("remove default"));
        selection->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
        selection->select(cell("a"), rows);
        QCOMPARE(buttons(), QStringLiteral("remove default"));
    }

    void afterMakeDefaultTheButtonsFollowTheSelection()
    {
        show({editorNamed("a", true), editorNamed("b")});
        click("b");
        press(makeDefault());
        QVERIFY(!table()->selectionModel()->hasSelection());
        QCOMPARE(buttons(), QString());
        click("b");
        QCOMPARE(buttons(), QStringLiteral("remove"));
        click("a");
        QCOMPARE(buttons(), QStringLiteral("remove default"));
    }

    void afterRemoveTheButtonsFollowTheSelection()
    {
        show({editorNamed("a", true), editorNamed("b"), editorNamed("c")});
        click("a");
        click("b", Qt::ControlModifier);
        press(removing());
        QCOMPARE(names(), texts({"c"}));
        QCOMPARE(buttons(), QString());
    }

    void theDefaultStaysOne()
    {
        show({editorNamed("a", true), editorNamed("b"), editorNamed("c")});
        click("b");
        press(makeDefault());
        click("c");
        press(makeDefault());
        m_page->apply();
        QCOMPARE(sortedTexts(ExternalEditorManager::editors()),
                 texts({"a|/bin/a|%f", "b|/bin/b|%f", "c|/bin/c|%f*"}));
    }

    void addAsksForAnEditor()
    {
        show({});
        ModalDialog dialog([](QWidget *widget) {
            widget->findChild<QLineEdit *>(QStringLiteral("editName"))
                ->setText(QStringLiteral("new"));
            widget->findChild<QLineEdit *>(QStringLiteral("editPath"))
                ->setText(QStringLiteral("/usr/bin/gvim"));
            QTest::keyClick(widget, Qt::Key_Return);
        });
        press(add());
        QCOMPARE(names(), texts({"new"}));
        m_page->apply();
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"new|/usr/bin/gvim|%f +%l*"}));
    }

    void everythingIsReachedByKeys()
    {
        show({editorNamed("a", true), editorNamed("b")});
        part<QCheckBox>("useExtEditorCheckBox")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), table());
        for (int row = names().indexOf(QStringLiteral("b")); row > 0; --row)
            QTest::keyClick(table(), Qt::Key_Down);
        QTest::keyClick(table(), Qt::Key_Space);
        const QList<QWidget *> order{add(), removing(), makeDefault()};
        for (QWidget *next : order) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), next);
        }
        QTest::keyClick(makeDefault(), Qt::Key_Space);
        m_page->apply();
        QCOMPARE(ExternalEditorManager::defaultEditor().name, QStringLiteral("b"));
    }

    void applyChangesRegistryAndSettings()
    {
        show({editorNamed("a", true), editorNamed("b")});
        click("a");
        press(removing());
        part<QCheckBox>("useExtEditorCheckBox")->setChecked(true);
        QCOMPARE(ExternalEditorManager::editors().size(), 2); // not before
        QVERIFY(!ExternalEditorManager::isUseExtEditor());

        m_page->apply();

        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"b|/bin/b|%f"}));
        QVERIFY(ExternalEditorManager::isUseExtEditor());
        const QSettings *settings = Core::IdeCore::userSettings();
        QCOMPARE(settings->value(QStringLiteral("external_editor/editor0")).toStringList(),
                 texts({"b", "/bin/b", "%f", "0"}));
        QCOMPARE(settings->value(QStringLiteral("external_editor/use_external_editor")).toBool(),
                 true);
    }

    void applyMayBeRepeated()
    {
        show({editorNamed("a", true)});
        m_page->apply();
        part<QCheckBox>("useExtEditorCheckBox")->setChecked(true);
        m_page->apply();
        QVERIFY(ExternalEditorManager::isUseExtEditor());
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/bin/a|%f*"}));
    }

    void withoutItsWidgetApplyDoesNothing()
    {
        ExternalEditorManager::applyData({editorNamed("a")});
        m_page->apply();
        QVERIFY(Core::IdeCore::userSettings()
                    ->allKeys()
                    .filter(QStringLiteral("external_editor"))
                    .isEmpty());
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/bin/a|%f"}));
    }

    void afterFinishApplyDoesNothing()
    {
        show({editorNamed("a")});
        part<QCheckBox>("useExtEditorCheckBox")->setChecked(true);
        m_page->finish();
        m_page->apply();
        QVERIFY(!ExternalEditorManager::isUseExtEditor());
    }

    void finishDropsTheWidgetAndItsChanges()
    {
        show({editorNamed("a", true), editorNamed("b")});
        const QPointer<QWidget> widget = m_page->widget();
        click("a");
        press(removing());

        m_page->finish();

        QVERIFY(!widget);
        QCOMPARE(ExternalEditorManager::editors().size(), 2);
        QCOMPARE(names().size(), 2); // of a new widget
    }

    void finishWithoutAWidgetDoesNothing()
    {
        m_page->finish();
        m_page->finish();
        QVERIFY(m_page->widget());
    }

    void aWidgetDestroyedByItsParentIsMadeAnew()
    {
        {
            QWidget dialog;
            m_page->widget()->setParent(&dialog);
        }
        m_page->apply();
        QVERIFY(m_page->widget());
        m_page->finish();
    }

    void finishUnderAnOpenDialogIsNoHarm()
    {
        show({editorNamed("a")});
        const ModalDialog dialog([&](QWidget *) { m_page->finish(); });
        press(add());
        QCOMPARE(names(), texts({"a"}));
    }

    void thePageTakesItsWidgetAlong()
    {
        const QPointer<QWidget> widget = m_page->widget();
        m_page.reset();
        QVERIFY(!widget);
    }

private:
    /// Shows the page with @p editors, in the order of the registry.
    void show(const QList<ExternalEditor> &editors)
    {
        ExternalEditorManager::applyData(editors);
        m_page->widget()->resize(600, 400);
        m_page->widget()->show();
        QVERIFY(QTest::qWaitForWindowActive(m_page->widget()));
    }

    template<class Part>
    Part *part(const char *objectName) const
    {
        Part *found = m_page->widget()->findChild<Part *>(QString::fromLatin1(objectName));
        if (!found)
            qFatal("the page has no %s", objectName);
        return found;
    }

    QTableView *table() const { return part<QTableView>("tableView"); }
    QPushButton *add() const { return part<QPushButton>("btnAdd"); }
    QPushButton *removing() const { return part<QPushButton>("btnRemove"); }
    QPushButton *makeDefault() const { return part<QPushButton>("btnDefault"); }

    /// Those of the selection's buttons that are enabled.
    QString buttons() const
    {
        QStringList enabled;
        if (removing()->isEnabled())
            enabled.append(QStringLiteral("remove"));
        if (makeDefault()->isEnabled())
            enabled.append(QStringLiteral("default"));
        return enabled.join(QLatin1Char(' '));
    }

    QStringList names() const
    {
        QStringList list;
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            list.append(table()->model()->index(row, 0).data().toString());
        return list;
    }

    static void press(QPushButton *button) { QTest::mouseClick(button, Qt::LeftButton); }

    QModelIndex cell(const char *name) const
    {
        return table()->model()->index(names().indexOf(QString::fromLatin1(name)), 0);
    }

    void click(const char *name, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QPoint place = table()->visualRect(cell(name)).center();
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, modifiers, place);
    }

    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<ExternalEditorOptionPage> m_page;
};

QTEST_MAIN(TestExternalEditorPage)
#include "tst_externaleditorpage.moc"
