#pragma once
// Texts the module sends to clients, by message id and language.
#include <string>

// Message ids of the text table.
enum ETextResource : int {
  IDS_CANNOT_OPEN_LIBRARY = 101,  // the library file cannot be read
  IDS_NO_PERMISSION = 102,        // the user's kind may not work with libraries
  IDS_NO_LIBRARY_LIST = 103,      // kept in the table; nothing sends it today
};

// Language codes the table knows.
inline constexpr unsigned kLanguageEnglish = 1033;
inline constexpr unsigned kLanguageRussian = 1049;

// The text of `id` in `language` (0 means English). Russian texts are CP1251
// bytes. An id or language the table does not know gives an empty string.
std::string LoadResourseString(int id, unsigned language);
