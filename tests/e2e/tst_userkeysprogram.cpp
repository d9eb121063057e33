// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The program with keys that the user has chosen, pressed as a person does it.

#include "program.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

class TestUserKeysProgram final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        removeFromTestHome(QStringLiteral(".config"));
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

    void aCommandAnswersToItsNewKeysOnly()
    {
        const QString path = file("one\ntwo\n");
        // The first is one of the editor's own.
        store(QStringLiteral("Core.Action.Save"),
              QStringList{QStringLiteral("Ctrl+K"), QStringLiteral("Ctrl+B, S")});
        Program program;
        QCOMPARE(program.start({path}), QString());
        SOON_COMPARE(storedPaths(QStringLiteral("Core/RecentFiles")), QStringList{path});
        // Nothing to save: the editor must not take the key to delete a line.
        program.keys({QStringLiteral("ctrl+Home"), QStringLiteral("ctrl+k")});
        program.type(QStringLiteral("a"));
        program.key(QStringLiteral("ctrl+k"));
        SOON_COMPARE(contentOf(path), QByteArray("aone\ntwo\n"));
        program.type(QStringLiteral("b"));
        // The key it had is nobody's any more. The dialog comes when it was served.
        program.keys({QStringLiteral("ctrl+s"), QStringLiteral("ctrl+o")});
        QVERIFY(program.waitForActive(QStringLiteral("Open File")));
        QCOMPARE(contentOf(path), QByteArray("aone\ntwo\n"));
        program.key(QStringLiteral("Escape"));
        QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));
        program.type(QStringLiteral("c"));
        program.keys({QStringLiteral("ctrl+b"), QStringLiteral("s")});
        SOON_COMPARE(contentOf(path), QByteArray("abcone\ntwo\n"));
        program.key(QStringLiteral("alt+f"));
        program.picture(QStringLiteral("user-keys-menu"));
        program.key(QStringLiteral("Escape"));
        endWell(&program);
        QCOMPARE(stored(QStringLiteral("Core.Action.Save")).toStringList(),
                 (QStringList{QStringLiteral("Ctrl+K"), QStringLiteral("Ctrl+B, S")}));
    }

    void badKeysAreToldOfAndTheProgramWorks()
    {
        store(QStringLiteral("Core.Action.Open"), QStringLiteral("Ctrl+Nonsense"));
        store(QStringLiteral("No.Such.Command"), QStringLiteral("F9"));
        Program program;
        QCOMPARE(program.start(), QString());
        program.key(QStringLiteral("ctrl+o"));
        QVERIFY(program.waitForActive(QStringLiteral("Open File")));
        program.key(QStringLiteral("Escape"));
        QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));
        program.closeMainWindow();
        QVERIFY(program.waitForEnd());
        QCOMPARE(program.exitCode(), 0);
        const QString said = program.errorOutput();
        QVERIFY2(said.contains(QStringLiteral("keys of command \"Core.Action.Open\": ")),
                 qPrintable(said));
        QVERIFY2(said.contains(QStringLiteral("keys of command \"No.Such.Command\": ")),
                 qPrintable(said));
        QCOMPARE(stored(QStringLiteral("Core.Action.Open")).toString(),
                 QStringLiteral("Ctrl+Nonsense"));
        QCOMPARE(stored(QStringLiteral("No.Such.Command")).toString(), QStringLiteral("F9"));
    }

private:
    static void store(const QString &id, const QVariant &keys)
    {
        QSettings settings(QDir::homePath() + QStringLiteral("/.config/KelmoWare/IDE.ini"),
                           QSettings::IniFormat);
        settings.setValue(QStringLiteral("KeyBindings/") + id, keys);
    }
    static QVariant stored(const QString &id)
    {
        return storedValue(QStringLiteral("KeyBindings/") + id);
    }
    QString file(const QByteArray &bytes) const
    {
        QFile file(m_dir->filePath(QStringLiteral("a.txt")));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_GUILESS_MAIN(TestUserKeysProgram)
#include "tst_userkeysprogram.moc"
