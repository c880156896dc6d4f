// The complex instrument stores of the hub: the approved clients, the groups
// of complex instruments and the groups of instruments and classes; their
// load, their text and their reload by InitLite.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/SavedText.h"
#include "core/TStorageHub.h"
#include "base/ResultCodes.h"

namespace {

using DL::TStorageHub;
using Codes = std::set<std::string>;

std::string Save(TStorageHub& hub) { return ztest::SavedText(hub); }

// The group's classes and instruments; fails the test when it is absent.
const DL::TInstrumentGroup& Group(const TStorageHub::TInstrumentGroups& groups, const std::string& name) {
  static const DL::TInstrumentGroup kNone;
  auto it = groups.find(name);
  if (it == groups.end()) {
    ADD_FAILURE() << "no group " << name;
    return kNone;
  }
  return it->second;
}

// ---- ComplexFIApprovedClients ----

TEST(HubComplexFIApprovedClientsTest, ClientsIsACommaListOfClientCodes) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients= C2 , C1,,C2\n", 2);
  EXPECT_EQ(hub.GetComplexFIApprovedClients(), (Codes{"C1", "C2"}));
}

TEST(HubComplexFIApprovedClientsTest, CodesLongerThan12AreDroppedSilently) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=ABCDEFGHIJKL,ABCDEFGHIJKLM\n", 2);
  EXPECT_EQ(hub.GetComplexFIApprovedClients(), Codes{"ABCDEFGHIJKL"});
}

TEST(HubComplexFIApprovedClientsTest, SectionAndParameterNamesIgnoreCase) {
  TStorageHub hub("[COMPLEXFIAPPROVEDCLIENTS]\nclients=C1\n", 2);
  EXPECT_EQ(hub.GetComplexFIApprovedClients(), Codes{"C1"});
}

TEST(HubComplexFIApprovedClientsTest, AnAbsentSectionGivesNoClients) {
  TStorageHub hub("[General]\nUSEPGO=1\n", 2);
  EXPECT_TRUE(hub.GetComplexFIApprovedClients().empty());
}

TEST(HubComplexFIApprovedClientsTest, IsWrittenFromTheStoreInCodeOrderAndKeepsOtherKeys) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C2,C1,ABCDEFGHIJKLM\nNote=x\n", 2);
  EXPECT_EQ(Save(hub), "[ComplexFIApprovedClients]\r\nClients=C1,C2\r\nNote=x\r\n\r\n");
}

TEST(HubComplexFIApprovedClientsTest, ASectionWithNoValidClientIsNotWritten) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=ABCDEFGHIJKLM\n[General]\nUSEPGO=1\n", 2);
  EXPECT_EQ(Save(hub), "[General]\r\nUSEPGO=1\r\n\r\n");
}

// ---- Groups: ComplexInstruments and GroupsOfInstrumentsAndClasses ----

TEST(HubInstrumentGroupsTest, ClassesAndInstrumentsOfAGroup) {
  TStorageHub hub("[GroupsOfInstrumentsAndClasses]\nBlue=_ClassList_TQBR, TQTF_Instruments_SBER,GAZP\n", 2);
  const DL::TInstrumentGroup& g = Group(hub.GetGroupsOfInstrumentsAndClasses(), "Blue");
  EXPECT_EQ(g.classCodes, (Codes{"TQBR", "TQTF"}));
  EXPECT_EQ(g.instrumentCodes, (Codes{"GAZP", "SBER"}));
}

TEST(HubInstrumentGroupsTest, EitherListMayBeLeftOut) {
  TStorageHub hub("[ComplexInstruments]\nOptions=_ClassList_SPBOPT\nNotes=_Instruments_RU000A0JX0J2\n", 2);
  const DL::TInstrumentGroup& options = Group(hub.GetComplexInstruments(), "Options");
  EXPECT_EQ(options.classCodes, Codes{"SPBOPT"});
  EXPECT_TRUE(options.instrumentCodes.empty());
  const DL::TInstrumentGroup& notes = Group(hub.GetComplexInstruments(), "Notes");
  EXPECT_TRUE(notes.classCodes.empty());
  EXPECT_EQ(notes.instrumentCodes, Codes{"RU000A0JX0J2"});
}

TEST(HubInstrumentGroupsTest, MarkersIgnoreCaseAndTheShortInstrumentMarkerIsRead) {
  TStorageHub hub("[ComplexInstruments]\nA=_classlist_TQCB_instr_X1\n", 2);
  const DL::TInstrumentGroup& g = Group(hub.GetComplexInstruments(), "A");
  EXPECT_EQ(g.classCodes, Codes{"TQCB"});
  EXPECT_EQ(g.instrumentCodes, Codes{"X1"});
}

TEST(HubInstrumentGroupsTest, ALineWithACodeLongerThan12IsDropped) {
  TStorageHub hub("[ComplexInstruments]\nA=_ClassList_TQBR_Instruments_ABCDEFGHIJKLM\nB=_ClassList_ABCDEFGHIJKLM\n"
                  "C=_Instruments_ABCDEFGHIJKL\n",
                  2);
  EXPECT_EQ(hub.GetComplexInstruments().size(), 1u);
  EXPECT_EQ(Group(hub.GetComplexInstruments(), "C").instrumentCodes, Codes{"ABCDEFGHIJKL"});
}

TEST(HubInstrumentGroupsTest, ALineWithNeitherListIsDropped) {
  TStorageHub hub("[GroupsOfInstrumentsAndClasses]\nA=TQBR\nB=\nC=_ClassList_\nD=_ClassList_TQBR\n", 2);
  EXPECT_EQ(hub.GetGroupsOfInstrumentsAndClasses().size(), 1u);
  EXPECT_EQ(Group(hub.GetGroupsOfInstrumentsAndClasses(), "D").classCodes, Codes{"TQBR"});
}

TEST(HubInstrumentGroupsTest, GroupNamesIgnoreCase) {
  TStorageHub hub("[ComplexInstruments]\nStructured=_ClassList_TQCB\n", 2);
  EXPECT_EQ(Group(hub.GetComplexInstruments(), "STRUCTURED").classCodes, Codes{"TQCB"});
}

TEST(HubInstrumentGroupsTest, TheTwoSectionsFillTheirOwnStores) {
  TStorageHub hub("[ComplexInstruments]\nA=_ClassList_TQCB\n[GroupsOfInstrumentsAndClasses]\nB=_ClassList_TQBR\n", 2);
  ASSERT_EQ(hub.GetComplexInstruments().size(), 1u);
  ASSERT_EQ(hub.GetGroupsOfInstrumentsAndClasses().size(), 1u);
  EXPECT_EQ(hub.GetComplexInstruments().begin()->first, "A");
  EXPECT_EQ(hub.GetGroupsOfInstrumentsAndClasses().begin()->first, "B");
}

TEST(HubInstrumentGroupsTest, AbsentSectionsGiveEmptyStores) {
  TStorageHub hub("", 2);
  EXPECT_TRUE(hub.GetComplexInstruments().empty());
  EXPECT_TRUE(hub.GetGroupsOfInstrumentsAndClasses().empty());
}

TEST(HubInstrumentGroupsTest, AreWrittenInCanonicalFormFromTheStore) {
  TStorageHub hub("[ComplexInstruments]\nB=_instruments_Y2,Y1\nA=_classlist_TQOB,TQCB_INSTR_X\nBad=1\n", 2);
  EXPECT_EQ(Save(hub),
            "[ComplexInstruments]\r\nA=_ClassList_TQCB,TQOB_Instruments_X\r\nB=_Instruments_Y1,Y2\r\n\r\n");
}

TEST(HubInstrumentGroupsTest, GroupsOfInstrumentsAndClassesAreWrittenFromTheStore) {
  TStorageHub hub("[GroupsOfInstrumentsAndClasses]\nBlue=_ClassList_TQBR_Instruments_SBER\nBad=x\n", 2);
  EXPECT_EQ(Save(hub), "[GroupsOfInstrumentsAndClasses]\r\nBlue=_ClassList_TQBR_Instruments_SBER\r\n\r\n");
}

TEST(HubInstrumentGroupsTest, ASectionWithNoValidGroupIsNotWritten) {
  TStorageHub hub("[ComplexInstruments]\nBad=TQBR\n[General]\nUSEPGO=1\n", 2);
  EXPECT_EQ(Save(hub), "[General]\r\nUSEPGO=1\r\n\r\n");
}

// ---- InitLite ----

TEST(HubComplexInstrumentsInitLiteTest, ATextLackingComplexInstrumentsLeavesThatStoreEmpty) {
  TStorageHub hub("[ComplexInstruments]\nA=_ClassList_TQCB\n", 2);
  ASSERT_EQ(hub.GetComplexInstruments().size(), 1u);
  ASSERT_EQ(hub.InitLite("[General]\nUSEPGO=1\n"), ZDL_OK);
  EXPECT_TRUE(hub.GetComplexInstruments().empty());
}

TEST(HubComplexInstrumentsInitLiteTest, ATextLackingApprovedClientsLeavesThatStoreEmpty) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C1\n", 2);
  ASSERT_EQ(hub.InitLite(""), ZDL_OK);
  EXPECT_TRUE(hub.GetComplexFIApprovedClients().empty());
}

TEST(HubComplexInstrumentsInitLiteTest, TheStoresAreReplacedNotMerged) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C1\n[ComplexInstruments]\nA=_ClassList_TQCB\n", 2);
  ASSERT_EQ(hub.InitLite("[ComplexFIApprovedClients]\nClients=C2,C3\n[ComplexInstruments]\nB=_Instruments_Z\n"),
            ZDL_OK);
  EXPECT_EQ(hub.GetComplexFIApprovedClients(), (Codes{"C2", "C3"}));
  ASSERT_EQ(hub.GetComplexInstruments().size(), 1u);
  EXPECT_EQ(Group(hub.GetComplexInstruments(), "B").instrumentCodes, Codes{"Z"});
}

TEST(HubComplexInstrumentsInitLiteTest, GroupsOfInstrumentsAndClassesStayInForce) {
  TStorageHub hub("[GroupsOfInstrumentsAndClasses]\nBlue=_ClassList_TQBR\n", 2);
  ASSERT_EQ(hub.InitLite("[GroupsOfInstrumentsAndClasses]\nRed=_ClassList_SPBFUT\n"), ZDL_OK);
  ASSERT_EQ(hub.GetGroupsOfInstrumentsAndClasses().size(), 1u);
  EXPECT_EQ(Group(hub.GetGroupsOfInstrumentsAndClasses(), "Blue").classCodes, Codes{"TQBR"});
}

TEST(HubComplexInstrumentsInitLiteTest, ANullTextLeavesTheStoresAsTheyWere) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C1\n[ComplexInstruments]\nA=_ClassList_TQCB\n", 2);
  EXPECT_EQ(hub.InitLite(nullptr), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(hub.GetComplexFIApprovedClients(), Codes{"C1"});
  EXPECT_EQ(hub.GetComplexInstruments().size(), 1u);
}

TEST(HubComplexInstrumentsInitLiteTest, ASaveAfterInitLiteWritesTheNewStores) {
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C1\n[ComplexInstruments]\nA=_ClassList_TQCB\n", 2);
  ASSERT_EQ(hub.InitLite("[ComplexFIApprovedClients]\nClients=C2\n[ComplexInstruments]\nB=_Instruments_Z\n"),
            ZDL_OK);
  EXPECT_EQ(Save(hub),
            "[ComplexFIApprovedClients]\r\nClients=C2\r\n\r\n[ComplexInstruments]\r\nB=_Instruments_Z\r\n\r\n");
}

TEST(HubComplexInstrumentsInitLiteTest, ASaveAfterInitLiteWritesStoresTheLoadedTextLacked) {
  TStorageHub hub("[General]\nA=1\n", 2);
  ASSERT_EQ(hub.InitLite("[ComplexFIApprovedClients]\nClients=C2\n[ComplexInstruments]\nB=_Instruments_Z\n"),
            ZDL_OK);
  EXPECT_EQ(Save(hub),
            "[General]\r\nA=1\r\n\r\n[ComplexFIApprovedClients]\r\nClients=C2\r\n\r\n"
            "[ComplexInstruments]\r\nB=_Instruments_Z\r\n\r\n");
}

}  // namespace
