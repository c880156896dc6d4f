#include "CliTestSupport.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

extern char** environ;

namespace ztest {

TRun RunZentdl(const std::vector<std::string>& args, const std::vector<std::string>& env) {
  int outPipe[2], errPipe[2];
  if (pipe(outPipe) != 0 || pipe(errPipe) != 0) throw std::runtime_error("pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, outPipe[1], 1);
  posix_spawn_file_actions_adddup2(&actions, errPipe[1], 2);
  posix_spawn_file_actions_addclose(&actions, outPipe[0]);
  posix_spawn_file_actions_addclose(&actions, errPipe[0]);
  std::vector<std::string> argStore{ZENTDL_PATH};
  argStore.insert(argStore.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& a : argStore) argv.push_back(a.data());
  argv.push_back(nullptr);
  std::vector<std::string> envStore;
  for (char** e = environ; *e != nullptr; ++e) envStore.emplace_back(*e);
  envStore.insert(envStore.end(), env.begin(), env.end());
  std::vector<char*> envp;
  for (std::string& e : envStore) envp.push_back(e.data());
  envp.push_back(nullptr);
  pid_t pid = 0;
  const int rc = posix_spawn(&pid, ZENTDL_PATH, &actions, nullptr, argv.data(), envp.data());
  posix_spawn_file_actions_destroy(&actions);
  close(outPipe[1]);
  close(errPipe[1]);
  TRun run;
  if (rc != 0) {
    close(outPipe[0]);
    close(errPipe[0]);
    throw std::runtime_error("cannot start zentdl");
  }
  pollfd fds[2] = {{outPipe[0], POLLIN, 0}, {errPipe[0], POLLIN, 0}};
  int open = 2;
  while (open > 0) {
    if (poll(fds, 2, -1) < 0) break;
    for (int i = 0; i < 2; ++i) {
      if (fds[i].fd < 0 || fds[i].revents == 0) continue;
      char buf[65536];
      const ssize_t n = read(fds[i].fd, buf, sizeof buf);
      if (n <= 0) {
        close(fds[i].fd);
        fds[i].fd = -1;
        --open;
        continue;
      }
      (i == 0 ? run.out : run.err).append(buf, static_cast<std::size_t>(n));
    }
  }
  int status = 0;
  waitpid(pid, &status, 0);
  run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

TTempDir::TTempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "zentdl-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp");
  m_dir = pattern;
}

TTempDir::~TTempDir() {
  std::error_code ec;
  std::filesystem::remove_all(m_dir, ec);
}

std::string TTempDir::Write(const std::string& name, const std::string& content) const {
  const std::string path = Path(name);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << content;
  return path;
}

std::string ReadFileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::string ExampleLibrary(const std::string& name) {
  return std::string(ZDL_SOURCE_DIR) + "/examples/server/libs/" + name;
}

}  // namespace ztest
