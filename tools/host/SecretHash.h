#pragma once
// Salted secrets of the users file: PBKDF2 with HMAC-SHA-256 (OpenSSL
// libcrypto), 16 bytes of random salt, a 32-byte key, the iteration count
// stored with each hash so that it can be raised for new entries.
#include <string>

namespace ZentHost {

struct TSecretHash {
  int iterations = 0;
  std::string saltHex;  // lower-case hexadecimal
  std::string hashHex;  // lower-case hexadecimal
};

inline constexpr int kDefaultIterations = 100000;

// A fresh random salt and the hash of the secret under it.
[[nodiscard]] bool MakeSecretHash(const std::string& secret, int iterations, TSecretHash& out);

// Hashes the candidate with the stored salt and count and compares the keys in
// constant time. False also for a malformed stored hash.
[[nodiscard]] bool VerifySecret(const std::string& secret, const TSecretHash& stored);

}  // namespace ZentHost
