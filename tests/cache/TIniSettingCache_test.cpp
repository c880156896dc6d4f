// The cache framework: item identities, their key text and hash, and the
// lazy first-use parse with only client-level items kept in the item table.
#include "cache/TIniSettingCache.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using DL::TIniCacheItemID;
using DL::TIniParser;

// ---- Identities ----

TEST(TIniCacheItemIDTest, LongFormComposesTheItemText) {
  const TIniCacheItemID id("C1", "TQBR", "T", "SBER", 2.0);
  EXPECT_EQ(id.Kind(), 0);
  EXPECT_EQ(id.ItemText(), "ccC1_bnTQBR_tnT_snSBER");
  EXPECT_EQ(id.ClientCode(), "C1");
  EXPECT_EQ(id.BoardName(), "TQBR");
  EXPECT_EQ(id.TemplateName(), "T");
  EXPECT_EQ(id.SecurityName(), "SBER");
  EXPECT_EQ(id.LeverageInt(), 200);
  EXPECT_DOUBLE_EQ(id.Leverage(), 2.0);
}

TEST(TIniCacheItemIDTest, ShortLongFormHasNoTemplate) {
  const TIniCacheItemID id("C1", "TQBR", "SBER", -1);
  EXPECT_EQ(id.ItemText(), "ccC1_bnTQBR_tn_snSBER");
  EXPECT_EQ(id.LeverageInt(), -1);
  EXPECT_DOUBLE_EQ(id.Leverage(), -1.0);
}

TEST(TIniCacheItemIDTest, ClientOnlyFormIsTheClientAlone) {
  const TIniCacheItemID id("C1", 1.0);
  EXPECT_EQ(id.Kind(), 1);
  EXPECT_EQ(id.ItemText(), "C1");
  EXPECT_EQ(id.ItemID().itemText, "C1");
  EXPECT_EQ(id.ItemID().leverage, 100);
}

TEST(TIniCacheItemIDTest, DefaultIsTheHeadersAlone) {
  const TIniCacheItemID id;
  EXPECT_EQ(id.Kind(), 0);
  EXPECT_EQ(id.LeverageInt(), -1);
  EXPECT_EQ(id.ClientCode(), "");
  EXPECT_EQ(id.ItemText(), "cc_bn_tn_sn");
}

TEST(TIniCacheItemIDTest, NullTextsAreEmptyAndEmptyClientIsTheEmptyCode) {
  const TIniCacheItemID id(nullptr, nullptr, nullptr, nullptr, -1);
  EXPECT_EQ(id.ClientCode(), "<EMPTY>");
  EXPECT_EQ(id.ItemText(), "cc<EMPTY>_bn_tn_sn");
  EXPECT_EQ(TIniCacheItemID(nullptr, -1).ItemText(), "<EMPTY>");
  EXPECT_EQ(DL::TIniMarginCacheItemID(nullptr).ItemID(), "");
  EXPECT_EQ(DL::TIniMarginCacheItemID("C7").ClientCode(), "C7");
}

TEST(TIniCacheItemIDTest, EmptyClientAndLiteralEmptyCodeAreOneItem) {
  EXPECT_EQ(TIniCacheItemID("", "B", "S", 1.0).ItemID(), TIniCacheItemID("<EMPTY>", "B", "S", 1.0).ItemID());
  EXPECT_EQ(TIniCacheItemID("", 1.0).ItemID(), TIniCacheItemID("<EMPTY>", 1.0).ItemID());
}

TEST(TIniCacheItemIDTest, LeverageIsKeptInHundredths) {
  EXPECT_EQ(TIniCacheItemID("C", -0.5).LeverageInt(), -1);
  EXPECT_EQ(TIniCacheItemID("C", -1).LeverageInt(), -1);
  EXPECT_EQ(TIniCacheItemID("C", 1.5).LeverageInt(), 150);
  EXPECT_EQ(TIniCacheItemID("C", 1.555).LeverageInt(), 156);
  EXPECT_EQ(TIniCacheItemID("C", 0).LeverageInt(), 0);
  EXPECT_EQ(TIniCacheItemID("C", -0.00000001).LeverageInt(), 0);  // zero within the tolerance
}

TEST(TIniCacheItemIDTest, KeysOrderByTextThenLeverage) {
  const DL::TIniCacheItemKey a{"A", 5}, b{"A", 7}, c{"B", 1};
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(b < c);
  EXPECT_FALSE(a == b);
}

TEST(TIniCacheItemIDTest, HashIsFnv1aOfTheTextXorTwiceTheLeverage) {
  EXPECT_EQ(DL::Fnv1a32(""), 0x811c9dc5u);
  EXPECT_EQ(DL::Fnv1a32("a"), 0xe40c292cu);
  EXPECT_EQ(DL::Fnv1a32("foobar"), 0xbf9cf968u);
  const DL::TIniCacheItemKeyHash hash;
  EXPECT_EQ(hash(DL::TIniCacheItemKey{"a", 150}), 0xe40c292cull ^ 300ull);
  EXPECT_EQ(hash(DL::TIniCacheItemKey{"a", -1}), 0xe40c292cull ^ 0xfffffffffffffffeull);
  EXPECT_EQ(hash(DL::TIniCacheItemKeyView{"foobar", 0}), 0xbf9cf968ull);
}

// ---- The cache ----

// Settings of the test cache: the section they come from and its value V.
struct TTestSettings {
  std::string section;
  int value = 0;
};

// A cache whose objects are read from the sections that the client settings
// order resolves to, counting every parse.
class TTestCache : public DL::AIniSettingCacheMaster<TTestSettings> {
 public:
  explicit TTestCache(TIniParser& parser) : AIniSettingCacheMaster(parser, nullptr), m_logic(parser) {
    SetGlobalSettings(Parse("General"));
    for (const auto& [name, section] : parser.GetClientTemplateSettings()) m_templates.Register(name);
  }

  TParseResult ParseSettingsForClient(const TIniCacheItemID& id) const override {
    ++parses;
    const DL::TResolvedSection r = m_logic.ResolveClientSection(id.ClientCode(), id.LeverageInt());
    if (r.source == DL::SourceGlobal) return {nullptr, DL::SourceGlobal};
    if (r.source == DL::SourceTemplate) {
      const std::string templ = TemplateOf(*r.section);
      return {m_templates.GetOrParse(templ, [&](const std::string&) { return Parse(*r.section); }),
              DL::SourceTemplate};
    }
    return {m_clients.GetOrParse(*r.section, [&](const std::string& s) { return Parse(s); }), DL::SourceClient};
  }

  int RemoveParsedTemplateSettings(const std::string& templ) { return m_templates.RemoveParsedTemplateSettings(templ); }

  mutable int parses = 0;        // calls of ParseSettingsForClient
  mutable int sectionParses = 0;  // sections read

 private:
  // A section without V yields no settings.
  std::unique_ptr<TTestSettings> Parse(const std::string& section) const {
    ++sectionParses;
    const int v = Parser().GetIniParamInt(section, "V", -1);
    if (v < 0) return nullptr;
    return std::make_unique<TTestSettings>(TTestSettings{section, v});
  }
  static std::string TemplateOf(const std::string& section) {
    return section.substr(2, section.size() - 2 - std::string("_Client_Template").size());
  }

  DL::TIniLogicParser m_logic;
  mutable DL::TParsedTemplates<TTestSettings> m_templates;
  mutable DL::TParsedSections<TTestSettings> m_clients;
};

class TIniSettingCacheTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(parser.Init("[General]\nV=1\n"
                          "[clC1]\nV=2\n"
                          "[clNOV]\nX=1\n"
                          "[clAB*]\nV=3\n"
                          "[clT_Client_Template]\nClients=C5,C6\nV=4\nIncludeClientsWithLeverage=2\n",
                          TIniParser::SourceText, ';', 1),
              1);
    cache = std::make_unique<TTestCache>(parser);
  }

  TIniParser parser;
  std::unique_ptr<TTestCache> cache;
};

TEST_F(TIniSettingCacheTest, ClientWithoutAnySectionGetsGlobalAndNoItem) {
  const TTestSettings* s = cache->GetIniSetting(TIniCacheItemID("ZZ", -1));
  EXPECT_EQ(s, cache->GlobalSettings());
  EXPECT_EQ(s->value, 1);
  EXPECT_TRUE(cache->ItemTable().empty());
}

TEST_F(TIniSettingCacheTest, ClientLevelItemIsParsedOnceAndThenHashed) {
  const TTestSettings* s = cache->GetIniSetting(TIniCacheItemID("C1", -1));
  EXPECT_EQ(s->section, "clC1");
  EXPECT_EQ(cache->parses, 1);
  EXPECT_EQ(cache->ItemTable().size(), 1u);
  EXPECT_EQ(cache->GetIniSetting(TIniCacheItemID("C1", -1)), s);
  EXPECT_EQ(cache->parses, 1);
}

TEST_F(TIniSettingCacheTest, PrefixItemIsClientLevel) {
  const TTestSettings* s = cache->GetIniSetting(TIniCacheItemID("ABX", -1));
  EXPECT_EQ(s->section, "clAB*");
  EXPECT_EQ(cache->ItemTable().size(), 1u);
  // Another client of the same prefix shares the parsed section.
  EXPECT_EQ(cache->GetIniSetting(TIniCacheItemID("ABY", -1)), s);
  EXPECT_EQ(cache->sectionParses, 2);  // General, then clAB* once
}

TEST_F(TIniSettingCacheTest, TemplateIsSharedAndNotStoredPerClient) {
  const TTestSettings* a = cache->GetIniSetting(TIniCacheItemID("C5", -1));
  const TTestSettings* b = cache->GetIniSetting(TIniCacheItemID("C6", -1));
  EXPECT_EQ(a->section, "clT_Client_Template");
  EXPECT_EQ(a, b);
  EXPECT_TRUE(cache->ItemTable().empty());
  EXPECT_EQ(cache->sectionParses, 2);  // General, then the template once
  cache->GetIniSetting(TIniCacheItemID("C5", -1));
  EXPECT_EQ(cache->parses, 3);  // each template query resolves again, through the memo
}

TEST_F(TIniSettingCacheTest, IdentitiesDifferingOnlyInLeverageAreTwoItems) {
  const TTestSettings* plain = cache->GetIniSetting(TIniCacheItemID("C1", 3.0));
  const TTestSettings* other = cache->GetIniSetting(TIniCacheItemID("C1", 4.0));
  EXPECT_EQ(plain, other);  // both resolve to the personal section
  EXPECT_EQ(cache->ItemTable().size(), 2u);
  EXPECT_EQ(cache->ItemTable().count(DL::TIniCacheItemKey{"C1", 300}), 1u);
  EXPECT_EQ(cache->ItemTable().count(DL::TIniCacheItemKey{"C1", 400}), 1u);
  // Leverage 2 has a template, which is not entered.
  EXPECT_EQ(cache->GetIniSetting(TIniCacheItemID("C1", 2.0))->section, "clT_Client_Template");
  EXPECT_EQ(cache->ItemTable().size(), 2u);
}

TEST_F(TIniSettingCacheTest, EmptyClientAndLiteralEmptyCodeShareTheItem) {
  parser.AddIniSection("cl<EMPTY>", {{"V", "9"}});
  parser.InitSectionNames();
  TTestCache fresh(parser);
  const TTestSettings* a = fresh.GetIniSetting(TIniCacheItemID("", -1));
  const TTestSettings* b = fresh.GetIniSetting(TIniCacheItemID("<EMPTY>", -1));
  EXPECT_EQ(a->value, 9);
  EXPECT_EQ(a, b);
  EXPECT_EQ(fresh.ItemTable().size(), 1u);
  EXPECT_EQ(fresh.parses, 1);
}

TEST_F(TIniSettingCacheTest, SectionWithoutSettingsGivesGlobalAndIsTriedAgain) {
  EXPECT_EQ(cache->GetIniSetting(TIniCacheItemID("NOV", -1)), cache->GlobalSettings());
  EXPECT_TRUE(cache->ItemTable().empty());
  cache->GetIniSetting(TIniCacheItemID("NOV", -1));
  EXPECT_EQ(cache->parses, 2);
}

TEST_F(TIniSettingCacheTest, ItemTableKeepsALoadFactorOfOne) {
  EXPECT_FLOAT_EQ(cache->ItemTable().max_load_factor(), 1.0f);
}

TEST_F(TIniSettingCacheTest, RemovingAnUnknownTemplateReturns15AndChangesNothing) {
  const TTestSettings* t = cache->GetIniSetting(TIniCacheItemID("C5", -1));
  EXPECT_EQ(cache->RemoveParsedTemplateSettings("NOPE"), 15);
  EXPECT_EQ(cache->GetIniSetting(TIniCacheItemID("C5", -1)), t);
  EXPECT_EQ(cache->sectionParses, 2);
}

TEST_F(TIniSettingCacheTest, RemovingAKnownTemplateParsesItAgainOnNextUse) {
  cache->GetIniSetting(TIniCacheItemID("C5", -1));
  EXPECT_EQ(cache->RemoveParsedTemplateSettings("T"), 0);
  EXPECT_EQ(cache->GetIniSetting(TIniCacheItemID("C5", -1))->section, "clT_Client_Template");
  EXPECT_EQ(cache->sectionParses, 3);
  EXPECT_EQ(cache->RemoveParsedTemplateSettings("T"), 0);  // known even before use
}

TEST(TParsedSectionsTest, NamesIgnoreCaseAndNullIsNotKept) {
  DL::TParsedSections<int> sections;
  int calls = 0;
  auto none = [&](const std::string&) { ++calls; return std::unique_ptr<int>(); };
  EXPECT_EQ(sections.GetOrParse("clA", none), nullptr);
  EXPECT_EQ(sections.GetOrParse("clA", none), nullptr);
  EXPECT_EQ(calls, 2);
  int* v = sections.GetOrParse("clA", [](const std::string&) { return std::make_unique<int>(5); });
  EXPECT_EQ(sections.GetOrParse("CLA", none), v);
  EXPECT_EQ(sections.Size(), 1u);
}

}  // namespace
