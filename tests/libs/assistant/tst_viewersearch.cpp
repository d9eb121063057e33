// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/modaldialog.h"

#include <assistant/assistantproxy.h>

#include <QLibraryInfo>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTest>

using ASSISTANT::AssistantProxy;

namespace {

struct Question
{
    QString name;
    QStringList folders;
};

bool operator==(const Question &a, const Question &b)
{
    return a.name == b.name && a.folders == b.folders;
}

/// The programs of the machine: what is asked for, and where it is.
QVector<Question> s_asked;
Question s_installed;

QString program(const QString &name)
{
    return QStringLiteral("/found/") + name;
}

QStringList qtFolder()
{
    return {QLibraryInfo::location(QLibraryInfo::BinariesPath)};
}

} // namespace

// Stands in for Qt's own, for this program and the libraries it uses: what is
// installed on the machine is no matter of the test.
QString QStandardPaths::findExecutable(const QString &executableName, const QStringList &paths)
{
    const Question question{executableName, paths};
    s_asked.append(question);
    return question == s_installed ? program(executableName) : QString();
}

class TestViewerSearch final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        s_asked.clear();
        s_installed = {};
    }

    void theViewerIsFoundUnderBothNamesInBothPlaces_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("folders");
        for (const char *name : {"assistant", "assistant-qt5"}) {
            QTest::addRow("%s of Qt", name) << QString::fromLatin1(name) << qtFolder();
            QTest::addRow("%s in PATH", name) << QString::fromLatin1(name) << QStringList();
        }
    }

    void theViewerIsFoundUnderBothNamesInBothPlaces()
    {
        QFETCH(const QString, name);
        QFETCH(const QStringList, folders);
        s_installed = {name, folders};
        QCOMPARE(AssistantProxy::instance()->viewerProgram(), program(name));
    }

    void theViewerOfQtComesBeforeThatInPath()
    {
        QVERIFY(AssistantProxy::instance()->viewerProgram().isEmpty());
        QVERIFY(s_asked.size() >= 2);
        QCOMPARE(s_asked.at(0).folders, qtFolder());
        QCOMPARE(s_asked.at(1).folders, QStringList());
    }

    void aViewerThatIsNotInstalledIsTold()
    {
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));

        AssistantProxy::instance()->startAssistant();

        QVERIFY(box.met());
        QCOMPARE(box.title(), QStringLiteral("Help"));
        QCOMPARE(box.text(),
                 QStringLiteral("The help cannot be shown: the help viewer, Qt Assistant "
                                "(\"assistant\"), is not installed."));
        QVERIFY(!AssistantProxy::instance()->isRunning());
    }

    void aViewerThatIsSetIsNotLookedFor()
    {
        AssistantProxy::instance()->setViewerProgram(QStringLiteral("/my/viewer"));
        const QString found = AssistantProxy::instance()->viewerProgram();
        AssistantProxy::instance()->setViewerProgram(QString());
        QCOMPARE(found, QStringLiteral("/my/viewer"));
        QVERIFY(s_asked.isEmpty());
    }
};

QTEST_MAIN(TestViewerSearch)
#include "tst_viewersearch.moc"
