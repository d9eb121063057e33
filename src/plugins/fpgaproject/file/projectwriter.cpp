// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/file/projectwriter_p.h>

#include <algorithm>

namespace Fpga {

namespace {

constexpr int INDENT = 4;

const XmlExtras &extrasOf(const FileEntry &entry)
{
    static const XmlExtras none;
    return entry.extras ? *entry.extras : none;
}

bool hasText(const XmlNode &node)
{
    return std::any_of(node.children.cbegin(), node.children.cend(),
                       [](const XmlNode &n) { return n.type == XmlNode::Type::Text; });
}

} // namespace

ProjectWriter::ProjectWriter(const ProjectDocument::Data *data)
    : m_data(data)
{
}

QByteArray ProjectWriter::write()
{
    m_out.reserve(1000 + m_data->files.size() * 100);
    m_out = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    writeNodes(0, m_data->rootExtras.before);
    openTag(m_data->rootName, m_data->rootExtras.attributes);
    m_out += QLatin1String(">\n");

    writeElement(1, "Template", {}, m_data->templateName, m_data->templateExtras);
    writeElement(1, "Name", {}, m_data->name, m_data->nameExtras);
    const DeviceChoice &device = m_data->device;
    writeElement(1, "Device",
                 {{QStringLiteral("part"), device.part},
                  {QStringLiteral("package"), device.package},
                  {QStringLiteral("speedGrade"), device.speedGrade}},
                 QString(), m_data->deviceExtras);
    Attributes topAttributes;
    if (!m_data->top.file.isEmpty())
        topAttributes.append({QStringLiteral("file"), m_data->top.file});
    writeElement(1, "Top", topAttributes, m_data->top.name, m_data->topExtras);
    writeFiles();
    writeNodes(1, m_data->rootExtras.children);

    m_out += QLatin1String("</") + m_data->rootName + QLatin1String(">\n");
    writeNodes(0, m_data->after);
    return m_out.toUtf8();
}

void ProjectWriter::writeFiles()
{
    const XmlExtras &extras = m_data->filesExtras;
    writeNodes(1, extras.before);
    indent(1);
    openTag(QStringLiteral("Files"), extras.attributes);
    m_out += QLatin1String(">\n");
    for (const FileEntry &entry : m_data->files) {
        writeElement(2, "File",
                     {{QStringLiteral("path"), entry.path},
                      {QStringLiteral("kind"),
                       entry.foreignKind.isEmpty() ? fileKindName(entry.kind) : entry.foreignKind},
                      {QStringLiteral("enabled"),
                       entry.enabled ? QStringLiteral("true") : QStringLiteral("false")}},
                     QString(), extrasOf(entry));
    }
    writeNodes(2, extras.children);
    indent(1);
    m_out += QLatin1String("</Files>\n");
}

void ProjectWriter::writeElement(int level, const char *name, const Attributes &attributes,
                                 const QString &text, const XmlExtras &extras)
{
    writeNodes(level, extras.before);
    indent(level);
    const QString tag = QLatin1String(name);
    openTag(tag, attributes + extras.attributes);
    if (text.isEmpty() && extras.children.isEmpty()) {
        m_out += QLatin1String("/>\n");
        return;
    }
    m_out += QLatin1Char('>');
    escape(text, false);
    if (text.isEmpty()) {
        m_out += QLatin1Char('\n');
        writeNodes(level + 1, extras.children);
        indent(level);
    } else {
        // A line break would become part of the text.
        for (const XmlNode &node : extras.children)
            writeInline(node);
    }
    m_out += QLatin1String("</") + tag + QLatin1String(">\n");
}

void ProjectWriter::writeNodes(int level, const QVector<XmlNode> &nodes)
{
    for (const XmlNode &node : nodes)
        writeNode(level, node);
}

void ProjectWriter::writeNode(int level, const XmlNode &node)
{
    indent(level);
    if (node.type == XmlNode::Type::Element && !node.children.isEmpty() && !hasText(node)) {
        openTag(node.name, node.attributes);
        m_out += QLatin1String(">\n");
        writeNodes(level + 1, node.children);
        indent(level);
        m_out += QLatin1String("</") + node.name + QLatin1Char('>');
    } else {
        writeInline(node);
    }
    m_out += QLatin1Char('\n');
}

void ProjectWriter::writeInline(const XmlNode &node)
{
    switch (node.type) {
    case XmlNode::Type::Text:
        escape(node.text, false);
        break;
    case XmlNode::Type::Comment:
        m_out += QLatin1String("<!--") + node.text + QLatin1String("-->");
        break;
    case XmlNode::Type::Instruction:
        m_out += QLatin1String("<?") + node.name;
        if (!node.text.isEmpty())
            m_out += QLatin1Char(' ') + node.text;
        m_out += QLatin1String("?>");
        break;
    case XmlNode::Type::Element:
        openTag(node.name, node.attributes);
        if (node.children.isEmpty()) {
            m_out += QLatin1String("/>");
            break;
        }
        m_out += QLatin1Char('>');
        for (const XmlNode &child : node.children)
            writeInline(child);
        m_out += QLatin1String("</") + node.name + QLatin1Char('>');
        break;
    }
}

void ProjectWriter::openTag(const QString &name, const Attributes &attributes)
{
    m_out += QLatin1Char('<') + name;
    for (const auto &[key, value] : attributes)
        attribute(key, value);
}

void ProjectWriter::attribute(const QString &name, const QString &value)
{
    m_out += QLatin1Char(' ') + name + QLatin1String("=\"");
    escape(value, true);
    m_out += QLatin1Char('"');
}

void ProjectWriter::indent(int level)
{
    for (int i = 0; i < level * INDENT; ++i)
        m_out += QLatin1Char(' ');
}

void ProjectWriter::escape(const QString &text, bool inAttribute)
{
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '&':
            m_out += QLatin1String("&amp;");
            break;
        case '<':
            m_out += QLatin1String("&lt;");
            break;
        case '>':
            m_out += QLatin1String("&gt;");
            break;
        case '\r':
            m_out += QLatin1String("&#13;");
            break;
        case '"':
            m_out += inAttribute ? QLatin1String("&quot;") : QLatin1String("\"");
            break;
        case '\n':
            m_out += inAttribute ? QLatin1String("&#10;") : QLatin1String("\n");
            break;
        case '\t':
            m_out += inAttribute ? QLatin1String("&#9;") : QLatin1String("\t");
            break;
        default:
            m_out += c;
        }
    }
}

} // namespace Fpga
