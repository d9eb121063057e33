// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/xmltext.h>

#include <QElapsedTimer>
#include <QTest>
#include <QTextCodec>

using Utils::XmlText;

namespace {

/// @p count attributes of different names.
QByteArray attributes(int count)
{
    QByteArray text;
    text.reserve(count * 12);
    for (int i = 0; i < count; ++i)
        text += " a" + QByteArray::number(i) + "='>'";
    return text;
}

int floodIn(const QByteArray &xml)
{
    return XmlText(xml).lineOfAttributeFlood();
}

} // namespace

class TestXmlText final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void textIsDecoded_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QString text = QStringLiteral("<p>\u00e4</p>");
        const auto row = [&](const char *name, const char *codec, const QByteArray &before) {
            QTest::newRow(name) << QByteArray(before
                                              + QTextCodec::codecForName(codec)->fromUnicode(text));
        };
        row("UTF-8", "UTF-8", {});
        row("UTF-8, marked", "UTF-8", "\xef\xbb\xbf");
        row("UTF-16", "UTF-16", {});
        row("declared", "ISO-8859-1", "<?xml version='1.0' encoding='ISO-8859-1'?>");
        row("unknown", "UTF-8", "<?xml version='1.0' encoding='x-none'?>");
    }

    void textIsDecoded()
    {
        QFETCH(QByteArray, content);
        const QString text = XmlText(content).text();
        QVERIFY2(text.endsWith(QStringLiteral("<p>\u00e4</p>")), qPrintable(text));
    }

    void aFloodIsFoundInItsLine_data()
    {
        QTest::addColumn<QByteArray>("xml");
        QTest::addColumn<int>("line");
        const QByteArray most = attributes(XmlText::MAX_ATTRIBUTES);
        const QByteArray flood = attributes(XmlText::MAX_ATTRIBUTES + 1);
        const auto row = [](const char *name, const QByteArray &xml, int line) {
            QTest::newRow(name) << xml << line;
        };
        row("nothing", "", 0);
        row("no XML", "module top;", 0);
        row("none", "<p/>", 0);
        row("as many as may be", "<p" + most + "/>", 0);
        row("one more", "<p" + flood + "/>", 1);
        row("further down", "<p" + most + ">\n<q" + most + "/>\n\n<r" + flood + "/></p>", 4);
        row("in double quotes", "<p" + QByteArray(flood).replace("'", "\"") + "/>", 1);
        row("quotes within quotes", "<p a='" + QByteArray(1000, '"') + "'/>", 0);
        row("over several lines", "<p>\n<q" + QByteArray(flood).replace(" ", "\n") + "/></p>", 2);
        row("in a comment", "<p><!--<q" + flood + "/>--></p>", 0);
        row("in CDATA", "<p><![CDATA[<q" + flood + "/>]]></p>", 0);
        row("in an instruction", "<p><?q" + flood + "?></p>", 0);
        row("in text", "<p>q" + flood + "</p>", 0);
        row("behind a comment", "<p><!-- ' --><q" + flood + "/></p>", 1);
        row("behind CDATA", "<p><![CDATA[\"]]><q" + flood + "/></p>", 1);
        row("behind an instruction", "<?q '?><p" + flood + "/>", 1);
        row("behind a comment without end", "<p><!-- <q" + flood + "/>", 0);
        row("in a document type", "<!DOCTYPE p [<!ATTLIST p" + flood + ">]><p/>", 1);
        row("behind a document type", "<!DOCTYPE p [\n<!ELEMENT p ANY>\n]><p" + flood + "/>", 3);
        row("not at its end", "<p" + flood, 1);
        row("a quote without end", "<p a='", 0);
    }

    void aFloodIsFoundInItsLine()
    {
        QFETCH(QByteArray, xml);
        QFETCH(int, line);
        QCOMPARE(floodIn(xml), line);
    }

    void otherEncodingsHideNoFlood()
    {
        const QString xml = QLatin1String("<p")
                            + QString::fromLatin1(attributes(XmlText::MAX_ATTRIBUTES + 1))
                            + QLatin1String("/>");
        QCOMPARE(floodIn(QTextCodec::codecForName("UTF-16")->fromUnicode(xml)), 1);
    }

    void aFloodTakesNoTime()
    {
        const QByteArray xml = "<p" + attributes(200000) + "/>";
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(floodIn(xml), 1);
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_GUILESS_MAIN(TestXmlText)
#include "tst_xmltext.moc"
