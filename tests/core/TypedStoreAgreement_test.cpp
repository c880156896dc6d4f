// The typed store and the hub read one text: on both example libraries they
// agree on every margin template, every client a template claims and every
// leverage a template claims.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"
#include "settings/DeallerStorage.h"

namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

void ExpectAgreement(const std::string& library) {
  const std::string text = ReadFile(std::string(ZDL_SOURCE_DIR) + "/examples/server/libs/" + library);
  ASSERT_FALSE(text.empty()) << library;
  DL::TInfoStorage storage(text.c_str(), 2, true);
  const DLTypes::Storage* typed = storage.GetTypedStore();
  ASSERT_NE(typed, nullptr);
  const DL::TIniParser& parser = storage.Hub().GetParser();

  std::size_t templates = 0;
  for (const auto& [name, sections] : parser.GetMarginTemplateSettings()) {
    ++templates;
    EXPECT_NE(typed->GetMarginTemplateByName(name), nullptr) << library << ": template " << name;
  }
  EXPECT_EQ(typed->Templates().size(), templates) << library;
  EXPECT_GT(templates, 0u) << library;

  std::size_t clients = 0;
  for (const auto& [client, templ] : parser.GetMarginTemplateWithClientCodeSettings()) {
    ++clients;
    const DLTypes::MarginTemplate* t = storage.GetMarginTemplate(client.c_str(), -1.0);
    ASSERT_NE(t, nullptr) << library << ": client " << client;
    EXPECT_EQ(t->name, templ->first) << library << ": client " << client;
  }
  EXPECT_EQ(typed->ByClient().size(), clients) << library;
  EXPECT_GT(clients, 0u) << library;

  for (const auto& [leverage, templ] : parser.GetMarginTemplateWithLeverageSettings()) {
    const DLTypes::MarginTemplate* t = storage.GetMarginTemplate("", leverage / 100.0);
    ASSERT_NE(t, nullptr) << library << ": leverage " << leverage;
    EXPECT_EQ(t->name, templ->first) << library;
  }
  EXPECT_EQ(typed->ByLeverage().size(), parser.GetMarginTemplateWithLeverageSettings().size()) << library;

  // A client no template claims has none in either reading.
  EXPECT_EQ(storage.GetMarginTemplate("NOSUCHCLIENT", -1.0), nullptr);
  EXPECT_EQ(parser.GetMarginTemplateWithClientCodeSettings().count("NOSUCHCLIENT"), 0u);
}

TEST(TypedStoreAgreementTest, BrokerLibrary) { ExpectAgreement("broker.ini"); }

TEST(TypedStoreAgreementTest, InvestLibrary) { ExpectAgreement("invest.ini"); }

TEST(TypedStoreAgreementTest, WithoutTheRequestThereIsNoTypedStore) {
  DL::TInfoStorage storage("[clT_Margin_Template]\nClients=C1\n", 2, false);
  EXPECT_EQ(storage.GetTypedStore(), nullptr);
  EXPECT_EQ(storage.GetMarginTemplate("C1", -1.0), nullptr);
  EXPECT_TRUE(storage.GetEffectiveSetOfInstrumentsByClient("C1", -1.0).empty());
}

TEST(TypedStoreAgreementTest, AnUnreadableTypedSettingDoesNotStopTheLoad) {
  DL::TInfoStorage storage("[General]\nMDPlusMinMarginCalcRate=7\n[SetOfInstruments_ABCDEFGHIJKLMN]\nNettingType=9\n"
                           "[clT_Margin_Template]\nClients=C1\n",
                           2, true);
  ASSERT_NE(storage.GetTypedStore(), nullptr);
  EXPECT_DOUBLE_EQ(storage.GetTypedStore()->GetGeneralSection().GetMDPlusMinMarginCalcRate(), 0.5);
  EXPECT_TRUE(storage.GetTypedStore()->GetSetOfInstruments().empty());
  EXPECT_EQ(storage.GetMarginTemplate("C1", -1.0)->name, "T");
}

}  // namespace
