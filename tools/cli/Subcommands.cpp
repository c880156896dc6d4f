#include "tools/cli/Subcommands.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>
#include <string>

#include "tools/cli/CanonicalText.h"
#include "tools/cli/CommandCatalogue.h"
#include "tools/cli/Explain.h"
#include "tools/cli/FileText.h"
#include "tools/cli/Progress.h"
#include "tools/cli/ResultCodes.h"
#include "tools/cli/SettingsCheck.h"
#include "tools/cli/SettingsDiff.h"

namespace zentdl {
namespace {

using nlohmann::json;

std::string ProgressLabel(const std::string& verb, const std::string& file, std::size_t i, std::size_t n) {
  std::string label = verb + " " + file;
  if (n > 1) label += " (" + std::to_string(i + 1) + " of " + std::to_string(n) + ")";
  return label;
}

// Reads a file and makes its canonical text; on failure says why on err.
bool Canonical(const std::string& file, const TCommonOptions& options, std::string& text, std::ostream& err) {
  std::string source, reason;
  if (!ReadWholeFile(file, source, reason)) {
    err << "zentdl: cannot read " << file << ": " << reason << "\n";
    return false;
  }
  CProgress progress("normalising " + file, options.progress);
  TCanonicalResult result = CanonicalSettingsText(source);
  if (result.code != 0) {
    err << "zentdl: " << file << " could not be loaded as a library: settings code " << result.code << " ("
        << SettingsCodeMeaning(result.code) << ")\n";
    return false;
  }
  text = std::move(result.text);
  return true;
}

}  // namespace

int RunCheck(const std::vector<std::string>& files, const TCommonOptions& options, std::ostream& out,
             std::ostream& err) {
  bool anyFinding = false, anyUnreadable = false;
  json report = json::array();
  // One note for the whole run: many small files take long too.
  CProgress progress("checking", options.progress);
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string& file = files[i];
    progress.SetLabel(ProgressLabel("checking", file, i, files.size()));
    std::string text, reason;
    if (!ReadWholeFile(file, text, reason)) {
      anyUnreadable = true;
      err << "zentdl: cannot read " << file << ": " << reason << "\n";
      if (options.json) report.push_back({{"file", file}, {"readable", false}, {"error", reason}});
      continue;
    }
    const std::vector<TFinding> findings = CheckSettingsText(text);
    anyFinding = anyFinding || !findings.empty();
    if (options.json) {
      json list = json::array();
      for (const TFinding& f : findings)
        list.push_back({{"line", f.line}, {"kind", std::string(FindingKindName(f.kind))}, {"message", f.message}});
      report.push_back({{"file", file}, {"readable", true}, {"findings", list}});
    } else {
      for (const TFinding& f : findings)
        out << file << ":" << f.line << ": " << FindingKindName(f.kind) << ": " << f.message << "\n";
    }
  }
  if (options.json) out << report.dump(2) << "\n";
  return anyUnreadable ? kExitError : anyFinding ? kExitFindings : kExitOk;
}

int RunNormalize(const std::string& file, const std::string& output, bool inPlace, const TCommonOptions& options,
                 std::ostream& err) {
  std::string text;
  if (!Canonical(file, options, text, err)) return kExitError;
  const std::string target = inPlace ? file : output.empty() ? "-" : output;
  std::string reason;
  if (!WriteWholeFile(target, text, reason)) {
    err << "zentdl: " << reason << "\n";
    return kExitError;
  }
  return kExitOk;
}

int RunDiff(const std::string& a, const std::string& b, const TCommonOptions& options, std::ostream& out,
            std::ostream& err) {
  std::string ta, tb;
  if (!Canonical(a, options, ta, err) || !Canonical(b, options, tb, err)) return kExitError;
  const std::vector<TSectionChange> changes = DiffSettingsTexts(ta, tb);
  if (options.json) {
    json list = json::array();
    for (const TSectionChange& s : changes) {
      json keys = json::array();
      for (const TKeyChange& k : s.keys) {
        json item = {{"key", k.key}};
        item["a"] = k.inA ? json(k.a) : json(nullptr);
        item["b"] = k.inB ? json(k.b) : json(nullptr);
        keys.push_back(item);
      }
      list.push_back({{"section", s.name},
                      {"change", s.inA && s.inB ? "changed" : s.inA ? "removed" : "added"},
                      {"keys", keys}});
    }
    out << json({{"a", a}, {"b", b}, {"sections", list}}).dump(2) << "\n";
  } else if (!changes.empty()) {
    out << "--- " << a << "\n+++ " << b << "\n" << FormatSettingsDiff(changes);
  }
  return changes.empty() ? kExitOk : kExitFindings;
}

int RunExplain(const std::string& file, const TExplainRequest& request, const TCommonOptions& options,
               std::ostream& out, std::ostream& err) {
  std::string text, reason;
  if (!ReadWholeFile(file, text, reason)) {
    err << "zentdl: cannot read " << file << ": " << reason << "\n";
    return kExitError;
  }
  TExplanation e;
  {
    CProgress progress("loading " + file, options.progress);
    e = ExplainClient(text.substr(0, text.find('\0')), request);
  }
  if (e.code != 0) {
    err << "zentdl: " << file << " could not be loaded as a library: settings code " << e.code << " ("
        << SettingsCodeMeaning(e.code) << ")\n";
    return kExitError;
  }
  const std::string who = request.client.empty() ? std::string("the firm (no client)") : "client " + request.client;
  if (options.json) {
    json rows = json::array();
    for (const TExplainRow& r : e.rows) rows.push_back({{"name", r.name}, {"value", r.value}, {"level", r.level}});
    out << json({{"file", file},
                 {"client", request.client},
                 {"leverage", request.leverage},
                 {"limitKind", request.limitKind},
                 {"class", request.classCode},
                 {"security", request.secCode},
                 {"settings", rows}})
               .dump(2)
        << "\n";
    return kExitOk;
  }
  out << who << ", leverage "
      << (request.leverage < -0.001 ? std::string("none") : json(request.leverage).dump()) << ", limit kind "
      << request.limitKind << "\n";
  std::size_t width = 0;
  for (const TExplainRow& r : e.rows) width = std::max(width, r.name.size());
  for (const TExplainRow& r : e.rows) {
    out << "  " << r.name << std::string(width - r.name.size(), ' ') << "  ";
    if (r.value.empty()) {
      out << r.level << "\n";
    } else {
      out << r.value << "    from " << r.level << "\n";
    }
  }
  return kExitOk;
}

int RunCommands(const std::string& pattern, bool servedOnly, const TCommonOptions& options, std::ostream& out) {
  json list = json::array();
  std::size_t n = 0;
  for (const TCommandInfo& c : AllCommands()) {
    if (!CommandNameMatches(c.name, pattern) || (servedOnly && !c.served)) continue;
    ++n;
    if (options.json) {
      json item = {{"name", c.name}, {"verb", c.verb}, {"servedBy", c.servedBy}, {"served", c.served}};
      if (!c.fileVerb) item["scope"] = c.scope;
      if (!c.record.empty()) item["record"] = c.record;
      if (c.fieldsKnown) {
        json fields = json::array();
        for (const TFieldInfo& f : c.fields) fields.push_back({{"name", f.name}, {"type", FieldTypeName(f.type)}});
        item["fields"] = fields;
      } else {
        item["fields"] = nullptr;
      }
      list.push_back(item);
      continue;
    }
    out << c.name << "  (" << c.verb << (c.fileVerb ? "" : ", " + c.scope) << "; " << c.servedBy
        << (c.served ? "" : "; not served by this module build") << ")\n";
    if (c.fieldsKnown) {
      if (c.fields.empty()) out << "    (a ready message for the host's table service, no record)\n";
      for (const TFieldInfo& f : c.fields) out << "    " << f.name << ": " << FieldTypeName(f.type) << "\n";
    } else {
      out << "    fields of " << c.record << " are not declared in this build; give them typed: NAME:TYPE=VALUE\n";
    }
  }
  if (options.json) out << list.dump(2) << "\n";
  return n == 0 ? kExitFindings : kExitOk;
}

}  // namespace zentdl
