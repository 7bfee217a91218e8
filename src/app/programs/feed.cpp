// SPDX-License-Identifier: GPL-3.0-or-later
// halvern-feed: a small packet server on this machine, for demonstrations and tests. It plays a file of packet lines to
// whoever logs in, and hands on to the others what each of them sends.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "platform/EndMark.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/Version.h"
#include "protocol/Passcode.h"

namespace halvern {
namespace {

constexpr const char* ServerName = "HALVERN-FEED";
/// How often lines that are due go out, in ms: often enough to look even, seldom enough to cost nothing.
constexpr int BeatMs = 20;
/// The file waits for a client that is so many bytes behind; what comes from others meanwhile is lost to it.
constexpr qint64 MostUnread = 1 << 20;

struct Options {
    quint16 port = 0;
    double rate = 10; ///< lines a second to each client; 0: as fast as they are read
    bool loop = false;
    bool checkLogin = false;
    std::string file;
};

void Say(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

std::string_view WithoutEnd(std::string_view line)
{
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
    return line;
}

/// "user CALL pass CODE vers ..." in its parts; an empty call is no login.
struct Login {
    std::string call, code;
    bool Verified() const { return !call.empty() && code == APRSPasscode(call.substr(0, call.find('-'))); }
};

Login LoginOf(std::string_view line)
{
    Login login;
    std::vector<std::string> words;
    for (auto& word : SplitAt(line, ' '))
        if (!word.empty()) words.push_back(std::move(word));
    for (std::size_t i = 0; i + 1 < words.size(); i += 2) {
        const auto key = LowerCase(words[i]);
        if (i == 0 && key != "user") return {};
        if (key == "user") login.call = UpperCase(words[i + 1]);
        if (key == "pass") login.code = words[i + 1];
    }
    return login;
}

/// One connection: what it has said of itself, and how far the file has been played to it.
struct Client {
    std::unique_ptr<QTcpSocket> socket;
    EndMarkCutter lines{TextLines};
    std::string name;
    bool loggedIn = false, verified = false;
    QElapsedTimer clock;    ///< since the login
    std::size_t played = 0; ///< lines of the file, over all its rounds
    bool told = false;      ///< that the file is at its end
    bool behind = false;    ///< it has not read what was sent
};

class Feed {
public:
    Feed(Options chosen, std::string packets) : options(std::move(chosen)), file(std::move(packets))
    {
        for (const auto line : LinesOf(file))
            if (!line.empty() && line.front() != '#') script.push_back(line);
        QObject::connect(&server, &QTcpServer::newConnection, [this] { Welcome(); });
        QObject::connect(&beat, &QTimer::timeout, [this] { PlayWhatIsDue(); });
        beat.setTimerType(Qt::PreciseTimer);
        beat.start(BeatMs);
    }

    bool Listen()
    {
        if (!server.listen(QHostAddress::LocalHost, options.port)) return false;
        Say("playing " + std::to_string(script.size()) + " lines");
        Say("listening on 127.0.0.1:" + std::to_string(server.serverPort()));
        return true;
    }
    QString Error() const { return server.errorString(); }

private:
    static void Send(Client& client, std::string_view line)
    {
        if (!client.socket->isOpen()) return; // it is gone, and about to be forgotten
        const bool behind = client.socket->bytesToWrite() >= MostUnread;
        if (behind && !client.behind) Say(client.name + " does not read: what comes for it is lost");
        client.behind = behind;
        if (behind) return;
        client.socket->write(line.data(), static_cast<qint64>(line.size()));
        client.socket->write("\r\n", 2);
    }

    void Welcome()
    {
        while (auto* socket = server.nextPendingConnection()) {
            auto& client = *clients.emplace_back(std::make_unique<Client>());
            client.socket.reset(socket);
            socket->setParent(nullptr);
            client.name = "client " + std::to_string(++welcomed);
            QObject::connect(socket, &QTcpSocket::readyRead, [this, &client] {
                const auto bytes = client.socket->readAll();
                client.lines.Take({bytes.constData(), static_cast<std::size_t>(bytes.size())});
                while (const auto line = client.lines.Next()) Hear(client, WithoutEnd(*line));
            });
            QObject::connect(
                socket, &QTcpSocket::disconnected, socket, [this, &client] { Forget(client); }, Qt::QueuedConnection);
            Say(client.name + " connected");
            Send(client, std::string("# ") + ServerName);
        }
    }

    void Forget(const Client& client)
    {
        Say(client.name + " gone");
        std::erase_if(clients, [&](const auto& entry) { return entry.get() == &client; });
    }

    void Hear(Client& client, std::string_view line)
    {
        if (line.empty() || line.front() == '#') return;
        if (!client.loggedIn) return LogIn(client, line);
        Say(client.name + ": " + std::string(line));
        if (options.checkLogin && !client.verified) return;
        for (const auto& other : clients)
            if (other.get() != &client && other->loggedIn) Send(*other, line);
    }

    void LogIn(Client& client, std::string_view line)
    {
        const auto login = LoginOf(line);
        if (login.call.empty()) {
            Send(client, "# invalid login");
            Say(client.name + " invalid login: " + std::string(line));
            return;
        }
        client.loggedIn = true;
        client.verified = login.Verified();
        const std::string word = client.verified ? "verified" : "unverified";
        Send(client, "# logresp " + login.call + " " + word + ", server " + ServerName);
        Say(client.name + " is " + login.call + ", " + word);
        client.name = login.call;
        client.clock.start();
    }

    void PlayWhatIsDue()
    {
        for (const auto& client : clients)
            if (client->loggedIn && !script.empty()) PlayTo(*client);
    }

    void PlayTo(Client& client)
    {
        const auto due =
            options.rate > 0 ? std::floor(static_cast<double>(client.clock.elapsed()) * options.rate / 1000) : HUGE_VAL;
        while (static_cast<double>(client.played) < due && client.socket->bytesToWrite() < MostUnread) {
            if (!options.loop && client.played == script.size()) {
                if (!client.told) Say(client.name + " has heard all " + std::to_string(client.played) + " lines");
                client.told = true;
                return;
            }
            Send(client, script[client.played++ % script.size()]);
            if (client.played % script.size() == 0 && options.rate <= 0) return; // other clients have their turn
        }
    }

    Options options;
    std::string file;
    std::vector<std::string_view> script;
    QTcpServer server;
    QTimer beat;
    std::vector<std::unique_ptr<Client>> clients;
    int welcomed = 0;
};

Options ReadOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("A packet server on this machine: plays a file of packet lines to every client "
                                     "that logs in,\nand hands on what each client sends to the others.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({"port", "TCP port on 127.0.0.1; 0 for any free one.", "number", "14580"});
    parser.addOption({"rate", "Lines a second; 0 for as fast as they are read.", "lines", "10"});
    parser.addOption({"loop", "Play the file again and again."});
    parser.addOption({"once", "Play the file once (the default)."});
    parser.addOption({"check-login", "Hand on only what clients with the right passcode send."});
    parser.addPositionalArgument("FILE", "The packet lines to play; without it nothing is played.", "[FILE]");
    parser.process(application);
    Options options;
    bool goodPort = false, goodRate = false;
    options.port = parser.value("port").toUShort(&goodPort);
    options.rate = parser.value("rate").toDouble(&goodRate);
    if (!goodPort || !goodRate || options.rate < 0 || parser.positionalArguments().size() > 1) parser.showHelp(2);
    options.loop = parser.isSet("loop");
    options.checkLogin = parser.isSet("check-login");
    options.file = parser.positionalArguments().value(0).toStdString();
    return options;
}

int RunFeed(const Options& options)
{
    std::string packets;
    if (!options.file.empty()) {
        auto bytes = DiskFiles().Read(options.file);
        if (!bytes) {
            std::fprintf(stderr, "halvern-feed: can't read %s\n", options.file.c_str());
            return 1;
        }
        packets = std::move(*bytes);
    }
    Feed feed(options, std::move(packets));
    if (!feed.Listen()) {
        std::fprintf(stderr, "halvern-feed: can't listen on port %d: %s\n", options.port, qPrintable(feed.Error()));
        return 1;
    }
    return QCoreApplication::exec();
}

} // namespace
} // namespace halvern

int main(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    QCoreApplication::setApplicationVersion(QString::fromStdString(halvern::ProgramVersion()));
    return halvern::RunFeed(halvern::ReadOptions(application));
}
