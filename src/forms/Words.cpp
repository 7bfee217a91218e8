// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Words.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "forms/WordTables.h"

namespace halvern {

namespace {

const WordEntry* Find(std::string_view name)
{
    static const auto table = [] {
        std::unordered_map<std::string_view, const WordEntry*> words;
        for (const auto entries : {MainWords(), SetUpWords(), DialogWords()})
            for (const auto& entry : entries) words.emplace(entry.name, &entry);
        return words;
    }();
    const auto found = table.find(name);
    return found == table.end() ? nullptr : found->second;
}

} // namespace

Words WordsOf(std::string_view name)
{
    const auto array = name.substr(0, name.find('('));
    std::string anywhere("*");
    anywhere.append(array.substr(std::min(array.find('.'), array.size())));
    for (const auto candidate : {name, array, std::string_view(anywhere)})
        if (const auto* entry = Find(candidate))
            return {QString::fromUtf8(entry->label), QString::fromUtf8(entry->tip)};
    return {};
}

} // namespace halvern
