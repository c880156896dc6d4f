#include "LibraryGate.h"

#include <strings.h>

#include <vector>

#include "api/AdapterRecords.h"
#include "support/Alert.h"

namespace ZentHost {
namespace {

constexpr const char* kSoftSuffix = ".soft";

// The "firmCode" of an argument block; false when the block cannot be read.
bool FirmOfBlock(std::vector<unsigned char>& block, std::string& firm) {
  try {
    TDL_String record;
    LoadDataForZDeallibAPI(record, block);
    firm = record.firmCode;
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace

std::string LibraryOfFirm(const std::string& firm) {
  const std::size_t n = std::char_traits<char>::length(kSoftSuffix);
  if (firm.size() >= n && firm.compare(firm.size() - n, n, kSoftSuffix) == 0) return firm.substr(0, firm.size() - n);
  return firm;
}

TGateKey ClassifyRequest(const std::string& verb, const CAlert& message) {
  TGateKey key;  // exclusive unless shown otherwise
  if (strcasecmp(verb.c_str(), "GetDLList") == 0) {
    key.mode = EGateMode::kShared;
    return key;
  }
  if (strcasecmp(verb.c_str(), "ZDealerAPI") != 0) return key;
  std::string command;
  std::vector<unsigned char> block;
  try {
    CAlert copy(message.get_data(), message.get_size());
    copy >> command >> block;
  } catch (...) {
    return key;  // the module will refuse it; nothing runs beside it meanwhile
  }
  if (command == "DLGetFirmList") {
    key.mode = EGateMode::kShared;
    return key;
  }
  if (command == "DLOpenFile" || command == "DLCloseFile" || command == "DLGetClassList") return key;
  std::string firm;
  if (!FirmOfBlock(block, firm)) return key;
  key.mode = EGateMode::kLibrary;
  key.library = LibraryOfFirm(firm);
  return key;
}

std::mutex& TLibraryGate::LibraryMutex(const std::string& library) {
  std::lock_guard<std::mutex> lock(m_mapMutex);
  std::unique_ptr<std::mutex>& slot = m_libraries[library];
  if (!slot) slot = std::make_unique<std::mutex>();
  return *slot;
}

TLibraryGate::TPass TLibraryGate::Enter(const TGateKey& key) {
  TPass pass;
  switch (key.mode) {
    case EGateMode::kExclusive:
      pass.m_alone = std::unique_lock<std::shared_mutex>(m_module);
      break;
    case EGateMode::kShared:
      pass.m_shared = std::shared_lock<std::shared_mutex>(m_module);
      break;
    case EGateMode::kLibrary:
      // The library first: a thread waiting for a busy library holds no share
      // that would keep an exclusive request waiting.
      pass.m_library = std::unique_lock<std::mutex>(LibraryMutex(key.library));
      pass.m_shared = std::shared_lock<std::shared_mutex>(m_module);
      break;
  }
  return pass;
}

}  // namespace ZentHost
