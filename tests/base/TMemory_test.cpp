#include "base/TMemory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <new>

#include "api/ZDLArrays.h"

namespace {

TEST(TMemoryTest, AStringBlockIsZeroedAndRegistered) {
  TMemory memory;
  char* s = memory.ConstructString(4);
  EXPECT_EQ(0, memcmp(s, "\0\0\0\0", 4));
  EXPECT_EQ(memory.Outstanding(), 1u);
  EXPECT_EQ(memory.FreeMemory(static_cast<void*>(s)), 0);
  EXPECT_EQ(memory.Outstanding(), 0u);
}

TEST(TMemoryTest, AnEmptyArrayHasCountZeroAndNoItems) {
  TMemory memory;
  ZDL_ArrayStrings* a = memory.ConstructArray<ZDL_ArrayStrings>(0);
  EXPECT_EQ(a->count, 0u);
  EXPECT_EQ(a->items, nullptr);
  ZDL_ArrayIntNumbers* n = memory.ConstructArray<ZDL_ArrayIntNumbers>(0);
  EXPECT_EQ(n->count, 0u);
  EXPECT_EQ(n->items, nullptr);
}

TEST(TMemoryTest, FreeingThroughTheVariableTwiceGivesZeroThenFour) {
  TMemory memory;
  void* p = memory.ConstructArray<ZDL_ArrayDoubleNumbers>(3);
  EXPECT_EQ(memory.FreeMemory(&p), 0);
  EXPECT_EQ(p, nullptr);
  EXPECT_EQ(memory.FreeMemory(&p), 4);
}

TEST(TMemoryTest, ANullPointerVariableIsABadArgument) {
  TMemory memory;
  EXPECT_EQ(memory.FreeMemory(static_cast<void**>(nullptr)), 3);
}

TEST(TMemoryTest, AnUnknownBlockIsNotFoundAndChangesNothing) {
  TMemory memory;
  memory.ConstructString(2);
  int local = 0;
  void* p = &local;
  EXPECT_EQ(memory.FreeMemory(&p), 4);
  EXPECT_EQ(p, &local);
  EXPECT_EQ(memory.Outstanding(), 1u);
}

TEST(TMemoryTest, AKindBeyondTheTableCannotBeReleased) {
  TMemory memory;
  int local = 0;
  memory.AddMemory(&local, static_cast<TMemory::EMEM_TYPE>(70));
  EXPECT_EQ(memory.FreeMemory(static_cast<void*>(&local)), 4);
}

TEST(TMemoryTest, ANullBlockIsNotRegistered) {
  TMemory memory;
  memory.AddMemory(nullptr, TMemory::MEM_STRING);
  EXPECT_EQ(memory.Outstanding(), 0u);
}

TEST(TMemoryTest, StringsInsideAnArrayAreReleasedWithIt) {
  TMemory memory;
  ZDL_ArrayStrings* a = memory.ConstructArray<ZDL_ArrayStrings>(2);
  a->items[0] = new char[3]{'a', 'b', 0};
  // items[1] stays null: a partly filled array is released as well.
  void* p = a;
  EXPECT_EQ(memory.FreeMemory(&p), 0);  // the sanitizer build checks nothing leaks
}

TEST(TMemoryTest, TheDestructorReleasesWhatIsLeft) {
  auto memory = std::make_unique<TMemory>();
  ZDL_ArrayStrings* a = memory->ConstructArray<ZDL_ArrayStrings>(1);
  a->items[0] = new char[2]{'x', 0};
  memory->ConstructString(10);
  EXPECT_EQ(memory->Outstanding(), 2u);
  memory.reset();  // the sanitizer build checks that both blocks are given back
}

TEST(ZDLArraysTest, NewArrayStringsCopiesEveryStringWithItsTerminator) {
  ZDL_ArrayStrings a;
  New_ZDL_ArrayStrings(a, {"TQBR", ""});
  ASSERT_EQ(a.count, 2u);
  EXPECT_STREQ(a.items[0], "TQBR");
  EXPECT_STREQ(a.items[1], "");
  Free_ZDL_ArrayStrings(a);
  EXPECT_EQ(a.items, nullptr);
}

TEST(ZDLArraysTest, AnEmptyVectorGivesCountZeroAndNoBlock) {
  ZDL_ArrayStrings a;
  New_ZDL_ArrayStrings(a, {});
  EXPECT_EQ(a.count, 0u);
  EXPECT_EQ(a.items, nullptr);
  Free_ZDL_ArrayStrings(a);
  EXPECT_EQ(a.items, nullptr);
}

TEST(ZDLArraysTest, IntArraysCopyTheirValues) {
  ZDL_ArrayIntNumbers a;
  New_ZDL_ArrayIntNumbers(a, {3, -1});
  ASSERT_EQ(a.count, 2u);
  EXPECT_EQ(a.items[0], 3);
  EXPECT_EQ(a.items[1], -1);
  Free_ZDL_ArrayIntNumbers(a);
}

}  // namespace

TEST(TMemoryTest, ArraysOfCodePairsAreRegisteredUnderTheirKindsAndReleasedWithTheirStrings) {
  TMemory memory;
  auto* pairs = memory.ConstructArray<ZDL_ArrayStringToString>(2);
  EXPECT_EQ(TMemory::KindOf<ZDL_ArrayStringToString>::value, TMemory::MEM_ARRAY_STRING_TO_STRING);
  ASSERT_NE(pairs->items, nullptr);
  EXPECT_EQ(pairs->items[1].str1, nullptr);
  pairs->items[0] = {new char[2]{'A', 0}, new char[2]{'B', 0}};
  auto* accounts = memory.ConstructArray<ZDL_ArrayCodeToCodeTrdaccToTrdacc>(1);
  accounts->items[0] = {new char[2]{'C', 0}, nullptr};
  EXPECT_EQ(memory.Outstanding(), 2u);
  void* p = pairs;
  EXPECT_EQ(memory.FreeMemory(&p), 0);
  EXPECT_EQ(p, nullptr);
  EXPECT_EQ(memory.Outstanding(), 1u);
  // The destructor releases the second one with its strings.
}

namespace {

// The kinds in the order of the table, with the number each must carry.
TEST(TMemoryKindsTest, SeventyKindsNumberedZeroToSixtyNine) {
  int row = 0;
#define ZDL_MEMORY_STRING(kind) EXPECT_EQ(static_cast<int>(TMemory::kind), row++) << #kind;
#define ZDL_MEMORY_ARRAY(kind, Name) EXPECT_EQ(static_cast<int>(TMemory::kind), row++) << #kind;
#define ZDL_MEMORY_RECORD(kind, Name) EXPECT_EQ(static_cast<int>(TMemory::kind), row++) << #kind;
#include "base/TMemory.def"
#undef ZDL_MEMORY_STRING
#undef ZDL_MEMORY_ARRAY
#undef ZDL_MEMORY_RECORD
  EXPECT_EQ(row, 70);
  EXPECT_EQ(TMemory::MEM_STRING, 0);
  EXPECT_EQ(TMemory::MEM_ARRAY_STRINGS, 1);
  EXPECT_EQ(TMemory::MEM_ARRAY_CODE_TO_CODE_TRDACC_TO_TRDACC, 5);
}

TEST(TMemoryKindsTest, EveryConstructRegistersItsRecordUnderItsKindAndFreeingReleasesIt) {
  TMemory memory;
  std::size_t made = 0;
#define ZDL_MEMORY_STRING(kind)
#define ZDL_MEMORY_ARRAY(kind, Name)                                              \
  {                                                                               \
    ZDL_##Name* a = memory.Construct##Name(3);                                    \
    ++made;                                                                       \
    EXPECT_EQ(TMemory::KindOf<ZDL_##Name>::value, TMemory::kind) << #Name;        \
    EXPECT_EQ(a->count, 3u) << #Name;                                             \
    EXPECT_NE(a->items, nullptr) << #Name;                                        \
    EXPECT_EQ(memory.Outstanding(), made) << #Name;                               \
  }
#define ZDL_MEMORY_RECORD(kind, Name)                                             \
  {                                                                               \
    ZDL_##Name* r = memory.Construct##Name();                                     \
    ++made;                                                                       \
    EXPECT_NE(r, nullptr) << #Name;                                               \
    EXPECT_EQ(TMemory::KindOf<ZDL_##Name>::value, TMemory::kind) << #Name;        \
  }
#include "base/TMemory.def"
#undef ZDL_MEMORY_STRING
#undef ZDL_MEMORY_ARRAY
#undef ZDL_MEMORY_RECORD
  EXPECT_EQ(made, 69u);
  EXPECT_EQ(memory.Outstanding(), 69u);
}

TEST(TMemoryKindsTest, AnImpossibleCountThrowsBadArrayLength) {
  TMemory memory;
  EXPECT_THROW(memory.ConstructArrayIntNumbers(static_cast<size_t>(-1) / 2), std::bad_array_new_length);
  EXPECT_EQ(memory.Outstanding(), 0u);
}

char* Text(const char* s) {
  char* t = new char[std::strlen(s) + 1];
  std::strcpy(t, s);
  return t;
}

TEST(TMemoryKindsTest, NestedListsAreReleasedWithTheirArray) {
  // A class with two settle codes, each with its securities; the sanitizer
  // build checks that every block is given back.
  TMemory memory;
  ZDL_ClassToSettleCodeToSecList* list = memory.ConstructClassToSettleCodeToSecList(1);
  ZDL_ClassToSettleCodeToSec& cls = list->items[0];
  cls.strCode = Text("TQBR");
  cls.lsSettleCodes = {2, new ZDL_StringToArrayStrings[2]()};
  cls.lsSettleCodes.items[0] = {Text("T0"), {2, new char*[2]{Text("SBER"), Text("GAZP")}}};
  cls.lsSettleCodes.items[1] = {Text("Y2"), {0, nullptr}};
  ZDL_ClassGroupWithScale* group = memory.ConstructClassGroupWithScale();
  group->lsClassCodes = {1, new char*[1]{Text("TQBR")}};
  group->scale = {2, new ZDL_ScaleRate[2]{{1, 0.1}, {2, 0.2}}};
  void* p = list;
  EXPECT_EQ(memory.FreeMemory(&p), 0);
  EXPECT_EQ(p, nullptr);
  p = group;
  EXPECT_EQ(memory.FreeMemory(&p), 0);
  EXPECT_EQ(memory.Outstanding(), 0u);
}

TEST(TMemoryKindsTest, FreeingTheSameBlockTwiceThroughTheAddressGivesFourTheSecondTime) {
  TMemory memory;
  ZDL_ArrayStrings* a = memory.ConstructArrayStrings(0);
  EXPECT_EQ(memory.FreeMemory(static_cast<void*>(a)), 0);
  EXPECT_EQ(memory.FreeMemory(static_cast<void*>(a)), 4);
}

TEST(TMemoryKindsTest, ABlockRegisteredByHandIsReleasedByItsKind) {
  TMemory memory;
  auto* tags = new ZDL_ArrayStringListToTag{1, new ZDL_StringListToString[1]};
  tags->items[0] = {Text("TAG"), {1, new char*[1]{Text("TQBR")}}};
  memory.AddMemory(tags, TMemory::MEM_ARRAY_STRING_LIST_TO_TAG);
  void* p = tags;
  EXPECT_EQ(memory.FreeMemory(&p), 0);
  EXPECT_EQ(memory.FreeMemory(&p), 4);
  void** none = nullptr;
  EXPECT_EQ(memory.FreeMemory(none), 3);
}

}  // namespace
