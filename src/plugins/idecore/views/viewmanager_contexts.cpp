// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Contexts and focus tracking.

#include <idecore/views/viewmanager.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/core/assertion_p.h>
#include <idecore/core/constants.h>
#include <idecore/views/viewmanager_p.h>

#include <QApplication>
#include <QDebug>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace Core {

using private_impl::ViewManagerPrivate;

void ViewManager::registerContext(QWidget *widget, const QString &context, bool strongFocus)
{
    KELMO_ASSERT(widget, return);
    KELMO_ASSERT(!context.isEmpty(), return);
    qDebug() << "register context:" << widget << context;
    std::unique_ptr<QStringList> &contexts = ViewManagerPrivate::get()->widgetContexts[widget];
    if (!contexts)
        contexts = std::make_unique<QStringList>();
    contexts->prepend(context);
    if (strongFocus)
        widget->setFocusPolicy(Qt::StrongFocus);
    connect(widget, &QObject::destroyed, instance(), &ViewManager::onRegistedWidgetDelete);
}

void ViewManager::deregisterContext(QWidget *widget, const QString &context)
{
    KELMO_ASSERT(widget, return);
    KELMO_ASSERT(!context.isEmpty(), return);
    qDebug() << "deregister context:" << widget << context;
    auto &table = ViewManagerPrivate::get()->widgetContexts;
    const auto it = table.find(widget);
    // The entry stays when it becomes empty: it still hides what is registered
    // on the widget's ancestors.
    if (it != table.end())
        it->second->removeAll(context);
}

void ViewManager::deregisterContext(QWidget *widget)
{
    KELMO_ASSERT(widget, return);
    qDebug() << "deregister all context:" << widget;
    ViewManagerPrivate::get()->widgetContexts.erase(widget);
}

void ViewManager::onRegistedWidgetDelete()
{
    // A widget that says that it is destroyed is a plain QWidget still.
    if (auto *widget = qobject_cast<QWidget *>(sender()))
        deregisterContext(widget);
}

void ViewManager::addGlobalContext(const QString &context)
{
    KELMO_ASSERT(!context.isEmpty(), return);
    qDebug() << "add global context:" << context;
    QStringList &contexts = ViewManagerPrivate::get()->globalContexts;
    if (!contexts.contains(context))
        contexts.prepend(context);
    instance()->updateFocusWidget(nullptr, QApplication::focusWidget());
}

void ViewManager::removeGlobalContext(const QString &context)
{
    KELMO_ASSERT(!context.isEmpty(), return);
    qDebug() << "remove global context:" << context;
    ViewManagerPrivate::get()->globalContexts.removeAll(context);
    instance()->updateFocusWidget(nullptr, QApplication::focusWidget());
}

void ViewManager::updateFocusWidget(QWidget *old, QWidget *now)
{
    Q_UNUSED(old)
    // Menus and tool bars work on what had the focus before.
    if (qobject_cast<QMenuBar *>(now) || qobject_cast<QMenu *>(now)
        || qobject_cast<QToolBar *>(now))
        return;

    auto *d = ViewManagerPrivate::get();
    ContextList contexts;
    for (const QObject *object = now; object; object = object->parent()) {
        const auto it = d->widgetContexts.find(qobject_cast<const QWidget *>(object));
        if (it != d->widgetContexts.end()) {
            contexts = *it->second;
            break;
        }
    }
    contexts.removeDuplicates();
    // Repeats between these and the former stay: the list tells all of them.
    contexts += d->globalContexts;
    contexts.append(QString::fromLatin1(Constants::C_GLOBAL));
    d->currentContexts = contexts;
    ActionManager::setCurrentContexts(contexts);
    // A command that changes may have brought others; the last report tells what
    // is current.
    contexts = d->currentContexts;
    Q_EMIT contextsChanged(contexts);
}

} // namespace Core
