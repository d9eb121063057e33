// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_OBJECTPOOL_P_H
#define EXTSYS_OBJECTPOOL_P_H

#include <QList>
#include <QObject>

namespace ExtSys {

/// The objects in the order in which they came. One that is destroyed leaves
/// with a warning, so that nobody meets a dangling pointer.
class ObjectPool final : public QObject
{
    Q_OBJECT
public:
    [[nodiscard]] QList<QObject *> objects() const { return m_objects; }
    /// False, with a warning, when @p object is null or in the pool.
    bool add(QObject *object);
    /// False, with a warning, when @p object is not in the pool or leaving it.
    bool beginRemoval(QObject *object);
    /// Ends what beginRemoval() began.
    void endRemoval(QObject *object);

private:
    void onDestroyed(QObject *object);

    QList<QObject *> m_objects;
    /// Announced as leaving and still in the pool.
    QList<QObject *> m_leaving;
};

} // namespace ExtSys

#endif // EXTSYS_OBJECTPOOL_P_H
