// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Form.h"
#include "platform/LineFiles.h"
#include "platform/Surface.h"

namespace halvern {

enum class Icon { None, Critical, Stop, Question, Information };
/// Left: by Escape or the close box. It counts as No where the question does not offer to stop what it belongs to.
enum class Answer { Yes, No, Cancel, Left };

/// The title of every box that has no title of its own.
inline constexpr const char* ProgramTitle = "Halvern";

/// Which file or folder the operator is asked for.
struct FileRequest {
    bool save = false;
    std::string title;
    std::string filter; ///< "Log Files | *.log"
    std::string folder; ///< where the dialog starts; `\` and `/` alike
    std::string name;   ///< the file name offered first
};

/// Long work that shows how far it is and that the operator can stop. Other events go on meanwhile.
class Progress {
public:
    virtual ~Progress() = default;
    /// @return false once it is to be stopped
    virtual bool Show(const ReadSoFar& soFar) = 0;
};

/// What the program asks and tells the operator. All of these wait for the operator; other events go on meanwhile.
/// Nobody is asked or made to wait where the station acts by itself: on a screen a message is then shown in no box (it
/// stands among the notices), and every question gets its harmless answer.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    /// Tells the operator, who acknowledges it.
    virtual void Message(Icon icon, const std::string& text, const std::string& title = ProgramTitle) = 0;
    /// Asks yes or no.
    virtual Answer Question(const std::string& text, const std::string& title = ProgramTitle) = 0;
    /// @return nothing where the operator cancelled; an empty answer is an answer.
    virtual std::optional<std::string> Input(const std::string& prompt, const std::string& title = ProgramTitle,
                                             const std::string& offered = "") = 0;
    /// @return the file's path, absolute or relative to the folder that the dialog shows; nothing on cancel.
    virtual std::optional<std::string> File(const FileRequest& request) = 0;
    virtual std::optional<Font> PickFont(const std::string& title, const Font& present) = 0;
    /// Shows a form and runs an inner loop of events until it hides.
    virtual void ShowModal(Form& form) = 0;
    virtual std::vector<std::string> Printers() = 0;
    /// Prints what stands on a surface, fitted to the page. @return what went wrong, or an empty text.
    virtual std::string Print(const std::string& printer, Control& surface) = 0;
    /// Puts a picture of the whole screen on a surface, once no box stands on it any more. Leaves the surface as it is
    /// where no such picture can be had.
    virtual void CaptureScreen(Surface& onto) = 0;
    virtual void Browse(const std::string& address) = 0;
    virtual void Help(const std::string& file) = 0;
    /// A text file in a window with its name as the title.
    virtual void ShowText(const std::string& file) = 0;
    virtual void Bell() = 0;
    /// Shows how far the reading of a file is, until what is returned is gone.
    virtual std::unique_ptr<Progress> ShowProgress(const std::string& title) = 0;
    /// Lets other events run for a while.
    virtual void LetTimePass(int milliseconds) = 0;
};

} // namespace halvern
