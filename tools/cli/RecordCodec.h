#pragma once
// Request blocks built from an administrator's FIELD=VALUE words (or a JSON
// object), and reply blocks read back into JSON, by the field types of the
// command's record.
#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>
#include <vector>

#include "tools/cli/CommandCatalogue.h"

namespace zentdl {

// A field with the value to send; the value is kept as JSON until encoding.
struct TFieldValue {
  TFieldInfo field;
  nlohmann::json value;
};

// A word or value the tool cannot turn into a request; the message says why.
class CRequestError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The type of a type word ("int", "string[]", ...); throws CRequestError.
EFieldType ParseFieldType(const std::string& word);

// Reads "NAME=VALUE" (a field of the command's record) or "NAME:TYPE=VALUE"
// (any field, typed by hand) into a value of the field's type. Lists are
// written "a,b,c". Throws CRequestError naming the problem.
TFieldValue ParseFieldWord(const TCommandInfo& command, const std::string& word);

// The same from one member of a JSON object: the record's type when known,
// else the JSON value's own kind. Throws CRequestError.
TFieldValue JsonField(const TCommandInfo& command, const std::string& name, const nlohmann::json& value);

// The block of a request record holding these fields.
std::vector<unsigned char> EncodeRecord(const std::vector<TFieldValue>& fields);

// The named fields of a reply block, as a JSON object; a field the block does
// not carry is left out.
nlohmann::json DecodeRecord(const std::vector<TFieldInfo>& fields, std::vector<unsigned char>& block);

}  // namespace zentdl
