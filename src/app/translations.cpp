// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QObject>
#include <QScopedValueRollback>
#include <QSettings>
#include <QStandardPaths>
#include <QTranslator>
#include <QVariant>

#include <memory>

namespace {

const char *const languageVariable = "LANGUAGE";
const QLatin1String chinese("zh_CN");

/// Null when there is no such catalogue.
QTranslator *load(const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (!translator->load(name, folder))
        return nullptr;
    QCoreApplication::installTranslator(translator.get());
    // The application owns it by now.
    return translator.release();
}

/// Has a catalogue asked before those that come later: with the text editor comes a
/// library that installs Qt's own once more, words that ours has better included.
class AskedFirst final : public QObject
{
public:
    explicit AskedFirst(QTranslator *translator)
        : QObject(translator)
        , m_translator(translator)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::LanguageChange || watched != QCoreApplication::instance())
            return false;
        // The windows hear of it once.
        if (m_moving)
            return true;
        const QScopedValueRollback<bool> moving(m_moving, true);
        QCoreApplication::removeTranslator(m_translator);
        QCoreApplication::installTranslator(m_translator);
        return false;
    }

private:
    QTranslator *const m_translator;
    bool m_moving = false;
};

/// The stored choice, from the files that the settings are read from later. A
/// store that looks for its file itself makes Qt settle its locale, too early.
bool choseChinese()
{
    const QStringList files = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation,
                                                        QStringLiteral("KelmoWare/IDE.ini"));
    for (const QString &file : files) {
        const QVariant language =
            QSettings(file, QSettings::IniFormat).value(QStringLiteral("Language"));
        if (language.isValid())
            return language.toString() == chinese;
    }
    return false;
}

/// As the variables say; asking Qt would make it keep the answer.
QByteArray desktopLanguage()
{
    for (const char *const name : {languageVariable, "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QByteArray value = qgetenv(name);
        if (!value.isEmpty())
            return value;
    }
    return {};
}

} // namespace

Translations::Translations()
    : m_chinese(choseChinese())
{
    const QByteArray desktop = desktopLanguage();
    const bool isChinese = desktop.startsWith("zh_CN");
    const bool isEnglish = desktop.isEmpty() || desktop.startsWith("en") || desktop.startsWith('C')
                           || desktop == "POSIX";
    if (m_chinese ? !isChinese : !isEnglish)
        tellLibraries(m_chinese ? "zh_CN" : "en");
}

void Translations::tellLibraries(const QByteArray &language)
{
    m_told = true;
    m_wasSet = qEnvironmentVariableIsSet(languageVariable);
    m_previous = qgetenv(languageVariable);
    qputenv(languageVariable, language);
}

void Translations::install(const QString &folder)
{
    if (m_told) {
        // Read once and kept; programs that are started from here shall find what
        // the user has.
        (void)QLocale::system().name();
        if (m_wasSet)
            qputenv(languageVariable, m_previous);
        else
            qunsetenv(languageVariable);
    }
    if (!m_chinese)
        return;

    const QString qtBetter = QLatin1String("qt_") + chinese + QLatin1String(".qm");
    const QString qtCatalogue = QLatin1String("qtbase_") + chinese;
    if (!load(qtCatalogue, QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        load(qtCatalogue, folder);
    // Plugins bring catalogues of their own; what Qt has is loaded already.
    const QStringList catalogues = QDir(folder).entryList(
        {QLatin1String("*_") + chinese + QLatin1String(".qm")}, QDir::Files, QDir::Name);
    QTranslator *better = nullptr;
    for (const QString &catalogue : catalogues) {
        if (catalogue.startsWith(QLatin1String("qtbase_")))
            continue;
        QTranslator *const loaded = load(catalogue, folder);
        if (catalogue == qtBetter)
            better = loaded;
    }
    if (better)
        new AskedFirst(better); // lives as long as the catalogue
}
