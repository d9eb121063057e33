// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/iplugin.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDebug>
#include <QDialog>
#include <QFile>
#include <QLocale>
#include <QMainWindow>
#include <QPalette>
#include <QStyle>
#include <QTimer>
#include <QTranslator>

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

/// What the core is told to do: a word of the variable TEST_CORE.
bool told(const char *word)
{
    return qgetenv("TEST_CORE").split(' ').contains(word);
}

void say(const QString &text)
{
    std::puts(qPrintable(text));
    std::fflush(stdout);
}

void say(const char *text)
{
    say(QString::fromLatin1(text));
}

} // namespace

namespace Core {

/// Stands for the main window of the core: says what happens to it.
class IdeMainWindow final : public QMainWindow
{
    Q_OBJECT
public:
    Q_INVOKABLE void openFile(const QString &fileName) { say(QStringLiteral("open ") + fileName); }

protected:
    void showEvent(QShowEvent *) override
    {
        say("shown");
        QTimer::singleShot(0, this, &IdeMainWindow::afterShow);
    }
    void closeEvent(QCloseEvent *event) override
    {
        if (told("refuse-once") && !m_refused) {
            m_refused = true;
            say("refused");
            event->ignore();
            return;
        }
        say("closed");
    }

private:
    void afterShow()
    {
        QTimer::singleShot(100, this, &IdeMainWindow::lookAtSplash);
        if (told("close"))
            QTimer::singleShot(0, this, &QWidget::close);
        if (told("dialog")) {
            auto *dialog = new QDialog(this);
            dialog->setAttribute(Qt::WA_DeleteOnClose);
            QTimer::singleShot(500, dialog, &QDialog::reject);
            connect(dialog, &QObject::destroyed, this, [] { say("dialog gone"); });
            dialog->open();
            say("dialog");
        }
    }
    static void lookAtSplash()
    {
        say(QStringLiteral("gl later ") + QString::fromLocal8Bit(qgetenv("QT_XCB_GL_INTEGRATION")));
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (const QWidget *widget : widgets) {
            if (widget->windowType() == Qt::SplashScreen)
                return say("splash still there");
        }
        say("splash gone");
    }

    bool m_refused = false;
};

} // namespace Core

/// A catalogue that a library brings, with a word for everything.
class LateCatalogue final : public QTranslator
{
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *, const char *, int) const override
    {
        return QStringLiteral("late");
    }
};

class TestCore final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Core.CorePlugin/1.0")
public:
    ~TestCore() override { say("core destroyed"); }

    /// Those in the memory of the process.
    static int catalogues()
    {
        QFile maps(QStringLiteral("/proc/self/maps"));
        if (!maps.open(QIODevice::ReadOnly))
            return -1;
        return maps.readAll().count(".qm\n");
    }

    bool initialize() override
    {
        say("core initialize");
        qDebug("a line of trace");
        qWarning("a warning");
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (const QWidget *widget : widgets) {
            if (widget->windowType() == Qt::SplashScreen && widget->isVisible())
                say(QStringLiteral("splash there: ") + widget->accessibleName());
        }
        say(QCoreApplication::translate("QPlatformTheme", "Cancel"));
        say(QCoreApplication::translate("TestPlugin", "A text of a plugin"));
        if (told("late-catalogue")) {
            QCoreApplication::installTranslator(new LateCatalogue(this));
            say(QCoreApplication::translate("TestPlugin", "A text of a plugin")
                + QLatin1String(", others ") + QCoreApplication::translate("TestPlugin", "None"));
        }
        say(QLatin1String("locale ") + QLocale::system().name() + QLatin1String(", LANGUAGE ")
            + QString::fromLocal8Bit(qgetenv("LANGUAGE")));
        say(QStringLiteral("catalogues %1").arg(catalogues()));
        say(QStringLiteral("arguments ")
            + QCoreApplication::arguments().mid(1).join(QLatin1Char('|')));
        say(QStringLiteral("gl ") + QString::fromLocal8Bit(qgetenv("QT_XCB_GL_INTEGRATION")));
        say(QStringLiteral("pixmaps %1")
                .arg(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps)));
        const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
        say(QStringLiteral("style %1, %2")
                .arg(QApplication::style()->objectName(),
                     dark ? QStringLiteral("dark") : QStringLiteral("light")));
        if (told("throw"))
            throw std::runtime_error("thrown on purpose:\na second line");
        return !told("fail");
    }
    void extensionsInitialized() override
    {
        if (told("no-window"))
            return;
        m_window = std::make_unique<Core::IdeMainWindow>();
        if (!told("hidden"))
            QTimer::singleShot(200, m_window.get(), &QWidget::show);
        say("ready");
    }
    void shutDown() override
    {
        say("core shutDown");
        m_window.reset();
    }

private:
    std::unique_ptr<Core::IdeMainWindow> m_window;
};

#include "testcore.moc"
