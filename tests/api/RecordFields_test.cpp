#include "api/RecordFields.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sample {

ZDL_DECLARE_RECORD(TDL_TwoStrings,
                   (std::string, firmCode),
                   (std::string, strParam));

ZDL_DECLARE_RECORD(TDL_StringAndArray,
                   (std::string, firmCode),
                   (std::vector<StorageNamed::STL_string>, lsStrings));

ZDL_DECLARE_RECORD(TDL_StringsPair,
                   (std::string, str1),
                   (std::string, str2));

ZDL_DECLARE_RECORD(TDL_Pairs,
                   (std::string, firmCode),
                   (std::vector<TDL_StringsPair>, lsPairs));

ZDL_DECLARE_RECORD(TDL_ScaleRate,
                   (double, volume),
                   (double, rate));

ZDL_DECLARE_RECORD(TDL_ClassGroupWithScale,
                   (std::vector<StorageNamed::STL_string>, lsClassCodes),
                   (double, minValue),
                   (double, maxValue),
                   (double, minTurnover),
                   (std::vector<TDL_ScaleRate>, scale));

ZDL_DECLARE_RECORD(TDL_Groups,
                   (std::string, firmCode),
                   (std::vector<TDL_ClassGroupWithScale>, lsGroups));

ZDL_DECLARE_RECORD(TDL_MaxPositionLimit,
                   (std::vector<StorageNamed::STL_string>, lsInstruments),
                   (bool, isLongPosLimit),
                   (long long, longPosLimit),
                   (bool, isShortPosLimit),
                   (long long, shortPosLimit));

ZDL_DECLARE_RECORD(TDL_Numbers,
                   (int, intParam),
                   (char, charParam),
                   (std::vector<int>, lsInts),
                   (std::vector<double>, lsDoubles));

// Declared beta first: the block still carries alpha first.
ZDL_DECLARE_RECORD(TDL_Ordered,
                   (int, beta),
                   (int, alpha));

ZDL_DECLARE_RECORD(TDL_Empty);

// A record written by hand, with a default of its own.
struct TDL_OpenFile {
  using TransferRecordTag = void;
  std::string firmCode;
  int nMode = 7;
  template <class Self, class Visitor>
  static void VisitFields(Self& record, Visitor&& visit) {
    visit("firmCode", record.firmCode);
    visit("nMode", record.nMode);
  }
};

}  // namespace sample

namespace {

using namespace sample;
using Bytes = std::vector<unsigned char>;

const Bytes kHeader = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01};

Bytes Block(const Bytes& root) {
  Bytes b = kHeader;
  b.insert(b.end(), root.begin(), root.end());
  return b;
}

template <class T>
Bytes Store(const T& record) {
  Bytes data;
  StoreDataForZDealerAPI(record, data);
  return data;
}

template <class T>
T Load(Bytes data) {
  T record;
  LoadDataForZDeallibAPI(record, data);
  return record;
}

TEST(RecordFieldsTest, TwoStringsMakeTheDocumentedBlock) {
  TDL_TwoStrings r;
  r.firmCode = "F1";
  r.strParam = "X";
  EXPECT_EQ(Block({0x01, 0x08,                                               //
                   'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x02, 0x02, 0x0C, 'F', '1', 0x00,  //
                   's', 't', 'r', 'P', 'a', 'r', 'a', 'm', 0x00, 0x02, 0x02, 0x08, 'X', 0x00}),
            Store(r));
}

TEST(RecordFieldsTest, TwoStringsDecodeFromTheDocumentedBlock) {
  auto r = Load<TDL_TwoStrings>(Block({0x01, 0x08,                                               //
                                       'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x02, 0x02, 0x0C, 'F', '1', 0x00,  //
                                       's', 't', 'r', 'P', 'a', 'r', 'a', 'm', 0x00, 0x02, 0x02, 0x08, 'X', 0x00}));
  EXPECT_EQ("F1", r.firmCode);
  EXPECT_EQ("X", r.strParam);
}

TEST(RecordFieldsTest, EmptyRecordIsElevenBytes) {
  EXPECT_EQ(Block({0x01, 0x00}), Store(TDL_Empty{}));
  EXPECT_EQ(11u, Store(TDL_Empty{}).size());
}

TEST(RecordFieldsTest, DefaultRecordCarriesZerosAndNoLists) {
  EXPECT_EQ(Block({0x01, 0x08,  // two children: the empty lists are not there
                   'c', 'h', 'a', 'r', 'P', 'a', 'r', 'a', 'm', 0x00, 0x02, 0x01, 0x04, 0x00,  //
                   'i', 'n', 't', 'P', 'a', 'r', 'a', 'm', 0x00, 0x02, 0x01, 0x10, 0x00, 0x00, 0x00, 0x00}),
            Store(TDL_Numbers{}));
}

TEST(RecordFieldsTest, FieldsFollowTheirNamesNotTheDeclaration) {
  TDL_Ordered r;
  r.beta = 2;
  r.alpha = 1;
  EXPECT_EQ(Block({0x01, 0x08,                                                             //
                   'a', 'l', 'p', 'h', 'a', 0x00, 0x02, 0x01, 0x10, 0x01, 0x00, 0x00, 0x00,  //
                   'b', 'e', 't', 'a', 0x00, 0x02, 0x01, 0x10, 0x02, 0x00, 0x00, 0x00}),
            Store(r));
}

TEST(RecordFieldsTest, StringListTravelsAsSections) {
  TDL_StringAndArray r;
  r.firmCode = "F";
  r.lsStrings = {"a"};
  EXPECT_EQ(Block({0x01, 0x08,                                                          //
                   'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x02, 0x02, 0x08, 'F', 0x00,  //
                   'l', 's', 'S', 't', 'r', 'i', 'n', 'g', 's', 0x00, 0x03, 0x04,       //
                   0x01, 0x04, 'S', 'T', 'L', '_', 's', 't', 'r', 'i', 'n', 'g', 0x00, 0x02, 0x02, 0x08, 'a', 0x00}),
            Store(r));
  auto back = Load<TDL_StringAndArray>(Store(r));
  EXPECT_EQ("F", back.firmCode);
  EXPECT_EQ((std::vector<std::string>{"a"}), back.lsStrings);
}

TEST(RecordFieldsTest, EmptyListLeavesNoChild) {
  TDL_StringAndArray r;
  r.firmCode = "F";
  EXPECT_EQ(Block({0x01, 0x04, 'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x02, 0x02, 0x08, 'F', 0x00}), Store(r));
}

TEST(RecordFieldsTest, OneElementListAndEmptyListAreDistinguishable) {
  TDL_StringAndArray one, none;
  one.lsStrings = {""};
  EXPECT_NE(Store(one), Store(none));
  EXPECT_EQ(1u, Load<TDL_StringAndArray>(Store(one)).lsStrings.size());
  EXPECT_TRUE(Load<TDL_StringAndArray>(Store(none)).lsStrings.empty());
}

TEST(RecordFieldsTest, ListOfRecordsTravelsFieldByField) {
  TDL_Pairs r;
  r.firmCode = "F";
  r.lsPairs = {{"a", "b"}};
  EXPECT_EQ(Block({0x01, 0x08,                                                          //
                   'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x02, 0x02, 0x08, 'F', 0x00,  //
                   'l', 's', 'P', 'a', 'i', 'r', 's', 0x00, 0x03, 0x04,                 //
                   0x01, 0x08,                                                          //
                   's', 't', 'r', '1', 0x00, 0x02, 0x02, 0x08, 'a', 0x00,               //
                   's', 't', 'r', '2', 0x00, 0x02, 0x02, 0x08, 'b', 0x00}),
            Store(r));
}

TEST(RecordFieldsTest, NestedListsRoundTrip) {
  TDL_Groups r;
  r.firmCode = "FIRM";
  TDL_ClassGroupWithScale g1;
  g1.lsClassCodes = {"TQBR", "TQTF"};
  g1.minValue = 1.5;
  g1.maxValue = 1e9;
  g1.minTurnover = -3;
  g1.scale = {{100.0, 0.01}, {1000.0, 0.005}};
  TDL_ClassGroupWithScale g2;
  g2.minValue = 2;
  r.lsGroups = {g1, g2};
  auto back = Load<TDL_Groups>(Store(r));
  EXPECT_EQ("FIRM", back.firmCode);
  ASSERT_EQ(2u, back.lsGroups.size());
  EXPECT_EQ(g1.lsClassCodes, back.lsGroups[0].lsClassCodes);
  EXPECT_EQ(1.5, back.lsGroups[0].minValue);
  EXPECT_EQ(1e9, back.lsGroups[0].maxValue);
  EXPECT_EQ(-3, back.lsGroups[0].minTurnover);
  ASSERT_EQ(2u, back.lsGroups[0].scale.size());
  EXPECT_EQ(1000.0, back.lsGroups[0].scale[1].volume);
  EXPECT_EQ(0.005, back.lsGroups[0].scale[1].rate);
  EXPECT_TRUE(back.lsGroups[1].lsClassCodes.empty());
  EXPECT_TRUE(back.lsGroups[1].scale.empty());
  EXPECT_EQ(2, back.lsGroups[1].minValue);
}

TEST(RecordFieldsTest, BoolsAndLongLongsRoundTrip) {
  TDL_MaxPositionLimit r;
  r.lsInstruments = {"SBER"};
  r.isLongPosLimit = true;
  r.longPosLimit = 5000000000LL;
  r.shortPosLimit = -1;
  auto back = Load<TDL_MaxPositionLimit>(Store(r));
  EXPECT_EQ(r.lsInstruments, back.lsInstruments);
  EXPECT_TRUE(back.isLongPosLimit);
  EXPECT_FALSE(back.isShortPosLimit);
  EXPECT_EQ(5000000000LL, back.longPosLimit);
  EXPECT_EQ(-1, back.shortPosLimit);
}

TEST(RecordFieldsTest, NumberListsRoundTrip) {
  TDL_Numbers r;
  r.intParam = -5;
  r.charParam = 'q';
  r.lsInts = {1, 2, 3};
  r.lsDoubles = {0.25};
  auto back = Load<TDL_Numbers>(Store(r));
  EXPECT_EQ(-5, back.intParam);
  EXPECT_EQ('q', back.charParam);
  EXPECT_EQ(r.lsInts, back.lsInts);
  EXPECT_EQ(r.lsDoubles, back.lsDoubles);
}

TEST(RecordFieldsTest, EmptyRequestDecodesToDefaults) {
  auto r = Load<TDL_TwoStrings>({});
  EXPECT_EQ("", r.firmCode);
  EXPECT_EQ("", r.strParam);
  auto h = Load<TDL_OpenFile>({});
  EXPECT_EQ(7, h.nMode);
}

TEST(RecordFieldsTest, AbsentFieldKeepsWhatTheRecordHeld) {
  TDL_OpenFile r;
  r.firmCode = "F";
  Bytes block = Block({0x01, 0x04, 'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x02, 0x02, 0x08, 'G', 0x00});
  LoadDataForZDeallibAPI(r, block);
  EXPECT_EQ("G", r.firmCode);
  EXPECT_EQ(7, r.nMode);
}

TEST(RecordFieldsTest, DamagedBlocksDecodeToDefaults) {
  TDL_Groups full;
  full.firmCode = "FIRM";
  full.lsGroups.resize(2);
  full.lsGroups[0].lsClassCodes = {"A", "B"};
  full.lsGroups[0].scale = {{1, 2}};
  full.lsGroups[1].maxValue = 4;
  Bytes whole = Store(full);
  // Every cut of the block, from nothing to one byte short.
  for (size_t cut = 0; cut < whole.size(); ++cut) {
    auto r = Load<TDL_Groups>(Bytes(whole.begin(), whole.begin() + cut));
    EXPECT_EQ("", r.firmCode) << "cut at " << cut;
    EXPECT_TRUE(r.lsGroups.empty()) << "cut at " << cut;
  }
  // A wrong magic or version.
  Bytes badMagic = whole;
  badMagic[0] ^= 1;
  EXPECT_EQ("", Load<TDL_Groups>(badMagic).firmCode);
  Bytes badVersion = whole;
  badVersion[8] = 2;
  EXPECT_EQ("", Load<TDL_Groups>(badVersion).firmCode);
  // A root that is no section.
  Bytes badRoot = whole;
  badRoot[9] = 0x02;
  EXPECT_EQ("", Load<TDL_Groups>(badRoot).firmCode);
}

TEST(RecordFieldsTest, FieldOfAnotherKindIsIgnored) {
  // "firmCode" as a section, "nMode" as a list: neither is taken.
  auto r = Load<TDL_OpenFile>(Block({0x01, 0x08,                                     //
                                     'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x01, 0x00,  //
                                     'n', 'M', 'o', 'd', 'e', 0x00, 0x03, 0x00}));
  EXPECT_EQ("", r.firmCode);
  EXPECT_EQ(7, r.nMode);
}

TEST(RecordFieldsTest, StoreMakesTheDataExactlyTheBlock) {
  Bytes data(1000, 0xEE);
  TDL_TwoStrings r;
  StoreDataForZDealerAPI(r, data);
  EXPECT_EQ(Block({0x01, 0x08,                                                      //
                   'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x02, 0x02, 0x04, 0x00,  //
                   's', 't', 'r', 'P', 'a', 'r', 'a', 'm', 0x00, 0x02, 0x02, 0x04, 0x00}),
            data);
}

TEST(RecordFieldsTest, HandWrittenRecordTravelsLikeADeclaredOne) {
  TDL_OpenFile r;
  r.firmCode = "F";
  r.nMode = 0;
  EXPECT_EQ(Block({0x01, 0x08,                                                          //
                   'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0x00, 0x02, 0x02, 0x08, 'F', 0x00,  //
                   'n', 'M', 'o', 'd', 'e', 0x00, 0x02, 0x01, 0x10, 0x00, 0x00, 0x00, 0x00}),
            Store(r));
  EXPECT_EQ(0, Load<TDL_OpenFile>(Store(r)).nMode);
}

}  // namespace
