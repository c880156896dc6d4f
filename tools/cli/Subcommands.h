#pragma once
// The work of each `zentdl` subcommand, apart from the argument parsing, so
// that tests run it directly. Each returns the process exit code and writes
// its result to out and its messages to err.
#include <iosfwd>
#include <string>
#include <vector>

namespace zentdl {

// Exit codes shared by the subcommands.
enum EExit : int {
  kExitOk = 0,
  kExitFindings = 1,  // check found something; diff found a difference; call got a result other than 0
  kExitError = 2,     // a file could not be read or written, a text could not be loaded, a bad argument
  kExitRemote = 3,    // connection or log-on failed
};

struct TCommonOptions {
  bool json = false;      // --format json
  bool progress = true;   // notes on standard error for long work
};

// check FILE...: findings of each file; 0 clean, 1 with findings, 2 when a
// file cannot be read (the others are still checked).
int RunCheck(const std::vector<std::string>& files, const TCommonOptions& options, std::ostream& out,
             std::ostream& err);

// normalize FILE: the canonical text to output ("-" for standard output), or
// over FILE itself with inPlace. 0, or 2 on any failure (nothing is written then).
int RunNormalize(const std::string& file, const std::string& output, bool inPlace, const TCommonOptions& options,
                 std::ostream& err);

// diff A B: the difference of the canonical texts. 0 same, 1 different, 2 error.
int RunDiff(const std::string& a, const std::string& b, const TCommonOptions& options, std::ostream& out,
            std::ostream& err);

// explain FILE CLIENT: the client's effective settings with their levels.
// 0, or 2 when the file cannot be read or loaded.
struct TExplainRequest;
int RunExplain(const std::string& file, const TExplainRequest& request, const TCommonOptions& options,
               std::ostream& out, std::ostream& err);

// call: one remote command (or file verb) to a running zent-host, the reply
// record printed as JSON. With a library, the library is opened first
// (for writing with `write`, and then written back after a successful
// change) and closed after. 0 when the command's result is 0, 1 for another
// result, 2 for a bad request, 3 when the host cannot be reached or refuses
// the log-on.
struct TRemoteOptions;
struct TCallRequest {
  std::string command;             // empty when the JSON request names it
  std::vector<std::string> words;  // FIELD=VALUE or FIELD:TYPE=VALUE
  std::string json;                // a JSON object: "command" and the fields
  std::string library;             // open this library around the command
  bool write = false;              // open it for writing and save a change
};
int RunCall(const TRemoteOptions& remote, const TCallRequest& request, std::ostream& out, std::ostream& err);

// get LIBRARY: the library's text through "GetDLFile" (read only), to
// output ("-" for standard output). put LIBRARY FILE: takes the hold with
// "GetDLFile" and stores the text with "SaveDLFile"; the host stores its
// canonical form. 0, 1 when the host refuses or fails, 2, 3 as for call.
int RunGet(const TRemoteOptions& remote, const std::string& library, const std::string& output, std::ostream& err);
int RunPut(const TRemoteOptions& remote, const std::string& library, const std::string& file, std::ostream& out,
           std::ostream& err);

// commands [PATTERN]: the matching commands and file verbs with their records.
// 0, or 1 when nothing matches.
int RunCommands(const std::string& pattern, bool servedOnly, const TCommonOptions& options, std::ostream& out);

}  // namespace zentdl
