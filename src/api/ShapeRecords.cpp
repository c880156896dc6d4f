#include "api/ShapeRecords.h"

#include <type_traits>

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

template <EAdapterShape S>
TShapeInfo InfoOf() {
  TShapeInfo info;
  if constexpr (Adapters::TShape<S>::kBuilt) {
    using Record = typename Adapters::TShape<S>::RecordType;
    info.built = true;
    info.record = Record::kRecordName;
    Record record;
    Record::VisitFields(record, [&](const char* name, const auto& field) {
      info.fields.push_back({name, WireType<std::remove_cvref_t<decltype(field)>>()});
    });
  }
  return info;
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

}  // namespace DL
