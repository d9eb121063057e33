// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IEDITOR_H
#define IDECORE_INTERFACES_IEDITOR_H

#include <idecore/interfaces/iview.h>

namespace Core {

/// A view that shows and changes a file. Made by an IEditorFactory, opened and
/// placed by EditorManager::openEditor(). GUI thread only.
class IDECORE_EXPORT IEditor : public IView
{
    Q_OBJECT
public:
    explicit IEditor(QWidget *parent = nullptr);
    ~IEditor() override;

    /// The line of the cursor, 1 being the first. With goToLine() it is what
    /// restoring a session and handing over to an external editor need.
    [[nodiscard]] virtual int currentLine() const = 0;
    [[nodiscard]] virtual bool isReadOnly() const;
    /// Stores the flag by default; an editor that shows it or refuses typing
    /// overrides this.
    virtual void setReadOnly(bool readOnly);
    /// Loads @p fileName (an absolute path). On failure false, and the reason,
    /// made for the user's eyes, in @p errorString, which may be null.
    virtual bool open(const QString &fileName, QString *errorString) = 0;
    /// The path of the file shown.
    [[nodiscard]] virtual QString fileName() const = 0;
    /// True while there are changes that are not on disk.
    [[nodiscard]] virtual bool isModified() const = 0;
    /// Writes to the editor's own file. On failure false, the reason in
    /// @p errorString (which may be null), the old file whole and the changes
    /// still in the editor.
    virtual bool save(QString *errorString) = 0;
    /// Writes to @p fileName, which is the editor's own file from then on;
    /// fails as save() does.
    virtual bool saveAs(const QString &fileName, QString *errorString) = 0;
    /// Puts the cursor to @p line and @p column, both counted from 1. Does
    /// nothing by default.
    virtual void goToLine(int line, int column);

Q_SIGNALS:
    /// isModified() now is @p m.
    void modificationStateChanged(bool m);
    /// The file has been written successfully.
    void saved();

private:
    bool m_readOnly = false;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IEDITOR_H
