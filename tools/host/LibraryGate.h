#pragma once
// The exclusion zent-host provides around the module's Execute and Reset.
//
// The settings core behind the module has no lock: its firm table is one map
// for the whole process, and each firm's settings fill caches even on reads.
// The module's own g_Locker covers only the file holds and the change lists.
// So the host lets no two threads into one firm's settings at once, and none
// into the module's shared tables while another changes them:
//
//   library    named commands and "DLUpdateFile": the request's "firmCode"
//              decides the library; requests of one library run one at a time,
//              requests of different libraries side by side
//   shared     "GetDLList", "DLGetFirmList": they only read the port's list
//   exclusive  everything that adds or drops a firm, or writes the port's
//              tables outside g_Locker: "Init", "GetDLFile", "SaveDLFile",
//              "DLOpenFile", "DLCloseFile", "DLGetClassList", Reset, and any
//              request whose library cannot be read from it
//
// A library and its ".soft" twin are one library here: both names lead to
// the same file.
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>

class CAlert;

namespace ZentHost {

enum class EGateMode { kShared, kLibrary, kExclusive };

struct TGateKey {
  EGateMode mode = EGateMode::kExclusive;
  std::string library;  // kLibrary only: the library name without ".soft"
};

// Tells the exclusion a request needs from its verb and message; the message
// is read from a copy and left as it was.
TGateKey ClassifyRequest(const std::string& verb, const CAlert& message);

// The library name a firm code stands for: the code without a trailing ".soft".
std::string LibraryOfFirm(const std::string& firm);

class TLibraryGate {
 public:
  // Held from construction to destruction; movable.
  class TPass {
   public:
    TPass() = default;
    TPass(TPass&& other) noexcept { *this = std::move(other); }
    TPass& operator=(TPass&& other) noexcept;
    ~TPass() { Leave(); }
    TPass(const TPass&) = delete;
    TPass& operator=(const TPass&) = delete;

   private:
    friend class TLibraryGate;
    void Leave();

    TLibraryGate* m_gate = nullptr;
    EGateMode m_mode = EGateMode::kShared;
    std::mutex* m_library = nullptr;
  };

  TPass Enter(const TGateKey& key);

 private:
  std::mutex& LibraryMutex(const std::string& library);
  void EnterShared();
  void LeaveShared();
  void EnterAlone();
  void LeaveAlone();

  // The module as a whole: shared by library and shared requests, taken alone
  // by the rest. A request that waits to be alone keeps new sharers out, so a
  // steady stream of commands cannot starve it.
  std::mutex m_stateMutex;
  std::condition_variable m_changed;
  int m_sharers = 0;
  int m_waitingAlone = 0;
  bool m_alone = false;

  std::mutex m_mapMutex;                                           // guards m_libraries
  std::map<std::string, std::unique_ptr<std::mutex>> m_libraries;  // never shrinks
};

}  // namespace ZentHost
