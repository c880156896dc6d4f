#include "SecretHash.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <vector>

namespace ZentHost {
namespace {

constexpr int kSaltBytes = 16;
constexpr int kKeyBytes = 32;

std::string ToHex(const unsigned char* p, std::size_t n) {
  static const char digits[] = "0123456789abcdef";
  std::string out;
  out.reserve(n * 2);
  for (std::size_t i = 0; i < n; ++i) {
    out += digits[p[i] >> 4];
    out += digits[p[i] & 15];
  }
  return out;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool FromHex(const std::string& hex, std::vector<unsigned char>& out) {
  if (hex.empty() || hex.size() % 2 != 0) return false;
  out.clear();
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    int hi = HexDigit(hex[i]), lo = HexDigit(hex[i + 1]);
    if (hi < 0 || lo < 0) return false;
    out.push_back(static_cast<unsigned char>(hi * 16 + lo));
  }
  return true;
}

bool Derive(const std::string& secret, const std::vector<unsigned char>& salt, int iterations,
            std::vector<unsigned char>& key, std::size_t keyBytes) {
  key.assign(keyBytes, 0);
  return PKCS5_PBKDF2_HMAC(secret.data(), static_cast<int>(secret.size()), salt.data(),
                           static_cast<int>(salt.size()), iterations, EVP_sha256(), static_cast<int>(keyBytes),
                           key.data()) == 1;
}

}  // namespace

bool MakeSecretHash(const std::string& secret, int iterations, TSecretHash& out) {
  if (iterations < 1) return false;
  std::vector<unsigned char> salt(kSaltBytes), key;
  if (RAND_bytes(salt.data(), kSaltBytes) != 1) return false;
  if (!Derive(secret, salt, iterations, key, kKeyBytes)) return false;
  out.iterations = iterations;
  out.saltHex = ToHex(salt.data(), salt.size());
  out.hashHex = ToHex(key.data(), key.size());
  return true;
}

bool VerifySecret(const std::string& secret, const TSecretHash& stored) {
  std::vector<unsigned char> salt, expected, key;
  if (stored.iterations < 1 || !FromHex(stored.saltHex, salt) || !FromHex(stored.hashHex, expected)) return false;
  if (!Derive(secret, salt, stored.iterations, key, expected.size())) return false;
  return CRYPTO_memcmp(key.data(), expected.data(), expected.size()) == 0;
}

}  // namespace ZentHost
