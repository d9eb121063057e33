// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_MDIAREA_P_H
#define UTILS_MDIAREA_P_H

#include <utils/mdiarea.h>

#include <QPointer>
#include <QVector>

class QKeyEvent;
class QMdiSubWindow;

namespace Utils {

class DocumentSwitcher;
class DocumentTabBar;

/// What MdiArea knows of its windows.
///
/// A QObject of its own, because QMdiArea cuts every connection between itself
/// and a window that closes.
class MdiArea::Private final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Private)
public:
    explicit Private(MdiArea *area);
    ~Private() override;

    /// Apart from the constructor, because events reach the area's filter from
    /// the first child widget on.
    void setUp();
    void activate(MdiSubWindow *window);
    enum class Reason {
        Chosen,
        ChosenByKey,     // in the tab bar, which keeps the focus
        ActivatedByArea, // by a click on it, or because it was shown or minimised
    };
    void makeCurrent(MdiSubWindow *window, Reason reason = Reason::Chosen);
    void setTabbed(bool tabbed);
    void connectWindow(MdiSubWindow *window);
    /// Takes @p window out of all lists; the caller picks the next one.
    void forget(MdiSubWindow *window);
    void takeOut(MdiSubWindow *window);
    void currentIsGone();
    void placeTabBar();
    void fill();
    void giveFocus(MdiSubWindow *window) const;
    [[nodiscard]] bool closeList(const QVector<MdiSubWindow *> &windows);
    [[nodiscard]] bool handleKey(const QObject *object, const QKeyEvent *event, bool press);
    void endWalk(bool commit);

    void onClosed(MdiSubWindow *window);
    void onLost(MdiSubWindow *window);
    void onDestroyed(MdiSubWindow *window);
    void onMaximizeRequested(MdiSubWindow *window);
    void onActivatedByArea(QMdiSubWindow *window);
    void onDocumentChosen(MdiSubWindow *window, bool byKey);
    void onCloseRequested(MdiSubWindow *window);
    void showMenu(MdiSubWindow *window, const QPoint &globalPos);

    MdiArea *const q;
    DocumentTabBar *tabBar = nullptr;
    DocumentSwitcher *switcher = nullptr; // made when first walked
    QVector<MdiSubWindow *> creation;
    QVector<MdiSubWindow *> history; // most recently used last
    MdiSubWindow *current = nullptr;
    bool tabbed = true;
    bool busy = false; // activations come from here, not from the user

private:
    static void putToSleep(MdiSubWindow *window);
    void showCurrent(Reason reason);
};

} // namespace Utils

#endif // UTILS_MDIAREA_P_H
