// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FILE_XMLNODE_P_H
#define FPGAPROJECT_FILE_XMLNODE_P_H

#include <QString>
#include <QVector>

#include <utility>

namespace Fpga {

/// A piece of a project file that this program does not know and keeps.
struct XmlNode
{
    enum class Type { Element, Text, Comment, Instruction };

    Type type = Type::Element;
    /// Of an element, with its prefix, or the target of an instruction.
    QString name;
    /// What the other types hold.
    QString text;
    /// In the order in which they stand.
    QVector<std::pair<QString, QString>> attributes;
    QVector<XmlNode> children;
};

/// What a known element holds beyond what is known of it.
struct XmlExtras
{
    QVector<std::pair<QString, QString>> attributes;
    QVector<XmlNode> children;
    /// Comments and instructions that stand in front of it.
    QVector<XmlNode> before;

    [[nodiscard]] bool isEmpty() const
    {
        return attributes.isEmpty() && children.isEmpty() && before.isEmpty();
    }
};

} // namespace Fpga

#endif // FPGAPROJECT_FILE_XMLNODE_P_H
