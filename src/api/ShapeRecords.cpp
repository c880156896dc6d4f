#include "api/ShapeRecords.h"

#include <type_traits>

#include "api/OwnCommands.h"
#include "api/ShapeTable.h"

namespace DL {
namespace {

template <class F>
std::string WireType();

// A record's fields as "`name` type" joined by "; ".
template <class Record>
std::string FieldsText() {
  std::string text;
  Record record;
  Record::VisitFields(record, [&](const char* name, const auto& field) {
    if (!text.empty()) text += "; ";
    text += std::string("`") + name + "` " + WireType<std::remove_cvref_t<decltype(field)>>();
  });
  return text;
}

template <class F>
std::string WireType() {
  if constexpr (std::is_same_v<F, std::string>) return "string";
  else if constexpr (std::is_same_v<F, int>) return "int (4 bytes)";
  else if constexpr (std::is_same_v<F, bool>) return "bool (1 byte)";
  else if constexpr (std::is_same_v<F, double>) return "double (8 bytes)";
  else if constexpr (std::is_same_v<F, std::vector<std::string>>) return "list of strings";
  else if constexpr (std::is_same_v<F, std::vector<int>>) return "list of int";
  else if constexpr (std::is_same_v<F, std::vector<double>>) return "list of double";
  else if constexpr (RecordFields::TIsVector<F>::value) {
    using E = typename RecordFields::TIsVector<F>::Element;
    return std::string("list of ") + E::kRecordName + " (" + FieldsText<E>() + ")";
  } else static_assert(!std::is_same_v<F, F>, "a generic record holds no other field type");
}

struct TShapeInfo {
  bool built = false;
  std::string record;
  std::vector<TRecordField> fields;
};

template <class Record>
TShapeInfo InfoOfRecord() {
  TShapeInfo info;
  info.built = true;
  info.record = Record::kRecordName;
  Record record;
  Record::VisitFields(record, [&](const char* name, const auto& field) {
    info.fields.push_back({name, WireType<std::remove_cvref_t<decltype(field)>>()});
  });
  return info;
}

template <EAdapterShape S>
TShapeInfo InfoOf() {
  if constexpr (Adapters::TShape<S>::kBuilt) return InfoOfRecord<typename Adapters::TShape<S>::RecordType>();
  return {};
}

// The record of a command with a record of its own, found by its settings
// function among the operations that have a recipe.
TShapeInfo OwnInfo(std::string_view function) {
#define ZDL_OPERATION(home, op, qualifier, params, args)
#define ZDL_OWN_OPERATION(home, op, qualifier, params, args) \
  if (function == "ZDL_" #op) return InfoOfRecord<typename Adapters::Own::op::RecordType>();
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION
#undef ZDL_OWN_OPERATION
  return {};
}

TShapeInfo Info(EAdapterShape shape) {
  switch (shape) {
#define ZDL_SHAPE(name, kind) \
  case EAdapterShape::name:   \
    return InfoOf<EAdapterShape::name>();
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
    default:
      return {};
  }
}

}  // namespace

bool ShapeIsBuilt(EAdapterShape shape) { return Info(shape).built; }
std::string ShapeRecordName(EAdapterShape shape) { return Info(shape).record; }
std::vector<TRecordField> ShapeRecordFields(EAdapterShape shape) { return Info(shape).fields; }
bool OwnRecordIsDeclared(std::string_view function) { return OwnInfo(function).built; }
std::vector<TRecordField> OwnRecordFields(std::string_view function) { return OwnInfo(function).fields; }

}  // namespace DL
