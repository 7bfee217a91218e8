// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/ConsoleCommands.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "app/StartUp.h"
#include "app/console/ConsoleEval.h"
#include "engine/ProcessPacket.h"
#include "history/LogFiles.h"
#include "history/PlayFile.h"
#include "map/MapMouse.h"
#include "platform/ConsoleText.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// A control as its operator typed it, which is how the answer names it.
template <class Kind> struct Named {
    std::string name;
    Kind& control;
};

template <class Kind> Kind* As(Control& control)
{
    return dynamic_cast<Kind*>(&control);
}

/// The next word as the name of a control of one kind. @param kind  what the error calls that kind
template <class Kind> Named<Kind> NextNamed(ConsoleSession& session, ConsoleLine& line, const char* kind)
{
    const auto name = line.Word("a name");
    auto* control = As<Kind>(session.Named(name));
    if (control == nullptr) throw ConsoleError(name + " is no " + kind);
    return {name, *control};
}

void Require(bool good, const std::string& otherwise)
{
    if (!good) throw ConsoleError(otherwise);
}

std::string Pair(double first, double second)
{
    return ConsoleNumber(first) + "," + ConsoleNumber(second);
}

// --- time and the world outside --------------------------------------------------------------------------------------

void Now(ConsoleSession& session, ConsoleLine& line)
{
    const auto text = line.Text("a time");
    line.End();
    Require(session.World().time != nullptr, "the clock is not simulated");
    Moment moment;
    int length = 0;
    const int read = std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d:%2d%n", &moment.year, &moment.month, &moment.day,
                                 &moment.hour, &moment.minute, &moment.second, &length);
    const bool whole = read == 6 && text.size() == 19 && length == 19;
    Require(whole && MomentOf(SecondsOf(moment)) == moment, ConsoleQuoted(text) + " is no time");
    session.World().time->SetUtc(moment);
}

void Wait(ConsoleSession& session, ConsoleLine& line)
{
    const int milliseconds = line.Whole("a number of milliseconds");
    line.End();
    Require(milliseconds >= 0, "time runs forwards only");
    session.LetTimePass(milliseconds);
}

void Packet(ConsoleSession& session, ConsoleLine& line)
{
    const auto tag = line.Word("a source tag");
    auto packet = line.Text("a line");
    line.End();
    ProcessPacket(session.World().halvern, packet, tag);
}

void Replay(ConsoleSession& session, ConsoleLine& line)
{
    const auto tag = line.Word("a source tag");
    const auto file = line.Text("a file");
    line.End();
    auto& halvern = session.World().halvern;
    std::string trouble;
    const auto lines = halvern.Outside.files.OpenForInput(file, trouble);
    Require(lines != nullptr, "can't read " + ConsoleQuoted(file));
    const auto start = std::chrono::steady_clock::now();
    const auto played = PlayFile(halvern, *lines, {.tag = tag});
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    session.Print("replayed " + std::to_string(played.lines) + " lines in " + ConsoleNumber(took.count()) + " s");
    TellCutShort(halvern, "recorded", played.trouble);
}

/// The next word as the name of a port with a simulated device behind it.
Named<Port> NextPort(ConsoleSession& session, ConsoleLine& line)
{
    auto port = NextNamed<Port>(session, line, "port");
    Require(session.World().ports != nullptr, port.name + " is not simulated");
    return port;
}

void Receive(ConsoleSession& session, ConsoleLine& line)
{
    const auto port = NextPort(session, line);
    const auto bytes = line.Text("what is received");
    line.End();
    Require(session.World().ports->Line(port.control)->UpNow(), port.name + " is not open");
    port.control.Arrived(bytes);
}

void Sent(ConsoleSession& session, ConsoleLine& line)
{
    const auto port = NextPort(session, line);
    line.End();
    for (const auto& bytes : session.World().ports->Line(port.control)->TakeSent())
        session.Print(port.name + " " + ConsoleQuoted(bytes));
}

void Refuse(ConsoleSession& session, ConsoleLine& line)
{
    const auto port = NextPort(session, line);
    const int number = line.Whole("an error number");
    auto text = line.Text("an error text");
    line.End();
    session.World().ports->Line(port.control)->Refuse(number, std::move(text));
}

void HangUp(ConsoleSession& session, ConsoleLine& line)
{
    const auto port = NextPort(session, line);
    line.End();
    auto* socket = session.World().ports->SocketOf(port.control);
    Require(socket != nullptr, port.name + " is no socket");
    Require(socket->Connected(), port.name + " is not open");
    socket->HangUp();
}

// --- the operator's hands --------------------------------------------------------------------------------------------

/// Empties a field and types into it, key by key.
template <class Field> void Type(Field& field, const std::string& text)
{
    field.SetText("");
    for (const char key : text) field.Press(static_cast<unsigned char>(key));
    field.Leave();
}

void SetNumber(NumberLabel& label, const std::string& text)
{
    const int number = WholeNumber(text);
    Require(number >= label.least && number <= label.most,
            ConsoleQuoted(text) + " is not from " + std::to_string(label.least) + " to " + std::to_string(label.most));
    label.SetNumber(number);
}

void SetList(List& list, const std::string& name, const std::string& text)
{
    const int row = list.IndexOf(text);
    if (row == NotFound && list.style == ListStyle::TypedCombo) return Type(list, text);
    Require(row != NotFound, name + " has no row " + ConsoleQuoted(text));
    list.Click(row);
    list.Leave();
}

void Set(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, control] = NextNamed<Control>(session, line, "control");
    const auto text = line.Text("a text");
    line.End();
    if (auto* field = As<TextField>(control)) {
        field->Enter();
        Type(*field, text);
    } else if (auto* label = As<NumberLabel>(control)) {
        SetNumber(*label, text);
    } else if (auto* list = As<List>(control)) {
        SetList(*list, name, text);
    } else if (auto* gauge = As<Gauge>(control)) {
        gauge->SetValue(WholeNumber(text));
    } else {
        throw ConsoleError(name + " takes no text");
    }
}

void Key(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, control] = NextNamed<Control>(session, line, "control");
    const int code = line.Whole("a character code");
    line.End();
    Require(code > 0 && code <= 255, std::to_string(code) + " is no character code");
    if (auto* field = As<TextField>(control))
        field->Press(code);
    else if (auto* list = As<List>(control))
        list->Press(code);
    else
        throw ConsoleError(name + " takes no keys");
}

void Select(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, control] = NextNamed<Control>(session, line, "control");
    const int index = line.Whole("an index");
    line.End();
    const auto outside = name + " has no entry " + std::to_string(index);
    if (auto* list = As<List>(control)) {
        Require(index >= -1 && index < list->Count(), outside);
        list->Click(index);
    } else if (auto* choice = As<Choice>(control)) {
        Require(index >= 0 && index < choice->Count(), outside);
        choice->Select(index);
    } else {
        throw ConsoleError(name + " has nothing to select");
    }
}

void Mark(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, list] = NextNamed<List>(session, line, "list");
    Require(list.style == ListStyle::MultiRows, name + " marks one row only");
    std::vector<int> rows;
    while (line.More()) {
        rows.push_back(line.Whole("an index"));
        Require(rows.back() >= 0 && rows.back() < list.Count(), name + " has no entry " + std::to_string(rows.back()));
    }
    list.ClearMarks();
    for (const int row : rows) list.Mark(row, true);
}

void Click(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, button] = NextNamed<Button>(session, line, "button");
    line.End();
    Require(button.Enabled(), name + " is disabled");
    Require(button.Visible(), name + " is hidden");
    button.Click();
}

void Close(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, form] = NextNamed<Form>(session, line, "form");
    line.End();
    Require(form.Visible(), name + " is not up");
    form.PressCloseBox();
}

void Answer(ConsoleSession& session, ConsoleLine& line)
{
    const bool word = !line.TextFollows();
    auto answer = line.Any("an answer");
    line.End();
    Require(!word || answer == "yes" || answer == "no" || answer == "cancel", ConsoleQuoted(answer) + " is no answer");
    session.World().dialogs.Answers.push_back({std::move(answer), word});
}

enum class Gesture { Down, Move, Up };

Gesture NextGesture(ConsoleLine& line)
{
    const auto word = line.Word("down, move or up");
    if (word == "down") return Gesture::Down;
    if (word == "up") return Gesture::Up;
    Require(word == "move", ConsoleQuoted(word) + " is neither down, move nor up");
    return Gesture::Move;
}

/// The button at the end of a line; a move has none.
MouseButton NextButton(ConsoleLine& line, Gesture gesture)
{
    const auto word = gesture == Gesture::Move ? "left" : line.Word("left or right");
    line.End();
    if (word == "left") return MouseButton::Left;
    Require(word == "right", ConsoleQuoted(word) + " is neither left nor right");
    return MouseButton::Right;
}

void Mouse(ConsoleSession& session, ConsoleLine& line)
{
    const auto gesture = NextGesture(line);
    const double x = line.Number("a longitude");
    const double y = line.Number("a latitude");
    const auto button = NextButton(line, gesture);
    const auto& map = session.World().halvern.MapFrm.Map1;
    if (gesture == Gesture::Down) Fire(map.OnMouseDown, button, x, y);
    if (gesture == Gesture::Move) Fire(map.OnMouseMove, x, y);
    if (gesture == Gesture::Up) Fire(map.OnMouseUp, button, x, y);
}

/// The next word as the index of a station on the map.
int NextStation(ConsoleSession& session, ConsoleLine& line)
{
    const int index = line.Whole("an index");
    const auto& halvern = session.World().halvern;
    const bool plotted = index >= 0 && index < static_cast<int>(halvern.Map.StationPlot.size());
    Require(plotted && halvern.MapFrm.SymPic.Exists(index) && halvern.MapFrm.SymLbl.Exists(index),
            "there is no station " + std::to_string(index) + " on the map");
    return index;
}

void Symbol(ConsoleSession& session, ConsoleLine& line)
{
    const auto gesture = NextGesture(line);
    const int index = NextStation(session, line);
    const auto button = NextButton(line, gesture);
    auto& halvern = session.World().halvern;
    if (gesture == Gesture::Down) SymbolMouseDown(halvern, index, button);
    if (gesture == Gesture::Move) SymbolMouseMove(halvern, index);
    if (gesture == Gesture::Up) SymbolMouseUp(halvern, index, button);
}

// --- looking ---------------------------------------------------------------------------------------------------------

void Get(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, control] = NextNamed<Control>(session, line, "control");
    line.End();
    auto answer = name;
    for (const auto& property : control.Describe()) {
        answer += " " + std::string(property.name) + "=";
        answer += property.quoted ? ConsoleQuoted(property.value) : property.value;
    }
    session.Print(answer);
}

void PrintGrid(const ConsoleSession& session, const std::string& name, const Grid& grid)
{
    session.Print(name + " rows=" + std::to_string(grid.Rows()) + " cols=" + std::to_string(grid.Cols()));
    for (int row = 0; row < grid.Rows(); ++row)
        for (int column = 0; column < grid.Cols(); ++column)
            session.Print(name + "[" + std::to_string(row) + "," + std::to_string(column) + "] " +
                          ConsoleQuoted(grid.Cell(row, column)));
}

void PrintRows(const ConsoleSession& session, const std::string& name, int count,
               const std::function<std::string(int)>& row)
{
    session.Print(name + " count=" + std::to_string(count));
    for (int i = 0; i < count; ++i) session.Print(name + "[" + std::to_string(i) + "] " + ConsoleQuoted(row(i)));
}

void Rows(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, control] = NextNamed<Control>(session, line, "control");
    line.End();
    if (const auto* grid = As<Grid>(control))
        PrintGrid(session, name, *grid);
    else if (const auto* list = As<List>(control))
        PrintRows(session, name, list->Count(), [list](int row) { return list->Row(row); });
    else if (const auto* choice = As<Choice>(control))
        PrintRows(session, name, choice->Count(), [choice](int row) { return choice->Entry(row); });
    else
        throw ConsoleError(name + " has no rows");
}

void View(ConsoleSession& session, ConsoleLine& line)
{
    line.End();
    const auto& map = session.World().halvern.Map;
    session.Print("view range=" + ConsoleNumber(map.MapRange) + " center=" + Pair(map.MapCenterLat, map.MapCenterLon) +
                  " top=" + ConsoleNumber(map.MapTopLat) + " bottom=" + ConsoleNumber(map.MapBottomLat) +
                  " left=" + ConsoleNumber(map.MapLeftLon) + " right=" + ConsoleNumber(map.MapRightLon) +
                  " prevrange=" + ConsoleNumber(map.PrevRange) +
                  " prevcenter=" + Pair(map.PrevCenterLat, map.PrevCenterLon));
}

void Plot(ConsoleSession& session, ConsoleLine& line)
{
    const int index = NextStation(session, line);
    line.End();
    const auto& halvern = session.World().halvern;
    const auto& station = halvern.Map.StationPlot[index];
    const auto& picture = halvern.MapFrm.SymPic(index);
    const auto& label = halvern.MapFrm.SymLbl(index);
    session.Print("plot " + std::to_string(index) + " lat=" + ConsoleNumber(station.Lat) +
                  " lon=" + ConsoleNumber(station.Lon) + " colour=" + std::to_string(station.Color) +
                  " caption=" + ConsoleQuoted(station.Caption) + " shown=" + (station.Shown ? "yes" : "no") +
                  " file=" + ConsoleQuoted(RelativeToProgram(halvern, station.SymFile)) +
                  " pic=" + Pair(picture.left, picture.top) + " label=" + Pair(label.left, label.top));
}

void Drawn(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, surface] = NextNamed<Surface>(session, line, "surface");
    line.End();
    auto& world = session.World();
    const bool map = &surface == &world.halvern.MapFrm.Map1;
    Require(map || &surface == &world.halvern.MapFrm.Pic1, "what is drawn on " + name + " is not noted");
    for (auto& step : (map ? world.map : world.picture).Take()) {
        step.file = RelativeToProgram(world.halvern, step.file);
        session.Print(name + " " + NotedDrawing::Text(step));
    }
}

void Eval(ConsoleSession& session, ConsoleLine& line)
{
    const auto function = line.Word("a function");
    std::vector<std::string> arguments;
    while (line.More()) arguments.push_back(line.Any("an argument"));
    session.Print(Evaluate(session.World().halvern, function, arguments));
}

void Echo(ConsoleSession& session, ConsoleLine& line)
{
    const auto text = line.Text("a text");
    line.End();
    session.Print("echo " + ConsoleQuoted(text));
}

void Picture(ConsoleSession& session, ConsoleLine& line)
{
    const auto [name, form] = NextNamed<Form>(session, line, "form");
    const auto file = line.Text("a file");
    line.End();
    Require(static_cast<bool>(session.World().SavePicture), "there are no windows");
    const auto wrong = session.World().SavePicture(form, file);
    Require(wrong.empty(), wrong);
}

void Quit(ConsoleSession& session, ConsoleLine& line)
{
    line.End();
    EndProgram(session.World().halvern);
}

struct Command {
    std::string_view word;
    void (*carryOut)(ConsoleSession&, ConsoleLine&);
};

constexpr Command Commands[] = {
    {"now", Now},         {"wait", Wait},     {"packet", Packet}, {"replay", Replay}, {"set", Set},
    {"key", Key},         {"select", Select}, {"mark", Mark},     {"click", Click},   {"close", Close},
    {"receive", Receive}, {"sent", Sent},     {"refuse", Refuse}, {"hangup", HangUp}, {"answer", Answer},
    {"mouse", Mouse},     {"symbol", Symbol}, {"get", Get},       {"rows", Rows},     {"view", View},
    {"plot", Plot},       {"drawn", Drawn},   {"eval", Eval},     {"echo", Echo},     {"picture", Picture},
    {"quit", Quit},
};

} // namespace

void CarryOutCommand(ConsoleSession& session, ConsoleLine& line)
{
    const auto word = line.Word("a command");
    const auto command = std::ranges::find(Commands, word, &Command::word);
    if (command == std::end(Commands)) throw ConsoleError("there is no command " + ConsoleQuoted(word));
    command->carryOut(session, line);
}

} // namespace halvern
