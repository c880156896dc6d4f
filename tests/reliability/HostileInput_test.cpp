// Hostile input through zent-host: frames of random bytes, random messages to
// every verb, the lengths 0, 3 and 2^32-1, messages cut at every byte, and a
// flood of requests without log-on from one client. The host stays up, another
// client is served meanwhile, and the host's memory stays bounded.
//
// ZDL_FLOOD_REQUESTS sets the flood (1000000; 50000 in sanitizer builds),
// ZDL_RANDOM_FRAMES the random frames (20000; 2000).
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

#include "ReliabilityHost.h"
#include "wire/FrameIO.h"

namespace {

using namespace reltest;
using namespace ZentWire;

class HostileInputTest : public ::testing::Test {
 protected:
  void SetUp() override {
    hosttest::THostOptions options;
    options.maxFrame = 1u << 20;
    options.threads = 4;
    // Room for every connection a test opens in a burst (the cut frames open
    // one each), so that a full queue never turns the check of service away.
    options.maxPending = 128;
    host_ = MakeHost(2, 0, options);
    ASSERT_TRUE(host_->Start()) << host_->output();
    pid_ = HostPid();
    ASSERT_GT(pid_, 0);
  }
  void TearDown() override {
    if (host_) {
      EXPECT_EQ(host_->Stop(), 0) << host_->output();
    }
  }

  // The host's process id: its main thread wrote the first log line, and a
  // main thread's id is the process id.
  int HostPid() const {
    const std::string log = host_->log();
    const std::size_t at = log.find("[tid ");
    return at == std::string::npos ? -1 : std::atoi(log.c_str() + at + 5);
  }

  std::unique_ptr<CAdminClient> Connect() {
    auto c = std::make_unique<CAdminClient>(60000);
    c->Connect("127.0.0.1", host_->port());
    return c;
  }

  // Another client logs on and is answered.
  void ExpectServed() {
    auto c = LogOn(host_->port(), "trader");
    CAlert m;
    TWireReply r = c->Call("GetDLList", m);
    EXPECT_EQ(r.status, kWireOk);
    // Names fetched by others may have joined the list (an unknown name is added by design).
    bool listed = false;
    while (m.get_fields_count() != 0) {
      std::string name;
      m >> name;
      listed = listed || name == "LIB0";
    }
    EXPECT_TRUE(listed);
  }

  std::unique_ptr<hosttest::THostProcess> host_;
  int pid_ = -1;
};

std::vector<char> RandomBytes(std::mt19937& rng, std::size_t n) {
  std::vector<char> out(n);
  for (char& c : out) c = static_cast<char>(rng());
  return out;
}

// A message with random fields of every type, nested to a random depth.
void RandomMessage(std::mt19937& rng, CAlert& m, int depth) {
  const int fields = static_cast<int>(rng() % 5);
  for (int i = 0; i < fields; ++i) {
    switch (rng() % (depth < 3 ? 7 : 6)) {
      case 0: m << static_cast<int>(rng()); break;
      case 1: m << static_cast<double>(rng()) / 7.0; break;
      case 2: m << std::string("FIRM"); break;
      case 3: {
        auto bytes = RandomBytes(rng, rng() % 24);
        m << std::string(bytes.begin(), bytes.end());
        break;
      }
      case 4: m << static_cast<char>(rng()); break;
      case 5: {
        auto bytes = RandomBytes(rng, rng() % 64);
        m << std::vector<unsigned char>(bytes.begin(), bytes.end());
        break;
      }
      default: {
        CAlert inner;
        RandomMessage(rng, inner, depth + 1);
        m << inner;
      }
    }
  }
}

TEST_F(HostileInputTest, RandomFramesAndRandomMessagesToEveryVerbLeaveTheHostServing) {
  const long frames = EnvNumber("ZDL_RANDOM_FRAMES", SanitizedBuild() ? 2000 : 20000);
  std::mt19937 rng(21);
  long replies = 0, errors = 0;
  {
    // Before log-on: every frame is refused, none reaches the module.
    auto stranger = Connect();
    for (long i = 0; i < frames / 10; ++i) {
      auto bytes = RandomBytes(rng, rng() % 200);
      stranger->SendFrame(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
      TWireReply r = stranger->ReadReply();
      EXPECT_TRUE(r.status == kWireNotAMessage || r.status == kWireNotLoggedOn) << r.status;
    }
  }
  auto c = LogOn(host_->port(), "admin");
  const char* verbs[] = {"Init", "GetDLList", "GetDLFile", "SaveDLFile", "ZDealerAPI", "Logon", "Nonsense"};
  const char* commands[] = {"DLOpenFile", "DLUpdateFile", "DLCloseFile", "DLGetFirmList", "DLGetClassList",
                            "GetUsePGOFromGlobal", "SetUsePGOToGlobal", "Unknown"};
  for (long i = 0; i < frames; ++i) {
    if (i % 3 == 0) {
      auto bytes = RandomBytes(rng, rng() % 200);
      c->SendFrame(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    } else {
      CAlert nested, request;
      const std::string verb = verbs[rng() % 7];
      if (verb == "ZDealerAPI" && rng() % 4 != 0) {
        auto block = RandomBytes(rng, rng() % 96);
        nested << std::string(commands[rng() % 8]) << std::vector<unsigned char>(block.begin(), block.end());
      } else {
        RandomMessage(rng, nested, 0);
      }
      request << verb << nested;
      c->SendFrame(request.get_data(), request.get_size());
    }
    TWireReply r = c->ReadReply();
    ++replies;
    if (r.status != kWireOk) ++errors;
  }
  std::printf("[ hostile  ] %ld random frames before log-on refused; %ld random frames and messages after it: "
              "%ld replies, %ld error replies\n",
              frames / 10, frames, replies, errors);
  EXPECT_EQ(replies, frames);
  ExpectServed();
}

TEST_F(HostileInputTest, LengthsZeroAndThreeAreNotMessagesAndTheConnectionStays) {
  auto c = Connect();
  for (std::uint32_t n : {0u, 3u}) {
    std::vector<char> body(n, '\x01');
    c->SendFrame(body.data(), n);
    TWireReply r = c->ReadReply();
    EXPECT_EQ(r.status, kWireNotAMessage) << n;
  }
  TWireReply ok = c->Logon("admin", hosttest::SecretOf("admin"), kConnectionPort);
  EXPECT_EQ(ok.status, kWireOk);
}

TEST_F(HostileInputTest, TheLargestLengthIsRefusedAndOnlyThatConnectionCloses) {
  auto other = LogOn(host_->port(), "trader");
  auto c = Connect();
  const unsigned char head[4] = {0xFF, 0xFF, 0xFF, 0xFF};
  c->SendRaw(head, 4);
  TWireReply r = c->ReadReply();
  EXPECT_EQ(r.status, kWireFrameTooLarge);
  EXPECT_NE(r.text.find("4294967295"), std::string::npos) << r.text;
  EXPECT_TRUE(c->WaitClosed());
  CAlert m;
  EXPECT_EQ(other->Call("GetDLList", m).status, kWireOk);
}

TEST_F(HostileInputTest, AMessageCutAtEveryByteIsRefusedOrDroppedAndTheHostGoesOn) {
  CAlert logon;
  logon << std::string("Logon") << std::string("admin") << hosttest::SecretOf("admin") << kConnectionPort;
  const std::uint32_t size = logon.get_size();
  // Cut inside the message: the frame says so, and the message is incomplete.
  auto c = Connect();
  for (std::uint32_t k = 0; k < size; ++k) {
    c->SendFrame(logon.get_data(), k);
    TWireReply r = c->ReadReply();
    EXPECT_EQ(r.status, kWireNotAMessage) << "cut at " << k;
  }
  // Cut inside the frame: the connection ends before the announced bytes came.
  for (std::uint32_t k = 0; k < 4 + size; ++k) {
    auto cut = Connect();
    std::vector<unsigned char> frame(4);
    PutLength(size, frame.data());
    frame.insert(frame.end(), logon.get_data(), logon.get_data() + size);
    cut->SendRaw(frame.data(), k);
    cut->Close();
  }
  EXPECT_EQ(c->Logon("admin", hosttest::SecretOf("admin"), kConnectionPort).status, kWireOk);
  ExpectServed();
}

TEST_F(HostileInputTest, AFloodOfRequestsWithoutLogOnKeepsMemoryBoundedAndOthersServed) {
  const long requests = EnvNumber("ZDL_FLOOD_REQUESTS", SanitizedBuild() ? 50000 : 1000000);
  auto flood = Connect();
  CAlert nested, request;
  request << std::string("GetDLList") << nested;
  // Warm up, then take the resident size as the base.
  for (int i = 0; i < 1000; ++i) {
    flood->SendFrame(request.get_data(), request.get_size());
    ASSERT_EQ(flood->ReadReply().status, kWireNotLoggedOn);
  }
  const long before = ResidentKiB(pid_);
  ASSERT_GT(before, 0);

  std::atomic<bool> done{false};
  std::atomic<long> served{0};
  std::thread other([&] {
    while (!done.load()) {
      ExpectServed();
      ++served;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
  });
  const auto start = std::chrono::steady_clock::now();
  long answered = 0, peak = before;
  constexpr long kBatch = 500;
  std::vector<unsigned char> batch;
  for (long i = 0; i < kBatch; ++i) {
    unsigned char head[4];
    PutLength(request.get_size(), head);
    batch.insert(batch.end(), head, head + 4);
    batch.insert(batch.end(), request.get_data(), request.get_data() + request.get_size());
  }
  for (long sent = 0; sent < requests; sent += kBatch) {
    flood->SendRaw(batch.data(), batch.size());
    for (long i = 0; i < kBatch; ++i) {
      TWireReply r = flood->ReadReply();
      if (r.status == kWireNotLoggedOn) ++answered;
    }
    if ((sent / kBatch) % 200 == 0) peak = std::max(peak, ResidentKiB(pid_));
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  done = true;
  other.join();
  const long after = ResidentKiB(pid_);
  peak = std::max(peak, after);
  std::printf("[ flood    ] %ld requests without log-on in %.1f s (%.0f/s): %ld answered \"log on first\"; "
              "host RSS %ld KiB before, %ld KiB peak, %ld KiB after; another client served %ld times\n",
              requests, seconds, static_cast<double>(requests) / seconds, answered, before, peak, after,
              served.load());
  EXPECT_EQ(answered, (requests + kBatch - 1) / kBatch * kBatch);
  EXPECT_GT(served.load(), 0);
  // Bounded: the flood holds no memory per request. Under AddressSanitizer
  // freed blocks wait in its quarantine (256 MiB by default) before they are
  // reused, so the resident set grows by that much whatever the host does;
  // there the bound only catches a runaway, and the release build's million
  // requests are the real check.
  const long allowedKiB = SanitizedBuild() ? (256 + 128) * 1024 : 16 * 1024;
  EXPECT_LT(peak - before, allowedKiB) << "KiB of growth";
}

}  // namespace
