#pragma once
// TUniversalParser: the typed parameters of the firm-wide sections, kept by
// section code and a small parameter number (UniversalParams.def). Each
// parameter is a flag, an integer or a character with a default; an integer
// may have a validator that refuses values on Set.
//
// The parser reads its values from the firm's section map once
// (ParseGlobalSettings); from then on these values are the home of the
// parameters: Set changes them here, and SettingToStrGlobalSection writes
// them back into the section's text.
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/CodeLengths.h"
#include "base/ResultCodes.h"
#include "cache/IGeneralParamReader.h"
#include "ini/IniSectCodes.h"
#include "ini/TIniParser.h"

namespace DL {

// A validator of a typed integer: ZDL_OK, or the code that refuses the value
// (the checks of DLCodeLength.h).
using TIntParamValidator = int (*)(int);

class TUniversalParser : public IGeneralParamReader {
 public:
  // The value type of a parameter row.
  enum EParamType : int { ParamBool = 0, ParamInt = 1, ParamChar = 2, ParamNone = -1 };

  // One parameter number of a section: its type, its parameter code and the
  // index of its value in the array of its type. ParamNone for a number
  // without a row.
  struct TParamTypeAndNums {
    int type = ParamNone;
    TIniParser::EIniParamCodeNum paramCode = TIniParser::ipcNone;
    int index = -1;
  };

  // Registers every row of UniversalParams.def; all values at their
  // defaults. The parser is read by ParseGlobalSettings and
  // SettingToStrGlobalSection; it must outlive this object.
  explicit TUniversalParser(const TIniParser& parser);

  // Registration of a row; the section's table grows to hold the number.
  void AddBoolParamSupport(EIniSectCodeNum sect, int num, TIniParser::EIniParamCodeNum param, bool def);
  void AddIntParamSupport(EIniSectCodeNum sect, int num, TIniParser::EIniParamCodeNum param, int def,
                          TIntParamValidator validator);
  void AddCharParamSupport(EIniSectCodeNum sect, int num, TIniParser::EIniParamCodeNum param, char def);

  // Reads every registered row from the global sections of the parser; a
  // missing section or key gives the default.
  void ParseGlobalSettings();

  // Each accessor returns ZDL_BAD_ARGUMENT for a section code above 108, a
  // number outside the section's table, a number without a row or a row of
  // another type; the output is then left alone.
  [[nodiscard]] int GetBoolParamFromGlobalSection(bool& out, int sect, int num) const;
  [[nodiscard]] int GetIntParamFromGlobalSection(int& out, int sect, int num) const;
  [[nodiscard]] int GetCharParamFromGlobalSection(char& out, int sect, int num) const;
  // A refused integer returns the validator's code and keeps the value.
  [[nodiscard]] int SetBoolParamToGlobalSection(bool value, int sect, int num);
  [[nodiscard]] int SetIntParamToGlobalSection(int value, int sect, int num);
  [[nodiscard]] int SetCharParamToGlobalSection(char value, int sect, int num);
  // `out`: whether `value` equals the row's default.
  [[nodiscard]] int IsEqualToDefValueBoolParamFromGlobalSection(bool& out, bool value, int sect, int num) const;
  [[nodiscard]] int IsEqualToDefValueIntParamFromGlobalSection(bool& out, int value, int sect, int num) const;
  // `out`: whether `value` equals the present value.
  [[nodiscard]] int IsEqualToGlobalValueBoolParamFromGlobalSection(bool& out, bool value, int sect, int num) const;
  [[nodiscard]] int IsEqualToGlobalValueIntParamFromGlobalSection(bool& out, int value, int sect, int num) const;

  // The number of a parameter in a section, its name compared ignoring
  // case; -1 when the section or the name has no row.
  int GetParamNumInSect(int sect, const std::string& name) const;

  // A typed integer of "General" by name (IGeneralParamReader).
  bool ReadGeneralInt(const char* key, int& out) const override;

  // The section's lines "name=value\n" without the header: its raw
  // parameters in map order, where a typed parameter carries its present
  // value and is left out at its default, and the parameters written by the
  // hub's own rendering (GeneralRenderedParams.def) are skipped; then the
  // typed parameters missing from the raw section whose value differs from
  // the default. Appends to `out`.
  void SettingToStrGlobalSection(std::string& out, int sect) const;

  // The settings of "General" that the hub writes from its own fields, as
  // upper-case names; built once for all hubs.
  static const std::set<std::string>& ExcludedGeneralSettings();

 private:
  struct TSectionTable {
    bool registered = false;
    std::vector<TParamTypeAndNums> rows;
    std::vector<std::pair<std::string, int>> namesUp;  // upper-case name -> number
    std::vector<bool> boolValues, boolDefaults;
    std::vector<int> intValues, intDefaults;
    std::vector<TIntParamValidator> validators;
    std::vector<char> charValues, charDefaults;
  };

  // The row of (sect, num) when it has the type; null otherwise.
  const TParamTypeAndNums* FindRow(int sect, int num, int type) const;
  TParamTypeAndNums& AddRow(EIniSectCodeNum sect, int num, TIniParser::EIniParamCodeNum param, int type,
                            int index);
  // The present value of a typed row as text, and whether it is the default.
  std::string ValueText(const TSectionTable& table, const TParamTypeAndNums& row, bool& isDefault) const;

  const TIniParser& m_parser;
  std::vector<TSectionTable> m_sections;  // by section code
};

}  // namespace DL
