// The shipped example server: its libraries open and close through the API.
#include <gtest/gtest.h>

#include "ModuleHarness.h"
#include "api/FileVerbRecords.h"

namespace {

using ztest::Module;

int Api(const std::string& command, std::vector<unsigned char>& block, int user, int port) {
  CAlert m;
  m << command << block;
  ztest::Call("ZDealerAPI", m, user, port, "admin");
  std::string name;
  int result = -1;
  m >> name >> result >> block;
  return result;
}

TEST(ExamplesTest, TheExampleBrokerOpensForWritingAndCloses) {
  const int port = ztest::NewPort();
  const std::string server = std::string(ZDL_SOURCE_DIR) + "/examples/server";
  ASSERT_EQ(Module().InitDB(server + "/dealer-library.ini", server + "/server.ini", port), 1);
  std::vector<unsigned char> block;
  StoreDataForZDealerAPI(TDL_DLOpenFile{"BROKER", 0}, block);
  EXPECT_EQ(Api("DLOpenFile", block, 1, port), 0);
  EXPECT_EQ(Module().GetDLInUse(1, port), "BROKER");
  block.clear();
  StoreDataForZDealerAPI(TDL_DLCloseFile{"BROKER"}, block);
  EXPECT_EQ(Api("DLCloseFile", block, 1, port), 0);
  EXPECT_EQ(Module().GetDLInUse(1, port), "");
}

}  // namespace
