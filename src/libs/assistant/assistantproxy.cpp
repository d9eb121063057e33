// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <assistant/assistantproxy.h>

#include <QUrl>

namespace ASSISTANT {

class AssistantProxy::Private
{
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

void AssistantProxy::startAssistant() {}

void AssistantProxy::stopAssistant() {}

void AssistantProxy::showPage(const QUrl &page)
{
    Q_UNUSED(page)
}

} // namespace ASSISTANT
