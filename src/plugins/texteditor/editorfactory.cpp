// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/editorfactory.h>

#include <idecore/views/viewmanager.h>
#include <texteditor/abstracttexteditor.h>
#include <texteditor/editorengine_p.h>
#include <texteditor/failededitor_p.h>
#include <texteditor/texteditorconstants.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QPluginLoader>

#include <dlfcn.h>

namespace TextEditor {

namespace {

/// The engine lies beside the folder of plugins, where the host does not take
/// it for one.
QString installedEngine()
{
    static const char here = 0;
    Dl_info info;
    if (!dladdr(&here, &info) || !info.dli_fname)
        return {};
    const QDir plugins = QFileInfo(QFile::decodeName(info.dli_fname)).absoluteDir();
    return QDir::cleanPath(
        plugins.filePath(QStringLiteral("../texteditor/libTextEditorEngine.so")));
}

} // namespace

EditorFactory::EditorFactory(QObject *parent)
    : EditorFactory(installedEngine(), parent)
{
}

EditorFactory::EditorFactory(const QString &enginePath, QObject *parent)
    : IEditorFactory(parent)
    , m_enginePath(enginePath)
{
}

EditorFactory::~EditorFactory()
{
    // It stays loaded, and the core does not.
    if (m_engine)
        m_engine->stop();
}

QString EditorFactory::id() const
{
    return QStringLiteral("TextEditor.EditorFactory");
}

QString EditorFactory::displayName() const
{
    return tr("Text Editor");
}

QStringList EditorFactory::mimeTypes() const
{
    return {
        QStringLiteral("text/plain"), QStringLiteral("text/html"), QStringLiteral("text/verilog"),
        QStringLiteral("text/vhdl"),  QStringLiteral("text/ksc"),  QStringLiteral("text/pcn"),
        QStringLiteral("text/sdc"),   QStringLiteral("text/kao"),  QStringLiteral("text/fdc"),
        QStringLiteral("text/adc"),   QStringLiteral("text/kpa"),  QStringLiteral("text/fcx"),
        QStringLiteral("text/mnx"),   QStringLiteral("text/ufx"),  QStringLiteral("text/kvio")};
}

Core::IEditor *EditorFactory::createEditor()
{
    QString reason;
    EditorEngine *const engineObject = engine(&reason);
    if (!engineObject)
        return new FailedEditor(tr("The text editor could not be started: %1").arg(reason));
    AbstractTextEditor *const editor = engineObject->createEditor();
    Core::ViewManager::registerContext(editor, QLatin1String(Constants::C_TEXTEDITOR));
    return editor;
}

EditorEngine *EditorFactory::engine(QString *errorString)
{
    if (m_engine)
        return m_engine;
    // Never unloaded: KTextEditor does not survive that.
    QPluginLoader loader(m_enginePath);
    // A library that comes with it puts icons for light ground before the theme's.
    const QString iconTheme = QIcon::fallbackThemeName();
    m_engine = qobject_cast<EditorEngine *>(loader.instance());
    QIcon::setFallbackThemeName(iconTheme);
    if (!m_engine) {
        *errorString = tr("%1 cannot be loaded: %2")
                           .arg(QDir::toNativeSeparators(m_enginePath),
                                loader.isLoaded() ? tr("It does not fit this program.")
                                                  : loader.errorString());
    }
    return m_engine;
}

} // namespace TextEditor
