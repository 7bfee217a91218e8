// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace halvern::test {

constexpr const char* NoTerminal = "Skipped: this machine has no pseudo-terminals";

/// The far end of a serial cable: a pseudo-terminal whose other side is a device file.
class Cable {
public:
    Cable() : far(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        if (::grantpt(far) != 0 || ::unlockpt(far) != 0 || ::access(::ptsname(far), F_OK) != 0) Unplug();
        termios raw{};
        ::tcgetattr(far, &raw);
        ::cfmakeraw(&raw);
        ::tcsetattr(far, TCSANOW, &raw);
    }
    ~Cable() { Unplug(); }
    Cable(const Cable&) = delete;
    Cable& operator=(const Cable&) = delete;
    /// Empty where the machine has no pseudo-terminals.
    std::string Device() const { return far >= 0 ? ::ptsname(far) : ""; }
    void Send(std::string_view bytes) const
    {
        EXPECT_EQ(::write(far, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    /// @return how many of the bytes the line had room for
    std::size_t Offer(std::string_view bytes) const
    {
        return static_cast<std::size_t>(std::max<ssize_t>(0, ::write(far, bytes.data(), bytes.size())));
    }
    std::string Take() const
    {
        char bytes[4096];
        const auto count = ::read(far, bytes, sizeof bytes);
        return {bytes, static_cast<std::size_t>(count > 0 ? count : 0)};
    }
    /// As the other side has set it.
    speed_t Speed() const
    {
        termios line{};
        return ::tcgetattr(far, &line) == 0 ? ::cfgetospeed(&line) : B0;
    }
    void Unplug()
    {
        if (far >= 0) ::close(far);
        far = -1;
    }

private:
    int far;
};

} // namespace halvern::test
