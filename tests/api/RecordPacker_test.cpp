// The direct packer writes the bytes that the named tree of CInMemStorage
// packs for the same record, for every kind of field.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "api/AdapterRecords.h"
#include "api/RecordFields.h"

namespace {

ZDL_DECLARE_RECORD(TPackElement, (std::string, zeta), (int, alpha), (std::vector<std::string>, lsNames));
ZDL_DECLARE_RECORD(TPackAll, (std::string, firmCode), (int, intParam), (bool, flag), (char, letter),
                   (double, number), (long long, big), (std::vector<int>, lsInts), (std::vector<double>, lsDoubles),
                   (std::vector<std::string>, lsStrings), (std::vector<TPackElement>, lsElements),
                   (std::string, Beta), (std::string, beta));
ZDL_DECLARE_RECORD(TNothing, (std::vector<int>, lsInts));

// The same record through the tree of CInMemStorage.
template <class T>
std::vector<unsigned char> TreePacked(const T& record) {
  StorageNamed::InMemStorageSpace::CInMemStorage storage;
  RecordFields::StoreRecord(record, storage, nullptr);
  StorageNamed::InMemStorageSpace::CMemoryObjectEx block;
  const unsigned long size = storage.PackToSolidBuffer(&block);
  const auto* bytes = static_cast<const unsigned char*>(block.get(nullptr));
  return std::vector<unsigned char>(bytes, bytes + size);
}

template <class T>
std::vector<unsigned char> Packed(const T& record) {
  std::vector<unsigned char> data;
  StoreDataForZDealerAPI(record, data);
  return data;
}

TEST(RecordPackerTest, TwoStringsGiveTheDocumentedBlock) {
  const std::vector<unsigned char> expected = {
      0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01,        // magic, version
      0x01, 0x08,                                                  // section of 2 children
      'f', 'i', 'r', 'm', 'C', 'o', 'd', 'e', 0, 0x02, 0x02, 0x0C, 'F', '1', 0,  // "F1"
      's', 't', 'r', 'P', 'a', 'r', 'a', 'm', 0, 0x02, 0x02, 0x08, 'X', 0};      // "X"
  EXPECT_EQ(Packed(TDL_TwoStrings{"F1", "X"}), expected);
}

TEST(RecordPackerTest, AnEmptyRecordIsElevenBytes) {
  const std::vector<unsigned char> expected = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01, 0x01, 0x00};
  EXPECT_EQ(Packed(TPackElement{}), TreePacked(TPackElement{}));  // zeta and alpha travel, the empty list not
  EXPECT_EQ(Packed(TNothing{}), expected);
}

TEST(RecordPackerTest, EveryKindOfFieldMatchesTheTree) {
  TPackAll all;
  all.firmCode = "FIRM";
  all.intParam = -5;
  all.flag = true;
  all.letter = 'Q';
  all.number = 2.5;
  all.big = 1LL << 40;
  all.lsInts = {1, 2, 3};
  all.lsDoubles = {0.5};
  all.lsStrings = {"A", "", std::string(70, 'x')};
  all.lsElements = {{"z1", 7, {"n1", "n2"}}, {"z2", 8, {}}};
  all.Beta = "upper first";
  all.beta = "lower after";
  EXPECT_EQ(Packed(all), TreePacked(all));
}

// A record written by hand whose fields and names depend on the instance.
struct TVaryingRecord {
  using TransferRecordTag = void;
  bool withOwner = false;
  std::string codeName = "classCode";
  std::string firmCode = "F", owner = "C1", code = "TQBR";
  double deviation = 5;
  template <class Self, class Visitor>
  static void VisitFields(Self& r, Visitor&& visit) {
    visit("firmCode", r.firmCode);
    if (r.withOwner) visit("clientCode", r.owner);
    visit(r.codeName.c_str(), r.code);
    visit("deviation", r.deviation);
  }
};

TEST(RecordPackerTest, ARecordWhoseFieldsVaryByInstanceMatchesTheTree) {
  TVaryingRecord plain;
  EXPECT_EQ(Packed(plain), TreePacked(plain));
  TVaryingRecord owned;
  owned.withOwner = true;
  owned.codeName = "secCode";
  EXPECT_EQ(Packed(owned), TreePacked(owned));
  TVaryingRecord renamed;
  renamed.codeName = "aCode";  // sorts before the type's first name
  EXPECT_EQ(Packed(renamed), TreePacked(renamed));
}

TEST(RecordPackerTest, EmptyListsAndEmptyStringsMatchTheTree) {
  TPackAll empty;
  EXPECT_EQ(Packed(empty), TreePacked(empty));
}

TEST(RecordPackerTest, LongListsCrossTheWidthsOfCompactNumbers) {
  for (std::size_t count : {63u, 64u, 16383u, 16384u}) {
    TDL_StringAndArray record;
    record.firmCode = "F";
    record.lsStrings.assign(count, "S");
    EXPECT_EQ(Packed(record), TreePacked(record)) << count;
  }
  TDL_String longText{std::string(20000, 'y')};
  EXPECT_EQ(Packed(longText), TreePacked(longText));
}

TEST(RecordPackerTest, APackedBlockReadsBack) {
  TPackAll all;
  all.firmCode = "F";
  all.lsElements = {{"z", 1, {"a"}}};
  std::vector<unsigned char> data = Packed(all);
  TPackAll back;
  LoadDataForZDeallibAPI(back, data);
  EXPECT_EQ(back.firmCode, "F");
  ASSERT_EQ(back.lsElements.size(), 1u);
  EXPECT_EQ(back.lsElements[0].lsNames, std::vector<std::string>{"a"});
}

}  // namespace
