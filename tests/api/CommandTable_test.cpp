#include "api/CommandTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using DL::CountCommands;
using DL::EAdapterShape;
using DL::ECommandScope;
using DL::ECommandVerb;
using DL::EShapeKind;
using DL::FindCommand;
using DL::kCommandTable;
using DL::TCommandRow;

static_assert(DL::kCommandCount == 994);
static_assert(DL::kAdapterShapeCount == 85);

// The published list of command names, one a line, sorted.
std::vector<std::string> ReadCommandList() {
  std::ifstream in(ZDL_TEST_DATA "/commands.txt");
  std::vector<std::string> names;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) names.push_back(line);
  }
  return names;
}

const TCommandRow& Row(std::string_view name) {
  const TCommandRow* row = FindCommand(name);
  if (row == nullptr) throw std::runtime_error("no row " + std::string(name));
  return *row;
}

constexpr ECommandScope kScopesInOrder[] = {
    ECommandScope::Global,         ECommandScope::ClientSettings,     ECommandScope::ClientTemplate,
    ECommandScope::MarginTemplate, ECommandScope::RestrictionTemplate, ECommandScope::BaseAssetsTemplate,
    ECommandScope::PortfolioRiskConfigTemplate, ECommandScope::UserSettings, ECommandScope::None,
};

// The scope a name tells: the scope word that stands last in it.
ECommandScope ScopeOfName(std::string_view name) {
  ECommandScope found = ECommandScope::None;
  std::size_t at = 0;
  bool any = false;
  for (ECommandScope scope : kScopesInOrder) {
    if (scope == ECommandScope::None) continue;
    std::size_t pos = name.rfind(DL::ScopeName(scope));
    if (pos != std::string_view::npos && (!any || pos > at)) {
      found = scope;
      at = pos;
      any = true;
    }
  }
  return found;
}

TEST(CommandTableTest, HoldsExactlyTheNamesOfThePublishedList) {
  std::vector<std::string> list = ReadCommandList();
  ASSERT_EQ(list.size(), 994u) << "tests/data/commands.txt is missing or cut short";
  std::vector<std::string> table;
  for (const TCommandRow& row : kCommandTable) table.emplace_back(row.name);
  std::sort(table.begin(), table.end());
  std::sort(list.begin(), list.end());
  EXPECT_EQ(table, list);
}

TEST(CommandTableTest, NoNameStandsTwice) {
  std::set<std::string_view> seen;
  for (const TCommandRow& row : kCommandTable) EXPECT_TRUE(seen.insert(row.name).second) << row.name;
  EXPECT_EQ(seen.size(), 994u);
}

TEST(CommandTableTest, EveryListedNameIsFoundAsItsOwnRow) {
  for (const std::string& name : ReadCommandList()) {
    const TCommandRow* row = FindCommand(name);
    ASSERT_NE(row, nullptr) << name;
    EXPECT_EQ(row->name, name);
  }
}

TEST(CommandTableTest, LookupIsCaseSensitive) {
  ASSERT_NE(FindCommand("GetUsePGOFromGlobal"), nullptr);
  EXPECT_EQ(FindCommand("GetUsePgoFromGlobal"), nullptr);
  EXPECT_EQ(FindCommand("getUsePGOFromGlobal"), nullptr);
  EXPECT_EQ(FindCommand("GETUSEPGOFROMGLOBAL"), nullptr);
  EXPECT_EQ(FindCommand("SetusePGOToGlobal"), nullptr);
}

TEST(CommandTableTest, LookupWantsTheWholeName) {
  EXPECT_EQ(FindCommand(""), nullptr);
  EXPECT_EQ(FindCommand("GetUsePGOFromGloba"), nullptr);
  EXPECT_EQ(FindCommand("GetUsePGOFromGlobal "), nullptr);
  EXPECT_EQ(FindCommand(" GetUsePGOFromGlobal"), nullptr);
  EXPECT_EQ(FindCommand("GetTPListX"), nullptr);
  EXPECT_EQ(FindCommand(std::string_view("GetTPList\0", 10)), nullptr);
}

TEST(CommandTableTest, FileVerbsAreNotCommands) {
  for (const char* verb : {"DLGetClassList", "DLGetFirmList", "DLOpenFile", "DLUpdateFile", "DLCloseFile"}) {
    EXPECT_EQ(FindCommand(verb), nullptr) << verb;
  }
}

TEST(CommandTableTest, QualifiedInvestorsRowsReachTheSignFunctions) {
  const TCommandRow& get = Row("GetQualifiedInvestorsFromRestrictionTemplate");
  EXPECT_EQ(get.function, "ZDL_GetQualifiedInvestorsSignFromRestrictionTemplate");
  EXPECT_EQ(DL::HandlerName(get), "ZA_GetQualifiedInvestorsSignFromRestrictionTemplate");
  const TCommandRow& set = Row("SetQualifiedInvestorsToRestrictionTemplate");
  EXPECT_EQ(set.function, "ZDL_SetQualifiedInvestorsSignToRestrictionTemplate");
  EXPECT_EQ(DL::HandlerName(set), "ZA_SetQualifiedInvestorsSignToRestrictionTemplate");
  EXPECT_EQ(FindCommand("GetQualifiedInvestorsSignFromRestrictionTemplate"), nullptr);
  EXPECT_EQ(FindCommand("SetQualifiedInvestorsSignToRestrictionTemplate"), nullptr);
}

TEST(CommandTableTest, EveryOtherRowCallsTheFunctionOfItsOwnName) {
  std::vector<std::string_view> differing;
  for (const TCommandRow& row : kCommandTable) {
    if (row.function != "ZDL_" + std::string(row.name)) {
      differing.push_back(row.name);
      continue;
    }
    EXPECT_EQ(DL::HandlerName(row), "ZA_" + std::string(row.name));
  }
  EXPECT_EQ(differing, (std::vector<std::string_view>{"GetQualifiedInvestorsFromRestrictionTemplate",
                                                       "SetQualifiedInvestorsToRestrictionTemplate"}));
}

TEST(CommandTableTest, ProhibedKeepsItsSpelling) {
  EXPECT_NE(FindCommand("GetGlobalProhibedTrdAcc"), nullptr);
  EXPECT_NE(FindCommand("AddTrdAccToGlobalProhibedTrdAcc"), nullptr);
  EXPECT_NE(FindCommand("RemoveTrdAccFromGlobalProhibedTrdAcc"), nullptr);
  EXPECT_NE(FindCommand("SetGlobalProhibedTrdAcc"), nullptr);
  EXPECT_EQ(FindCommand("GetGlobalProhibitedTrdAcc"), nullptr);
  EXPECT_EQ(FindCommand("AddTrdAccToGlobalProhibitedTrdAcc"), nullptr);
}

TEST(CommandTableTest, CountsByVerb) {
  EXPECT_EQ(CountCommands(ECommandVerb::Get), 403u);
  EXPECT_EQ(CountCommands(ECommandVerb::Set), 334u);
  EXPECT_EQ(CountCommands(ECommandVerb::Remove), 165u);
  EXPECT_EQ(CountCommands(ECommandVerb::Add), 87u);
  EXPECT_EQ(CountCommands(ECommandVerb::Move), 5u);
}

TEST(CommandTableTest, CountsByScope) {
  EXPECT_EQ(CountCommands(ECommandScope::Global), 417u);
  EXPECT_EQ(CountCommands(ECommandScope::ClientSettings), 181u);
  EXPECT_EQ(CountCommands(ECommandScope::ClientTemplate), 118u);
  EXPECT_EQ(CountCommands(ECommandScope::MarginTemplate), 126u);
  EXPECT_EQ(CountCommands(ECommandScope::RestrictionTemplate), 89u);
  EXPECT_EQ(CountCommands(ECommandScope::BaseAssetsTemplate), 11u);
  EXPECT_EQ(CountCommands(ECommandScope::PortfolioRiskConfigTemplate), 20u);
  EXPECT_EQ(CountCommands(ECommandScope::UserSettings), 13u);
  EXPECT_EQ(CountCommands(ECommandScope::None), 19u);
}

TEST(CommandTableTest, AdaptersServe318CommandsAndOwnHandlersTheRest) {
  EXPECT_EQ(CountCommands(EAdapterShape::OwnRecord), 676u);
  std::size_t adapters = 0;
  for (std::size_t s = 0; s < DL::kAdapterShapeCount; ++s) adapters += CountCommands(static_cast<EAdapterShape>(s));
  EXPECT_EQ(adapters, 318u);
}

TEST(CommandTableTest, MostUsedAdapters) {
  EXPECT_EQ(CountCommands(EAdapterShape::SendTwoStrings_GetArrayStrings), 34u);
  EXPECT_EQ(CountCommands(EAdapterShape::SendOneString_GetBool), 29u);
  EXPECT_EQ(CountCommands(EAdapterShape::SendOneStringAndBool), 29u);
  EXPECT_EQ(CountCommands(EAdapterShape::SendString_GetArrayStrings), 18u);
  EXPECT_EQ(CountCommands(EAdapterShape::SendThreeStrings_GetArrayStrings), 15u);
  EXPECT_EQ(CountCommands(EAdapterShape::SendTwoStrings), 14u);
  EXPECT_EQ(CountCommands(EAdapterShape::SendTwoStrings_GetInt), 14u);
  EXPECT_EQ(CountCommands(EAdapterShape::SendTwoStringsAndInt), 14u);
}

TEST(CommandTableTest, EveryAdapterServesACommandAndTheOthersFewerThanTheMostUsed) {
  const std::set<EAdapterShape> mostUsed = {
      EAdapterShape::SendTwoStrings_GetArrayStrings, EAdapterShape::SendOneString_GetBool,
      EAdapterShape::SendOneStringAndBool,           EAdapterShape::SendString_GetArrayStrings,
      EAdapterShape::SendThreeStrings_GetArrayStrings, EAdapterShape::SendTwoStrings,
      EAdapterShape::SendTwoStrings_GetInt,          EAdapterShape::SendTwoStringsAndInt,
  };
  for (std::size_t s = 0; s < DL::kAdapterShapeCount; ++s) {
    auto shape = static_cast<EAdapterShape>(s);
    std::size_t n = CountCommands(shape);
    EXPECT_GE(n, 1u) << DL::ShapeName(shape);
    if (mostUsed.count(shape) == 0) {
      EXPECT_LT(n, 14u) << DL::ShapeName(shape);
    }
  }
}

TEST(CommandTableTest, FirmCheckCountsByVerb) {
  std::map<ECommandVerb, std::size_t> checked;
  for (const TCommandRow& row : kCommandTable) {
    if (row.firmCheck) ++checked[row.verb];
  }
  EXPECT_EQ(DL::CountFirmChecks(), 218u);
  EXPECT_EQ(checked[ECommandVerb::Move], 5u);
  EXPECT_EQ(checked[ECommandVerb::Add], 50u);
  EXPECT_EQ(checked[ECommandVerb::Remove], 61u);
  EXPECT_EQ(checked[ECommandVerb::Set], 78u);
  EXPECT_EQ(checked[ECommandVerb::Get], 24u);
}

TEST(CommandTableTest, AdapterCommandsHaveNoFirmCheck) {
  for (const TCommandRow& row : kCommandTable) {
    if (row.shape != EAdapterShape::OwnRecord) {
      EXPECT_FALSE(row.firmCheck) << row.name;
    }
  }
}

TEST(CommandTableTest, EveryMoveIsAnOwnHandlerWithTheFirmCheck) {
  for (const TCommandRow& row : kCommandTable) {
    if (row.verb != ECommandVerb::Move) continue;
    EXPECT_EQ(row.shape, EAdapterShape::OwnRecord) << row.name;
    EXPECT_TRUE(row.firmCheck) << row.name;
  }
}

TEST(CommandTableTest, VerbIsTheFirstWordOfTheName) {
  for (const TCommandRow& row : kCommandTable) {
    std::string_view verb = DL::VerbName(row.verb);
    EXPECT_TRUE(row.name.starts_with(verb)) << row.name;
    ASSERT_GT(row.name.size(), verb.size()) << row.name;
    char next = row.name[verb.size()];
    EXPECT_TRUE(next >= 'A' && next <= 'Z') << row.name;
  }
}

TEST(CommandTableTest, ScopeIsTheLastScopeWordOfTheName) {
  for (const TCommandRow& row : kCommandTable) EXPECT_EQ(row.scope, ScopeOfName(row.name)) << row.name;
}

TEST(CommandTableTest, ScopeWordsCanStandTwiceInAName) {
  const TCommandRow& row = Row("SetDoNotUseGlobalDiscountsToClientSettings");
  EXPECT_EQ(row.scope, ECommandScope::ClientSettings);
  EXPECT_EQ(Row("GetBaseAssetsListFromBaseAssetsGlobal").scope, ECommandScope::Global);
  EXPECT_EQ(Row("GetFullDealerLibrarySettings").scope, ECommandScope::None);
}

TEST(CommandTableTest, RowsStandInCatalogueOrderByScope) {
  std::size_t at = 0;
  for (const TCommandRow& row : kCommandTable) {
    while (at < std::size(kScopesInOrder) && kScopesInOrder[at] != row.scope) ++at;
    ASSERT_LT(at, std::size(kScopesInOrder)) << row.name << " stands after a later scope";
  }
  EXPECT_EQ(kCommandTable.front().name, "AddItemToGlobalAllowedPartnersAndSettleCodes");
  EXPECT_EQ(kCommandTable[416].name, "GetPremOptSimpleAccountingFromGlobal");
  EXPECT_EQ(kCommandTable[417].name, "AddItemToClientSettingsAllowedPartnersAndSettleCodes");
  EXPECT_EQ(kCommandTable.back().name, "GetFullDealerLibrarySettings");
}

TEST(CommandTableTest, ReadingShapesServeGetsAndSendingShapesTheChanges) {
  for (const TCommandRow& row : kCommandTable) {
    EShapeKind kind = DL::ShapeKind(row.shape);
    if (row.shape == EAdapterShape::OwnRecord) {
      EXPECT_EQ(kind, EShapeKind::Own);
    } else if (row.verb == ECommandVerb::Get) {
      EXPECT_EQ(kind, EShapeKind::Read) << row.name;
    } else {
      EXPECT_EQ(kind, EShapeKind::Send) << row.name;
    }
  }
}

TEST(CommandTableTest, ReadingShapesAreThoseThatNameAResult) {
  for (std::size_t s = 0; s < DL::kAdapterShapeCount; ++s) {
    auto shape = static_cast<EAdapterShape>(s);
    std::string_view name = DL::ShapeName(shape);
    bool reads = name.find("_Get") != std::string_view::npos || name == "GetChangeFutClientCodesByFirmFromGlobalEx";
    EXPECT_EQ(DL::ShapeKind(shape), reads ? EShapeKind::Read : EShapeKind::Send) << name;
  }
  EXPECT_EQ(DL::ShapeName(EAdapterShape::OwnRecord), "OwnRecord");
  EXPECT_EQ(DL::ShapeKind(EAdapterShape::OwnRecord), EShapeKind::Own);
}

TEST(CommandTableTest, OwnHandlersNameTheirRecordAdaptersNone) {
  for (const TCommandRow& row : kCommandTable) {
    EXPECT_TRUE(row.function.starts_with("ZDL_")) << row.name;
    if (row.shape != EAdapterShape::OwnRecord) {
      EXPECT_TRUE(row.record.empty()) << row.name;
    } else if (row.record != "TDL_SetFuturesCommissionToSection") {
      EXPECT_EQ(row.record, "TDL_" + std::string(row.name)) << row.name;
    }
  }
}

TEST(CommandTableTest, FuturesCommissionOfASectionSharesOneRecord) {
  EXPECT_EQ(Row("SetFuturesCommissionToClientTemplate").record, "TDL_SetFuturesCommissionToSection");
  EXPECT_EQ(Row("SetFuturesCommissionToClientSettings").record, "TDL_SetFuturesCommissionToSection");
  EXPECT_EQ(Row("SetFuturesCommissionToGlobal").record, "TDL_SetFuturesCommissionToGlobal");
}

TEST(CommandTableTest, CommandsWithToldRecordsHaveOwnHandlers) {
  for (const char* name :
       {"AddItemToGlobalAllowedPartnersAndSettleCodes", "GetItemFromGlobalAllowedPartnersAndSettleCodes",
        "AddClientToClientTemplate", "MoveClientBetweenClientTemplates", "AddBaseAssetsTemplate",
        "AddCorrespToGlobalChangeFutClientCodes", "SetSecurityDiscountsToMarginTemplate", "SetMaxPositionLimitToGlobal",
        "SetMinOrderQtyToGlobal", "GetMinOrderQtyFromClientSettings", "SetCommissionSettingsCurrencyToGlobal",
        "SetFuturesCommissionToClientTemplate", "SetTPSettings", "GetTPList",
        "SetLimitAllowedSecurityByClassesToGlobal"}) {
    EXPECT_EQ(Row(name).shape, EAdapterShape::OwnRecord) << name;
  }
}

TEST(CommandTableTest, ToldAdapterRows) {
  EXPECT_EQ(Row("GetFullDealerLibrarySettings").shape, EAdapterShape::SendOneString_GetString);
  EXPECT_EQ(Row("GetUsePGOFromGlobal").shape, EAdapterShape::SendOneString_GetBool);
  EXPECT_EQ(Row("SetUsePGOToGlobal").shape, EAdapterShape::SendOneStringAndBool);
  EXPECT_EQ(Row("GetChangeFutClientCodesByFirmFromGlobalEx").shape,
            EAdapterShape::GetChangeFutClientCodesByFirmFromGlobalEx);
}

TEST(CommandTableTest, ReadOnlyTestLooksAtTheFirstThreeCharacters) {
  EXPECT_TRUE(DL::PassesReadOnlyTest("GetUsePGOFromGlobal"));
  EXPECT_TRUE(DL::PassesReadOnlyTest("MoveClientBetweenClientTemplates"));
  EXPECT_FALSE(DL::PassesReadOnlyTest("SetUsePGOToGlobal"));
  EXPECT_FALSE(DL::PassesReadOnlyTest("AddClientTemplate"));
  EXPECT_FALSE(DL::PassesReadOnlyTest("RemoveClientTemplate"));
  EXPECT_FALSE(DL::PassesReadOnlyTest("RemXYZ"));
  EXPECT_FALSE(DL::PassesReadOnlyTest("SetNotACommand"));
  EXPECT_TRUE(DL::PassesReadOnlyTest("setUsePGOToGlobal"));
  EXPECT_TRUE(DL::PassesReadOnlyTest("Se"));
  EXPECT_TRUE(DL::PassesReadOnlyTest(""));
}

TEST(CommandTableTest, ReadersMayRunGetsAndMovesOnly) {
  for (const TCommandRow& row : kCommandTable) {
    bool reader = row.verb == ECommandVerb::Get || row.verb == ECommandVerb::Move;
    EXPECT_EQ(DL::PassesReadOnlyTest(row.name), reader) << row.name;
  }
}

TEST(CommandTableTest, NamesOfVerbsAndScopes) {
  EXPECT_EQ(DL::VerbName(ECommandVerb::Remove), "Remove");
  EXPECT_EQ(DL::VerbName(ECommandVerb::Move), "Move");
  EXPECT_EQ(DL::ScopeName(ECommandScope::PortfolioRiskConfigTemplate), "PortfolioRiskConfigTemplate");
  EXPECT_EQ(DL::ScopeName(ECommandScope::None), "None");
}

}  // namespace
