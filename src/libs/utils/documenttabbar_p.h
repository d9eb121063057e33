// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_DOCUMENTTABBAR_P_H
#define UTILS_DOCUMENTTABBAR_P_H

#include <QTabBar>
#include <QVector>

namespace Utils {

class MdiSubWindow;

/// The tabs of the documents in an MdiArea.
///
/// Made for many tabs: a title is measured and cut once, only what is in sight is
/// painted, and a close button is painted rather than a widget.
class DocumentTabBar final : public QTabBar
{
    Q_OBJECT
    Q_DISABLE_COPY(DocumentTabBar)
public:
    explicit DocumentTabBar(QWidget *parent);

    [[nodiscard]] MdiSubWindow *documentAt(int index) const;
    [[nodiscard]] int indexOfDocument(const MdiSubWindow *window) const;
    /// In the order of the tabs.
    [[nodiscard]] QVector<MdiSubWindow *> documents() const;
    [[nodiscard]] QRect closeButtonRect(int index) const;

    void addDocument(MdiSubWindow *window);
    void removeDocument(const MdiSubWindow *window);
    /// Does not emit documentChosen().
    void setCurrentDocument(const MdiSubWindow *window);
    void updateDocument(MdiSubWindow *window);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user chose the tab; also when it was the current one. @p byKey when
    /// the tab bar should keep the focus.
    void documentChosen(Utils::MdiSubWindow *window, bool byKey);
    void closeRequested(Utils::MdiSubWindow *window);
    void menuRequested(Utils::MdiSubWindow *window, const QPoint &globalPos);

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    struct Tab
    {
        MdiSubWindow *window;
        QString title;
        bool modified;
        mutable int width = 0;     // 0 until measured
        mutable QString text = {}; // what of the title is painted ...
        mutable int room = -1;     // ... where that much room is left for it

        void forgetMeasures()
        {
            width = 0;
            room = -1;
        }
    };

    void initTabLook(QStyleOptionTab *option, int index) const;
    void initTabOption(QStyleOptionTab *option, int index) const;
    void paintTab(QPainter &painter, int index) const;
    void paintCloseButton(QPainter &painter, int index) const;
    void onCurrentChanged(int index);
    void onTabMoved(int from, int to);
    void drag(const QPoint &pos);
    void setHovered(const QPoint &pos);

    QVector<Tab> m_tabs;
    mutable int m_height = 0;
    bool m_internal = false;
    bool m_byKey = false;
    bool m_dragging = false;
    int m_pressedClose = -1;
    int m_pressedMiddle = -1;
    int m_hoveredClose = -1;
    int m_turned = 0; // of the wheel, less than a notch
    QPoint m_pressPos;
};

} // namespace Utils

#endif // UTILS_DOCUMENTTABBAR_P_H
