// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Holds the registry, which touches only what a change concerns, against the
// plain rules applied to every proxy: the same random operations on both, with
// everything that can be seen of proxies and actions compared after each.

#include "plainproxy.h"
#include "support/corefixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>

#include <QLoggingCategory>
#include <QPixmap>
#include <QTest>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <vector>

using namespace Core;

namespace {

constexpr int CommandCount = 12;
constexpr int ContextCount = 6;

QString commandId(int command)
{
    return QStringLiteral("Test.Command.%1").arg(command);
}

QString contextId(int context)
{
    return QStringLiteral("Test.Context.%1").arg(context);
}

using Key = std::pair<int, int>; // command and context

struct Counts
{
    int changed = 0;
    int toggled = 0;
    int triggered = 0;
};

bool same(const Counts &a, const Counts &b, bool withChanged)
{
    return (!withChanged || a.changed == b.changed) && a.toggled == b.toggled
           && a.triggered == b.triggered;
}

/// Setting an icon counts as a change even if it is the same icon, and the plain
/// rules set it again and again; with other proxies every changed() must be there.
bool followsIcons(int command)
{
    return command % 3 == 0;
}

QString described(const Counts &counts, bool withChanged)
{
    return QStringLiteral("changed %1 toggled %2 triggered %3")
        .arg(withChanged ? counts.changed : 0)
        .arg(counts.toggled)
        .arg(counts.triggered);
}

/// Commands and the actions for them, served by proxies of one kind.
template<class Proxy>
class World
{
public:
    virtual ~World() = default;

    virtual void registerAction(QAction *action, int command, int context) = 0;
    virtual void unregisterAction(int command, int context) = 0;
    virtual void setCurrentContexts(const QStringList &contexts) = 0;
    virtual Proxy *proxy(int command) = 0;

    void add(int command, int context, const std::function<void(QAction *)> &furnish)
    {
        auto action = std::make_unique<QAction>();
        furnish(action.get());
        const bool isNew = !proxy(command);
        registerAction(action.get(), command, context);
        if (isNew)
            count(proxy(command), proxyCounts[command]);
        if (actions.count({command, context}))
            return; // refused
        count(action.get(), actionCounts[{command, context}]);
        actions[{command, context}] = std::move(action);
    }

    void remove(int command, int context)
    {
        unregisterAction(command, context);
        const auto it = actions.find({command, context});
        if (it == actions.end())
            return;
        spare.push_back(std::move(it->second));
        actions.erase(it);
    }

    void destroy(int command, int context) { actions.erase({command, context}); }

    QAction *action(int command, int context)
    {
        const auto it = actions.find({command, context});
        return it == actions.end() ? nullptr : it->second.get();
    }

    /// Takes off every connection, also the world's own, which is put back.
    static void cut(QAction *action, Counts &counts)
    {
        action->disconnect();
        count(action, counts);
    }

    static void count(QAction *action, Counts &counts)
    {
        QObject::connect(action, &QAction::changed, action, [&counts] { ++counts.changed; });
        QObject::connect(action, &QAction::toggled, action, [&counts] { ++counts.toggled; });
        QObject::connect(action, &QAction::triggered, action, [&counts] { ++counts.triggered; });
    }

    std::map<Key, std::unique_ptr<QAction>> actions;
    // Unregistered, and alive because one may still be current.
    std::vector<std::unique_ptr<QAction>> spare;
    std::map<int, Counts> proxyCounts;
    std::map<Key, Counts> actionCounts;
};

class RealWorld final : public World<IAction>
{
public:
    void registerAction(QAction *action, int command, int context) override
    {
        ActionManager::registerAction(action, commandId(command), contextId(context));
        action->setParent(nullptr);
    }
    void unregisterAction(int command, int context) override
    {
        ActionManager::unregisterAction(commandId(command), contextId(context));
    }
    void setCurrentContexts(const QStringList &contexts) override
    {
        ActionManager::setCurrentContexts(contexts);
    }
    IAction *proxy(int command) override { return ActionManager::action(commandId(command)); }
};

class PlainWorld final : public World<PlainProxy>
{
public:
    void registerAction(QAction *action, int command, int context) override
    {
        std::unique_ptr<PlainProxy> &proxy = m_proxies.at(static_cast<std::size_t>(command));
        if (!proxy)
            proxy = std::make_unique<PlainProxy>(commandId(command), action);
        proxy->addOverrideAction(action, contextId(context));
    }
    void unregisterAction(int command, int context) override
    {
        if (PlainProxy *known = proxy(command))
            known->removeContextAction(contextId(context));
    }
    void setCurrentContexts(const QStringList &contexts) override
    {
        for (const std::unique_ptr<PlainProxy> &proxy : m_proxies) {
            if (proxy)
                proxy->setCurrentContexts(contexts);
        }
    }
    PlainProxy *proxy(int command) override
    {
        return m_proxies.at(static_cast<std::size_t>(command)).get();
    }
    void destroyProxy(int command) { m_proxies.at(static_cast<std::size_t>(command)).reset(); }

private:
    std::array<std::unique_ptr<PlainProxy>, CommandCount> m_proxies;
};

bool same(const QAction *a, const QAction *b)
{
    if (!a || !b)
        return a == b;
    return a->text() == b->text() && a->toolTip() == b->toolTip()
           && a->statusTip() == b->statusTip() && a->iconText() == b->iconText()
           && a->shortcut() == b->shortcut() && a->whatsThis() == b->whatsThis()
           && a->icon().cacheKey() == b->icon().cacheKey()
           && a->isIconVisibleInMenu() == b->isIconVisibleInMenu()
           && a->isCheckable() == b->isCheckable() && a->isChecked() == b->isChecked()
           && a->isEnabled() == b->isEnabled() && a->isVisible() == b->isVisible();
}

QString described(const QAction *action)
{
    if (!action)
        return QStringLiteral("none");
    return QStringLiteral("%1|%2|%3|%4|%5|%6|%7|")
               .arg(action->text(), action->toolTip(), action->statusTip(), action->iconText(),
                    action->shortcut().toString(), action->whatsThis(),
                    QString::number(action->icon().cacheKey()))
           + QStringLiteral("iconInMenu %1 checkable %2 checked %3 enabled %4 visible %5")
                 .arg(action->isIconVisibleInMenu())
                 .arg(action->isCheckable())
                 .arg(action->isChecked())
                 .arg(action->isEnabled())
                 .arg(action->isVisible());
}

} // namespace

class TestRandomContexts final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void indexedChangesMatchThePlainRules_data();
    void indexedChangesMatchThePlainRules();

private:
    using Change = std::function<void(QAction *)>;
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }
    Change randomChange();
    QStringList randomContexts();
    /// Does one operation to both worlds and says what it was.
    QString step(RealWorld &real, PlainWorld &plain);
    QString difference(RealWorld &real, PlainWorld &plain);

    std::mt19937 m_random;
    std::vector<QIcon> m_icons;
};

void TestRandomContexts::initTestCase()
{
    // Refused registrations are part of the operations; each is logged.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    for (const Qt::GlobalColor color : {Qt::red, Qt::green, Qt::blue}) {
        QPixmap pixmap(4, 4);
        pixmap.fill(color);
        m_icons.emplace_back(pixmap);
    }
}

TestRandomContexts::Change TestRandomContexts::randomChange()
{
    const bool on = below(2) == 1;
    const QString text = QStringLiteral("Text %1").arg(below(3));
    const QIcon icon = m_icons.at(static_cast<std::size_t>(below(3)));
    switch (below(9)) {
    case 0:
        return [on](QAction *action) { action->setEnabled(on); };
    case 1:
        return [on](QAction *action) { action->setVisible(on); };
    case 2:
        return [on](QAction *action) { action->setCheckable(on); };
    case 3:
        return [on](QAction *action) { action->setChecked(on); };
    case 4:
        return [text](QAction *action) { action->setText(text); };
    case 5:
        return [text](QAction *action) { action->setToolTip(text); };
    case 6:
        return [text](QAction *action) { action->setStatusTip(text); };
    case 7:
        return [icon, on](QAction *action) {
            action->setIcon(icon);
            action->setIconVisibleInMenu(on);
        };
    default:
        return [text](QAction *action) { action->setIconText(text); };
    }
}

QStringList TestRandomContexts::randomContexts()
{
    QStringList contexts;
    const int length = below(6);
    for (int i = 0; i < length; ++i) // one id beyond what is ever registered
        contexts.append(contextId(below(ContextCount + 1)));
    if (below(3) > 0)
        contexts.append(contextId(0));
    return contexts;
}

QString TestRandomContexts::step(RealWorld &real, PlainWorld &plain)
{
    const int command = below(CommandCount);
    const int context = below(ContextCount);
    const QString where = QStringLiteral("%1 in %2").arg(commandId(command), contextId(context));
    // Enabling an action that is not visible is remembered and shows nowhere, not
    // even in an event: what it sets off is not compared.
    const auto toVisible = [&](const Change &operation) {
        if (real.proxy(command) && real.proxy(command)->isVisible()) {
            operation(real.proxy(command));
            operation(plain.proxy(command));
        }
    };
    const auto toBoth = [&](auto operation) {
        if (real.proxy(command)) {
            operation(real.proxy(command));
            operation(plain.proxy(command));
        }
    };
    const auto toActions = [&](auto operation) {
        if (QAction *action = real.action(command, context)) {
            operation(action);
            operation(plain.action(command, context));
        }
    };
    const Change change = randomChange();
    const Change more = randomChange();
    const bool on = below(2) == 1;
    const int kind = below(100);
    if (kind < 34) {
        const QStringList contexts = randomContexts();
        real.setCurrentContexts(contexts);
        plain.setCurrentContexts(contexts);
        return QStringLiteral("contexts ") + contexts.join(QLatin1Char(' '));
    }
    if (kind < 48) {
        const auto furnish = [&change, &more, command](QAction *action) {
            if (command % 5 == 0)
                action->setShortcut(QKeySequence(int(Qt::CTRL) + Qt::Key_A + command));
            change(action);
            more(action);
        };
        real.add(command, context, furnish);
        plain.add(command, context, furnish);
        return QStringLiteral("register ") + where;
    }
    if (kind < 53) {
        real.remove(command, context);
        plain.remove(command, context);
        return QStringLiteral("unregister ") + where;
    }
    if (kind < 57) {
        real.destroy(command, context);
        plain.destroy(command, context);
        return QStringLiteral("destroy action ") + where;
    }
    if (kind < 65) {
        toActions(change);
        return QStringLiteral("change action ") + where;
    }
    if (kind < 67) {
        toActions([&change](QAction *action) {
            const QSignalBlocker blocker(action);
            change(action);
        });
        return QStringLiteral("change blocked action ") + where;
    }
    if (kind < 73) {
        toVisible(change);
        return QStringLiteral("change proxy ") + where;
    }
    if (kind < 75) {
        toVisible([&change](QAction *proxy) {
            const QSignalBlocker blocker(proxy);
            change(proxy);
        });
        return QStringLiteral("change blocked proxy ") + where;
    }
    if (kind < 80) {
        const int flag = below(3);
        toBoth([flag, on, command](auto *proxy) {
            if (flag == 0)
                proxy->setTextUpdated(on);
            else if (flag == 1)
                proxy->setIconUpdated(on && followsIcons(command));
            else
                proxy->setHideWhenDeactivated(on);
        });
        return QStringLiteral("flag %1 of ").arg(flag) + where;
    }
    if (kind < 86) {
        toBoth([](auto *proxy) { proxy->trigger(); });
        return QStringLiteral("trigger ") + where;
    }
    if (kind < 89) {
        const QStringList contexts = randomContexts();
        toBoth([&contexts](auto *proxy) { proxy->setCurrentContexts(contexts); });
        return QStringLiteral("contexts of one proxy ") + contexts.join(QLatin1Char(' '));
    }
    if (kind < 91) {
        toBoth([](auto *proxy) { proxy->update(); });
        return QStringLiteral("update ") + where;
    }
    if (kind < 93) {
        toBoth([on](auto *proxy) {
            proxy->disconnectAction();
            if (on)
                proxy->connectAction();
        });
        return QStringLiteral("disconnect ") + where;
    }
    if (kind < 95) {
        toBoth([on](auto *proxy) {
            proxy->setShortcut(on ? QKeySequence(QStringLiteral("Ctrl+K")) : QKeySequence());
        });
        return QStringLiteral("shortcut ") + where;
    }
    if (kind < 96) {
        if (real.action(command, context)) {
            toBoth([&](auto *proxy) {
                using Proxy = std::decay_t<decltype(*proxy)>;
                if constexpr (std::is_same_v<Proxy, IAction>)
                    proxy->init(real.action(command, context));
                else
                    proxy->init(plain.action(command, context));
            });
        }
        return QStringLiteral("init ") + where;
    }
    if (kind < 97) {
        if (real.action(command, context)) {
            RealWorld::cut(real.action(command, context), real.actionCounts[{command, context}]);
            PlainWorld::cut(plain.action(command, context), plain.actionCounts[{command, context}]);
        }
        return QStringLiteral("cut action ") + where;
    }
    if (kind < 98) {
        if (real.proxy(command)) {
            RealWorld::cut(real.proxy(command), real.proxyCounts[command]);
            PlainWorld::cut(plain.proxy(command), plain.proxyCounts[command]);
        }
        return QStringLiteral("cut proxy ") + where;
    }
    if (kind < 99) {
        delete real.proxy(command);
        plain.destroyProxy(command);
        // A new proxy would not know the actions of the old one.
        for (int each = 0; each < ContextCount; ++each) {
            real.destroy(command, each);
            plain.destroy(command, each);
        }
        return QStringLiteral("destroy proxy ") + where;
    }
    real.spare.clear();
    plain.spare.clear();
    return QStringLiteral("destroy what was unregistered");
}

QString TestRandomContexts::difference(RealWorld &real, PlainWorld &plain)
{
    // Described only where they differ: there is a lot to compare.
    for (int command = 0; command < CommandCount; ++command) {
        if (!same(real.proxy(command), plain.proxy(command)))
            return QStringLiteral("proxy %1:\n  is     %2\n  should %3")
                .arg(command)
                .arg(described(real.proxy(command)), described(plain.proxy(command)));
        const bool withChanged = !followsIcons(command);
        const Counts &is = real.proxyCounts[command];
        const Counts &should = plain.proxyCounts[command];
        if (!same(is, should, withChanged))
            return QStringLiteral("signals of proxy %1:\n  is     %2\n  should %3")
                .arg(command)
                .arg(described(is, withChanged), described(should, withChanged));
        for (int context = 0; context < ContextCount; ++context) {
            const QAction *action = real.action(command, context);
            const QAction *plainAction = plain.action(command, context);
            if (!same(action, plainAction))
                return QStringLiteral("action %1/%2:\n  is     %3\n  should %4")
                    .arg(command)
                    .arg(context)
                    .arg(described(action), described(plainAction));
            if (!same(real.actionCounts[{command, context}], plain.actionCounts[{command, context}],
                      true))
                return QStringLiteral("signals of action %1/%2").arg(command).arg(context);
        }
    }
    return QString();
}

void TestRandomContexts::indexedChangesMatchThePlainRules_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 10; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestRandomContexts::indexedChangesMatchThePlainRules()
{
    QFETCH(unsigned, seed);
    m_random.seed(seed);
    const CoreFixture core;
    RealWorld real;
    PlainWorld plain;
    QStringList history;

    for (int i = 0; i < 2000; ++i) {
        history.append(step(real, plain));
        if (history.size() > 6)
            history.removeFirst();
        const QString found = difference(real, plain);
        QVERIFY2(found.isEmpty(), qPrintable(QStringLiteral("after step %1: %2\n%3")
                                                 .arg(i)
                                                 .arg(found, history.join(QLatin1Char('\n')))));
    }
}

QTEST_MAIN(TestRandomContexts)
#include "tst_randomcontexts.moc"
