// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/SymbolFile.h"

#include <algorithm>
#include <span>

#include "platform/Text.h"

namespace halvern {
namespace {

/// Codes from the first to the last.
struct CodeRange {
    int first, last;
};

constexpr CodeRange PrimaryCodes[] = {{33, 123}, {125, 125}};
constexpr CodeRange AlternateCodes[] = {{33, 34},   {36, 37},   {39, 47},   {49, 61},   {63, 64},
                                        {66, 86},   {88, 93},   {96, 96},   {98, 98},   {100, 104},
                                        {106, 108}, {111, 114}, {116, 116}, {119, 123}, {125, 125}};
/// The symbols that have room for an overlay character.
constexpr CodeRange OverlayCodes[] = {{35, 35}, {38, 38}, {48, 48},   {62, 62},   {65, 65},   {87, 87},   {94, 95},
                                      {97, 97}, {99, 99}, {105, 105}, {110, 110}, {115, 115}, {117, 118}, {122, 122}};

bool IsOverlay(int table)
{
    return (table >= '0' && table <= '9') || (table >= 'A' && table <= 'Z');
}

std::string FileOf(std::span<const CodeRange> codes, int symbol, const std::string& folder, const std::string& ending)
{
    const auto holds = [symbol](const CodeRange& range) { return symbol >= range.first && symbol <= range.last; };
    if (std::none_of(codes.begin(), codes.end(), holds)) return "NG";
    return folder + ZeroFilled(symbol, 3) + ending + ".GIF";
}

} // namespace

std::string SymbolFileName(const std::string& programFolder, int tableCode, int symbolCode)
{
    if (tableCode == '/') return FileOf(PrimaryCodes, symbolCode, programFolder + R"(\SYMBOLS\TABLE1\)", "");
    if (tableCode == '\\') return FileOf(AlternateCodes, symbolCode, programFolder + R"(\SYMBOLS\TABLE2\)", "");
    if (IsOverlay(tableCode))
        return FileOf(OverlayCodes, symbolCode, programFolder + R"(\SYMBOLS\TABLE2\)", "_" + std::to_string(tableCode));
    return {};
}

} // namespace halvern
