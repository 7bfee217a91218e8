// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Recorded.h"

#include <algorithm>
#include <variant>
#include <vector>

#include "platform/Text.h"

namespace halvern {
namespace {

enum class Use { Beacon, CancelOnly };

using Recorded = std::variant<TextField*, NumberLabel*, List*, FolderList*, Choice*, std::string*>;

struct RecordedValue {
    Recorded value;
    Use use;
};

/// In the order in which they go back: a drive before its folder, a folder before the file in it.
std::vector<RecordedValue> RecordedValues(SetUpForm& s)
{
    using enum Use;
    return {{&s.CallSignTxt, Beacon},
            {&s.SSIDLBL, Beacon},
            {&s.LatDegtxt, Beacon},
            {&s.LatMintxt, Beacon},
            {&s.LatDectxt, Beacon},
            {&s.LatSigntxt, Beacon},
            {&s.LonDegtxt, Beacon},
            {&s.LonMintxt, Beacon},
            {&s.LonDectxt, Beacon},
            {&s.LonSigntxt, Beacon},
            {&s.PortLst, Beacon},
            {&s.PortSpeedLst, Beacon},
            {&s.SymbolCombo, Beacon},
            {&s.OverlayChar, CancelOnly},
            {&s.CommentTXT, Beacon},
            {&s.StatusTXT, Beacon},
            {&s.UnPath, Beacon},
            {&s.DeadOnOpt, Beacon},
            {&s.AprsMode, Beacon},
            {&s.GpsOpt, Beacon},
            {&s.PhgPowerLst, Beacon},
            {&s.PhgHeightLst, Beacon},
            {&s.PhgGainLst, Beacon},
            {&s.PhgDirLst, Beacon},
            {&s.MyAliasOpt, Beacon},
            {&s.TncTypeCombo, CancelOnly},
            {&s.WXPortCombo, CancelOnly},
            {&s.WXBaudCombo, CancelOnly},
            {&s.IntDomainCombo, CancelOnly},
            {&s.APRServePortTxt, CancelOnly},
            {&s.APRServePassTxt, CancelOnly},
            {&s.APRServeFilterTxt, CancelOnly},
            {&s.IgateOpt, CancelOnly},
            {&s.IgateBIOpt, CancelOnly},
            {&s.WxSourceOpt, CancelOnly},
            {&s.WxSoftCombo, CancelOnly},
            {&s.Drive1, CancelOnly},
            {&s.Dir1, CancelOnly},
            {&s.File1, CancelOnly},
            {&s.TimeOpt, CancelOnly}};
}

// --- as texts, and back ----------------------------------------------------------------------------------------------

std::string TextOf(const TextField* field)
{
    return field->Text();
}
std::string TextOf(const NumberLabel* label)
{
    return label->Caption();
}
std::string TextOf(const List* list)
{
    return std::to_string(list->Selected()) + "\n" + list->Text();
}
std::string TextOf(const FolderList* list)
{
    return TextOf(static_cast<const List*>(list)) + "\n" + list->Path();
}
std::string TextOf(const Choice* choice)
{
    return std::to_string(choice->Selected());
}
std::string TextOf(const std::string* text)
{
    return *text;
}

void PutBack(TextField* field, const std::string& text)
{
    field->SetText(text);
}
void PutBack(NumberLabel* label, const std::string& text)
{
    label->SetCaption(text);
}
void PutBack(Choice* choice, const std::string& text)
{
    choice->Select(static_cast<int>(LeadingNumber(text)));
}
void PutBack(std::string* place, const std::string& text)
{
    *place = text;
}

/// Index and text. An index without its text means that the list has changed: the last entry stands for a lost one.
void PutBack(List* list, const std::string& text)
{
    const auto parts = SplitAt(text, '\n');
    const int index = static_cast<int>(LeadingNumber(parts[0]));
    if (index < 0 && list->style == ListStyle::TypedCombo) return list->SetText(parts[1]);
    list->Preselect(std::min(index, list->Count() - 1));
}

void PutBack(FolderList* list, const std::string& text)
{
    const auto parts = SplitAt(text, '\n');
    list->SetPath(parts[2]);
    PutBack(static_cast<List*>(list), text);
}

} // namespace

void RecordSetUp(SetUpForm& setUp)
{
    setUp.Recorded.clear();
    for (const auto& recorded : RecordedValues(setUp))
        setUp.Recorded.push_back(std::visit([](const auto* value) { return TextOf(value); }, recorded.value));
}

bool BeaconDataChanged(SetUpForm& setUp)
{
    std::size_t i = 0;
    bool changed = false;
    for (const auto& recorded : RecordedValues(setUp)) {
        if (i >= setUp.Recorded.size()) break;
        const auto now = std::visit([](const auto* value) { return TextOf(value); }, recorded.value);
        changed |= recorded.use == Use::Beacon && now != setUp.Recorded[i];
        ++i;
    }
    return changed;
}

void RestoreSetUp(SetUpForm& setUp)
{
    setUp.SettingUp = true;
    std::size_t i = 0;
    for (const auto& recorded : RecordedValues(setUp)) {
        if (i >= setUp.Recorded.size()) break;
        std::visit([&](auto* value) { PutBack(value, setUp.Recorded[i]); }, recorded.value);
        ++i;
    }
    setUp.SettingUp = false;
}

} // namespace halvern
