// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Sentence.h"

#include <array>
#include <optional>

#include "platform/Text.h"
#include "protocol/Fix.h"

namespace halvern {
namespace {

/// A symbol; both texts are empty where the SSID says nothing.
struct SymbolPair {
    std::string table, code;
};

/// Destination pairs in the order of the symbol codes that they stand for.
struct DestinationRow {
    std::string_view first, last; ///< the pairs' first letters are alike, the second ones run on
    char firstCode;
    char table;
};

constexpr std::array<DestinationRow, 14> Destinations{{{"BB", "BP", '!', '/'},
                                                       {"OB", "OP", '!', '\\'},
                                                       {"P0", "P9", '0', '/'},
                                                       {"A0", "A9", '0', '\\'},
                                                       {"MR", "MX", ':', '/'},
                                                       {"NR", "NX", ':', '\\'},
                                                       {"PA", "PZ", 'A', '/'},
                                                       {"AA", "AZ", 'A', '\\'},
                                                       {"HS", "HX", '[', '/'},
                                                       {"DS", "DX", '[', '\\'},
                                                       {"LA", "LZ", 'a', '/'},
                                                       {"SA", "SZ", 'a', '\\'},
                                                       {"J1", "J4", '{', '/'},
                                                       {"Q1", "Q4", '{', '\\'}}};

/// Pairs that trackers in the field send wrongly; a packet with one of them is dropped.
constexpr std::array<std::string_view, 3> NoPairs{"AP", "BC", "OC"};

/// Pairs whose table is the sixth and last character of the destination: symbols that take an overlay.
constexpr std::array<std::string_view, 13> OverlayPairs{"OD", "OG", "NV", "AA", "AW", "DV", "DW",
                                                        "SC", "SI", "SN", "SS", "SU", "SV"};

constexpr std::string_view SsidCodes = "aUfbYX's><OjRkv"; // SSID 1 to 15, table "/"

template <std::size_t Count> bool Contains(const std::array<std::string_view, Count>& pairs, std::string_view pair)
{
    for (const auto entry : pairs)
        if (entry == pair) return true;
    return false;
}

std::optional<SymbolPair> SymbolOfDestination(std::string_view dest)
{
    const auto pair = Columns(dest, 4, 2);
    if (pair.size() < 2 || Contains(NoPairs, pair)) return {};
    for (const auto& row : Destinations) {
        if (pair[0] != row.first[0] || pair[1] < row.first[1] || pair[1] > row.last[1]) continue;
        SymbolPair symbol{std::string(1, row.table),
                          std::string(1, static_cast<char>(row.firstCode + pair[1] - row.first[1]))};
        if (pair == "OM") symbol.table = "/"; // the wedge of that code is told by the first table's picture
        if (!Contains(OverlayPairs, pair)) return symbol;
        if (dest.size() != 6) return {};
        symbol.table = dest.back();
        return symbol;
    }
    return {};
}

std::optional<SymbolPair> SymbolOfSsid(std::string_view source)
{
    const auto dash = PositionOf(source, '-');
    if (dash == 0) return {};
    const double ssid = LeadingNumber(Columns(source, dash + 1));
    if (ssid < 1 || ssid > 15 || ssid != static_cast<int>(ssid)) return SymbolPair{};
    return SymbolPair{"/", std::string(1, SsidCodes[static_cast<std::size_t>(ssid) - 1])};
}

} // namespace

SentenceResult SentenceToReport(std::string_view source, std::string_view dest, std::string& info)
{
    if (ColumnAt(info, 2) != 'G') return SentenceResult::NotDecoded;
    const bool byDestination = dest.size() != 3 && dest.starts_with("GPS");
    const auto symbol = byDestination ? SymbolOfDestination(dest) : SymbolOfSsid(source);
    if (!symbol) return SentenceResult::Drop;
    if (!TellsFix(info)) return SentenceResult::NotDecoded;
    const auto fix = ReadFix(info);
    if (!fix) return SentenceResult::Drop;
    info = "$" + fix->latitude + symbol->table + fix->longitude + symbol->code + fix->motion;
    return SentenceResult::Position;
}

} // namespace halvern
