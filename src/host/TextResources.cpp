#include "host/TextResources.h"

#include <map>

namespace {

using TextTable = std::map<int, std::map<unsigned, std::string>>;

const TextTable& TextResources() {
  // English 102 says the opposite of what it means; clients expect these
  // exact words, so the text stays as it is.
  static const TextTable table = {
      {IDS_CANNOT_OPEN_LIBRARY,
       {{kLanguageEnglish, "Can not open file dealer library for firm"},
        // "Не удается открыть файл дилерской библиотеки для фирмы"
        {kLanguageRussian,
         "\xCD\xE5 \xF3\xE4\xE0\xE5\xF2\xF1\xFF \xEE\xF2\xEA\xF0\xFB\xF2\xFC \xF4\xE0\xE9\xEB "
         "\xE4\xE8\xEB\xE5\xF0\xF1\xEA\xEE\xE9 \xE1\xE8\xE1\xEB\xE8\xEE\xF2\xE5\xEA\xE8 "
         "\xE4\xEB\xFF \xF4\xE8\xF0\xEC\xFB"}}},
      {IDS_NO_PERMISSION,
       {{kLanguageEnglish, "Sufficient permission to perform this operation"},
        // "Недостаточно прав для выполнения данной операции"
        {kLanguageRussian,
         "\xCD\xE5\xE4\xEE\xF1\xF2\xE0\xF2\xEE\xF7\xED\xEE \xEF\xF0\xE0\xE2 \xE4\xEB\xFF "
         "\xE2\xFB\xEF\xEE\xEB\xED\xE5\xED\xE8\xFF \xE4\xE0\xED\xED\xEE\xE9 "
         "\xEE\xEF\xE5\xF0\xE0\xF6\xE8\xE8"}}},
      {IDS_NO_LIBRARY_LIST,
       {{kLanguageEnglish, "Limit calculation library list is not specified"},
        // "Не задан список библиотек расчета лимитов"
        {kLanguageRussian,
         "\xCD\xE5 \xE7\xE0\xE4\xE0\xED \xF1\xEF\xE8\xF1\xEE\xEA "
         "\xE1\xE8\xE1\xEB\xE8\xEE\xF2\xE5\xEA \xF0\xE0\xF1\xF7\xE5\xF2\xE0 "
         "\xEB\xE8\xEC\xE8\xF2\xEE\xE2"}}},
  };
  return table;
}

}  // namespace

std::string LoadResourseString(int id, unsigned language) {
  if (language == 0) language = kLanguageEnglish;
  const TextTable& table = TextResources();
  auto byId = table.find(id);
  if (byId == table.end()) return {};
  auto text = byId->second.find(language);
  return text == byId->second.end() ? std::string() : text->second;
}
