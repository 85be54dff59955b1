#include "ToolTest.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>

namespace tool {

namespace {

struct Pipe {
  int reading = -1;
  int writing = -1;

  Pipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
      throw std::system_error(errno, std::generic_category(), "pipe2");
    reading = ends[0];
    writing = ends[1];
  }
  ~Pipe() {
    closeEnd(reading);
    closeEnd(writing);
  }
  /// A terminal in the place of the pipe.
  void beTerminal(unsigned short columns) {
    closeEnd(reading);
    closeEnd(writing);
    if (openpty(&reading, &writing, nullptr, nullptr, nullptr) != 0)
      throw std::system_error(errno, std::generic_category(), "openpty");
    winsize size{};
    size.ws_col = columns;
    ioctl(writing, TIOCSWINSZ, &size);
  }
  /// Holds little, and refuses what there is no room for.
  void beImpatient() const {
    if (fcntl(writing, F_SETPIPE_SZ, Surroundings::roomThatIsLittle) < 0 ||
        fcntl(writing, F_SETFL, O_NONBLOCK) < 0)
      throw std::system_error(errno, std::generic_category(), "pipe");
  }
  static void closeEnd(int &end) {
    if (end >= 0)
      close(end);
    end = -1;
  }
};

/// Reads both pipes until both are closed.
void drain(int out, std::string &outText, int err, std::string &errText) {
  pollfd ends[2] = {{out, POLLIN, 0}, {err, POLLIN, 0}};
  std::string *texts[2] = {&outText, &errText};
  while (ends[0].fd >= 0 || ends[1].fd >= 0) {
    poll(ends, 2, -1);
    for (int i = 0; i < 2; ++i) {
      if (ends[i].fd < 0 || ends[i].revents == 0)
        continue;
      char buffer[4096];
      const ssize_t count = read(ends[i].fd, buffer, sizeof buffer);
      if (count > 0)
        texts[i]->append(buffer, static_cast<std::size_t>(count));
      else
        ends[i].fd = -1;
    }
  }
}

/// The system call kills the process, which gets no chance to clean up.
void makeFatal(long call) {
  sock_filter steps[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(call), 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  const sock_fprog filter{static_cast<unsigned short>(std::size(steps)), steps};
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter);
}

/// In the child: everything but the program itself.
void prepare(const Surroundings &surroundings, int in, int out, int err) {
  dup2(in, STDIN_FILENO);
  dup2(out, STDOUT_FILENO);
  dup2(err, STDERR_FILENO);
  if (surroundings.fileSizeLimit >= 0) {
    // A build that counts lines has its counts to write, and they don't fit.
    setenv("GCOV_ERROR_FILE", "/dev/null", 1);
    const auto bytes = static_cast<rlim_t>(surroundings.fileSizeLimit);
    const rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  if (surroundings.obeysPermissions) {
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
    prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
  }
  setenv("LC_ALL", "C", 1);
  unsetenv("NO_COLOR");
  if (!surroundings.terminalName.empty())
    setenv("TERM", surroundings.terminalName.c_str(), 1);
  if (surroundings.noColour)
    setenv("NO_COLOR", "1", 1);
  if (surroundings.fatalCall >= 0)
    makeFatal(surroundings.fatalCall);
}

[[noreturn]] void execute(const std::vector<std::string> &arguments) {
  std::vector<char *> words;
  std::string program = ZELDEBUG_PROGRAM;
  words.push_back(program.data());
  std::vector<std::string> copies = arguments;
  for (std::string &word : copies)
    words.push_back(word.data());
  words.push_back(nullptr);
  execv(program.c_str(), words.data());
  _exit(127);
}

/// Collects the documents of a test program and has them checked at its end.
class SchemaCheck : public testing::Environment {
public:
  void add(const std::string &text) {
    if (folder.empty())
      makeFolder();
    std::ofstream(folder / (std::to_string(++count) + ".json")) << text;
  }

  void TearDown() override {
    if (folder.empty())
      return;
    const std::string line = std::string("python3 '") + ZELDEBUG_VALIDATE +
                             "' '" + ZELDEBUG_SCHEMAS + "' '" +
                             folder.string() + "' 1>&2";
    EXPECT_EQ(std::system(line.c_str()), 0);
    std::filesystem::remove_all(folder);
  }

private:
  void makeFolder() {
    std::string name =
        (std::filesystem::temp_directory_path() / "zeldebug-json-XXXXXX")
            .string();
    if (mkdtemp(name.data()) == nullptr)
      throw std::system_error(errno, std::generic_category(), name);
    folder = name;
  }

  std::filesystem::path folder;
  int count = 0;
};

SchemaCheck &schemaCheck() {
  static SchemaCheck *check = [] {
    auto *made = new SchemaCheck;
    testing::AddGlobalTestEnvironment(made);
    return made;
  }();
  return *check;
}

// Registered before the tests start.
[[maybe_unused]] const SchemaCheck &registered = schemaCheck();

/// A run of the program.
class Child {
public:
  Child(const std::vector<std::string> &arguments,
        const Surroundings &surroundings);
  bool isRunning() const;
  /// Waits for its end.
  Result finish();

private:
  Pipe out;
  Pipe err;
  pid_t process = -1;
};

Child::Child(const std::vector<std::string> &arguments,
             const Surroundings &surroundings) {
  Pipe in;
  const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
  if (surroundings.terminal)
    out.beTerminal(surroundings.columns);
  if (surroundings.doesNotWait)
    out.beImpatient();
  if (surroundings.readerLeaves)
    Pipe::closeEnd(out.reading);
  process = fork();
  if (process == 0) {
    prepare(surroundings, in.reading,
            surroundings.fullOutput ? full : out.writing, err.writing);
    execute(arguments);
  }
  close(full);
  Pipe::closeEnd(out.writing);
  Pipe::closeEnd(err.writing);
  // Inputs of tests are shorter than what a pipe holds.
  const ssize_t given =
      write(in.writing, surroundings.input.data(), surroundings.input.size());
  EXPECT_EQ(given, static_cast<ssize_t>(surroundings.input.size()));
}

Result Child::finish() {
  Result run{};
  drain(out.reading, run.out, err.reading, run.err);
  int status = 0;
  waitpid(process, &status, 0);
  run.status =
      WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  return run;
}

bool Child::isRunning() const {
  siginfo_t info{};
  waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT);
  return info.si_pid == 0;
}

} // namespace

Result ToolTest::run(const std::vector<std::string> &arguments,
                     const Surroundings &surroundings) {
  Result run = Child(arguments, surroundings).finish();
  const bool completes = !arguments.empty() && arguments[0] == "complete";
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const bool isJson = std::find(arguments.begin(), end, "--json") != end;
  if (isJson && !completes && !run.out.empty())
    keepDocument(run.out);
  return run;
}

nlohmann::json ToolTest::runJson(std::vector<std::string> arguments,
                                 int status) {
  arguments.emplace_back("--json");
  const Result run = this->run(arguments);
  EXPECT_EQ(run.status, status) << run.err;
  return nlohmann::json::parse(run.out);
}

std::vector<Result>
ToolTest::runAtOnce(const std::vector<std::vector<std::string>> &lines,
                    const std::function<void()> &meanwhile) {
  std::vector<std::unique_ptr<Child>> children;
  for (const std::vector<std::string> &line : lines)
    children.push_back(std::make_unique<Child>(line, Surroundings()));
  const auto isRunning = [](const std::unique_ptr<Child> &child) {
    return child->isRunning();
  };
  while (std::any_of(children.begin(), children.end(), isRunning))
    meanwhile();
  std::vector<Result> results;
  for (const std::unique_ptr<Child> &child : children)
    results.push_back(child->finish());
  return results;
}

void ToolTest::keepDocument(const std::string &text) {
  schemaCheck().add(text);
}

std::vector<std::string> ToolTest::etc() const {
  std::vector<std::string> names;
  for (const auto &entry :
       std::filesystem::directory_iterator(folder.path() / "etc"))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

bool ToolTest::hasTerminals() {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal >= 0)
    close(terminal);
  return terminal >= 0;
}

} // namespace tool
