#pragma once

#include <gtest/gtest.h>

namespace bravcpl5::test {

// Before every test program: no real message boxes (a test that expects one installs a
// MessageRecorder), and the registry stand-in in a temporary file.
class TestEnvironment : public ::testing::Environment
{
public:
    void SetUp() override;
    void TearDown() override;
};

} // namespace bravcpl5::test
