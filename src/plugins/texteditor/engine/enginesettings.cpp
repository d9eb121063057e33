// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/enginesettings_p.h>

#include <appstyle/appstylemanager.h>
#include <idecore/core/idecore.h>
#include <texteditor/texteditorconstants.h>

#include <KConfig>
#include <KConfigGroup>
#include <KLocalizedString>
#include <KSharedConfig>

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QPalette>
#include <QSettings>
#include <QStandardPaths>

namespace TextEditor {
namespace EngineSettings {

namespace {

QLoggingCategory::CategoryFilter previousFilter = nullptr;

/// Spell checking is off; that no dictionary is installed concerns nobody.
void filterLog(QLoggingCategory *category)
{
    previousFilter(category);
    if (QByteArray(category->categoryName()).startsWith("kf.sonnet")) {
        category->setEnabled(QtWarningMsg, false);
        category->setEnabled(QtDebugMsg, false);
    }
}

QFont codeFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch()) {
        font = QFont(QStringLiteral("Monospace"));
        font.setStyleHint(QFont::TypeWriter);
    }
    font.setPointSize(10);
    return font;
}

/// What a user may change: set where the user has not.
class Proposals final
{
public:
    Proposals(const KConfig &own, const KConfigGroup &group)
        : m_own(&own, group.name())
        , m_group(group)
    {
    }

    template<class Value>
    void writeEntry(const char *key, const Value &value)
    {
        // What other programs of the user's have set does not count.
        if (!m_own.hasKey(key))
            m_group.writeEntry(key, value);
    }

private:
    const KConfigGroup m_own;
    KConfigGroup m_group;
};

void applyToDocuments(KConfigGroup group)
{
    // What the user did not type is not written: no spaces go, no line comes.
    group.writeEntry("Remove Spaces", 0);
    group.writeEntry("Newline at End of File", false);
    group.writeEntry("Encoding", "UTF-8");
    group.writeEntry("BOM", false);
    group.writeEntry("End of Line", 0);
    group.writeEntry("Allow End of Line Detection", true);
    group.writeEntry("On-The-Fly Spellcheck", false);
    // Longer lines are broken for display, which is undone when they are written.
    group.writeEntry("Line Length Limit", 10000);
    group.writeEntry("Auto Save", false);
    group.writeEntry("Backup Local", false);
    group.writeEntry("Auto Reload If State Is In Version Control", false);
    // Unsaved text is kept in another way, which offers it also when the file
    // has changed meanwhile.
    group.writeEntry("Swap File Mode", 0);
}

void proposeToDocuments(Proposals group)
{
    group.writeEntry("Keep Extra Spaces", true);
    group.writeEntry("Tab Width", 4);
    group.writeEntry("Indentation Width", 4);
    group.writeEntry("ReplaceTabsDyn", true);
    group.writeEntry("Auto Detect Indent", true);
    group.writeEntry("Indent On Text Paste", false);
    group.writeEntry("Word Wrap", false);
}

void applyToViews(KConfigGroup group)
{
    // Cut and Copy without a selection would take the whole line.
    group.writeEntry("Smart Copy Cut", false);
    group.writeEntry("Input Mode", 0);
    group.writeEntry("Persistent Selection", false);
}

void proposeToViews(Proposals group)
{
    group.writeEntry("Line Numbers", true);
    group.writeEntry("Folding Bar", true);
    group.writeEntry("Line Modification", true);
    group.writeEntry("Dynamic Word Wrap", false);
    group.writeEntry("Scroll Bar MiniMap", false);
    group.writeEntry("Auto Brackets", false);
    group.writeEntry("Auto Completion Preselect First Entry", false);
}

} // namespace

void apply()
{
    // Installing asks the filter about every category before it returns the one
    // it replaces, so that one is fetched first.
    previousFilter = QLoggingCategory::installFilter(nullptr);
    QLoggingCategory::installFilter(filterLog);
    // KTextEditor would speak the desktop's language; Qt knows the program's.
    KLocalizedString::setLanguages({QLocale::system().name()});
    // KTextEditor takes the settings of the program's own file, and those of all
    // programs of the desktop only where that file has none.
    KConfig::setMainConfigName(QStringLiteral("KelmoWare/texteditorrc"));
    const KSharedConfig::Ptr config = KSharedConfig::openConfig();
    KConfigGroup editor(config, "KTextEditor Editor");
    editor.writeEntry("Encoding Prober Type", 0);
    editor.writeEntry("Fallback Encoding", "ISO 8859-1");
    KConfigGroup documents(config, "KTextEditor Document");
    KConfigGroup views(config, "KTextEditor View");
    KConfigGroup renderer(config, "KTextEditor Renderer");
    const KConfig own(KConfig::mainConfigName(), KConfig::SimpleConfig);
    applyToDocuments(documents);
    proposeToDocuments({own, documents});
    applyToViews(views);
    proposeToViews({own, views});
    renderer.writeEntry("Auto Color Theme Selection", false);
    renderer.writeEntry("Color Theme", currentTheme());
    Proposals look(own, renderer);
    look.writeEntry("Text Font", codeFont());
    look.writeEntry("Font", codeFont());
    look.writeEntry("Show Indentation Lines", false);
    QDir().mkpath(recoveryFolder());
    // Unsaved text is as private as the files it belongs to may be.
    QFile::setPermissions(recoveryFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void applyPalette()
{
    const QPalette palette = QApplication::palette();
    const KSharedConfig::Ptr config = KSharedConfig::openConfig();
    const auto write = [&](const char *group, QPalette::ColorRole ground,
                           QPalette::ColorRole text) {
        KConfigGroup colours(config, group);
        const auto add = [&](const char *key, QPalette::ColorRole role) {
            const QColor &colour = palette.color(role);
            colours.writeEntry(key, QList<int>{colour.red(), colour.green(), colour.blue()});
        };
        add("BackgroundNormal", ground);
        add("BackgroundAlternate", ground);
        add("ForegroundNormal", text);
    };
    write("Colors:View", QPalette::Base, QPalette::Text);
    write("Colors:Window", QPalette::Window, QPalette::WindowText);
}

QString currentTheme()
{
    const QSettings *const settings = Core::IdeCore::userSettings();
    const bool desert = settings
                        && settings->value(QLatin1String(Constants::SET_COLOR_SCHEME)).toString()
                               == QLatin1String(Constants::SCHEME_DESERT);
    const bool dark = APPSTYLE::AppStyleManager::instance()->currentTheme() == APPSTYLE::THEME_DARK;
    if (desert)
        return dark ? QStringLiteral("Kelmo Desert Dark") : QStringLiteral("Kelmo Desert Light");
    return dark ? QStringLiteral("Kelmo Dark") : QStringLiteral("Kelmo Light");
}

QString recoveryFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
           + QStringLiteral("/KelmoWare/unsaved");
}

} // namespace EngineSettings
} // namespace TextEditor
