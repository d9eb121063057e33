// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/iplugin.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QMessageBox>

#include <cstdio>

/// Says on the standard output what each message box shows, in one line: its title, its
/// text and its buttons, with "|" between them.
class ListenerPlugin final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kelmoware.plugins.IPlugin/1.0" FILE "listenerplugin.json")
    Q_INTERFACES(ExtSys::IPlugin)
public:
    bool initialize() override
    {
        QCoreApplication::instance()->installEventFilter(this);
        return true;
    }

    void extensionsInitialized() override {}
    void shutDown() override {}

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *box = qobject_cast<QMessageBox *>(watched);
        // What the window system sends says no more than that it can be seen again.
        if (box && event->type() == QEvent::Show && !event->spontaneous())
            say(*box);
        return false;
    }

private:
    static void say(const QMessageBox &box)
    {
        QStringList parts{box.windowTitle(), box.text()};
        const QList<QAbstractButton *> buttons = box.buttons();
        for (const QAbstractButton *button : buttons)
            parts.append(button->text());
        const QString line = parts.join(QLatin1Char('|'))
                                 .replace(QLatin1Char('\n'), QLatin1String("\\n"))
                                 .replace(QLatin1Char('\t'), QLatin1String("\\t"));
        std::printf("message %s\n", qPrintable(line));
        std::fflush(stdout);
    }
};

#include "listenerplugin.moc"
