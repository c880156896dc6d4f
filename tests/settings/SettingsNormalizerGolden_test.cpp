// The normalizer's output, byte for byte, on a varied set of texts, against
// the outputs recorded in tests/data/SettingsNormalizerGolden.txt (size and
// FNV-1a hash of each) and tests/data/SettingsNormalizerFamilies.out (one
// small output in full). Any change of the canonical order shows up here.
//
// The records were written by the normalizer as it stood before its sort was
// made fast. To write them again (only for a deliberate change of order):
//   ZDL_WRITE_GOLDEN=1 build/tests/zdl_settings_tests --gtest_filter='SettingsNormalizerGolden*'
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "../../bench/ScrambledSettingsText.h"
#include "../../bench/SettingsGenerator.h"
#include "settings/SettingsNormalizer.h"

namespace {

const std::string kGoldenFile = std::string(ZDL_TEST_DATA) + "/SettingsNormalizerGolden.txt";
const std::string kFamiliesFile = std::string(ZDL_TEST_DATA) + "/SettingsNormalizerFamilies.out";

bool Writing() { return std::getenv("ZDL_WRITE_GOLDEN") != nullptr; }

std::string Normalized(std::string_view text) {
  DL::SettingsNormalizer n;
  n.ReadFrom(text);
  n.Normalize();
  std::string out;
  n.WriteTo(out);
  return out;
}

uint64_t Fnv1a(std::string_view bytes) {
  uint64_t h = 14695981039346656037ull;
  for (unsigned char c : bytes) {
    h ^= c;
    h *= 1099511628211ull;
  }
  return h;
}

// A fixed sequence of numbers, the same on every platform.
class Sequence {
 public:
  explicit Sequence(uint32_t seed) : m_state(seed * 2654435761u + 1) {}
  uint32_t Below(uint32_t n) {
    m_state ^= m_state << 13;
    m_state ^= m_state >> 17;
    m_state ^= m_state << 5;
    return m_state % n;
  }
  template <class T>
  void Shuffle(std::vector<T>& items) {
    for (size_t i = items.size(); i > 1; --i) std::swap(items[i - 1], items[Below(static_cast<uint32_t>(i))]);
  }
  template <class T>
  const T& Pick(const std::vector<T>& items) {
    return items[Below(static_cast<uint32_t>(items.size()))];
  }

 private:
  uint32_t m_state;
};

// Every literal name of the table's rows, split at "|", with "$" dropped.
std::vector<std::string> TableNames(bool sections) {
  std::vector<std::string> rows;
  if (sections) {
#define ZDL_NORM_SECTION(pattern, list) rows.push_back(pattern);
#include "settings/SettingsNormalizerRules.def"
  } else {
#define ZDL_NORM_PARAM(list, kind, text) rows.push_back(text);
#include "settings/SettingsNormalizerRules.def"
  }
  std::vector<std::string> names;
  for (const std::string& row : rows) {
    std::stringstream parts(row);
    std::string part;
    while (std::getline(parts, part, '|')) {
      if (!part.empty() && part.back() == '$') part.pop_back();
      names.push_back(part);
    }
  }
  return names;
}

// Section names of every family the rules know, their near misses, and names
// no rule knows.
std::vector<std::string> SectionNames(Sequence& seq) {
  std::vector<std::string> names = TableNames(true);  // expressions stand as names no rule matches exactly
  const std::vector<std::string> codes = {"A", "AB", "C000001", "123456789012", "1234567890123", "X_Y", "MARGIN",
                                          "_Margin", "é", "a b", "Q-1"};
  for (const std::string& c : codes) {
    for (const char* suffix : {"", "_Margin", "_MARGIN", "_margin", "_Margin_", "_Margin__X", "_Margin_Other",
                               "_Margin_LimitKind_0", "_Margin_LimitKind_1", "_Margin_LimitKind_2",
                               "_Margin_LimitKind_10", "_Margin_LimitKind_007", "_Margin_LimitKind_",
                               "_Margin_LimitKind_1x", "_Margin_Template", "_Margin_Template_",
                               "_Margin_Template_LimitKind_3", "_Margin_Template_X", "_CommissionScale",
                               "_Client_Template", "_CommissionScale_Template", "_Restriction_Template",
                               "_Margin_Template_MARGIN", "_SetOfInstruments_S_Template"}) {
      names.push_back("cl" + c + suffix);
    }
    names.push_back("bd" + c + "_CommissionScale");
    names.push_back("tp" + c + "_bd" + c + "_CommissionScale");
    names.push_back("OrderPriceFor_" + c);
    names.push_back("ChangeFutClientCodes_" + c);
    names.push_back("BaseAssets_Template_" + c);
    names.push_back("PortfolioRiskConfig_" + c);
    names.push_back("CommissionScaleBoards_" + c);
  }
  for (const char* n : {"u-1", "u", "u0", "u00", "u1", "u01", "u9", "u10", "u010", "u12x", "U12", "u-2",
                        "u18446744073709551615", "u18446744073709551616", "u99999999999999999999999999",
                        "PreTrade_", "PreTrade_0", "PreTrade_7", "PreTrade_07", "PreTrade_10", "PreTrade_7a",
                        "PreTrade_99999999999999999999999", "pretrade_1", "cl", "bd_CommissionScale",
                        "CommissionScaleBoards_", "OrderPriceFor_", "Soft_Unknown", "Soft_PriceLimit_",
                        "Custom", "custom", "ZZZ", "_", "~tilde", "general", "GENERAL"}) {
    names.push_back(n);
  }
  for (int i = 0; i < 40; ++i) names.push_back("u" + std::to_string(seq.Below(100000)));
  for (int i = 0; i < 20; ++i) names.push_back("PreTrade_" + std::to_string(seq.Below(1000)));
  // Names beyond the length the expression rules look at.
  names.push_back("cl" + std::string(300, 'L') + "_Margin");
  names.push_back("cl" + std::string(254, 'L'));
  names.push_back("cl" + std::string(300, 'L') + "_Margin_LimitKind_2");
  names.push_back("u" + std::string(300, '7'));
  names.push_back("CommissionScaleBoards_" + std::string(240, 'B'));
  names.push_back("CommissionScaleBoards_" + std::string(234, 'B'));
  names.push_back("CommissionScaleBoards_" + std::string(235, 'B'));
  return names;
}

// Keys of every parameter rule, numbers of every form, and keys no rule knows.
std::vector<std::string> Keys(Sequence& seq) {
  std::vector<std::string> keys = TableNames(false);
  for (const char* k : {"0", "5", "10", "010", "1.5", ".5", "5.", ".", "1.2.3", "-1", "+1", "18446744073709551615",
                        "18446744073709551616", "99999999999999999999999", "0.99999999999999999999999",
                        "RepoBroker_", "RepoBroker_TQBR", "RepoBrokerX", "TSX", "X_DISC", "_DISC", "A_TAG",
                        "SECURITY_SBER", "SECURITY_SBER_ASSET", "SECURITY_SBER_RESTSHORT", "SBER_ASSET",
                        "SBER_RESTSHORT", "SBER_COEF", "SBER_CORRELATION", "AddCommonTrdAcc_L01",
                        "ClassToLimitKind_TQBR", "SecToBoard_SBER", "DiscountsTypeByClasses_X", "Comment", "a",
                        "b", "B", "z", "~", "clients", "CLIENTS", "Soft_X"}) {
    keys.push_back(k);
  }
  for (int i = 0; i < 20; ++i) keys.push_back(std::to_string(seq.Below(1000000)));
  keys.push_back(std::string(300, '9'));
  keys.push_back(std::string(300, 'K') + "_DISC");
  return keys;
}

// A text of sections drawn from every family, each with keys drawn from
// every rule; some sections and keys come more than once.
std::string FamiliesText(uint32_t seed, size_t sections, size_t maxKeys, bool crlf) {
  Sequence seq(seed);
  const std::vector<std::string> names = SectionNames(seq);
  const std::vector<std::string> keys = Keys(seq);
  std::vector<std::string> order = names;
  for (size_t i = names.size(); i < sections; ++i) order.push_back(seq.Pick(names));
  seq.Shuffle(order);
  const char* eol = crlf ? "\r\n" : "\n";
  std::string text;
  for (const std::string& name : order) {
    text += "[" + name + "]" + eol;
    const uint32_t count = 1 + seq.Below(static_cast<uint32_t>(maxKeys));
    for (uint32_t k = 0; k < count; ++k) text += seq.Pick(keys) + "=" + std::to_string(seq.Below(1000)) + eol;
  }
  return text;
}

// Every text of the set, by a name that labels its record.
std::vector<std::pair<std::string, std::string>> Texts() {
  std::vector<std::pair<std::string, std::string>> texts;
  texts.emplace_back("families-small", FamiliesText(1, 0, 6, true));
  texts.emplace_back("families-lf", FamiliesText(2, 800, 12, false));
  texts.emplace_back("families-many", FamiliesText(3, 3000, 30, true));
  texts.emplace_back("scrambled-64k", zbench::MakeScrambledSettingsText(64 << 10, 7));
  texts.emplace_back("scrambled-300k", zbench::MakeScrambledSettingsText(300 << 10, 1));
  zbench::TSettingsTextShape shape;
  shape.clients = 300;
  texts.emplace_back("generated-crlf", zbench::GenerateSettingsText(shape));
  shape.clients = 500;
  shape.crlf = false;
  shape.seed = 2;
  shape.paramsPerClient = 24;
  texts.emplace_back("generated-lf", zbench::GenerateSettingsText(shape));
  std::string canonical = Normalized(zbench::MakeScrambledSettingsText(64 << 10, 9));
  texts.emplace_back("canonical", canonical);
  return texts;
}

std::string Record(const std::string& name, const std::string& output) {
  char hash[17];
  std::snprintf(hash, sizeof hash, "%016llx", static_cast<unsigned long long>(Fnv1a(output)));
  return name + " " + std::to_string(output.size()) + " " + hash;
}

std::map<std::string, std::string> ReadRecords() {
  std::map<std::string, std::string> records;
  std::ifstream in(kGoldenFile);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    records[line.substr(0, line.find(' '))] = line;
  }
  return records;
}

TEST(SettingsNormalizerGoldenTest, OutputsMatchTheRecordedOnes) {
  const auto texts = Texts();
  if (Writing()) {
    std::ofstream out(kGoldenFile, std::ios::binary | std::ios::trunc);
    out << "# case bytes fnv1a64 of the normalizer's output\n";
    for (const auto& [name, text] : texts) out << Record(name, Normalized(text)) << "\n";
    ASSERT_TRUE(out.good());
  }
  const auto records = ReadRecords();
  ASSERT_EQ(records.size(), texts.size()) << kGoldenFile << " is missing or cut short";
  for (const auto& [name, text] : texts) {
    ASSERT_EQ(records.count(name), 1u) << name;
    EXPECT_EQ(Record(name, Normalized(text)), records.at(name));
  }
}

TEST(SettingsNormalizerGoldenTest, SmallOutputMatchesByteForByte) {
  const std::string output = Normalized(FamiliesText(1, 0, 6, true));
  if (Writing()) {
    std::ofstream out(kFamiliesFile, std::ios::binary | std::ios::trunc);
    out << output;
    ASSERT_TRUE(out.good());
  }
  std::ifstream in(kFamiliesFile, std::ios::binary);
  ASSERT_TRUE(in.good()) << kFamiliesFile;
  const std::string expected((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(output.size(), expected.size());
  EXPECT_TRUE(output == expected) << "first difference at byte "
                                  << std::mismatch(output.begin(), output.end(), expected.begin(), expected.end())
                                             .first - output.begin();
}

TEST(SettingsNormalizerGoldenTest, SetCoversEveryRuleFamily) {
  // The families text puts sections under every rule of the table, so that
  // a change of any rule's order shows in the records.
  const std::string output = Normalized(FamiliesText(1, 0, 6, true));
  for (const char* header : {"[u1]", "[PreTrade_7]", "[clA_Margin_LimitKind_2]", "[clA_Margin_Template_LimitKind_3]",
                             "[clA_CommissionScale]", "[clA_Client_Template]", "[Soft_PriceLimit]",
                             "[bdA_CommissionScale]", "[BaseAssets_Template_A]", "[Custom]"}) {
    EXPECT_NE(output.find(header), std::string::npos) << header;
  }
  EXPECT_NE(output.find("18446744073709551616="), std::string::npos);
}

}  // namespace
