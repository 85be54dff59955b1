#include "protocol/Children.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <ctime>

#include "common/Run.h"

namespace bench {

namespace {

struct Pipe {
  Pipe() { require(pipe2(ends.data(), O_CLOEXEC) == 0, "a pipe"); }

  std::array<int, 2> ends{}; // from, to
};

double secondsOn(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) +
         static_cast<double>(time.tv_nsec) * 1e-9;
}

double secondsOf(const timeval &time) {
  return static_cast<double>(time.tv_sec) +
         static_cast<double>(time.tv_usec) * 1e-6;
}

} // namespace

Child::Child(const std::vector<std::string> &words) {
  const Pipe toChild;
  const Pipe fromChild;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, toChild.ends[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fromChild.ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null",
                                   O_WRONLY, 0);
  std::vector<std::string> copies = words;
  std::vector<char *> arguments;
  arguments.reserve(copies.size() + 1);
  for (std::string &word : copies)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const int failed = posix_spawn(&process, arguments[0], &actions, nullptr,
                                 arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  require(failed == 0, "starting " + words[0]);
  close(toChild.ends[0]);
  close(fromChild.ends[1]);
  in.reset(fdopen(toChild.ends[1], "w"));
  out.reset(fdopen(fromChild.ends[0], "r"));
}

Child::~Child() {
  in.reset();
  out.reset();
  waitpid(process, nullptr, 0);
}

double Child::processorTime() const {
  clockid_t clock = 0;
  require(clock_getcpuclockid(process, &clock) == 0, "the clock of a process");
  return secondsOn(clock);
}

double ownProcessorTime() {
  rusage children{};
  getrusage(RUSAGE_CHILDREN, &children);
  return secondsOn(CLOCK_PROCESS_CPUTIME_ID) + secondsOf(children.ru_utime) +
         secondsOf(children.ru_stime);
}

std::string outputOf(const std::vector<std::string> &words) {
  Child child(words);
  std::string text;
  std::array<char, 4096> buffer{};
  std::size_t count = 0;
  while ((count = std::fread(buffer.data(), 1, buffer.size(), child.output())) >
         0)
    text.append(buffer.data(), count);
  return text;
}

} // namespace bench
