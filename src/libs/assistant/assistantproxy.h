// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef ASSISTANT_ASSISTANTPROXY_H
#define ASSISTANT_ASSISTANTPROXY_H

#include <assistant/assistant_export.h>

#include <QObject>

#include <memory>

class QUrl;

namespace ASSISTANT {

/// The help viewer, run as a child process. GUI thread only.
class ASSISTANT_EXPORT AssistantProxy final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(AssistantProxy)
public:
    static AssistantProxy *instance();
    ~AssistantProxy() override;

    /// Starts the viewer on the program's help, or raises it when it runs.
    void startAssistant();
    /// Ends the viewer when it runs.
    void stopAssistant();
    /// Shows @p page of the help, starting the viewer when it does not run.
    void showPage(const QUrl &page);

private:
    AssistantProxy();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace ASSISTANT

#endif // ASSISTANT_ASSISTANTPROXY_H
