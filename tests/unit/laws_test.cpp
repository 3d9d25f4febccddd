// The laws of tests/laws, for as many as fit into a run of the unit tests: there under sanitizers, and on Windows.
#include <gtest/gtest.h>

#include "tests/laws/frame_laws.h"
#include "tests/laws/record_laws.h"
#include "tests/laws/transfer_laws.h"

namespace vintrel::laws {
namespace {

TEST(Laws, HoldForCallRecords) { EXPECT_EQ(BrokenRecordLaw(20'000, 7), ""); }
TEST(Laws, HoldForFrames) { EXPECT_EQ(BrokenFrameLaw(5'000, 7), ""); }
TEST(Laws, HoldForTransferredCalls) { EXPECT_EQ(BrokenTransferLaw(20'000, 7), ""); }

}  // namespace
}  // namespace vintrel::laws
