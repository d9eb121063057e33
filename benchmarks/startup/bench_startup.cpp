// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "measuredprocess.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/// The middle of several starts, figure by figure; the programs take turns, so
/// that whatever else the machine does meets them all.
class Series final
{
public:
    explicit Series(std::vector<std::string> command)
        : m_command(std::move(command))
    {
    }

    bool measure()
    {
        const auto cost = measureStart(m_command);
        if (cost)
            m_costs.push_back(*cost);
        return cost.has_value();
    }
    void forget() { m_costs.clear(); }
    [[nodiscard]] double cpuMs() const { return middle(&StartCost::cpuMs); }
    [[nodiscard]] double peakMiB() const { return middle(&StartCost::peakMiB); }

private:
    [[nodiscard]] double middle(double StartCost::*figure) const
    {
        std::vector<double> values;
        for (const StartCost &cost : m_costs)
            values.push_back(cost.*figure);
        std::sort(values.begin(), values.end());
        return values.at(values.size() / 2);
    }

    std::vector<std::string> m_command;
    std::vector<StartCost> m_costs;
};

void print(const char *name, double ours, double peer, double limit, const char *unit)
{
    const double ratio = ours / peer;
    std::printf("RATIO %s %.1f%s %.1f%s %.2f limit %.2f %s\n", name, ours, unit, peer, unit, ratio,
                limit, ratio <= limit ? "ok" : "MISSED");
}

} // namespace

int main()
{
    // Every program as it is started on a desktop: the empty window and ours turn
    // GL off themselves, Kate does not.
    unsetenv("QT_XCB_GL_INTEGRATION");
    Series ours({HOST_PROGRAM});
    Series peer({PEER_PROGRAM});
    Series kate({"kate", "--new"});
    // The machine's own pace changes by a third from one start to the next.
    constexpr int rounds = 25;
    // The first round reads files from the disk and makes caches.
    for (int round = 0; round <= rounds; ++round) {
        if (!ours.measure() || !peer.measure())
            return 1;
        if (round <= 3 && !kate.measure())
            return 1;
        if (round == 0) {
            ours.forget();
            peer.forget();
            kate.forget();
        }
    }
    print("startup/cpu-vs-empty-window", ours.cpuMs(), peer.cpuMs(), 2.0, "ms");
    print("startup/memory-vs-empty-window", ours.peakMiB(), peer.peakMiB(), 2.0, "MiB");
    print("startup/cpu-vs-kate", ours.cpuMs(), kate.cpuMs(), 0.2, "ms");
    print("startup/memory-vs-kate", ours.peakMiB(), kate.peakMiB(), 0.5, "MiB");
    return 0;
}
