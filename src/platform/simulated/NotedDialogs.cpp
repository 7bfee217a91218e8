// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/simulated/NotedDialogs.h"

#include <array>
#include <filesystem>
#include <utility>

#include "platform/ConsoleText.h"
#include "platform/Files.h"
#include "platform/Text.h"

namespace halvern {
namespace {

constexpr std::array<const char*, 5> IconWords{"none", "critical", "stop", "question", "information"};

std::string Sentence(std::initializer_list<std::string_view> words, std::initializer_list<std::string_view> texts)
{
    std::string line;
    for (const auto word : words) line += std::string(line.empty() ? "" : " ") + std::string(word);
    for (const auto text : texts) line += " " + ConsoleQuoted(text);
    return line;
}

} // namespace

void NotedDialogs::Line(const std::string& line) const
{
    if (Say) Say(line);
}

std::optional<NotedDialogs::Queued> NotedDialogs::NextAnswer()
{
    if (Answers.empty() && AskForAnswer) AskForAnswer();
    if (Answers.empty()) return {};
    auto answer = Answers.front();
    Answers.pop_front();
    return answer;
}

std::optional<std::string> NotedDialogs::TextAnswer()
{
    const auto answer = NextAnswer();
    if (!answer || answer->word) return {};
    return answer->text;
}

void NotedDialogs::Message(Icon icon, const std::string& text, const std::string& title)
{
    Line(Sentence({"message", IconWords[static_cast<std::size_t>(icon)]}, {title, text}));
}

Answer NotedDialogs::Question(const std::string& text, const std::string& title)
{
    Line(Sentence({"question"}, {title, text}));
    const auto answer = NextAnswer();
    if (!answer || answer->text == "cancel") return Answer::Cancel;
    return answer->text == "yes" ? Answer::Yes : Answer::No;
}

std::optional<std::string> NotedDialogs::Input(const std::string& prompt, const std::string& title,
                                               const std::string& offered)
{
    Line(Sentence({"input"}, {title, prompt, offered}));
    return TextAnswer();
}

std::optional<std::string> NotedDialogs::File(const FileRequest& request)
{
    Line(Sentence({"file", request.save ? "save" : "open"}, {request.title, request.filter, request.folder}));
    auto path = TextAnswer();
    if (!path || path->empty()) return {};
    std::error_code late; // a folder that can't be made is told by whoever writes into it
    if (request.save) std::filesystem::create_directories(DiskFiles().Resolved(request.folder), late);
    if (path->front() != '/' && path->front() != '\\' && !Holds(*path, ":")) {
        const bool ended = !request.folder.empty() && (request.folder.back() == '/' || request.folder.back() == '\\');
        path = request.folder + (ended ? "" : "/") + *path;
    }
    return path;
}

std::optional<Font> NotedDialogs::PickFont(const std::string& title, const Font& present)
{
    Line(Sentence({"input"}, {title, "Font", present.face + "," + PlainNumber(present.size)}));
    const auto answer = TextAnswer();
    if (!answer) return {};
    const auto parts = SplitAt(*answer);
    return Font{parts[0], parts.size() > 1 ? LeadingNumber(parts[1]) : present.size};
}

void NotedDialogs::ShowModal(Form& form)
{
    Line("modal " + form.Name());
    form.Show();
    bool up = true;
    const auto noteHiding = [&](const Change&) {
        if (!form.Visible() && std::exchange(up, false)) Line("closed " + form.Name());
    };
    const int watch = form.Watch(noteHiding);
    if (RunModal && form.Visible()) RunModal(form);
    form.Hide();
    noteHiding({});
    form.Unwatch(watch);
}

std::string NotedDialogs::Print(const std::string& printer, Control&)
{
    Line(Sentence({"printer"}, {printer}));
    return {};
}

void NotedDialogs::Browse(const std::string& address)
{
    Line(Sentence({"browse"}, {address}));
}

void NotedDialogs::Help(const std::string& file)
{
    Line(Sentence({"help"}, {file}));
}

void NotedDialogs::ShowText(const std::string& file)
{
    Line(Sentence({"help"}, {file}));
}

void NotedDialogs::Bell()
{
    Line("bell");
}

std::unique_ptr<Progress> NotedDialogs::ShowProgress(const std::string&)
{
    struct Watched final : Progress {
        explicit Watched(const NotedDialogs& dialogs) : dialogs(dialogs) {}
        bool Show(const ReadSoFar& soFar) override { return !dialogs.OnProgress || dialogs.OnProgress(soFar); }
        const NotedDialogs& dialogs;
    };
    return std::make_unique<Watched>(*this);
}

void NotedDialogs::LetTimePass(int milliseconds)
{
    if (PassTime) PassTime(milliseconds);
}

} // namespace halvern
