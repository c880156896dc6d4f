#include "support/Alert.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;

Bytes BytesOf(const CAlert& m) {
  const auto* p = reinterpret_cast<const unsigned char*>(m.get_data());
  return Bytes(p, p + m.get_size());
}

CAlert FromBytes(const Bytes& bytes) { return CAlert(bytes.data(), static_cast<unsigned>(bytes.size())); }

class AlertTest : public ::testing::Test {
 protected:
  static void ExpectAlertError(const std::function<void()>& action, const std::string& text) {
    try {
      action();
      ADD_FAILURE() << "no CAlertException, expected \"" << text << "\"";
    } catch (const CAlertException& e) {
      EXPECT_EQ(text, e.what());
      EXPECT_EQ(1, e.get_code());
    }
  }
};

// ---- layout ----

TEST_F(AlertTest, FreshMessageIsFourZeroBytes) {
  CAlert m;
  EXPECT_EQ(4u, m.get_size());
  EXPECT_EQ((Bytes{0, 0, 0, 0}), BytesOf(m));
  EXPECT_EQ(4u, m.get_cursor());
  EXPECT_EQ(0u, m.get_fields_count());
  EXPECT_TRUE(m.empty());
}

TEST_F(AlertTest, OneStringAIsCounterCodeLengthAndByte) {
  CAlert m;
  m << std::string("A");
  EXPECT_EQ((Bytes{0x01, 0x00, 0x00, 0x00, 0x06, 0x01, 0x00, 0x00, 0x00, 0x41}), BytesOf(m));
}

TEST_F(AlertTest, LiteralAndViewTravelAsStrings) {
  CAlert a, b;
  a << "A";
  b << std::string_view("A");
  EXPECT_EQ((Bytes{0x01, 0x00, 0x00, 0x00, 0x06, 0x01, 0x00, 0x00, 0x00, 0x41}), BytesOf(a));
  EXPECT_EQ(BytesOf(a), BytesOf(b));
}

TEST_F(AlertTest, NestedEmptyMessageTakesNineBytes) {
  CAlert inner;
  CAlert outer;
  outer << inner;
  EXPECT_EQ((Bytes{0x01, 0x00, 0x00, 0x00, 0x08, 0x04, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}), BytesOf(outer));
  EXPECT_EQ(13u, outer.get_size());
}

TEST_F(AlertTest, FixedSizeFieldsLayOutLittleEndian) {
  CAlert m;
  m << 'x' << static_cast<unsigned char>(0xFE) << static_cast<signed char>(-2);
  m << static_cast<short>(0x1234) << static_cast<unsigned short>(0xBEEF);
  m << true << false;
  m << 0x11223344 << 0xA0B0C0D0u;
  m << 0x0102030405060708L;
  m << 1.0 << 1.0f;
  EXPECT_EQ((Bytes{0x0C, 0x00, 0x00, 0x00,                                // 12 fields
                   0x01, 0x78,                                            // 'x'
                   0x01, 0xFE,                                            // unsigned char
                   0x01, 0xFE,                                            // signed char -2
                   0x02, 0x34, 0x12,                                      // short
                   0x02, 0xEF, 0xBE,                                      // unsigned short
                   0x02, 0x01, 0x00,                                      // true
                   0x02, 0x00, 0x00,                                      // false
                   0x03, 0x44, 0x33, 0x22, 0x11,                          // int
                   0x03, 0xD0, 0xC0, 0xB0, 0xA0,                          // unsigned int
                   0x04, 0x08, 0x07, 0x06, 0x05, 0x04, 0x03, 0x02, 0x01,  // long
                   0x05, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F,  // 1.0
                   0x09, 0x00, 0x00, 0x80, 0x3F}),                        // 1.0f
            BytesOf(m));
}

TEST_F(AlertTest, BinaryFieldIsCodeSevenWithLength) {
  CAlert m;
  m << Bytes{0xAA, 0x00, 0xBB};
  EXPECT_EQ((Bytes{0x01, 0x00, 0x00, 0x00, 0x07, 0x03, 0x00, 0x00, 0x00, 0xAA, 0x00, 0xBB}), BytesOf(m));
}

TEST_F(AlertTest, CounterBytesFollowWritesAndReads) {
  CAlert m;
  m << 1 << 2 << 3;
  EXPECT_EQ(3u, m.get_fields_count());
  EXPECT_EQ(0x03, static_cast<unsigned char>(m.get_data()[0]));
  m.set_begin();
  int x = 0;
  m >> x;
  EXPECT_EQ(2u, m.get_fields_count());
  EXPECT_EQ(0x02, static_cast<unsigned char>(m.get_data()[0]));
}

// ---- reading ----

TEST_F(AlertTest, EveryTypeReadsBackWhatWasWritten) {
  CAlert inner;
  inner << 77;
  CAlert m;
  m << 'c' << static_cast<unsigned char>(200) << static_cast<signed char>(-5) << static_cast<short>(-300)
    << static_cast<unsigned short>(60000) << true << -123456 << 4000000000u << -9000000000L << 2.5 << 0.25f
    << std::string("text") << Bytes{1, 2, 3} << inner;
  m.set_begin();
  EXPECT_EQ(14u, m.get_fields_count());
  char c = 0;
  unsigned char uc = 0;
  signed char sc = 0;
  short s = 0;
  unsigned short us = 0;
  bool b = false;
  int i = 0;
  unsigned int ui = 0;
  long l = 0;
  double d = 0;
  float f = 0;
  std::string str;
  Bytes bin;
  CAlert nested;
  m >> c >> uc >> sc >> s >> us >> b >> i >> ui >> l >> d >> f >> str >> bin >> nested;
  EXPECT_EQ('c', c);
  EXPECT_EQ(200, uc);
  EXPECT_EQ(-5, sc);
  EXPECT_EQ(-300, s);
  EXPECT_EQ(60000, us);
  EXPECT_TRUE(b);
  EXPECT_EQ(-123456, i);
  EXPECT_EQ(4000000000u, ui);
  EXPECT_EQ(-9000000000L, l);
  EXPECT_EQ(2.5, d);
  EXPECT_EQ(0.25f, f);
  EXPECT_EQ("text", str);
  EXPECT_EQ((Bytes{1, 2, 3}), bin);
  EXPECT_EQ(0u, m.get_fields_count());
  EXPECT_EQ(1u, nested.get_fields_count());
  int inside = 0;
  nested >> inside;
  EXPECT_EQ(77, inside);
}

TEST_F(AlertTest, ReadingIntFromStringFieldNamesCodesSixAndThree) {
  CAlert m;
  m << std::string("A");
  m.set_begin();
  int x = 42;
  ExpectAlertError([&] { m >> x; }, "invalid field type: get[6]need[3];");
  EXPECT_EQ(42, x);
  EXPECT_EQ(5u, m.get_cursor());  // behind the type byte
  EXPECT_EQ(1u, m.get_fields_count());
}

TEST_F(AlertTest, ReadingPastTheLastFieldNamesTypeZero) {
  CAlert m;
  m << 7;
  m.set_begin();
  int x = 0;
  m >> x;
  ExpectAlertError([&] { m >> x; }, "invalid field type: get[0]need[3];");
  std::string s;
  ExpectAlertError([&] { m >> s; }, "invalid field type: get[0]need[6];");
}

TEST_F(AlertTest, TypeByteAbove127IsShownSigned) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0xC8, 0x00, 0x00, 0x00, 0x00});
  int x = 0;
  ExpectAlertError([&] { m >> x; }, "invalid field type: get[-56]need[3];");
}

TEST_F(AlertTest, SetBeginAfterReadingAllGivesCounterZero) {
  CAlert m;
  m << 1 << std::string("two");
  m.set_begin();
  int a = 0;
  std::string b;
  m >> a >> b;
  m.set_begin();
  EXPECT_EQ(0u, m.get_fields_count());
  EXPECT_EQ(4u, m.get_cursor());
  EXPECT_EQ((Bytes{0x00, 0x00, 0x00, 0x00, 0x03, 0x01, 0x00, 0x00, 0x00, 0x06, 0x03, 0x00, 0x00, 0x00, 't', 'w', 'o'}),
            BytesOf(m));
}

TEST_F(AlertTest, StringReachingExactlyToTheEndIsValid) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x06, 0x03, 0x00, 0x00, 0x00, 'a', 'b', 'c'});
  std::string s;
  m >> s;
  EXPECT_EQ("abc", s);
  EXPECT_EQ(0u, m.get_fields_count());
}

TEST_F(AlertTest, StringOneByteLongerThanTheMessageIsRefused) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x06, 0x04, 0x00, 0x00, 0x00, 'a', 'b', 'c'});
  std::string s = "kept";
  ExpectAlertError([&] { m >> s; }, "Invalid message element size");
  EXPECT_EQ("kept", s);
  EXPECT_EQ(9u, m.get_cursor());  // behind the length bytes
  EXPECT_EQ(1u, m.get_fields_count());
}

TEST_F(AlertTest, BinaryAndNestedLengthsAreCheckedToo) {
  CAlert bin = FromBytes({0x01, 0x00, 0x00, 0x00, 0x07, 0x02, 0x00, 0x00, 0x00, 0xAA});
  Bytes v;
  ExpectAlertError([&] { bin >> v; }, "Invalid message element size");
  CAlert nested = FromBytes({0x01, 0x00, 0x00, 0x00, 0x08, 0x05, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00});
  CAlert inner;
  ExpectAlertError([&] { nested >> inner; }, "Invalid message element size");
}

TEST_F(AlertTest, LengthCutOffByTheEndIsRefused) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x06, 0x01, 0x00});
  std::string s = "kept";
  ExpectAlertError([&] { m >> s; }, "Invalid message element size");
  EXPECT_EQ("kept", s);
}

TEST_F(AlertTest, HugeLengthDoesNotWrapAround) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x06, 0xFF, 0xFF, 0xFF, 0xFF, 'a'});
  std::string s;
  ExpectAlertError([&] { m >> s; }, "Invalid message element size");
}

TEST_F(AlertTest, EmptyStringFieldEmptiesTheTarget) {
  CAlert m;
  m << std::string();
  m.set_begin();
  std::string s = "old";
  m >> s;
  EXPECT_EQ("", s);
}

TEST_F(AlertTest, MissingScalarBytesLeaveTheTargetUnchanged) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x03, 0x11, 0x22});
  int x = 5;
  m >> x;  // no exception
  EXPECT_EQ(5, x);
  EXPECT_EQ(0u, m.get_fields_count());
}

TEST_F(AlertTest, NullTargetChecksTheTypeOnly) {
  CAlert m;
  m << 0x01020304;
  m.set_begin();
  m.get_field(static_cast<int*>(nullptr));
  EXPECT_EQ(5u, m.get_cursor());
  EXPECT_EQ(1u, m.get_fields_count());  // get_field does not count
  EXPECT_EQ(0x04, m.get_field_type());  // now the first value byte
}

TEST_F(AlertTest, GetFieldDoesNotTouchTheCounter) {
  CAlert m;
  m << 9;
  m.set_begin();
  int x = 0;
  m.get_field(&x);
  EXPECT_EQ(9, x);
  EXPECT_EQ(1u, m.get_fields_count());
  EXPECT_EQ(0x01, m.get_data()[0]);
}

TEST_F(AlertTest, SetFieldDoesNotTouchTheCounter) {
  CAlert m;
  int x = 3;
  m.set_field(&x);
  EXPECT_EQ((Bytes{0x00, 0x00, 0x00, 0x00, 0x03, 0x03, 0x00, 0x00, 0x00}), BytesOf(m));
  EXPECT_EQ(0u, m.get_fields_count());
}

TEST_F(AlertTest, BoolIsTrueForAnyNonZeroShort) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x02, 0x00, 0x02});
  bool b = false;
  m >> b;
  EXPECT_TRUE(b);
}

TEST_F(AlertTest, BoolFromAnIntFieldIsRefused) {
  CAlert m;
  m << 1;
  m.set_begin();
  bool b = false;
  ExpectAlertError([&] { m >> b; }, "invalid field type: get[3]need[2];");
}

TEST_F(AlertTest, FieldTypeAtTheCursorDoesNotMove) {
  CAlert m;
  m << 2.0;
  m.set_begin();
  EXPECT_EQ(CAlert::ftDouble, m.get_field_type());
  EXPECT_EQ(4u, m.get_cursor());
  double d = 0;
  m >> d;
  EXPECT_EQ(CAlert::ftNone, m.get_field_type());
}

TEST_F(AlertTest, NestedFieldIsReadyForReading) {
  CAlert row;
  row << 5 << std::string("r");
  CAlert m;
  m << row;
  m.set_begin();
  CAlert got;
  m >> got;
  EXPECT_EQ(4u, got.get_cursor());
  EXPECT_EQ(2u, got.get_fields_count());
  EXPECT_EQ(BytesOf(row), BytesOf(got));
}

TEST_F(AlertTest, NestedFieldOfLengthZeroKeepsTheTargetCounter) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x08, 0x00, 0x00, 0x00, 0x00});
  CAlert target;
  target << 1 << 2;
  m >> target;
  EXPECT_EQ(2u, target.get_fields_count());
  EXPECT_EQ(0u, target.get_size());
}

TEST_F(AlertTest, ListOfRowsIsReadByCounter) {
  CAlert list;
  for (int i = 0; i < 3; ++i) {
    CAlert row;
    row << i << std::string(1, static_cast<char>('a' + i));
    list << row;
  }
  CAlert m;
  m << list;
  m.set_begin();
  CAlert rows;
  m >> rows;
  std::string seen;
  int sum = 0;
  while (rows.get_fields_count() != 0) {
    CAlert row;
    rows >> row;
    int n = 0;
    std::string s;
    row >> n >> s;
    sum += n;
    seen += s;
  }
  EXPECT_EQ("abc", seen);
  EXPECT_EQ(3, sum);
}

TEST_F(AlertTest, MessageNestedInItselfCarriesItsFormerBytes) {
  CAlert m;
  m << 1;
  Bytes before = BytesOf(m);
  m << m;
  m.set_begin();
  int x = 0;
  CAlert inner;
  m >> x >> inner;
  EXPECT_EQ(before, BytesOf(inner));
}

// ---- raw access ----

TEST_F(AlertTest, ReadOfZeroOrTooManyBytesFailsQuietly) {
  CAlert m;
  m << 1;
  m.set_begin();
  char buf[16] = {};
  EXPECT_EQ(0, m.read(buf, 0));
  EXPECT_EQ(0, m.read(buf, 6));
  EXPECT_EQ(4u, m.get_cursor());
  EXPECT_EQ(1, m.read(buf, 5));
  EXPECT_EQ(9u, m.get_cursor());
}

TEST_F(AlertTest, WriteGoesToTheCursorAndGrowsTheBuffer) {
  CAlert m;
  m << 0x11111111 << 0x22222222;  // 4 + 5 + 5 bytes
  m.set_begin();
  int x = 0;
  m >> x;
  const unsigned char patch[2] = {0xEE, 0xFF};
  EXPECT_EQ(1, m.write(patch, 2));
  EXPECT_EQ(16u, m.get_size());
  EXPECT_EQ((Bytes{0x01, 0x00, 0x00, 0x00, 0x03, 0x11, 0x11, 0x11, 0x11, 0xEE, 0xFF, 0x22, 0x22, 0x22, 0x00, 0x00}),
            BytesOf(m));
}

TEST_F(AlertTest, ResizeAddsZeroBytes) {
  CAlert m;
  m.resize(8);
  EXPECT_EQ((Bytes{0, 0, 0, 0, 0, 0, 0, 0}), BytesOf(m));
}

TEST_F(AlertTest, WritingWithAnInvalidCodeFailsAfterTheTypeByte) {
  CAlert m;
  int x = 1;
  ExpectAlertError([&] { m.set_typed_field(10, &x, 4); }, "invalid field type");
  EXPECT_EQ((Bytes{0x00, 0x00, 0x00, 0x00, 0x0A}), BytesOf(m));
  ExpectAlertError([&] { m.set_typed_field(0, &x, 4); }, "invalid field type");
  EXPECT_EQ(6u, m.get_size());
}

// ---- construction and whole-buffer operations ----

TEST_F(AlertTest, ConstructionFromBytesIsReadyForReading) {
  CAlert m = FromBytes({0x02, 0x00, 0x00, 0x00, 0x03, 0x05, 0x00, 0x00, 0x00, 0x01, 'z'});
  EXPECT_EQ(2u, m.get_fields_count());
  EXPECT_EQ(4u, m.get_cursor());
  int x = 0;
  char c = 0;
  m >> x >> c;
  EXPECT_EQ(5, x);
  EXPECT_EQ('z', c);
}

TEST_F(AlertTest, MoveTakesTheBufferAndRewinds) {
  CAlert a;
  a << 1 << 2;
  CAlert b(std::move(a));
  EXPECT_EQ(4u, b.get_cursor());
  EXPECT_EQ(2u, b.get_fields_count());
  EXPECT_EQ(0u, a.get_size());  // NOLINT(bugprone-use-after-move): the moved-from state is the contract
  CAlert c;
  c = std::move(b);
  EXPECT_EQ(2u, c.get_fields_count());
  EXPECT_EQ(14u, c.get_size());
  EXPECT_EQ(0u, b.get_size());  // NOLINT(bugprone-use-after-move)
}

TEST_F(AlertTest, SelfMoveAssignmentDoesNothing) {
  CAlert a;
  a << 1;
  int x = 0;
  a.set_begin();
  a >> x;
  CAlert& same = a;
  a = std::move(same);
  EXPECT_EQ(9u, a.get_cursor());
  EXPECT_EQ(0u, a.get_fields_count());
  EXPECT_EQ(9u, a.get_size());
}

TEST_F(AlertTest, SetDataTakesTheBufferAndReadsTheCounter) {
  CAlert m;
  m << 99;
  m.SetData(std::vector<char>{0x01, 0x00, 0x00, 0x00, 0x03, 0x07, 0x00, 0x00, 0x00});
  EXPECT_EQ(1u, m.get_fields_count());
  int x = 0;
  m >> x;
  EXPECT_EQ(7, x);
}

TEST_F(AlertTest, ClearTurnsARequestIntoAnEmptyReply) {
  CAlert m;
  m << std::string("request") << 5;
  m.clear();
  EXPECT_EQ((Bytes{0, 0, 0, 0}), BytesOf(m));
  EXPECT_EQ(4u, m.get_cursor());
  EXPECT_EQ(0u, m.get_fields_count());
  m << 0;
  EXPECT_EQ((Bytes{0x01, 0x00, 0x00, 0x00, 0x03, 0x00, 0x00, 0x00, 0x00}), BytesOf(m));
}

TEST_F(AlertTest, SetBinaryAppendsACountedBlock) {
  CAlert m;
  const unsigned char block[2] = {0x10, 0x20};
  EXPECT_EQ(1u, m.SetBinary(block, 2));
  EXPECT_EQ(2u, m.SetBinary(block, -3));
  EXPECT_EQ((Bytes{0x02, 0x00, 0x00, 0x00, 0x07, 0x02, 0x00, 0x00, 0x00, 0x10, 0x20, 0x07, 0x00, 0x00, 0x00, 0x00}),
            BytesOf(m));
}

TEST_F(AlertTest, GetStringToCharArrayWithCapacityFiveTakesFourBytes) {
  CAlert m;
  m << std::string("abcd");
  m.set_begin();
  char to[5];
  std::memset(to, 'x', sizeof to);
  EXPECT_EQ(4, m.GetStringToCharArray(to, 5));
  EXPECT_STREQ("abcd", to);
  EXPECT_EQ(0u, m.get_fields_count());
}

TEST_F(AlertTest, GetStringToCharArrayWithCapacityFiveRefusesFiveBytes) {
  CAlert m;
  m << std::string("abcde");
  m.set_begin();
  char to[5] = {'k', 0, 0, 0, 0};
  ExpectAlertError([&] { m.GetStringToCharArray(to, 5); }, "Invalid message element size");
  EXPECT_EQ('k', to[0]);
  EXPECT_EQ(1u, m.get_fields_count());
}

TEST_F(AlertTest, GetStringToCharArrayTakesAnEmptyStringIntoOneByte) {
  CAlert m;
  m << std::string();
  m.set_begin();
  char to[1] = {'x'};
  EXPECT_EQ(0, m.GetStringToCharArray(to, 1));
  EXPECT_EQ('\0', to[0]);
  CAlert n;
  n << std::string();
  n.set_begin();
  ExpectAlertError([&] { n.GetStringToCharArray(to, 0); }, "Invalid message element size");
}

TEST_F(AlertTest, GetStringToCharArrayRefusesAnotherType) {
  CAlert m;
  m << 1;
  m.set_begin();
  char to[8];
  ExpectAlertError([&] { m.GetStringToCharArray(to, 8); }, "invalid field type: get[3]need[6];");
}

TEST_F(AlertTest, GetStringToCharArrayChecksTheMessageEndToo) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x06, 0x03, 0x00, 0x00, 0x00, 'a'});
  char to[16];
  ExpectAlertError([&] { m.GetStringToCharArray(to, 16); }, "Invalid message element size");
}

TEST_F(AlertTest, IgnoreTwoSkipsAnIntAndAStringAndKeepsTheCounter) {
  CAlert m;
  m << 1 << std::string("skip") << 3.5;
  m.set_begin();
  m.ignore(2);
  EXPECT_EQ(4u + 5u + 9u, m.get_cursor());
  EXPECT_EQ(3u, m.get_fields_count());
  double d = 0;
  m >> d;
  EXPECT_EQ(3.5, d);
}

TEST_F(AlertTest, IgnoreSkipsOnlyTheTypeByteOfAnUnknownCode) {
  CAlert m = FromBytes({0x02, 0x00, 0x00, 0x00, 0x63, 0x03, 0x05, 0x00, 0x00, 0x00});
  m.ignore(1);
  EXPECT_EQ(5u, m.get_cursor());
  int x = 0;
  m >> x;
  EXPECT_EQ(5, x);
}

TEST_F(AlertTest, IgnoreStopsAtTheEnd) {
  CAlert m = FromBytes({0x01, 0x00, 0x00, 0x00, 0x06, 0x10, 0x00, 0x00, 0x00, 'a'});
  m.ignore(1000000);
  EXPECT_EQ(m.get_size(), m.get_cursor());
  EXPECT_EQ(1u, m.get_fields_count());
}

// ---- capacity ----

TEST_F(AlertTest, FreshMessageHoldsEightKilobytes) {
  CAlert m;
  EXPECT_EQ(8192u, m.get_capacity());
}

TEST_F(AlertTest, CapacityMovesInAlignSteps) {
  CAlert m;
  m.resize(8192);  // fits exactly: only the size changes
  EXPECT_EQ(8192u, m.get_capacity());
  m.resize(8193);
  EXPECT_EQ(16384u, m.get_capacity());
  m.resize(100);  // fits: only the size changes
  EXPECT_EQ(16384u, m.get_capacity());
  EXPECT_EQ(100u, m.get_size());
  m.resize(20000);
  EXPECT_EQ(32768u, m.get_capacity());
}

TEST_F(AlertTest, ClearOfALargeMessageGivesTheBlockBack) {
  CAlert m;
  std::string big(100000, 'q');
  m << big;
  EXPECT_EQ(131072u, m.get_capacity());
  m.clear();
  EXPECT_EQ(8192u, m.get_capacity());
  EXPECT_EQ(4u, m.get_size());
}

TEST_F(AlertTest, BeyondEightMegabytesTheCapacityIsSizePlusEightMegabytes) {
  CAlert m;
  m.resize(8388608);
  EXPECT_EQ(16777216u, m.get_capacity());
  m.resize(9000000);  // fits
  EXPECT_EQ(16777216u, m.get_capacity());
}

TEST_F(AlertTest, ExceptionIsARuntimeErrorWithCodeOne) {
  CAlert m;
  int x = 0;
  try {
    m >> x;
    FAIL();
  } catch (const std::runtime_error& e) {
    const auto* alert = dynamic_cast<const CAlertException*>(&e);
    ASSERT_NE(nullptr, alert);
    EXPECT_EQ(CAlert::kErrorCode, alert->get_code());
  }
}

}  // namespace
