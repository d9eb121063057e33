// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/settingsoptionpage_p.h>

#include <texteditor/editorfactory.h>

#include <QLabel>
#include <QTabBar>

namespace TextEditor {

SettingsOptionPage::SettingsOptionPage(SettingsPage page, EditorFactory *factory, QObject *parent)
    : IOptionsPage(parent)
    , m_page(page)
    , m_factory(factory)
{
    // The titles are known without the engine.
    const bool appearance = page == SettingsPage::Appearance;
    setId(appearance ? QStringLiteral("A.Appearance") : QStringLiteral("B.Editing"));
    setCategoryId(QStringLiteral("B.TextEditor"));
    setDisplayName(appearance ? tr("Appearance") : tr("Editing"));
    setDisplayCategory(tr("Text Editor"));
    setCategoryIcon(QStringLiteral(":/core/image/editor_default.png"));
}

SettingsOptionPage::~SettingsOptionPage()
{
    delete m_widget;
}

QWidget *SettingsOptionPage::widget()
{
    if (m_widget)
        return m_widget;
    QString reason;
    EditorEngine *const engine = m_factory->engine(&reason);
    m_widget = engine ? engine->createSettingsPage(m_page) : nullptr;
    if (m_widget) {
        m_widget->setAccessibleName(displayName());
        const QList<QTabBar *> bars = m_widget->findChildren<QTabBar *>();
        for (QTabBar *bar : bars)
            bar->setAccessibleName(displayName());
    } else {
        auto *const label =
            new QLabel(engine ? tr("The text editor has no such settings.")
                              : tr("The text editor could not be started: %1").arg(reason));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignTop | Qt::AlignLeading);
        label->setMargin(9);
        m_widget = label;
    }
    return m_widget;
}

void SettingsOptionPage::apply()
{
    QString reason;
    EditorEngine *const engine = m_widget ? m_factory->engine(&reason) : nullptr;
    if (engine)
        engine->applySettingsPage(m_widget);
}

void SettingsOptionPage::finish()
{
    delete m_widget;
}

} // namespace TextEditor
