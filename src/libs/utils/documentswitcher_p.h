// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_DOCUMENTSWITCHER_P_H
#define UTILS_DOCUMENTSWITCHER_P_H

#include <QListWidget>
#include <QVector>

namespace Utils {

class MdiSubWindow;

/// The list shown while Ctrl is held and Tab walks through the documents.
///
/// It never takes the focus: the area hands it the steps.
class DocumentSwitcher final : public QListWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(DocumentSwitcher)
public:
    explicit DocumentSwitcher(QWidget *parent);

    [[nodiscard]] MdiSubWindow *chosen() const;

    /// Shows @p windows, the most recently used first, over @p area.
    void start(const QVector<MdiSubWindow *> &windows, const QRect &area);
    void step(int count);
    void forget(const MdiSubWindow *window);

Q_SIGNALS:
    void committed();

private:
    QVector<MdiSubWindow *> m_windows;
};

} // namespace Utils

#endif // UTILS_DOCUMENTSWITCHER_P_H
