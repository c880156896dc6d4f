// zentdl: the administrator's tool for dealer libraries. See docs/cli.md.
#include <CLI/CLI.hpp>

#include <iostream>
#include <string>
#include <vector>

#include "tools/cli/AdminSession.h"
#include "tools/cli/Explain.h"
#include "tools/cli/Subcommands.h"

int main(int argc, char** argv) {
  CLI::App app{"zentdl: check, normalise, compare and explain dealer libraries, and talk to a running zent-host"};
  app.require_subcommand(1);
  app.set_version_flag("--version", std::string("zentdl ") + ZENTDL_VERSION);

  zentdl::TCommonOptions common;
  std::string format = "text";
  auto addFormat = [&](CLI::App* sub) {
    sub->add_option("--format", format, "Output form: text or json")->check(CLI::IsMember({"text", "json"}));
    sub->add_flag("-q,--quiet", [&](std::int64_t) { common.progress = false; },
                  "No progress notes on standard error");
  };

  std::vector<std::string> checkFiles;
  CLI::App* check = app.add_subcommand(
      "check", "Report what the module would silently drop or ignore in each library, with file and line. "
               "Exit 0 when clean, 1 with findings, 2 when a file cannot be read.");
  check->add_option("FILE", checkFiles, "Library files")->required();
  addFormat(check);

  std::string normFile, normOut;
  bool inPlace = false;
  CLI::App* normalize = app.add_subcommand(
      "normalize", "Write the canonical text of a library: byte for byte what a save through the module writes.");
  normalize->add_option("FILE", normFile, "Library file")->required();
  CLI::Option* outOpt = normalize->add_option("-o,--output", normOut, "Write here instead of standard output");
  normalize->add_flag("--in-place", inPlace, "Replace FILE with its canonical text")->excludes(outOpt);
  normalize->add_flag("-q,--quiet", [&](std::int64_t) { common.progress = false; },
                      "No progress notes on standard error");

  std::string diffA, diffB;
  CLI::App* diff = app.add_subcommand(
      "diff", "Show the difference of two libraries after normalisation, section by section and key by key. "
              "Exit 0 when equal, 1 when they differ, 2 on an error.");
  diff->add_option("A", diffA, "First library")->required();
  diff->add_option("B", diffB, "Second library")->required();
  addFormat(diff);

  std::string explainFile;
  zentdl::TExplainRequest explainRequest;
  CLI::App* explain = app.add_subcommand(
      "explain", "Show the effective settings of one client as a host engine gets them, each with the level it "
                 "came from: leverage template, personal section, template, prefix, general margin section, global.");
  explain->add_option("FILE", explainFile, "Library file")->required();
  explain->add_option("CLIENT", explainRequest.client, "Client code (\"\" for the firm's global settings)")->required();
  explain->add_option("--class", explainRequest.classCode, "Class code, e.g. TQBR");
  explain->add_option("--sec", explainRequest.secCode, "Security code, e.g. SBER");
  explain->add_option("--leverage", explainRequest.leverage, "Leverage of the query; -1 for none")
      ->default_val(-1.0);
  explain->add_option("--limit-kind", explainRequest.limitKind, "Limit kind")->default_val(0);
  explain->add_option("--currency", explainRequest.currency, "Currency of the discount query (default: main)");
  addFormat(explain);

  zentdl::TRemoteOptions remote;
  auto addRemote = [&](CLI::App* sub) {
    sub->add_option("--host", remote.host, "zent-host as ADDR:PORT (default: $ZENTDL_HOST)");
    sub->add_option("--user", remote.user, "User name (default: $ZENTDL_USER)");
    sub->add_option("--secret-file", remote.secretFile,
                    "File whose first line is the secret (default: $ZENTDL_SECRET, then $ZENTDL_SECRET_FILE)");
    sub->add_option("--connection-port", remote.connectionPort, "The host's connection port")->default_val(7001);
  };

  zentdl::TCallRequest callRequest;
  CLI::App* call = app.add_subcommand(
      "call", "Send one remote command (or file verb) to a running zent-host and print the reply record as JSON. "
              "Fields are FIELD=VALUE (FIELD:TYPE=VALUE for a record this build does not declare); --json gives "
              "the whole request. With --library the library is opened around the command, and with --write "
              "opened for writing and saved after a successful change. Exit 0 for result 0, 1 for another "
              "result, 2 for a bad request, 3 when the host cannot be reached or refuses the log-on.");
  call->add_option("COMMAND", callRequest.command, "Command name, as `zentdl commands` lists it");
  call->add_option("FIELDS", callRequest.words, "FIELD=VALUE ...");
  call->add_option("--json", callRequest.json, "The request as a JSON object: {\"command\": ..., FIELD: VALUE ...}");
  call->add_option("--library", callRequest.library, "Open this library around the command (firmCode defaults to it)");
  call->add_flag("--write", callRequest.write, "Open the library for writing and save it after a change");
  addRemote(call);

  std::string getLibrary, getOut;
  CLI::App* get = app.add_subcommand("get", "Fetch a library's text from a running zent-host (GetDLFile, read only).");
  get->add_option("LIBRARY", getLibrary, "Library name as the host lists it")->required();
  get->add_option("-o,--output", getOut, "Write here instead of standard output");
  addRemote(get);

  std::string putLibrary, putFile;
  CLI::App* put = app.add_subcommand(
      "put", "Store a library on a running zent-host (GetDLFile for the hold, then SaveDLFile); the host stores "
             "its canonical form.");
  put->add_option("LIBRARY", putLibrary, "Library name as the host lists it")->required();
  put->add_option("FILE", putFile, "The new text")->required();
  addRemote(put);

  std::string pattern;
  bool servedOnly = false;
  CLI::App* commands = app.add_subcommand(
      "commands", "List the remote commands and file verbs with their record fields. PATTERN is a substring, "
                  "or a shell pattern with * and ?, matched ignoring case.");
  commands->add_option("PATTERN", pattern, "Which commands");
  commands->add_flag("--served", servedOnly, "Only the commands this module build serves");
  addFormat(commands);

  bool known = argc <= 1 || argv[1][0] == '-';
  std::string names;
  for (const CLI::App* sub : app.get_subcommands([](CLI::App*) { return true; })) {
    names += (names.empty() ? "" : ", ") + sub->get_name();
    known = known || sub->get_name() == argv[1];
  }
  if (!known) {
    std::cerr << "zentdl: unknown subcommand \"" << argv[1] << "\"; the subcommands are " << names
              << " (zentdl --help)\n";
    return zentdl::kExitError;
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    const int rc = app.exit(e);
    return rc == 0 ? 0 : zentdl::kExitError;
  }
  common.json = format == "json";

  if (check->parsed()) return zentdl::RunCheck(checkFiles, common, std::cout, std::cerr);
  if (normalize->parsed()) return zentdl::RunNormalize(normFile, normOut, inPlace, common, std::cerr);
  if (diff->parsed()) return zentdl::RunDiff(diffA, diffB, common, std::cout, std::cerr);
  if (explain->parsed()) return zentdl::RunExplain(explainFile, explainRequest, common, std::cout, std::cerr);
  if (call->parsed()) return zentdl::RunCall(remote, callRequest, std::cout, std::cerr);
  if (get->parsed()) return zentdl::RunGet(remote, getLibrary, getOut, std::cerr);
  if (put->parsed()) return zentdl::RunPut(remote, putLibrary, putFile, std::cout, std::cerr);
  if (commands->parsed()) return zentdl::RunCommands(pattern, servedOnly, common, std::cout);
  return zentdl::kExitError;
}
