// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

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
#include <QVector>

#include <cstddef>
#include <cstring>
#include <memory>

Q_DECLARE_METATYPE(const QMetaObject *)

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

/// The place of a virtual operation in its class: the offset into the table of
/// virtual functions that a pointer to it begins with.
template<class Operation>
std::ptrdiff_t place(Operation operation)
{
    static_assert(sizeof operation >= sizeof(std::ptrdiff_t));
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset;
}

template<class... Operations>
bool standInOrder(Operations... operations)
{
    const QVector<std::ptrdiff_t> places{place(operations)...};
    for (int i = 1; i < places.size(); ++i) {
        if (places.at(i) - places.at(i - 1) != std::ptrdiff_t(sizeof(void *)))
            return false;
    }
    return true;
}

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

    void aShortTitleIsInPlaceWhenItIsTold()
    {
        IView view;
        view.setWindowTitle(QStringLiteral("window title"));
        QString then;
        connect(&view, &IView::shortTitleChanged, this, [&] { then = view.shortTitle(); });
        view.setShortTitle(QStringLiteral("new"));
        QCOMPARE(then, QStringLiteral("new"));
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

    void destroyingAViewIsLoggedOnce()
    {
        auto view = std::make_unique<IView>();
        const MessageRecorder log;
        view.reset();
        QCOMPARE(log.texts(), QStringList{QStringLiteral("IView:  destoryed")});
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

    void aPanelIsNamedByItsWindowTitle()
    {
        Panel panel;
        panel.setWindowTitle(QStringLiteral("Files"));
        QCOMPARE(panel.displayName(), QStringLiteral("Files"));
    }

    void aPanelMayDockInAllFourAreas()
    {
        const Panel panel;
        QCOMPARE(int(panel.allowedAreas()), 15);
    }

    void aPanelHasTheMiddlePriority()
    {
        const Panel panel;
        QCOMPARE(panel.layoutPriority(), 50);
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

    void extensionsAreRecognisedByTheirClass_data()
    {
        QTest::addColumn<const QMetaObject *>("interface");
        QTest::addColumn<const QMetaObject *>("base");
        const auto row = [](const char *name, const QMetaObject &interface,
                            const QMetaObject &base) {
            QTest::newRow(name) << &interface << &base;
        };
        row("Core::IView", IView::staticMetaObject, QWidget::staticMetaObject);
        row("Core::IEditor", IEditor::staticMetaObject, IView::staticMetaObject);
        row("Core::IPanel", IPanel::staticMetaObject, QWidget::staticMetaObject);
        row("Core::IEditorFactory", IEditorFactory::staticMetaObject, QObject::staticMetaObject);
        row("Core::IProject", IProject::staticMetaObject, QObject::staticMetaObject);
        row("Core::IProjecctFactory", IProjecctFactory::staticMetaObject,
            QObject::staticMetaObject);
        row("Core::IWizardFactory", IWizardFactory::staticMetaObject, QObject::staticMetaObject);
        row("Core::IFileWizardFactory", IFileWizardFactory::staticMetaObject,
            IWizardFactory::staticMetaObject);
        row("Core::IProjectWizardFactory", IProjectWizardFactory::staticMetaObject,
            IWizardFactory::staticMetaObject);
        row("Core::IOptionsPage", IOptionsPage::staticMetaObject, QObject::staticMetaObject);
    }

    void extensionsAreRecognisedByTheirClass()
    {
        QFETCH(const QMetaObject *, interface);
        QFETCH(const QMetaObject *, base);
        QCOMPARE(interface->className(), QTest::currentDataTag());
        QCOMPARE(interface->superClass(), base);
    }

    void anObjectOfThePoolAnswersToItsInterfaceOnly()
    {
        Factory editors;
        ProjectFactory projects;
        Page page;
        QVERIFY(qobject_cast<IEditorFactory *>(static_cast<QObject *>(&editors)));
        QVERIFY(!qobject_cast<IProjecctFactory *>(static_cast<QObject *>(&editors)));
        QVERIFY(qobject_cast<IProjecctFactory *>(static_cast<QObject *>(&projects)));
        QVERIFY(qobject_cast<IOptionsPage *>(static_cast<QObject *>(&page)));
        QVERIFY(!qobject_cast<IEditorFactory *>(static_cast<QObject *>(&page)));
    }

    // Plugins that are built already find the operations by their places.

    void theOperationsOfAViewKeepTheirPlaces()
    {
        QVERIFY(standInOrder(&IView::onActivated, &IView::onDeactivated));
    }

    void theOperationsOfAnEditorKeepTheirPlaces()
    {
        QVERIFY(standInOrder(&IView::onDeactivated, &IEditor::currentLine, &IEditor::isReadOnly,
                             &IEditor::setReadOnly, &IEditor::open, &IEditor::fileName,
                             &IEditor::isModified, &IEditor::save, &IEditor::saveAs,
                             &IEditor::goToLine));
    }

    void theOperationsOfAPanelKeepTheirPlaces()
    {
        QVERIFY(standInOrder(&IPanel::displayName, &IPanel::name, &IPanel::area,
                             &IPanel::allowedAreas, &IPanel::layoutPriority));
    }

    void theOperationsOfAnEditorFactoryKeepTheirPlaces()
    {
        QVERIFY(standInOrder(&IEditorFactory::id, &IEditorFactory::displayName,
                             &IEditorFactory::mimeTypes, &IEditorFactory::createEditor));
    }

    void theOperationsOfAProjectFactoryKeepTheirPlaces()
    {
        QVERIFY(standInOrder(&IProjecctFactory::projectTemplate, &IProjecctFactory::createProject));
    }

    void theOperationsOfAProjectKeepTheirPlaces()
    {
        QVERIFY(standInOrder(&IProject::displayName, &IProject::fileName, &IProject::projectDir,
                             &IProject::open, &IProject::close, &IProject::canOpen,
                             &IProject::files, &IProject::addFiles));
    }

    void theOperationsOfAWizardKeepTheirPlaces()
    {
        QVERIFY(standInOrder(&IWizardFactory::sortKey, &IWizardFactory::displayName,
                             &IWizardFactory::description, &IWizardFactory::icon,
                             &IWizardFactory::runWizard));
    }

    void theOperationsOfAPageKeepTheirPlaces()
    {
        QVERIFY(standInOrder(&IOptionsPage::widget, &IOptionsPage::apply, &IOptionsPage::finish));
    }
};

QTEST_MAIN(TestInterfaces)
#include "tst_interfaces.moc"
