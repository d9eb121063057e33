// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "program.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <functional>

namespace {

const QString MAIN_TITLE = QStringLiteral("KELMO FPGA Designer");

QString run(const QString &tool, const QStringList &arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(20000))
        return {};
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

bool waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 20000);
}

QStringList lines(const QString &text)
{
    return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

Program::~Program()
{
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

QString Program::launch(const QStringList &arguments)
{
    m_errors.clear();
    m_output.clear();
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    QObject::disconnect(&m_process, &QProcess::readyReadStandardError, nullptr, nullptr);
    QObject::disconnect(&m_process, &QProcess::readyReadStandardOutput, nullptr, nullptr);
    QObject::connect(&m_process, &QProcess::readyReadStandardError, &m_process,
                     [this] { m_errors += QString::fromUtf8(m_process.readAllStandardError()); });
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_process,
                     [this] { m_output += QString::fromUtf8(m_process.readAllStandardOutput()); });
    m_process.start(QStringLiteral(KELMO_DESIGNER), arguments);
    return m_process.waitForStarted() ? QString() : m_process.errorString();
}

QString Program::start(const QStringList &arguments)
{
    const QString error = launch(arguments);
    if (!error.isEmpty())
        return error;
    const bool shown =
        QTest::qWaitFor([this] { return !mainWindowId().isEmpty() || !isRunning(); }, 30000);
    if (!shown || !isRunning())
        return QStringLiteral("no main window came: ") + m_errors;
    // The splash has the same title, and would swallow the keys.
    if (!waitFor([this] {
            return run(QStringLiteral("xdotool"), {QStringLiteral("getactivewindow")})
                       == mainWindowId()
                   && windowTitles().size() == 1;
        }))
        return QStringLiteral("the main window is not active but: ") + activeTitle();
    return {};
}

bool Program::waitForMainWindow() const
{
    return waitFor([this] { return !mainWindowId().isEmpty() && windowTitles().size() == 1; });
}

bool Program::isRunning() const
{
    return m_process.state() != QProcess::NotRunning;
}

bool Program::waitForEnd()
{
    return waitFor([this] { return !isRunning(); });
}

QString Program::errorOutput() const
{
    static const QRegularExpression gone(
        QStringLiteral("^qt\\.qpa\\.xcb: QXcbConnection: XCB error: 3 \\(BadWindow\\).*\\n"),
        QRegularExpression::MultilineOption);
    return QString(m_errors).remove(gone);
}

QStringList Program::linesFrom(const QString &beginning) const
{
    const int end = m_output.lastIndexOf(QLatin1Char('\n'));
    QStringList said = lines(m_output.left(end + 1));
    said.erase(std::remove_if(said.begin(), said.end(),
                              [&](const QString &line) { return !line.startsWith(beginning); }),
               said.end());
    return said;
}

QString Program::lastLine(const QString &beginning) const
{
    const QStringList said = linesFrom(beginning);
    return said.isEmpty() ? QString() : said.constLast();
}

void Program::keys(const QStringList &names)
{
    run(QStringLiteral("xdotool"),
        QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("30")}
            + names);
}

void Program::type(const QString &text)
{
    run(QStringLiteral("xdotool"),
        {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("15"), text});
}

void Program::click(int x, int y, int button)
{
    run(QStringLiteral("xdotool"),
        {QStringLiteral("mousemove"), QString::number(x), QString::number(y),
         QStringLiteral("click"), QString::number(button)});
}

void Program::drag(const QPoint &from, const QPoint &to)
{
    const auto move = [](const QPoint &place) {
        run(QStringLiteral("xdotool"),
            {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
    };
    const auto press = [](const char *verb) {
        run(QStringLiteral("xdotool"), {QLatin1String(verb), QStringLiteral("1")});
    };
    constexpr int STEPS = 20;
    move(from);
    press("mousedown");
    // What is under the pointer is asked at each step, so there have to be some.
    for (int i = 1; i <= STEPS; ++i)
        move(from + (to - from) * i / STEPS);
    // The last answer has to be there before the button is up.
    move(to + QPoint(1, 1));
    move(to);
    press("mouseup");
}

void Program::moveMainWindow(const QRect &place)
{
    const QString id = mainWindowId();
    run(QStringLiteral("wmctrl"),
        {QStringLiteral("-i"), QStringLiteral("-r"), id, QStringLiteral("-b"),
         QStringLiteral("remove,maximized_vert,maximized_horz")});
    run(QStringLiteral("wmctrl"),
        {QStringLiteral("-i"), QStringLiteral("-r"), id, QStringLiteral("-e"),
         QStringLiteral("0,%1,%2,%3,%4")
             .arg(place.x())
             .arg(place.y())
             .arg(place.width())
             .arg(place.height())});
}

void Program::closeMainWindow()
{
    run(QStringLiteral("wmctrl"), {QStringLiteral("-i"), QStringLiteral("-c"), mainWindowId()});
}

void Program::kill(int signal)
{
    ::kill(static_cast<pid_t>(pid()), signal);
}

QStringList Program::windowTitles() const
{
    QStringList titles;
    const QStringList ids =
        lines(run(QStringLiteral("xdotool"),
                  {QStringLiteral("search"), QStringLiteral("--all"),
                   QStringLiteral("--onlyvisible"), QStringLiteral("--pid"), QString::number(pid()),
                   QStringLiteral("--name"), QStringLiteral(".")}));
    for (const QString &id : ids)
        titles.append(run(QStringLiteral("xdotool"), {QStringLiteral("getwindowname"), id}));
    return titles;
}

QString Program::activeTitle() const
{
    return run(QStringLiteral("xdotool"),
               {QStringLiteral("getactivewindow"), QStringLiteral("getwindowname")});
}

bool Program::waitForActive(const QString &part) const
{
    return waitFor([&] { return activeTitle().contains(part); });
}

QString Program::mainWindowId() const
{
    // The splash has the same title; its type tells it apart.
    const QStringList ids =
        lines(run(QStringLiteral("xdotool"),
                  {QStringLiteral("search"), QStringLiteral("--all"),
                   QStringLiteral("--onlyvisible"), QStringLiteral("--pid"), QString::number(pid()),
                   QStringLiteral("--name"), QLatin1Char('^') + MAIN_TITLE + QLatin1Char('$')}));
    for (const QString &id : ids) {
        const QString type = run(QStringLiteral("xprop"), {QStringLiteral("-id"), id,
                                                           QStringLiteral("_NET_WM_WINDOW_TYPE")});
        if (type.contains(QLatin1String("_NORMAL")))
            return id;
    }
    return {};
}

QString Program::mainWindowProperty(const QString &name) const
{
    return run(QStringLiteral("xprop"), {QStringLiteral("-id"), mainWindowId(), name});
}

QRect Program::mainWindowGeometry() const
{
    return geometryOf(mainWindowId());
}

QRect Program::activeGeometry() const
{
    return geometryOf(run(QStringLiteral("xdotool"), {QStringLiteral("getactivewindow")}));
}

QStringList Program::popups() const
{
    QStringList visible =
        lines(run(QStringLiteral("xdotool"),
                  {QStringLiteral("search"), QStringLiteral("--all"),
                   QStringLiteral("--onlyvisible"), QStringLiteral("--pid"), QString::number(pid()),
                   QStringLiteral("--class"), QStringLiteral(".")}));
    const QString managed =
        run(QStringLiteral("xprop"), {QStringLiteral("-root"), QStringLiteral("_NET_CLIENT_LIST")});
    const auto isManaged = [&managed](const QString &id) {
        const QString hex = QStringLiteral("0x") + QString::number(id.toUInt(), 16);
        return managed.contains(QRegularExpression(hex + QStringLiteral("\\b")));
    };
    visible.erase(std::remove_if(visible.begin(), visible.end(), isManaged), visible.end());
    return visible;
}

QString Program::windowUnderPointerAt(const QPoint &place)
{
    const QString text =
        run(QStringLiteral("xdotool"),
            {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
             QStringLiteral("getmouselocation"), QStringLiteral("--shell")});
    static const QRegularExpression pattern(QStringLiteral("^WINDOW=(\\d+)$"),
                                            QRegularExpression::MultilineOption);
    return pattern.match(text).captured(1);
}

QRect Program::geometryOf(const QString &id)
{
    const QString text = run(QStringLiteral("xdotool"),
                             {QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), id});
    const auto number = [&text](const char *key) {
        const QRegularExpression pattern(QStringLiteral("^%1=(-?\\d+)$").arg(QLatin1String(key)),
                                         QRegularExpression::MultilineOption);
        return pattern.match(text).captured(1).toInt();
    };
    return {number("X"), number("Y"), number("WIDTH"), number("HEIGHT")};
}

void Program::picture(const QString &name) const
{
    const QString folder = qEnvironmentVariable("KELMO_E2E_PICTURES");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    run(QStringLiteral("import"), {QStringLiteral("-window"), QStringLiteral("root"),
                                   QDir(folder).filePath(name + QStringLiteral(".png"))});
}

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

void press(Program *program, std::initializer_list<const char *> keys)
{
    QStringList names;
    for (const char *key : keys)
        names.append(named(key));
    program->keys(names);
}

void endWell(Program *program)
{
    program->closeMainWindow();
    QVERIFY(program->waitForEnd());
    QVERIFY(program->exitedNormally());
    // First what it said, which tells why it did not end well.
    QCOMPARE(program->errorOutput(), QString());
    QCOMPARE(program->exitCode(), 0);
}

QVariant storedValue(const QString &key)
{
    const QSettings settings(QDir::homePath() + QStringLiteral("/.config/KelmoWare/IDE.ini"),
                             QSettings::IniFormat);
    return settings.value(key);
}

QStringList storedPaths(const QString &key)
{
    return storedValue(key).toStringList();
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}
