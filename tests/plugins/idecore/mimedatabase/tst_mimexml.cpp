// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "parsing.h"

#include <QIODevice>
#include <QTest>

#include <sys/resource.h>

namespace {

/// Gives out a start, then a piece over and over up to a size, then an end.
class GeneratedXml : public QIODevice
{
public:
    GeneratedXml(const QByteArray &start, const QByteArray &piece, qint64 size)
        : m_start(start)
        , m_piece(piece)
        , m_size(size)
    {
        open(QIODevice::ReadOnly);
    }

    bool isSequential() const override { return true; }
    qint64 given() const { return m_given; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        qint64 count = 0;
        for (; count < maxSize && m_given < m_size; ++count, ++m_given) {
            const qint64 behind = m_given - m_start.size();
            data[count] =
                behind < 0 ? m_start.at(int(m_given)) : m_piece.at(int(behind % m_piece.size()));
        }
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    const QByteArray m_start;
    const QByteArray m_piece;
    const qint64 m_size;
    qint64 m_given = 0;
};

/// The most memory the program has had, in MiB.
long peakMemory()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

class TestMimeXml : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void malformed_data();
    void malformed();
    void entityDeclarationsAreRefused_data();
    void entityDeclarationsAreRefused();
    void predefinedEntitiesAreRead();
    void deepNestingIsRefused_data();
    void deepNestingIsRefused();
    void declaredPrefixesAreRead();
    void undeclaredPrefixIsRefused_data();
    void undeclaredPrefixIsRefused();
};

void TestMimeXml::malformed_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no markup") << QByteArray("module top;");
    QTest::newRow("binary") << QByteArray("\x7f"
                                          "ELF\x02\x01\x00\x00",
                                          8);
    QTest::newRow("truncated in a tag") << QByteArray("<mime-info><mime-type typ");
    QTest::newRow("truncated in a type") << QByteArray("<mime-info><mime-type type=\"a/b\">");
    QTest::newRow("truncated in a comment") << QByteArray("<mime-type type=\"a/b\"><comment>Te");
    QTest::newRow("not UTF-8") << QByteArray(
        "<mime-type type=\"a/b\"><comment>\xff\xfe\x80</comment></mime-type>");
    QTest::newRow("Latin-1 without saying so")
        << QByteArray("<mime-type type=\"a/b\"><comment>\xe9t\xe9</comment></mime-type>");
    QTest::newRow("wrong end") << QByteArray("<mime-info><mime-type type=\"a/b\"></mime-info>");
    QTest::newRow("two roots") << QByteArray("<mime-type type=\"a/b\"/><mime-type type=\"c/d\"/>");
    QTest::newRow("unknown entity")
        << QByteArray("<mime-type type=\"a/b\"><comment>&nothing;</comment></mime-type>");
}

void TestMimeXml::malformed()
{
    QFETCH(QByteArray, xml);

    const Result result = parse(xml);

    QVERIFY(!result.ok);
    QVERIFY2(result.message.contains(QRegExp(QStringLiteral(
                 "^An error has been encountered at line \\d+ of test\\.xml: .+:$"))),
             qPrintable(result.message));
}

void TestMimeXml::entityDeclarationsAreRefused_data()
{
    QTest::addColumn<QByteArray>("declarations");
    QByteArray bomb = "<!ENTITY a0 \"lollollollol\">";
    for (int i = 1; i < 12; ++i) {
        QByteArray references;
        for (int k = 0; k < 10; ++k)
            references += "&a" + QByteArray::number(i - 1) + ";";
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"" + references + "\">";
    }
    QTest::newRow("nested") << bomb + "<!ENTITY a \"&a11;\">";
    QTest::newRow("long") << "<!ENTITY a \"" + QByteArray(4000, 'x') + "\">";
    QTest::newRow("in a default")
        << bomb + "<!ENTITY a \"\"><!ATTLIST glob pattern CDATA \"&a11;\">";
    QTest::newRow("external") << QByteArray("<!ENTITY a SYSTEM \"file:///etc/passwd\">");
    // Expanded before the declarations are known.
    for (const char *piece : {" ", "<!-- -->", "<!ATTLIST glob a CDATA \"\">"}) {
        QTest::addRow("parameter %s", piece)
            << "<!ENTITY % p '" + QByteArray(piece).repeated(4000 / int(qstrlen(piece))) + "'>"
                   + QByteArray("%p;").repeated(30000);
    }
}

void TestMimeXml::entityDeclarationsAreRefused()
{
    QFETCH(QByteArray, declarations);
    const long before = peakMemory();

    const Result result =
        parse("<!DOCTYPE mime-info [" + declarations + "]><mime-type type=\"a/b\">" + "<comment>"
              + QByteArray("&a;").repeated(100000) + "</comment><glob/></mime-type>");

    QVERIFY(!result.ok);
    QVERIFY2(result.message.startsWith(
                 QLatin1String("An error has been encountered at line 1 of test.xml: ")),
             qPrintable(result.message));
    QVERIFY(result.types.isEmpty());
    QVERIFY(peakMemory() - before < 64);
}

void TestMimeXml::predefinedEntitiesAreRead()
{
    const Result result = parseType("<comment>a &lt;&amp;&gt; &#65; <!-- no text -->b</comment>");

    QCOMPARE(result.type().comment(), QStringLiteral("a <&> A b"));
}

void TestMimeXml::deepNestingIsRefused_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("piece");
    QTest::newRow("unknown elements")
        << QByteArray("<mime-type type=\"a/b\">") << QByteArray("<x>");
    QTest::newRow("types") << QByteArray("<mime-info>") << QByteArray("<mime-type type=\"a/b\">");
    QTest::newRow("comments") << QByteArray("<mime-type type=\"a/b\">") << QByteArray("<comment>");
}

void TestMimeXml::deepNestingIsRefused()
{
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, piece);
    GeneratedXml device(start, piece, 100 * 1024 * 1024);
    const long before = peakMemory();

    const Result result = parse(device);

    QVERIFY(!result.ok);
    QCOMPARE(result.message,
             locatedError(1, piece == "<comment>" ? "Expected character data."
                                                  : "Elements are nested too deeply"));
    QVERIFY(device.given() < 1024 * 1024);
    QVERIFY(peakMemory() - before < 16);
}

void TestMimeXml::declaredPrefixesAreRead()
{
    const Result result =
        parse("<m:mime-info xmlns:m=\"urn:m\" xmlns=\"urn:n\">"
              "<m:mime-type type=\"a/b\" x:a=\"\" xmlns:x=\"urn:x\">"
              "<x:comment xml:lang=\"de\" y:a=\"\" xmlns:y=\"urn:y\">Text</x:comment>"
              "<x:glob pattern=\"*.c\"/></m:mime-type></m:mime-info>");

    QVERIFY2(result.ok, qPrintable(result.message));
    QCOMPARE(result.type().localeComment(QStringLiteral("de")), QStringLiteral("Text"));
    QCOMPARE(result.type().suffixes(), QStringList(QStringLiteral("c")));
}

void TestMimeXml::undeclaredPrefixIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("element") << QByteArray("<x:glob/>");
    QTest::newRow("ignored element") << QByteArray("<x:icon/>");
    QTest::newRow("attribute") << QByteArray("<glob x:pattern=\"*.c\"/>");
    QTest::newRow("declared by a closed element")
        << QByteArray("<x:icon xmlns:x=\"urn:x\"/><x:glob/>");
    QTest::newRow("declared by a closed comment")
        << QByteArray("<comment xmlns:x=\"urn:x\">Text</comment><x:glob/>");
}

void TestMimeXml::undeclaredPrefixIsRefused()
{
    QFETCH(QByteArray, content);

    const Result result = parseType(content);

    QVERIFY(!result.ok);
    QCOMPARE(result.message, locatedError(3, "Namespace prefix 'x' not declared"));
    QVERIFY(result.types.isEmpty());
}

QTEST_GUILESS_MAIN(TestMimeXml)
#include "tst_mimexml.moc"
