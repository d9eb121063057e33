// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_EXTERNALEDITORTABLE_P_H
#define IDECORE_EXTERNALEDITORS_EXTERNALEDITORTABLE_P_H

#include <idecore/idecore_export.h>

#include <QTableView>

namespace Core {

class ExternalEditorModel;

/// The table of external editors, with what can be done to them. Works on a copy of
/// the registry's; applyData() hands it back.
class IDECORE_EXPORT ExternalEditorTable final : public QTableView
{
    Q_OBJECT
    Q_DISABLE_COPY(ExternalEditorTable)
public:
    explicit ExternalEditorTable(QWidget *parent = nullptr);
    ~ExternalEditorTable() override;

    [[nodiscard]] ExternalEditorModel *editorModel() const;
    void applyData() const;
    void reset() override;

public Q_SLOTS:
    void addEditor();
    void modifyEditor(const QModelIndex &index);
    /// Removes those in the selected rows.
    void removeEditor();
    /// That of the current row.
    void makeDefaultEditor();

Q_SIGNALS:
    /// The selection has changed or was lost; @p selected tells whether there is one.
    void dataSelected(bool selected);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;

private:
    ExternalEditorModel *const m_model;
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_EXTERNALEDITORTABLE_P_H
