// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/file/projectreader_p.h>

#include <QDir>

#include <algorithm>
#include <utility>

namespace Fpga {

namespace {

// What is kept unread is held in memory and written by recursion: neither may
// grow with what a stranger writes.
constexpr int MAX_DEPTH = 64;
constexpr int MAX_NODES = 500000;

bool isBlank(const QStringRef &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSpace(); });
}

} // namespace

ProjectReader::ProjectReader(const QByteArray &contents, ProjectDocument::Data *data)
    : m_xml(contents)
    , m_data(data)
{
    // Prefixes are kept as they stand, declared or not.
    m_xml.setNamespaceProcessing(false);
}

void ProjectReader::setFiles(const QVector<FileEntry> &files, int listLine)
{
    m_data->files = files;
    for (FileEntry &entry : m_data->files)
        entry.path = checkedPath(entry.path);
    m_listLine = listLine;
}

bool ProjectReader::read()
{
    QVector<XmlNode> before;
    bool rootMet = false;
    while (!failed() && next() != QXmlStreamReader::EndDocument) {
        if (m_xml.isStartElement()) {
            m_data->rootExtras.before = std::exchange(before, {});
            rootMet = true;
            readRoot();
        } else {
            keepToken(rootMet ? &m_data->after : &before);
        }
    }
    if (m_errorReason.isNull() && m_xml.hasError()) {
        m_errorLine = int(m_xml.lineNumber());
        m_errorReason = tr("The file is no readable XML: %1").arg(m_xml.errorString());
    }
    return m_errorReason.isNull();
}

void ProjectReader::readRoot()
{
    m_data->rootName = m_xml.qualifiedName().toString();
    keepAttributes(&m_data->rootExtras, {});
    const int rootLine = int(m_xml.lineNumber());
    QVector<XmlNode> before;
    const auto enter = [&](const char *name, XmlExtras *extras) {
        if (!takeOnce(name))
            return false;
        extras->before = std::exchange(before, {});
        return true;
    };
    while (!failed() && next() != QXmlStreamReader::EndElement) {
        if (!m_xml.isStartElement()) {
            keepToken(&before);
            continue;
        }
        const QStringRef name = m_xml.qualifiedName();
        if (name == QLatin1String("Template")) {
            if (enter("Template", &m_data->templateExtras)) {
                keepAttributes(&m_data->templateExtras, {});
                m_data->templateName = readText(&m_data->templateExtras);
            }
        } else if (name == QLatin1String("Name")) {
            if (enter("Name", &m_data->nameExtras)) {
                keepAttributes(&m_data->nameExtras, {});
                m_data->name = readText(&m_data->nameExtras).trimmed();
            }
        } else if (name == QLatin1String("Device")) {
            if (enter("Device", &m_data->deviceExtras))
                readDevice();
        } else if (name == QLatin1String("Top")) {
            if (enter("Top", &m_data->topExtras))
                readTop();
        } else if (name == QLatin1String("Files")) {
            if (enter("Files", &m_data->filesExtras))
                readFiles();
        } else {
            m_data->rootExtras.children += before;
            before.clear();
            m_data->rootExtras.children.append(readUnknown(0));
        }
    }
    m_data->rootExtras.children += before;
    if (failed())
        return;
    if (!m_met.contains("Template")) {
        m_errorLine = rootLine;
        m_errorReason = tr("The file has no element \"Template\", so it is no project.");
    } else if (m_data->templateName != QLatin1String("FPGA")
               && m_data->templateName != QLatin1String("FPGA_IMPL")) {
        m_errorLine = rootLine;
        m_errorReason = tr("Its template \"%1\" is not that of an FPGA project.")
                            .arg(m_data->templateName.left(100));
    }
}

void ProjectReader::readDevice()
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    m_data->device.part = attributes.value(QLatin1String("part")).toString();
    m_data->device.package = attributes.value(QLatin1String("package")).toString();
    m_data->device.speedGrade = attributes.value(QLatin1String("speedGrade")).toString();
    keepAttributes(&m_data->deviceExtras, {"part", "package", "speedGrade"});
    keepRest(&m_data->deviceExtras);
}

void ProjectReader::readTop()
{
    m_data->top.file = m_xml.attributes().value(QLatin1String("file")).toString();
    keepAttributes(&m_data->topExtras, {"file"});
    m_data->top.name = readText(&m_data->topExtras).trimmed();
}

void ProjectReader::readFiles()
{
    keepAttributes(&m_data->filesExtras, {});
    const bool scanned = m_listLine > 0 && int(m_xml.lineNumber()) == m_listLine;
    const int files = m_data->files.size();
    QVector<XmlNode> before;
    while (!failed() && next() != QXmlStreamReader::EndElement) {
        if (!m_xml.isStartElement()) {
            keepToken(&before);
        } else if (m_xml.qualifiedName() != QLatin1String("File")) {
            m_data->filesExtras.children += before;
            before.clear();
            m_data->filesExtras.children.append(readUnknown(0));
        } else {
            const int count = m_data->files.size();
            readFile();
            if (!before.isEmpty() && m_data->files.size() > count) {
                FileEntry &entry = m_data->files.last();
                XmlExtras extras = entry.extras ? *entry.extras : XmlExtras();
                extras.before = std::exchange(before, {});
                entry.extras = std::make_shared<const XmlExtras>(std::move(extras));
            }
        }
    }
    m_data->filesExtras.children += before;

    m_listMet = scanned && m_data->files.size() == files && m_data->filesExtras.children.isEmpty();
    sortFiles();
}

void ProjectReader::sortFiles()
{
    QVector<FileEntry> &files = m_data->files;
    const auto byPath = [](const FileEntry &a, const FileEntry &b) { return a.path < b.path; };
    if (!std::is_sorted(files.cbegin(), files.cend(), byPath))
        std::stable_sort(files.begin(), files.end(), byPath);
    // Two branches that added the same file leave it twice when they are merged.
    files.erase(
        std::unique(files.begin(), files.end(),
                    [](const FileEntry &a, const FileEntry &b) { return a.path == b.path; }),
        files.end());
}

void ProjectReader::readFile()
{
    FileEntry entry;
    XmlExtras extras;
    bool kindMet = false;
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        const QStringRef name = attribute.qualifiedName();
        const QStringRef value = attribute.value();
        if (name == QLatin1String("path")) {
            entry.path = checkedPath(value.toString());
        } else if (name == QLatin1String("kind")) {
            kindMet = true;
            const std::optional<FileKind> kind = fileKindNamed(value);
            entry.kind = kind.value_or(FileKind::Other);
            if (!kind)
                entry.foreignKind = value.toString();
        } else if (name == QLatin1String("enabled")) {
            entry.enabled = value == QLatin1String("true");
            if (!entry.enabled && value != QLatin1String("false"))
                fail(tr("\"enabled\" is neither \"true\" nor \"false\"."));
        } else {
            extras.attributes.append({name.toString(), value.toString()});
        }
    }
    if (!failed() && entry.path.isEmpty())
        fail(tr("A file without a path."));
    if (!kindMet)
        entry.kind = fileKindOf(entry.path);
    keepRest(&extras);
    if (!extras.isEmpty())
        entry.extras = std::make_shared<const XmlExtras>(std::move(extras));
    m_data->files.append(std::move(entry));
}

QString ProjectReader::checkedPath(const QString &path)
{
    // Most paths are clean, and cleaning costs.
    bool clean = true;
    QChar before = QLatin1Char('/');
    for (const QChar c : path) {
        const bool slash = c == QLatin1Char('/');
        clean = clean && !(slash && (before == QLatin1Char('/') || before == QLatin1Char('.')));
        before = c;
    }
    if (clean && before != QLatin1Char('.') && before != QLatin1Char('/'))
        return path;
    const QString cleaned = QDir::cleanPath(path);
    return cleaned == QLatin1String(".") ? QString() : cleaned;
}

QString ProjectReader::readText(XmlExtras *extras)
{
    QString text;
    while (!failed() && next() != QXmlStreamReader::EndElement) {
        if (m_xml.isCharacters() || m_xml.isEntityReference())
            text += m_xml.text();
        else if (m_xml.isStartElement())
            extras->children.append(readUnknown(0));
        else
            keepToken(&extras->children);
    }
    return text;
}

void ProjectReader::keepRest(XmlExtras *extras)
{
    while (!failed() && next() != QXmlStreamReader::EndElement) {
        if (m_xml.isStartElement())
            extras->children.append(readUnknown(0));
        else
            keepToken(&extras->children);
    }
}

void ProjectReader::keepAttributes(XmlExtras *extras, std::initializer_list<const char *> known)
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        const QStringRef name = attribute.qualifiedName();
        const bool isKnown = std::any_of(known.begin(), known.end(), [&](const char *one) {
            return name == QLatin1String(one);
        });
        if (!isKnown)
            extras->attributes.append({name.toString(), attribute.value().toString()});
    }
}

XmlNode ProjectReader::readUnknown(int depth)
{
    XmlNode node;
    node.name = m_xml.qualifiedName().toString();
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes)
        node.attributes.append(
            {attribute.qualifiedName().toString(), attribute.value().toString()});
    if (depth >= MAX_DEPTH) {
        fail(tr("Elements are nested more than %1 deep.").arg(MAX_DEPTH));
        return node;
    }
    bool mixed = false;
    while (!failed() && next() != QXmlStreamReader::EndElement) {
        if (m_xml.isStartElement()) {
            node.children.append(readUnknown(depth + 1));
        } else if (m_xml.isCharacters()) {
            mixed = mixed || !isBlank(m_xml.text());
            XmlNode text;
            text.type = XmlNode::Type::Text;
            text.text = m_xml.text().toString();
            node.children.append(text);
        } else {
            keepToken(&node.children);
        }
    }
    // Blanks between elements are no more than indentation.
    const bool leaf = std::all_of(node.children.cbegin(), node.children.cend(),
                                  [](const XmlNode &n) { return n.type == XmlNode::Type::Text; });
    if (!mixed && !leaf) {
        node.children.erase(
            std::remove_if(node.children.begin(), node.children.end(),
                           [](const XmlNode &n) { return n.type == XmlNode::Type::Text; }),
            node.children.end());
    }
    return node;
}

void ProjectReader::keepToken(QVector<XmlNode> *nodes)
{
    XmlNode node;
    if (m_xml.isComment()) {
        node.type = XmlNode::Type::Comment;
        node.text = m_xml.text().toString();
        nodes->append(node);
    } else if (m_xml.isProcessingInstruction()) {
        node.type = XmlNode::Type::Instruction;
        node.name = m_xml.processingInstructionTarget().toString();
        node.text = m_xml.processingInstructionData().toString();
        nodes->append(node);
    } else if (m_xml.isCharacters() && !isBlank(m_xml.text())) {
        fail(tr("Text where none belongs: \"%1\".")
                 .arg(m_xml.text().toString().simplified().left(40)));
    }
}

QXmlStreamReader::TokenType ProjectReader::next()
{
    const QXmlStreamReader::TokenType token = m_xml.readNext();
    if (token == QXmlStreamReader::DTD)
        fail(tr("A document type (DOCTYPE) does not belong into a project file."));
    else if (token == QXmlStreamReader::EntityReference)
        fail(tr("The entity \"%1\" is not known.").arg(m_xml.name().toString().left(40)));
    else if (token == QXmlStreamReader::StartElement && ++m_nodes > MAX_NODES)
        fail(tr("There are more than %1 elements.").arg(MAX_NODES));
    return token;
}

bool ProjectReader::takeOnce(const char *name)
{
    if (m_met.contains(name)) {
        fail(tr("The element \"%1\" stands here a second time.").arg(QLatin1String(name)));
        return false;
    }
    m_met.insert(name);
    return true;
}

void ProjectReader::fail(const QString &reason)
{
    if (!m_errorReason.isNull())
        return;
    m_errorLine = int(m_xml.lineNumber());
    m_errorReason = reason;
}

} // namespace Fpga
