// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

namespace halvern {

/// One control's words: the label beside it (with its mnemonic), and what it is for.
struct WordEntry {
    std::string_view name;
    const char* label;
    const char* tip;
};

/// The words on the controls: main window, Setup, dialogs.
std::span<const WordEntry> MainWords();
std::span<const WordEntry> SetUpWords();
std::span<const WordEntry> DialogWords();

} // namespace halvern
