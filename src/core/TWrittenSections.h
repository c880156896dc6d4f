#pragma once
// The sections a save has written so far, by the address of their name in
// the section map; the hub and its components share it while they compose the
// text, so that the final raw copy leaves those sections alone.
#include <set>
#include <string>

namespace DL {

using TWrittenSections = std::set<const std::string*>;

}  // namespace DL
