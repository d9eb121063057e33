// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/testeditor.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFileInfo>

void TestEditor::setFileName(const QString &fileName)
{
    m_fileName = fileName;
    setShortTitle(QFileInfo(fileName).fileName());
}

void TestEditor::setModified(bool modified)
{
    m_modified = modified;
    Q_EMIT modificationStateChanged(modified);
}

void TestEditor::setReadOnly(bool readOnly)
{
    note(readOnly ? QStringLiteral("read-only") : QStringLiteral("writable"));
    if (whileSettingReadOnly)
        whileSettingReadOnly();
    readOnlySet.append(readOnly);
    IEditor::setReadOnly(readOnly);
}

bool TestEditor::open(const QString &fileName, QString *errorString)
{
    note(QStringLiteral("open"));
    if (whileOpening)
        whileOpening();
    opened.append(fileName);
    if (failOpen) {
        *errorString = errorText;
        return false;
    }
    setFileName(fileName);
    return true;
}

QString TestEditor::fileName() const
{
    if (fileNameAsked)
        ++*fileNameAsked;
    return m_fileName;
}

bool TestEditor::isModified() const
{
    ++modifiedAsked;
    return m_modified;
}

bool TestEditor::save(QString *errorString)
{
    note(QStringLiteral("save"));
    ++saves;
    saveGotErrorString = errorString;
    return finishSaving(errorString);
}

bool TestEditor::saveAs(const QString &fileName, QString *errorString)
{
    note(QStringLiteral("saveAs"));
    savedAs.append(fileName);
    if (!failSave)
        setFileName(fileName);
    return finishSaving(errorString);
}

bool TestEditor::finishSaving(QString *errorString)
{
    const QCursor *cursor = QApplication::overrideCursor();
    waitCursorWhileSaving = cursor && cursor->shape() == Qt::WaitCursor;
    const bool fails = failSave;
    if (fails && errorString)
        *errorString = errorText;
    if (!fails) {
        setModified(false);
        Q_EMIT saved();
    }
    if (whileSaving)
        whileSaving(); // may destroy this editor
    return !fails;
}

void TestEditor::closeEvent(QCloseEvent *event)
{
    note(QStringLiteral("asked"));
    event->setAccepted(!refuseClose);
}

void TestEditor::note(const QString &what)
{
    if (m_journal)
        m_journal->append(QFileInfo(m_fileName).fileName() + QLatin1Char(' ') + what);
}

TestEditorFactory::TestEditorFactory(const QStringList &mimeTypes, const QString &id)
    : types(mimeTypes)
    , m_id(id)
{
}

Core::IEditor *TestEditorFactory::createEditor()
{
    if (makeNothing)
        return nullptr;
    ++made;
    last = new TestEditor;
    if (prepare)
        prepare(last);
    return last;
}
