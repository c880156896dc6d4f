// Damaged request blocks through every command of the module's table that has
// a handler: a block of length 0, a list claiming 2^31 elements, a string
// without its terminator, fields of the wrong type. Each decodes to what it
// still carries; the firm it names is not loaded, so an unchecked command
// answers 2 + 1000 from the settings layer and a checked one 11 from the firm
// check, and the block comes back as it went.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "WireBlock.h"
#include "api/CommandTable.h"
#include "api/ExecDealerAPI.h"

namespace {

constexpr int kHolder = 7;
constexpr int kPort = 4177;

using TestWire::Bytes;

const Bytes kHeader = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01};

void Name(Bytes& out, const char* name) {
  for (const char* c = name; *c != 0; ++c) out.push_back(static_cast<unsigned char>(*c));
  out.push_back(0);
}

// Blocks that no client should send.
std::vector<std::pair<std::string, Bytes>> BadBlocks() {
  std::vector<std::pair<std::string, Bytes>> blocks;
  blocks.push_back({"empty", {}});
  blocks.push_back({"header only", kHeader});

  Bytes huge = kHeader;  // root with a list of strings and a list of records, each claiming 2^31
  huge.push_back(0x01);
  TestWire::Compact(huge, 2);
  Name(huge, "lsItems");
  huge.push_back(0x03);
  TestWire::Compact(huge, 0x80000000u);
  huge.insert(huge.end(), {0x01, 0x00});
  Name(huge, "lsStrings");
  huge.push_back(0x03);
  TestWire::Compact(huge, 0x80000000u);
  blocks.push_back({"counts of 2^31", huge});

  Bytes values = kHeader;  // a list of numbers claiming 2^31 values
  values.push_back(0x01);
  TestWire::Compact(values, 1);
  Name(values, "lsInts");
  values.insert(values.end(), {0x04, 0x01});
  TestWire::Compact(values, 0x80000000u);
  values.insert(values.end(), {0x10, 1, 2, 3, 4});
  blocks.push_back({"value count of 2^31", values});

  Bytes unterminated = kHeader;  // "firmCode" whose bytes end without a zero
  unterminated.push_back(0x01);
  TestWire::Compact(unterminated, 1);
  Name(unterminated, "firmCode");
  unterminated.insert(unterminated.end(), {0x02, 0x02});
  TestWire::Compact(unterminated, 5);
  unterminated.insert(unterminated.end(), {'N', 'O', 'N', 'E', 'X'});
  blocks.push_back({"string without its zero", unterminated});

  Bytes nameCut = kHeader;  // a field name running to the end of the block
  nameCut.insert(nameCut.end(), {0x01, 0x04, 'f', 'i', 'r', 'm'});
  blocks.push_back({"name without its zero", nameCut});

  blocks.push_back({"wrong types", TestWire::Record()
                                       .Set("firmCode", 12345)
                                       .Set("strParam", 1.5)
                                       .Set("intParam1", std::string("seven"))
                                       .Set("boolParam1", std::vector<int>{1, 2})
                                       .Set("lsStrings", std::string("not a list"))
                                       .Set("lsItems", std::vector<double>{1, 2})
                                       .Block()});
  return blocks;
}

TEST(BadRequestsTest, EveryHandledCommandAnswersEveryDamagedBlockWithACode) {
  CExecDealerAPI api;
  tagDL_work work;
  work.port = kPort;
  work.mapLibrary["FIRM1"] = "/nonexistent/FIRM1.ini";
  work.mapFileState["/nonexistent/FIRM1.ini"] = tagDL_fileState{kHolder, 1};
  std::size_t commands = 0;
  for (const DL::TCommandRow& row : DL::kCommandTable) {
    if (row.handler == nullptr) continue;
    ++commands;
    for (const auto& [what, block] : BadBlocks()) {
      SCOPED_TRACE(std::string(row.name) + ": " + what);
      std::string name(row.name);
      std::vector<unsigned char> data = block;
      const int result = api.ExecuteDealerAPI(name, data, &work, kHolder, 1, "tester", kPort);
      EXPECT_EQ(result, row.firmCheck ? 11 : 1002);
      EXPECT_EQ(data, block);
    }
  }
  EXPECT_GE(commands, 2u);
  EXPECT_TRUE(api.m_DEALLIB_PACKET_CHANGE_map["FIRM1"].empty());
}

}  // namespace
