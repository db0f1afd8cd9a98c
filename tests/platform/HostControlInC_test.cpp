#include "HostControlInC.h"

#include "PlatformTest.h"

namespace {

class HostControlInC : public PlatformTest {};

TEST_F(HostControlInC, Works) {
    EXPECT_EQ(HostControlWorksInC(), 1);
}

}  // namespace
