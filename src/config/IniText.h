// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Failure.h"
#include "state/SettingValue.h"

/// Lines of a positional settings file: no keys, a value is known by its place alone.
namespace halvern {

/// How a line is read. A field ends at its first comma, and blanks around it don't count; a whole line is taken as it
/// stands, but for a carriage return inside it, which counts as a blank. The others are fields that must hold a number
/// of their kind, or a truth word.
enum class LineKind {
    Field,
    WholeLine,
    Integer, ///< 16 bits, signed
    Single,  ///< a 32-bit float
    Points,  ///< the size of a typeface: a decimal number from 1 to 1000
    Truth    ///< "True" or "False"
};

/// A line that could not be had. It ends the reading.
class IniFault : public RuntimeFailure {
public:
    IniFault(int line, const std::string& name);
    /// The line that could not be had, from 1.
    int Line() const { return line; }

private:
    int line;
};

/// Reads line after line.
class IniReader {
public:
    /// @param bytes a whole file; it must outlive the reader.
    explicit IniReader(std::string_view bytes) : rest(bytes) {}

    /// The next value, in its kind. @throws IniFault with `name` where the file has ended, or where the line holds no
    /// value of this kind.
    SettingValue Next(LineKind kind, const std::string& name);
    /// The next field or whole line.
    std::string NextText(LineKind kind, const std::string& name);
    /// The next line as a 16-bit number within these bounds; fractions are rounded, halves to even.
    int NextInteger(const std::string& name, int least, int most);
    bool AtEnd() const { return rest.empty(); }
    /// Number of the line that was read last, from 1.
    int Line() const { return line; }

private:
    std::string NextLine(const std::string& name);
    [[noreturn]] void Fail(const std::string& name) const;

    std::string_view rest;
    int line = 0;
};

/// Writes line after line; a line break within a value becomes a blank. Of a selection, a field has its text, an
/// integer its index; integers are held to 16 bits.
class IniWriter {
public:
    /// Appends one line.
    void Put(LineKind kind, const SettingValue& value);
    const std::string& Bytes() const { return bytes; }

private:
    std::string bytes;
};

} // namespace halvern
