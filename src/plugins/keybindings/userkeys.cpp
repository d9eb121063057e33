// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/userkeys_p.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/idecore.h>
#include <keybindings/keybindingsconstants.h>

#include <QScopedValueRollback>
#include <QSettings>
#include <QWidget>

#include <algorithm>

using Core::ActionManager;
using Core::IAction;

namespace KeyBindings {

namespace {

QString settingOf(const QString &id)
{
    return QLatin1String(Constants::SET_GROUP) + QLatin1Char('/') + id;
}

/// True when @p proxy is shown by documents only, which take the keys of what
/// they show away while another document is current.
bool isShownByDocumentsOnly(const IAction *proxy)
{
    const QList<QWidget *> places = proxy->associatedWidgets();
    return !places.isEmpty()
           && std::all_of(places.cbegin(), places.cend(), [](const QWidget *place) {
                  while (place && !place->inherits("QMdiSubWindow"))
                      place = place->parentWidget();
                  return place != nullptr;
              });
}

} // namespace

UserKeys::UserKeys(QObject *parent)
    : QObject(parent)
{
    read();
    if (!m_keys.isEmpty())
        settle();
}

UserKeys::~UserKeys() = default;

Keys UserKeys::defaultKeys(const IAction *proxy) const
{
    const auto served = m_served.constFind(proxy->id());
    return served != m_served.constEnd() && served->proxy == proxy ? served->defaults
                                                                   : proxy->shortcuts();
}

QStringList UserKeys::unknownIds() const
{
    QStringList unknown;
    for (auto it = m_keys.cbegin(); it != m_keys.cend(); ++it) {
        if (!ActionManager::action(it.key()))
            unknown.append(it.key());
    }
    unknown.sort();
    return unknown;
}

void UserKeys::setKeys(const QString &id, const Keys &keys)
{
    QSettings *const settings = Core::IdeCore::userSettings();
    const QString setting = settingOf(KeyRules::storedId(id));
    // Written by hand, it may be there under its bare name.
    if (settingOf(id) != setting)
        settings->remove(settingOf(id));
    settings->setValue(setting, KeyRules::stored(keys));
    m_keys.insert(id, keys);
}

void UserKeys::reset(const QString &id)
{
    QSettings *const settings = Core::IdeCore::userSettings();
    settings->remove(settingOf(id));
    settings->remove(settingOf(KeyRules::storedId(id)));
    m_keys.remove(id);
}

void UserKeys::settle()
{
    findHeld();
    if (!m_listens)
        listen();
    // Who learns of new keys may delete other commands.
    QList<QPointer<IAction>> proxies;
    const QList<IAction *> actions = ActionManager::actions();
    for (IAction *proxy : actions)
        proxies.append(proxy);
    for (const QPointer<IAction> &proxy : qAsConst(proxies)) {
        if (proxy)
            serve(proxy);
    }
}

void UserKeys::read()
{
    QSettings *const settings = Core::IdeCore::userSettings();
    settings->beginGroup(QLatin1String(Constants::SET_GROUP));
    const QStringList stored = settings->allKeys();
    for (const QString &name : stored) {
        const QString id = KeyRules::readId(name);
        QStringList problems;
        const Keys keys = KeyRules::read(settings->value(name), &problems);
        for (const QString &problem : qAsConst(problems)) {
            qWarning("keys of command \"%s\": %s; the setting is left as it is", qUtf8Printable(id),
                     qUtf8Printable(problem));
        }
        // None that can be used is not the wish to have none.
        if (problems.isEmpty() || !keys.isEmpty())
            m_keys.insert(id, keys);
    }
    settings->endGroup();
}

void UserKeys::listen()
{
    m_listens = true;
    connect(ActionManager::instance(), &ActionManager::actionRegistered, this,
            &UserKeys::onRegistered);
    const QList<IAction *> actions = ActionManager::actions();
    for (const IAction *proxy : actions)
        connect(proxy, &QAction::changed, this, &UserKeys::onProxyChanged);
}

void UserKeys::findHeld()
{
    m_held.clear();
    for (auto it = m_keys.cbegin(); it != m_keys.cend(); ++it) {
        for (const QKeySequence &key : it.value())
            m_held.insert(key[0], {key, it.key()});
    }
}

const UserKeys::Held *UserKeys::holderOf(const QKeySequence &key, const QString &id) const
{
    for (auto it = m_held.constFind(key[0]); it != m_held.cend() && it.key() == key[0]; ++it) {
        // One that is not there needs no key.
        if (it->id != id && KeyRules::clash(it->key, key) && ActionManager::action(it->id))
            return &*it;
    }
    return nullptr;
}

void UserKeys::onRegistered(IAction *proxy)
{
    connect(proxy, &QAction::changed, this, &UserKeys::onProxyChanged);
    if (m_keys.contains(proxy->id()))
        settle();
    else
        serve(proxy);
}

void UserKeys::serve(IAction *proxy)
{
    const QString id = proxy->id();
    const Keys defaults = defaultKeys(proxy);
    const bool chosen = m_keys.contains(id);
    Keys wanted = chosen ? m_keys.value(id) : defaults;
    QStringList lost;
    if (!chosen) {
        for (const QKeySequence &key : defaults) {
            if (const Held *held = holderOf(key, id)) {
                wanted.removeAll(key);
                lost.append(
                    QStringLiteral("%1 is left to command \"%2\", to which the user gave %3")
                        .arg(key.toString(QKeySequence::PortableText), held->id,
                             held->key.toString(QKeySequence::PortableText)));
            }
        }
    }
    const auto known = m_served.constFind(id);
    const bool served = known != m_served.constEnd() && known->proxy == proxy;
    if (served ? known->given == wanted : !chosen && lost.isEmpty())
        return;
    for (const QString &what : qAsConst(lost))
        qWarning("keys of command \"%s\": %s", qUtf8Printable(id), qUtf8Printable(what));
    if (chosen || !lost.isEmpty())
        m_served.insert(id, {proxy, defaults, wanted});
    else
        m_served.remove(id);
    give(proxy, wanted);
}

void UserKeys::give(IAction *proxy, const Keys &keys)
{
    if (proxy->shortcuts() == keys)
        return;
    const QScopedValueRollback<const IAction *> given(m_given, proxy);
    const QPointer<IAction> guard(proxy);
    // The proxy's own operation shows the key in the tool tip, but leaves all
    // further ones as they are.
    proxy->setShortcut(keys.value(0));
    if (guard)
        proxy->setShortcuts(keys);
}

void UserKeys::onProxyChanged()
{
    auto *const proxy = qobject_cast<IAction *>(sender());
    if (!proxy || proxy == m_given)
        return;
    const auto served = m_served.find(proxy->id());
    if (served != m_served.end() && served->proxy == proxy) {
        const Keys present = proxy->shortcuts();
        const Keys given = served->given;
        if (present == given || (present.isEmpty() && isShownByDocumentsOnly(proxy)))
            return;
        // Its author has given it other keys, which are its default from now on; or
        // another first key, behind which those of the user's still stand.
        if (given.size() > 1 && present == given.mid(1))
            served->defaults = served->defaults.mid(1);
        else if (!present.isEmpty() && present.mid(1) == given.mid(1))
            served->defaults = Keys{present.first()} + served->defaults.mid(1);
        else
            served->defaults = present;
        served->given = present;
    }
    serve(proxy);
}

} // namespace KeyBindings
