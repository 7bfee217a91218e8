// SPDX-License-Identifier: GPL-3.0-or-later
// halvern-console-windows: the console with the windows, which halvern-console becomes when it is asked for them.
#include <QApplication>

#include <filesystem>

#include "app/programs/QtConsole.h"
#include "forms/Windows.h"
#include "platform/qt/screen/Pictures.h"
#include "platform/qt/screen/QtDialogs.h"

namespace fs = std::filesystem;

namespace halvern {
namespace {

std::shared_ptr<Windows> Show(ConsoleStation& station)
{
    const auto looks = station.halvern.ProgramFolder + "/view.ini"; // a station's own are used; none are made here
    auto windows = std::make_shared<Windows>(station.halvern, fs::exists(looks) ? looks : "");
    auto* const shown = windows.get();
    station.dialogs.Screen = [shown](Surface& onto) { ShowImage(onto, shown->Main().grab().toImage()); };
    station.world.SavePicture = [shown](Form& form, const std::string& file) { return shown->SavePicture(form, file); };
    return windows;
}

} // namespace
} // namespace halvern

int main(int count, char** arguments)
{
    const auto options = halvern::ReadConsoleOptions({arguments, static_cast<std::size_t>(count)});
    if (options.end) return *options.end;
    const bool screen = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!screen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false); // the input says when it is over
    return halvern::RunInEventLoop(options, halvern::ShownSize, halvern::Show);
}
