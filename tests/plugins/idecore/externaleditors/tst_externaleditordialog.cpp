// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editortexts.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <idecore/externaleditors/externaleditordialog_p.h>
#include <idecore/externaleditors/externaleditormodel_p.h>

#include <QApplication>
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Core::ExternalEditorDialog;
using Core::ExternalEditorModel;

class TestExternalEditorDialog final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void init()
    {
        m_model = std::make_unique<ExternalEditorModel>(
            QList<Core::ExternalEditor>{editorNamed("taken", true), editorNamed("other")});
        m_dialog = std::make_unique<ExternalEditorDialog>(m_model.get());
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    }

    void cleanup()
    {
        m_dialog.reset();
        m_model.reset();
    }

    void theFormHasItsParts()
    {
        QCOMPARE(part<QLabel>("labelName")->text(), QStringLiteral("Display Name:"));
        QCOMPARE(part<QLabel>("labelPath")->text(), QStringLiteral("Program Path:"));
        QCOMPARE(part<QLabel>("labelArgs")->text(), QStringLiteral("Arguments:"));
        QCOMPARE(part<QLabel>("labelComments")->text(),
                 QStringLiteral("\"%f\" for file path.\n\"%l\" for line."));
        QCOMPARE(part<QLabel>("labelComments")->styleSheet(),
                 QStringLiteral("color: rgb(116, 116, 116);"));
        QCOMPARE(part<QPushButton>("btnBrowse")->text(), QStringLiteral("Browse..."));
        QCOMPARE(
            part<QDialogButtonBox>("buttonBox")->standardButtons(),
            QDialogButtonBox::StandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    }

    void theFormIsLaidOut()
    {
        const auto *column = part<QVBoxLayout>("verticalLayout");
        const auto *form = part<QFormLayout>("formLayout");
        const auto *row = part<QHBoxLayout>("horizontalLayout");
        QCOMPARE(m_dialog->layout(), column);
        QCOMPARE(column->itemAt(0)->layout(), form);
        QCOMPARE(column->itemAt(1)->widget(), part<QLabel>("labelComments"));
        QCOMPARE(column->itemAt(2)->widget(), part<QDialogButtonBox>("buttonBox"));
        QCOMPARE(form->itemAt(0, QFormLayout::LabelRole)->widget(), part<QLabel>("labelName"));
        QCOMPARE(form->itemAt(0, QFormLayout::FieldRole)->widget(), name());
        QCOMPARE(form->itemAt(1, QFormLayout::LabelRole)->widget(), part<QLabel>("labelPath"));
        QCOMPARE(form->itemAt(1, QFormLayout::FieldRole)->layout(), row);
        QCOMPARE(form->itemAt(2, QFormLayout::LabelRole)->widget(), part<QLabel>("labelArgs"));
        QCOMPARE(form->itemAt(2, QFormLayout::FieldRole)->widget(), arguments());
        QCOMPARE(row->itemAt(0)->widget(), path());
        QCOMPARE(row->itemAt(1)->widget(), part<QPushButton>("btnBrowse"));
    }

    void labelsBelongToTheirFields()
    {
        QCOMPARE(part<QLabel>("labelName")->buddy(), name());
        QCOMPARE(part<QLabel>("labelPath")->buddy(), path());
        QCOMPARE(part<QLabel>("labelArgs")->buddy(), arguments());
    }

    void theTabKeyFollowsTheEye()
    {
        name()->setText(QStringLiteral("a")); // OK takes the focus only enabled
        path()->setText(QStringLiteral("b"));
        name()->setFocus();
        const QList<QWidget *> order{path(), part<QPushButton>("btnBrowse"), arguments()};
        for (QWidget *next : order) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), next);
        }
    }

    void okNeedsNameAndPath()
    {
        QVERIFY(!okButton()->isEnabled());
        QTest::keyClicks(name(), QStringLiteral("a"));
        QVERIFY(!okButton()->isEnabled());
        QTest::keyClicks(path(), QStringLiteral("p"));
        QVERIFY(okButton()->isEnabled());
        name()->clear();
        QVERIFY(!okButton()->isEnabled());
        name()->setText(QStringLiteral(" "));
        QVERIFY(okButton()->isEnabled());
        path()->clear();
        QVERIFY(!okButton()->isEnabled());
    }

    void argumentsAreProposed_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("proposal");
        QTest::newRow("gvim") << "/usr/bin/gvim"
                              << "%f +%l";
        QTest::newRow("gedit") << "gedit"
                               << "%f +%l";
        QTest::newRow("emacs") << "/usr/bin/emacs"
                               << "%f +%l";
        QTest::newRow("notepad++") << "/opt/notepad++.exe"
                                   << "%f -n%l";
        QTest::newRow("sublime") << "/opt/sublime"
                                 << "%f:%l";
        QTest::newRow("code") << "/usr/bin/code"
                              << "-g %f:%l";
        QTest::newRow("capitals") << "/opt/Code.exe"
                                  << "-g %f:%l";
        QTest::newRow("capitals and dots") << "/opt/GVim.8.2.AppImage"
                                           << "%f +%l";
        QTest::newRow("other") << "/usr/bin/kate"
                               << "%f";
        QTest::newRow("longer name") << "/usr/bin/gvimdiff"
                                     << "%f";
        QTest::newRow("sublime_text") << "/opt/sublime_text"
                                      << "%f";
        QTest::newRow("version behind a dash") << "/opt/emacs-28"
                                               << "%f";
        QTest::newRow("known folder") << "/opt/code/run"
                                      << "%f";
        QTest::newRow("hidden file") << "/opt/.code"
                                     << "%f";
    }

    void argumentsAreProposed()
    {
        QFETCH(QString, program);
        QFETCH(QString, proposal);
        path()->setText(program);
        QCOMPARE(arguments()->placeholderText(), proposal);
        QCOMPARE(arguments()->text(), QString());
    }

    void anEmptyFieldOfArgumentsMeansTheProposal()
    {
        fill("a", "/usr/bin/gvim", "");
        press(QDialogButtonBox::Ok);
        QCOMPARE(result(), QStringLiteral("a|/usr/bin/gvim|%f +%l"));
        QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    }

    void typedArgumentsAreStored()
    {
        fill("a", "/usr/bin/gvim", "-R %f");
        press(QDialogButtonBox::Ok);
        QCOMPARE(result(), QStringLiteral("a|/usr/bin/gvim|-R %f"));
    }

    void blanksAreTypedArguments()
    {
        fill("a", "/usr/bin/gvim", " ");
        press(QDialogButtonBox::Ok);
        QCOMPARE(result(), QStringLiteral("a|/usr/bin/gvim| "));
    }

    void aNewPathClearsTheArguments()
    {
        fill("a", "/usr/bin/gvim", "-R %f");
        path()->setText(QStringLiteral("/usr/bin/code"));
        QCOMPARE(arguments()->text(), QString());
        QCOMPARE(arguments()->placeholderText(), QStringLiteral("-g %f:%l"));
    }

    void givenTextsAreShown()
    {
        m_dialog->setTexts(QStringLiteral("n"), QStringLiteral("/usr/bin/code"),
                           QStringLiteral("-x"));
        QCOMPARE(name()->text(), QStringLiteral("n"));
        QCOMPARE(path()->text(), QStringLiteral("/usr/bin/code"));
        QCOMPARE(arguments()->text(), QStringLiteral("-x"));
        QCOMPARE(arguments()->placeholderText(), QStringLiteral("-g %f:%l"));
        QVERIFY(okButton()->isEnabled());
    }

    void givenTextsAreKeptWhole_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("long") << QStringLiteral("%f ").repeated(20000);
        QTest::newRow("lines") << QStringLiteral("two\nlines\tand a tab");
    }

    void givenTextsAreKeptWhole()
    {
        QFETCH(QString, text);
        m_dialog->setTexts(text, text, text);
        press(QDialogButtonBox::Ok);
        QCOMPARE(m_dialog->name(), text);
        QCOMPARE(m_dialog->program(), text);
        QCOMPARE(m_dialog->arguments(), text);
    }

    void aTakenNameIsRefused()
    {
        fill("taken", "/bin/x", "");
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        press(QDialogButtonBox::Ok);
        QCOMPARE(box.title(), QStringLiteral("Warning"));
        QCOMPARE(box.text(), QStringLiteral("There already has an editor named \"taken\", please "
                                            "choose another name."));
        QCOMPARE(box.icon(), int(QMessageBox::Warning));
        QCOMPARE(box.parentOfDialog(), m_dialog.get());
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(result(), QStringLiteral("||"));
    }

    void theWarningHasOneButton()
    {
        fill("other", "/bin/x", "");
        QMessageBox::StandardButtons buttons;
        const ModalDialog box([&](QWidget *widget) {
            buttons = qobject_cast<QMessageBox *>(widget)->standardButtons();
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        press(QDialogButtonBox::Ok);
        QCOMPARE(buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    }

    void afterTheWarningAnotherNameIsTaken()
    {
        fill("taken", "/bin/x", "y");
        {
            const ModalDialog box(ModalDialog::press(QMessageBox::Ok));
            press(QDialogButtonBox::Ok);
        }
        name()->setText(QStringLiteral("Taken"));
        press(QDialogButtonBox::Ok);
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(result(), QStringLiteral("Taken|/bin/x|y"));
    }

    void markupInANameIsText()
    {
        m_model->addData(QStringLiteral("<b>%1</b>"), QStringLiteral("p"), QString());
        fill("<b>%1</b>", "/bin/x", "");
        Qt::TextFormat format = Qt::RichText;
        ModalDialog box([&](QWidget *widget) {
            format = qobject_cast<QMessageBox *>(widget)->textFormat();
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        press(QDialogButtonBox::Ok);
        QCOMPARE(format, Qt::PlainText);
        QVERIFY(box.text().contains(QStringLiteral("\"<b>%1</b>\"")));
    }

    void withoutTheCheckATakenNameIsAccepted()
    {
        m_dialog->setCheckName(false);
        fill("taken", "/bin/x", "y");
        press(QDialogButtonBox::Ok);
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(result(), QStringLiteral("taken|/bin/x|y"));
    }

    void cancelKeepsNothing()
    {
        fill("a", "/bin/x", "y");
        press(QDialogButtonBox::Cancel);
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
        QCOMPARE(result(), QStringLiteral("||"));
    }

    void enterAccepts()
    {
        fill("a", "/bin/x", "y");
        QTest::keyClick(arguments(), Qt::Key_Return);
        QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    }

    void theChosenProgramIsShown()
    {
        const QTemporaryDir folder;
        const QString program = folder.filePath(QStringLiteral("Emacs.x"));
        QVERIFY(QFile(program).open(QIODevice::WriteOnly));
        arguments()->setText(QStringLiteral("old"));
        ModalDialog box([&](QWidget *widget) {
            widget->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(program);
            QTest::keyClick(widget, Qt::Key_Return);
        });
        QTest::mouseClick(part<QPushButton>("btnBrowse"), Qt::LeftButton);
        QCOMPARE(box.title(), QStringLiteral("Select Executable File"));
        QCOMPARE(box.parentOfDialog(), m_dialog.get());
        QCOMPARE(path()->text(), program);
        QCOMPARE(arguments()->text(), QString());
        QCOMPARE(arguments()->placeholderText(), QStringLiteral("%f +%l"));
    }

    void choosingNothingChangesNothing()
    {
        fill("a", "/bin/x", "y");
        const ModalDialog box(ModalDialog::cancel());
        m_dialog->browse();
        QCOMPARE(path()->text(), QStringLiteral("/bin/x"));
        QCOMPARE(arguments()->text(), QStringLiteral("y"));
    }

private:
    template<class Part>
    Part *part(const char *objectName) const
    {
        Part *found = m_dialog->findChild<Part *>(QString::fromLatin1(objectName));
        if (!found)
            qFatal("the dialog has no %s", objectName);
        return found;
    }

    QLineEdit *name() const { return part<QLineEdit>("editName"); }
    QLineEdit *path() const { return part<QLineEdit>("editPath"); }
    QLineEdit *arguments() const { return part<QLineEdit>("editArgs"); }
    QPushButton *okButton() const
    {
        return part<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Ok);
    }

    void fill(const char *nameText, const char *pathText, const char *argumentsText) const
    {
        name()->setText(QString::fromUtf8(nameText));
        path()->setText(QString::fromUtf8(pathText));
        arguments()->setText(QString::fromUtf8(argumentsText));
    }

    void press(QDialogButtonBox::StandardButton button) const
    {
        QTest::mouseClick(part<QDialogButtonBox>("buttonBox")->button(button), Qt::LeftButton);
    }

    QString result() const
    {
        return asText({m_dialog->name(), m_dialog->program(), m_dialog->arguments(), false});
    }

    std::unique_ptr<ExternalEditorModel> m_model;
    std::unique_ptr<ExternalEditorDialog> m_dialog;
};

QTEST_MAIN(TestExternalEditorDialog)
#include "tst_externaleditordialog.moc"
