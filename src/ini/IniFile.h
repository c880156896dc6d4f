#pragma once
// A profile file (a host configuration file) seen as an object. Only the full
// path is held: every operation opens the file anew, reads or rewrites it, and
// closes it. Nothing locks; callers keep to one writer.
//
// Section and key names compare ignoring the case of ASCII letters, except in
// GetStrings and GetValuesMap. No write creates a missing file, except
// SetStrings, which does not look first.
#include <map>
#include <string>
#include <vector>

namespace Library::Ini {

class CIniFile {
 public:
  // One key line of a section, both parts trimmed.
  struct CRecord {
    std::string key;
    std::string value;
  };

  // Keeps Library::FileUtils::GetFullPath(path).
  explicit CIniFile(const std::string& path);
  virtual ~CIniFile();

  const std::string& GetPath() const { return m_path; }

  // True when the path is a regular file. A file system error is logged as
  // "Error: <what>" at level 0 and counts as no file.
  bool IsFile() const;

  // The value of the key as lx_GetPrivateProfileInt reads it; 0 when there is
  // no file (not the default, unlike the string form).
  int GetValue(const std::string& section, const std::string& key, int defaultValue) const;
  // Writes the number in decimal; false when there is no file or the write fails.
  bool SetValue(const std::string& section, const std::string& key, int value);

  // The value of the key, the default when there is no file or no key. A
  // result that fills the reader's 32001-byte buffer (only a default of that
  // length can) is looked up again without a length limit.
  std::string GetValue(const std::string& section, const std::string& key, const std::string& defaultValue) const;
  // Writes key=value; false when there is no file or it can't be written. A
  // value of 32768 bytes or more is written without a line length limit, and
  // then an existing key keeps the file's spelling.
  bool SetValue(const std::string& section, const std::string& key, const std::string& value);

  // The names of all headers in file order, duplicates kept: a trimmed line
  // that begins with "[" and ends with "]" gives the text between.
  std::vector<std::string> GetSections() const;
  // True when some name of GetSections equals the section ignoring case.
  bool SectionExist(const std::string& section) const;

  // The key lines of the section in file order, duplicates kept: lines with
  // "=" not beginning with ";", split at the first "=", lines of any length.
  // Empty when there is no file or no section.
  std::vector<CRecord> GetRecords(const std::string& section) const;
  // SetValue for each record in order; stops at the first failure and returns
  // false; true for no records.
  bool SetRecords(const std::string& section, const std::vector<CRecord>& records);

  // The non-empty trimmed lines of the section, comments included. Here alone
  // the header must match case and all.
  std::vector<std::string> GetStrings(const std::string& section) const;
  // lx_WritePrivateProfileSection with packed strings (null removes the
  // section's key lines and header), without looking whether the file exists.
  bool SetStrings(const std::string& section, const char* strings);

  // The lines of GetStrings with every space and tab removed, split at "=":
  // a line with exactly one "=" gives key and value, a later line overwriting
  // an earlier one. Keys are case-sensitive here.
  std::map<std::string, std::string> GetValuesMap(const std::string& section) const;

  // Removes trailing bytes of " \t\r\n" and leading bytes of " \t".
  static void trim(std::string& s);
  // Removes every space and tab anywhere in the string.
  static void trimTabsAndSpaces(std::string& s);

 private:
  std::string GetLongValue(const std::string& section, const std::string& key,
                           const std::string& defaultValue) const;
  bool SetLongValue(const std::string& section, const std::string& key, const std::string& value) const;

  std::string m_path;  // full path, made once by the constructor
};

}  // namespace Library::Ini
