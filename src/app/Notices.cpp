// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Notices.h"

#include <algorithm>

#include "platform/Text.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"

namespace halvern {
namespace {

constexpr int MostNotices = 300, MostTimes = 999999;
constexpr std::size_t LongestText = 1000; // a text may quote what came from outside

struct Source {
    std::string_view control, words;
};

/// What acts by itself, as the operator knows it.
constexpr Source Sources[] = {
    {"ConMdiFrm.MSComm1", "TNC port"},
    {"ConMdiFrm.InternetSoc", "TCP/IP port"},
    {"ConMdiFrm.SoundSoc", "Sound card port"},
    {"ConMdiFrm.Psk63Soc", "PSK63 port"},
    {"ConMdiFrm.GpsCom", "GPS port"},
    {"ConMdiFrm.WeatherCom", "Weather station"},
    {"ConMdiFrm.Timer2", "Beacon timer"},
    {"MessageFrm.Timer1", "Message timer"},
    {"ConMdiFrm.MyObjectTimer", "Object timer"},
    {"ConMdiFrm.NetDecayTmr", "I-gate timer"},
    {"ConMdiFrm.IgateMessHold", "I-gate timer"},
    {"ConMdiFrm.GpsTimer", "GPS timer"},
    {"ConMdiFrm.WXSoft", "Weather file timer"},
};

std::string_view Readable(std::string_view about)
{
    const auto* source = std::ranges::find(Sources, about, &Source::control);
    return source == std::end(Sources) ? about : source->words;
}

std::string UtcText(const Moment& now)
{
    return ZeroFilled(now.year, 4) + "-" + ZeroFilled(now.month, 2) + "-" + ZeroFilled(now.day, 2) + " " +
           ZeroFilled(now.hour, 2) + ":" + ZeroFilled(now.minute, 2) + ":" + ZeroFilled(now.second, 2);
}

char KindOf(Icon icon)
{
    if (icon == Icon::Critical || icon == Icon::Stop) return '!';
    return icon == Icon::Information ? 'i' : ' ';
}

/// Kind, title where it is not the usual one, and text, on one line: two notices whose sayings are equal are one.
std::string SayingOf(const Notice& notice)
{
    std::string saying(1, KindOf(notice.icon));
    saying += ' ';
    const auto text = notice.title == ProgramTitle ? notice.text : notice.title + ": " + notice.text;
    for (const char character : text.substr(0, LongestText)) {
        const bool breaks = character == '\r' || character == '\n';
        if (!breaks || saying.back() != ' ') saying += breaks ? ' ' : character;
    }
    return saying;
}

int FindSaying(const List& list, std::string_view saying)
{
    for (int row = 0; row < list.Count(); ++row)
        if (noticeRow::Saying(list.Row(row)) == saying) return row;
    return NotFound;
}

/// The one that was told last longest ago.
int Stalest(const List& list)
{
    int stalest = 0;
    for (int row = 1; row < list.Count(); ++row)
        if (noticeRow::Time(list.Row(row)) < noticeRow::Time(list.Row(stalest))) stalest = row;
    return stalest;
}

std::string RowOf(const Moment& now, int times, std::string_view about, const std::string& saying)
{
    return UtcText(now) + " " + Padded(PlainNumber(times), noticeRow::Times.count) + " " +
           Padded(about, noticeRow::About.count) + " " + saying;
}

void ShowCount(Halvern& halvern)
{
    const auto& form = halvern.NoticesFrm;
    auto& mark = halvern.ConMdiFrm.NoticesCmd;
    const int count = form.NoticeLst.Count();
    const auto news = form.News > 0 ? ", " + std::to_string(form.News) + " new" : "";
    mark.SetCaption(std::to_string(count) + (count == 1 ? " notice" : " notices") + news);
    mark.SetVisible(count > 0);
}

} // namespace

void FileNotice(Halvern& halvern, const Notice& notice)
{
    const StationActs quietly(halvern.All, notice.about);
    auto& form = halvern.NoticesFrm;
    auto& list = form.NoticeLst;
    const bool first = list.Count() == 0;
    const auto saying = SayingOf(notice);
    const auto now = UtcNow(halvern.Outside.clock);
    const auto about = Readable(notice.about);
    if (const int row = FindSaying(list, saying); row != NotFound) {
        const int times = static_cast<int>(LeadingNumber(noticeRow::Times(list.Row(row))));
        list.Replace(row, RowOf(now, std::min(times + 1, MostTimes), about, saying));
    } else {
        if (list.Count() == MostNotices) list.Remove(Stalest(list));
        list.Add(RowOf(now, 1, about, saying));
    }
    if (!form.Visible()) ++form.News;
    if (first) {
        list.Click(0);
        ShowNotices(halvern, true);
    }
    ShowCount(halvern);
}

void ShowNotices(Halvern& halvern, bool on)
{
    auto& form = halvern.NoticesFrm;
    halvern.ConMdiFrm.NoticesMenu.SetChecked(on);
    form.News = 0;
    ShowCount(halvern);
    on ? form.Show() : form.Hide();
}

void ReadNotice(NoticesForm& form)
{
    form.NoticeTxt.SetText(noticeRow::Text(form.NoticeLst.Text()));
}

void ClearNotices(Halvern& halvern)
{
    auto& form = halvern.NoticesFrm;
    form.NoticeLst.Clear();
    form.NoticeTxt.SetText("");
    form.News = 0;
    ShowCount(halvern);
}

} // namespace halvern
