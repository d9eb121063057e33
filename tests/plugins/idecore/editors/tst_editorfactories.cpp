// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editorfixture.h"
#include "support/messagerecorder.h"

#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/mimedatabase/mimedatabase.h>

#include <QFileInfo>
#include <QTest>

#include <memory>

using Core::EditorManager;
using Core::IEditor;
using Core::IEditorFactory;
using Core::private_impl::EditorManagerPrivate;

/// Which editor is made for which file.
class TestEditorFactories final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_fixture = std::make_unique<EditorFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void typeOfAFile();
    void unknownTypeIsPlainText();
    void factoriesOfTheTypeComeFirst();
    void factoriesAreFoundDepthFirst();
    void factoriesAreListedWithRepeats();
    void factoriesMatchTheTypeCaseSensitively();
    void unknownParentContributesNothing();
    void factoriesForFileHaveNoRepeats();
    void factoryEarlierInThePoolWins();
    void factoryForFileWithoutAny();
    void cycleOfTypesEndsWithAWarning();
    void typeUnderItselfEndsWithAWarning();
    void typeMetTwiceIsNoCycle();
    void deepHierarchyIsWalkedToTheEnd();
    void opensWithTheFactoryOfTheType();
    void opensWithTheFactoryOfTheParent();
    void opensAFileOfUnknownTypeAsText();

private:
    std::unique_ptr<EditorFixture> m_fixture;
};

void TestEditorFactories::typeOfAFile()
{
    addType(QStringLiteral("text/x-test"), QStringLiteral("tst"), texts({"text/plain"}));

    QCOMPARE(
        Core::private_impl::determineMimeType(m_fixture->makeFile(QStringLiteral("a.tst"))).type(),
        QStringLiteral("text/x-test"));
}

void TestEditorFactories::unknownTypeIsPlainText()
{
    const QString missing = m_fixture->folder.filePath(QStringLiteral("missing"));
    QVERIFY(Core::IdeCore::mimeDatabase()->findByFile(QFileInfo(missing)).isNull());

    QCOMPARE(Core::private_impl::determineMimeType(missing).type(), QStringLiteral("text/plain"));
}

void TestEditorFactories::factoriesOfTheTypeComeFirst()
{
    addType(QStringLiteral("text/x-child"), QString(), texts({"text/plain"}));
    TestEditorFactory parent(texts({"text/plain"}));
    TestEditorFactory child(texts({"text/x-child"}));

    QCOMPARE(Core::private_impl::getFactoriesRecursively(mimeType(QStringLiteral("text/x-child")),
                                                         {&parent, &child}),
             (QList<IEditorFactory *>{&child, &parent}));
}

void TestEditorFactories::factoriesAreFoundDepthFirst()
{
    addType(QStringLiteral("a/grandparent"));
    addType(QStringLiteral("a/first"), QString(), texts({"a/grandparent"}));
    addType(QStringLiteral("a/second"));
    addType(QStringLiteral("a/child"), QString(), texts({"a/first", "a/second"}));
    TestEditorFactory second(texts({"a/second"}));
    TestEditorFactory grandparent(texts({"a/grandparent"}));
    TestEditorFactory first(texts({"a/first"}));

    QCOMPARE(Core::private_impl::getFactoriesRecursively(mimeType(QStringLiteral("a/child")),
                                                         {&second, &grandparent, &first}),
             (QList<IEditorFactory *>{&first, &grandparent, &second}));
}

void TestEditorFactories::factoriesAreListedWithRepeats()
{
    addType(QStringLiteral("a/parent"));
    addType(QStringLiteral("a/child"), QString(), texts({"a/parent"}));
    TestEditorFactory both(texts({"a/parent", "a/child"}));

    QCOMPARE(
        Core::private_impl::getFactoriesRecursively(mimeType(QStringLiteral("a/child")), {&both}),
        (QList<IEditorFactory *>{&both, &both}));
}

void TestEditorFactories::factoriesMatchTheTypeCaseSensitively()
{
    addType(QStringLiteral("a/type"));
    TestEditorFactory factory(texts({"a/Type", "A/TYPE", "a/typ", "a/type2"}));

    QVERIFY(
        Core::private_impl::getFactoriesRecursively(mimeType(QStringLiteral("a/type")), {&factory})
            .isEmpty());
}

void TestEditorFactories::unknownParentContributesNothing()
{
    addType(QStringLiteral("a/child"), QString(), texts({"a/unknown", "text/plain"}));
    TestEditorFactory unknown(texts({"a/unknown"}));
    TestEditorFactory text(texts({"text/plain"}));

    QCOMPARE(Core::private_impl::getFactoriesRecursively(mimeType(QStringLiteral("a/child")),
                                                         {&unknown, &text}),
             QList<IEditorFactory *>{&text});
}

void TestEditorFactories::factoriesForFileHaveNoRepeats()
{
    addType(QStringLiteral("text/x-test"), QStringLiteral("tst"), texts({"text/plain"}));
    TestEditorFactory both(texts({"text/plain", "text/x-test"}));
    const InPool pooled(&both);

    // In the pool it stands behind the factory of the parent.
    QCOMPARE(EditorManager::factoriesForFile(m_fixture->makeFile(QStringLiteral("a.tst"))),
             (QList<IEditorFactory *>{&both, &m_fixture->factory}));
}

void TestEditorFactories::factoryEarlierInThePoolWins()
{
    TestEditorFactory later(texts({"text/plain"}));
    const InPool pooled(&later);
    const QString file = m_fixture->makeFile(QStringLiteral("a.txt"));

    QCOMPARE(EditorManager::factoriesForFile(file),
             (QList<IEditorFactory *>{&m_fixture->factory, &later}));
    QCOMPARE(EditorManager::factoryForFile(file), &m_fixture->factory);
}

void TestEditorFactories::factoryForFileWithoutAny()
{
    m_fixture->factory.types.clear();
    const QString file = m_fixture->makeFile(QStringLiteral("a.txt"));

    QVERIFY(EditorManager::factoriesForFile(file).isEmpty());
    QCOMPARE(EditorManager::factoryForFile(file), nullptr);
    QCOMPARE(EditorManagerPrivate::createEditor(file), nullptr);
}

void TestEditorFactories::cycleOfTypesEndsWithAWarning()
{
    addType(QStringLiteral("a/top"));
    addType(QStringLiteral("a/a"), QStringLiteral("aaa"), texts({"a/top", "a/c", "text/plain"}));
    addType(QStringLiteral("a/b"), QString(), texts({"a/a"}));
    addType(QStringLiteral("a/c"), QString(), texts({"a/b"}));
    TestEditorFactory b(texts({"a/b"}));
    const InPool pooled(&b);
    const QString path = m_fixture->makeFile(QStringLiteral("x.aaa"));
    QCOMPARE(Core::private_impl::determineMimeType(path).type(), QStringLiteral("a/a"));
    MessageRecorder log;

    const QList<IEditorFactory *> found = EditorManager::factoriesForFile(path);

    QCOMPARE(found, (QList<IEditorFactory *>{&b, &m_fixture->factory}));
    const QStringList warnings = log.lines(QtWarningMsg);
    QCOMPARE(warnings.size(), 1);
    QVERIFY2(warnings.constFirst().endsWith(QLatin1String(
                 ": Inconsistent mime hierarchy detected, cycle of types: a/a > a/b > a/c > a/a.")),
             qPrintable(warnings.constFirst()));
}

void TestEditorFactories::typeUnderItselfEndsWithAWarning()
{
    addType(QStringLiteral("a/self"), QString(), texts({"a/self"}));
    TestEditorFactory factory(texts({"a/self"}));
    MessageRecorder log;

    QCOMPARE(
        Core::private_impl::getFactoriesRecursively(mimeType(QStringLiteral("a/self")), {&factory}),
        QList<IEditorFactory *>{&factory});

    const QStringList warnings = log.lines(QtWarningMsg);
    QCOMPARE(warnings.size(), 1);
    QVERIFY(warnings.constFirst().endsWith(QLatin1String("cycle of types: a/self > a/self.")));
}

void TestEditorFactories::typeMetTwiceIsNoCycle()
{
    addType(QStringLiteral("a/top"));
    addType(QStringLiteral("a/left"), QString(), texts({"a/top"}));
    addType(QStringLiteral("a/right"), QString(), texts({"a/top"}));
    addType(QStringLiteral("a/bottom"), QString(), texts({"a/left", "a/right"}));
    TestEditorFactory top(texts({"a/top"}));
    TestEditorFactory right(texts({"a/right"}));
    MessageRecorder log;

    QCOMPARE(Core::private_impl::getFactoriesRecursively(mimeType(QStringLiteral("a/bottom")),
                                                         {&top, &right}),
             (QList<IEditorFactory *>{&top, &right, &top}));

    QVERIFY(log.lines(QtWarningMsg).isEmpty());
}

void TestEditorFactories::deepHierarchyIsWalkedToTheEnd()
{
    constexpr int depth = 50000;
    const auto name = [](int level) { return QStringLiteral("deep/%1").arg(level); };
    addType(name(0));
    for (int level = 1; level < depth; ++level)
        addType(name(level), QString(), {name(level - 1)});
    TestEditorFactory factory({name(0)});

    QCOMPARE(Core::private_impl::getFactoriesRecursively(
                 Core::IdeCore::mimeDatabase()->findByType(name(depth - 1)), {&factory}),
             QList<IEditorFactory *>{&factory});
}

void TestEditorFactories::opensWithTheFactoryOfTheType()
{
    addType(QStringLiteral("text/x-test"), QStringLiteral("tst"), texts({"text/plain"}));
    TestEditorFactory exact(texts({"text/x-test"}));
    const InPool pooled(&exact);

    const IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.tst")), false);

    QVERIFY(editor);
    QCOMPARE(exact.made, 1);
    QCOMPARE(m_fixture->factory.made, 0);
}

void TestEditorFactories::opensWithTheFactoryOfTheParent()
{
    addType(QStringLiteral("text/x-parent"), QString(), texts({"text/plain"}));
    addType(QStringLiteral("text/x-test"), QStringLiteral("tst"), texts({"text/x-parent"}));
    TestEditorFactory parent(texts({"text/x-parent"}));
    const InPool pooled(&parent);

    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.tst")), false);

    QCOMPARE(parent.made, 1);
    QCOMPARE(m_fixture->factory.made, 0);
}

void TestEditorFactories::opensAFileOfUnknownTypeAsText()
{
    QVERIFY(EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("LIESMICH")), false));

    QCOMPARE(m_fixture->factory.made, 1);
}

QTEST_MAIN(TestEditorFactories)
#include "tst_editorfactories.moc"
