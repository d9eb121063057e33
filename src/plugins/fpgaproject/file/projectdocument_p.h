// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FILE_PROJECTDOCUMENT_P_H
#define FPGAPROJECT_FILE_PROJECTDOCUMENT_P_H

#include <fpgaproject/file/projectdocument.h>
#include <fpgaproject/file/xmlnode_p.h>

#include <QSharedData>

namespace Fpga {

struct ProjectDocument::Data : public QSharedData
{
    QString rootName = QStringLiteral("Project");
    QString templateName = QStringLiteral("FPGA");
    QString name;
    DeviceChoice device;
    TopModule top;
    QVector<FileEntry> files;

    // What is kept, of each known element in turn. Its children that are not
    // known follow the known ones.
    XmlExtras rootExtras;
    XmlExtras templateExtras;
    XmlExtras nameExtras;
    XmlExtras deviceExtras;
    XmlExtras topExtras;
    XmlExtras filesExtras;
    /// Behind the root.
    QVector<XmlNode> after;
};

} // namespace Fpga

#endif // FPGAPROJECT_FILE_PROJECTDOCUMENT_P_H
