// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editortexts.h"

#include <idecore/externaleditors/externaleditormodel_p.h>

#include <QAbstractItemModelTester>
#include <QFileIconProvider>
#include <QFont>
#include <QIcon>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using Core::ExternalEditor;
using Core::ExternalEditorModel;

namespace {

QStringList list(std::initializer_list<const char *> names)
{
    QStringList result;
    for (const char *name : names)
        result.append(QString::fromUtf8(name));
    return result;
}

QImage iconAt(const ExternalEditorModel &model, int row)
{
    return model.index(row, 0).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
}

QImage iconOfFile(const QString &file)
{
    return QFileIconProvider().icon(QFileInfo(file)).pixmap(16).toImage();
}

QImage generalIcon()
{
    return QIcon(QStringLiteral(":/core/image/exteditor.png")).pixmap(16).toImage();
}

} // namespace

class TestExternalEditorModel final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void itHasARowForEachEditorInItsOrder()
    {
        const ExternalEditorModel model({editorNamed("b"), editorNamed("a"), editorNamed("c")});
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(model.columnCount(), 3);
        QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("b"));
        QCOMPARE(model.index(1, 0).data().toString(), QStringLiteral("a"));
        QCOMPARE(model.index(2, 0).data().toString(), QStringLiteral("c"));
    }

    void aCellHasNoRowsBelowIt()
    {
        const ExternalEditorModel model({editorNamed("a")});
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
        QCOMPARE(model.columnCount(model.index(0, 0)), 0);
    }

    void columnsAreNamed()
    {
        const ExternalEditorModel model({});
        QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("Name"));
        QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Program"));
        QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), QStringLiteral("Arguments"));
    }

    void otherHeadersAreTheUsualOnes()
    {
        const ExternalEditorModel model({editorNamed("a")});
        QCOMPARE(model.headerData(0, Qt::Vertical).toInt(), 1);
        QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
        QCOMPARE(model.headerData(3, Qt::Horizontal).toInt(), 4);
    }

    void columnsShowTheTexts()
    {
        const ExternalEditorModel model(
            {{QStringLiteral("n"), QStringLiteral("p"), QStringLiteral("a"), false}});
        QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("n"));
        QCOMPARE(model.index(0, 1).data().toString(), QStringLiteral("p"));
        QCOMPARE(model.index(0, 2).data().toString(), QStringLiteral("a"));
    }

    void otherRolesAndPlacesHaveNoData()
    {
        const ExternalEditorModel model({editorNamed("a")});
        QVERIFY(!model.index(0, 0).data(Qt::EditRole).isValid());
        QVERIFY(!model.index(0, 0).data(Qt::ToolTipRole).isValid());
        QVERIFY(!model.index(0, 1).data(Qt::DecorationRole).isValid());
        QVERIFY(!model.index(0, 2).data(Qt::DecorationRole).isValid());
        QVERIFY(!model.data({}, Qt::DisplayRole).isValid());
        const ExternalEditorModel other({editorNamed("x"), editorNamed("y")});
        QVERIFY(!model.data(other.index(1, 0), Qt::DisplayRole).isValid());
    }

    void aRecordWithoutANameHasNoData()
    {
        const ExternalEditorModel model({editorNamed("", true)});
        for (int column = 0; column < 3; ++column) {
            for (int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), int(Qt::FontRole)})
                QVERIFY(!model.index(0, column).data(role).isValid());
        }
    }

    void theDefaultEditorIsBoldAndItalic()
    {
        const ExternalEditorModel model({editorNamed("a"), editorNamed("b", true)});
        for (int column = 0; column < 3; ++column) {
            const QFont plain = model.index(0, column).data(Qt::FontRole).value<QFont>();
            const QFont marked = model.index(1, column).data(Qt::FontRole).value<QFont>();
            QCOMPARE(plain, QFont());
            QCOMPARE(marked.weight(), 75);
            QVERIFY(marked.italic());
            QCOMPARE(marked.family(), QFont().family());
        }
    }

    void aProgramThatExistsHasItsIcon()
    {
        const ExternalEditorModel model(
            {{QStringLiteral("a"), QCoreApplication::applicationFilePath(), QString(), false}});
        QVERIFY(!iconAt(model, 0).isNull());
        QCOMPARE(iconAt(model, 0), iconOfFile(QCoreApplication::applicationFilePath()));
    }

    void otherProgramsHaveTheGeneralIcon_data()
    {
        QTest::addColumn<QString>("program");
        QTest::newRow("missing") << "/no/such/editor";
        QTest::newRow("bare name") << "no-such-editor";
        QTest::newRow("folder") << "/usr";
        QTest::newRow("empty") << "";
    }

    void otherProgramsHaveTheGeneralIcon()
    {
        QFETCH(QString, program);
        const ExternalEditorModel model({{QStringLiteral("a"), program, QString(), false}});
        QVERIFY(model.index(0, 0).data(Qt::DecorationRole).canConvert<QIcon>());
        QCOMPARE(iconAt(model, 0), generalIcon());
        QVERIFY(iconAt(model, 0) != iconOfFile(QCoreApplication::applicationFilePath()));
    }

    void aNewPathBringsItsIcon()
    {
        ExternalEditorModel model({editorNamed("no-such-editor")});
        QCOMPARE(iconAt(model, 0), generalIcon());
        model.setData(model.index(0, 1), QCoreApplication::applicationFilePath());
        QCOMPARE(iconAt(model, 0), iconOfFile(QCoreApplication::applicationFilePath()));
    }

    void aLongTableGetsItsIconsInTheEnd()
    {
        const QTemporaryDir folder;
        QList<ExternalEditor> editors;
        for (int i = 0; i < 300; ++i) {
            QFile program(folder.filePath(QString::number(i)));
            QVERIFY(program.open(QIODevice::WriteOnly));
            editors.append({QString::number(i), program.fileName(), QString(), false});
        }
        const ExternalEditorModel model(editors);
        const QImage own = iconOfFile(editors.constLast().program);
        for (int row = 0; row < 300; ++row)
            QVERIFY(model.index(row, 0).data(Qt::DecorationRole).canConvert<QIcon>());
        QCOMPARE(iconAt(model, 0), own);
        QVERIFY(iconAt(model, 299) != own); // not before there is time for it
        QSignalSpy changes(&model, &ExternalEditorModel::dataChanged);

        QTRY_COMPARE(iconAt(model, 299), own);
        QTRY_COMPARE(iconAt(model, 60), own);

        QVERIFY(!changes.isEmpty());
        QCOMPARE(changes.constFirst().at(0).toModelIndex(), model.index(0, 0));
        QCOMPARE(changes.constFirst().at(1).toModelIndex(), model.index(299, 0));
    }

    void textsAreSetByColumn()
    {
        ExternalEditorModel model({editorNamed("a", true)});
        QSignalSpy changes(&model, &ExternalEditorModel::dataChanged);
        for (int column = 0; column < 3; ++column) {
            const QModelIndex cell = model.index(0, column);
            QVERIFY(model.setData(cell, QStringLiteral("x%1").arg(column)));
            QCOMPARE(changes.size(), column + 1);
            QCOMPARE(changes.constLast().at(0).toModelIndex(), cell);
            QCOMPARE(changes.constLast().at(1).toModelIndex(), cell);
        }
        QCOMPARE(asTexts(model.editors()), list({"x0|x1|x2*"}));
    }

    void onlyTheTextOfACellIsSet()
    {
        ExternalEditorModel model({editorNamed("a")});
        const QSignalSpy changes(&model, &ExternalEditorModel::dataChanged);
        QVERIFY(!model.setData(model.index(0, 0), QStringLiteral("x"), Qt::DisplayRole));
        QVERIFY(!model.setData(model.index(0, 0), QStringLiteral("x"), Qt::UserRole));
        QVERIFY(!model.setData({}, QStringLiteral("x")));
        const ExternalEditorModel other({editorNamed("x"), editorNamed("y")});
        QVERIFY(!model.setData(other.index(1, 0), QStringLiteral("x")));
        QCOMPARE(asTexts(model.editors()), list({"a|/bin/a|%f"}));
        QVERIFY(changes.isEmpty());
    }

    void theFirstEditorAddedIsTheDefault()
    {
        ExternalEditorModel model({});
        model.addData(QStringLiteral("a"), QStringLiteral("p"), QStringLiteral("x"));
        model.addData(QStringLiteral("b"), QStringLiteral("q"), QStringLiteral("y"));
        QCOMPARE(asTexts(model.editors()), list({"a|p|x*", "b|q|y"}));
        QVERIFY(model.isDefault(0));
        QVERIFY(!model.isDefault(1));
    }

    void anEditorIsAddedAtTheEnd()
    {
        ExternalEditorModel model({editorNamed("a"), editorNamed("b")});
        QSignalSpy rows(&model, &ExternalEditorModel::rowsInserted);
        model.addData(QStringLiteral("c"), QStringLiteral("p"), QString());
        QCOMPARE(asTexts(model.editors()), list({"a|/bin/a|%f", "b|/bin/b|%f", "c|p|"}));
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.constFirst().at(1).toInt(), 2);
        QCOMPARE(rows.constFirst().at(2).toInt(), 2);
    }

    void theRowOfAnIndexIsRemoved()
    {
        ExternalEditorModel model({editorNamed("a"), editorNamed("b"), editorNamed("c")});
        QSignalSpy rows(&model, &ExternalEditorModel::rowsRemoved);
        model.removeData(model.index(1, 2));
        QCOMPARE(asTexts(model.editors()), list({"a|/bin/a|%f", "c|/bin/c|%f"}));
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.constFirst().at(1).toInt(), 1);
    }

    void removingNothingDoesNothing()
    {
        ExternalEditorModel model({editorNamed("a")});
        model.removeData({});
        QCOMPARE(model.rowCount(), 1);
    }

    void oneEditorIsMadeTheDefault()
    {
        ExternalEditorModel model({editorNamed("a", true), editorNamed("b"), editorNamed("c")});
        const QSignalSpy resets(&model, &ExternalEditorModel::modelReset);
        model.setEditorDefault(2);
        QCOMPARE(asTexts(model.editors()), list({"a|/bin/a|%f", "b|/bin/b|%f", "c|/bin/c|%f*"}));
        QCOMPARE(resets.size(), 1);
    }

    void aRowThatIsNoneIsNotMadeTheDefault()
    {
        ExternalEditorModel model({editorNamed("a", true), editorNamed("b")});
        const QSignalSpy resets(&model, &ExternalEditorModel::modelReset);
        model.setEditorDefault(-1);
        model.setEditorDefault(2);
        QCOMPARE(asTexts(model.editors()), list({"a|/bin/a|%f*", "b|/bin/b|%f"}));
        QVERIFY(resets.isEmpty());
    }

    void ofSeveralDefaultsTheFirstStaysOne()
    {
        const ExternalEditorModel model(
            {editorNamed("a"), editorNamed("b", true), editorNamed("c", true)});
        QCOMPARE(asTexts(model.editors()), list({"a|/bin/a|%f", "b|/bin/b|%f*", "c|/bin/c|%f"}));
    }

    void duplicateNamesAreShown()
    {
        const ExternalEditorModel model({editorNamed("a"), editorNamed("a")});
        QCOMPARE(model.rowCount(), 2);
    }

    void itKeepsTheRulesOfModels()
    {
        ExternalEditorModel model({editorNamed("a")});
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.addData(QStringLiteral("b"), QStringLiteral("p"), QString());
        model.setData(model.index(1, 1), QStringLiteral("q"));
        model.setEditorDefault(1);
        model.removeData(model.index(0, 0));
        model.removeData(model.index(0, 0));
        QCOMPARE(model.rowCount(), 0);
    }
};

QTEST_MAIN(TestExternalEditorModel)
#include "tst_externaleditormodel.moc"
