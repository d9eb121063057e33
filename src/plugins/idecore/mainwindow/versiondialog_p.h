// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MAINWINDOW_VERSIONDIALOG_P_H
#define IDECORE_MAINWINDOW_VERSIONDIALOG_P_H

#include <idecore/idecore_export.h>

#include <QDialog>

class QLabel;

namespace Core {
namespace private_impl {

/// What Help > About shows: logo, product, version and copyright.
///
/// How often the logo was clicked is counted for the whole process, over all
/// dialogs; the logos that fly from the fifth click on live until a dialog is done.
class IDECORE_EXPORT VersionDialog final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(VersionDialog)
public:
    explicit VersionDialog(QWidget *parent);

public Q_SLOTS:
    void done(int r) override;

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void react(const QPointF &globalPosition);
    void warn();

    QLabel *m_logo;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_MAINWINDOW_VERSIONDIALOG_P_H
