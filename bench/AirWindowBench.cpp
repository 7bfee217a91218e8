// SPDX-License-Identifier: GPL-3.0-or-later
// The same through real sockets on this machine: a sender, a station with its sound card port, one event loop. The
// figures are those of single turns, sender to sender, in milliseconds.
#include <benchmark/benchmark.h>

#include <algorithm>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>

#include "platform/qt/QtSocketDevice.h"
#include "support/Station.h"

namespace halvern {
namespace {

constexpr int MostRaw = 30000;
constexpr double Unanswered = 1000; // milliseconds

/// The far end: a server that the station's sound card port connects to.
struct FarEnd {
    FarEnd()
    {
        server.listen(QHostAddress::LocalHost);
        station.SetUp();
        station.dialogs.Say = nullptr;
        main.SoundSoc.RemotePort = server.serverPort();
        main.SoundCardMenu.Click();
        if (!server.waitForNewConnection(1000)) return;
        socket.reset(server.nextPendingConnection());
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    }
    /// One frame in, one frame out. @return milliseconds
    double Turn(const std::string& frame)
    {
        QByteArray answer;
        QElapsedTimer clock;
        clock.start();
        socket->write(frame.data(), static_cast<qint64>(frame.size()));
        socket->flush();
        while (answer.count(FrameEnd) < 2 && clock.elapsed() < Unanswered) {
            QCoreApplication::processEvents();
            answer += socket->readAll();
        }
        return static_cast<double>(clock.nsecsElapsed()) / 1e6;
    }
    QTcpServer server;
    test::Station station;
    MainForm& main = station.halvern.ConMdiFrm;
    QtSocketDevice real{main.SoundSoc};
    std::unique_ptr<QTcpSocket> socket;
};

void Turns(benchmark::State& state, const std::string& path, const std::string& info)
{
    FarEnd end;
    if (!end.socket) return state.SkipWithError("the station did not connect");
    auto& raw = end.station.halvern.TerminalFrm.RawPacketLst;
    std::vector<double> turns;
    for (auto _ : state) {
        const auto number = std::to_string(1000 + turns.size() % 1000);
        turns.push_back(end.Turn(test::FrameOf("Q" + number + ">APRS" + path + ":" + info + number)));
        if (turns.back() >= Unanswered) return state.SkipWithError("a frame without an answer");
        state.SetIterationTime(turns.back() / 1e3);
        if (raw.Count() >= MostRaw) raw.Clear();
    }
    std::ranges::sort(turns);
    const auto percentile = [&](std::size_t percent) { return turns[(turns.size() - 1) * percent / 100]; };
    state.counters["p50"] = percentile(50);
    state.counters["p99"] = percentile(99);
    state.counters["most"] = turns.back();
}
BENCHMARK_CAPTURE(Turns, digipeated, ",Q0OWN,WIDE2-1", "!4903.50N/07201.75W>088/036 on the road ")
    ->UseManualTime()
    ->Iterations(20000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Turns, acked, ",WIDE2-1*", ":Q0OWN    :hello{")
    ->UseManualTime()
    ->Iterations(20000)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace halvern

int main(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
