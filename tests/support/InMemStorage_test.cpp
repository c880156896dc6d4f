#include "support/InMemStorage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace StorageNamed::InMemStorageSpace;
using Bytes = std::vector<unsigned char>;

// The 9 bytes every block starts with: magic and version 1.
const Bytes kHeader = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01};

Bytes Block(const Bytes& root) {
  Bytes b = kHeader;
  b.insert(b.end(), root.begin(), root.end());
  return b;
}

class InMemStorageTest : public ::testing::Test {
 protected:
  static Bytes Pack(const CInMemStorage& s) {
    CMemoryObjectEx block;
    unsigned long size = s.PackToSolidBuffer(&block);
    const unsigned char* p = block.get(nullptr);
    return Bytes(p, p + size);
  }
  static unsigned long Load(CInMemStorage& s, const Bytes& bytes) {
    fake_mem_block view(bytes.data(), bytes.size());
    return s.LoadFromSolidBuffer(&view);
  }
  static bool SetInt(CInMemStorage& s, const char* name, int v, HSSECTION parent = nullptr) {
    fake_mem_block view(&v, sizeof v);
    return s.SetValue(name, &view, parent, vkNative);
  }
  static int GetInt(CInMemStorage& s, const char* name, HSSECTION parent = nullptr) {
    int v = -1;
    fake_mem_block view(&v, sizeof v);
    s.GetValue(name, &view, parent, nullptr);
    return v;
  }
  static Bytes CompactBytes(unsigned long value) {
    unsigned char buf[16] = {};
    running_ptr rp(buf, sizeof buf);
    EXPECT_TRUE(PutUnsignedCompact(rp, value));
    EXPECT_EQ(GetUnsignedCompactSize(value), rp.pos());
    return Bytes(buf, buf + rp.pos());
  }
  static unsigned long PopCompact(Bytes bytes) {
    running_ptr rp(bytes.data(), bytes.size());
    unsigned long value = 12345;
    EXPECT_TRUE(PopUnsignedCompact(rp, &value));
    EXPECT_EQ(bytes.size(), rp.pos());
    return value;
  }
};

// ---- compact numbers ----

TEST_F(InMemStorageTest, SixtyThreeTakesOneByteAndSixtyFourTwo) {
  EXPECT_EQ((Bytes{0xFC}), CompactBytes(63));
  EXPECT_EQ((Bytes{0x01, 0x01}), CompactBytes(64));
  EXPECT_EQ(63u, PopCompact({0xFC}));
  EXPECT_EQ(64u, PopCompact({0x01, 0x01}));
}

TEST_F(InMemStorageTest, SixteenThousandThreeHundredEightyThreeTakesTwoBytesAndOneMoreFour) {
  EXPECT_EQ((Bytes{0xFD, 0xFF}), CompactBytes(16383));
  EXPECT_EQ((Bytes{0x02, 0x00, 0x01, 0x00}), CompactBytes(16384));
  EXPECT_EQ(16383u, PopCompact({0xFD, 0xFF}));
  EXPECT_EQ(16384u, PopCompact({0x02, 0x00, 0x01, 0x00}));
}

TEST_F(InMemStorageTest, TopOfTheFourByteFormLosesItsValue) {
  EXPECT_EQ((Bytes{0xFE, 0xFF, 0xFF, 0xFF}), CompactBytes(1073741823));
  EXPECT_EQ(1073741823u, PopCompact({0xFE, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ((Bytes{0x02, 0x00, 0x00, 0x00}), CompactBytes(1073741824));
  EXPECT_EQ(0u, PopCompact({0x02, 0x00, 0x00, 0x00}));
  EXPECT_EQ((Bytes{0x07, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00}), CompactBytes(1073741825));
  EXPECT_EQ(1073741825u, PopCompact({0x07, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00}));
}

TEST_F(InMemStorageTest, ZeroIsOneZeroByte) {
  EXPECT_EQ((Bytes{0x00}), CompactBytes(0));
}

TEST_F(InMemStorageTest, CompactNumberCutShortIsNotRead) {
  Bytes cut = {0x02, 0x00, 0x01};  // says 4 bytes, has 3
  running_ptr rp(cut.data(), cut.size());
  unsigned long value = 99;
  EXPECT_FALSE(PopUnsignedCompact(rp, &value));
  EXPECT_EQ(99u, value);
  EXPECT_EQ(0u, rp.pos());
  running_ptr none(cut.data(), 0);
  EXPECT_FALSE(PopUnsignedCompact(none, &value));
}

TEST_F(InMemStorageTest, CompactNumberDoesNotWritePastTheLimit) {
  unsigned char buf[2] = {0xAA, 0xAA};
  running_ptr rp(buf, 1);
  EXPECT_FALSE(PutUnsignedCompact(rp, 64));
  EXPECT_EQ(0u, rp.pos());
  EXPECT_EQ(0xAA, buf[0]);
}

TEST_F(InMemStorageTest, NameIsItsBytesAndAZero) {
  unsigned char buf[8] = {};
  running_ptr rp(buf, sizeof buf);
  EXPECT_EQ(4u, GetPackedNameEntrySize("abc"));
  ASSERT_TRUE(PackNameEntry(rp, "abc"));
  EXPECT_EQ((Bytes{'a', 'b', 'c', 0}), Bytes(buf, buf + 4));
  running_ptr back(buf, 4);
  std::string name;
  ASSERT_TRUE(UnPackNameEntry(back, &name));
  EXPECT_EQ("abc", name);
  EXPECT_EQ(4u, back.pos());
}

TEST_F(InMemStorageTest, NameWithoutTerminatorIsNotRead) {
  unsigned char buf[3] = {'a', 'b', 'c'};
  running_ptr rp(buf, sizeof buf);
  std::string name = "kept";
  EXPECT_FALSE(UnPackNameEntry(rp, &name));
  EXPECT_EQ("kept", name);
  EXPECT_EQ(0u, rp.pos());
}

TEST_F(InMemStorageTest, EntryTypesBuildTheirClasses) {
  EXPECT_EQ(etSection, BuildEntryByType(1)->GetEntryType());
  EXPECT_EQ(etValue, BuildEntryByType(2)->GetEntryType());
  EXPECT_EQ(etSectionsArray, BuildEntryByType(3)->GetEntryType());
  EXPECT_EQ(etValuesArray, BuildEntryByType(4)->GetEntryType());
  EXPECT_EQ(nullptr, BuildEntryByType(0));
  EXPECT_EQ(nullptr, BuildEntryByType(5));
}

// ---- packing ----

TEST_F(InMemStorageTest, EmptyTreeIsAnElevenByteBlock) {
  CInMemStorage s;
  EXPECT_EQ(Block({0x01, 0x00}), Pack(s));
  EXPECT_EQ(11u, Pack(s).size());
}

TEST_F(InMemStorageTest, ValueIsTypeKindLengthAndBytes) {
  CInMemStorage s;
  ASSERT_TRUE(SetInt(s, "n", 5));
  EXPECT_EQ(Block({0x01, 0x04, 'n', 0x00, 0x02, 0x01, 0x10, 0x05, 0x00, 0x00, 0x00}), Pack(s));
}

TEST_F(InMemStorageTest, ChildrenFollowTheirNamesBytewise) {
  CInMemStorage s;
  SetInt(s, "beta", 2);
  SetInt(s, "alpha", 1);
  SetInt(s, "Zed", 3);  // capitals sort before small letters
  EXPECT_EQ(Block({0x01, 0x0C,                                                       // three children
                   'Z', 'e', 'd', 0x00, 0x02, 0x01, 0x10, 0x03, 0x00, 0x00, 0x00,      //
                   'a', 'l', 'p', 'h', 'a', 0x00, 0x02, 0x01, 0x10, 0x01, 0x00, 0x00, 0x00,  //
                   'b', 'e', 't', 'a', 0x00, 0x02, 0x01, 0x10, 0x02, 0x00, 0x00, 0x00}),
            Pack(s));
}

TEST_F(InMemStorageTest, NestedSectionAndArraysLayOut) {
  CInMemStorage s;
  HSSECTION sub = s.OpenSection("s", nullptr, true);
  ASSERT_NE(nullptr, sub);
  char c = 'x';
  fake_mem_block cv(&c, 1);
  ASSERT_TRUE(s.SetValue("c", &cv, sub, vkNative));
  CSSection* element = nullptr;
  CSSectionsArray* rows = s.InsertFirstSection("r", &element, nullptr);
  ASSERT_NE(nullptr, rows);
  ASSERT_TRUE(s.InsertNextSection(rows, &element));
  SetInt(s, "i", 7, element);
  short one = 1;
  fake_mem_block v1(&one, 2);
  CSValuesArray* values = s.InsertFirstValue("v", &v1, nullptr, vkNative);
  ASSERT_NE(nullptr, values);
  unsigned char b = 0xAB;
  fake_mem_block v2(&b, 1);
  ASSERT_TRUE(s.InsertNextValue(values, &v2));
  EXPECT_EQ(Block({0x01, 0x0C,                                      // root, 3 children
                   'r', 0x00, 0x03, 0x08,                           // sections array of 2
                   0x01, 0x00,                                      //   empty section
                   0x01, 0x04, 'i', 0x00, 0x02, 0x01, 0x10, 0x07, 0x00, 0x00, 0x00,
                   's', 0x00, 0x01, 0x04, 'c', 0x00, 0x02, 0x01, 0x04, 'x',  // section with one char
                   'v', 0x00, 0x04, 0x01, 0x08,                     // values array of 2, kind 1
                   0x08, 0x01, 0x00,                                //   2 bytes
                   0x04, 0xAB}),                                    //   1 byte
            Pack(s));
}

TEST_F(InMemStorageTest, PackingIntoNothingGivesZero) {
  CInMemStorage s;
  EXPECT_EQ(0u, s.PackToSolidBuffer(nullptr));
}

TEST_F(InMemStorageTest, PackingIntoAViewTooSmallGivesZero) {
  CInMemStorage s;
  unsigned char small[10] = {};
  fake_mem_block view(small, sizeof small);
  EXPECT_EQ(0u, s.PackToSolidBuffer(&view));
}

TEST_F(InMemStorageTest, PackingIntoALargeEnoughViewWritesThere) {
  CInMemStorage s;
  unsigned char room[16] = {};
  fake_mem_block view(room, sizeof room);
  EXPECT_EQ(11u, s.PackToSolidBuffer(&view));
  EXPECT_EQ(Block({0x01, 0x00}), Bytes(room, room + 11));
}

// ---- unpacking ----

TEST_F(InMemStorageTest, BlockOfNineBytesOrFewerIsRefused) {
  CInMemStorage s;
  SetInt(s, "keep", 1);
  EXPECT_EQ(0u, Load(s, kHeader));
  EXPECT_EQ(0u, Load(s, Bytes(kHeader.begin(), kHeader.begin() + 4)));
  EXPECT_EQ(0u, Load(s, {}));
  EXPECT_EQ(1, GetInt(s, "keep"));  // the tree stays as it was
}

TEST_F(InMemStorageTest, VersionAboveOneIsRefused) {
  CInMemStorage s;
  SetInt(s, "keep", 1);
  Bytes b = Block({0x01, 0x00});
  b[8] = 2;
  EXPECT_EQ(0u, Load(s, b));
  b[8] = 0xFF;
  EXPECT_EQ(0u, Load(s, b));
  EXPECT_EQ(1, GetInt(s, "keep"));
}

TEST_F(InMemStorageTest, VersionZeroIsRead) {
  CInMemStorage s;
  Bytes b = Block({0x01, 0x04, 'n', 0x00, 0x02, 0x01, 0x10, 0x05, 0x00, 0x00, 0x00});
  b[8] = 0;
  EXPECT_EQ(b.size(), Load(s, b));
  EXPECT_EQ(5, GetInt(s, "n"));
}

TEST_F(InMemStorageTest, WrongMagicIsRefused) {
  CInMemStorage s;
  SetInt(s, "keep", 1);
  Bytes b = Block({0x01, 0x00});
  b[7] = 0x89;
  EXPECT_EQ(0u, Load(s, b));
  EXPECT_EQ(1, GetInt(s, "keep"));
}

TEST_F(InMemStorageTest, RootThatIsNoSectionEmptiesTheTree) {
  CInMemStorage s;
  SetInt(s, "gone", 1);
  EXPECT_EQ(0u, Load(s, Block({0x02, 0x01, 0x00})));
  EXPECT_EQ(nullptr, s.GetSecEntry("gone", nullptr));
}

TEST_F(InMemStorageTest, LoadGivesTheBytesConsumed) {
  CInMemStorage s;
  Bytes b = Block({0x01, 0x04, 'n', 0x00, 0x02, 0x01, 0x10, 0x05, 0x00, 0x00, 0x00});
  b.push_back(0xEE);  // trailing bytes are not read
  EXPECT_EQ(b.size() - 1, Load(s, b));
}

TEST_F(InMemStorageTest, LoadReplacesWhatTheTreeHeld) {
  CInMemStorage s;
  SetInt(s, "old", 1);
  ASSERT_EQ(11u, Load(s, Block({0x01, 0x00})));
  EXPECT_EQ(nullptr, s.GetSecEntry("old", nullptr));
}

TEST_F(InMemStorageTest, UnknownChildTypeEndsTheSectionKeepingEarlierChildren) {
  CInMemStorage s;
  Bytes b = Block({0x01, 0x0C,                                            // says 3 children
                   'a', 0x00, 0x02, 0x01, 0x10, 0x05, 0x00, 0x00, 0x00,  // a = 5
                   'b', 0x00, 0x07,                                      // type 7: reading ends here
                   0x00, 0x00});
  EXPECT_EQ(kHeader.size() + 13, Load(s, b));  // up to the unknown type byte
  EXPECT_EQ(5, GetInt(s, "a"));
  EXPECT_EQ(nullptr, s.GetSecEntry("b", nullptr));
}

TEST_F(InMemStorageTest, RepeatedNameReplacesTheEarlierChild) {
  CInMemStorage s;
  Bytes b = Block({0x01, 0x08,                                            //
                   'a', 0x00, 0x02, 0x01, 0x10, 0x05, 0x00, 0x00, 0x00,  //
                   'a', 0x00, 0x02, 0x01, 0x10, 0x06, 0x00, 0x00, 0x00});
  EXPECT_EQ(b.size(), Load(s, b));
  EXPECT_EQ(6, GetInt(s, "a"));
  EXPECT_EQ(1u, s.Root().Entries().size());
}

TEST_F(InMemStorageTest, EveryCutOfABlockEmptiesTheTree) {
  CInMemStorage src;
  SetInt(src, "a", 1);
  CSSection* row = nullptr;
  CSSectionsArray* rows = src.InsertFirstSection("rows", &row, nullptr);
  SetInt(src, "x", 2, row);
  src.InsertNextSection(rows, &row);
  int n = 3;
  fake_mem_block v(&n, 4);
  CSValuesArray* values = src.InsertFirstValue("vals", &v, nullptr, vkNative);
  src.InsertNextValue(values, &v);
  const char text[] = "zz";
  fake_mem_block t(text, 3);
  src.SetValue("z", &t, nullptr, vkString);
  Bytes whole = Pack(src);
  for (size_t cut = kHeader.size() + 1; cut < whole.size(); ++cut) {
    CInMemStorage s;
    SetInt(s, "before", 1);
    Bytes part(whole.begin(), whole.begin() + cut);
    EXPECT_EQ(0u, Load(s, part)) << "cut at " << cut;
    EXPECT_TRUE(s.Root().Entries().empty()) << "cut at " << cut;
  }
  CInMemStorage s;
  EXPECT_EQ(whole.size(), Load(s, whole));
  EXPECT_EQ(whole, Pack(s));
}

TEST_F(InMemStorageTest, ValueLongerThanTheBlockIsRefused) {
  CInMemStorage s;
  EXPECT_EQ(0u, Load(s, Block({0x01, 0x04, 'n', 0x00, 0x02, 0x01, 0x14, 0x05, 0x00, 0x00, 0x00})));
  EXPECT_TRUE(s.Root().Entries().empty());
}

TEST_F(InMemStorageTest, HugeCountsEndAtTheBlockEnd) {
  CInMemStorage s;
  // A sections array and a values array that claim 2^62 - 1 elements.
  EXPECT_EQ(0u, Load(s, Block({0x01, 0x04, 'r', 0x00, 0x03, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x01,
                               0x00})));
  EXPECT_EQ(0u, Load(s, Block({0x01, 0x04, 'v', 0x00, 0x04, 0x01, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                               0x00})));
  // A value that claims 2^62 - 1 bytes.
  EXPECT_EQ(0u, Load(s, Block({0x01, 0x04, 'n', 0x00, 0x02, 0x01, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})));
}

TEST_F(InMemStorageTest, SectionsNestedTooDeepAreRefused) {
  auto nested = [](unsigned depth) {
    Bytes root;
    for (unsigned i = 1; i < depth; ++i) root.insert(root.end(), {0x01, 0x04, 's', 0x00});
    root.insert(root.end(), {0x01, 0x00});
    return Block(root);
  };
  CInMemStorage s;
  EXPECT_NE(0u, Load(s, nested(kMaxSectionDepth)));
  EXPECT_EQ(0u, Load(s, nested(kMaxSectionDepth + 1)));
  EXPECT_TRUE(s.Root().Entries().empty());
}

TEST_F(InMemStorageTest, ArrayElementThatIsNoSectionIsRefused) {
  CInMemStorage s;
  EXPECT_EQ(0u, Load(s, Block({0x01, 0x04, 'r', 0x00, 0x03, 0x04, 0x02, 0x01, 0x00})));
}

TEST_F(InMemStorageTest, ArrayReadPositionStandsAtTheFirstElementAfterLoading) {
  CInMemStorage s;
  Bytes b = Block({0x01, 0x04, 'r', 0x00, 0x03, 0x08,                    //
                   0x01, 0x04, 'i', 0x00, 0x02, 0x01, 0x10, 0x01, 0x00, 0x00, 0x00,  //
                   0x01, 0x04, 'i', 0x00, 0x02, 0x01, 0x10, 0x02, 0x00, 0x00, 0x00});
  ASSERT_EQ(b.size(), Load(s, b));
  auto* rows = static_cast<CSSectionsArray*>(s.GetSecEntry("r", nullptr));
  ASSERT_EQ(etSectionsArray, rows->GetEntryType());
  CSSection* row = nullptr;
  ASSERT_TRUE(s.GetNextSection(rows, &row));
  EXPECT_EQ(1, GetInt(s, "i", row));
}

TEST_F(InMemStorageTest, LoadingANullBlockGivesZero) {
  CInMemStorage s;
  EXPECT_EQ(0u, s.LoadFromSolidBuffer(nullptr));
}

// ---- tree operations ----

TEST_F(InMemStorageTest, OpenSectionCreatesOnlyWhenAsked) {
  CInMemStorage s;
  EXPECT_EQ(nullptr, s.OpenSection("sec", nullptr, false));
  HSSECTION made = s.OpenSection("sec", nullptr, true);
  ASSERT_NE(nullptr, made);
  EXPECT_EQ(made, s.OpenSection("sec", nullptr, false));
  EXPECT_EQ(made, s.OpenSection("sec", nullptr, true));
}

TEST_F(InMemStorageTest, OpenSectionOfAValueGivesNull) {
  CInMemStorage s;
  SetInt(s, "v", 1);
  EXPECT_EQ(nullptr, s.OpenSection("v", nullptr, false));
  EXPECT_EQ(nullptr, s.OpenSection("v", nullptr, true));
  EXPECT_EQ(1, GetInt(s, "v"));
}

TEST_F(InMemStorageTest, SetValueReplacesAValueAndRefusesOtherEntries) {
  CInMemStorage s;
  ASSERT_TRUE(SetInt(s, "v", 1));
  ASSERT_TRUE(SetInt(s, "v", 2));
  EXPECT_EQ(2, GetInt(s, "v"));
  s.OpenSection("sec", nullptr, true);
  EXPECT_FALSE(SetInt(s, "sec", 3));
}

TEST_F(InMemStorageTest, GetValueGivesTheKindAndRefusesOtherEntries) {
  CInMemStorage s;
  const char text[] = "hi";
  fake_mem_block t(text, 3);
  ASSERT_TRUE(s.SetValue("t", &t, nullptr, vkString));
  CMemoryObjectEx out;
  unsigned char kind = 0;
  ASSERT_TRUE(s.GetValue("t", &out, nullptr, &kind));
  EXPECT_EQ(vkString, kind);
  unsigned long size = 0;
  const unsigned char* p = out.get(&size);
  EXPECT_EQ((Bytes{'h', 'i', 0}), Bytes(p, p + size));
  s.OpenSection("sec", nullptr, true);
  EXPECT_FALSE(s.GetValue("sec", &out, nullptr, &kind));
  EXPECT_FALSE(s.GetValue("missing", &out, nullptr, &kind));
}

TEST_F(InMemStorageTest, ValuesLiveInTheirOwnSection) {
  CInMemStorage s;
  HSSECTION sec = s.OpenSection("sec", nullptr, true);
  SetInt(s, "v", 1, sec);
  SetInt(s, "v", 2);
  EXPECT_EQ(1, GetInt(s, "v", sec));
  EXPECT_EQ(2, GetInt(s, "v"));
}

TEST_F(InMemStorageTest, DeleteEntryRemovesAChild) {
  CInMemStorage s;
  SetInt(s, "v", 1);
  EXPECT_TRUE(s.DeleteEntry("v", nullptr));
  EXPECT_EQ(nullptr, s.GetSecEntry("v", nullptr));
  EXPECT_FALSE(s.DeleteEntry("v", nullptr));
}

// Counts its own deletion, to show that the storage never leaks an entry.
class TrackedValue : public CSValue {
 public:
  explicit TrackedValue(int* deleted) : m_deleted(deleted) {}
  ~TrackedValue() override { ++*m_deleted; }

 private:
  int* m_deleted;
};

TEST_F(InMemStorageTest, InsertSecEntryTakesOwnershipAndReplaces) {
  int deleted = 0;
  {
    CInMemStorage s;
    ASSERT_TRUE(s.InsertSecEntry("e", new TrackedValue(&deleted), nullptr));
    EXPECT_EQ(etValue, s.GetSecEntry("e", nullptr)->GetEntryType());
    ASSERT_TRUE(s.InsertSecEntry("e", new CSSection, nullptr));
    EXPECT_EQ(1, deleted);  // the replaced entry is gone
    EXPECT_EQ(etSection, s.GetSecEntry("e", nullptr)->GetEntryType());
  }
  EXPECT_EQ(1, deleted);
}

TEST_F(InMemStorageTest, InsertSecEntryWithoutANameDeletesTheEntry) {
  int deleted = 0;
  CInMemStorage s;
  EXPECT_FALSE(s.InsertSecEntry(nullptr, new TrackedValue(&deleted), nullptr));
  EXPECT_EQ(1, deleted);
  EXPECT_FALSE(s.InsertSecEntry("e", nullptr, nullptr));
}

TEST_F(InMemStorageTest, NullNamesFailEverywhere) {
  CInMemStorage s;
  int v = 1;
  fake_mem_block view(&v, 4);
  CSSection* out = nullptr;
  EXPECT_EQ(nullptr, s.OpenSection(nullptr, nullptr, true));
  EXPECT_FALSE(s.SetValue(nullptr, &view, nullptr, vkNative));
  EXPECT_FALSE(s.GetValue(nullptr, &view, nullptr, nullptr));
  EXPECT_EQ(nullptr, s.GetSecEntry(nullptr, nullptr));
  EXPECT_FALSE(s.DeleteEntry(nullptr, nullptr));
  EXPECT_EQ(nullptr, s.InsertFirstSection(nullptr, &out, nullptr));
  EXPECT_EQ(nullptr, s.InsertFirstValue(nullptr, &view, nullptr, vkNative));
  EXPECT_EQ(nullptr, s.GetFirstSection(nullptr, &out, nullptr));
  EXPECT_EQ(nullptr, s.GetFirstValue(nullptr, &view, nullptr));
  EXPECT_TRUE(s.Root().Entries().empty());
}

TEST_F(InMemStorageTest, InsertFirstSectionRefusesANameTakenByAnotherEntry) {
  CInMemStorage s;
  s.OpenSection("sec", nullptr, true);
  SetInt(s, "val", 1);
  int v = 1;
  fake_mem_block view(&v, 4);
  s.InsertFirstValue("vals", &view, nullptr, vkNative);
  CSSection* out = nullptr;
  EXPECT_EQ(nullptr, s.InsertFirstSection("sec", &out, nullptr));
  EXPECT_EQ(nullptr, s.InsertFirstSection("val", &out, nullptr));
  EXPECT_EQ(nullptr, s.InsertFirstSection("vals", &out, nullptr));
  EXPECT_EQ(nullptr, s.InsertFirstValue("sec", &view, nullptr, vkNative));
}

TEST_F(InMemStorageTest, InsertFirstSectionEmptiesAnExistingArray) {
  CInMemStorage s;
  CSSection* out = nullptr;
  CSSectionsArray* array = s.InsertFirstSection("r", &out, nullptr);
  s.InsertNextSection(array, &out);
  s.InsertNextSection(array, &out);
  EXPECT_EQ(3u, array->Count());
  EXPECT_EQ(array, s.InsertFirstSection("r", &out, nullptr));
  EXPECT_EQ(1u, array->Count());
}

TEST_F(InMemStorageTest, SectionWalkRemembersThePosition) {
  CInMemStorage s;
  CSSection* row = nullptr;
  CSSectionsArray* array = s.InsertFirstSection("r", &row, nullptr);
  SetInt(s, "i", 10, row);
  s.InsertNextSection(array, &row);
  SetInt(s, "i", 20, row);
  std::vector<int> seen;
  CSSectionsArray* walk = s.GetFirstSection("r", &row, nullptr);
  ASSERT_EQ(array, walk);
  do seen.push_back(GetInt(s, "i", row));
  while (s.GetNextSection(walk, &row));
  EXPECT_EQ((std::vector<int>{10, 20}), seen);
  EXPECT_FALSE(s.GetNextSection(walk, &row));
  EXPECT_FALSE(s.GetNextSection(nullptr, &row));
  EXPECT_FALSE(s.InsertNextSection(nullptr, &row));
}

TEST_F(InMemStorageTest, ValueWalkEndsWithFalse) {
  CInMemStorage s;
  int a = 1, b = 2;
  fake_mem_block va(&a, 4), vb(&b, 4);
  CSValuesArray* array = s.InsertFirstValue("v", &va, nullptr, vkNative);
  ASSERT_TRUE(s.InsertNextValue(array, &vb));
  int got = 0;
  fake_mem_block out(&got, 4);
  ASSERT_EQ(array, s.GetFirstValue("v", &out, nullptr));
  EXPECT_EQ(1, got);
  ASSERT_TRUE(s.GetNextValue(array, &out));
  EXPECT_EQ(2, got);
  EXPECT_FALSE(s.GetNextValue(array, &out));
  EXPECT_FALSE(s.InsertNextValue(nullptr, &va));
}

TEST_F(InMemStorageTest, WalkOfAMissingOrEmptyArrayFindsNothing) {
  CInMemStorage s;
  CSSection* row = nullptr;
  EXPECT_EQ(nullptr, s.GetFirstSection("r", &row, nullptr));
  ASSERT_EQ(Block({0x01, 0x04, 'r', 0x00, 0x03, 0x00}).size(), Load(s, Block({0x01, 0x04, 'r', 0x00, 0x03, 0x00})));
  EXPECT_NE(nullptr, s.GetSecEntry("r", nullptr));
  EXPECT_EQ(nullptr, s.GetFirstSection("r", &row, nullptr));
  SetInt(s, "val", 1);
  EXPECT_EQ(nullptr, s.GetFirstSection("val", &row, nullptr));
}

// ---- blocks ----

TEST(MemBlockTest, SetCopiesAndReleaseEmpties) {
  mem_block b;
  const char text[] = "abc";
  ASSERT_TRUE(b.set(text, 3));
  unsigned long size = 0;
  const unsigned char* p = b.get(&size);
  EXPECT_EQ(3u, size);
  EXPECT_NE(reinterpret_cast<const unsigned char*>(text), p);
  EXPECT_EQ(0, std::memcmp(text, p, 3));
  b.release();
  EXPECT_EQ(nullptr, b.get(&size));
  EXPECT_EQ(0u, size);
}

TEST(MemBlockTest, SetFromItsOwnBytesIsSafe) {
  mem_block b;
  b.set("abcdef", 6);
  unsigned char* p = b.get(nullptr);
  ASSERT_TRUE(b.set(p + 2, 3));
  unsigned long size = 0;
  const unsigned char* q = b.get(&size);
  EXPECT_EQ((Bytes{'c', 'd', 'e'}), Bytes(q, q + size));
}

TEST(MemBlockTest, AllocBuffReplacesTheBlock) {
  mem_block b;
  b.set("abc", 3);
  unsigned char* p = b.alloc_buff(10);
  ASSERT_NE(nullptr, p);
  unsigned long size = 0;
  EXPECT_EQ(p, b.get(&size));
  EXPECT_EQ(10u, size);
  EXPECT_EQ(nullptr, b.alloc_buff(0));
  EXPECT_EQ(nullptr, b.get(&size));
}

TEST(MemBlockTest, ViewTakesWhatFitsAndKeepsTheRest) {
  unsigned char room[4] = {9, 9, 9, 9};
  fake_mem_block view(room, sizeof room);
  ASSERT_TRUE(view.set("\x01\x02", 2));
  EXPECT_EQ((Bytes{1, 2, 9, 9}), Bytes(room, room + 4));
  ASSERT_TRUE(view.set("\x05\x06\x07\x08\x09\x0A", 6));
  EXPECT_EQ((Bytes{5, 6, 7, 8}), Bytes(room, room + 4));
  view.release();  // owns nothing: a no-op
  unsigned long size = 0;
  EXPECT_EQ(room, view.get(&size));
  EXPECT_EQ(4u, size);
}

TEST(MemBlockTest, ViewHandsItselfOutOnlyWhenLargeEnough) {
  unsigned char room[4] = {};
  fake_mem_block view(room, sizeof room);
  EXPECT_EQ(room, view.alloc_buff(4));
  EXPECT_EQ(nullptr, view.alloc_buff(5));
}

}  // namespace
