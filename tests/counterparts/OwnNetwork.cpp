// SPDX-License-Identifier: GPL-3.0-or-later
// The tests of this program leave the machine's network before their first line runs, so that they may listen on the
// fixed port numbers of the protocols without meeting, or being met by, anything outside.
#include <cerrno>
#include <cstring>
#include <string>

#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace halvern::test {
namespace {

bool RaiseLoopback()
{
    const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    ifreq request{};
    std::strcpy(request.ifr_name, "lo");
    request.ifr_flags = IFF_UP | IFF_RUNNING;
    const bool raised = socket >= 0 && ::ioctl(socket, SIOCSIFFLAGS, &request) == 0;
    if (socket >= 0) ::close(socket);
    return raised;
}

std::string Leave()
{
    if (::unshare(CLONE_NEWNET) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return std::string("no network namespace: ") + std::strerror(errno);
    return RaiseLoopback() ? "" : std::string("no loopback in the network namespace: ") + std::strerror(errno);
}

// Before main: another user's namespace can only be entered while there is one thread.
const std::string why = Leave();

} // namespace

const std::string& WhyNoNetwork()
{
    return why;
}

} // namespace halvern::test
