// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimedatabase.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QStringList>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>
#include <gio/gio.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

const char freedesktopTypes[] = "/usr/share/mime/packages/freedesktop.org.xml";

QString freedesktopFile()
{
    return QString::fromLatin1(freedesktopTypes);
}

enum Table { BuiltIn, Freedesktop };

Core::MimeDatabase &database(Table table)
{
    static Core::MimeDatabase builtIn;
    static Core::MimeDatabase freedesktop;
    static const bool loaded = [] {
        const QString own = QStringLiteral(":/core/ide.mimetype.xml");
        return builtIn.addMimeTypes(own) && freedesktop.addMimeTypes(freedesktopFile())
               && freedesktop.addMimeTypes(own);
    }();
    if (!loaded)
        qFatal("The MIME definitions cannot be read.");
    return table == BuiltIn ? builtIn : freedesktop;
}

/// Names whose suffix decides in both tables. None of the files exists: were
/// one looked for, it would show.
const QStringList &names()
{
    static const QStringList list{
        QStringLiteral("/home/designer/projects/uart/src/top.v"),
        QStringLiteral("/home/designer/projects/uart/src/fifo_ctrl.sv"),
        QStringLiteral("/home/designer/projects/uart/src/receiver.vhd"),
        QStringLiteral("/home/designer/projects/uart/uart.kprj"),
        QStringLiteral("/home/designer/projects/uart/constraints/timing.sdc"),
        QStringLiteral("/home/designer/projects/uart/doc/notes.txt"),
        QStringLiteral("/home/designer/projects/uart/doc/index.html"),
        QStringLiteral("/home/designer/projects/uart/src/defines.VH"),
    };
    return list;
}

class Files
{
public:
    Files()
    {
        QByteArray text;
        while (text.size() < 8192)
            text += "module top(input wire clk, output reg [7:0] led); // a line of text\n";
        QByteArray binary;
        quint32 state = 1;
        while (binary.size() < 8192) {
            state = state * 1664525U + 1013904223U;
            binary += char(state >> 24);
        }
        write(m_text, text);
        write(m_binary, binary);
    }

    QString path(bool text) const { return text ? m_text : m_binary; }

private:
    static void write(const QString &path, const QByteArray &data)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("A file for the measurement cannot be written.");
    }

    const QTemporaryDir m_dir;
    const QString m_text = m_dir.filePath(QStringLiteral("README-text"));
    const QString m_binary = m_dir.filePath(QStringLiteral("image-binary"));
};

const Files &files()
{
    static const Files instance;
    return instance;
}

void suffixOurs(benchmark::State &state, Table table)
{
    const Core::MimeDatabase &types = database(table);
    int i = 0;
    for (auto _ : state) {
        const QFileInfo info(names().at(i));
        benchmark::DoNotOptimize(types.findByFile(info).isNull());
        i = (i + 1) % names().size();
    }
}

void suffixGlib(benchmark::State &state)
{
    std::vector<QByteArray> fileNames;
    for (const QString &name : names())
        fileNames.push_back(QFileInfo(name).fileName().toUtf8());
    size_t i = 0;
    for (auto _ : state) {
        char *type = g_content_type_guess(fileNames[i].constData(), nullptr, 0, nullptr);
        benchmark::DoNotOptimize(type);
        g_free(type);
        i = (i + 1) % fileNames.size();
    }
}

void suffixQt(benchmark::State &state)
{
    const QMimeDatabase types;
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(types.mimeTypeForFile(names().at(i)).isValid());
        i = (i + 1) % names().size();
    }
}

void contentOurs(benchmark::State &state, Table table, bool text)
{
    const Core::MimeDatabase &types = database(table);
    const QString path = files().path(text);
    for (auto _ : state)
        benchmark::DoNotOptimize(types.findByFile(QFileInfo(path)).isNull());
}

void contentBareRead(benchmark::State &state, bool text)
{
    const QString path = files().path(text);
    for (auto _ : state) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            state.SkipWithError("cannot open");
        benchmark::DoNotOptimize(file.read(2048));
    }
}

void contentQt(benchmark::State &state, bool text)
{
    const QMimeDatabase types;
    const QString path = files().path(text);
    for (auto _ : state)
        benchmark::DoNotOptimize(types.mimeTypeForFile(path).isValid());
}

void loadOurs(benchmark::State &state)
{
    for (auto _ : state) {
        auto types = std::make_unique<Core::MimeDatabase>();
        if (!types->addMimeTypes(freedesktopFile()))
            state.SkipWithError("cannot read");
        // Loading is not freeing: the walk it is held against keeps nothing.
        state.PauseTiming();
        types.reset();
        state.ResumeTiming();
    }
}

void loadBareWalk(benchmark::State &state)
{
    for (auto _ : state) {
        QFile file(freedesktopFile());
        if (!file.open(QIODevice::ReadOnly))
            state.SkipWithError("cannot open");
        QXmlStreamReader reader(&file);
        while (!reader.atEnd())
            benchmark::DoNotOptimize(reader.readNext());
    }
}

/// Prints what Google Benchmark prints and keeps the best time of each figure:
/// what disturbs a run only ever makes it longer.
class Reporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred) {
                m_failed = true;
            } else if (run.run_type == Run::RT_Iteration) {
                const double time = run.GetAdjustedCPUTime();
                const auto inserted = m_best.emplace(run.run_name.function_name, time);
                inserted.first->second = std::min(inserted.first->second, time);
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    bool failed() const { return m_failed; }

    /// One line of the table; false when the figure is over its limit. None, and
    /// true, when a filter left out one of the two.
    bool ratio(const char *name, const char *ours, const char *peer, double limit) const
    {
        const auto a = m_best.find(ours);
        const auto b = m_best.find(peer);
        if (a == m_best.cend() || b == m_best.cend())
            return true;
        const double value = a->second / b->second;
        const bool ok = value <= limit;
        std::printf("RATIO %s %.4g %.4g %.3f limit %g %s\n", name, a->second, b->second, value,
                    limit, ok ? "ok" : "MISSED");
        return ok;
    }

private:
    std::map<std::string, double> m_best;
    bool m_failed = false;
};

} // namespace

int main(int argc, char *argv[])
{
    // A line for each rule of a kind that is not supported: the terminal's time
    // is not the reader's.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    const QCoreApplication application(argc, argv);
    const auto add = [](const char *name, auto function, benchmark::TimeUnit unit, auto... args) {
        benchmark::RegisterBenchmark(name, function, args...)
            ->Unit(unit)
            ->MinTime(0.1)
            ->Repetitions(5);
    };
    constexpr auto ns = benchmark::kNanosecond;
    add("suffix/built-in", suffixOurs, ns, BuiltIn);
    add("suffix/freedesktop", suffixOurs, ns, Freedesktop);
    add("suffix/glib", suffixGlib, ns);
    add("suffix/qt", suffixQt, ns);
    add("content/text/built-in", contentOurs, ns, BuiltIn, true);
    add("content/text/freedesktop", contentOurs, ns, Freedesktop, true);
    add("content/text/bare-read", contentBareRead, ns, true);
    add("content/text/qt", contentQt, ns, true);
    add("content/binary/built-in", contentOurs, ns, BuiltIn, false);
    add("content/binary/freedesktop", contentOurs, ns, Freedesktop, false);
    add("content/binary/bare-read", contentBareRead, ns, false);
    add("content/binary/qt", contentQt, ns, false);
    // One at a time: the best of many is what nothing disturbed.
    for (const auto &load : {std::make_pair("load/freedesktop", loadOurs),
                             std::make_pair("load/bare-walk", loadBareWalk)})
        benchmark::RegisterBenchmark(load.first, load.second)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1)
            ->Repetitions(30);

    benchmark::Initialize(&argc, argv);
    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    bool ok = !reporter.failed();
    ok &= reporter.ratio("mime-suffix-built-in", "suffix/built-in", "suffix/glib", 1.0);
    ok &= reporter.ratio("mime-suffix-freedesktop", "suffix/freedesktop", "suffix/glib", 1.0);
    ok &= reporter.ratio("mime-suffix-against-qt", "suffix/freedesktop", "suffix/qt", 1.0 / 60);
    ok &= reporter.ratio("mime-text-built-in", "content/text/built-in", "content/text/bare-read",
                         2.0);
    ok &= reporter.ratio("mime-text-freedesktop", "content/text/freedesktop",
                         "content/text/bare-read", 4.0);
    ok &= reporter.ratio("mime-binary-built-in", "content/binary/built-in",
                         "content/binary/bare-read", 2.0);
    ok &= reporter.ratio("mime-binary-freedesktop", "content/binary/freedesktop",
                         "content/binary/bare-read", 4.0);
    ok &= reporter.ratio("mime-load-freedesktop", "load/freedesktop", "load/bare-walk", 1.3);
    return ok ? 0 : 1;
}
