// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/ieditor.h>
#include <idecore/interfaces/ieditorfactory.h>
#include <idecore/interfaces/ifilewizardfactory.h>
#include <idecore/interfaces/ioptionspage.h>
#include <idecore/interfaces/ipanel.h>
#include <idecore/interfaces/iprojecctfactory.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/interfaces/iprojectwizardfactory.h>

#include <QIcon>
#include <QSignalSpy>
#include <QTest>

using namespace Core;

namespace {

class Editor final : public IEditor
{
public:
    using IEditor::IEditor;

    int currentLine() const override { return 1; }
    bool open(const QString &, QString *) override { return true; }
    QString fileName() const override { return {}; }
    bool isModified() const override { return false; }
    bool save(QString *) override { return true; }
    bool saveAs(const QString &, QString *) override { return true; }
};

class Panel final : public IPanel
{
public:
    QString name() const override { return QStringLiteral("panel"); }
    Qt::DockWidgetArea area() const override { return Qt::LeftDockWidgetArea; }
};

template<class Base>
class Wizard final : public Base
{
public:
    QString sortKey() const override { return {}; }
    QString displayName() const override { return {}; }
    QString description() const override { return {}; }
    void runWizard(QWidget *, const QString &) override {}
};

class Page final : public IOptionsPage
{
public:
    Page()
    {
        setId(QStringLiteral("id"));
        setCategoryId(QStringLiteral("category id"));
        setDisplayName(QStringLiteral("tab title"));
        setDisplayCategory(QStringLiteral("category title"));
        setCategoryIcon(QStringLiteral(":/icon.png"));
    }
    QWidget *widget() override { return nullptr; }
    void apply() override {}
    void finish() override {}
};

class Factory final : public IEditorFactory
{
public:
    QString id() const override { return {}; }
    QString displayName() const override { return {}; }
    QStringList mimeTypes() const override { return {}; }
    IEditor *createEditor() override { return new Editor; }
};

class Project final : public IProject
{
public:
    QString displayName() const override { return {}; }
    QString fileName() const override { return {}; }
    QString projectDir() const override { return {}; }
    bool open(const QString &) override { return true; }
    bool close() override { return true; }
    bool canOpen(const QString &) override { return true; }
    QStringList files() const override { return {}; }
    bool addFiles(const QStringList &) override { return true; }
};

class ProjectFactory final : public IProjecctFactory
{
public:
    QString projectTemplate() const override { return QStringLiteral("FPGA"); }
    IProject *createProject() override { return new Project; }
};

} // namespace

class TestInterfaces final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void shortTitleOfAViewFollowsTheWindowTitleUntilItIsSet()
    {
        IView view;
        QCOMPARE(view.shortTitle(), QString());
        view.setWindowTitle(QStringLiteral("first"));
        QCOMPARE(view.shortTitle(), QStringLiteral("first"));
        view.setWindowTitle(QStringLiteral("second"));
        QCOMPARE(view.shortTitle(), QStringLiteral("second"));
        view.setShortTitle(QStringLiteral("short"));
        QCOMPARE(view.shortTitle(), QStringLiteral("short"));
        view.setShortTitle(QString());
        QCOMPARE(view.shortTitle(), QStringLiteral("second"));
    }

    void aNewShortTitleIsTold()
    {
        IView view;
        QSignalSpy spy(&view, &IView::shortTitleChanged);
        view.setShortTitle(QStringLiteral("new"));
        QCOMPARE(spy, (QList<QVariantList>{{QStringLiteral("new")}}));
    }

    void theSameShortTitleIsNotToldAgain()
    {
        IView view;
        view.setShortTitle(QStringLiteral("same"));
        QSignalSpy spy(&view, &IView::shortTitleChanged);
        view.setShortTitle(QStringLiteral("same"));
        QCOMPARE(spy.count(), 0);
    }

    void anEmptyShortTitleOfANewViewIsNotNews()
    {
        IView view;
        QSignalSpy spy(&view, &IView::shortTitleChanged);
        view.setShortTitle(QString());
        QCOMPARE(spy.count(), 0);
    }

    void aViewMayBeClosedWithTheOthersAtFirst()
    {
        const IView view;
        QVERIFY(!view.keepOpen);
    }

    void destroyingAViewIsLoggedWithItsTitle()
    {
        auto view = std::make_unique<IView>();
        view->setWindowTitle(QStringLiteral("a title"));
        QTest::ignoreMessage(QtDebugMsg, "IView: a title destoryed");
        view.reset();
    }

    void anEditorIsWritableAtFirstAndStoresTheFlag()
    {
        Editor editor;
        QVERIFY(!editor.isReadOnly());
        editor.setReadOnly(true);
        QVERIFY(editor.isReadOnly());
        editor.setReadOnly(false);
        QVERIFY(!editor.isReadOnly());
    }

    void goToLineDoesNothingByDefault()
    {
        Editor editor;
        editor.setWindowTitle(QStringLiteral("title"));
        editor.goToLine(7, 3);
        QCOMPARE(editor.currentLine(), 1);
        QCOMPARE(editor.windowTitle(), QStringLiteral("title"));
    }

    void panelDefaults()
    {
        Panel panel;
        panel.setWindowTitle(QStringLiteral("Files"));
        QCOMPARE(panel.displayName(), QStringLiteral("Files"));
        QCOMPARE(panel.layoutPriority(), 50);
        QCOMPARE(int(panel.allowedAreas()), 15);
    }

    void aWizardHasNoIconByDefault()
    {
        const Wizard<IFileWizardFactory> wizard;
        QVERIFY(wizard.icon().isNull());
    }

    void fileAndProjectWizardsAreToldApartByCast()
    {
        Wizard<IFileWizardFactory> fileWizard;
        Wizard<IProjectWizardFactory> projectWizard;
        QObject *file = &fileWizard;
        QObject *project = &projectWizard;
        QVERIFY(qobject_cast<IFileWizardFactory *>(file));
        QVERIFY(!qobject_cast<IProjectWizardFactory *>(file));
        QVERIFY(qobject_cast<IProjectWizardFactory *>(project));
        QVERIFY(!qobject_cast<IFileWizardFactory *>(project));
        QVERIFY(qobject_cast<IWizardFactory *>(file));
        QVERIFY(qobject_cast<IWizardFactory *>(project));
    }

    void theTextsOfAPageAreReadBack()
    {
        const Page page;
        QCOMPARE(page.id(), QStringLiteral("id"));
        QCOMPARE(page.categoryId(), QStringLiteral("category id"));
        QCOMPARE(page.displayName(), QStringLiteral("tab title"));
        QCOMPARE(page.displayCategory(), QStringLiteral("category title"));
        QCOMPARE(page.categoryIcon(), QStringLiteral(":/icon.png"));
    }

    void extensionsAreFoundByTheirInterface()
    {
        Factory editors;
        ProjectFactory projects;
        const std::unique_ptr<IEditor> editor(editors.createEditor());
        const std::unique_ptr<IProject> project(projects.createProject());
        QVERIFY(qobject_cast<IEditorFactory *>(static_cast<QObject *>(&editors)));
        QVERIFY(!qobject_cast<IProjecctFactory *>(static_cast<QObject *>(&editors)));
        QVERIFY(qobject_cast<IProjecctFactory *>(static_cast<QObject *>(&projects)));
        QVERIFY(qobject_cast<IView *>(static_cast<QWidget *>(editor.get())));
        QVERIFY(qobject_cast<IProject *>(static_cast<QObject *>(project.get())));
    }
};

QTEST_MAIN(TestInterfaces)
#include "tst_interfaces.moc"
