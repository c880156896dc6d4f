#pragma once
// Frames on a stream socket: a 4-byte little-endian length, then the bytes.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace ZentWire {

enum class EFrameRead {
  kFrame,     // a whole frame arrived
  kClosed,    // the peer closed before the first byte of a frame
  kTooLarge,  // the length exceeds the limit; the body is left unread
  kTimeout,   // no progress within the timeout, or the stop test said so between frames
  kError,     // the socket failed or the peer closed inside a frame
};

// Encodes and decodes the length field.
void PutLength(std::uint32_t length, unsigned char out[4]);
std::uint32_t GetLength(const unsigned char in[4]);

// Reads one frame into `body`. `timeoutMs` bounds every wait for bytes (a
// negative value waits forever). `stopBefore` (when given) is asked every
// `tickMs` while waiting; true ends the read with kTimeout, also inside a
// frame (the part read is dropped: a stopping host takes no new request).
// `announced` receives the length field when it was read.
EFrameRead ReadFrame(int fd, std::uint32_t maxLength, int timeoutMs, std::vector<char>& body,
                     std::uint32_t* announced = nullptr, const std::function<bool()>& stopBefore = {},
                     int tickMs = 100);

// Writes the length and the bytes; false when the socket fails.
bool WriteFrame(int fd, const void* data, std::uint32_t size);

// Writes all bytes, retrying on short writes; false when the socket fails.
bool WriteAll(int fd, const void* data, std::size_t size);

}  // namespace ZentWire
