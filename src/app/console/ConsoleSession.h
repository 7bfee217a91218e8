// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/simulated/Devices.h"
#include "platform/simulated/NotedDialogs.h"
#include "platform/simulated/NotedDrawing.h"
#include "platform/simulated/Time.h"
#include "state/Halvern.h"

namespace halvern {

/// What a console needs around its station. What is simulated is named; a live station has neither.
struct ConsoleWorld {
    Halvern& halvern;
    NotedDialogs& dialogs;
    NotedDrawing& map;
    NotedDrawing& picture;
    SimulatedTime* time = nullptr;
    SimulatedPorts* ports = nullptr;
    /// Takes one line of answer, without its end.
    std::function<void(const std::string& line)> Print;
    /// Waits for the next line, and lets events run meanwhile. @return nothing at the end of the input, or as soon as
    /// `stop` is true
    std::function<std::optional<std::string>(const std::function<bool()>& stop)> NextLine;
    /// Lets real time pass; not asked where time is simulated.
    std::function<void(std::int64_t milliseconds)> PassTime;
    /// Saves a picture of a window; nothing is connected where there are no windows. @return what went wrong, or an
    /// empty text
    std::function<std::string(Form& form, const std::string& file)> SavePicture;
};

/// A station driven by lines of text: every line names a control, a port or a timer, and does to it what an operator,
/// or the world outside, would do.
class ConsoleSession {
public:
    /// Takes over the dialogs of this world: what the station says becomes lines, and questions ask for lines.
    explicit ConsoleSession(ConsoleWorld world);
    ConsoleSession(const ConsoleSession&) = delete;
    ConsoleSession& operator=(const ConsoleSession&) = delete;

    /// Brings the station up, carries out line after line, and closes the main window at their end.
    /// @return the exit status: 1 if any line could not be carried out
    int Run();
    /// Carries out lines until there are none, the station has ended, or `stop` says so. @return the status so far
    int CarryOutLines(const std::function<bool()>& stop);

    // for the commands
    /// What is outside of the station: time, ports, drawing.
    ConsoleWorld& World() { return world; }
    void Print(const std::string& line) const { world.Print(line); }
    /// Lets simulated time pass, all that falls due in it in order.
    void LetTimePass(std::int64_t milliseconds);
    /// The control that a name means. A name without a form is one of the main window, or the only one of that name.
    /// @throws ConsoleError where there is none
    Control& Named(const std::string& name) const;

private:
    void CarryOut(const std::string& line);
    void Error(const std::string& what);
    std::optional<std::string> NextLine(const std::function<bool()>& stop);
    /// Queues the answer in the next line, if that is one; any other line waits for its turn.
    void ReadAnswer();
    bool Ended() const { return world.halvern.Engine.Ended; }

    ConsoleWorld world;
    std::optional<std::string> held; ///< a line that was read too early
    int status = 0;
};

} // namespace halvern
