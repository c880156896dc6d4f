// Malformed requests: CAlertException leaves Execute for the server to catch,
// by type, and the module stays usable.
#include <gtest/gtest.h>

#include "ModuleHarness.h"
#include "common/EventLog.h"

namespace {

using ztest::Module;

class BadInputTest : public ::testing::Test {
 protected:
  void SetUp() override {
    port_ = ztest::NewPort();
    std::string dir = "bad" + std::to_string(port_) + "/";
    ztest::WriteServerFile(dir + "f.ini", "[General]\nA=1\n");
    std::string list = ztest::WriteServerFile(dir + "dl.ini", "[dealer-library]\nF" + std::to_string(port_) +
                                                                  "=f.ini\n");
    ASSERT_EQ(Module().InitDB(list, "", port_), 1);
  }
  int port_ = 0;
};

TEST_F(BadInputTest, ARowWithAValueOfTheWrongTypeRaisesCAlertException) {
  CAlert m;
  m << ztest::Row("FIRM", 5);
  EXPECT_THROW(ztest::Call("GetDLFile", m, 1, port_, "u"), CAlertException);
}

TEST_F(BadInputTest, ARequestThatIsNoRowRaisesCAlertException) {
  CAlert m;
  m << std::string("FIRM");
  try {
    ztest::Call("SaveDLFile", m, 1, port_, "u");
    FAIL() << "no exception";
  } catch (const CAlertException& e) {
    EXPECT_EQ(e.get_code(), 1);
    EXPECT_STREQ(e.what(), "invalid field type: get[6]need[8];");
  }
}

TEST_F(BadInputTest, AnApiRequestWithoutItsBlockRaisesCAlertException) {
  CAlert m;
  m << std::string("GetUsePGOFromGlobal");
  EXPECT_THROW(ztest::Call("ZDealerAPI", m, 1, port_, "u"), CAlertException);
}

TEST_F(BadInputTest, ACountedFieldLongerThanTheMessageRaisesCAlertException) {
  CAlert m;
  m << std::string("abc");
  // Claim a longer string than the bytes that follow.
  std::vector<char> bytes(m.get_data(), m.get_data() + m.get_size());
  bytes[5] = 100;
  CAlert damaged(bytes.data(), static_cast<unsigned>(bytes.size()));
  EXPECT_THROW(ztest::Call("ZDealerAPI", damaged, 1, port_, "u"), CAlertException);
}

TEST_F(BadInputTest, TheModuleServesTheNextRequestAfterAnException) {
  CAlert bad;
  bad << ztest::Row("FIRM", 5);
  EXPECT_THROW(ztest::Call("GetDLFile", bad, 1, port_, "u"), CAlertException);
  // The open verb takes the lock; it must have been released on the way out.
  CAlert apiBad;
  apiBad << std::string("DLOpenFile");
  EXPECT_THROW(ztest::Call("ZDealerAPI", apiBad, 1, port_, "u"), CAlertException);
  CAlert m;
  m << ztest::Row("FIRM", "F" + std::to_string(port_));
  EXPECT_EQ(ztest::Call("GetDLFile", m, 1, port_, "u"), 1);
}

TEST_F(BadInputTest, AGarbageArgumentBlockDecodesToDefaults) {
  std::vector<unsigned char> block = {0xde, 0xad, 0xbe, 0xef, 0x01, 0x02};
  CAlert m;
  m << std::string("DLOpenFile") << block;
  ASSERT_EQ(ztest::Call("ZDealerAPI", m, 1, port_, "u"), 0);
  std::string name;
  int result = -1;
  m >> name >> result;
  EXPECT_EQ(result, 9);  // an empty firm code is no library of the port
}

}  // namespace
