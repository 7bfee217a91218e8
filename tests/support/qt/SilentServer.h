// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace halvern::test {

/// A server on this machine that never answers who wants to connect: its queue is full.
class SilentServer {
public:
    SilentServer()
    {
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const any = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(ears, any, size) | ::listen(ears, 0) | ::getsockname(ears, any, &size), 0);
        for (const int guest : guests) ::connect(guest, any, size);
    }
    ~SilentServer()
    {
        for (const int each : {ears, guests[0], guests[1]}) ::close(each);
    }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;
    int Port() const { return ntohs(address.sin_port); }

private:
    static int Make() { return ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0); }
    sockaddr_in address{};
    int ears = Make();
    int guests[2] = {Make(), Make()};
};

} // namespace halvern::test
