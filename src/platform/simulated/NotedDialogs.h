// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>

#include "platform/Dialogs.h"

namespace halvern {

/// Dialogs without a screen: what the station says is noted as console lines, and questions are answered from a queue.
class NotedDialogs : public Dialogs {
public:
    /// Gets each line as it is said.
    std::function<void(const std::string& line)> Say;
    /// Answers for the coming questions: a text, or "yes", "no", "cancel" without quotes.
    struct Queued {
        std::string text;
        bool word = false;
    };
    std::deque<Queued> Answers;
    /// Called when a question has no queued answer; may queue one. Without one the question is cancelled.
    std::function<void()> AskForAnswer;
    /// Runs events while a form is up; it must return when the form is hidden, or when nothing will hide it.
    std::function<void(Form&)> RunModal;
    /// What time passing means here.
    std::function<void(int milliseconds)> PassTime;
    std::vector<std::string> PrinterNames{"PDF File"};
    /// Looks at long work as it goes on, and stops it with the answer false.
    std::function<bool(const ReadSoFar&)> OnProgress;
    /// Puts a picture of the screen on a surface, where there is a screen.
    std::function<void(Surface&)> Screen;

    void Message(Icon icon, const std::string& text, const std::string& title) override;
    Answer Question(const std::string& text, const std::string& title) override;
    std::optional<std::string> Input(const std::string& prompt, const std::string& title,
                                     const std::string& offered) override;
    std::optional<std::string> File(const FileRequest& request) override;
    std::optional<Font> PickFont(const std::string& title, const Font& present) override;
    void ShowModal(Form& form) override;
    std::vector<std::string> Printers() override { return PrinterNames; }
    std::string Print(const std::string& printer, Control& surface) override;
    void CaptureScreen(Surface& onto) override { Fire(Screen, onto); }
    void Browse(const std::string& address) override;
    void Help(const std::string& file) override;
    void ShowText(const std::string& file) override;
    void Bell() override;
    std::unique_ptr<Progress> ShowProgress(const std::string& title) override;
    void LetTimePass(int milliseconds) override;

private:
    void Line(const std::string& line) const;
    std::optional<std::string> TextAnswer();
    std::optional<Queued> NextAnswer();
};

} // namespace halvern
