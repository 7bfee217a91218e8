// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/ConsoleEval.h"

#include <algorithm>
#include <limits>
#include <span>

#include "app/console/ConsoleLine.h"
#include "config/SetupRules.h"
#include "platform/ConsoleText.h"
#include "platform/Text.h"
#include "protocol/Ax25.h"
#include "protocol/DecodeMicE.h"
#include "protocol/Passcode.h"
#include "protocol/Paths.h"
#include "protocol/PositionText.h"
#include "protocol/SplitSentence.h"
#include "relay/Digipeater.h"
#include "view/SymbolFile.h"

namespace halvern {
namespace {

using Texts = std::vector<std::string>;

struct Function {
    std::string_view name;
    std::size_t arguments;
    std::string (*run)(Halvern& halvern, const Texts& arguments);
};

/// Several results, one behind the other.
std::string Quoted(std::span<const std::string> texts)
{
    std::string all;
    for (const auto& text : texts) all += (all.empty() ? "" : " ") + ConsoleQuoted(text);
    return all;
}

/// A count as the program has it, in 16 bits.
std::int16_t Count(const std::string& text)
{
    const int count = WholeNumber(text);
    if (count < 0 || count > std::numeric_limits<std::int16_t>::max()) throw ConsoleError(text + " is no count");
    return static_cast<std::int16_t>(count);
}

std::string EvalSplitSentence(Halvern&, const Texts& args)
{
    auto count = Count(args[1]);
    Texts fields;
    SplitSentence(args[0], fields, count);
    if (count <= 0) return ConsoleNumber(count);
    return ConsoleNumber(count) + " " + Quoted(std::span(fields).subspan(1));
}

std::string EvalDecodeMicE(Halvern&, const Texts& args)
{
    auto info = args[1];
    MicEFields fields;
    DecodeMicE(args[0], info, fields);
    return info == "PacketNoGood" ? ConsoleQuoted(info) : Quoted(std::span(fields).subspan(1));
}

std::string EvalDigiSubstitute(Halvern&, const Texts& args)
{
    auto path = args[0];
    auto count = Count(args[1]);
    DigiSubstitute(path, count, args[2], args[3]);
    return ConsoleQuoted(path) + " " + std::to_string(count);
}

const Function Functions[] = {
    {"LatTextToDegrees", 1, [](Halvern&, const Texts& args) { return ConsoleNumber(LatTextToDegrees(args[0])); }},
    {"LonTextToDegrees", 1, [](Halvern&, const Texts& args) { return ConsoleNumber(LonTextToDegrees(args[0])); }},
    {"SymbolFileName", 2,
     [](Halvern& halvern, const Texts& args) {
         const auto file = SymbolFileName(halvern.ProgramFolder, WholeNumber(args[0]), WholeNumber(args[1]));
         return ConsoleQuoted(RelativeToProgram(halvern, file));
     }},
    {"SplitSentence", 2, EvalSplitSentence},
    {"DecodeMicE", 2, EvalDecodeMicE},
    {"KissUnescape", 1,
     [](Halvern&, const Texts& args) {
         auto frame = args[0];
         KissUnescape(frame);
         return ConsoleQuoted(frame);
     }},
    {"KissFrameToText", 1,
     [](Halvern&, const Texts& args) {
         const auto frame = ReadFrame(args[0]);
         return ConsoleQuoted(frame ? TextOf(*frame) : "NG");
     }},
    {"DigiSubstitute", 4, EvalDigiSubstitute},
    {"PathHopCount", 1, [](Halvern&, const Texts& args) { return ConsoleNumber(PathHopCount(args[0])); }},
    {"CheckUnprotoPath", 1, [](Halvern&, const Texts& args) { return ConsoleQuoted(CheckUnprotoPath(args[0])); }},
    {"APRSPasscode", 1, [](Halvern&, const Texts& args) { return ConsoleQuoted(APRSPasscode(args[0])); }},
    {"ValidatePositionField", 2,
     [](Halvern& halvern, const Texts& args) {
         return ConsoleQuoted(ValidatePositionField(halvern, args[0], args[1]));
     }},
};

} // namespace

std::string Evaluate(Halvern& halvern, const std::string& name, const Texts& arguments)
{
    const auto function = std::ranges::find(Functions, name, &Function::name);
    if (function == std::end(Functions)) throw ConsoleError("there is no function " + name);
    if (function->arguments != arguments.size())
        throw ConsoleError(name + " takes " + std::to_string(function->arguments) + " arguments");
    return name + " " + function->run(halvern, arguments);
}

std::string RelativeToProgram(const Halvern& halvern, const std::string& file)
{
    auto path = file;
    if (path.starts_with(halvern.ProgramFolder)) path.erase(0, halvern.ProgramFolder.size());
    std::ranges::replace(path, '\\', '/');
    if (path.size() != file.size() && path.starts_with('/')) path.erase(0, 1);
    return path;
}

} // namespace halvern
