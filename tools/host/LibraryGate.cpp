#include "LibraryGate.h"

#include <strings.h>

#include <utility>
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

void TLibraryGate::EnterShared() {
  std::unique_lock<std::mutex> lock(m_stateMutex);
  m_changed.wait(lock, [this] { return !m_alone && m_waitingAlone == 0; });
  ++m_sharers;
}

void TLibraryGate::LeaveShared() {
  std::lock_guard<std::mutex> lock(m_stateMutex);
  if (--m_sharers == 0) m_changed.notify_all();
}

void TLibraryGate::EnterAlone() {
  std::unique_lock<std::mutex> lock(m_stateMutex);
  ++m_waitingAlone;
  m_changed.wait(lock, [this] { return !m_alone && m_sharers == 0; });
  --m_waitingAlone;
  m_alone = true;
}

void TLibraryGate::LeaveAlone() {
  std::lock_guard<std::mutex> lock(m_stateMutex);
  m_alone = false;
  m_changed.notify_all();
}

TLibraryGate::TPass TLibraryGate::Enter(const TGateKey& key) {
  TPass pass;
  pass.m_gate = this;
  pass.m_mode = key.mode;
  switch (key.mode) {
    case EGateMode::kExclusive:
      EnterAlone();
      break;
    case EGateMode::kShared:
      EnterShared();
      break;
    case EGateMode::kLibrary:
      // The library first: a thread waiting for a busy library holds no share
      // that would keep a request waiting to be alone.
      pass.m_library = &LibraryMutex(key.library);
      pass.m_library->lock();
      EnterShared();
      break;
  }
  return pass;
}

TLibraryGate::TPass& TLibraryGate::TPass::operator=(TPass&& other) noexcept {
  if (this != &other) {
    Leave();
    m_gate = std::exchange(other.m_gate, nullptr);
    m_mode = other.m_mode;
    m_library = std::exchange(other.m_library, nullptr);
  }
  return *this;
}

void TLibraryGate::TPass::Leave() {
  if (m_gate == nullptr) return;
  if (m_mode == EGateMode::kExclusive) {
    m_gate->LeaveAlone();
  } else {
    m_gate->LeaveShared();
  }
  if (m_library != nullptr) m_library->unlock();
  m_gate = nullptr;
  m_library = nullptr;
}

}  // namespace ZentHost
