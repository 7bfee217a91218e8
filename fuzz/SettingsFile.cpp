// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a settings file, as an operator's editor or a dying disk may leave them: they are refused with the
// number of a line, or they go into the controls, and what is written from there reads back the same.
#include <cstdint>
#include <cstdlib>

#include "config/Fonts.h"
#include "config/IniTable.h"
#include "support/Station.h"

using namespace halvern;

namespace {

std::string Renewed(Halvern& halvern, std::string_view bytes)
{
    const auto table = SettingsTable(halvern);
    const auto values = ReadIni(table, bytes);
    ApplyIni(table, values, true);
    ApplyIni(table, values, false);
    return WriteIni(SettingsTable(halvern));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static test::Station* const station = [] {
        auto* made = new test::Station;
        made->halvern.SetUpfrm.Dir1.OnPath = made->halvern.SetUpfrm.File1.OnPath = nullptr; // no folder is looked into
        SetDesignFonts(made->halvern);
        return made;
    }();
    auto& halvern = station->halvern;
    std::string renewed;
    try {
        renewed = Renewed(halvern, {reinterpret_cast<const char*>(data), size});
    } catch (const IniFault& fault) {
        if (fault.Line() < 1) std::abort();
        return 0;
    }
    renewed = Renewed(halvern, renewed); // a text that was too long for its field is short now
    if (Renewed(halvern, renewed) != renewed) std::abort();
    return 0;
}
