// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/projects/projecttemplate_p.h>

#include <utils/xmltext.h>

#include <QIODevice>
#include <QXmlStreamReader>

namespace Core {
namespace private_impl {

namespace {

constexpr qint64 MAX_SIZE = qint64(16) * 1024 * 1024;
constexpr int MAX_DEPTH = 10000;

const QString TEMPLATE_FPGA = QStringLiteral("FPGA");
const QString TEMPLATE_FPGA_IMPL = QStringLiteral("FPGA_IMPL");

/// The reader's own limit counts the characters that entities expand to, so that a
/// few of them can keep it busy for ever when they expand to nothing. No project
/// file needs any. Nor does it any attributes that elements have of themselves,
/// which the reader searches for each element.
bool declaresTooMuch(const QString &text)
{
    const int documentType = text.indexOf(QLatin1String("<!DOCTYPE"));
    return documentType >= 0
           && (text.indexOf(QLatin1String("<!ENTITY"), documentType) >= 0
               || text.indexOf(QLatin1String("<!ATTLIST"), documentType) >= 0);
}

QString readTemplate(const QString &text)
{
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    QString result;
    bool found = false;
    bool inside = false;
    int depth = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (++depth > MAX_DEPTH)
                return {};
            if (depth == 2 && !found && reader.qualifiedName() == QLatin1String("Template"))
                found = inside = true;
            break;
        case QXmlStreamReader::EndElement:
            if (--depth == 1)
                inside = false;
            break;
        case QXmlStreamReader::Characters:
            // White space that but lays the elements out is no text of theirs.
            if (inside && (reader.isCDATA() || !reader.isWhitespace()))
                result += reader.text();
            break;
        default:
            break;
        }
    }
    return reader.hasError() ? QString() : result;
}

} // namespace

QString templateOfProject(QIODevice *file)
{
    const QByteArray content = file->read(MAX_SIZE + 1);
    if (content.size() > MAX_SIZE)
        return {};
    const Utils::XmlText xml(content);
    if (declaresTooMuch(xml.text()) || xml.lineOfAttributeFlood() > 0)
        return {};
    const QString name = readTemplate(xml.text());
    return name == TEMPLATE_FPGA_IMPL ? TEMPLATE_FPGA : name;
}

} // namespace private_impl
} // namespace Core
