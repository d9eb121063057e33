// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The example project is what a project file should be.

#include <devicedb/devicedb.h>
#include <fpgaproject/file/projectdocument.h>
#include <fpgaproject/hdl/modulescanner_p.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

using Fpga::FileEntry;
using Fpga::FileKind;
using Fpga::ProjectDocument;
using Fpga::ReadError;

class TestExample : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        ReadError error;
        const auto document = ProjectDocument::read(m_folder.filePath(m_name), &error);
        QVERIFY2(document, qPrintable(error.text()));
        m_document = *document;
    }

    void itIsWrittenAsItStands()
    {
        QFile file(m_folder.filePath(m_name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(m_document.toXml()), QString::fromUtf8(file.readAll()));
    }

    void everyFileIsThereAndOfItsKind()
    {
        QVERIFY(m_document.files().size() > 5);
        for (const FileEntry &file : m_document.files()) {
            QVERIFY2(QFileInfo(m_folder.filePath(file.path)).isFile(), qPrintable(file.path));
            QCOMPARE(file.kind, Fpga::fileKindOf(file.path));
        }
    }

    void itsTopStandsInItsFile()
    {
        const FileEntry *const file = m_document.file(m_document.top().file);
        QVERIFY(file);
        QCOMPARE(Fpga::modulesInFile(m_folder.filePath(file->path), file->kind),
                 QStringList(m_document.top().name));
    }

    void itsDeviceIsInTheTable()
    {
        const DEV::DeviceDb devices(QStringLiteral(DEVICE_TABLE));
        const auto device = devices.device(m_document.device().part);
        QVERIFY(device);
        QCOMPARE(device->package, m_document.device().package);
        QCOMPARE(device->speedGrade, m_document.device().speedGrade);
    }

    void everyPortOfTheTopHasAPin()
    {
        QFile file(m_folder.filePath(QStringLiteral("constraints/blinky.pcn")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QStringList ports;
        const QRegularExpression line(QStringLiteral("^set_io (?:-pullup yes )?(\\w+) \\d+$"),
                                      QRegularExpression::MultilineOption);
        auto matches = line.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            ports.append(matches.next().captured(1));
        ports.sort();
        QCOMPARE(ports, QStringList({QStringLiteral("button_n"), QStringLiteral("clk"),
                                     QStringLiteral("led_blink"), QStringLiteral("led_breathe")}));
    }

private:
    const QDir m_folder{QStringLiteral(EXAMPLE_PROJECT)};
    const QString m_name = QStringLiteral("blinky.kprj");
    ProjectDocument m_document;
};

QTEST_GUILESS_MAIN(TestExample)
#include "tst_example.moc"
