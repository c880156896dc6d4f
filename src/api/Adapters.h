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

// The settings layer's pair that builds and releases an argument array from a
// list of strings: New_ZDL_ArrayStrings and Free_ZDL_ArrayStrings.
template <class Array>
struct TStringArrayBuilder {
  void (*build)(Array& out, const std::vector<std::string>& in);
  void (*release)(Array& array);
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

// Copies count strings of a result array; a null array or item gives nothing or
// an empty string.
template <class Array>
std::vector<std::string> CopyStrings(const Array* array) {
  std::vector<std::string> out;
  if (array == nullptr) return out;
  out.reserve(static_cast<std::size_t>(array->count));
  for (decltype(array->count) i = 0; i < array->count; ++i) {
    const char* item = array->items[i];
    out.emplace_back(item != nullptr ? item : "");
  }
  return out;
}

template <class T>
void Release(const TAdapterEnv& env, const std::string& firmCode, T*& block) {
  if (block == nullptr) return;
  void* raw = block;
  (void)env.freeMemory(firmCode.c_str(), &raw);
  block = nullptr;
}

}  // namespace Detail

// ---- Sending shapes ------------------------------------------------------

// fn(firmCode). Record TDL_String.
template <class Fn>
int SendOneString(Fn&& fn, const std::string& command, std::vector<unsigned char>& data, const std::string& firm,
                  const TAdapterEnv& env) {
  TDL_String record;
  LoadDataForZDeallibAPI(record, data);
  int n = std::invoke(fn, record.firmCode.c_str());
  if (n != 0) return SettingsResult(n);
  env.noteChange(firm, ChangeLineSendOneString(command));
  return 0;
}

// fn(firmCode, strParam). Record TDL_TwoStrings.
template <class Fn>
int SendTwoStrings(Fn&& fn, const std::string& command, std::vector<unsigned char>& data, const std::string& firm,
                   const TAdapterEnv& env) {
  TDL_TwoStrings record;
  LoadDataForZDeallibAPI(record, data);
  int n = std::invoke(fn, record.firmCode.c_str(), record.strParam.c_str());
  if (n != 0) return SettingsResult(n);
  env.noteChange(firm, ChangeLineSendTwoStrings(command, record.strParam));
  return 0;
}

// fn(firmCode, boolParam1). Record TDL_StringAndBool.
template <class Fn>
int SendOneStringAndBool(Fn&& fn, const std::string& command, std::vector<unsigned char>& data,
                         const std::string& firm, const TAdapterEnv& env) {
  TDL_StringAndBool record;
  LoadDataForZDeallibAPI(record, data);
  int n = std::invoke(fn, record.firmCode.c_str(), record.boolParam1);
  if (n != 0) return SettingsResult(n);
  env.noteChange(firm, ChangeLineSendOneStringAndBool(command, record.boolParam1));
  return 0;
}

// fn(firmCode, Array*). Record TDL_StringAndArray. An empty "lsStrings" goes
// out as a null pointer, never as an array of length 0. The array is built
// and released with the builder whatever the result.
template <class Array, class Fn>
int SendStringAndArrayStrings(Fn&& fn, const TStringArrayBuilder<Array>& builder, const std::string& command,
                              std::vector<unsigned char>& data, const std::string& firm, const TAdapterEnv& env) {
  TDL_StringAndArray record;
  LoadDataForZDeallibAPI(record, data);
  auto releaseArray = [&builder](Array* array) {
    builder.release(*array);
    delete array;
  };
  std::unique_ptr<Array, decltype(releaseArray)> array(nullptr, releaseArray);
  if (!record.lsStrings.empty()) {
    array.reset(new Array{});
    builder.build(*array, record.lsStrings);
  }
  int n = std::invoke(fn, record.firmCode.c_str(), array.get());
  array.reset();
  if (n != 0) return SettingsResult(n);
  env.noteChange(firm, ChangeLineSendStringAndArrayStrings(command, record.lsStrings));
  return 0;
}

// ---- Reading shapes ------------------------------------------------------

// fn(firmCode, bool*). Record TDL_StringAndBool, the value in "boolParam1".
template <class Fn>
int SendOneString_GetBool(Fn&& fn, std::vector<unsigned char>& data, const std::string& firm) {
  (void)firm;
  TDL_StringAndBool record;
  LoadDataForZDeallibAPI(record, data);
  bool value = false;
  int n = std::invoke(fn, record.firmCode.c_str(), &value);
  if (n != 0) return SettingsResult(n);
  record.boolParam1 = value;
  StoreDataForZDealerAPI(record, data);
  return 0;
}

// fn(firmCode, int*). Record TDL_StringAndInt, the value in "intParam1".
template <class Fn>
int SendOneString_GetInt(Fn&& fn, std::vector<unsigned char>& data, const std::string& firm) {
  (void)firm;
  TDL_StringAndInt record;
  LoadDataForZDeallibAPI(record, data);
  int value = 0;
  int n = std::invoke(fn, record.firmCode.c_str(), &value);
  if (n != 0) return SettingsResult(n);
  record.intParam1 = value;
  StoreDataForZDealerAPI(record, data);
  return 0;
}

// fn(firmCode, char**). Record TDL_TwoStrings, the text in "strParam"; the
// text is released through the firm that gave it.
template <class Fn>
int SendOneString_GetString(Fn&& fn, std::vector<unsigned char>& data, const std::string& firm,
                            const TAdapterEnv& env) {
  (void)firm;
  TDL_TwoStrings record;
  LoadDataForZDeallibAPI(record, data);
  char* text = nullptr;
  int n = std::invoke(fn, record.firmCode.c_str(), &text);
  if (n != 0) return SettingsResult(n);
  record.strParam = text != nullptr ? text : "";
  Detail::Release(env, record.firmCode, text);
  StoreDataForZDealerAPI(record, data);
  return 0;
}

// fn(firmCode, Array**). Record TDL_StringAndArray, the list in "lsStrings".
template <class Array, class Fn>
int SendString_GetArrayStrings(Fn&& fn, std::vector<unsigned char>& data, const std::string& firm,
                               const TAdapterEnv& env) {
  (void)firm;
  TDL_StringAndArray record;
  LoadDataForZDeallibAPI(record, data);
  Array* array = nullptr;
  int n = std::invoke(fn, record.firmCode.c_str(), &array);
  if (n != 0) return SettingsResult(n);
  record.lsStrings = Detail::CopyStrings(array);
  Detail::Release(env, record.firmCode, array);
  StoreDataForZDealerAPI(record, data);
  return 0;
}

// fn(firmCode, strParam, Array**). Record TDL_TwoStringsAndArray.
template <class Array, class Fn>
int SendTwoStrings_GetArrayStrings(Fn&& fn, std::vector<unsigned char>& data, const std::string& firm,
                                   const TAdapterEnv& env) {
  (void)firm;
  TDL_TwoStringsAndArray record;
  LoadDataForZDeallibAPI(record, data);
  Array* array = nullptr;
  int n = std::invoke(fn, record.firmCode.c_str(), record.strParam.c_str(), &array);
  if (n != 0) return SettingsResult(n);
  record.lsStrings = Detail::CopyStrings(array);
  Detail::Release(env, record.firmCode, array);
  StoreDataForZDealerAPI(record, data);
  return 0;
}

}  // namespace DL::Adapters
