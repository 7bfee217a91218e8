// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace halvern::test {

/// Why this process has no network of its own in which any port is free, or an empty text.
///
/// The tests of this program leave the machine's network before their first line runs, so that they may listen on the
/// fixed port numbers of the protocols without meeting, or being met by, anything outside.
const std::string& WhyNoNetwork();

} // namespace halvern::test
