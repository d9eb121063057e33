// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FILE_PROJECTWRITER_P_H
#define FPGAPROJECT_FILE_PROJECTWRITER_P_H

#include <fpgaproject/file/projectdocument_p.h>

#include <QByteArray>

namespace Fpga {

/// Writes the XML of a project file. Not QXmlStreamWriter, which decides about
/// line breaks around what has to be kept as it stands.
class ProjectWriter final
{
    Q_DISABLE_COPY(ProjectWriter)
public:
    explicit ProjectWriter(const ProjectDocument::Data *data);

    [[nodiscard]] QByteArray write();

private:
    using Attributes = QVector<std::pair<QString, QString>>;

    void writeFiles();
    /// A known element: its attributes, its text, and what is kept of it.
    void writeElement(int level, const char *name, const Attributes &attributes,
                      const QString &text, const XmlExtras &extras);
    void writeNodes(int level, const QVector<XmlNode> &nodes);
    void writeNode(int level, const XmlNode &node);
    void writeInline(const XmlNode &node);
    void openTag(const QString &name, const Attributes &attributes);
    void attribute(const QString &name, const QString &value);
    void indent(int level);
    void escape(const QString &text, bool inAttribute);

    const ProjectDocument::Data *const m_data;
    QString m_out;
};

} // namespace Fpga

#endif // FPGAPROJECT_FILE_PROJECTWRITER_P_H
