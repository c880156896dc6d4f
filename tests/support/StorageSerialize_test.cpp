#include "support/StorageSerialize.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace StorageNamed::InMemStorageSpace;
using StorageNamed::CStorageSerialize;
using Bytes = std::vector<unsigned char>;

const Bytes kHeader = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01};

Bytes Block(const Bytes& root) {
  Bytes b = kHeader;
  b.insert(b.end(), root.begin(), root.end());
  return b;
}

class StorageSerializeTest : public ::testing::Test {
 protected:
  Bytes Pack() const {
    CMemoryObjectEx block;
    unsigned long size = m_storage.PackToSolidBuffer(&block);
    const unsigned char* p = block.get(nullptr);
    return Bytes(p, p + size);
  }
  void Load(const Bytes& bytes) {
    fake_mem_block view(bytes.data(), bytes.size());
    ASSERT_EQ(bytes.size(), m_storage.LoadFromSolidBuffer(&view));
  }

  CInMemStorage m_storage;
};

// ---- strings ----

TEST_F(StorageSerializeTest, StringTravelsWithItsTerminator) {
  ASSERT_TRUE(CStorageSerialize::SerializeStlStringAnsi(std::string("ab"), m_storage, nullptr, "s"));
  EXPECT_EQ(Block({0x01, 0x04, 's', 0x00, 0x02, 0x02, 0x0C, 'a', 'b', 0x00}), Pack());
  std::string back;
  ASSERT_TRUE(CStorageSerialize::UnSerializeStlStringAnsi(back, m_storage, nullptr, "s"));
  EXPECT_EQ("ab", back);
}

TEST_F(StorageSerializeTest, EmptyStringStoresOneZeroByteAndReadsBackEmpty) {
  ASSERT_TRUE(CStorageSerialize::SerializeStlStringAnsi(std::string(), m_storage, nullptr, "s"));
  EXPECT_EQ(Block({0x01, 0x04, 's', 0x00, 0x02, 0x02, 0x04, 0x00}), Pack());
  std::string back = "old";
  ASSERT_TRUE(CStorageSerialize::UnSerializeStlStringAnsi(back, m_storage, nullptr, "s"));
  EXPECT_EQ("", back);
}

TEST_F(StorageSerializeTest, EmbeddedZeroCutsTheString) {
  ASSERT_TRUE(CStorageSerialize::SerializeStlStringAnsi(std::string("a\0b", 3), m_storage, nullptr, "s"));
  EXPECT_EQ(Block({0x01, 0x04, 's', 0x00, 0x02, 0x02, 0x10, 'a', 0x00, 'b', 0x00}), Pack());
  std::string back;
  ASSERT_TRUE(CStorageSerialize::UnSerializeStlStringAnsi(back, m_storage, nullptr, "s"));
  EXPECT_EQ("a", back);
}

TEST_F(StorageSerializeTest, StringWithoutTerminatorEndsAtItsLastByte) {
  Load(Block({0x01, 0x04, 's', 0x00, 0x02, 0x02, 0x0C, 'x', 'y', 'z'}));
  std::string back;
  ASSERT_TRUE(CStorageSerialize::UnSerializeStlStringAnsi(back, m_storage, nullptr, "s"));
  EXPECT_EQ("xyz", back);
}

TEST_F(StorageSerializeTest, StringOfLengthZeroReadsEmpty) {
  Load(Block({0x01, 0x04, 's', 0x00, 0x02, 0x02, 0x00}));
  std::string back = "old";
  ASSERT_TRUE(CStorageSerialize::UnSerializeStlStringAnsi(back, m_storage, nullptr, "s"));
  EXPECT_EQ("", back);
}

TEST_F(StorageSerializeTest, MissingStringLeavesTheTarget) {
  std::string back = "kept";
  EXPECT_FALSE(CStorageSerialize::UnSerializeStlStringAnsi(back, m_storage, nullptr, "s"));
  EXPECT_EQ("kept", back);
  m_storage.OpenSection("s", nullptr, true);
  EXPECT_FALSE(CStorageSerialize::UnSerializeStlStringAnsi(back, m_storage, nullptr, "s"));
  EXPECT_EQ("kept", back);
}

TEST_F(StorageSerializeTest, StringOverASectionIsRefused) {
  m_storage.OpenSection("s", nullptr, true);
  EXPECT_FALSE(CStorageSerialize::SerializeStlStringAnsi(std::string("x"), m_storage, nullptr, "s"));
}

// ---- native values ----

TEST_F(StorageSerializeTest, NativeValuesTakeTheirOwnWidth) {
  int i = 0x01020304;
  bool b = true;
  char c = 'c';
  double d = 1.0;
  long long l = -2;
  ASSERT_TRUE(CStorageSerialize::SerializeNative(i, m_storage, nullptr, "i"));
  ASSERT_TRUE(CStorageSerialize::SerializeNative(b, m_storage, nullptr, "b"));
  ASSERT_TRUE(CStorageSerialize::SerializeNative(c, m_storage, nullptr, "c"));
  ASSERT_TRUE(CStorageSerialize::SerializeNative(d, m_storage, nullptr, "d"));
  ASSERT_TRUE(CStorageSerialize::SerializeNative(l, m_storage, nullptr, "l"));
  EXPECT_EQ(Block({0x01, 0x14,                                                             // 5 children
                   'b', 0x00, 0x02, 0x01, 0x04, 0x01,                                     // bool
                   'c', 0x00, 0x02, 0x01, 0x04, 'c',                                      // char
                   'd', 0x00, 0x02, 0x01, 0x20, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F,  // double
                   'i', 0x00, 0x02, 0x01, 0x10, 0x04, 0x03, 0x02, 0x01,                   // int
                   'l', 0x00, 0x02, 0x01, 0x20, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}),  // long long
            Pack());
  int i2 = 0;
  bool b2 = false;
  char c2 = 0;
  double d2 = 0;
  long long l2 = 0;
  EXPECT_TRUE(CStorageSerialize::UnSerializeNative(i2, m_storage, nullptr, "i"));
  EXPECT_TRUE(CStorageSerialize::UnSerializeNative(b2, m_storage, nullptr, "b"));
  EXPECT_TRUE(CStorageSerialize::UnSerializeNative(c2, m_storage, nullptr, "c"));
  EXPECT_TRUE(CStorageSerialize::UnSerializeNative(d2, m_storage, nullptr, "d"));
  EXPECT_TRUE(CStorageSerialize::UnSerializeNative(l2, m_storage, nullptr, "l"));
  EXPECT_EQ(i, i2);
  EXPECT_EQ(b, b2);
  EXPECT_EQ(c, c2);
  EXPECT_EQ(d, d2);
  EXPECT_EQ(l, l2);
}

TEST_F(StorageSerializeTest, IntStoredInOneByteChangesOnlyTheLowestByte) {
  char one = 0x7F;
  ASSERT_TRUE(CStorageSerialize::SerializeNative(one, m_storage, nullptr, "v"));
  int target = 0x11223344;
  ASSERT_TRUE(CStorageSerialize::UnSerializeNative(target, m_storage, nullptr, "v"));
  EXPECT_EQ(0x1122337F, target);
}

TEST_F(StorageSerializeTest, LongerStoredValueIsCutToTheTarget) {
  Load(Block({0x01, 0x04, 'v', 0x00, 0x02, 0x01, 0x10, 0x41, 0x42, 0x43, 0x44}));
  char target = 0;
  ASSERT_TRUE(CStorageSerialize::UnSerializeNative(target, m_storage, nullptr, "v"));
  EXPECT_EQ('A', target);
}

TEST_F(StorageSerializeTest, BoolIsTrueForAnyNonZeroByte) {
  Load(Block({0x01, 0x08, 'f', 0x00, 0x02, 0x01, 0x04, 0x00, 't', 0x00, 0x02, 0x01, 0x04, 0x02}));
  bool t = false, f = true;
  ASSERT_TRUE(CStorageSerialize::UnSerializeNative(t, m_storage, nullptr, "t"));
  ASSERT_TRUE(CStorageSerialize::UnSerializeNative(f, m_storage, nullptr, "f"));
  EXPECT_TRUE(t);
  EXPECT_FALSE(f);
}

TEST_F(StorageSerializeTest, ValueOfNoBytesLeavesTheTarget) {
  Load(Block({0x01, 0x08, 'b', 0x00, 0x02, 0x01, 0x00, 'i', 0x00, 0x02, 0x01, 0x00}));
  bool b = true;
  int i = 77;
  EXPECT_TRUE(CStorageSerialize::UnSerializeNative(b, m_storage, nullptr, "b"));
  EXPECT_TRUE(CStorageSerialize::UnSerializeNative(i, m_storage, nullptr, "i"));
  EXPECT_TRUE(b);
  EXPECT_EQ(77, i);
}

TEST_F(StorageSerializeTest, MissingNativeLeavesTheTarget) {
  int i = 5;
  EXPECT_FALSE(CStorageSerialize::UnSerializeNative(i, m_storage, nullptr, "i"));
  EXPECT_EQ(5, i);
  bool b = true;
  EXPECT_FALSE(CStorageSerialize::UnSerializeNative(b, m_storage, nullptr, "b"));
  EXPECT_TRUE(b);
}

// ---- lists of plain numbers ----

TEST_F(StorageSerializeTest, IntListIsAValuesArray) {
  ASSERT_TRUE(CStorageSerialize::SerializeSTL_Pod(std::vector<int>{1, 256}, m_storage, nullptr, "v"));
  EXPECT_EQ(Block({0x01, 0x04, 'v', 0x00, 0x04, 0x01, 0x08,  //
                   0x10, 0x01, 0x00, 0x00, 0x00,             //
                   0x10, 0x00, 0x01, 0x00, 0x00}),
            Pack());
  std::vector<int> back = {9, 9, 9};
  ASSERT_TRUE(CStorageSerialize::UnSerializeSTL_Pod(back, m_storage, nullptr, "v"));
  EXPECT_EQ((std::vector<int>{1, 256}), back);
}

TEST_F(StorageSerializeTest, DoubleListReadsBack) {
  ASSERT_TRUE(CStorageSerialize::SerializeSTL_Pod(std::vector<double>{0.5, -2.0, 1e300}, m_storage, nullptr, "d"));
  std::vector<double> back;
  ASSERT_TRUE(CStorageSerialize::UnSerializeSTL_Pod(back, m_storage, nullptr, "d"));
  EXPECT_EQ((std::vector<double>{0.5, -2.0, 1e300}), back);
}

TEST_F(StorageSerializeTest, EmptyNumberListWritesNothing) {
  ASSERT_TRUE(CStorageSerialize::SerializeSTL_Pod(std::vector<int>{}, m_storage, nullptr, "v"));
  EXPECT_EQ(Block({0x01, 0x00}), Pack());
}

TEST_F(StorageSerializeTest, MissingNumberListEmptiesTheTarget) {
  std::vector<double> back = {1.0};
  EXPECT_FALSE(CStorageSerialize::UnSerializeSTL_Pod(back, m_storage, nullptr, "d"));
  EXPECT_TRUE(back.empty());
}

TEST_F(StorageSerializeTest, LongerListElementIsCutShorterFillsLowBytes) {
  Load(Block({0x01, 0x04, 'v', 0x00, 0x04, 0x01, 0x08,            //
              0x20, 0x01, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0xFF,  // 8 bytes
              0x04, 0x05}));                                         // 1 byte
  std::vector<int> back;
  ASSERT_TRUE(CStorageSerialize::UnSerializeSTL_Pod(back, m_storage, nullptr, "v"));
  EXPECT_EQ((std::vector<int>{1, 5}), back);
}

// ---- lists of strings ----

TEST_F(StorageSerializeTest, StringListIsOneSectionPerElement) {
  ASSERT_TRUE(CStorageSerialize::SerializeSTL_T(std::vector<std::string>{"x", ""}, m_storage, nullptr, "ls"));
  EXPECT_EQ(Block({0x01, 0x04, 'l', 's', 0x00, 0x03, 0x08,                                          //
                   0x01, 0x04, 'S', 'T', 'L', '_', 's', 't', 'r', 'i', 'n', 'g', 0x00, 0x02, 0x02, 0x08, 'x', 0x00,  //
                   0x01, 0x04, 'S', 'T', 'L', '_', 's', 't', 'r', 'i', 'n', 'g', 0x00, 0x02, 0x02, 0x04, 0x00}),
            Pack());
  std::vector<std::string> back = {"old"};
  ASSERT_TRUE(CStorageSerialize::UnSerializeSTL_T(back, m_storage, nullptr, "ls"));
  EXPECT_EQ((std::vector<std::string>{"x", ""}), back);
}

TEST_F(StorageSerializeTest, OneElementAndEmptyListsAreDistinguishable) {
  CInMemStorage one, empty;
  ASSERT_TRUE(CStorageSerialize::SerializeSTL_T(std::vector<std::string>{""}, one, nullptr, "ls"));
  ASSERT_TRUE(CStorageSerialize::SerializeSTL_T(std::vector<std::string>{}, empty, nullptr, "ls"));
  std::vector<std::string> fromOne, fromEmpty = {"old"};
  EXPECT_TRUE(CStorageSerialize::UnSerializeSTL_T(fromOne, one, nullptr, "ls"));
  EXPECT_FALSE(CStorageSerialize::UnSerializeSTL_T(fromEmpty, empty, nullptr, "ls"));
  EXPECT_EQ(1u, fromOne.size());
  EXPECT_TRUE(fromEmpty.empty());
}

TEST_F(StorageSerializeTest, EmptyAndMissingListsAreTheSameBlock) {
  CInMemStorage empty, missing;
  ASSERT_TRUE(CStorageSerialize::SerializeSTL_T(std::vector<std::string>{}, empty, nullptr, "ls"));
  CMemoryObjectEx a, b;
  unsigned long na = empty.PackToSolidBuffer(&a);
  unsigned long nb = missing.PackToSolidBuffer(&b);
  ASSERT_EQ(na, nb);
  EXPECT_EQ(Bytes(a.get(nullptr), a.get(nullptr) + na), Bytes(b.get(nullptr), b.get(nullptr) + nb));
}

TEST_F(StorageSerializeTest, StringListOverAValueIsRefused) {
  int v = 1;
  CStorageSerialize::SerializeNative(v, m_storage, nullptr, "ls");
  EXPECT_FALSE(CStorageSerialize::SerializeSTL_T(std::vector<std::string>{"x"}, m_storage, nullptr, "ls"));
  std::vector<std::string> back = {"old"};
  EXPECT_FALSE(CStorageSerialize::UnSerializeSTL_T(back, m_storage, nullptr, "ls"));
  EXPECT_TRUE(back.empty());
}

TEST_F(StorageSerializeTest, ListElementWithoutItsStringReadsEmpty) {
  Load(Block({0x01, 0x04, 'l', 's', 0x00, 0x03, 0x04, 0x01, 0x00}));
  std::vector<std::string> back;
  ASSERT_TRUE(CStorageSerialize::UnSerializeSTL_T(back, m_storage, nullptr, "ls"));
  EXPECT_EQ((std::vector<std::string>{""}), back);
}

}  // namespace
