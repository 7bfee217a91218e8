// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Fix.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"
#include "protocol/SplitSentence.h"

namespace halvern {
namespace {

/// Where a sentence has what is wanted of it.
struct SentenceForm {
    std::string_view name;
    std::int16_t fields;
    std::size_t latitude, longitude; ///< each followed by its side
    std::size_t fix;
    std::string_view noFix;
    std::size_t course, speed; ///< 0: it does not tell them
};

constexpr std::array<SentenceForm, 3> Forms{
    {{"$GPGGA", 15, 3, 5, 7, "0", 0, 0}, {"$GPGLL", 7, 2, 4, 7, "V", 0, 0}, {"$GPRMC", 12, 4, 6, 3, "V", 9, 8}}};

constexpr std::size_t LatitudeWidth = 7, LongitudeWidth = 8; // hundredths of a minute

const SentenceForm* FormOf(std::string_view sentence)
{
    const auto* const form = std::ranges::find(Forms, Columns(sentence, 1, 6), &SentenceForm::name);
    return form == Forms.end() ? nullptr : form;
}

bool HoldsControls(std::string_view text)
{
    return std::ranges::any_of(text, [](char character) { return character >= 0 && character < ' '; });
}

} // namespace

bool TellsFix(std::string_view sentence)
{
    return FormOf(sentence) != nullptr;
}

std::optional<Fix> ReadFix(std::string_view sentence)
{
    const auto* const form = FormOf(sentence);
    if (form == nullptr) return {};
    std::vector<std::string> field;
    std::int16_t count = form->fields;
    SplitSentence(sentence, field, count);
    if (count == -1 || field[form->fix] == form->noFix) return {};
    const auto latitude = field[form->latitude].substr(0, LatitudeWidth);
    const auto longitude = field[form->longitude].substr(0, LongitudeWidth);
    if (latitude.empty() || longitude.empty()) return {};
    return Fix{latitude + field[form->latitude + 1], longitude + field[form->longitude + 1],
               form->course == 0 ? "" : field[form->course] + "/" + field[form->speed]};
}

std::optional<Fix> FixInBlock(std::string_view block, std::string_view name)
{
    const auto start = block.find(name);
    if (start == std::string_view::npos) return {};
    const auto star = block.find('*', start);
    if (star == std::string_view::npos) return {};
    const auto fix = ReadFix("$" + std::string(block.substr(start, star + 1 - start)));
    return fix && !HoldsControls(fix->latitude + fix->longitude + fix->motion) ? fix : std::nullopt;
}

} // namespace halvern
