// The firm-wide client lists: approved clients for complex instruments and
// the client values, edited on their homes and written by the next save.
#include <gtest/gtest.h>

#include <string>

#include "SavedText.h"
#include "base/ResultCodes.h"
#include "core/TClientListsEditor.h"
#include "core/TStorageHub.h"

namespace {

using DL::TClientListsEditor;
using DL::TStorageHub;

std::vector<std::string> Strings(TStorageHub& hub, ZDL_ArrayStrings* array) {
  std::vector<std::string> out;
  for (uint64_t i = 0; i < array->count; ++i) out.emplace_back(array->items[i]);
  void* block = array;
  EXPECT_EQ(hub.GetMemory().FreeMemory(&block), 0);
  return out;
}

std::vector<std::string> Approved(TStorageHub& hub) {
  ZDL_ArrayStrings* array = nullptr;
  EXPECT_EQ(TClientListsEditor(hub).GetComplexFIApprovedClientsFromGlobal(&array), 0);
  return array == nullptr ? std::vector<std::string>{} : Strings(hub, array);
}

TEST(TClientListsEditorTest, ApprovedClientsAreReadAsLoadedInCodeOrder) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C2,C1\n", 2);
  EXPECT_EQ(Approved(hub), (std::vector<std::string>{"C1", "C2"}));
}

TEST(TClientListsEditorTest, ApprovedClientsOfAFirmWithoutTheSectionAreNotThere) {
  TStorageHub hub("[General]\nA=1\n", 2);
  ZDL_ArrayStrings* array = nullptr;
  EXPECT_EQ(TClientListsEditor(hub).GetComplexFIApprovedClientsFromGlobal(&array), 4);
  EXPECT_EQ(array, nullptr);
  EXPECT_EQ(TClientListsEditor(hub).GetComplexFIApprovedClientsFromGlobal(nullptr), 3);
}

TEST(TClientListsEditorTest, AnAddedClientIsReadBackAndSavedAndTheSectionIsCreated) {
  TStorageHub hub("[General]\nA=1\n", 2);
  TClientListsEditor editor(hub);
  ASSERT_EQ(editor.AddComplexFIApprovedClientsToGlobal("C9"), 0);
  EXPECT_EQ(editor.AddComplexFIApprovedClientsToGlobal("C9"), 16);
  EXPECT_EQ(Approved(hub), (std::vector<std::string>{"C9"}));
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("[ComplexFIApprovedClients]\r\nClients=C9\r\n"), std::string::npos) << saved;
  TStorageHub reloaded(saved.c_str(), 2);
  EXPECT_EQ(Approved(reloaded), (std::vector<std::string>{"C9"}));
  EXPECT_EQ(ztest::SavedText(reloaded), saved);
}

TEST(TClientListsEditorTest, ClientCodesAreCheckedBeforeAnythingChanges) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C1\n", 2);
  TClientListsEditor editor(hub);
  EXPECT_EQ(editor.AddComplexFIApprovedClientsToGlobal(nullptr), 3);
  EXPECT_EQ(editor.AddComplexFIApprovedClientsToGlobal(""), 3);
  EXPECT_EQ(editor.AddComplexFIApprovedClientsToGlobal("C123456789012"), 10);  // 13 characters
  EXPECT_EQ(editor.AddComplexFIApprovedClientsToGlobal("C12345678901"), 0);   // 12 characters
  EXPECT_EQ(editor.RemoveComplexFIApprovedClientsFromGlobal("C123456789012"), 10);
  EXPECT_EQ(editor.RemoveComplexFIApprovedClientsFromGlobal("NOPE"), 4);
  ASSERT_EQ(editor.RemoveComplexFIApprovedClientsFromGlobal("C1"), 0);
  EXPECT_EQ(Approved(hub), (std::vector<std::string>{"C12345678901"}));
}

TEST(TClientListsEditorTest, SettingTheListReplacesItOrRefusesItWhole) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C1\n", 2);
  TClientListsEditor editor(hub);
  char a[] = "A1", b[] = "B1", longCode[] = "C123456789012";
  char* good[] = {b, a};
  ZDL_ArrayStrings list{2, good};
  ASSERT_EQ(editor.SetComplexFIApprovedClientsToGlobal(&list), 0);
  EXPECT_EQ(Approved(hub), (std::vector<std::string>{"A1", "B1"}));
  char* bad[] = {a, longCode};
  ZDL_ArrayStrings badList{2, bad};
  EXPECT_EQ(editor.SetComplexFIApprovedClientsToGlobal(&badList), 10);
  EXPECT_EQ(editor.SetComplexFIApprovedClientsToGlobal(nullptr), 3);
  EXPECT_EQ(Approved(hub), (std::vector<std::string>{"A1", "B1"}));
  ZDL_ArrayStrings empty{0, nullptr};
  ASSERT_EQ(editor.SetComplexFIApprovedClientsToGlobal(&empty), 0);
  EXPECT_EQ(Approved(hub), std::vector<std::string>{});
  // Nothing left: the section is not written.
  EXPECT_EQ(ztest::SavedText(hub).find("ComplexFIApprovedClients"), std::string::npos);
}

TEST(TClientListsEditorTest, TheSignIsARawParameterOfGeneralWithDefaultOne) {
  TStorageHub hub("[General]\nA=1\n", 2);
  TClientListsEditor editor(hub);
  int sign = 0;
  ASSERT_EQ(editor.GetClientCvalSignFromGlobal(&sign), 0);
  EXPECT_EQ(sign, 1);
  ASSERT_EQ(editor.SetClientCvalSignToGlobal(-1), 0);
  ASSERT_EQ(editor.GetClientCvalSignFromGlobal(&sign), 0);
  EXPECT_EQ(sign, -1);
  EXPECT_NE(ztest::SavedText(hub).find("ClientCval=-1\r\n"), std::string::npos);
  EXPECT_EQ(editor.GetClientCvalSignFromGlobal(nullptr), 3);
  TStorageHub bare("[X]\nA=1\n", 2);
  EXPECT_EQ(TClientListsEditor(bare).GetClientCvalSignFromGlobal(&sign), 4);
}

TEST(TClientListsEditorTest, TheSignKeepsTheSpellingOfItsKey) {
  TStorageHub hub("[General]\nCLIENTCVAL=0\n", 2);
  ASSERT_EQ(TClientListsEditor(hub).SetClientCvalSignToGlobal(2), 0);
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("CLIENTCVAL=2\r\n"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("ClientCval=2"), std::string::npos) << saved;
}

TEST(TClientListsEditorTest, ClientValuesAreAddedReadRemovedAndSaved) {
  TStorageHub hub("[ClientCval]\nC1=1\n", 2);
  TClientListsEditor editor(hub);
  int value = 0;
  ASSERT_EQ(editor.GetClientCvalByClientCodeFromGlobal("C1", &value), 0);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(editor.AddClientCvalByClientCodeToGlobal("C1", 2), 16);
  ASSERT_EQ(editor.AddClientCvalByClientCodeToGlobal("C2", 2), 0);
  ASSERT_EQ(editor.GetClientCvalByClientCodeFromGlobal("C2", &value), 0);
  EXPECT_EQ(value, 2);
  EXPECT_EQ(editor.GetClientCvalByClientCodeFromGlobal("C3", &value), 4);
  EXPECT_EQ(editor.RemoveClientCvalByClientCodeFromGlobal("C3"), 4);
  ASSERT_EQ(editor.RemoveClientCvalByClientCodeFromGlobal("C1"), 0);
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("[ClientCval]\r\nC2=2\r\n"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("C1="), std::string::npos) << saved;
  TStorageHub reloaded(saved.c_str(), 2);
  ASSERT_EQ(TClientListsEditor(reloaded).GetClientCvalByClientCodeFromGlobal("C2", &value), 0);
  EXPECT_EQ(value, 2);
  EXPECT_EQ(ztest::SavedText(reloaded), saved);
}

TEST(TClientListsEditorTest, AFirstClientValueCreatesTheSection) {
  TStorageHub hub("[General]\nA=1\n", 2);
  TClientListsEditor editor(hub);
  ZDL_ArrayStringToString* list = nullptr;
  EXPECT_EQ(editor.GetClientCvalListFromGlobal(&list), 4);
  ASSERT_EQ(editor.AddClientCvalByClientCodeToGlobal("C7", 0), 0);
  EXPECT_NE(ztest::SavedText(hub).find("[ClientCval]\r\nC7=0\r\n"), std::string::npos);
}

TEST(TClientListsEditorTest, TheListOfClientValuesIsReplacedOnlyWhenEveryItemIsGood) {
  TStorageHub hub("[ClientCval]\nC1=1\n", 2);
  TClientListsEditor editor(hub);
  char c2[] = "C2", v2[] = "2", c3[] = "C3", v3[] = "x3", longCode[] = "C123456789012";
  ZDL_StringToString good[] = {{c2, v2}};
  ZDL_ArrayStringToString goodList{1, good};
  ZDL_StringToString notNumber[] = {{c3, v3}};
  ZDL_ArrayStringToString notNumberList{1, notNumber};
  ZDL_StringToString tooLong[] = {{longCode, v2}};
  ZDL_ArrayStringToString tooLongList{1, tooLong};
  EXPECT_EQ(editor.SetClientCvalListToGlobal(&notNumberList), 3);
  EXPECT_EQ(editor.SetClientCvalListToGlobal(&tooLongList), 10);
  EXPECT_EQ(editor.SetClientCvalListToGlobal(nullptr), 3);
  int value = 0;
  EXPECT_EQ(editor.GetClientCvalByClientCodeFromGlobal("C1", &value), 0);
  ASSERT_EQ(editor.SetClientCvalListToGlobal(&goodList), 0);
  EXPECT_EQ(editor.GetClientCvalByClientCodeFromGlobal("C1", &value), 4);
  ZDL_ArrayStringToString* list = nullptr;
  ASSERT_EQ(editor.GetClientCvalListFromGlobal(&list), 0);
  ASSERT_EQ(list->count, 1u);
  EXPECT_STREQ(list->items[0].str1, "C2");
  EXPECT_STREQ(list->items[0].str2, "2");
  void* block = list;
  EXPECT_EQ(hub.GetMemory().FreeMemory(&block), 0);
}

}  // namespace
