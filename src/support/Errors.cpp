#include "support/Errors.h"

#include <iostream>

void CErrors::AddError(const std::string& text) {
  if (!text.empty()) m_errors.push_back(text);
}

CErrors& CErrors::operator+=(const std::string& text) {
  AddError(text);
  return *this;
}

CErrors& CErrors::operator+=(const CErrors& other) {
  if (&other == this) {
    std::vector<std::string> copy = other.m_errors;
    m_errors.insert(m_errors.end(), copy.begin(), copy.end());
    return *this;
  }
  m_errors.insert(m_errors.end(), other.m_errors.begin(), other.m_errors.end());
  return *this;
}

std::string CErrors::Message() const {
  std::string message;
  for (const std::string& text : m_errors) {
    message += text;
    message += '\n';
  }
  return message;
}

void CErrors::WriteInLog() const { std::clog << Message(); }

void ThrowExceptionIfErrorsOccurred(const CErrors& errors) {
  if (errors.IsErrorOccurred()) throw CErrors(errors);
}
