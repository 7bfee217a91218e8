// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

namespace halvern {

/// Something that should not happen: a counter past 16 bits, a row that is not there, a file cut short.
/// It ends the handler that runs, and no more than that: the dispatcher tells the operator and goes on.
class RuntimeFailure : public std::runtime_error {
public:
    RuntimeFailure(int number, const std::string& description) : std::runtime_error(description), number(number) {}
    int Number() const { return number; }

private:
    int number;
};

/// Numbers of the failures that the program itself raises, as they stand in messages.
namespace failure {
inline constexpr int Overflow = 6;
inline constexpr int Subscript = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DiskFull = 61;
inline constexpr int PastEndOfFile = 62;
inline constexpr int FileAccess = 75;
inline constexpr int InvalidPicture = 481;
inline constexpr int Printer = 482;
} // namespace failure

/// Adds one to a 16-bit counter. @throws RuntimeFailure past 32767.
inline void CountUp(std::int16_t& counter)
{
    if (counter == std::numeric_limits<std::int16_t>::max()) throw RuntimeFailure(failure::Overflow, "Overflow");
    ++counter;
}

} // namespace halvern
