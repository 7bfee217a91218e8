// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace halvern {

/// A console line that cannot be carried out; the text says why.
class ConsoleError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The whole number that a text is, to its last character. @throws ConsoleError for any other text.
int WholeNumber(const std::string& text);

/// One line, taken apart into its words and quoted texts, which are then asked for one by one.
class ConsoleLine {
public:
    /// @throws ConsoleError for a bad escape or a text without its end
    explicit ConsoleLine(std::string_view line);

    /// Nothing to do: a blank line, or a remark.
    bool Empty() const { return pieces.empty(); }
    bool More() const { return next < pieces.size(); }
    /// The next piece, whether it is quoted or not. @param what  names it in the error when it is missing
    std::string Any(std::string_view what);
    /// The next piece, which must be a bare word, or a text in quotes. @throws ConsoleError
    std::string Word(std::string_view what);
    std::string Text(std::string_view what);
    int Whole(std::string_view what);
    double Number(std::string_view what);
    /// Whether the next piece is a text in quotes.
    bool TextFollows() const { return More() && pieces[next].quoted; }
    /// @throws ConsoleError when something is left over
    void End() const;

private:
    struct Piece {
        std::string text;
        bool quoted = false;
    };
    std::vector<Piece> pieces;
    std::size_t next = 0;
};

} // namespace halvern
