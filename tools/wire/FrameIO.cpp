#include "FrameIO.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

namespace ZentWire {
namespace {

using Clock = std::chrono::steady_clock;

// Waits until the socket is readable; 1 readable, 0 timed out, -1 failed.
int WaitReadable(int fd, int timeoutMs) {
  pollfd p{fd, POLLIN, 0};
  for (;;) {
    int n = ::poll(&p, 1, timeoutMs);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return -1;
    return n == 0 ? 0 : 1;
  }
}

// Reads exactly n bytes; kFrame when done. `first` is true while nothing of
// the frame has been read, so that a clean close is told apart. With a stop
// test, waits in ticks and gives up (kTimeout) once the test says so.
EFrameRead ReadExactly(int fd, char* to, std::size_t n, int timeoutMs, bool first,
                       const std::function<bool()>& stop, int tickMs) {
  std::size_t got = 0;
  while (got < n) {
    int ready = 0;
    if (stop) {
      auto start = Clock::now();
      for (;;) {
        if (stop()) return EFrameRead::kTimeout;
        ready = WaitReadable(fd, tickMs);
        if (ready != 0) break;
        if (timeoutMs >= 0 &&
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count() >= timeoutMs)
          break;
      }
    } else {
      ready = WaitReadable(fd, timeoutMs);
    }
    if (ready == 0) return EFrameRead::kTimeout;
    if (ready < 0) return EFrameRead::kError;
    ssize_t r = ::recv(fd, to + got, n - got, 0);
    if (r < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (r < 0) return EFrameRead::kError;
    if (r == 0) return first && got == 0 ? EFrameRead::kClosed : EFrameRead::kError;
    got += static_cast<std::size_t>(r);
  }
  return EFrameRead::kFrame;
}

}  // namespace

void PutLength(std::uint32_t length, unsigned char out[4]) {
  for (int i = 0; i < 4; ++i) out[i] = static_cast<unsigned char>((length >> (8 * i)) & 0xFFu);
}

std::uint32_t GetLength(const unsigned char in[4]) {
  std::uint32_t v = 0;
  for (int i = 3; i >= 0; --i) v = (v << 8) | in[i];
  return v;
}

EFrameRead ReadFrame(int fd, std::uint32_t maxLength, int timeoutMs, std::vector<char>& body,
                     std::uint32_t* announced, const std::function<bool()>& stopBefore, int tickMs) {
  unsigned char head[4];
  EFrameRead r = ReadExactly(fd, reinterpret_cast<char*>(head), 4, timeoutMs, true, stopBefore, tickMs);
  if (r != EFrameRead::kFrame) return r;
  std::uint32_t length = GetLength(head);
  if (announced != nullptr) *announced = length;
  if (length > maxLength) return EFrameRead::kTooLarge;
  body.assign(length, '\0');
  if (length == 0) return EFrameRead::kFrame;
  r = ReadExactly(fd, body.data(), length, timeoutMs, false, stopBefore, tickMs);
  return r == EFrameRead::kClosed ? EFrameRead::kError : r;
}

bool WriteAll(int fd, const void* data, std::size_t size) {
  const char* p = static_cast<const char*>(data);
  while (size > 0) {
    ssize_t n = ::send(fd, p, size, MSG_NOSIGNAL);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    p += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

bool WriteFrame(int fd, const void* data, std::uint32_t size) {
  std::vector<char> out(4 + static_cast<std::size_t>(size));
  PutLength(size, reinterpret_cast<unsigned char*>(out.data()));
  if (size != 0) std::copy_n(static_cast<const char*>(data), size, out.data() + 4);
  return WriteAll(fd, out.data(), out.size());
}

}  // namespace ZentWire
