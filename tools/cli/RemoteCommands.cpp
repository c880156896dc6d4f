// call, get and put: the subcommands that talk to a running zent-host.
#include <nlohmann/json.hpp>

#include <cctype>
#include <ostream>
#include <string>

#include "support/Alert.h"
#include "tools/cli/AdminSession.h"
#include "tools/cli/CommandCatalogue.h"
#include "tools/cli/FileText.h"
#include "tools/cli/RecordCodec.h"
#include "tools/cli/ResultCodes.h"
#include "tools/cli/Subcommands.h"

namespace zentdl {
namespace {

using nlohmann::json;

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

const TCommandInfo& Command(const std::string& name) {
  if (const TCommandInfo* c = FindCommandInfo(name)) return *c;
  std::string hint;
  for (const TCommandInfo& c : AllCommands())
    if (Lower(c.name) == Lower(name)) hint = "; did you mean " + c.name + "?";
  throw CRequestError("unknown command \"" + name + "\"" + hint + " (zentdl commands PATTERN lists them)");
}

bool HasField(const std::vector<TFieldValue>& values, const std::string& name) {
  for (const TFieldValue& v : values)
    if (v.field.name == name) return true;
  return false;
}

// The fields a reply is read back with: the record's, or those sent.
std::vector<TFieldInfo> ReplyFields(const TCommandInfo& c, const std::vector<TFieldValue>& sent) {
  if (c.fieldsKnown) return c.fields;
  std::vector<TFieldInfo> fields;
  for (const TFieldValue& v : sent) fields.push_back(v.field);
  return fields;
}

// A file verb around the command; its result, with a message on failure.
int FileVerb(CAdminSession& session, const std::string& verb, const std::vector<TFieldValue>& fields,
             std::ostream& err) {
  std::vector<unsigned char> block = EncodeRecord(fields);
  const int rc = session.Api(verb, block);
  if (rc != 0) err << "zentdl: " << verb << ": result " << rc << ": " << RemoteCodeMeaning(rc) << "\n";
  return rc;
}

TFieldValue StringField(const char* name, const std::string& value) {
  return {{name, EFieldType::String}, value};
}

}  // namespace

int RunCall(const TRemoteOptions& remote, const TCallRequest& request, std::ostream& out, std::ostream& err) {
  const TCommandInfo* command = nullptr;
  std::vector<TFieldValue> values;
  try {
    std::string name = request.command;
    json object;
    if (!request.json.empty()) {
      try {
        object = json::parse(request.json);
      } catch (const json::parse_error& e) {
        throw CRequestError(std::string("the JSON request does not parse: ") + e.what());
      }
      if (!object.is_object()) throw CRequestError("the JSON request is not an object");
      if (object.contains("command")) {
        if (!object["command"].is_string()) throw CRequestError("\"command\" of the JSON request is not a string");
        if (!name.empty() && name != object["command"].get<std::string>())
          throw CRequestError("the command is named twice, differently");
        name = object["command"].get<std::string>();
      }
    }
    if (name.empty()) throw CRequestError("no command: give COMMAND or a JSON request with \"command\"");
    command = &Command(name);
    if (object.is_object())
      for (const auto& [key, value] : object.items())
        if (key != "command") values.push_back(JsonField(*command, key, value));
    for (const std::string& word : request.words) values.push_back(ParseFieldWord(*command, word));
    if (!request.library.empty() && !HasField(values, "firmCode")) {
      bool wantsFirm = false;
      for (const TFieldInfo& f : command->fields) wantsFirm = wantsFirm || f.name == "firmCode";
      if (wantsFirm || !command->fieldsKnown) values.push_back(StringField("firmCode", request.library));
    }
  } catch (const CRequestError& e) {
    err << "zentdl: " << e.what() << "\n";
    return kExitError;
  }
  if (request.write && request.library.empty()) {
    err << "zentdl: --write needs --library: the library to open for writing\n";
    return kExitError;
  }

  try {
    CAdminSession session(remote);
    json reply = {{"command", command->name}};
    if (!request.library.empty()) {
      const int open = FileVerb(session, "DLOpenFile",
                                {StringField("firmCode", request.library),
                                 {{"nMode", EFieldType::Int}, request.write ? 0 : 1}},
                                err);
      if (open != 0) return kExitFindings;
    }
    std::vector<unsigned char> block = EncodeRecord(values);
    const int rc = session.Api(command->name, block);
    // A command of the table that this module build does not register is
    // answered as unknown; say which of the two it is.
    const std::string meaning = rc == 1 && !command->served && !command->fileVerb
                                    ? "unknown command: the module does not serve this command of the table"
                                    : RemoteCodeMeaning(rc);
    reply["result"] = rc;
    reply["meaning"] = meaning;
    if (rc == 0) reply["record"] = DecodeRecord(ReplyFields(*command, values), block);
    int exit = rc == 0 ? kExitOk : kExitFindings;
    if (rc != 0) err << "zentdl: " << command->name << ": result " << rc << ": " << meaning << "\n";
    if (!request.library.empty()) {
      if (request.write && rc == 0 && command->verb != "Get") {
        const int update = FileVerb(session, "DLUpdateFile", {StringField("firmCode", request.library)}, err);
        reply["saved"] = update == 0;
        if (update != 0) exit = kExitFindings;
      }
      if (FileVerb(session, "DLCloseFile", {StringField("firmCode", request.library)}, err) != 0) exit = kExitFindings;
    }
    out << reply.dump(2) << "\n";
    return exit;
  } catch (const CRemoteError& e) {
    err << "zentdl: " << e.what() << "\n";
    return e.ExitCode();
  } catch (const CRequestError& e) {
    err << "zentdl: " << e.what() << "\n";
    return kExitError;
  }
}

int RunGet(const TRemoteOptions& remote, const std::string& library, const std::string& output, std::ostream& err) {
  try {
    CAdminSession session(remote);
    CAlert request, row;
    row << std::string("FIRM") << library;
    CAlert readOnly;
    readOnly << std::string("READONLY") << 1;
    request << row << readOnly;
    session.Verb("GetDLFile", request);
    if (request.get_field_type() != CAlert::ftInt) {
      // A refusal or a failure to read: module name or verb, then a code and the text.
      std::string who, what, text;
      int code = 0;
      request >> who >> what >> code >> text;
      err << "zentdl: GetDLFile " << library << " refused (code " << code << "): " << text << "\n";
      return kExitFindings;
    }
    int flag = 0;
    std::string name, text, reason;
    request >> flag >> name >> text;
    if (!WriteWholeFile(output.empty() ? "-" : output, text, reason)) {
      err << "zentdl: " << reason << "\n";
      return kExitError;
    }
    return kExitOk;
  } catch (const CRemoteError& e) {
    err << "zentdl: " << e.what() << "\n";
    return e.ExitCode();
  }
}

int RunPut(const TRemoteOptions& remote, const std::string& library, const std::string& file, std::ostream& out,
           std::ostream& err) {
  std::string text, reason;
  if (!ReadWholeFile(file, text, reason)) {
    err << "zentdl: cannot read " << file << ": " << reason << "\n";
    return kExitError;
  }
  try {
    CAdminSession session(remote);
    // Take the hold: a save is stored only for the user who holds the library.
    CAlert fetch, row;
    row << std::string("FIRM") << library;
    fetch << row;
    session.Verb("GetDLFile", fetch);
    if (fetch.get_field_type() != CAlert::ftInt) {
      std::string who, what, message;
      int code = 0;
      fetch >> who >> what >> code >> message;
      err << "zentdl: GetDLFile " << library << " refused (code " << code << "): " << message << "\n";
      return kExitFindings;
    }
    int readOnly = 0;
    fetch >> readOnly;
    if (readOnly != 0) {
      err << "zentdl: " << library
          << " is held by another user, or the host may not write it: nothing was saved\n";
      return kExitFindings;
    }
    CAlert save, firm, cancel, data;
    firm << std::string("FIRM") << library;
    cancel << std::string("CANCEL") << 0;
    data << std::string("DATA") << text;
    save << firm << cancel << data;
    session.Verb("SaveDLFile", save);
    if (save.get_field_type() != CAlert::ftInt) {
      std::string who, what, message;
      int code = 0;
      save >> who >> what >> code >> message;
      err << "zentdl: SaveDLFile " << library << " refused (code " << code << "): " << message << "\n";
      return kExitFindings;
    }
    int notStored = 1;
    save >> notStored;
    if (notStored != 0) {
      err << "zentdl: the host did not store " << library
          << ": the text does not load as a library, or the file cannot be written (see the host's log)\n";
      return kExitFindings;
    }
    out << "saved " << library << " on " << session.Where() << "\n";
    return kExitOk;
  } catch (const CRemoteError& e) {
    err << "zentdl: " << e.what() << "\n";
    return e.ExitCode();
  }
}

}  // namespace zentdl
