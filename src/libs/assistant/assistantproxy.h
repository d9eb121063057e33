// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef ASSISTANT_ASSISTANTPROXY_H
#define ASSISTANT_ASSISTANTPROXY_H

#include <assistant/assistant_export.h>

#include <QObject>
#include <QString>

#include <memory>

class QUrl;

namespace ASSISTANT {

/// Qt's help viewer on the program's manual, run as a child process under remote
/// control. GUI thread only. Costs nothing until the viewer is asked for.
///
/// A viewer that is not installed, does not start or ends with an error, and a
/// manual that is missing, are each told in a message box.
class ASSISTANT_EXPORT AssistantProxy final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(AssistantProxy)
public:
    static AssistantProxy *instance();
    ~AssistantProxy() override;

    [[nodiscard]] bool isRunning() const;
    /// The viewer's executable: the one set, else the one found in Qt's folder of
    /// programs or in PATH; empty when there is none.
    [[nodiscard]] QString viewerProgram() const;
    /// The help collection: the one set, else ../share/help/kelmo.qhc seen from
    /// the program's executable.
    [[nodiscard]] QString collectionFile() const;

    /// Starts the viewer on the program's help, or raises it when it runs.
    void startAssistant();
    /// Ends the viewer when it runs, by force when it does not go within three
    /// seconds. It has ended when this returns.
    void stopAssistant();
    /// Shows @p page of the help (such as
    /// "qthelp://kelmoware.designer/manual/keys.html"), starting the viewer when
    /// it does not run. An invalid or empty @p page only starts or raises it.
    void showPage(const QUrl &page);

    /// Take the place of what is looked for; an empty text brings that back.
    /// A viewer that runs is left alone.
    void setViewerProgram(const QString &program);
    void setCollectionFile(const QString &file);

private:
    AssistantProxy();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace ASSISTANT

#endif // ASSISTANT_ASSISTANTPROXY_H
