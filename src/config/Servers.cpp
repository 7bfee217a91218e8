// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Servers.h"

#include "config/IniText.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// A text of the servers file: one blank stands for none.
std::string OrBlank(const std::string& text)
{
    return text.empty() ? " " : text;
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
    const auto selection = reader.Next(LineKind::WholeLine, "server");
    const auto port = reader.Next(LineKind::WholeLine, "server port");
    const auto filter = reader.Next(LineKind::WholeLine, "server filter");
    PutUnlessBlank(setUp.APRServePortTxt, port);
    PutUnlessBlank(setUp.APRServeFilterTxt, filter);
    while (!reader.AtEnd())
        if (const auto server = reader.Next(LineKind::WholeLine, "server name"); !Trimmed(server).empty())
            setUp.IntDomainCombo.Add(server);
    if (const int row = setUp.IntDomainCombo.IndexOf(selection); row != NotFound) setUp.IntDomainCombo.Preselect(row);
}

} // namespace halvern
