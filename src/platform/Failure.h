// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>

/// What may fly. Only what should not happen is thrown, and it ends the one handler that runs: the dispatcher
/// (Controls::Dispatch) tells it, and the program goes on. Our own code throws RuntimeFailure; memory that is used up
/// and whatever else the library throws fly as std::exception and end in the same place. Nothing else flies from one
/// module to another: ConsoleError and IniFault are caught in the room that throws them.
namespace halvern {

/// Something that should not happen: a counter past 16 bits, a row that is not there, a file cut short.
class RuntimeFailure : public std::runtime_error {
public:
    RuntimeFailure(int number, const std::string& description) : std::runtime_error(description), number(number) {}
    /// The number that the operator is told of.
    int Number() const { return number; }

private:
    int number;
};

/// Numbers of the failures that the program itself raises, as they stand in messages.
namespace failure {
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int Subscript = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int Internal = 51; ///< what the library threw
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DiskFull = 61;
inline constexpr int PastEndOfFile = 62;
inline constexpr int FileAccess = 75;
inline constexpr int InvalidPicture = 481;
inline constexpr int Printer = 482;
} // namespace failure

/// The number under which a failure is told.
inline int NumberOf(const std::exception& thrown)
{
    if (const auto* own = dynamic_cast<const RuntimeFailure*>(&thrown)) return own->Number();
    return dynamic_cast<const std::bad_alloc*>(&thrown) != nullptr ? failure::OutOfMemory : failure::Internal;
}

/// @throws RuntimeFailure, always.
[[noreturn]] inline void NoSuchRow()
{
    throw RuntimeFailure(failure::Subscript, "Subscript out of range");
}

/// An element by its index. @throws RuntimeFailure where there is none.
template <class Container> decltype(auto) ElementOf(Container& elements, std::ptrdiff_t index)
{
    if (index < 0 || index >= std::ssize(elements)) NoSuchRow();
    return elements[static_cast<std::size_t>(index)];
}

/// Adds one to a 16-bit counter. @throws RuntimeFailure past 32767.
inline void CountUp(std::int16_t& counter)
{
    if (counter == std::numeric_limits<std::int16_t>::max()) throw RuntimeFailure(failure::Overflow, "Overflow");
    ++counter;
}

} // namespace halvern
