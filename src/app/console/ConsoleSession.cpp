// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/ConsoleSession.h"

#include <utility>

#include "app/StartUp.h"
#include "app/console/ConsoleCommands.h"
#include "app/console/ConsoleLine.h"

namespace halvern {

ConsoleSession::ConsoleSession(ConsoleWorld outside) : world(std::move(outside))
{
    world.dialogs.Say = [this](const std::string& line) { Print(line); };
    world.dialogs.AskForAnswer = [this] { ReadAnswer(); };
    world.dialogs.RunModal = [this](Form& form) { CarryOutLines([&form] { return !form.Visible(); }); };
    world.dialogs.PassTime = [this](int milliseconds) { LetTimePass(milliseconds); };
}

int ConsoleSession::Run()
{
    auto& all = world.halvern.All;
    all.Dispatch([this] { StartProgram(world.halvern); });
    CarryOutLines([] { return false; });
    if (!Ended()) all.Dispatch([this] { EndProgram(world.halvern); });
    return status;
}

int ConsoleSession::CarryOutLines(const std::function<bool()>& stop)
{
    const auto done = [&] { return Ended() || stop(); };
    while (!done()) {
        const auto line = NextLine(done);
        if (!line) break;
        world.halvern.All.Dispatch([&] { CarryOut(*line); });
    }
    return status;
}

void ConsoleSession::CarryOut(const std::string& text)
{
    try {
        ConsoleLine line(text);
        if (!line.Empty()) CarryOutCommand(*this, line);
    } catch (const ConsoleError& error) {
        Error(error.what());
    }
}

void ConsoleSession::Error(const std::string& what)
{
    Print("error: " + what);
    status = 1;
}

std::optional<std::string> ConsoleSession::NextLine(const std::function<bool()>& stop)
{
    if (held) return std::exchange(held, std::nullopt);
    return world.NextLine(stop);
}

void ConsoleSession::ReadAnswer()
{
    while (auto next = NextLine([this] { return Ended(); })) {
        try {
            ConsoleLine line(*next);
            if (line.Empty()) continue;
            if (line.Any("a command") == "answer")
                CarryOut(*next);
            else
                held = std::move(next);
            return;
        } catch (const ConsoleError& error) {
            return Error(error.what());
        }
    }
}

void ConsoleSession::LetTimePass(std::int64_t milliseconds)
{
    if (world.time != nullptr)
        world.time->Wait(milliseconds);
    else if (world.PassTime)
        world.PassTime(milliseconds);
}

Control& ConsoleSession::Named(const std::string& name) const
{
    const auto& all = world.halvern.All;
    if (auto* control = all.Find(name)) return *control;
    if (auto* control = all.Find("ConMdiFrm." + name)) return *control;
    Control* found = nullptr;
    for (auto* control : all.All()) {
        if (!control->Name().ends_with("." + name)) continue;
        if (found != nullptr) throw ConsoleError("more than one form has " + name);
        found = control;
    }
    if (found == nullptr) throw ConsoleError("there is no " + name);
    return *found;
}

} // namespace halvern
