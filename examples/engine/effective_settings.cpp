// Loads the example library of the investment firm and prints, for a few
// clients, what applies to them: the level of their margin settings, the
// effective discounts of a security, a restriction test and their limit
// kinds.
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "core/TInfoStorage.h"

namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

void PrintDiscounts(const char* label, const DL::TDiscountsEx& d) {
  std::printf("  %-22s long %.4g short %.4g long min %.4g short min %.4g currency '%s' marginal %d short %d\n",
              label, d.DLong, d.DShort, d.DLongMin, d.DShortMin, d.RCur, d.bC ? 1 : 0, d.bS ? 1 : 0);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string path =
      argc > 1 ? argv[1] : std::string(ZDL_EXAMPLES_DIR) + "/server/libs/invest.ini";
  const std::string text = ReadFile(path);
  if (text.empty()) {
    std::fprintf(stderr, "cannot read %s\n", path.c_str());
    return 1;
  }
  DL::TInfoStorage firm(text.c_str(), 2, true);
  std::printf("library %s, main currency %s\n", path.c_str(), firm.GetMainCurrency().c_str());

  const std::vector<std::string> clients = {"C0100", "C0200", "C0250", "C0300", "C0999", ""};
  for (const std::string& client : clients) {
    const char* c = client.c_str();
    std::printf("client '%s'\n", c);
    std::printf("  discount type TQBR     %d (limit kind 0), %d (limit kind 2)\n", firm.GetDiscountType(c, 0, -1.0, "TQBR"),
                firm.GetDiscountType(c, 2, -1.0, "TQBR"));
    DL::TDiscountsEx d;
    firm.GetEffectiveDiscountsEx(d, c, "SBER", "TQBR", "SUR", 0, 0, -1.0, -1.0, -1.0, 0.0, 0.0);
    PrintDiscounts("SBER discounts", d);
    firm.GetEffectiveDiscountsEx(d, c, "LKOH", "TQBR", "SUR", 0, 0, -1.0, -1.0, -1.0, 0.0, 0.0);
    PrintDiscounts("LKOH discounts", d);
    std::printf("  SBER restricted short  %s\n", firm.IsSecurityRestricted(c, -1.0, "TQBR", "SBER", 0) ? "yes" : "no");
    std::printf("  SBER allowed           %s\n", firm.IsSecurityAllowed(c, "TQBR", "SBER", -1.0) ? "yes" : "no");
    std::printf("  limit kind for TQBR    %d\n", firm.GetLimitKindForOperation(c, -1.0, "SBER", "TQBR", ""));
    const DLTypes::MarginTemplate* t = firm.GetMarginTemplate(c, -1.0);
    std::printf("  margin template        %s\n", t != nullptr ? t->name.c_str() : "(none)");
    std::printf("  sets of instruments    %zu\n", firm.GetEffectiveSetOfInstrumentsByClient(c, -1.0).size());
  }
  return 0;
}
