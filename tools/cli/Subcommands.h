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

// commands [PATTERN]: the matching commands and file verbs with their records.
// 0, or 1 when nothing matches.
int RunCommands(const std::string& pattern, bool servedOnly, const TCommonOptions& options, std::ostream& out);

}  // namespace zentdl
