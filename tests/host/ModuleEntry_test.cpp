// The module's exports, driven as the trading server drives them.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>

#include "ModuleHarness.h"
#include "common/EventLog.h"

// The server executable's version record, read by ModuleInit.
extern "C" __attribute__((used, section(".version"))) const char kHostVersion[] = "7.2.1.30";

namespace {

using ztest::Module;

class ModuleEntryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
  }

  // Registers the port with a library list holding `records` (key=value lines).
  int Register(const std::string& records, const std::string& general = "") {
    std::string dir = "port" + std::to_string(port_);
    list_ = ztest::WriteServerFile(dir + "/dl.ini", "[dealer-library]\n" + records);
    settings_ = ztest::WriteServerFile(dir + "/server.ini", "[General]\n" + general);
    return Module().InitDB(list_, settings_, port_);
  }

  std::vector<std::string> List() {
    CAlert m;
    EXPECT_EQ(ztest::Call("GetDLList", m, 1, port_, "admin"), 1);
    return ztest::ReadStrings(m);
  }

  // Fetches a library for reading only; the text, or "<failed>".
  std::string Fetch(const std::string& name, int user = 1) {
    CAlert m;
    m << ztest::Row("FIRM", name) << ztest::Row("READONLY", 1);
    if (ztest::Call("GetDLFile", m, user, port_, "admin") != 1) return "<failed>";
    int readOnly = 0;
    std::string firm, text;
    m >> readOnly >> firm >> text;
    return text;
  }

  std::string Dir() const { return "port" + std::to_string(port_) + "/"; }

  int port_ = 0;
  std::string list_, settings_;
};

std::set<std::string> DynamicSymbols(const std::string& path) {
  std::set<std::string> names;
  FILE* nm = popen(("nm -D --defined-only " + path).c_str(), "r");
  if (nm == nullptr) return names;
  char line[512];
  while (fgets(line, sizeof line, nm) != nullptr) {
    std::string s(line);
    while (!s.empty() && (s.back() == '\n' || s.back() == '\r')) s.pop_back();
    size_t space = s.rfind(' ');
    names.insert(space == std::string::npos ? s : s.substr(space + 1));
  }
  pclose(nm);
  return names;
}

TEST_F(ModuleEntryTest, ExportsExactlyTheFiveEntriesAndTheExceptionType) {
  std::set<std::string> symbols = DynamicSymbols(ZDL_MODULE_PATH);
  std::set<std::string> expected = {"ModuleInit", "InitDB", "Reset", "GetDLInUse", "Execute",
                                    "_ZTI15CAlertException", "_ZTS15CAlertException"};
  EXPECT_EQ(symbols, expected);
}

TEST_F(ModuleEntryTest, ModuleInitNamesTheModuleAndReturnsOne) {
  std::string name;
  unsigned kind = 0;
  EXPECT_EQ(Module().ModuleInit(name, &kind), 1);
  EXPECT_EQ(name, "ZENT_DL");
  EXPECT_EQ(kind, 1u);
}

TEST_F(ModuleEntryTest, ModuleInitKeepsThreeNumbersOfTheServerVersion) {
  std::string name;
  unsigned kind = 0;
  ASSERT_EQ(Module().ModuleInit(name, &kind), 1);
  ASSERT_EQ(Register("f=f.ini\n"), 1);
  // A plain client is accepted only when both its versions equal the server's.
  auto init = [&](const std::string& version) {
    CAlert modules, row, m;
    row << std::string("Terminal") << version << std::string("");
    modules << row;
    m << version << 1033 << modules;
    ztest::Call("Init", m, 5, port_, "u");
    int accepted = -1;
    m >> accepted;
    return accepted;
  };
  EXPECT_EQ(init("7.2.1"), 1);
  EXPECT_EQ(init("7.2.1.30"), 0);
}

TEST_F(ModuleEntryTest, UnknownPortGetsTheErrorReplyByteForByte) {
  CAlert m;
  m << 42;
  EXPECT_EQ(ztest::Call("GetDLList", m, 1, 1, "admin"), 0);
  const unsigned char expected[] = {
      0x04, 0x00, 0x00, 0x00,                                                 // four fields
      0x06, 0x05, 0x00, 0x00, 0x00, 'E', 'r', 'r', 'o', 'r',                  // "Error"
      0x06, 0x09, 0x00, 0x00, 0x00, 'G', 'e', 't', 'D', 'L', 'L', 'i', 's', 't',  // the verb
      0x03, 0x05, 0x00, 0x00, 0x00,                                           // 5
      0x06, 0x17, 0x00, 0x00, 0x00, 'u', 'n', 'k', 'n', 'o', 'w', 'n', ' ', 'c', 'o', 'n', 'n', 'e',
      'c', 't', 'i', 'o', 'n', ' ', 'p', 'o', 'r', 't'};
  ASSERT_EQ(m.get_size(), sizeof expected);
  EXPECT_EQ(0, memcmp(m.get_data(), expected, sizeof expected));
}

TEST_F(ModuleEntryTest, UnknownPortAsksNobodyWhoTheUserIs) {
  int before = Module().db->whoIsItCalls;
  CAlert m;
  ztest::Call("GetDLList", m, 1, 2, "admin");
  EXPECT_EQ(Module().db->whoIsItCalls, before);
}

TEST_F(ModuleEntryTest, VerbsIgnoreCase) {
  ASSERT_EQ(Register("alpha=alpha.ini\n"), 1);
  CAlert m;
  EXPECT_EQ(ztest::Call("getdllist", m, 1, port_, "admin"), 1);
  EXPECT_EQ(ztest::ReadStrings(m), std::vector<std::string>{"alpha"});
}

TEST_F(ModuleEntryTest, AnUnknownVerbFailsAndLeavesTheMessageAlone) {
  ASSERT_EQ(Register("alpha=alpha.ini\n"), 1);
  CAlert m;
  m << std::string("keep");
  std::vector<char> before(m.get_data(), m.get_data() + m.get_size());
  EXPECT_EQ(ztest::Call("Whatever", m, 1, port_, "admin"), 0);
  EXPECT_EQ(std::vector<char>(m.get_data(), m.get_data() + m.get_size()), before);
}

TEST_F(ModuleEntryTest, InitDBLogsTheLibraryCount) {
  ASSERT_EQ(Register("a=a.ini\nb=b.ini\n"), 1);
  EXPECT_TRUE(ztest::HasEvent(0, "DealerLib for [" + std::to_string(port_) + "] count [2]"));
}

TEST_F(ModuleEntryTest, AnEmptySectionReturnsZeroLogsAndStillKnowsThePort) {
  EXPECT_EQ(Register(""), 0);
  EXPECT_TRUE(ztest::HasEvent(0, "Section \"dealer-library\" in file[" + list_ + "] for port[" +
                                     std::to_string(port_) + "] is empty."));
  EXPECT_TRUE(List().empty());  // no "unknown connection port" any more
}

TEST_F(ModuleEntryTest, TheLastFourCharactersGoWhateverTheExtension) {
  ztest::WriteServerFile(Dir() + "lib.ini", "[General]\nx=1\n");
  ASSERT_EQ(Register("lib=lib.txt\n"), 1);
  EXPECT_EQ(Fetch("lib"), "[General]\nx=1\n");
}

TEST_F(ModuleEntryTest, AValueShorterThanFourCharactersIsKeptWhole) {
  ztest::WriteServerFile(Dir() + "ab.ini", "short");
  ASSERT_EQ(Register("ab=ab\n"), 1);
  EXPECT_EQ(Fetch("ab"), "short");
}

TEST_F(ModuleEntryTest, BackslashesBecomeSlashes) {
  ztest::WriteServerFile(Dir() + "sub/firm.ini", "nested");
  ASSERT_EQ(Register("firm=sub\\firm.ini\n"), 1);
  EXPECT_EQ(Fetch("firm"), "nested");
}

TEST_F(ModuleEntryTest, AnAbsolutePathIsTakenAsItIs) {
  std::string path = ztest::WriteServerFile("elsewhere/abs.ini", "absolute");
  ASSERT_EQ(Register("abs=" + path + "\n"), 1);
  EXPECT_EQ(Fetch("abs"), "absolute");
}

TEST_F(ModuleEntryTest, ASoftTwinListsBothNamesLeadingToTheMainFile) {
  ztest::WriteServerFile(Dir() + "firm.ini", "main");
  ztest::WriteServerFile(Dir() + "firm.soft.ini", "soft");
  ASSERT_EQ(Register("firm=firm.ini\n"), 1);
  EXPECT_EQ(List(), (std::vector<std::string>{"firm", "firm.soft"}));
  EXPECT_EQ(Fetch("firm.soft"), "main");
}

TEST_F(ModuleEntryTest, ARepeatedKeyTakesTheLaterPath) {
  ztest::WriteServerFile(Dir() + "one.ini", "one");
  ztest::WriteServerFile(Dir() + "two.ini", "two");
  ASSERT_EQ(Register("f=one.ini\nf=two.ini\n"), 1);
  EXPECT_EQ(Fetch("f"), "two");
}

TEST_F(ModuleEntryTest, ASecondInitDBFreesTheFilesOfThePort) {
  ztest::WriteServerFile(Dir() + "f.ini", "text");
  ASSERT_EQ(Register("f=f.ini\n"), 1);
  CAlert m;
  m << ztest::Row("FIRM", std::string("f"));
  ASSERT_EQ(ztest::Call("GetDLFile", m, 1, port_, "admin"), 1);
  ASSERT_EQ(Module().GetDLInUse(1, port_), "f");
  ASSERT_EQ(Module().InitDB(list_, settings_, port_), 1);
  EXPECT_EQ(Module().GetDLInUse(1, port_), "");
}

// Holds the library for user 1 so that an OPEN audit record carries its text.
std::string AuditedText(int port) {
  CAlert m;
  m << ztest::Row("FIRM", std::string("f"));
  ztest::Call("GetDLFile", m, 1, port, "admin");
  if (Module().db->audits.empty()) return "<no audit>";
  return Module().db->audits.back().fields[20];
}

TEST_F(ModuleEntryTest, TheAuditSizeLimitOfThePortReplacesALargeText) {
  ztest::WriteServerFile(Dir() + "f.ini", "0123456789");
  ASSERT_EQ(Register("f=f.ini\n", "MaxDeallibSize_" + std::to_string(port_) + "=5\nMaxDeallibSize=100\n"), 1);
  EXPECT_EQ(AuditedText(port_), "DealLib size is: 10");
}

TEST_F(ModuleEntryTest, APortLimitOfZeroFallsBackToTheCommonLimit) {
  ztest::WriteServerFile(Dir() + "f.ini", "0123456789");
  ASSERT_EQ(Register("f=f.ini\n", "MaxDeallibSize_" + std::to_string(port_) + "=0\nMaxDeallibSize=4\n"), 1);
  EXPECT_EQ(AuditedText(port_), "DealLib size is: 10");
}

TEST_F(ModuleEntryTest, WithNoLimitConfiguredTenMebibytesApply) {
  ztest::WriteServerFile(Dir() + "f.ini", "0123456789");
  ASSERT_EQ(Register("f=f.ini\n", ""), 1);
  EXPECT_EQ(AuditedText(port_), "0123456789");
}

TEST_F(ModuleEntryTest, AuditingOffForThePortWritesNoRecord) {
  ztest::WriteServerFile(Dir() + "f.ini", "x");
  ASSERT_EQ(Register("f=f.ini\n"), 1);
  Module().db->auditState = 0;
  EXPECT_EQ(AuditedText(port_), "<no audit>");
  EXPECT_EQ(Module().GetDLInUse(1, port_), "f");  // the hold is taken all the same
}

TEST_F(ModuleEntryTest, GetDLInUseIsEmptyForAUserHoldingNothing) {
  ztest::WriteServerFile(Dir() + "f.ini", "x");
  ASSERT_EQ(Register("f=f.ini\n"), 1);
  EXPECT_EQ(Module().GetDLInUse(3, port_), "");
  EXPECT_EQ(Module().GetDLInUse(3, 1), "");  // unknown port
}

TEST_F(ModuleEntryTest, ResetOfAnUnknownPortReturnsZero) { EXPECT_EQ(Module().Reset(1, 1), 0); }

TEST_F(ModuleEntryTest, ResetOfAUserHoldingNothingReturnsOne) {
  ASSERT_EQ(Register("f=f.ini\n"), 1);
  EXPECT_EQ(Module().Reset(9, port_), 1);
}

TEST_F(ModuleEntryTest, ResetFreesTheHoldsOfTheUser) {
  ztest::WriteServerFile(Dir() + "f.ini", "x");
  ASSERT_EQ(Register("f=f.ini\n"), 1);
  CAlert m;
  m << ztest::Row("FIRM", std::string("f"));
  ASSERT_EQ(ztest::Call("GetDLFile", m, 4, port_, "u4"), 1);
  ASSERT_EQ(Module().GetDLInUse(4, port_), "f");
  EXPECT_EQ(Module().Reset(4, port_), 1);
  EXPECT_EQ(Module().GetDLInUse(4, port_), "");
  // Another user can now take the hold.
  CAlert again;
  again << ztest::Row("FIRM", std::string("f"));
  ASSERT_EQ(ztest::Call("GetDLFile", again, 5, port_, "u5"), 1);
  int readOnly = -1;
  again >> readOnly;
  EXPECT_EQ(readOnly, 0);
}

}  // namespace
