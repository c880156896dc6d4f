#include "support/LogWriter.h"

#include <unistd.h>

#include <gtest/gtest.h>
#include <time.h>
#include <regex>
#include <sstream>
#include <thread>
#include <vector>

#include "support/TempDir.h"

namespace {

using ztest::ReadBytes;

std::tm Time(int year, int month, int day, int hour, int minute, int second) {
  std::tm t{};
  t.tm_year = year - 1900;
  t.tm_mon = month - 1;
  t.tm_mday = day;
  t.tm_hour = hour;
  t.tm_min = minute;
  t.tm_sec = second;
  return t;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// "DD.MM.YY hh:mm:ss.mmm" at the start of a line.
const std::regex kStamp(R"(^\d\d\.\d\d\.\d\d \d\d:\d\d:\d\d\.\d\d\d)");

// The text of a stamped line: what follows the stamp and the mark.
std::string TextOf(const std::string& line, const std::string& mark) {
  EXPECT_TRUE(std::regex_search(line, kStamp)) << line;
  EXPECT_EQ(line.substr(21, mark.size()), mark) << line;
  return line.substr(21 + mark.size());
}

// ---- Line format --------------------------------------------------------------------

TEST(LogLineTest, StampMarkTextAndLineFeed) {
  EXPECT_EQ(orvo::CBaseLogger::FormatLine(Time(2026, 11, 21, 6, 0, 4), 7, " [dl] ", "hello"),
            "21.11.26 06:00:04.007 [dl] hello\n");
}

TEST(LogLineTest, EveryFieldIsZeroPadded) {
  EXPECT_EQ(orvo::CBaseLogger::FormatLine(Time(2005, 1, 2, 3, 4, 5), 0, "", "x"), "02.01.05 03:04:05.000x\n");
  EXPECT_EQ(orvo::CBaseLogger::FormatLine(Time(1999, 12, 31, 23, 59, 59), 999, "|", ""), "31.12.99 23:59:59.999|\n");
}

TEST(LogLineTest, ALineOfExactly2048BytesIsNotCut) {
  std::string text(2048 - 21 - 1, 'x');
  std::string line = orvo::CBaseLogger::FormatLine(Time(2026, 11, 21, 6, 0, 4), 7, "", text);
  EXPECT_EQ(line.size(), 2048u);
  EXPECT_EQ(line, "21.11.26 06:00:04.007" + text + "\n");
}

TEST(LogLineTest, ALongerLineEndsInDotsAndALineFeed) {
  std::string text(2048 - 21, 'x');  // one byte too many
  std::string line = orvo::CBaseLogger::FormatLine(Time(2026, 11, 21, 6, 0, 4), 7, "", text);
  EXPECT_EQ(line.size(), 2048u);
  EXPECT_EQ(line, "21.11.26 06:00:04.007" + std::string(2048 - 21 - 4, 'x') + "...\n");
}

TEST(LogLineTest, AVeryLongLineIsCutTo2048Bytes) {
  std::string line = orvo::CBaseLogger::FormatLine(Time(2026, 11, 21, 6, 0, 4), 7, " [t] ", std::string(100000, 'y'));
  EXPECT_EQ(line.size(), 2048u);
  EXPECT_EQ(line.substr(0, 26), "21.11.26 06:00:04.007 [t] ");
  EXPECT_EQ(line.substr(2044), "...\n");
  EXPECT_EQ(line.find_first_not_of('y', 26), 2044u);
}

// ---- TLogWriter ----------------------------------------------------------------------

class LogWriterTest : public ::testing::Test {
 protected:
  std::string Log() const { return ReadBytes(path); }
  ztest::TempDir dir;
  std::string path = dir.File("engine.log");
};

TEST_F(LogWriterTest, InitWritesTheServiceLine) {
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, " [m] "));
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(TextOf(lines[0], " [m] "),
            "Init log: PID=" + std::to_string(::getpid()) + ", LogLevel=0, File='" + path + "'");
  EXPECT_EQ(Log().back(), '\n');
}

TEST_F(LogWriterTest, InitNamesTheLevelSetBefore) {
  TLogWriter log(15);
  ASSERT_TRUE(log.Init(path, ""));
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_NE(lines[0].find(", LogLevel=15, "), std::string::npos) << lines[0];
}

TEST_F(LogWriterTest, TheStampIsTheLocalTimeOfWriting) {
  // The fine clock, as the logger reads it: time() may lag it by a tick.
  auto now = [] {
    timespec ts{};
    ::clock_gettime(CLOCK_REALTIME, &ts);
    return static_cast<std::time_t>(ts.tv_sec);
  };
  std::time_t before = now();
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, ""));
  std::time_t after = now();
  std::string line = Lines(Log()).at(0);
  std::tm b, a;
  ::localtime_r(&before, &b);
  ::localtime_r(&after, &a);
  std::string stampB = orvo::CBaseLogger::FormatLine(b, 0, "", "").substr(0, 17);  // up to the seconds
  std::string stampA = orvo::CBaseLogger::FormatLine(a, 0, "", "").substr(0, 17);
  std::string stamp = line.substr(0, 17);
  EXPECT_TRUE(stamp == stampB || stamp == stampA) << line;
}

TEST_F(LogWriterTest, InitOfTheSameFileAgainWritesNothing) {
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, ""));
  ASSERT_TRUE(log.Init(path, ""));
  EXPECT_EQ(Lines(Log()).size(), 1u);
}

TEST_F(LogWriterTest, InitOfAnotherFileMovesTheLog) {
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, ""));
  std::string second = dir.File("second.log");
  ASSERT_TRUE(log.Init(second, "#"));
  log.Write(0, "after");
  EXPECT_EQ(Lines(Log()).size(), 1u);
  std::vector<std::string> lines = Lines(ReadBytes(second));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NE(lines[0].find("File='" + second + "'"), std::string::npos);
  EXPECT_EQ(TextOf(lines[1], "#"), "after");
}

TEST_F(LogWriterTest, InitAppendsToAnExistingFile) {
  ztest::WriteBytes(path, "earlier line\n");
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, ""));
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], "earlier line");
}

TEST_F(LogWriterTest, InitOfAnUnwritablePathFails) {
  TLogWriter log;
  EXPECT_FALSE(log.Init(dir.File("no/such/dir/engine.log"), ""));
  log.Write(0, "dropped");  // no file: nothing happens
}

TEST_F(LogWriterTest, AFailedInitKeepsTheOpenFile) {
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, ""));
  EXPECT_FALSE(log.Init(dir.File("no/such/dir/engine.log"), ""));
  log.Write(0, "still here");
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(TextOf(lines[1], ""), "still here");
}

TEST_F(LogWriterTest, WriteFormatsTheText) {
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, " "));
  log.Write(0, "firm_id= %s, ini_source_type= %d", "MC0001", 2);
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(TextOf(lines[1], " "), "firm_id= MC0001, ini_source_type= 2");
}

TEST_F(LogWriterTest, WriteOfALongTextIsCut) {
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, ""));
  log.Write(0, "%s", std::string(5000, 'z').c_str());
  std::string text = Log();
  std::string last = text.substr(text.find('\n') + 1);
  EXPECT_EQ(last.size(), 2048u);
  EXPECT_EQ(last.substr(2044), "...\n");
}

TEST_F(LogWriterTest, AMessageAboveTheLevelIsNotWritten) {
  TLogWriter log(10);
  ASSERT_TRUE(log.Init(path, ""));
  log.Write(11, "too detailed");
  log.Write(15, "too detailed");
  EXPECT_EQ(Lines(Log()).size(), 1u);
}

TEST_F(LogWriterTest, AMessageAtOrBelowTheLevelIsWritten) {
  TLogWriter log(15);
  ASSERT_TRUE(log.Init(path, ""));
  log.Write(15, "at");
  log.Write(0, "below");
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(TextOf(lines[1], ""), "at");
  EXPECT_EQ(TextOf(lines[2], ""), "below");
}

TEST_F(LogWriterTest, SetLogLevelWritesTheChange) {
  TLogWriter log;
  ASSERT_TRUE(log.Init(path, ""));
  log.SetLogLevel(20);
  EXPECT_EQ(log.GetLogLevel(), 20);
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(TextOf(lines[1], ""), "SetLogLevel: 0 -> 20");
}

TEST_F(LogWriterTest, SetLogLevelToTheSameLevelWritesNothing) {
  TLogWriter log(5);
  ASSERT_TRUE(log.Init(path, ""));
  log.SetLogLevel(5);
  EXPECT_EQ(Lines(Log()).size(), 1u);
}

TEST_F(LogWriterTest, ServiceLinesAreWrittenWhateverTheLevel) {
  TLogWriter log(20);
  ASSERT_TRUE(log.Init(path, ""));
  log.SetLogLevel(0);  // lowers the level below every message level but 0
  log.Write(1, "not written");
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(TextOf(lines[1], ""), "SetLogLevel: 20 -> 0");
}

TEST_F(LogWriterTest, SetLogLevelBeforeInitChangesTheLevelOnly) {
  TLogWriter log;
  log.SetLogLevel(7);
  EXPECT_EQ(log.GetLogLevel(), 7);
  ASSERT_TRUE(log.Init(path, ""));
  EXPECT_NE(Lines(Log()).at(0).find("LogLevel=7,"), std::string::npos);
}

TEST_F(LogWriterTest, LinesOfManyThreadsStayWhole) {
  TLogWriter log(10);
  ASSERT_TRUE(log.Init(path, " "));
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&log, t] {
      for (int i = 0; i < 200; ++i) log.Write(1, "thread %d line %d %s", t, i, std::string(100, 'a' + t).c_str());
    });
  for (std::thread& t : threads) t.join();
  std::vector<std::string> lines = Lines(Log());
  ASSERT_EQ(lines.size(), 801u);
  const std::regex whole(R"(^\d\d\.\d\d\.\d\d \d\d:\d\d:\d\d\.\d\d\d thread (\d) line \d+ ([a-d])\2{99}$)");
  for (size_t i = 1; i < lines.size(); ++i) EXPECT_TRUE(std::regex_match(lines[i], whole)) << lines[i];
}

TEST_F(LogWriterTest, TheLevelChangesSafelyWhileOthersWrite) {
  TLogWriter log(0);
  ASSERT_TRUE(log.Init(path, ""));
  std::thread writer([&log] {
    for (int i = 0; i < 500; ++i) log.Write(3, "w");
  });
  for (int i = 0; i < 100; ++i) log.SetLogLevel(static_cast<std::uint8_t>(i % 2 == 0 ? 5 : 1));
  writer.join();
  // Every level change is logged, whatever the writer saw.
  int changes = 0;
  for (const std::string& line : Lines(Log()))
    if (line.find("SetLogLevel: ") != std::string::npos) ++changes;
  EXPECT_EQ(changes, 100);
}

}  // namespace
