#include "support/LogWriter.h"

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace orvo {

using Library::Thread::Lock;

CLoggerCore::~CLoggerCore() { Close(); }

CLoggerCore::EInitResult CLoggerCore::Init(const std::string& path) {
  Lock lock(m_mutex);
  if (m_fd >= 0 && m_path == path) return kInitSameFile;
  int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  if (fd < 0) return kInitFailed;
  if (m_fd >= 0) ::close(m_fd);
  m_fd = fd;
  m_path = path;
  return kInitNewFile;
}

void CLoggerCore::Write(const char* data, std::size_t size) {
  Lock lock(m_mutex);
  if (m_fd < 0) return;
  while (size > 0) {
    ssize_t n = ::write(m_fd, data, size);
    if (n < 0) {
      if (errno == EINTR) continue;
      return;  // a log that cannot be written is given up silently
    }
    data += n;
    size -= static_cast<std::size_t>(n);
  }
}

bool CLoggerCore::IsOpen() const {
  Lock lock(m_mutex);
  return m_fd >= 0;
}

std::string CLoggerCore::Path() const {
  Lock lock(m_mutex);
  return m_path;
}

void CLoggerCore::Close() {
  Lock lock(m_mutex);
  if (m_fd >= 0) ::close(m_fd);
  m_fd = -1;
  m_path.clear();
}

CLoggerCore::EInitResult CBaseLogger::Init(const std::string& path, const std::string& threadMark) {
  m_threadMark = threadMark;
  return m_core.Init(path);
}

std::string CBaseLogger::FormatLine(const std::tm& time, int milliseconds, std::string_view threadMark,
                                    std::string_view text) {
  char stamp[32];
  int n = std::snprintf(stamp, sizeof stamp, "%02d.%02d.%02d %02d:%02d:%02d.%03d", time.tm_mday,
                        time.tm_mon + 1, time.tm_year % 100, time.tm_hour, time.tm_min, time.tm_sec,
                        milliseconds);
  std::string line;
  line.reserve(static_cast<std::size_t>(n) + threadMark.size() + text.size() + 1);
  line.append(stamp, static_cast<std::size_t>(n));
  line.append(threadMark);
  line.append(text);
  if (line.size() + 1 > kMaxLineSize) {
    static constexpr std::string_view kCut = "...\n";
    line.resize(kMaxLineSize - kCut.size());
    line.append(kCut);
  } else {
    line.push_back('\n');
  }
  return line;
}

void CBaseLogger::WriteLine(std::string_view text) {
  if (!m_core.IsOpen()) return;
  timeval now;
  ::gettimeofday(&now, nullptr);
  std::tm local;
  ::localtime_r(&now.tv_sec, &local);
  std::string line = FormatLine(local, static_cast<int>(now.tv_usec / 1000), m_threadMark, text);
  m_core.Write(line.data(), line.size());
}

}  // namespace orvo

namespace {

std::string Format(const char* format, va_list args) {
  char small[512];
  va_list again;
  va_copy(again, args);
  int n = std::vsnprintf(small, sizeof small, format, args);
  if (n < 0) {
    va_end(again);
    return std::string();
  }
  if (static_cast<std::size_t>(n) < sizeof small) {
    va_end(again);
    return std::string(small, static_cast<std::size_t>(n));
  }
  std::string big(static_cast<std::size_t>(n) + 1, '\0');
  std::vsnprintf(big.data(), big.size(), format, again);
  va_end(again);
  big.resize(static_cast<std::size_t>(n));
  return big;
}

std::string FormatService(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::string FormatService(const char* format, ...) {
  va_list args;
  va_start(args, format);
  std::string text = Format(format, args);
  va_end(args);
  return text;
}

}  // namespace

bool TLogWriter::Init(const std::string& path, const std::string& threadMark) {
  orvo::CLoggerCore::EInitResult result = m_logger.Init(path, threadMark);
  if (result == orvo::CLoggerCore::kInitFailed) return false;
  if (result == orvo::CLoggerCore::kInitNewFile)
    m_logger.WriteLine(FormatService("Init log: PID=%d, LogLevel=%d, File='%s'", static_cast<int>(::getpid()),
                                     static_cast<int>(m_logger.GetLogLevel()), path.c_str()));
  return true;
}

void TLogWriter::SetLogLevel(std::uint8_t level) {
  std::uint8_t old = m_logger.ExchangeLogLevel(level);
  if (old != level)
    m_logger.WriteLine(FormatService("SetLogLevel: %d -> %d", static_cast<int>(old), static_cast<int>(level)));
}

void TLogWriter::Write(unsigned level, const char* format, ...) {
  if (!m_logger.IsLevelOn(level) || !m_logger.IsOpen()) return;
  va_list args;
  va_start(args, format);
  std::string text = Format(format, args);
  va_end(args);
  m_logger.WriteLine(text);
}
