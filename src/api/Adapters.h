#pragma once
// The generic adapters: each turns a command's request block into one call of a
// settings function and the call's result into the reply, for all commands of
// one shape. A handler that uses an adapter names the settings function and
// the command and passes them on.
//
// A sending adapter decodes its record, calls fn with the record's fields, and
// on success notes one change line under the firm the caller holds (not the
// record's "firmCode"). A reading adapter decodes its record, calls fn with a
// place for the result, copies the result into the record, releases what the
// settings layer handed out and encodes the record back into data. Neither
// compares "firmCode" with the caller's firm.
//
// Results: 0 stays 0, a settings code n becomes n + 1000. On a failure nothing
// is noted and data is left as it came. Calling an empty std::function throws
// std::bad_function_call, as calling it anywhere does.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "api/AdapterRecords.h"
#include "api/RecordFields.h"

namespace DL::Adapters {

// What an adapter needs from the dispatcher besides the settings function.
struct TAdapterEnv {
  // Appends a change line to the firm's pending list (under the dispatcher's lock).
  std::function<void(const std::string& firm, std::string line)> noteChange;
  // Releases a block that a settings function handed out: ZDL_FreeMemory.
  std::function<int(const char* firm, void** block)> freeMemory;
};

// 0 for 0, otherwise n + 1000.
[[nodiscard]] int SettingsResult(int n);

// A list as the change lines write it: "[" the elements joined by "," "]".
std::string vectorSTLStringsToStr(const std::vector<std::string>& list);

// The change lines of the sending shapes.
std::string ChangeLineSendOneString(std::string_view command);
std::string ChangeLineSendTwoStrings(std::string_view command, std::string_view strParam);
std::string ChangeLineSendOneStringAndBool(std::string_view command, bool value);
std::string ChangeLineSendStringAndArrayStrings(std::string_view command, const std::vector<std::string>& list);

namespace Detail {

template <class T>
void Release(const TAdapterEnv& env, const std::string& firmCode, T*& block) {
  if (block == nullptr) return;
  void* raw = block;
  (void)env.freeMemory(firmCode.c_str(), &raw);
  block = nullptr;
}

}  // namespace Detail

}  // namespace DL::Adapters
