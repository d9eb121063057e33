// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QMenu>
#include <QMenuBar>
#include <QMetaMethod>
#include <QPointer>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

#include <functional>
#include <memory>

using namespace Core;

namespace {

const QString Id = QStringLiteral("Test.Container");
const QString Command = QStringLiteral("Test.Command");
const QString Global = QString::fromLatin1(Constants::C_GLOBAL);

/// The same question to each kind of container.
struct Kind
{
    std::function<QWidget *(const QString &)> create;
    std::function<QWidget *(const QString &)> find;
};

} // namespace

Q_DECLARE_METATYPE(Kind)

class TestActionManager final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void instanceIsThereWhileTheCoreRuns();
    void nullActionIsRefused();
    void emptyIdIsRefused();
    void firstRegistrationMakesTheProxy();
    void secondContextGivesTheSameProxy();
    void presentationIsTheFirstActions();
    void registryBecomesTheParentOfTheAction();
    void refusedActionBelongsToTheRegistryToo();
    void emptyContextRegistersForTheGlobalOne();
    void emptyContextUnregistersTheGlobalOne();
    void registeringDoesNotSwitchTheProxy();
    void unregisteringLeavesProxyAndActionAlone();
    void unregisteringTakesEffectWithTheNextChange();
    void unregisteringWithoutAnIdDoesNothing();
    void unregisteringAnUnknownIdDoesNothing();
    void unknownIdsGiveNull();
    void contextsReachEveryProxy();
    void destroyedProxyIsForgotten();
    void allProxiesAreListed();
    void destroyedProxyIsNotListed();
    void firstRegistrationIsToldOf();
    void furtherRegistrationIsNotToldOf();
    void proxyMayBeDestroyedWhenItIsToldOf();

    void containerIsMadeOnce_data() { kinds(); }
    void containerIsMadeOnce();
    void containerBelongsToTheMainWindow_data() { kinds(); }
    void containerBelongsToTheMainWindow();
    void containerIsNamedByItsId_data() { kinds(); }
    void containerIsNamedByItsId();
    void containerIsPutNowhere();
    void destroyedContainerIsForgotten_data() { kinds(); }
    void destroyedContainerIsForgotten();
    void destroyedContainerIsForgottenAlreadyInItsDestroyedSignal_data() { kinds(); }
    void destroyedContainerIsForgottenAlreadyInItsDestroyedSignal();
    void renamedContainerIsForgottenToo_data() { kinds(); }
    void renamedContainerIsForgottenToo();
    void onlyTheDestroyedOneOfEqualNamesIsForgotten_data() { kinds(); }
    void onlyTheDestroyedOneOfEqualNamesIsForgotten();
    void containerWithoutConnectionsIsForgottenToo_data() { kinds(); }
    void containerWithoutConnectionsIsForgottenToo();
    void destroyedContainerLeavesOtherKindsOfTheSameId();
    void forgettingIsASlot();

    void separatorIsMadeOnce();
    void separatorStandsInSeveralContainers();
    void destroyedSeparatorIsMadeAnew();

    void toolTipShowsTheShortcut();
    void toolTipWithoutShortcutHasAnEmptySpan();
    void nullActionHasNoToolTip();

    void toolBarsHaveTheSizeOfTheSettings_data();
    void toolBarsHaveTheSizeOfTheSettings();
    void toolBarsDoNotFloat();
    void sizeOutsideTheRangeIsIgnored_data();
    void sizeOutsideTheRangeIsIgnored();
    void sizeIsAppliedToAllToolBars_data();
    void sizeIsAppliedToAllToolBars();
    void presentSizeIsNotAppliedAgain();
    void toolBarsMayBeDestroyedWhileTheSizeIsApplied();
    void sizeIsNotWrittenToTheSettings();
    void settingIsReadOnce();

    void shutDownDeletesProxiesSeparatorsAndActions();
    void commandsMayBeRegisteredWhileTheRegistryGoes();
    void withoutRegistryNothingIsFound();

private:
    void kinds();

    std::unique_ptr<CoreFixture> m_core;
};

void TestActionManager::kinds()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("menu bar") << Kind{&ActionManager::createMenuBar, &ActionManager::menuBar};
    QTest::newRow("menu") << Kind{&ActionManager::createMenu, &ActionManager::menu};
    QTest::newRow("tool bar") << Kind{&ActionManager::createToolBar, &ActionManager::toolBar};
}

void TestActionManager::init()
{
    m_core = std::make_unique<CoreFixture>();
}

void TestActionManager::cleanup()
{
    m_core.reset();
}

void TestActionManager::instanceIsThereWhileTheCoreRuns()
{
    QVERIFY(ActionManager::instance());
}

void TestActionManager::nullActionIsRefused()
{
    QCOMPARE(ActionManager::registerAction(nullptr, Command, Global), nullptr);

    QCOMPARE(ActionManager::action(Command), nullptr);
}

void TestActionManager::emptyIdIsRefused()
{
    QAction action;

    QCOMPARE(ActionManager::registerAction(&action, QString(), Global), nullptr);

    QCOMPARE(ActionManager::action(QString()), nullptr);
    QCOMPARE(action.parent(), nullptr);
}

void TestActionManager::firstRegistrationMakesTheProxy()
{
    QAction action;

    IAction *proxy = ActionManager::registerAction(&action, Command, Global);

    QVERIFY(proxy);
    QCOMPARE(proxy->id(), Command);
    QCOMPARE(ActionManager::action(Command), proxy);
}

void TestActionManager::secondContextGivesTheSameProxy()
{
    QAction a;
    QAction b;

    IAction *first = ActionManager::registerAction(&a, Command, QStringLiteral("Test.A"));
    IAction *second = ActionManager::registerAction(&b, Command, QStringLiteral("Test.B"));

    QCOMPARE(second, first);
}

void TestActionManager::presentationIsTheFirstActions()
{
    QAction a(QStringLiteral("A"));
    QAction b(QStringLiteral("B"));

    ActionManager::registerAction(&a, Command, QStringLiteral("Test.A"));
    ActionManager::registerAction(&b, Command, QStringLiteral("Test.B"));

    QCOMPARE(ActionManager::action(Command)->text(), QStringLiteral("A"));
}

void TestActionManager::registryBecomesTheParentOfTheAction()
{
    QAction action;

    ActionManager::registerAction(&action, Command, Global);

    QCOMPARE(action.parent(), ActionManager::instance());
}

void TestActionManager::refusedActionBelongsToTheRegistryToo()
{
    QAction first;
    QAction second;
    IAction *proxy = ActionManager::registerAction(&first, Command, QStringLiteral("Test.A"));
    QTest::ignoreMessage(QtDebugMsg, "IAction: duplicate action on context:  \"Test.A\"");

    QCOMPARE(ActionManager::registerAction(&second, Command, QStringLiteral("Test.A")), proxy);

    QCOMPARE(second.parent(), ActionManager::instance());
    const QSignalSpy spy(&second, &QAction::triggered);
    ActionManager::setCurrentContexts({QStringLiteral("Test.A")});
    proxy->trigger();
    QCOMPARE(spy.count(), 0);
}

void TestActionManager::emptyContextRegistersForTheGlobalOne()
{
    QAction action;

    ActionManager::registerAction(&action, Command, QString());
    ActionManager::setCurrentContexts({Global});

    QVERIFY(ActionManager::action(Command)->isEnabled());
}

void TestActionManager::emptyContextUnregistersTheGlobalOne()
{
    QAction action;
    ActionManager::registerAction(&action, Command, Global);

    ActionManager::unregisterAction(Command, QString());
    ActionManager::setCurrentContexts({Global});

    QVERIFY(!ActionManager::action(Command)->isEnabled());
}

void TestActionManager::registeringDoesNotSwitchTheProxy()
{
    QAction action;
    ActionManager::setCurrentContexts({Global});

    ActionManager::registerAction(&action, Command, Global);
    QVERIFY(!ActionManager::action(Command)->isEnabled());

    ActionManager::setCurrentContexts({Global});
    QVERIFY(ActionManager::action(Command)->isEnabled());
}

void TestActionManager::unregisteringLeavesProxyAndActionAlone()
{
    QAction action;
    const QPointer<QAction> guard(&action);
    IAction *proxy = ActionManager::registerAction(&action, Command, Global);
    ActionManager::setCurrentContexts({Global});
    const QSignalSpy spy(&action, &QAction::triggered);

    ActionManager::unregisterAction(Command, Global);
    proxy->trigger();

    QCOMPARE(ActionManager::action(Command), proxy);
    QVERIFY(guard);
    QCOMPARE(spy.count(), 1);
}

void TestActionManager::unregisteringTakesEffectWithTheNextChange()
{
    QAction special(QStringLiteral("special"));
    QAction global(QStringLiteral("global"));
    IAction *proxy = ActionManager::registerAction(&special, Command, QStringLiteral("Test.A"));
    ActionManager::registerAction(&global, Command, Global);
    proxy->setTextUpdated(true);
    ActionManager::setCurrentContexts({QStringLiteral("Test.A"), Global});
    QCOMPARE(proxy->text(), QStringLiteral("special"));

    ActionManager::unregisterAction(Command, QStringLiteral("Test.A"));
    QCOMPARE(proxy->text(), QStringLiteral("special"));
    ActionManager::setCurrentContexts({QStringLiteral("Test.A"), Global});

    QCOMPARE(proxy->text(), QStringLiteral("global"));
}

void TestActionManager::unregisteringWithoutAnIdDoesNothing()
{
    QAction action;
    ActionManager::registerAction(&action, Command, Global);

    ActionManager::unregisterAction(QString(), Global);
    ActionManager::setCurrentContexts({Global});

    QVERIFY(ActionManager::action(Command)->isEnabled());
}

void TestActionManager::unregisteringAnUnknownIdDoesNothing()
{
    ActionManager::unregisterAction(QStringLiteral("Test.Unknown"), Global);

    QCOMPARE(ActionManager::action(QStringLiteral("Test.Unknown")), nullptr);
}

void TestActionManager::unknownIdsGiveNull()
{
    QCOMPARE(ActionManager::action(QStringLiteral("Test.Unknown")), nullptr);
    QCOMPARE(ActionManager::menuBar(QStringLiteral("Test.Unknown")), nullptr);
    QCOMPARE(ActionManager::menu(QStringLiteral("Test.Unknown")), nullptr);
    QCOMPARE(ActionManager::toolBar(QStringLiteral("Test.Unknown")), nullptr);
}

void TestActionManager::contextsReachEveryProxy()
{
    for (int i = 0; i < 20; ++i)
        ActionManager::registerAction(new QAction, QStringLiteral("Test.Command.%1").arg(i),
                                      Global);

    ActionManager::setCurrentContexts({Global});

    for (int i = 0; i < 20; ++i)
        QVERIFY(ActionManager::action(QStringLiteral("Test.Command.%1").arg(i))->isEnabled());
}

void TestActionManager::destroyedProxyIsForgotten()
{
    QAction action;
    delete ActionManager::registerAction(&action, Command, Global);
    QCOMPARE(ActionManager::action(Command), nullptr);

    IAction *proxy = ActionManager::registerAction(&action, Command, Global);
    ActionManager::setCurrentContexts({Global});

    QVERIFY(proxy->isEnabled());
}

void TestActionManager::allProxiesAreListed()
{
    const QList<IAction *> before = ActionManager::actions();
    IAction *const one = ActionManager::registerAction(new QAction, Command);
    IAction *const other = ActionManager::registerAction(new QAction, QStringLiteral("Test.Other"));

    const QList<IAction *> listed = ActionManager::actions();

    QCOMPARE(listed.size(), before.size() + 2);
    QVERIFY(listed.contains(one));
    QVERIFY(listed.contains(other));
    QVERIFY(listed.contains(ActionManager::action(QLatin1String(Constants::A_FILE_SAVE))));
}

void TestActionManager::destroyedProxyIsNotListed()
{
    const QList<IAction *> before = ActionManager::actions();
    delete ActionManager::registerAction(new QAction, Command);

    QCOMPARE(ActionManager::actions().size(), before.size());
    QVERIFY(!ActionManager::actions().contains(nullptr));
}

void TestActionManager::firstRegistrationIsToldOf()
{
    IAction *told = nullptr;
    QKeySequence key;
    connect(ActionManager::instance(), &ActionManager::actionRegistered, this,
            [&told, &key](IAction *proxy) {
                told = proxy;
                key = proxy->shortcut();
            });
    auto *action = new QAction;
    action->setShortcut(QKeySequence(Qt::Key_F9));

    IAction *const proxy = ActionManager::registerAction(action, Command);

    QVERIFY(proxy);
    QCOMPARE(told, proxy);
    QCOMPARE(key, QKeySequence(Qt::Key_F9));
}

void TestActionManager::furtherRegistrationIsNotToldOf()
{
    ActionManager::registerAction(new QAction, Command);
    const QSignalSpy told(ActionManager::instance(), &ActionManager::actionRegistered);

    ActionManager::registerAction(new QAction, Command, QStringLiteral("Test.Context"));

    QCOMPARE(told.count(), 0);
}

void TestActionManager::proxyMayBeDestroyedWhenItIsToldOf()
{
    connect(ActionManager::instance(), &ActionManager::actionRegistered, this,
            [](IAction *proxy) { delete proxy; });

    QVERIFY(!ActionManager::registerAction(new QAction, Command));
    QVERIFY(!ActionManager::action(Command));
}

void TestActionManager::containerIsMadeOnce()
{
    QFETCH(Kind, kind);

    QWidget *container = kind.create(Id);

    QVERIFY(container);
    QCOMPARE(kind.create(Id), container);
    QCOMPARE(kind.find(Id), container);
}

void TestActionManager::containerBelongsToTheMainWindow()
{
    QFETCH(Kind, kind);

    QCOMPARE(kind.create(Id)->parent(), static_cast<QObject *>(ViewManager::mainWindow()));
}

void TestActionManager::containerIsNamedByItsId()
{
    QFETCH(Kind, kind);

    QCOMPARE(kind.create(Id)->objectName(), Id);
}

void TestActionManager::containerIsPutNowhere()
{
    const QMenuBar *menuBar = ActionManager::createMenuBar(Id);
    const QMenu *menu = ActionManager::createMenu(Id);
    QToolBar *toolBar = ActionManager::createToolBar(Id);

    QVERIFY(ViewManager::mainWindow()->menuWidget() != menuBar);
    QVERIFY(menu->menuAction()->associatedWidgets().isEmpty());
    QCOMPARE(ViewManager::mainWindow()->toolBarArea(toolBar), Qt::NoToolBarArea);
}

void TestActionManager::destroyedContainerIsForgotten()
{
    QFETCH(Kind, kind);
    const QPointer<QWidget> old = kind.create(Id);

    delete old;
    QCOMPARE(kind.find(Id), nullptr);

    QWidget *created = kind.create(Id);
    QVERIFY(created);
    QCOMPARE(kind.find(Id), created);
}

void TestActionManager::destroyedContainerIsForgottenAlreadyInItsDestroyedSignal()
{
    QFETCH(Kind, kind);
    QWidget *container = kind.create(Id);
    bool found = true;
    connect(container, &QObject::destroyed, this,
            [&found, &kind] { found = kind.find(Id) != nullptr; });

    delete container;

    QVERIFY(!found);
}

void TestActionManager::renamedContainerIsForgottenToo()
{
    QFETCH(Kind, kind);
    QWidget *container = kind.create(Id);
    container->setObjectName(QStringLiteral("Test.Renamed"));

    delete container;
    QCOMPARE(kind.find(Id), nullptr);

    QCOMPARE(kind.create(Id)->objectName(), Id);
}

void TestActionManager::onlyTheDestroyedOneOfEqualNamesIsForgotten()
{
    QFETCH(Kind, kind);
    const QString otherId = QStringLiteral("Test.Other");
    QWidget *container = kind.create(Id);
    QWidget *other = kind.create(otherId);
    other->setObjectName(Id);

    delete other;

    QCOMPARE(kind.find(Id), container);
    QCOMPARE(kind.find(otherId), nullptr);
}

void TestActionManager::containerWithoutConnectionsIsForgottenToo()
{
    QFETCH(Kind, kind);
    QWidget *container = kind.create(Id);
    QObject::disconnect(container, &QObject::destroyed, nullptr, nullptr);

    delete container;

    QCOMPARE(kind.find(Id), nullptr);
}

void TestActionManager::destroyedContainerLeavesOtherKindsOfTheSameId()
{
    QMenuBar *menuBar = ActionManager::createMenuBar(Id);
    QToolBar *toolBar = ActionManager::createToolBar(Id);

    delete ActionManager::createMenu(Id);

    QCOMPARE(ActionManager::menu(Id), nullptr);
    QCOMPARE(ActionManager::menuBar(Id), menuBar);
    QCOMPARE(ActionManager::toolBar(Id), toolBar);
}

void TestActionManager::forgettingIsASlot()
{
    const QMetaObject &meta = ActionManager::staticMetaObject;
    const int index = meta.indexOfSlot("onContainerDestory()");

    QVERIFY(index >= 0);
    QCOMPARE(meta.method(index).methodType(), QMetaMethod::Slot);
}

void TestActionManager::separatorIsMadeOnce()
{
    QAction *separator = ActionManager::separator(QStringLiteral("Test.Sep.F"));

    QVERIFY(separator->isSeparator());
    QCOMPARE(separator->parent(), ActionManager::instance());
    QCOMPARE(ActionManager::separator(QStringLiteral("Test.Sep.F")), separator);
    QVERIFY(ActionManager::separator(QStringLiteral("Test.Sep.B")) != separator);
}

void TestActionManager::separatorStandsInSeveralContainers()
{
    QMenu menu;
    QToolBar toolBar;
    QAction *separator = ActionManager::separator(QStringLiteral("Test.Sep.F"));

    menu.addAction(separator);
    toolBar.addAction(separator);

    QVERIFY(menu.actions().contains(separator));
    QVERIFY(toolBar.actions().contains(separator));
}

void TestActionManager::destroyedSeparatorIsMadeAnew()
{
    delete ActionManager::separator(Id);

    QVERIFY(ActionManager::separator(Id)->isSeparator());
}

void TestActionManager::toolTipShowsTheShortcut()
{
    QAction action;
    action.setToolTip(QStringLiteral("Open"));
    action.setShortcut(QKeySequence(QStringLiteral("Ctrl+O")));

    ActionManager::formatTooltip(&action);

    QCOMPARE(action.toolTip(),
             QStringLiteral("<nobr>Open&nbsp;<span style=\"color: gray; font-size: "
                            "small\">%1</span></nobr>")
                 .arg(QKeySequence(QStringLiteral("Ctrl+O")).toString(QKeySequence::NativeText)));
}

void TestActionManager::toolTipWithoutShortcutHasAnEmptySpan()
{
    QAction action;
    action.setToolTip(QStringLiteral("100%2"));

    ActionManager::formatTooltip(&action);

    QCOMPARE(action.toolTip(), QStringLiteral("<nobr>100%2&nbsp;<span style=\"color: gray; "
                                              "font-size: small\"></span></nobr>"));
}

void TestActionManager::nullActionHasNoToolTip()
{
    QAction *last = ActionManager::separator(Id);
    const QString toolTip = last->toolTip();

    ActionManager::formatTooltip(nullptr);

    QCOMPARE(last->toolTip(), toolTip);
}

void TestActionManager::toolBarsHaveTheSizeOfTheSettings_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<int>("expected");
    QTest::newRow("missing") << QVariant() << 24;
    QTest::newRow("smallest") << QVariant(16) << 16;
    QTest::newRow("largest") << QVariant(28) << 28;
    QTest::newRow("too small") << QVariant(15) << 24;
    QTest::newRow("too large") << QVariant(29) << 24;
    QTest::newRow("negative") << QVariant(-20) << 24;
    QTest::newRow("no number") << QVariant(QStringLiteral("large")) << 24;
    QTest::newRow("empty") << QVariant(QString()) << 24;
    QTest::newRow("list") << QVariant(QStringList{QStringLiteral("1"), QStringLiteral("2")}) << 24;
}

void TestActionManager::toolBarsHaveTheSizeOfTheSettings()
{
    QFETCH(QVariant, setting);
    QFETCH(int, expected);
    m_core.reset();
    if (setting.isValid())
        CoreFixture::storeSetting(QStringLiteral("Core/ToolbarIconSize"), setting);
    m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);

    QCOMPARE(ActionManager::createToolBar(Id)->iconSize(), QSize(expected, expected));
}

void TestActionManager::toolBarsDoNotFloat()
{
    QVERIFY(!ActionManager::createToolBar(Id)->isFloatable());
}

void TestActionManager::sizeOutsideTheRangeIsIgnored_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {15, 29, 0, -16})
        QTest::addRow("%d", size) << size;
}

void TestActionManager::sizeOutsideTheRangeIsIgnored()
{
    QFETCH(int, size);
    const QToolBar *bar = ActionManager::createToolBar(Id);

    ActionManager::setToolbarIconSize(size);

    QCOMPARE(bar->iconSize(), QSize(24, 24));
    QCOMPARE(ActionManager::createToolBar(QStringLiteral("Test.Later"))->iconSize(), QSize(24, 24));
}

void TestActionManager::sizeIsAppliedToAllToolBars_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 28})
        QTest::addRow("%d", size) << size;
}

void TestActionManager::sizeIsAppliedToAllToolBars()
{
    QFETCH(int, size);
    const QToolBar *one = ActionManager::createToolBar(Id);
    const QToolBar *other = ActionManager::createToolBar(QStringLiteral("Test.Other"));

    ActionManager::setToolbarIconSize(size);

    QCOMPARE(one->iconSize(), QSize(size, size));
    QCOMPARE(other->iconSize(), QSize(size, size));
    QCOMPARE(ActionManager::createToolBar(QStringLiteral("Test.Later"))->iconSize(),
             QSize(size, size));
}

void TestActionManager::presentSizeIsNotAppliedAgain()
{
    QToolBar *bar = ActionManager::createToolBar(Id);
    bar->setIconSize(QSize(40, 40));

    ActionManager::setToolbarIconSize(24);

    QCOMPARE(bar->iconSize(), QSize(40, 40));
}

void TestActionManager::toolBarsMayBeDestroyedWhileTheSizeIsApplied()
{
    const QPointer<QToolBar> one = ActionManager::createToolBar(Id);
    const QPointer<QToolBar> other = ActionManager::createToolBar(QStringLiteral("Test.Other"));
    connect(one, &QToolBar::iconSizeChanged, this, [&other] { delete other; });
    connect(other, &QToolBar::iconSizeChanged, this, [&one] { delete one; });

    ActionManager::setToolbarIconSize(28);

    const QToolBar *left = one ? one : other;
    QVERIFY(left);
    QVERIFY(!one || !other);
    QCOMPARE(left->iconSize(), QSize(28, 28));
}

void TestActionManager::sizeIsNotWrittenToTheSettings()
{
    ActionManager::setToolbarIconSize(28);
    m_core.reset();

    QVERIFY(!CoreFixture::storedSetting(QStringLiteral("Core/ToolbarIconSize")).isValid());
}

void TestActionManager::settingIsReadOnce()
{
    IdeCore::userSettings()->setValue(QStringLiteral("Core/ToolbarIconSize"), 28);

    QCOMPARE(ActionManager::createToolBar(Id)->iconSize(), QSize(24, 24));
}

void TestActionManager::shutDownDeletesProxiesSeparatorsAndActions()
{
    QMenu menu;
    const QPointer<QAction> action = new QAction;
    const QPointer<IAction> proxy = ActionManager::registerAction(action, Command, Global);
    const QPointer<QAction> separator = ActionManager::separator(QStringLiteral("Test.Sep.F"));
    menu.addAction(proxy);
    menu.addAction(separator);

    m_core.reset();

    QVERIFY(!proxy);
    QVERIFY(!action);
    QVERIFY(!separator);
    QVERIFY(menu.actions().isEmpty());
}

void TestActionManager::commandsMayBeRegisteredWhileTheRegistryGoes()
{
    QPointer<IAction> late;
    IAction *proxy = ActionManager::registerAction(new QAction, Command, Global);
    connect(proxy, &QObject::destroyed, this, [&late] {
        late = ActionManager::registerAction(new QAction, QStringLiteral("Test.Late"), Global);
        QVERIFY(late);
    });

    m_core.reset();

    QVERIFY(!late);
}

void TestActionManager::withoutRegistryNothingIsFound()
{
    m_core.reset();
    QAction action;

    QCOMPARE(ActionManager::instance(), nullptr);
    QCOMPARE(ActionManager::registerAction(&action, Command, Global), nullptr);
    QCOMPARE(ActionManager::action(Command), nullptr);
    QCOMPARE(ActionManager::separator(Id), nullptr);
    QCOMPARE(ActionManager::createMenuBar(Id), nullptr);
    QCOMPARE(ActionManager::createMenu(Id), nullptr);
    QCOMPARE(ActionManager::createToolBar(Id), nullptr);
    ActionManager::unregisterAction(Command, Global);
    ActionManager::setToolbarIconSize(20);
    ActionManager::setCurrentContexts({Global});
}

QTEST_MAIN(TestActionManager)
#include "tst_actionmanager.moc"
