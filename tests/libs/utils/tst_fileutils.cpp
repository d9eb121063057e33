// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/modaldialog.h"

#include <utils/fileutils.h>

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

using Utils::FileUtils;

namespace {
ModalDialog::Handler choose(const QString &file, QString *folder = nullptr)
{
    return [file, folder](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        if (!dialog) {
            QTest::qFail("no file dialog", __FILE__, __LINE__);
            return;
        }
        if (folder)
            *folder = dialog->directory().absolutePath();
        if (file.isEmpty()) {
            dialog->reject();
        } else {
            dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(file);
            QMetaObject::invokeMethod(dialog, "accept");
            if (dialog->isVisible()) {
                QTest::qFail("the dialog did not take the file", __FILE__, __LINE__);
                dialog->reject();
            }
        }
    };
}
} // namespace

class TestFileUtils : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString m_file;

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("used")));
        QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("given")));
        m_file = m_dir.filePath(QStringLiteral("used/top.v"));
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    void chosenFileIsReturned()
    {
        ModalDialog dialog(choose(m_file));
        QCOMPARE(FileUtils::getOpenFileName(nullptr, QStringLiteral("first"),
                                            QStringLiteral("Select Executable File")),
                 m_file);
        QCOMPARE(dialog.title(), QStringLiteral("Select Executable File"));
    }

    void parentIsTheDialogsParent()
    {
        QWidget parent;
        ModalDialog dialog(choose(QString()));
        static_cast<void>(FileUtils::getOpenFileName(&parent, QStringLiteral("p"), QString()));
        QCOMPARE(dialog.parentOfDialog(), &parent);
    }

    void cancelGivesEmptyAndRemembersNothing()
    {
        const QString given = m_dir.filePath(QStringLiteral("given"));
        {
            ModalDialog dialog(choose(QString()));
            QVERIFY(FileUtils::getOpenFileName(nullptr, QStringLiteral("cancel"), QString(),
                                               m_dir.filePath(QStringLiteral("used")))
                        .isEmpty());
        }
        QString folder;
        ModalDialog dialog(choose(QString(), &folder));
        static_cast<void>(
            FileUtils::getOpenFileName(nullptr, QStringLiteral("cancel"), QString(), given));
        QCOMPARE(folder, given);
    }

    void folderIsRememberedForItsPurposeOnly()
    {
        const QString given = m_dir.filePath(QStringLiteral("given"));
        {
            ModalDialog dialog(choose(m_file));
            static_cast<void>(FileUtils::getOpenFileName(nullptr, QStringLiteral("one"), QString(),
                                                         m_dir.filePath(QStringLiteral("used"))));
        }
        QString folder;
        {
            ModalDialog dialog(choose(QString(), &folder));
            static_cast<void>(
                FileUtils::getOpenFileName(nullptr, QStringLiteral("one"), QString(), given));
        }
        QCOMPARE(folder, m_dir.filePath(QStringLiteral("used")));
        ModalDialog dialog(choose(QString(), &folder));
        static_cast<void>(
            FileUtils::getOpenFileName(nullptr, QStringLiteral("two"), QString(), given));
        QCOMPARE(folder, given);
    }

    void folderThatIsGoneIsForgotten()
    {
        const QString given = m_dir.filePath(QStringLiteral("given"));
        const QString gone = m_dir.filePath(QStringLiteral("gone"));
        QVERIFY(QDir().mkpath(gone));
        QFile file(gone + QStringLiteral("/x.v"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        {
            ModalDialog dialog(choose(file.fileName()));
            static_cast<void>(
                FileUtils::getOpenFileName(nullptr, QStringLiteral("gone"), QString(), gone));
        }
        QVERIFY(QDir(gone).removeRecursively());
        QString folder;
        ModalDialog dialog(choose(QString(), &folder));
        static_cast<void>(
            FileUtils::getOpenFileName(nullptr, QStringLiteral("gone"), QString(), given));
        QCOMPARE(folder, given);
    }
};

QTEST_MAIN(TestFileUtils)
#include "tst_fileutils.moc"
