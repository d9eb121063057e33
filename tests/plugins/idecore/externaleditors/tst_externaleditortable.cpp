// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editortexts.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <idecore/externaleditors/externaleditordialog_p.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/externaleditors/externaleditormodel_p.h>
#include <idecore/externaleditors/externaleditortable_p.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using Core::ExternalEditor;
using Core::ExternalEditorManager;
using Core::ExternalEditorModel;
using Core::ExternalEditorTable;

namespace {

QLineEdit *edit(QWidget *dialog, const char *name)
{
    auto *found = dialog->findChild<QLineEdit *>(QString::fromLatin1(name));
    if (!found)
        qFatal("the dialog has no %s", name);
    return found;
}

QPushButton *okButton(QWidget *dialog)
{
    return dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
}

/// Counts how often @p widget is painted.
class PaintCount final : public QObject
{
public:
    explicit PaintCount(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *object, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(object, event);
    }

    int count = 0;
};

/// Fills the dialog that comes and accepts it.
ModalDialog::Handler fill(const char *name, const char *program, const char *arguments)
{
    return [=](QWidget *dialog) {
        edit(dialog, "editName")->setText(QString::fromUtf8(name));
        edit(dialog, "editPath")->setText(QString::fromUtf8(program));
        edit(dialog, "editArgs")->setText(QString::fromUtf8(arguments));
        QTest::mouseClick(okButton(dialog), Qt::LeftButton);
    };
}

} // namespace

class TestExternalEditorTable final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_core = std::make_unique<CoreFixture>(); }

    void cleanup()
    {
        m_table.reset();
        m_core.reset();
    }

    void itShowsTheRegistry()
    {
        ExternalEditorManager::applyData({editorNamed("a"), editorNamed("b", true)});
        const ExternalEditorTable table;
        QCOMPARE(table.model(), table.editorModel());
        QCOMPARE(asTexts(table.editorModel()->editors()),
                 asTexts(ExternalEditorManager::editors()));
        QCOMPARE(table.model()->rowCount(), 2);
    }

    void itIsACopy()
    {
        show({editorNamed("a")});
        model()->setData(model()->index(0, 0), QStringLiteral("changed"));
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/bin/a|%f"}));
    }

    void theColumnsFillTheTable()
    {
        show({editorNamed("a")});
        const QHeaderView *header = m_table->horizontalHeader();
        QVERIFY(!header->highlightSections());
        for (int column = 0; column < 3; ++column)
            QCOMPARE(header->sectionResizeMode(column), QHeaderView::Stretch);
        QCOMPARE(header->length(), m_table->viewport()->width());
    }

    void rowsAreSelectedWhole()
    {
        show({editorNamed("a"), editorNamed("b")});
        click(1, 2);
        QCOMPARE(m_table->selectionModel()->selectedRows().size(), 1);
        QVERIFY(m_table->selectionModel()->isRowSelected(1, {}));
    }

    void cellsAreNotEditedInPlace()
    {
        show({editorNamed("a")});
        QVERIFY(!(model()->index(0, 0).flags() & Qt::ItemIsEditable));
    }

    void theTabKeyLeavesTheTable()
    {
        show({editorNamed("a"), editorNamed("b")});
        QVERIFY(!m_table->tabKeyNavigation());
    }

    void selectingIsTold()
    {
        show({editorNamed("a"), editorNamed("b")});
        QSignalSpy told(m_table.get(), &ExternalEditorTable::dataSelected);
        click(0);
        QCOMPARE(told.takeLast().constFirst().toBool(), true);
        m_table->clearSelection();
        QCOMPARE(told.takeLast().constFirst().toBool(), false);
    }

    void aChangedSelectionIsPainted()
    {
        show({editorNamed("a"), editorNamed("b")});
        PaintCount paints(m_table->viewport());
        QCoreApplication::processEvents();
        const int before = paints.count;
        m_table->selectionModel()->select(model()->index(1, 0),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QTRY_VERIFY(paints.count > before);
    }

    void aResetIsToldAsTheLossOfTheSelection()
    {
        show({editorNamed("a", true), editorNamed("b")});
        click(1);
        QSignalSpy told(m_table.get(), &ExternalEditorTable::dataSelected);
        m_table->makeDefaultEditor();
        QVERIFY(!told.isEmpty());
        QCOMPARE(told.constLast().constFirst().toBool(), false);
        QVERIFY(!m_table->selectionModel()->hasSelection());
    }

    // Adding

    void addingAsksAndAppends()
    {
        show({editorNamed("a", true)});
        bool enabled = true;
        ModalDialog dialog([&](QWidget *widget) {
            enabled = okButton(widget)->isEnabled();
            fill("b", "/bin/b", "-x %f")(widget);
        });
        m_table->addEditor();
        QCOMPARE(dialog.title(), QStringLiteral("Create an external editor"));
        QVERIFY(!enabled);
        QCOMPARE(asTexts(model()->editors()), texts({"a|/bin/a|%f*", "b|/bin/b|-x %f"}));
    }

    void theFirstAddedEditorIsTheDefault()
    {
        show({});
        {
            const ModalDialog dialog(fill("a", "/bin/a", ""));
            m_table->addEditor();
        }
        {
            const ModalDialog dialog(fill("b", "/bin/b", ""));
            m_table->addEditor();
        }
        QCOMPARE(asTexts(model()->editors()), texts({"a|/bin/a|%f*", "b|/bin/b|%f"}));
    }

    void aCancelledAdditionAddsNothing()
    {
        show({});
        const ModalDialog dialog([](QWidget *widget) {
            edit(widget, "editName")->setText(QStringLiteral("a"));
            edit(widget, "editPath")->setText(QStringLiteral("/bin/a"));
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        m_table->addEditor();
        QCOMPARE(model()->rowCount(), 0);
    }

    void aTableDestroyedWhileTheDialogIsOpenIsNoHarm_data()
    {
        QTest::addColumn<bool>("adding");
        QTest::newRow("adding") << true;
        QTest::newRow("modifying") << false;
    }

    void aTableDestroyedWhileTheDialogIsOpenIsNoHarm()
    {
        QFETCH(bool, adding);
        show({editorNamed("a")});
        auto *table = m_table.release();
        const QPointer<QWidget> gone(table);
        const ModalDialog dialog([&](QWidget *) { delete table; });
        if (adding)
            table->addEditor();
        else
            table->modifyEditor(table->model()->index(0, 0));
        QVERIFY(!gone);
    }

    // Modifying

    void aDoubleClickModifies()
    {
        show({editorNamed("a", true), editorNamed("b")});
        QStringList shown;
        ModalDialog dialog([&](QWidget *widget) {
            shown = QStringList{edit(widget, "editName")->text(), edit(widget, "editPath")->text(),
                                edit(widget, "editArgs")->text()};
            fill("new", "/opt/new", "%l")(widget);
        });
        click(0, 2);
        QTest::mouseDClick(m_table->viewport(), Qt::LeftButton, {}, place(0, 2));
        QCOMPARE(dialog.title(), QStringLiteral("Modifying editor"));
        QCOMPARE(shown, texts({"a", "/bin/a", "%f"}));
        QCOMPARE(asTexts(model()->editors()), texts({"new|/opt/new|%l*", "b|/bin/b|%f"}));
    }

    void theKeyForEditingModifies()
    {
        show({editorNamed("a"), editorNamed("b")});
        click(1);
        const ModalDialog dialog(fill("c", "/bin/c", "x"));
        QTest::keyClick(m_table.get(), Qt::Key_F2);
        QCOMPARE(asTexts(model()->editors()), texts({"a|/bin/a|%f", "c|/bin/c|x"}));
    }

    void aCancelledModificationChangesNothing()
    {
        show({editorNamed("a")});
        const ModalDialog dialog([](QWidget *widget) {
            edit(widget, "editName")->setText(QStringLiteral("b"));
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        m_table->modifyEditor(model()->index(0, 0));
        QCOMPARE(asTexts(model()->editors()), texts({"a|/bin/a|%f"}));
    }

    void modifyingToTheNameOfAnotherIsAccepted()
    {
        show({editorNamed("a"), editorNamed("b")});
        const ModalDialog dialog(fill("a", "/opt/b", "%f"));
        m_table->modifyEditor(model()->index(1, 0));
        QCOMPARE(asTexts(model()->editors()), texts({"a|/bin/a|%f", "a|/opt/b|%f"}));
        m_table->applyData();
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/opt/b|%f"}));
    }

    void anInvalidIndexIsNotModified()
    {
        show({editorNamed("a")});
        m_table->modifyEditor({});
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(asTexts(model()->editors()), texts({"a|/bin/a|%f"}));
    }

    void anEditorThatWentMeanwhileIsNotModified()
    {
        show({editorNamed("a"), editorNamed("b")});
        const ModalDialog dialog([&](QWidget *widget) {
            model()->removeData(model()->index(0, 0));
            fill("new", "/opt/new", "%l")(widget);
        });
        m_table->modifyEditor(model()->index(0, 0));
        QCOMPARE(asTexts(model()->editors()), texts({"b|/bin/b|%f"}));
    }

    // Removing

    void exactlyTheSelectedRowsAreRemoved()
    {
        show({editorNamed("a", true), editorNamed("b"), editorNamed("c"), editorNamed("d"),
              editorNamed("e")});
        click(0);
        click(2, 0, Qt::ControlModifier);
        click(3, 0, Qt::ControlModifier);
        m_table->removeEditor();
        QCOMPARE(asTexts(model()->editors()), texts({"b|/bin/b|%f", "e|/bin/e|%f"}));
        QVERIFY(!m_table->selectionModel()->hasSelection());
    }

    void withoutASelectionNothingIsRemoved()
    {
        show({editorNamed("a")});
        m_table->removeEditor();
        QCOMPARE(model()->rowCount(), 1);
    }

    void allOfALongTableIsRemoved()
    {
        QList<ExternalEditor> editors;
        for (int i = 0; i < 2000; ++i)
            editors.append({QString::number(i), QStringLiteral("p"), QString(), false});
        show(editors);
        m_table->selectAll();
        m_table->removeEditor();
        QCOMPARE(model()->rowCount(), 0);
    }

    void afterTheDefaultEditorNoOtherBecomesIt()
    {
        show({editorNamed("a", true), editorNamed("b")});
        click(0);
        m_table->removeEditor();
        QCOMPARE(asTexts(model()->editors()), texts({"b|/bin/b|%f"}));
    }

    // The default

    void theCurrentRowBecomesTheDefault()
    {
        show({editorNamed("a", true), editorNamed("b"), editorNamed("c")});
        click(2);
        m_table->makeDefaultEditor();
        QCOMPARE(asTexts(model()->editors()),
                 texts({"a|/bin/a|%f", "b|/bin/b|%f", "c|/bin/c|%f*"}));
    }

    void withoutACurrentRowTheDefaultStays()
    {
        show({editorNamed("a", true), editorNamed("b")});
        m_table->setCurrentIndex({});
        m_table->makeDefaultEditor();
        QCOMPARE(asTexts(model()->editors()), texts({"a|/bin/a|%f*", "b|/bin/b|%f"}));
    }

    void itsDataIsAppliedToTheRegistry()
    {
        show({editorNamed("a", true), editorNamed("b")});
        model()->removeData(model()->index(0, 0));
        model()->setEditorDefault(0);
        m_table->applyData();
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"b|/bin/b|%f*"}));
    }

private:
    /// A table of @p editors, in that order; the registry's own order is its affair.
    void show(const QList<ExternalEditor> &editors)
    {
        ExternalEditorManager::applyData(editors.mid(0, 1));
        m_table = std::make_unique<ExternalEditorTable>();
        for (const ExternalEditor &editor : editors.mid(1))
            model()->addData(editor.name, editor.program, editor.arguments);
        m_table->resize(600, 400);
        m_table->show();
        QVERIFY(QTest::qWaitForWindowActive(m_table.get()));
    }

    ExternalEditorModel *model() const { return m_table->editorModel(); }

    QPoint place(int row, int column) const
    {
        return m_table->visualRect(model()->index(row, column)).center();
    }

    void click(int row, int column = 0, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(m_table->viewport(), Qt::LeftButton, modifiers, place(row, column));
    }

    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<ExternalEditorTable> m_table;
};

QTEST_MAIN(TestExternalEditorTable)
#include "tst_externaleditortable.moc"
