#pragma once
// The engine's own log file. TLogWriter is the face the settings core uses;
// underneath, orvo::CLoggerCore owns the file, orvo::CBaseLogger makes lines
// and orvo::CDefaultLogger adds the level.
//
// A line is the local time "DD.MM.YY hh:mm:ss.mmm", the thread mark, the text
// and a line feed, nothing between them: a mark that wants spacing carries it
// ("21.11.26 06:00:04.123 [dl] text\n" has the mark " [dl] "). A line is at
// most 2048 bytes with its line feed; a longer one is cut to end in "...\n".
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

#include "support/lock.h"

namespace orvo {

// The file: opened for appending, written one whole line at a time under the
// core's own mutex, so lines of different threads never mix.
class CLoggerCore {
 public:
  enum EInitResult {
    kInitFailed = -1,  // the file could not be opened; the old one, if any, stays
    kInitSameFile = 0,  // the path is the one already open: nothing changed
    kInitNewFile = 1,   // the file is new to this logger and is now open
  };

  CLoggerCore() = default;
  ~CLoggerCore();
  CLoggerCore(const CLoggerCore&) = delete;
  CLoggerCore& operator=(const CLoggerCore&) = delete;

  // Opens path (created with mode 0644 when missing) for appending, closing
  // the file held before.
  EInitResult Init(const std::string& path);
  // Appends the bytes; nothing while no file is open.
  void Write(const char* data, std::size_t size);
  bool IsOpen() const;
  std::string Path() const;
  void Close();

 private:
  mutable Library::Thread::Mutex m_mutex;
  int m_fd = -1;       // -1 while no file is open
  std::string m_path;  // the path given to the last successful Init
};

class CBaseLogger {
 public:
  static constexpr std::size_t kMaxLineSize = 2048;  // line feed included

  // Sets the thread mark, then opens the file.
  CLoggerCore::EInitResult Init(const std::string& path, const std::string& threadMark);
  // Writes one line stamped with the present local time.
  void WriteLine(std::string_view text);
  bool IsOpen() const { return m_core.IsOpen(); }
  std::string Path() const { return m_core.Path(); }

  // The bytes of one line for a given time and millisecond.
  static std::string FormatLine(const std::tm& time, int milliseconds, std::string_view threadMark,
                                std::string_view text);

 private:
  CLoggerCore m_core;
  std::string m_threadMark;  // set by Init, before any line is written
};

class CDefaultLogger : public CBaseLogger {
 public:
  explicit CDefaultLogger(std::uint8_t level) : m_level(level) {}
  std::uint8_t GetLogLevel() const { return m_level.load(); }
  // Sets the level; returns the one before.
  std::uint8_t ExchangeLogLevel(std::uint8_t level) { return m_level.exchange(level); }
  // A message of this level is written: it does not exceed the log level.
  bool IsLevelOn(unsigned level) const { return level <= m_level.load(); }

 private:
  std::atomic<std::uint8_t> m_level;
};

}  // namespace orvo

class TLogWriter {
 public:
  explicit TLogWriter(std::uint8_t level = 0) : m_logger(level) {}

  // Sets the thread mark and opens the file. A file new to the logger gets
  // the line "Init log: PID=<pid>, LogLevel=<level>, File='<path>'". False
  // when the file cannot be opened.
  bool Init(const std::string& path, const std::string& threadMark);
  // Changes the level atomically; a change writes "SetLogLevel: <old> -> <new>",
  // whatever the level.
  void SetLogLevel(std::uint8_t level);
  std::uint8_t GetLogLevel() const { return m_logger.GetLogLevel(); }
  // Writes one line of printf-formatted text when level does not exceed the
  // log level.
  void Write(unsigned level, const char* format, ...) __attribute__((format(printf, 3, 4)));

 private:
  orvo::CDefaultLogger m_logger;
};
