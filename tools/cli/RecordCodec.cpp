#include "tools/cli/RecordCodec.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "api/RecordFields.h"

namespace zentdl {
namespace {

using nlohmann::json;
using StorageNamed::InMemStorageSpace::CInMemStorage;

std::vector<std::string> SplitList(const std::string& text) {
  std::vector<std::string> out;
  if (text.empty()) return out;
  std::size_t start = 0;
  for (;;) {
    const std::size_t comma = text.find(',', start);
    out.push_back(text.substr(start, comma == std::string::npos ? std::string::npos : comma - start));
    if (comma == std::string::npos) return out;
    start = comma + 1;
  }
}

long long WholeNumber(const std::string& name, const std::string& text) {
  char* end = nullptr;
  errno = 0;
  const long long v = std::strtoll(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || errno == ERANGE)
    throw CRequestError("field " + name + ": \"" + text + "\" is not a whole number");
  return v;
}

double RealNumber(const std::string& name, const std::string& text) {
  char* end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0') throw CRequestError("field " + name + ": \"" + text + "\" is not a number");
  return v;
}

json FromText(const TFieldInfo& f, const std::string& text) {
  switch (f.type) {
    case EFieldType::String:
      return text;
    case EFieldType::Int: {
      const long long v = WholeNumber(f.name, text);
      if (v < -2147483648LL || v > 2147483647LL) throw CRequestError("field " + f.name + ": out of the int range");
      return v;
    }
    case EFieldType::Int64:
      return WholeNumber(f.name, text);
    case EFieldType::Bool:
      if (text == "1" || text == "true" || text == "yes") return true;
      if (text == "0" || text == "false" || text == "no") return false;
      throw CRequestError("field " + f.name + ": \"" + text + "\" is not a bool (1, 0, true, false, yes, no)");
    case EFieldType::Char:
      if (text.size() != 1) throw CRequestError("field " + f.name + ": a char is one byte");
      return text;
    case EFieldType::Double:
      return RealNumber(f.name, text);
    case EFieldType::StringList:
      return SplitList(text);
    case EFieldType::IntList: {
      json list = json::array();
      for (const std::string& item : SplitList(text)) list.push_back(WholeNumber(f.name, item));
      return list;
    }
    case EFieldType::DoubleList: {
      json list = json::array();
      for (const std::string& item : SplitList(text)) list.push_back(RealNumber(f.name, item));
      return list;
    }
    case EFieldType::RecordList:
      break;
  }
  throw CRequestError("field " + f.name + ": lists of records cannot be given on the command line");
}

const TFieldInfo* KnownField(const TCommandInfo& command, const std::string& name) {
  for (const TFieldInfo& f : command.fields)
    if (f.name == name) return &f;
  return nullptr;
}

std::string FieldNames(const TCommandInfo& command) {
  std::string out;
  for (const TFieldInfo& f : command.fields) out += (out.empty() ? "" : ", ") + f.name;
  return out.empty() ? "none" : out;
}

}  // namespace

EFieldType ParseFieldType(const std::string& word) {
  for (EFieldType t : {EFieldType::String, EFieldType::Int, EFieldType::Bool, EFieldType::Char, EFieldType::Double,
                       EFieldType::Int64, EFieldType::IntList, EFieldType::DoubleList, EFieldType::StringList})
    if (FieldTypeName(t) == word) return t;
  throw CRequestError("unknown field type \"" + word +
                      "\" (string, int, bool, char, double, int64, int[], double[], string[])");
}

TFieldValue ParseFieldWord(const TCommandInfo& command, const std::string& word) {
  const std::size_t eq = word.find('=');
  if (eq == std::string::npos || eq == 0) throw CRequestError("\"" + word + "\" is not FIELD=VALUE");
  std::string name = word.substr(0, eq);
  const std::string text = word.substr(eq + 1);
  const std::size_t colon = name.find(':');
  if (colon != std::string::npos) {
    const TFieldInfo f{name.substr(0, colon), ParseFieldType(name.substr(colon + 1))};
    return {f, FromText(f, text)};
  }
  const TFieldInfo* f = KnownField(command, name);
  if (f == nullptr) {
    if (command.fieldsKnown)
      throw CRequestError("field " + name + " is not in " + command.record + " (its fields: " + FieldNames(command) +
                          ")");
    throw CRequestError("the fields of " + command.record + " are not declared in this build: give " + name +
                        " its type, " + name + ":TYPE=VALUE");
  }
  return {*f, FromText(*f, text)};
}

TFieldValue JsonField(const TCommandInfo& command, const std::string& name, const json& value) {
  if (const TFieldInfo* f = KnownField(command, name)) {
    // Text of the value, then the same reading as on the command line.
    if (value.is_string()) return {*f, FromText(*f, value.get<std::string>())};
    if (value.is_boolean() && f->type == EFieldType::Bool) return {*f, value};
    if (value.is_number_integer() &&
        (f->type == EFieldType::Int || f->type == EFieldType::Int64 || f->type == EFieldType::Bool))
      return {*f, f->type == EFieldType::Bool ? json(value.get<long long>() != 0) : value};
    if (value.is_number() && f->type == EFieldType::Double) return {*f, value.get<double>()};
    if (value.is_array() && (f->type == EFieldType::StringList || f->type == EFieldType::IntList ||
                             f->type == EFieldType::DoubleList))
      return {*f, value};
    throw CRequestError("field " + name + ": a " + std::string(FieldTypeName(f->type)) + " is expected, not " +
                        value.dump());
  }
  if (command.fieldsKnown)
    throw CRequestError("field " + name + " is not in " + command.record + " (its fields: " + FieldNames(command) +
                        ")");
  TFieldInfo f{name, EFieldType::String};
  if (value.is_boolean()) f.type = EFieldType::Bool;
  else if (value.is_number_integer()) f.type = EFieldType::Int;
  else if (value.is_number()) f.type = EFieldType::Double;
  else if (value.is_array()) f.type = EFieldType::StringList;
  else if (!value.is_string()) throw CRequestError("field " + name + ": cannot send " + value.dump());
  return {f, value};
}

std::vector<unsigned char> EncodeRecord(const std::vector<TFieldValue>& fields) {
  CInMemStorage storage;
  for (const TFieldValue& fv : fields) {
    const char* name = fv.field.name.c_str();
    const json& v = fv.value;
    switch (fv.field.type) {
      case EFieldType::String: RecordFields::StoreField(v.get<std::string>(), storage, nullptr, name); break;
      case EFieldType::Int: RecordFields::StoreField(v.get<int>(), storage, nullptr, name); break;
      case EFieldType::Int64: RecordFields::StoreField(v.get<long long>(), storage, nullptr, name); break;
      case EFieldType::Bool: RecordFields::StoreField(v.get<bool>(), storage, nullptr, name); break;
      case EFieldType::Char: RecordFields::StoreField(v.get<std::string>()[0], storage, nullptr, name); break;
      case EFieldType::Double: RecordFields::StoreField(v.get<double>(), storage, nullptr, name); break;
      case EFieldType::IntList: RecordFields::StoreField(v.get<std::vector<int>>(), storage, nullptr, name); break;
      case EFieldType::DoubleList:
        RecordFields::StoreField(v.get<std::vector<double>>(), storage, nullptr, name);
        break;
      case EFieldType::StringList: {
        std::vector<StorageNamed::STL_string> list;
        for (const json& item : v) list.push_back(item.is_string() ? item.get<std::string>() : item.dump());
        RecordFields::StoreField(list, storage, nullptr, name);
        break;
      }
      case EFieldType::RecordList:
        throw CRequestError("field " + fv.field.name + ": lists of records cannot be sent");
    }
  }
  StorageNamed::InMemStorageSpace::CMemoryObjectEx block;
  const unsigned long size = storage.PackToSolidBuffer(&block);
  std::vector<unsigned char> data(size);
  if (size != 0) std::memcpy(data.data(), block.get(nullptr), size);
  return data;
}

json DecodeRecord(const std::vector<TFieldInfo>& fields, std::vector<unsigned char>& data) {
  CInMemStorage storage;
  fake_mem_block block(data.data(), data.size());
  storage.LoadFromSolidBuffer(&block);
  json out = json::object();
  for (const TFieldInfo& f : fields) {
    const char* name = f.name.c_str();
    switch (f.type) {
      case EFieldType::String: {
        std::string v;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = v;
        break;
      }
      case EFieldType::Int: {
        int v = 0;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = v;
        break;
      }
      case EFieldType::Int64: {
        long long v = 0;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = v;
        break;
      }
      case EFieldType::Bool: {
        bool v = false;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = v;
        break;
      }
      case EFieldType::Char: {
        char v = 0;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = std::string(1, v);
        break;
      }
      case EFieldType::Double: {
        double v = 0;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = v;
        break;
      }
      case EFieldType::IntList: {
        std::vector<int> v;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = v;
        break;
      }
      case EFieldType::DoubleList: {
        std::vector<double> v;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = v;
        break;
      }
      case EFieldType::StringList: {
        std::vector<StorageNamed::STL_string> v;
        if (RecordFields::LoadField(v, storage, nullptr, name)) out[f.name] = v;
        break;
      }
      case EFieldType::RecordList:
        break;
    }
  }
  return out;
}

}  // namespace zentdl
