// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testproject.h"

#include <idecore/projects/projectmanager.h>

#include <QDomDocument>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/resource.h>

using Core::ProjectManager;

namespace {

const QString INVALID = QStringLiteral("<invalid>");

/// The most memory that the process has used, in KiB.
long peakMemory()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// Serves the template that is wanted just now, without making projects.
class AnyTemplate final : public Core::IProjecctFactory
{
public:
    QString projectTemplate() const override { return wanted; }
    Core::IProject *createProject() override
    {
        ++made;
        return nullptr;
    }

    QString wanted;
    int made = 0;
};

/// A DOCTYPE with the entities @p declarations, referred to by @p reference.
QByteArray withEntities(const QByteArray &declarations, const QByteArray &reference)
{
    return "<?xml version=\"1.0\"?>\n<!DOCTYPE p [\n" + declarations + "]>\n<p><Template>"
           + reference + "</Template></p>\n";
}

/// Each of 12 entities refers ten times to the one before it.
QByteArray nestedEntities(const QByteArray &innermost)
{
    QByteArray declarations = "<!ENTITY e0 \"" + innermost + "\">\n";
    for (int i = 1; i <= 12; ++i) {
        const QByteArray before = "&e" + QByteArray::number(i - 1) + ";";
        declarations +=
            "<!ENTITY e" + QByteArray::number(i) + " \"" + before.repeated(10) + "\">\n";
    }
    return declarations;
}

} // namespace

/// Which template a project file names, told by the factory that is asked to open it.
class TestProjectTemplate final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_core = std::make_unique<CoreFixture>();
        m_inPool = std::make_unique<InPool>(&m_factory);
    }

    void cleanup()
    {
        m_inPool.reset();
        m_core.reset();
    }

    void theTemplateIsTheTextOfTheFirstSuchChildOfTheRoot_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const QByteArray &content, const QString &expected) {
            QTest::newRow(name) << content << expected;
        };
        const QString fpga = QStringLiteral("FPGA");
        row("first child", "<p><Template>FPGA</Template><x/></p>", fpga);
        row("any root", "<anything><Template>FPGA</Template></anything>", fpga);
        row("root called so", "<Template><Template>FPGA</Template></Template>", fpga);
        row("behind another", "<p><Name>n</Name><Template>FPGA</Template></p>", fpga);
        row("the first of two", "<p><Template>FPGA</Template><Template>X</Template></p>", fpga);
        row("one nested before it", "<p><a><Template>X</Template></a><Template>FPGA</Template></p>",
            fpga);
        row("legacy", "<p><Template>FPGA_IMPL</Template></p>", fpga);
        row("other text as it stands", "<p><Template> A B </Template></p>",
            QStringLiteral(" A B "));
        row("attributes", "<p v='1'><Template a='X'>FPGA</Template></p>", fpga);
        row("CDATA", "<p><Template><![CDATA[FP]]>GA</Template></p>", fpga);
        row("comment inside", "<p><Template>FP<!-- X -->GA</Template></p>", fpga);
        row("character references", "<p><Template>&#70;P&#x47;A</Template></p>", fpga);
        row("escaped", "<p><Template>A&amp;B&lt;</Template></p>", QStringLiteral("A&B<"));
        row("element inside", "<p><Template>FP<b>GA</b></Template></p>", fpga);
        row("comment before", "<!-- <!DOCTYPE --><p><Template>FPGA</Template></p>", fpga);
        row("declaration", "<?xml version='1.0' encoding='UTF-8'?><p><Template>FPGA</Template></p>",
            fpga);
        row("plain document type", "<!DOCTYPE p><p><Template>FPGA</Template></p>", fpga);
        row("mark", "\xEF\xBB\xBF<p><Template>FPGA</Template></p>", fpga);
        row("UTF-8", "<p><Template>\xC3\xA9</Template></p>", QString(QChar(0xE9)));
        row("Latin-1",
            "<?xml version='1.0' encoding='ISO-8859-1'?><p><Template>\xE9</Template></p>",
            QString(QChar(0xE9)));
        const QString wide = QStringLiteral("\uFEFF<p><Template>FPGA</Template></p>");
        row("UTF-16", QByteArray(reinterpret_cast<const char *>(wide.utf16()), wide.size() * 2),
            fpga);
        row("the word ENTITY in a comment", "<p><!-- <!ENTITY --><Template>FPGA</Template></p>",
            fpga);
    }

    void theTemplateIsTheTextOfTheFirstSuchChildOfTheRoot()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, expected);
        QVERIFY(isRead(content, expected));
    }

    void aFileWithoutATemplateIsInvalid_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no XML at all\n");
        QTest::newRow("binary") << QByteArray("\x7F"
                                              "ELF\x00\x01\xFF\xFE",
                                              8);
        QTest::newRow("no template") << QByteArray("<p><Name>n</Name></p>");
        QTest::newRow("empty element") << QByteArray("<p><Template/></p>");
        QTest::newRow("no text") << QByteArray("<p><Template></Template></p>");
        QTest::newRow("white space only") << QByteArray("<p><Template>\n  </Template></p>");
        QTest::newRow("empty one first")
            << QByteArray("<p><Template/><Template>FPGA</Template></p>");
        QTest::newRow("nested deeper") << QByteArray("<p><a><Template>FPGA</Template></a></p>");
        QTest::newRow("later and nested deeper")
            << QByteArray("<p><Name>n</Name><a><Template>FPGA</Template></a></p>");
        QTest::newRow("the root itself") << QByteArray("<Template>FPGA</Template>");
        QTest::newRow("case") << QByteArray("<p><template>FPGA</template></p>");
        QTest::newRow("attribute") << QByteArray("<p Template='FPGA'/>");
        QTest::newRow("prefix") << QByteArray("<p xmlns:x='u'><x:Template>FPGA</x:Template></p>");
        QTest::newRow("broken behind it") << QByteArray("<p><Template>FPGA</Template><a></p>");
        QTest::newRow("cut off") << QByteArray("<p><Template>FPGA</Template>");
        QTest::newRow("two roots") << QByteArray("<p><Template>FPGA</Template></p><q/>");
        QTest::newRow("text behind the root") << QByteArray("<p><Template>FPGA</Template></p>x");
        QTest::newRow("unknown encoding") << QByteArray(
            "<?xml version='1.0' encoding='no-such'?><p><Template>FPGA</Template></p>");
    }

    void aFileWithoutATemplateIsInvalid()
    {
        QFETCH(QByteArray, content);
        QVERIFY(isRead(content, INVALID));
    }

    void anyDocumentIsReadAsItsDomSays()
    {
        auto random = QRandomGenerator(4711);
        int found = 0;
        for (int i = 0; i < 400; ++i) {
            const QByteArray content = "<p>" + children(&random, 0) + "</p>";
            QDomDocument document;
            QVERIFY(document.setContent(content));
            const QString text =
                document.documentElement().firstChildElement(QStringLiteral("Template")).text();
            QVERIFY2(isRead(content, text.isEmpty() ? INVALID : text), content.constData());
            found += text.isEmpty() ? 0 : 1;
        }
        QVERIFY(found > 100);
        QVERIFY(found < 350);
    }

    void entitiesAreRefusedInNoTime_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("gigabytes") << withEntities(nestedEntities("0123456789"), "&e12;");
        QTest::newRow("nothing, many times") << withEntities(nestedEntities(""), "&e12;");
        QTest::newRow("one long, many times") << withEntities(
            "<!ENTITY e \"" + QByteArray(4000, 'x') + "\">", QByteArray("&e;").repeated(500000));
        QTest::newRow("in an attribute")
            << withEntities(nestedEntities("0"), "<a b=\"&e12;\"/>FPGA");
        QTest::newRow("in the default of an attribute")
            << withEntities(nestedEntities("") + "<!ATTLIST p a CDATA \"&e12;\">", "FPGA");
        QTest::newRow("itself") << withEntities("<!ENTITY e \"&e;\">", "&e;");
        QTest::newRow("of the document type")
            << withEntities("<!ENTITY % e \"<!-- x -->\">%e;%e;", "FPGA");
        QTest::newRow("from elsewhere")
            << withEntities("<!ENTITY e SYSTEM \"file:///dev/zero\">", "&e;");
        const QString wide =
            QChar(0xFEFF) + QString::fromUtf8(withEntities(nestedEntities(""), "&e12;"));
        QTest::newRow("UTF-16") << QByteArray(reinterpret_cast<const char *>(wide.utf16()),
                                              wide.size() * 2);
    }

    void entitiesAreRefusedInNoTime()
    {
        QFETCH(QByteArray, content);
        const long before = peakMemory();
        QElapsedTimer clock;
        clock.start();
        QVERIFY(isRead(content, INVALID));
        QVERIFY2(clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
        QVERIFY2(peakMemory() - before < 100 * 1024, qPrintable(QString::number(peakMemory())));
    }

    void aFloodOfAttributesIsRefusedInNoTime_data()
    {
        QTest::addColumn<QByteArray>("content");
        QByteArray attributes;
        QByteArray defaults;
        attributes.reserve(2000000);
        defaults.reserve(4000000);
        for (int i = 0; i < 100000; ++i) {
            const QByteArray name = "a" + QByteArray::number(i);
            attributes += " " + name + "=''";
            defaults += "<!ATTLIST x " + name + " CDATA ''>";
        }
        QTest::newRow("of an element")
            << QByteArray("<p><Template>FPGA</Template><x" + attributes + "/></p>");
        QTest::newRow("of a document type")
            << QByteArray("<!DOCTYPE p [" + defaults + "]><p><Template>FPGA</Template><x/></p>");
    }

    void aFloodOfAttributesIsRefusedInNoTime()
    {
        QFETCH(QByteArray, content);
        QElapsedTimer clock;
        clock.start();
        QVERIFY(isRead(content, INVALID));
        QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    }

    void deepNestingIsRefused()
    {
        const int depth = 500000;
        QVERIFY(isRead("<p><Template>FPGA</Template>" + QByteArray("<a>").repeated(depth)
                           + QByteArray("</a>").repeated(depth) + "</p>",
                       INVALID));
    }

    void nestingAsUsualIsRead()
    {
        QVERIFY(isRead("<p>" + QByteArray("<a>").repeated(5000) + QByteArray("</a>").repeated(5000)
                           + "<Template>FPGA</Template></p>",
                       QStringLiteral("FPGA")));
    }

    void aFileOf100MBIsRefusedInNoTime()
    {
        const QString path = m_dir.filePath(QStringLiteral("large.kprj"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<p><Template>FPGA</Template>");
        const QByteArray lines = QByteArray("<File path=\"src/a.v\"/>\n").repeated(45000);
        while (file.size() < 100 * 1000 * 1000)
            QCOMPARE(file.write(lines), qint64(lines.size()));
        file.write("</p>");
        file.close();
        const long before = peakMemory();
        QElapsedTimer clock;
        clock.start();
        QVERIFY(opens(path, INVALID));
        QVERIFY2(clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
        QVERIFY2(peakMemory() - before < 100 * 1024, qPrintable(QString::number(peakMemory())));
    }

    void aProjectOf50000FilesIsRead()
    {
        QVERIFY(isRead("<p>"
                           + QByteArray("<File kind=\"verilog\" path=\"src/some/module.v\"/>\n")
                                 .repeated(50000)
                           + "<Template>FPGA</Template></p>",
                       QStringLiteral("FPGA")));
    }

private:
    /// Content of an element, random and well formed, with templates here and there.
    static QByteArray children(QRandomGenerator *random, int depth)
    {
        static const QByteArrayList texts = {"FPGA",
                                             " ",
                                             "\n  ",
                                             "a b",
                                             "&amp;",
                                             "<!-- c -->",
                                             "<![CDATA[ d ]]>",
                                             "&#65;",
                                             "<?pi x?>",
                                             "\xC3\xA9",
                                             "<![CDATA[<x>]]>"};
        QByteArray result;
        const int count = int(random->bounded(6U));
        for (int i = 0; i < count; ++i) {
            if (depth < 4 && random->bounded(3U) != 0) {
                const QByteArray name =
                    random->bounded(2U) == 0 ? QByteArray("Template") : QByteArray("a");
                result += "<" + name + ">" + children(random, depth + 1) + "</" + name + ">";
            } else if (depth > 0 || random->bounded(2U) == 0) {
                result += texts.at(int(random->bounded(uint(texts.size()))));
            }
        }
        return result;
    }

    bool isRead(const QByteArray &content, const QString &expected)
    {
        return opens(writeProject(m_dir.filePath(QStringLiteral("p.kprj")), content), expected);
    }

    /// Whether opening @p path asks the factory of the template @p expected for a
    /// project, or calls the file invalid.
    bool opens(const QString &path, const QString &expected)
    {
        m_factory.wanted = expected;
        m_factory.made = 0;
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        ProjectManager::openProject(path);
        const bool invalid = box.text().endsWith(QLatin1String("\nInvalid project file."));
        return expected == INVALID ? invalid : m_factory.made == 1;
    }

    QTemporaryDir m_dir;
    AnyTemplate m_factory;
    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<InPool> m_inPool;
};

QTEST_MAIN(TestProjectTemplate)
#include "tst_projecttemplate.moc"
