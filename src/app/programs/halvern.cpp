// SPDX-License-Identifier: GPL-3.0-or-later
// halvern: the desktop program.
#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>
#include <filesystem>

#include "app/Handlers.h"
#include "app/StartUp.h"
#include "forms/Windows.h"
#include "platform/ApplicationFolder.h"
#include "platform/Version.h"
#include "platform/qt/EndSignals.h"
#include "platform/qt/FolderLock.h"
#include "platform/qt/QtPlatform.h"
#include "platform/qt/screen/Pictures.h"
#include "platform/qt/screen/QtDialogs.h"
#include "state/Rows.h"

namespace fs = std::filesystem;

namespace halvern {
namespace {

struct Options {
    std::string directory;
    bool openInternet = false;
    int demoSeconds = 0;
    std::string pictures;
};

Options ReadOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("A station for packet reports on amateur radio.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({"open-internet", "Open the TCP/IP port after the start."});
    parser.addOption({"demo-seconds", "End after so many seconds, and say what came in.", "S", "0"});
    parser.addOption({"pictures", "At that end, save pictures of the main window and the map in a folder.", "FOLDER"});
    parser.addPositionalArgument("DIRECTORY", "The application directory.", "[DIRECTORY]");
    parser.process(application);
    const auto directories = parser.positionalArguments();
    if (directories.size() > 1) parser.showHelp(2);
    return {StationFolder(directories.value(0).toStdString()), parser.isSet("open-internet"),
            parser.value("demo-seconds").toInt(), parser.value("pictures").toStdString()};
}

void SavePictures(const Halvern& halvern, const Windows& windows, const std::string& folder)
{
    const std::pair<const Form*, const char*> pictures[] = {{&halvern.ConMdiFrm, "main-window.png"},
                                                            {&halvern.MapFrm, "map.png"}};
    for (const auto& [form, name] : pictures) {
        const auto file = (fs::path(folder) / name).string();
        const auto fault = windows.SavePicture(*form, file);
        std::printf("%s %s\n", fault.empty() ? "picture" : "no picture:", fault.empty() ? file.c_str() : fault.c_str());
    }
}

/// Ends a demonstration: what came in, how it looks, and the close box.
void EndDemonstration(Halvern& halvern, const Windows& windows, const std::string& pictures)
{
    std::printf("%d packets, %d stations\n", halvern.TerminalFrm.RawPacketLst.Count(),
                halvern.PositionFrm.PosLst.Count());
    if (!pictures.empty()) SavePictures(halvern, windows, pictures);
    std::fflush(stdout);
    windows.Main().close();
}

/// Says why the station ended without anybody's doing: its own last word, since its windows are gone.
void TellLastNotice(Halvern& halvern)
{
    const auto& notices = halvern.NoticesFrm.NoticeLst;
    if (notices.Count() > 0) halvern.Tell(Icon::Stop, std::string(noticeRow::Text(notices.Row(notices.Count() - 1))));
}

int RunStation(QApplication& application, const Options& options)
{
    SystemClock clock;
    QtDialogs dialogs;
    FolderLock lock(options.directory);
    if (const auto owner = lock.Take(); !owner.empty()) {
        dialogs.Message(Icon::Critical, owner, ProgramTitle);
        return 1;
    }
    DiskFiles files;
    Halvern halvern({clock, dialogs, files, ShownSize}, options.directory);
    bool endedByItself = false;
    const EndSignals ending([&] {
        const StationActs nobodyThere(halvern.All, "");
        halvern.All.Dispatch([&] { halvern.ConMdiFrm.EndApp.Click(); });
        endedByItself = false;
        QCoreApplication::exit();
    });
    QtPlatform platform(halvern.All, options.directory);
    ConnectHandlers(halvern);
    Windows windows(halvern, options.directory + "/view.ini");
    windows.Serve(dialogs);
    halvern.ConMdiFrm.Watch([&](const Change&) {
        if (!halvern.Engine.Ended) return;
        endedByItself = halvern.All.Present().station;
        QCoreApplication::exit(); // leaves the loop of any box that is up as well
    });
    StartProgram(halvern);
    if (halvern.Engine.Ended) return 0;
    if (options.openInternet)
        QTimer::singleShot(0, [&] { halvern.All.Dispatch([&] { halvern.ConMdiFrm.PortIp.Click(); }); });
    if (options.demoSeconds > 0)
        QTimer::singleShot(options.demoSeconds * 1000, [&] { EndDemonstration(halvern, windows, options.pictures); });
    const int status = application.exec();
    if (endedByItself) TellLastNotice(halvern);
    return status;
}

} // namespace
} // namespace halvern

int main(int count, char** arguments)
{
    QApplication application(count, arguments);
    QApplication::setApplicationName("halvern");
    QGuiApplication::setDesktopFileName("example.halvern.Halvern");
    QApplication::setApplicationVersion(QString::fromStdString(halvern::ProgramVersion()));
    return halvern::RunStation(application, halvern::ReadOptions(application));
}
