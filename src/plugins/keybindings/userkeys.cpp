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
        serveAll();
}

UserKeys::~UserKeys() = default;

Keys UserKeys::defaultKeys(const IAction *proxy) const
{
    const auto served = m_served.constFind(proxy->id());
    return served != m_served.constEnd() && served->proxy == proxy ? served->defaults
                                                                   : proxy->shortcuts();
}

bool UserKeys::canBeStored()
{
    return Core::IdeCore::userSettings()->isWritable();
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
    if (!m_listens)
        serveAll();
    else if (IAction *proxy = ActionManager::action(id))
        serve(proxy);
}

void UserKeys::reset(const QString &id)
{
    QSettings *const settings = Core::IdeCore::userSettings();
    settings->remove(settingOf(id));
    settings->remove(settingOf(KeyRules::storedId(id)));
    m_keys.remove(id);
    const Served served = m_served.take(id);
    if (served.proxy) {
        disconnect(served.proxy, &QAction::changed, this, &UserKeys::onProxyChanged);
        give(served.proxy, served.defaults);
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

void UserKeys::serveAll()
{
    m_listens = true;
    connect(ActionManager::instance(), &ActionManager::actionRegistered, this, &UserKeys::serve);
    const QStringList ids = m_keys.keys();
    for (const QString &id : ids) {
        if (IAction *proxy = ActionManager::action(id))
            serve(proxy);
    }
}

void UserKeys::serve(IAction *proxy)
{
    const auto keys = m_keys.constFind(proxy->id());
    if (keys == m_keys.constEnd())
        return;
    Served &served = m_served[proxy->id()];
    if (served.proxy != proxy) {
        served = {proxy, proxy->shortcuts()};
        connect(proxy, &QAction::changed, this, &UserKeys::onProxyChanged);
    }
    give(proxy, *keys);
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
    const Keys present = proxy->shortcuts();
    const Keys wanted = m_keys.value(proxy->id());
    if (served == m_served.end() || served->proxy != proxy || present == wanted
        || (present.isEmpty() && isShownByDocumentsOnly(proxy)))
        return;
    // Its author has given it other keys, which are its default from now on; or
    // another first key, behind which those of the user's still stand.
    if (wanted.size() > 1 && present == wanted.mid(1))
        served->defaults = served->defaults.mid(1);
    else if (!present.isEmpty() && present.mid(1) == wanted.mid(1))
        served->defaults = Keys{present.first()} + served->defaults.mid(1);
    else
        served->defaults = present;
    give(proxy, wanted);
}

} // namespace KeyBindings
