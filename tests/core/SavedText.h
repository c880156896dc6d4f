#pragma once
// The text a hub saves, given back to the hub's memory at once.
#include <gtest/gtest.h>

#include <string>

#include "core/TStorageHub.h"

namespace ztest {

inline std::string SavedText(DL::TStorageHub& hub) {
  char* text = nullptr;
  EXPECT_EQ(hub.SaveSettingsToMemory(&text), 0);
  if (text == nullptr) return {};
  std::string out = text;
  void* block = text;
  EXPECT_EQ(hub.GetMemory().FreeMemory(&block), 0);
  return out;
}

}  // namespace ztest
