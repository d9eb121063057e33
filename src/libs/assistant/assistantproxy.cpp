// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <assistant/assistantproxy.h>

#include "assistant/helpcollection_p.h"

#include <utils/systemreason.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace ASSISTANT {

namespace {

constexpr int startTimeout = 5000;
constexpr int terminateTimeout = 3000;
constexpr int killTimeout = 2000;

void tell(const QString &text)
{
    QWidget *parent = QApplication::activeModalWidget();
    QMessageBox box(QMessageBox::Warning, AssistantProxy::tr("Help"), text, QMessageBox::Ok,
                    parent ? parent : QApplication::activeWindow());
    // The path of a program or manual may look like markup.
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

QString findViewer()
{
    const QStringList folders{QLibraryInfo::location(QLibraryInfo::BinariesPath)};
    for (const QString &name : {QStringLiteral("assistant"), QStringLiteral("assistant-qt5")}) {
        QString found = QStandardPaths::findExecutable(name, folders);
        if (found.isEmpty())
            found = QStandardPaths::findExecutable(name);
        if (!found.isEmpty())
            return found;
    }
    return QString();
}

void stopAtExit()
{
    AssistantProxy::instance()->stopAssistant();
}

} // namespace

class AssistantProxy::Private
{
public:
    bool start(AssistantProxy *q);
    void send(const QByteArray &command);

    QString viewer;
    QString collection;
    // A child of the application object, which outlives no process; the proxy
    // itself is destroyed too late for that.
    QPointer<QProcess> process;
    bool endsWithApplication = false;
};

AssistantProxy *AssistantProxy::instance()
{
    static AssistantProxy proxy;
    return &proxy;
}

AssistantProxy::AssistantProxy()
    : d(std::make_unique<Private>())
{
}

AssistantProxy::~AssistantProxy() = default;

bool AssistantProxy::isRunning() const
{
    return d->process && d->process->state() != QProcess::NotRunning;
}

QString AssistantProxy::viewerProgram() const
{
    return d->viewer.isEmpty() ? findViewer() : d->viewer;
}

QString AssistantProxy::collectionFile() const
{
    if (!d->collection.isEmpty())
        return d->collection;
    return QDir::cleanPath(QCoreApplication::applicationDirPath()
                           + QStringLiteral("/../share/help/kelmo.qhc"));
}

void AssistantProxy::setViewerProgram(const QString &program)
{
    d->viewer = program;
}

void AssistantProxy::setCollectionFile(const QString &file)
{
    d->collection = file;
}

bool AssistantProxy::Private::start(AssistantProxy *q)
{
    const QString program = q->viewerProgram();
    if (program.isEmpty()) {
        tell(tr("The help cannot be shown: the help viewer, Qt Assistant (\"assistant\"), is not "
                "installed."));
        return false;
    }
    const QString file = q->collectionFile();
    if (!QFileInfo(file).isFile()) {
        tell(tr("The help cannot be shown: the manual \"%1\" is missing.")
                 .arg(QDir::toNativeSeparators(file)));
        return false;
    }
    if (!endsWithApplication) {
        qAddPostRoutine(stopAtExit);
        endsWithApplication = true;
    }

    delete process; // one that has ended
    process = new QProcess(QCoreApplication::instance());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(program, {QStringLiteral("-collectionFile"), writableCollection(file),
                             QStringLiteral("-enableRemoteControl")});
    if (!process->waitForStarted(startTimeout)) {
        // Without the name of the system's function.
        const QString reason =
            Utils::systemReason(process->errorString().section(QLatin1String(": "), -1));
        delete process;
        tell(tr("The help viewer \"%1\" could not be started: %2")
                 .arg(QDir::toNativeSeparators(program), reason));
        return false;
    }
    // A viewer that was killed is not worth a word; the next call starts another.
    // Queued, because that call may come while the user reads, and deletes the
    // process.
    QObject::connect(
        process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), q,
        [program, ended = process](int code, QProcess::ExitStatus status) {
            if (ended && status == QProcess::NormalExit && code != 0)
                tell(tr("The help viewer \"%1\" ended with the exit status %2.")
                         .arg(QDir::toNativeSeparators(program))
                         .arg(code));
        },
        Qt::QueuedConnection);
    return true;
}

void AssistantProxy::Private::send(const QByteArray &command)
{
    process->write(command + '\n');
}

void AssistantProxy::startAssistant()
{
    showPage(QUrl());
}

void AssistantProxy::showPage(const QUrl &page)
{
    const bool wasRunning = isRunning();
    if (!wasRunning && !d->start(this))
        return;
    if (page.isValid() && !page.isEmpty()) {
        // The viewer takes a semicolon for the end of a command.
        d->send("setSource " + page.toEncoded().replace(';', "%3B"));
    } else if (wasRunning) {
        // Every command brings the viewer's window to the front.
        d->send("show contents");
    }
}

void AssistantProxy::stopAssistant()
{
    if (!d->process)
        return;
    d->process->disconnect(this);
    if (isRunning()) {
        d->process->terminate();
        if (!d->process->waitForFinished(terminateTimeout)) {
            d->process->kill();
            d->process->waitForFinished(killTimeout);
        }
    }
    delete d->process;
}

} // namespace ASSISTANT
