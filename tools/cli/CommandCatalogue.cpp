#include "tools/cli/CommandCatalogue.h"

#include <fnmatch.h>

#include <algorithm>
#include <cctype>
#include <type_traits>

#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"

namespace zentdl {
namespace {

template <class F>
EFieldType TypeOf() {
  if constexpr (std::is_same_v<F, std::string>) return EFieldType::String;
  else if constexpr (std::is_same_v<F, int>) return EFieldType::Int;
  else if constexpr (std::is_same_v<F, bool>) return EFieldType::Bool;
  else if constexpr (std::is_same_v<F, char>) return EFieldType::Char;
  else if constexpr (std::is_same_v<F, double>) return EFieldType::Double;
  else if constexpr (std::is_same_v<F, long long>) return EFieldType::Int64;
  else if constexpr (std::is_same_v<F, std::vector<int>>) return EFieldType::IntList;
  else if constexpr (std::is_same_v<F, std::vector<double>>) return EFieldType::DoubleList;
  else if constexpr (std::is_same_v<F, std::vector<StorageNamed::STL_string>> ||
                     std::is_same_v<F, std::vector<std::string>>)
    return EFieldType::StringList;
  else return EFieldType::RecordList;
}

template <class Record>
std::vector<TFieldInfo> FieldsOf() {
  std::vector<TFieldInfo> fields;
  Record record;
  Record::VisitFields(record, [&](const char* name, auto& field) {
    fields.push_back({name, TypeOf<std::remove_cvref_t<decltype(field)>>()});
  });
  return fields;
}

// The generic record of each adapter shape whose record the adapters declare.
struct TShapeRecord {
  DL::EAdapterShape shape;
  const char* record;
  std::vector<TFieldInfo> (*fields)();
};
const TShapeRecord kShapeRecords[] = {
    {DL::EAdapterShape::SendOneString, "TDL_String", &FieldsOf<TDL_String>},
    {DL::EAdapterShape::SendTwoStrings, "TDL_TwoStrings", &FieldsOf<TDL_TwoStrings>},
    {DL::EAdapterShape::SendOneStringAndBool, "TDL_StringAndBool", &FieldsOf<TDL_StringAndBool>},
    {DL::EAdapterShape::SendStringAndArrayStrings, "TDL_StringAndArray", &FieldsOf<TDL_StringAndArray>},
    {DL::EAdapterShape::SendOneString_GetBool, "TDL_StringAndBool", &FieldsOf<TDL_StringAndBool>},
    {DL::EAdapterShape::SendOneString_GetInt, "TDL_StringAndInt", &FieldsOf<TDL_StringAndInt>},
    {DL::EAdapterShape::SendOneString_GetString, "TDL_TwoStrings", &FieldsOf<TDL_TwoStrings>},
    {DL::EAdapterShape::SendString_GetArrayStrings, "TDL_StringAndArray", &FieldsOf<TDL_StringAndArray>},
    {DL::EAdapterShape::SendTwoStrings_GetArrayStrings, "TDL_TwoStringsAndArray", &FieldsOf<TDL_TwoStringsAndArray>},
};

std::vector<TCommandInfo> Build() {
  std::vector<TCommandInfo> all;
  all.reserve(DL::kCommandCount + 5);
  for (const DL::TCommandRow& row : DL::kCommandTable) {
    TCommandInfo info;
    info.name = std::string(row.name);
    info.verb = std::string(DL::VerbName(row.verb));
    info.scope = std::string(DL::ScopeName(row.scope));
    info.served = row.handler != nullptr;
    if (row.shape == DL::EAdapterShape::OwnRecord) {
      info.record = std::string(row.record);
      info.servedBy = "own record " + info.record;
    } else {
      info.servedBy = "adapter " + std::string(DL::ShapeName(row.shape));
      for (const TShapeRecord& s : kShapeRecords)
        if (s.shape == row.shape) {
          info.record = s.record;
          info.fields = s.fields();
          info.fieldsKnown = true;
        }
    }
    all.push_back(std::move(info));
  }
  auto verb = [&](const char* name, const char* record, std::vector<TFieldInfo> fields) {
    TCommandInfo info;
    info.name = name;
    info.verb = "file verb";
    info.servedBy = "file verb";
    info.record = record;
    info.fields = std::move(fields);
    info.fieldsKnown = true;
    info.served = true;
    info.fileVerb = true;
    all.push_back(std::move(info));
  };
  verb("DLGetFirmList", "TDL_DLGetFirmList", FieldsOf<TDL_DLGetFirmList>());
  verb("DLOpenFile", "TDL_DLOpenFile", FieldsOf<TDL_DLOpenFile>());
  verb("DLUpdateFile", "TDL_DLUpdateFile", FieldsOf<TDL_DLUpdateFile>());
  verb("DLCloseFile", "TDL_DLCloseFile", FieldsOf<TDL_DLCloseFile>());
  // DLGetClassList carries a ready message for the host's table service, not a record.
  verb("DLGetClassList", "", {});
  return all;
}

std::string Lower(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

}  // namespace

std::string_view FieldTypeName(EFieldType type) {
  switch (type) {
    case EFieldType::String: return "string";
    case EFieldType::Int: return "int";
    case EFieldType::Bool: return "bool";
    case EFieldType::Char: return "char";
    case EFieldType::Double: return "double";
    case EFieldType::Int64: return "int64";
    case EFieldType::IntList: return "int[]";
    case EFieldType::DoubleList: return "double[]";
    case EFieldType::StringList: return "string[]";
    case EFieldType::RecordList: return "record[]";
  }
  return "";
}

const std::vector<TCommandInfo>& AllCommands() {
  static const std::vector<TCommandInfo> all = Build();
  return all;
}

const TCommandInfo* FindCommandInfo(std::string_view name) {
  for (const TCommandInfo& info : AllCommands())
    if (info.name == name) return &info;
  return nullptr;
}

bool CommandNameMatches(std::string_view name, std::string_view pattern) {
  if (pattern.empty()) return true;
  if (pattern.find_first_of("*?") != std::string_view::npos)
    return fnmatch(std::string(pattern).c_str(), std::string(name).c_str(), FNM_CASEFOLD) == 0;
  return Lower(name).find(Lower(pattern)) != std::string::npos;
}

}  // namespace zentdl
