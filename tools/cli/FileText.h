#pragma once
// Whole files in and out for the tool, with the system's reason on failure.
#include <string>

namespace zentdl {

// Reads the whole file. False with a reason ("No such file or directory")
// when it cannot be read.
bool ReadWholeFile(const std::string& path, std::string& text, std::string& reason);

// Writes the text to path: to path + ".temp" first, then renamed over path, so
// a reader never sees half a file. "-" writes to standard output. False with a
// reason on failure; the temporary file is removed then.
bool WriteWholeFile(const std::string& path, const std::string& text, std::string& reason);

}  // namespace zentdl
