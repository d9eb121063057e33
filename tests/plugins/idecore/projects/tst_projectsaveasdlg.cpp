// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectsaveasdlg.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QTranslator>
#include <QValidator>

#include <memory>

using Core::ProjectSaveAsDlg;

namespace {

/// Puts a "~" behind every text of the dialog.
class Tilde final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return qstrcmp(context, "Core::ProjectSaveAsDlg") == 0
                   ? QString::fromUtf8(text) + QLatin1Char('~')
                   : QString();
    }
};

} // namespace

class TestProjectSaveAsDlg final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_dir->path()).mkpath(QStringLiteral("old/src")));
        m_core = std::make_unique<CoreFixture>();
        m_dialog = make(QStringLiteral("copy"));
    }

    void cleanup()
    {
        m_dialog.reset();
        m_core.reset();
    }

    void theFormHasItsParts()
    {
        QCOMPARE(m_dialog->objectName(), QStringLiteral("Core__ProjectSaveAsDlg"));
        QCOMPARE(part<QLabel>("labelSavTo")->text(), QStringLiteral("Save to: "));
        QCOMPARE(part<QLabel>("labelPrjName")->text(), QStringLiteral("Project Name: "));
        QCOMPARE(part<QPushButton>("btnBrowse")->text(), QStringLiteral("Browse..."));
        QCOMPARE(part<QLabel>("labelErrMsg")->text(), QString());
        QCOMPARE(part<QLabel>("labelErrMsg")->sizePolicy().horizontalPolicy(),
                 QSizePolicy::Expanding);
        QCOMPARE(
            part<QDialogButtonBox>("buttonBox")->standardButtons(),
            QDialogButtonBox::StandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
        QCOMPARE(directory()->minimumWidth(), 200);
        QCOMPARE(name()->minimumWidth(), 200);
    }

    void theFormIsLaidOut()
    {
        QCOMPARE(m_dialog->layout(), part<QVBoxLayout>("verticalLayout"));
        const auto *grid = part<QGridLayout>("gridLayout");
        QCOMPARE(part<QWidget>("widget")->layout(), grid);
        QCOMPARE(grid->contentsMargins(), QMargins());
        QCOMPARE(grid->itemAtPosition(0, 0)->widget(), part<QLabel>("labelSavTo"));
        QCOMPARE(grid->itemAtPosition(0, 1)->widget(), directory());
        QCOMPARE(grid->itemAtPosition(0, 2)->widget(), part<QPushButton>("btnBrowse"));
        QCOMPARE(grid->itemAtPosition(1, 0)->widget(), part<QLabel>("labelPrjName"));
        QCOMPARE(grid->itemAtPosition(1, 1)->widget(), name());
        QCOMPARE(grid->itemAtPosition(1, 2)->widget(), name());
        const auto *row = part<QHBoxLayout>("horizontalLayout");
        QCOMPARE(part<QWidget>("widget_2")->layout(), row);
        QCOMPARE(row->contentsMargins(), QMargins());
        QCOMPARE(row->itemAt(0)->widget(), part<QLabel>("labelErrMsg"));
        QCOMPARE(row->itemAt(1)->widget(), part<QDialogButtonBox>("buttonBox"));
        QCOMPARE(m_dialog->layout()->itemAt(0)->widget(), part<QWidget>("widget"));
        QCOMPARE(m_dialog->layout()->itemAt(1)->widget(), part<QWidget>("widget_2"));
    }

    void theSizeAndTheTitleAreFixed()
    {
        QCOMPARE(m_dialog->minimumHeight(), 132);
        QCOMPARE(m_dialog->maximumHeight(), 132);
        QCOMPARE(m_dialog->minimumWidth(), 550);
        QCOMPARE(m_dialog->maximumWidth(), QWIDGETSIZE_MAX);
        QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Save current project as..."));
    }

    void everythingFitsIntoTheNormalSize()
    {
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
        QCOMPARE(m_dialog->size(), QSize(550, 132));
        for (const char *shown : {"labelSavTo", "editDirectory", "btnBrowse", "labelPrjName",
                                  "editPrjName", "buttonBox"}) {
            const auto *widget = part<QWidget>(shown);
            QVERIFY2(widget->height() >= widget->minimumSizeHint().height(), shown);
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width(), shown);
            const QRect place(widget->mapTo(m_dialog.get(), QPoint()), widget->size());
            QVERIFY2(m_dialog->rect().contains(place), shown);
        }
    }

    void aLongMessageFitsBesideTheButtons()
    {
        const QString path = m_dir->filePath(QStringLiteral("some/more/folders/on/the/way"));
        QVERIFY(QDir().mkpath(path + QStringLiteral("/copy")));
        directory()->setText(path);
        m_dialog->show();
        m_dialog->accept();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
        const auto *label = part<QLabel>("labelErrMsg");
        QTRY_VERIFY(label->heightForWidth(label->width()) <= label->height());
        const auto *ok = okButton();
        QVERIFY(ok->width() >= ok->minimumSizeHint().width());
    }

    void aVeryLongMessageWidensTheDialog_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("many folders") << QStringLiteral("more/").repeated(50);
        QTest::newRow("a long name")
            << QString(QStringLiteral("n").repeated(100) + QLatin1Char('/'));
    }

    void aVeryLongMessageWidensTheDialog()
    {
        QFETCH(QString, folder);
        const QString path = QLatin1String("/none/") + folder + QLatin1String("end");
        directory()->setText(path);
        QVERIFY(staysOpenWith(QStringLiteral("Directory %1 is not exist.").arg(path)));
        const auto *label = part<QLabel>("labelErrMsg");
        const auto fits = [&] {
            const QRect text = label->fontMetrics().boundingRect(QRect(0, 0, label->width(), 9999),
                                                                 Qt::TextWordWrap, label->text());
            return text.height() <= label->height() && text.width() <= label->width();
        };
        QTRY_VERIFY(fits());
        QCOMPARE(m_dialog->height(), 132);
    }

    void aMessageThatNoScreenHoldsIsInTheToolTip()
    {
        const QString path = QLatin1String("/<b>/") + QStringLiteral("more/").repeated(700);
        directory()->setText(path);
        QVERIFY(staysOpenWith(QStringLiteral("Directory %1 is not exist.").arg(path)));
        QTextDocument tip;
        tip.setHtml(part<QLabel>("labelErrMsg")->toolTip());
        QCOMPARE(tip.toPlainText(), message());
        QVERIFY(m_dialog->width() <= m_dialog->screen()->availableGeometry().width());
    }

    void errorsAreRedAndPlain()
    {
        QCOMPARE(part<QLabel>("labelErrMsg")->styleSheet(),
                 QStringLiteral("QLabel { color : red; }"));
        QCOMPARE(part<QLabel>("labelErrMsg")->textFormat(), Qt::PlainText);
    }

    void theTextsAreTranslated()
    {
        Tilde tilde;
        QCoreApplication::installTranslator(&tilde);
        m_dialog = make(QStringLiteral("x"));
        QCoreApplication::removeTranslator(&tilde);
        QCOMPARE(part<QLabel>("labelSavTo")->text(), QStringLiteral("Save to: ~"));
        QCOMPARE(part<QLabel>("labelPrjName")->text(), QStringLiteral("Project Name: ~"));
        QCOMPARE(part<QPushButton>("btnBrowse")->text(), QStringLiteral("Browse...~"));
        QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Save current project as...~"));
    }

    void theMessagesAreNotTranslated()
    {
        Tilde tilde;
        QCoreApplication::installTranslator(&tilde);
        name()->clear();
        m_dialog->accept();
        QCoreApplication::removeTranslator(&tilde);
        QCOMPARE(message(), QStringLiteral("Please enter a name for new project."));
    }

    void theParentOfTheDirectoryIsProposed()
    {
        QCOMPARE(m_dialog->newPrjPath(), m_dir->path());
        QVERIFY(directory()->isReadOnly());
    }

    void otherDirectories_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("proposed");
        const QString home = QDir::homePath();
        QTest::newRow("missing") << QStringLiteral("/no/such/folder") << home;
        QTest::newRow("empty") << QString() << home;
        QTest::newRow("a file") << QStringLiteral("/proc/self/status") << home;
        QTest::newRow("root") << QStringLiteral("/") << QStringLiteral("/");
        QTest::newRow("slash behind") << QStringLiteral("/usr/lib/") << QStringLiteral("/usr");
        QTest::newRow("below the root") << QStringLiteral("/usr") << QStringLiteral("/");
        QTest::newRow("relative") << QStringLiteral(".")
                                  << QFileInfo(QDir::currentPath()).absolutePath();
    }

    void otherDirectories()
    {
        QFETCH(QString, path);
        QFETCH(QString, proposed);
        const ProjectSaveAsDlg dialog(path, QStringLiteral("x"), nullptr);
        QCOMPARE(dialog.newPrjPath(), proposed);
    }

    void theNameIsProposedAndCanBeTypedOverAtOnce()
    {
        QCOMPARE(m_dialog->newPrjName(), QStringLiteral("copy"));
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        QVERIFY(name()->hasFocus());
    }

    void someCharactersAreRefused_data()
    {
        QTest::addColumn<QString>("character");
        for (const char character : QByteArray("~.<>/\\|:\"*? \t"))
            if (character)
                QTest::addRow("code %d", character) << QString(QLatin1Char(character));
        QTest::newRow("no-break space") << QString(QChar(0xA0));
        QTest::newRow("ideographic space") << QString(QChar(0x3000));
    }

    void someCharactersAreRefused()
    {
        QFETCH(QString, character);
        m_dialog->show();
        name()->setText(QStringLiteral("ab"));
        name()->insert(character);
        QCOMPARE(m_dialog->newPrjName(), QStringLiteral("ab"));
        QString text = character;
        int position = 0;
        QCOMPARE(name()->validator()->validate(text, position), QValidator::Invalid);
    }

    void typedDotsAndBlanksAreRefused()
    {
        m_dialog->show();
        name()->clear();
        QTest::keyClicks(name(), QStringLiteral("a.b c"));
        QCOMPARE(m_dialog->newPrjName(), QStringLiteral("abc"));
    }

    void otherCharactersAreTaken()
    {
        m_dialog->show();
        name()->clear();
        QTest::keyClicks(name(), QStringLiteral("aZ09_-+()[]{}#%&'!$@;,="));
        name()->insert(QStringLiteral("ß设"));
        QCOMPARE(m_dialog->newPrjName(), QStringLiteral("aZ09_-+()[]{}#%&'!$@;,=ß设"));
    }

    void theNameIsAskedForBeforeThePath()
    {
        name()->clear();
        directory()->clear();
        QVERIFY(staysOpenWith(QStringLiteral("Please enter a name for new project.")));
    }

    void thePathIsAskedFor()
    {
        directory()->clear();
        QVERIFY(staysOpenWith(QStringLiteral("Please select a path.")));
    }

    void aMissingDirectoryIsTold()
    {
        const QString path = m_dir->filePath(QStringLiteral("none"));
        directory()->setText(path);
        QVERIFY(staysOpenWith(QStringLiteral("Directory %1 is not exist.").arg(path)));
        QVERIFY(!QFileInfo::exists(path));
    }

    void aFileIsNoDirectory()
    {
        directory()->setText(QStringLiteral("/proc/self/status"));
        QVERIFY(staysOpenWith(QStringLiteral("Directory /proc/self/status is not exist.")));
    }

    void anExistingTargetIsTold_data()
    {
        QTest::addColumn<bool>("file");
        QTest::newRow("directory") << false;
        QTest::newRow("file") << true;
    }

    void anExistingTargetIsTold()
    {
        QFETCH(bool, file);
        const QString target = m_dir->filePath(QStringLiteral("copy"));
        QFile content(target);
        QVERIFY(file ? content.open(QIODevice::WriteOnly) : QDir().mkdir(target));
        const QStringList before = entries();
        QVERIFY(staysOpenWith(QStringLiteral("Directory %1 already exist.").arg(target)));
        QCOMPARE(entries(), before);
    }

    void aDirectoryThatCannotBeMadeIsTold_data()
    {
        QTest::addColumn<QString>("parent");
        QTest::addColumn<QString>("copy");
        QTest::newRow("not allowed") << QStringLiteral("/proc") << QStringLiteral("copy");
        QTest::newRow("name too long") << QString() << QString(256, QLatin1Char('n'));
    }

    void aDirectoryThatCannotBeMadeIsTold()
    {
        QFETCH(QString, parent);
        QFETCH(QString, copy);
        if (!parent.isEmpty())
            directory()->setText(parent);
        name()->setText(copy);
        QVERIFY(staysOpenWith(QStringLiteral("Directory creation failed.")));
    }

    void percentSignsAreTextInMessages()
    {
        directory()->setText(QStringLiteral("/no/%1%2"));
        QVERIFY(staysOpenWith(QStringLiteral("Directory /no/%1%2 is not exist.")));
    }

    void acceptingMakesTheDirectory()
    {
        m_dialog->show();
        QTest::mouseClick(okButton(), Qt::LeftButton);
        QVERIFY(m_dialog->isHidden());
        QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
        QVERIFY(QFileInfo(m_dir->filePath(QStringLiteral("copy"))).isDir());
        QCOMPARE(m_dialog->newPrjName(), QStringLiteral("copy"));
        QCOMPARE(m_dialog->newPrjPath(), m_dir->path());
        QCOMPARE(message(), QString());
    }

    void enterAccepts()
    {
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        QTest::keyClick(name(), Qt::Key_Return);
        QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
        QVERIFY(QFileInfo(m_dir->filePath(QStringLiteral("copy"))).isDir());
    }

    void aDirectoryOfAnyNameCanBeMade()
    {
        const QString copy = QStringLiteral("-größe设'&%1");
        name()->setText(copy);
        m_dialog->accept();
        QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
        QVERIFY(QFileInfo(m_dir->filePath(copy)).isDir());
    }

    void afterAMistakeAcceptingWorks()
    {
        name()->clear();
        m_dialog->show();
        m_dialog->accept();
        QVERIFY(m_dialog->isVisible());
        QTest::keyClicks(name(), QStringLiteral("second"));
        m_dialog->accept();
        QVERIFY(m_dialog->isHidden());
        QVERIFY(QFileInfo(m_dir->filePath(QStringLiteral("second"))).isDir());
    }

    void cancelMakesNothing()
    {
        const QStringList before = entries();
        m_dialog->show();
        QTest::mouseClick(part<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Cancel),
                          Qt::LeftButton);
        QVERIFY(m_dialog->isHidden());
        QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
        QCOMPARE(entries(), before);
    }

    void browsingStartsAtTheDirectoryShown()
    {
        bool onlyFolders = false;
        QString start;
        ModalDialog box([&](QWidget *widget) {
            auto *chooser = qobject_cast<QFileDialog *>(widget);
            QVERIFY(chooser);
            onlyFolders = chooser->testOption(QFileDialog::ShowDirsOnly);
            start = chooser->directory().absolutePath();
            chooser->reject();
        });
        m_dialog->show();
        QTest::mouseClick(part<QPushButton>("btnBrowse"), Qt::LeftButton);
        QCOMPARE(box.title(), QStringLiteral("Select Directory..."));
        QCOMPARE(box.parentOfDialog(), Core::ViewManager::mainWindow());
        QVERIFY(onlyFolders);
        QCOMPARE(start, m_dir->path());
        QCOMPARE(m_dialog->newPrjPath(), m_dir->path()); // nothing was chosen
    }

    void browsingStartsAtHomeWithoutADirectory()
    {
        directory()->clear();
        QString start;
        ModalDialog box([&](QWidget *widget) {
            auto *chooser = qobject_cast<QFileDialog *>(widget);
            QVERIFY(chooser);
            start = chooser->directory().absolutePath();
            chooser->reject();
        });
        m_dialog->onBrowse();
        QCOMPARE(start, QDir::homePath());
        QCOMPARE(m_dialog->newPrjPath(), QString());
    }

    void theChosenDirectoryIsShown()
    {
        const QString chosen = m_dir->filePath(QStringLiteral("old"));
        ModalDialog box([&](QWidget *widget) {
            auto *chooser = qobject_cast<QFileDialog *>(widget);
            QVERIFY(chooser);
            chooser->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(chosen);
            QTest::keyClick(chooser, Qt::Key_Return);
        });
        m_dialog->onBrowse();
        QCOMPARE(m_dialog->newPrjPath(), chosen);
    }

    void overTheModalDialogTheChooserBelongsToIt()
    {
        QWidget *parent = nullptr;
        m_dialog->setModal(true);
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            auto *chooser = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            if (!chooser)
                return;
            parent = chooser->parentWidget();
            chooser->reject();
        });
        timer.start(10);
        m_dialog->onBrowse();
        QCOMPARE(parent, m_dialog.get());
    }

private:
    std::unique_ptr<ProjectSaveAsDlg> make(const QString &name) const
    {
        return std::make_unique<ProjectSaveAsDlg>(m_dir->filePath(QStringLiteral("old")), name,
                                                  nullptr);
    }

    template<class Part>
    Part *part(const char *objectName) const
    {
        Part *found = m_dialog->findChild<Part *>(QString::fromLatin1(objectName));
        if (!found)
            qFatal("the dialog has no %s", objectName);
        return found;
    }

    QLineEdit *directory() const { return part<QLineEdit>("editDirectory"); }
    QLineEdit *name() const { return part<QLineEdit>("editPrjName"); }
    QString message() const { return part<QLabel>("labelErrMsg")->text(); }
    QPushButton *okButton() const
    {
        return part<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Ok);
    }

    QStringList entries() const
    {
        return QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    /// Presses OK, which has to leave the dialog open with that message.
    bool staysOpenWith(const QString &expected) const
    {
        m_dialog->show();
        QTest::mouseClick(okButton(), Qt::LeftButton);
        if (message() != expected)
            qWarning("the message is: %s", qPrintable(message()));
        return m_dialog->isVisible() && message() == expected;
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<ProjectSaveAsDlg> m_dialog;
};

QTEST_MAIN(TestProjectSaveAsDlg)
#include "tst_projectsaveasdlg.moc"
