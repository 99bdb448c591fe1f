#pragma once

// A Library over a test host's temporary "Reports" folders. The ReportLayout service is
// created on first use, so a test writes its settings files first.

#include "layout/ReportLayout.h"
#include "library/Library.h"
#include "support/MessageRecorder.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace bravcpl5::test {

class LayoutFixture : public ::testing::Test
{
protected:
    LayoutFixture() { library.Initialize(&host); }

    ReportLayout *layout() { return library.reportLayout(); }

    TestHost host;
    Library library;
    MessageRecorder messages; // no test here expects a message

    void TearDown() override
    {
        EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join(u'\n').toStdString();
    }
};

} // namespace bravcpl5::test
