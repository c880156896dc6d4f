#pragma once
// What `zentdl explain` answers: the effective settings of one client as a
// host engine gets them from the module's queries, each with the level it
// came from (leverage template, personal section, template, prefix, the
// general margin section, global).
#include <string>
#include <vector>

namespace zentdl {

struct TExplainRequest {
  std::string client;      // empty: the firm's global settings
  std::string classCode;   // optional
  std::string secCode;     // optional
  std::string currency;    // for the effective discounts; empty: the firm's main currency
  double leverage = -1.0;  // -1: none
  int limitKind = 0;
};

// One answer: what, the value as text, and the level it came from.
struct TExplainRow {
  std::string name;
  std::string value;
  std::string level;  // "personal section [clC1_Margin]", "global settings", ...
};

struct TExplanation {
  int code = 0;  // 0, or the settings layer's code when the text could not be loaded
  std::vector<TExplainRow> rows;
};

// Loads the text as the module does and asks the queries.
TExplanation ExplainClient(const std::string& text, const TExplainRequest& request);

}  // namespace zentdl
