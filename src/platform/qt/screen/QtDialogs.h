// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QImage>
#include <QWidget>

#include "platform/Dialogs.h"

namespace halvern {

/// Puts a picture on a surface, which gets its size.
void ShowImage(Surface& onto, const QImage& image);

/// Asks and tells the operator on the screen.
class QtDialogs final : public Dialogs {
public:
    /// Whether the station acts by itself, so that nothing may wait for an answer. Without it somebody is there.
    std::function<bool()> Unattended;
    // What the windows lend, once they stand. Without them a form is up without a window, and help
    // is not shown.
    std::function<QWidget*(Form&)> WindowOf;
    /// The finished picture of a surface.
    std::function<QImage(Control&)> PictureOf;
    /// Shows a help file, and a text file in a window with its name as the title.
    std::function<void(const std::string&file)> OnHelp, OnShowText;

    void Message(Icon icon, const std::string& text, const std::string& title) override;
    /// The button that Enter presses is "No".
    Answer Question(const std::string& text, const std::string& title) override;
    std::optional<std::string> Input(const std::string& prompt, const std::string& title,
                                     const std::string& offered) override;
    std::optional<std::string> File(const FileRequest& request) override;
    std::optional<Font> PickFont(const std::string& title, const Font& present) override;
    void ShowModal(Form& form) override;
    /// The system's printers, and one that writes a PDF file.
    std::vector<std::string> Printers() override;
    std::string Print(const std::string& printer, Control& surface) override;
    void CaptureScreen(Surface& onto) override;
    void Browse(const std::string& address) override;
    void Help(const std::string& file) override { Fire(OnHelp, file); }
    void ShowText(const std::string& file) override { Fire(OnShowText, file); }
    void Bell() override;
    std::unique_ptr<Progress> ShowProgress(const std::string& title) override;
    void LetTimePass(int milliseconds) override;

private:
    bool NobodyThere() const { return Unattended && Unattended(); }
};

} // namespace halvern
