// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_SUPPORT_TESTEDITOR_H
#define TESTS_PLUGINS_IDECORE_SUPPORT_TESTEDITOR_H

#include <idecore/interfaces/ieditor.h>
#include <idecore/interfaces/ieditorfactory.h>

#include <QStringList>

#include <functional>

/// An editor that opens and saves as it is told, without touching the disk, and
/// counts what it is asked.
class TestEditor final : public Core::IEditor
{
    Q_OBJECT
public:
    TestEditor() = default;

    /// Where it writes down what it is asked, "<file name> <what>"; has to outlive
    /// it.
    void setJournal(QStringList *journal) { m_journal = journal; }

    // How it behaves
    bool refuseClose = false;
    bool failOpen = false;
    bool failSave = false;
    QString errorText;
    /// Where its cursor stands.
    int line = 1;
    /// Run at the start of open() and setReadOnly().
    std::function<void()> whileOpening;
    std::function<void()> whileSettingReadOnly;
    /// Runs inside save() and saveAs(), before they answer.
    std::function<void()> whileSaving;

    // What it was asked
    QStringList opened;
    int saves = 0;
    QStringList savedAs;
    /// Whether the last save() was given a place for an error text.
    bool saveGotErrorString = false;
    /// Whether the wait cursor was up during the last save() or saveAs().
    bool waitCursorWhileSaving = false;
    QList<bool> readOnlySet;
    /// Counts the calls of isModified().
    mutable int modifiedAsked = 0;
    /// Counts the calls of fileName(), where set.
    int *fileNameAsked = nullptr;

    void setFileName(const QString &fileName);
    /// Emits modificationStateChanged() also when nothing changes.
    void setModified(bool modified);

    [[nodiscard]] int currentLine() const override { return line; }
    void setReadOnly(bool readOnly) override;
    bool open(const QString &fileName, QString *errorString) override;
    [[nodiscard]] QString fileName() const override;
    [[nodiscard]] bool isModified() const override;
    bool save(QString *errorString) override;
    bool saveAs(const QString &fileName, QString *errorString) override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    bool finishSaving(QString *errorString);
    void note(const QString &what);

    QString m_fileName;
    bool m_modified = false;
    QStringList *m_journal = nullptr;
};

/// Makes TestEditors and remembers how many. Not in the pool by itself.
class TestEditorFactory final : public Core::IEditorFactory
{
    Q_OBJECT
public:
    explicit TestEditorFactory(const QStringList &mimeTypes,
                               const QString &id = QStringLiteral("test"));

    bool makeNothing = false;
    /// Applied to every new editor before it is handed out.
    std::function<void(TestEditor *)> prepare;
    QStringList types;
    int made = 0;
    /// Only valid while it lives.
    TestEditor *last = nullptr;

    [[nodiscard]] QString id() const override { return m_id; }
    [[nodiscard]] QString displayName() const override { return m_id; }
    [[nodiscard]] QStringList mimeTypes() const override { return types; }
    [[nodiscard]] Core::IEditor *createEditor() override;

private:
    QString m_id;
};

#endif // TESTS_PLUGINS_IDECORE_SUPPORT_TESTEDITOR_H
