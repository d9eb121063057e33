// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/messagerecorder.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/mimedatabase/mimedatabase.h>

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using Core::EditorManager;
using Core::IEditor;
using Core::IEditorFactory;
using Core::MimeType;
using Core::private_impl::EditorManagerPrivate;

namespace {

/// The rights of an ordinary user, as long as it lives: nothing is forbidden to
/// the superuser.
class OrdinaryUser final
{
public:
    OrdinaryUser()
        : m_before(::geteuid())
    {
        // The real id as well: it is the one that access() asks for.
        if (m_before == 0 && ::setresuid(Id, Id, m_before) != 0)
            QTest::qFail("the rights could not be dropped", __FILE__, __LINE__);
    }
    ~OrdinaryUser()
    {
        if (::geteuid() != m_before && ::setresuid(m_before, m_before, m_before) != 0)
            QTest::qFail("the rights could not be taken back", __FILE__, __LINE__);
    }
    Q_DISABLE_COPY(OrdinaryUser)

private:
    static constexpr uid_t Id = 65534;

    const uid_t m_before;
};

void addType(const QString &name, const QString &suffix, const QStringList &parents)
{
    MimeType type;
    type.setType(name);
    type.setSubClassesOf(parents);
    if (!suffix.isEmpty())
        type.setGlobPatterns({Core::MimeGlobPattern(QStringLiteral("*.") + suffix)});
    if (!Core::IdeCore::mimeDatabase()->addMimeType(type))
        QTest::qFail("the type was not added", __FILE__, __LINE__);
}

MimeType type(const char *name)
{
    return Core::IdeCore::mimeDatabase()->findByType(QString::fromLatin1(name));
}

} // namespace

/// Files and names that are not what one opens every day, and types that do not
/// fit together.
class TestBadFiles final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void whatIsNotThereIsToldMissing_data();
    void whatIsNotThereIsToldMissing();
    void fileInAForbiddenFolderIsToldMissing();
    void forbiddenFileIsToldWithTheReason();
    void folderIsToldWithTheReason();
    void specialFilesAreHandedToTheEditorUnread_data();
    void specialFilesAreHandedToTheEditorUnread();
    void hugeFileIsHandedToTheEditor();
    void oddNames_data();
    void oddNames();
    void namesAreNoMarkupInMessages_data();
    void namesAreNoMarkupInMessages();
    void cycleOfTypesEndsWithAWarning();
    void typeUnderItselfEndsWithAWarning();
    void typeMetTwiceIsNoCycle();
    void deepHierarchyIsWalkedToTheEnd();

private:
    QString makeFile(const QString &name, const QByteArray &content = "text\n") const;
    /// Lets the editors made from now on try to read @p path, and give the
    /// system's reason where they cannot.
    void readWhileOpening(const QString &path);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<TestEditorFactory> m_factory;
    std::unique_ptr<InPool> m_inPool;
};

void TestBadFiles::init()
{
    // Not below the folder of the test run, where no other user may look.
    m_folder = std::make_unique<QTemporaryDir>(QStringLiteral(P_tmpdir "/tst_badfiles"));
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0755), 0);
    m_core = std::make_unique<CoreFixture>();
    m_factory = std::make_unique<TestEditorFactory>(texts({"text/plain"}));
    m_inPool = std::make_unique<InPool>(m_factory.get());
}

void TestBadFiles::cleanup()
{
    m_inPool.reset();
    m_core.reset();
    m_factory.reset();
    m_folder.reset();
}

QString TestBadFiles::makeFile(const QString &name, const QByteArray &content) const
{
    QFile file(m_folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("the file could not be made", __FILE__, __LINE__);
    return file.fileName();
}

void TestBadFiles::readWhileOpening(const QString &path)
{
    m_factory->prepare = [path](TestEditor *editor) {
        editor->whileOpening = [path, editor] {
            QFile file(path);
            editor->failOpen = !file.open(QIODevice::ReadOnly);
            editor->errorText = file.errorString();
        };
    };
}

void TestBadFiles::whatIsNotThereIsToldMissing_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("no file") << QStringLiteral("missing.txt");
    QTest::newRow("below a file") << QStringLiteral("file/a.txt");
    QTest::newRow("file with a slash") << QStringLiteral("file/");
    QTest::newRow("link to nothing") << QStringLiteral("dangling");
    QTest::newRow("link to itself") << QStringLiteral("loop");
    QTest::newRow("too long") << QString(5000, QLatin1Char('x'));
    QTest::newRow("line break") << QStringLiteral("two\nlines");
    QTest::newRow("not ASCII") << QStringLiteral("größe/设计");
    QTest::newRow("placeholders") << QStringLiteral("%1 %2 %n");
}

void TestBadFiles::whatIsNotThereIsToldMissing()
{
    QFETCH(QString, name);
    makeFile(QStringLiteral("file"));
    QVERIFY(QFile::link(m_folder->filePath(QStringLiteral("nothing")),
                        m_folder->filePath(QStringLiteral("dangling"))));
    QVERIFY(QFile::link(m_folder->filePath(QStringLiteral("loop")),
                        m_folder->filePath(QStringLiteral("loop"))));
    const QString path = m_folder->filePath(name);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QCOMPARE(EditorManager::openEditor(path, false), nullptr);

    QCOMPARE(box.text(), QString(QStringLiteral("Can not open ") + path
                                 + QStringLiteral(", file does not exist.")));
    QVERIFY(EditorManager::recentFiles().isEmpty());
}

void TestBadFiles::fileInAForbiddenFolderIsToldMissing()
{
    const QString path = makeFile(QStringLiteral("a.txt"));
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0), 0);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));
    const IEditor *editor = nullptr;
    {
        const OrdinaryUser user;
        editor = EditorManager::openEditor(path, false);
    }
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0700), 0);

    QVERIFY(!editor);
    QCOMPARE(box.text(), QStringLiteral("Can not open %1, file does not exist.").arg(path));
}

void TestBadFiles::forbiddenFileIsToldWithTheReason()
{
    // Without a suffix, so that the content is asked for the type.
    const QString path = makeFile(QStringLiteral("secret"));
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0), 0);
    readWhileOpening(path);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));
    const IEditor *editor = nullptr;
    {
        const OrdinaryUser user;
        editor = EditorManager::openEditor(path, false);
    }

    QVERIFY(!editor);
    QCOMPARE(box.text(), QStringLiteral("Can not open file \"%1\"\nPermission denied").arg(path));
    QVERIFY(EditorManager::recentFiles().isEmpty());
}

void TestBadFiles::folderIsToldWithTheReason()
{
    const QString path = m_folder->path();
    readWhileOpening(path);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QCOMPARE(EditorManager::openEditor(path, false), nullptr);

    QFile folder(path);
    QVERIFY(!folder.open(QIODevice::ReadOnly));
    QCOMPARE(box.text(),
             QStringLiteral("Can not open file \"%1\"\n%2").arg(path, folder.errorString()));
}

void TestBadFiles::specialFilesAreHandedToTheEditorUnread_data()
{
    QTest::addColumn<QString>("path");

    // Whoever reads the first would wait for ever.
    QTest::newRow("FIFO") << QString();
    QTest::newRow("endless device") << QStringLiteral("/dev/zero");
    QTest::newRow("empty device") << QStringLiteral("/dev/null");
}

void TestBadFiles::specialFilesAreHandedToTheEditorUnread()
{
    QFETCH(QString, path);
    if (path.isEmpty()) {
        path = m_folder->filePath(QStringLiteral("fifo"));
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    }

    QVERIFY(EditorManager::openEditor(path, false));

    QCOMPARE(m_factory->last->opened, QStringList{path});
}

void TestBadFiles::hugeFileIsHandedToTheEditor()
{
    const QString path = makeFile(QStringLiteral("huge.v"));
    // No disk is taken by the hole.
    QVERIFY(QFile::resize(path, qint64(2) * 1024 * 1024 * 1024));

    QVERIFY(EditorManager::openEditor(path, false));

    QCOMPARE(m_factory->last->opened, QStringList{path});
}

void TestBadFiles::oddNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("line break") << QStringLiteral("two\nlines.txt");
    QTest::newRow("not ASCII") << QStringLiteral("größe 设计.txt");
    QTest::newRow("placeholders") << QStringLiteral("%1 %2 %n.txt");
    QTest::newRow("mnemonic") << QStringLiteral("a&b.txt");
    QTest::newRow("quotes") << QStringLiteral("\"a\", <b>.txt");
    QTest::newRow("blank") << QStringLiteral(" .txt");
    QTest::newRow("backslash") << QStringLiteral("a\\b.txt");
    QTest::newRow("longest") << QString(251, QLatin1Char('x')) + QStringLiteral(".txt");
}

void TestBadFiles::oddNames()
{
    QFETCH(QString, name);
    const QString path = makeFile(name);

    IEditor *editor = EditorManager::openEditor(path, false);

    QVERIFY(editor);
    QCOMPARE(EditorManager::openEditor(path, false), editor);
    QCOMPARE(EditorManager::recentFiles(), QStringList{path});
    QCOMPARE(EditorManagerPrivate::get()->actSaveAs->toolTip(),
             QString(QStringLiteral("Save \"") + name + QStringLiteral("\" As")));
}

void TestBadFiles::namesAreNoMarkupInMessages_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("missing") << 0;
    QTest::newRow("open") << 1;
    QTest::newRow("save") << 2;
}

void TestBadFiles::namesAreNoMarkupInMessages()
{
    QFETCH(int, kind);
    const QString path = m_folder->filePath(QStringLiteral("<b>bold.txt"));
    Qt::TextFormat format = Qt::RichText;
    ModalDialog box([&format](QWidget *widget) {
        format = widget->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"))->textFormat();
        ModalDialog::press(QMessageBox::Ok)(widget);
    });

    if (kind == 0)
        EditorManager::openEditor(path, false);
    else if (kind == 1)
        Core::private_impl::openError(path, QStringLiteral("<i>reason"));
    else
        Core::private_impl::saveError(path, QStringLiteral("<i>reason"));

    QCOMPARE(format, Qt::PlainText);
    QVERIFY(box.text().contains(path));
}

void TestBadFiles::cycleOfTypesEndsWithAWarning()
{
    addType(QStringLiteral("a/top"), QString(), {});
    addType(QStringLiteral("a/a"), QStringLiteral("aaa"), texts({"a/top", "a/c", "text/plain"}));
    addType(QStringLiteral("a/b"), QString(), texts({"a/a"}));
    addType(QStringLiteral("a/c"), QString(), texts({"a/b"}));
    TestEditorFactory b(texts({"a/b"}));
    const InPool pooled(&b);
    const QString path = makeFile(QStringLiteral("x.aaa"));
    QCOMPARE(Core::private_impl::determineMimeType(path).type(), QStringLiteral("a/a"));
    MessageRecorder log;

    const QList<IEditorFactory *> found = EditorManager::factoriesForFile(path);

    QCOMPARE(found, (QList<IEditorFactory *>{&b, m_factory.get()}));
    const QStringList warnings = log.lines(QtWarningMsg);
    QCOMPARE(warnings.size(), 1);
    QVERIFY2(warnings.constFirst().endsWith(QLatin1String(
                 ": Inconsistent mime hierarchy detected, cycle of types: a/a > a/b > a/c > a/a.")),
             qPrintable(warnings.constFirst()));
}

void TestBadFiles::typeUnderItselfEndsWithAWarning()
{
    addType(QStringLiteral("a/self"), QString(), texts({"a/self"}));
    TestEditorFactory factory(texts({"a/self"}));
    MessageRecorder log;

    QCOMPARE(Core::private_impl::getFactoriesRecursively(type("a/self"), {&factory}),
             QList<IEditorFactory *>{&factory});

    const QStringList warnings = log.lines(QtWarningMsg);
    QCOMPARE(warnings.size(), 1);
    QVERIFY(warnings.constFirst().endsWith(QLatin1String("cycle of types: a/self > a/self.")));
}

void TestBadFiles::typeMetTwiceIsNoCycle()
{
    addType(QStringLiteral("a/top"), QString(), {});
    addType(QStringLiteral("a/left"), QString(), texts({"a/top"}));
    addType(QStringLiteral("a/right"), QString(), texts({"a/top"}));
    addType(QStringLiteral("a/bottom"), QString(), texts({"a/left", "a/right"}));
    TestEditorFactory top(texts({"a/top"}));
    TestEditorFactory right(texts({"a/right"}));
    MessageRecorder log;

    QCOMPARE(Core::private_impl::getFactoriesRecursively(type("a/bottom"), {&top, &right}),
             (QList<IEditorFactory *>{&top, &right, &top}));

    QVERIFY(log.lines(QtWarningMsg).isEmpty());
}

void TestBadFiles::deepHierarchyIsWalkedToTheEnd()
{
    constexpr int depth = 50000;
    const auto name = [](int level) { return QStringLiteral("deep/%1").arg(level); };
    addType(name(0), QString(), {});
    for (int level = 1; level < depth; ++level)
        addType(name(level), QString(), {name(level - 1)});
    TestEditorFactory factory({name(0)});

    QCOMPARE(Core::private_impl::getFactoriesRecursively(
                 Core::IdeCore::mimeDatabase()->findByType(name(depth - 1)), {&factory}),
             QList<IEditorFactory *>{&factory});
}

QTEST_MAIN(TestBadFiles)
#include "tst_badfiles.moc"
