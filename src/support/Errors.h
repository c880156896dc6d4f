#pragma once
// CErrors: the ordered list of error texts that the settings parsers gather,
// and the exception they raise when the list is not empty.
#include <string>
#include <vector>

class CErrors {
 public:
  // Appends text; an empty text is ignored.
  void AddError(const std::string& text);
  CErrors& operator+=(const std::string& text);
  // Appends every text of other, in its order.
  CErrors& operator+=(const CErrors& other);

  bool IsErrorOccurred() const { return !m_errors.empty(); }
  // All texts, each followed by a line feed; empty for an empty list.
  std::string Message() const;
  // Writes Message() to std::clog.
  void WriteInLog() const;
  const std::vector<std::string>& Errors() const { return m_errors; }

 private:
  std::vector<std::string> m_errors;
};

// Throws a copy of errors when it holds any text.
void ThrowExceptionIfErrorsOccurred(const CErrors& errors);
