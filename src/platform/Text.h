// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The few text conversions that everything uses. Text is bytes: one character is one byte. Columns and positions
/// are 1-based, as operators count; 0 is "nowhere".
namespace halvern {

inline constexpr std::string_view CrLf = "\r\n";

/// `count` columns from column `first` on; fewer, or none, where the text ends before. Never reads past the end.
std::string_view Columns(std::string_view text, std::size_t first, std::size_t count = std::string_view::npos);

/// The character in a column, or 0 behind the end.
char ColumnAt(std::string_view text, std::size_t column);

/// Position of the first `what` at or behind position `from`, or 0. An empty `what` is found at `from`.
std::size_t PositionOf(std::string_view text, std::string_view what, std::size_t from = 1);
std::size_t PositionOf(std::string_view text, char what, std::size_t from = 1);

/// Whether a text stands somewhere in another; case counts.
bool Holds(std::string_view text, std::string_view what);

/// The number that a text begins with, behind leading blanks: sign, digits, one point. 0 where there is none.
double LeadingNumber(std::string_view text);

/// A number in shortest decimal form, a dot as the point, no leading zero dropped: 0.5, -2, 1024.
std::string PlainNumber(double number);
/// The same for a 32-bit number: no more digits than tell it from its neighbours.
std::string PlainFloat(float number);

/// A number with the place of its sign in front: a blank, or the minus.
std::string SignedNumber(double number);

/// `%.9g`, the form in which the console writes numbers.
std::string ConsoleNumber(double number);

/// Filled with zeros at the front to `width` digits; a longer or a negative number keeps its form.
std::string ZeroFilled(long number, int width);

/// Cut or blank-padded on the right to exactly `width` columns.
std::string Padded(std::string_view text, std::size_t width);

/// A call, or an object's name, as the stores key it: exactly 9 columns.
std::string CallField(std::string_view call);

/// Without the blanks (spaces and no others) at its front, its end, or both: a view of the same bytes.
std::string_view TrimmedLeft(std::string_view text);
std::string_view TrimmedRight(std::string_view text);
std::string_view Trimmed(std::string_view text);

/// ASCII upper case; other bytes stay.
std::string UpperCase(std::string_view text);
char UpperCase(char character);
/// ASCII lower case; other bytes stay.
std::string LowerCase(std::string_view text);

/// Every occurrence of a character taken out.
void RemoveAll(std::string& text, char character);

/// Pieces between the commas (or another mark); n marks give n + 1 pieces.
std::vector<std::string> SplitAt(std::string_view text, char mark = ',');

/// Lines of a file's bytes, CR LF or LF, without their ends; a last line without an end counts.
std::vector<std::string_view> LinesOf(std::string_view bytes);

/// Nearest whole number, halves to the even neighbour.
long RoundHalfToEven(double number);

/// 0 to 9, whatever the locale.
bool IsDigit(char character);

/// The path setting as packets use it: the word "NONE" is an empty path.
std::string_view PathOrNothing(std::string_view setting);

} // namespace halvern
