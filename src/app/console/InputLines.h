// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace halvern {

/// Standard input as lines. Who waits for them says how.
class InputLines {
public:
    /// The next line. @param wait  waits for something to happen, such as input to Read
    /// @return nothing at the end, or as soon as `stop` is true
    std::optional<std::string> Next(const std::function<bool()>& stop, const std::function<void()>& wait);
    /// Reads what is there; to be called when there is something. @return whether more may come
    bool Read();
    /// A signal asks the program to end: that ends its input, and the station closes as it should.
    void Stop();
    bool Stopped() const { return stopped; }

private:
    std::deque<std::string> lines;
    std::string unfinished;
    bool ended = false;
    bool stopped = false;
};

} // namespace halvern
