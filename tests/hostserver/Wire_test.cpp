// The wire's framing and the message check, byte for byte.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <vector>

#include "support/Alert.h"
#include "wire/FrameIO.h"
#include "wire/MessageCheck.h"

namespace {

using namespace ZentWire;

bool Check(const std::vector<char>& bytes) { return IsWellFormedMessage(bytes.data(), bytes.size()); }

class SocketPair : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, fd_), 0); }
  void TearDown() override {
    ::close(fd_[0]);
    if (fd_[1] >= 0) ::close(fd_[1]);
  }
  int fd_[2] = {-1, -1};
};

TEST(FrameLengthTest, IsFourBytesLittleEndian) {
  unsigned char out[4];
  PutLength(0x01020304u, out);
  EXPECT_EQ(out[0], 0x04);
  EXPECT_EQ(out[1], 0x03);
  EXPECT_EQ(out[2], 0x02);
  EXPECT_EQ(out[3], 0x01);
  const unsigned char in[4] = {0x10, 0x00, 0x00, 0x80};
  EXPECT_EQ(GetLength(in), 0x80000010u);
}

TEST_F(SocketPair, AFrameIsTheLengthThenTheBytes) {
  const char body[] = {'a', 'b', 'c'};
  ASSERT_TRUE(WriteFrame(fd_[0], body, 3));
  unsigned char raw[7];
  ASSERT_EQ(::recv(fd_[1], raw, 7, MSG_WAITALL), 7);
  const unsigned char expected[7] = {3, 0, 0, 0, 'a', 'b', 'c'};
  EXPECT_EQ(std::memcmp(raw, expected, 7), 0);
}

TEST_F(SocketPair, ReadFrameGivesTheBody) {
  const unsigned char raw[] = {2, 0, 0, 0, 'x', 'y'};
  ASSERT_EQ(::send(fd_[0], raw, sizeof raw, 0), 6);
  std::vector<char> body;
  std::uint32_t announced = 0;
  EXPECT_EQ(ReadFrame(fd_[1], 100, 1000, body, &announced), EFrameRead::kFrame);
  EXPECT_EQ(announced, 2u);
  EXPECT_EQ(std::string(body.begin(), body.end()), "xy");
}

TEST_F(SocketPair, ALengthAboveTheLimitIsTooLargeAndTheBodyIsNotRead) {
  const unsigned char raw[] = {101, 0, 0, 0};
  ASSERT_EQ(::send(fd_[0], raw, sizeof raw, 0), 4);
  std::vector<char> body;
  std::uint32_t announced = 0;
  EXPECT_EQ(ReadFrame(fd_[1], 100, 1000, body, &announced), EFrameRead::kTooLarge);
  EXPECT_EQ(announced, 101u);
  EXPECT_TRUE(body.empty());
}

TEST_F(SocketPair, ACloseBetweenFramesIsCleanAndInsideAFrameIsAnError) {
  std::vector<char> body;
  ::close(fd_[0]);
  EXPECT_EQ(ReadFrame(fd_[1], 100, 1000, body), EFrameRead::kClosed);
  ::close(fd_[1]);
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, fd_), 0);
  const unsigned char raw[] = {5, 0, 0, 0, 'x'};
  ASSERT_EQ(::send(fd_[0], raw, sizeof raw, 0), 5);
  ::close(fd_[0]);
  EXPECT_EQ(ReadFrame(fd_[1], 100, 1000, body), EFrameRead::kError);
}

TEST_F(SocketPair, TheStopTestEndsTheWaitBetweenFrames) {
  std::vector<char> body;
  int asked = 0;
  EXPECT_EQ(ReadFrame(fd_[1], 100, -1, body, nullptr, [&asked] { return ++asked == 3; }, 10), EFrameRead::kTimeout);
  EXPECT_EQ(asked, 3);
}

TEST_F(SocketPair, SilenceLongerThanTheTimeoutEndsTheRead) {
  std::vector<char> body;
  EXPECT_EQ(ReadFrame(fd_[1], 100, 50, body), EFrameRead::kTimeout);
}

TEST_F(SocketPair, ALogOnFrameIsTheseBytes) {
  CAlert logon;
  logon << std::string("Logon") << std::string("admin") << std::string("pw") << 7001;
  ASSERT_TRUE(WriteFrame(fd_[0], logon.get_data(), logon.get_size()));
  const unsigned char expected[40] = {0x24, 0, 0, 0, 4, 0, 0, 0,                              //
                                      6, 5, 0, 0, 0, 'L', 'o', 'g', 'o', 'n',                 //
                                      6, 5, 0, 0, 0, 'a', 'd', 'm', 'i', 'n',                 //
                                      6, 2, 0, 0, 0, 'p', 'w', 3, 0x59, 0x1b, 0, 0};
  unsigned char raw[40];
  ASSERT_EQ(::recv(fd_[1], raw, 40, MSG_WAITALL), 40);
  EXPECT_EQ(std::memcmp(raw, expected, 40), 0);
}

TEST(MessageCheckTest, AMessageBuiltByCAlertIsWellFormed) {
  CAlert inner, outer;
  inner << 1 << std::string("x");
  outer << std::string("verb") << inner << 2.5 << static_cast<long>(7) << std::vector<unsigned char>{1, 2};
  EXPECT_TRUE(IsWellFormedMessage(outer.get_data(), outer.get_size()));
}

TEST(MessageCheckTest, TheCounterMustMatchTheFields) {
  EXPECT_TRUE(Check({0, 0, 0, 0}));
  EXPECT_FALSE(Check({1, 0, 0, 0}));
  EXPECT_TRUE(Check({1, 0, 0, 0, 3, 1, 0, 0, 0}));
  EXPECT_FALSE(Check({2, 0, 0, 0, 3, 1, 0, 0, 0}));
}

TEST(MessageCheckTest, FewerThanFourBytesAreNoMessage) {
  EXPECT_FALSE(Check({}));
  EXPECT_FALSE(Check({0, 0, 0}));
}

TEST(MessageCheckTest, AnUnknownTypeCodeIsRefused) {
  EXPECT_FALSE(Check({1, 0, 0, 0, 0}));
  EXPECT_FALSE(Check({1, 0, 0, 0, 10}));
}

TEST(MessageCheckTest, AValueCutShortIsRefused) {
  EXPECT_FALSE(Check({1, 0, 0, 0, 3, 1, 0, 0}));            // int of three bytes
  EXPECT_FALSE(Check({1, 0, 0, 0, 6, 5, 0, 0, 0, 'a'}));    // string of 5 with 1 byte
  EXPECT_FALSE(Check({1, 0, 0, 0, 6, 1, 0}));               // length field cut
  EXPECT_TRUE(Check({1, 0, 0, 0, 6, 1, 0, 0, 0, 'a'}));
}

TEST(MessageCheckTest, NestedMessagesAreCheckedToo) {
  // A nested message whose counter lies.
  EXPECT_FALSE(Check({1, 0, 0, 0, 8, 4, 0, 0, 0, 1, 0, 0, 0}));
  EXPECT_TRUE(Check({1, 0, 0, 0, 8, 4, 0, 0, 0, 0, 0, 0, 0}));
  // An empty nested field is allowed, as CAlert reads it.
  EXPECT_TRUE(Check({1, 0, 0, 0, 8, 0, 0, 0, 0}));
}

TEST(MessageCheckTest, NestingDeeperThanTheBoundIsRefused) {
  CAlert m;
  for (int i = 0; i <= kMaxMessageDepth + 1; ++i) {
    CAlert outer;
    outer << m;
    m = std::move(outer);
  }
  EXPECT_FALSE(IsWellFormedMessage(m.get_data(), m.get_size()));
}

}  // namespace
