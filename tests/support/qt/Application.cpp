// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qt/Application.h"

#include <memory>

#include <gtest/gtest.h>

namespace halvern::test {
namespace {

/// The one application of all tests with windows or real ports, off the screen unless the caller chose one.
class OneApplication final : public ::testing::Environment {
public:
    void SetUp() override
    {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        application = std::make_unique<QApplication>(count, arguments);
    }
    void TearDown() override { application.reset(); }

private:
    int count = 1;
    char name[14] = "halvern-tests";
    char* arguments[2] = {name, nullptr};
    std::unique_ptr<QApplication> application;
};

const auto* const registered = ::testing::AddGlobalTestEnvironment(new OneApplication);

} // namespace
} // namespace halvern::test
