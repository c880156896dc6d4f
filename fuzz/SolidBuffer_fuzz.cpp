// Arbitrary bytes as a request block: the tree loader and the record decoder
// must never read outside the block, and what they accept must pack and load
// back to the same bytes.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "api/RecordFields.h"
#include "support/InMemStorage.h"

namespace {

using namespace StorageNamed::InMemStorageSpace;

ZDL_DECLARE_RECORD(TFuzzRow,
                   (std::string, str),
                   (std::vector<StorageNamed::STL_string>, lsStrings),
                   (double, value));

ZDL_DECLARE_RECORD(TFuzzRecord,
                   (std::string, firmCode),
                   (int, intParam),
                   (bool, boolParam1),
                   (char, charParam),
                   (double, doubleParam1),
                   (long long, longPosLimit),
                   (std::vector<int>, lsInts),
                   (std::vector<double>, lsDoubles),
                   (std::vector<StorageNamed::STL_string>, lsStrings),
                   (std::vector<TFuzzRow>, lsRows));

std::vector<unsigned char> Pack(const CInMemStorage& storage) {
  CMemoryObjectEx block;
  unsigned long size = storage.PackToSolidBuffer(&block);
  const unsigned char* p = block.get(nullptr);
  return std::vector<unsigned char>(p, p + size);
}

void CheckTree(const uint8_t* data, size_t size) {
  CInMemStorage storage;
  fake_mem_block view(data, size);
  unsigned long used = storage.LoadFromSolidBuffer(&view);
  if (used > size) std::abort();
  if (used == 0) {
    if (!storage.Root().Entries().empty()) std::abort();  // a refused block leaves no tree
    return;
  }
  std::vector<unsigned char> once = Pack(storage);
  CInMemStorage again;
  fake_mem_block onceView(once.data(), once.size());
  if (again.LoadFromSolidBuffer(&onceView) != once.size()) std::abort();
  if (Pack(again) != once) std::abort();
}

void CheckRecord(const uint8_t* data, size_t size) {
  std::vector<unsigned char> block(data, data + size);
  TFuzzRecord record;
  LoadDataForZDeallibAPI(record, block);
  std::vector<unsigned char> once;
  StoreDataForZDealerAPI(record, once);
  TFuzzRecord back;
  LoadDataForZDeallibAPI(back, once);
  std::vector<unsigned char> twice;
  StoreDataForZDealerAPI(back, twice);
  if (once != twice) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  CheckTree(data, size);
  CheckRecord(data, size);
  return 0;
}
