#include "support/HostEvent.h"

#include <gtest/gtest.h>

#include "common/EventLog.h"

namespace {

TEST(HostEventTest, FindsTheProcessDevent) { EXPECT_TRUE(Library::Host::EventEnabled()); }

TEST(HostEventTest, PassesTheFormattedTextThrough) {
  ztest::ClearEvents();
  Library::Host::Event(0, "DealerLib for [%d] count [%d]", 7, 2);
  ASSERT_EQ(ztest::Events().size(), 1u);
  EXPECT_EQ(ztest::Events()[0].level, 0);
  EXPECT_EQ(ztest::Events()[0].text, "DealerLib for [7] count [2]");
}

TEST(HostEventTest, PercentSignsInDataReachTheHostVerbatim) {
  ztest::ClearEvents();
  Library::Host::Event(10, "name[%s]", "100%s%d");
  ASSERT_EQ(ztest::Events().size(), 1u);
  EXPECT_EQ(ztest::Events()[0].text, "name[100%s%d]");
}

TEST(HostEventTest, LongLinesAreNotCut) {
  ztest::ClearEvents();
  std::string text(3000, 'x');
  Library::Host::Event(0, "%s", text.c_str());
  ASSERT_EQ(ztest::Events().size(), 1u);
  EXPECT_EQ(ztest::Events()[0].text, text);
}

}  // namespace
