// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_EXTERNALEDITORMODEL_P_H
#define IDECORE_EXTERNALEDITORS_EXTERNALEDITORMODEL_P_H

#include <idecore/externaleditors/externaleditor.h>
#include <idecore/idecore_export.h>

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>

namespace Core {

class ProgramIcons;

/// A copy of external editors to be edited, one in a row; at most one is the default.
class IDECORE_EXPORT ExternalEditorModel final : public QAbstractTableModel
{
    Q_OBJECT
    Q_DISABLE_COPY(ExternalEditorModel)
public:
    enum Column { NameColumn, ProgramColumn, ArgumentsColumn };

    /// Of several default editors in @p editors the first stays one.
    explicit ExternalEditorModel(const QList<ExternalEditor> &editors, QObject *parent = nullptr);
    ~ExternalEditorModel() override;

    [[nodiscard]] QList<ExternalEditor> editors() const;
    [[nodiscard]] bool isDefault(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    /// A record without a name has no data.
    [[nodiscard]] QVariant data(const QModelIndex &index,
                                int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /// Appends an editor; the first of all is the default one.
    void addData(const QString &name, const QString &program, const QString &arguments);
    void removeData(const QModelIndex &index);
    /// Makes the editor in @p row the only default one and resets the model; does
    /// nothing where there is no such row.
    void setEditorDefault(int row);

private:
    void onIconsFound();

    QList<ExternalEditor> m_editors;
    const QStringList m_headers;
    ProgramIcons *const m_icons;
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_EXTERNALEDITORMODEL_P_H
