// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_ACTIONS_BOUNDPROXY_H
#define TESTS_PLUGINS_IDECORE_ACTIONS_BOUNDPROXY_H

#include <idecore/actions/iaction.h>

#include <QAction>
#include <QIcon>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

inline const QString FirstContext = QStringLiteral("Test.A");
inline const QString SecondContext = QStringLiteral("Test.B");

/// A proxy with an action for context A and one for context B.
struct Bound
{
    Bound()
    {
        proxy.addOverrideAction(a.get(), FirstContext);
        proxy.addOverrideAction(b.get(), SecondContext);
    }

    std::unique_ptr<QAction> a = std::make_unique<QAction>(QStringLiteral("A"));
    std::unique_ptr<QAction> b = std::make_unique<QAction>(QStringLiteral("B"));
    Core::IAction proxy{QStringLiteral("Test.Command"), a.get()};
};

inline QIcon redIcon()
{
    QPixmap pixmap(4, 4);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

/// The tool tip of a proxy whose plain one is @p toolTip.
inline QString shown(const QString &toolTip, const QKeySequence &key)
{
    return QLatin1String("<nobr>") + toolTip
           + QLatin1String(" <span style=\"color: gray; font-size: small\">")
           + key.toString(QKeySequence::NativeText) + QLatin1String("</span></nobr>");
}

/// Writes down in which order an action comes to have what is waited for.
class ChangeJournal final
{
    Q_DISABLE_COPY(ChangeJournal)
public:
    struct Step
    {
        QString name;
        std::function<bool()> reached;
    };

    ChangeJournal(const QAction *action, const QVector<Step> &steps)
        : m_connection(QObject::connect(action, &QAction::changed, [this, steps] {
            for (const Step &step : steps) {
                if (!names.contains(step.name) && step.reached())
                    names.append(step.name);
            }
        }))
    {
    }
    ~ChangeJournal() { QObject::disconnect(m_connection); }

    QStringList names;

private:
    const QMetaObject::Connection m_connection;
};

#endif // TESTS_PLUGINS_IDECORE_ACTIONS_BOUNDPROXY_H
