// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Servers.h"

#include <vector>

#include "config/IniText.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// A text of the servers file: one blank stands for none.
std::string OrBlank(const std::string& text)
{
    return text.empty() ? " " : text;
}

/// The next line. No text of this file has control characters: where there are some, it is no list of servers.
std::string NextText(IniReader& reader, const std::string& name)
{
    constexpr unsigned char firstPrinted = 0x20, deleted = 0x7F;
    auto text = reader.NextText(LineKind::WholeLine, name);
    for (const unsigned char byte : text)
        if ((byte < firstPrinted && byte != '\t') || byte == deleted) throw IniFault(reader.Line(), name);
    return text;
}

void PutUnlessBlank(TextField& field, const std::string& text)
{
    if (text != " ") field.SetText(text);
}

} // namespace

std::string ServersAsText(const SetUpForm& setUp)
{
    const auto& combo = setUp.IntDomainCombo;
    const auto typed = UpperCase(Trimmed(combo.Text()));
    bool listed = typed.empty();
    IniWriter writer;
    for (const auto& text : {combo.Text(), setUp.APRServePortTxt.Text(), setUp.APRServeFilterTxt.Text()})
        writer.Put(LineKind::WholeLine, OrBlank(text));
    for (int i = 0; i < combo.Count(); ++i) {
        writer.Put(LineKind::WholeLine, std::string(Trimmed(combo.Row(i))));
        listed |= UpperCase(Trimmed(combo.Row(i))) == typed;
    }
    if (!listed) writer.Put(LineKind::WholeLine, std::string(Trimmed(combo.Text())));
    return writer.Bytes();
}

void TakeServers(SetUpForm& setUp, std::string_view bytes)
{
    IniReader reader(bytes);
    const auto selection = NextText(reader, "server");
    const auto port = NextText(reader, "server port");
    const auto filter = NextText(reader, "server filter");
    std::vector<std::string> servers;
    while (!reader.AtEnd())
        if (auto server = NextText(reader, "server name"); !Trimmed(server).empty())
            servers.push_back(std::move(server));
    PutUnlessBlank(setUp.APRServePortTxt, port);
    PutUnlessBlank(setUp.APRServeFilterTxt, filter);
    for (const auto& server : servers) setUp.IntDomainCombo.Add(server);
    if (const int row = setUp.IntDomainCombo.IndexOf(selection); row != NotFound) setUp.IntDomainCombo.Preselect(row);
}

} // namespace halvern
