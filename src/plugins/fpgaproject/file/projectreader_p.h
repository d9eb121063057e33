// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FILE_PROJECTREADER_P_H
#define FPGAPROJECT_FILE_PROJECTREADER_P_H

#include <fpgaproject/file/projectdocument_p.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QSet>
#include <QXmlStreamReader>

namespace Fpga {

/// Reads the XML of a project file; once.
class ProjectReader final
{
    Q_DECLARE_TR_FUNCTIONS(Fpga::ProjectReader)
    Q_DISABLE_COPY(ProjectReader)
public:
    ProjectReader(const QByteArray &contents, ProjectDocument::Data *data);

    /// The files that a scanner has taken out of the list in line @p listLine.
    /// listMet() tells afterwards whether the list was there, and empty.
    void setFiles(const QVector<FileEntry> &files, int listLine);
    [[nodiscard]] bool listMet() const { return m_listMet; }

    bool read();
    [[nodiscard]] int errorLine() const { return m_errorLine; }
    [[nodiscard]] QString errorReason() const { return m_errorReason; }

private:
    void readRoot();
    void readFiles();
    void readFile();
    void sortFiles();
    void readDevice();
    void readTop();
    /// The text of a leaf; other elements in it go to @p extras.
    QString readText(XmlExtras *extras);
    /// What no one knows of the current element, up to its end.
    void keepRest(XmlExtras *extras);
    void keepAttributes(XmlExtras *extras, std::initializer_list<const char *> known);
    XmlNode readUnknown(int depth);
    /// The comment or instruction just met; nothing for a blank.
    void keepToken(QVector<XmlNode> *nodes);
    QXmlStreamReader::TokenType next();
    /// The path as the project keeps it; empty when the file is no use.
    static QString checkedPath(const QString &path);
    bool takeOnce(const char *name);
    void fail(const QString &reason);
    bool failed() const { return !m_errorReason.isNull() || m_xml.hasError(); }

    QXmlStreamReader m_xml;
    ProjectDocument::Data *const m_data;
    QSet<QByteArray> m_met;
    int m_nodes = 0;
    int m_listLine = 0;
    bool m_listMet = false;
    int m_errorLine = 0;
    QString m_errorReason;
};

} // namespace Fpga

#endif // FPGAPROJECT_FILE_PROJECTREADER_P_H
