// Writing and reading an option file, beside the bare system calls and streams.
// A reader takes 1,023 characters at most: there are no longer files.
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/Run.h"
#include "common/Session.h"

namespace {

using ZelDebugDialog::KvoOption_Parser;

constexpr const char *processor = "cpu";
constexpr const char *file = "etc/kvo_cpu.opt";
constexpr std::array<std::size_t, 2> chains{2, 10};

/// A folder of its own to work in, gone at the end.
class WorkingFolder {
public:
  WorkingFolder() {
    std::string name =
        (std::filesystem::temp_directory_path() / "option-files-XXXXXX")
            .string();
    bench::require(mkdtemp(name.data()) != nullptr, "a folder to work in");
    folder = name;
    std::filesystem::current_path(folder);
    std::filesystem::create_directory("etc");
  }
  ~WorkingFolder() {
    std::error_code left;
    std::filesystem::current_path("/", left);
    std::filesystem::remove_all(folder, left);
  }
  WorkingFolder(const WorkingFolder &) = delete;
  WorkingFolder &operator=(const WorkingFolder &) = delete;

private:
  std::filesystem::path folder;
};

std::string readBySystemCalls() {
  std::array<char, 4096> buffer;
  const int descriptor = open(file, O_RDONLY | O_CLOEXEC);
  std::string text;
  ssize_t count = 0;
  while ((count = read(descriptor, buffer.data(), buffer.size())) > 0)
    text.append(buffer.data(), static_cast<std::size_t>(count));
  close(descriptor);
  return text;
}

std::string readByStream() {
  std::ifstream in(file);
  std::string line;
  std::getline(in, line);
  return line;
}

void writeBySystemCalls(const std::string &text) {
  const int descriptor =
      open(file, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  bench::require(write(descriptor, text.data(), text.size()) ==
                     static_cast<ssize_t>(text.size()),
                 "write");
  close(descriptor);
}

void writeByStream(const std::string &text) { std::ofstream(file) << text; }

/// An engine that has written its command.
std::shared_ptr<bench::Session> writtenSession(const std::string &command) {
  auto session = std::make_shared<bench::Session>();
  session->imp.currentProcessor->instanceName = processor;
  KvoOption_Parser::ReadKvoCommand(command, session->imp);
  bench::require(KvoOption_Parser::WriteKvoOptFile(session->imp) == 0 &&
                     readBySystemCalls() == command,
                 "the written option file");
  return session;
}

void addReading(std::size_t devices) {
  const std::string command = bench::chainCommand(devices);
  bench::add("read a file", "engine", devices, [command, devices] {
    const auto session = writtenSession(command);
    session->forgetChain();
    bench::require(KvoOption_Parser::ReadKvoOptFile(processor, session->imp) ==
                           0 &&
                       session->imp.jtagChain.size() == devices,
                   "the read option file");
    session->forgetChain();
    return bench::Prepared{command.size(), [session] {
                             KvoOption_Parser::ReadKvoOptFile(processor,
                                                              session->imp);
                             session->forgetChain();
                           }};
  });
  bench::add("read a file", "system calls, text only", devices, [command] {
    writtenSession(command);
    bench::require(readBySystemCalls() == command, "system calls");
    return bench::Prepared{
        command.size(), [] { benchmark::DoNotOptimize(readBySystemCalls()); }};
  });
  bench::add("read a file", "ifstream, text only", devices, [command] {
    writtenSession(command);
    bench::require(readByStream() == command, "a stream");
    return bench::Prepared{command.size(),
                           [] { benchmark::DoNotOptimize(readByStream()); }};
  });
}

void addWriting(std::size_t devices) {
  const std::string command = bench::chainCommand(devices);
  bench::add("write a file", "engine", devices, [command] {
    const auto session = writtenSession(command);
    return bench::Prepared{command.size(), [session] {
                             KvoOption_Parser::WriteKvoOptFile(session->imp);
                           }};
  });
  bench::add("write a file", "system calls, text only", devices, [command] {
    writeBySystemCalls(command);
    bench::require(readBySystemCalls() == command, "system calls");
    return bench::Prepared{command.size(),
                           [command] { writeBySystemCalls(command); }};
  });
  bench::add("write a file", "ofstream, text only", devices, [command] {
    writeByStream(command);
    bench::require(readBySystemCalls() == command, "a stream");
    return bench::Prepared{command.size(),
                           [command] { writeByStream(command); }};
  });
}

} // namespace

int main(int count, char **arguments) {
  const WorkingFolder folder;
  for (const std::size_t devices : chains) {
    addReading(devices);
    addWriting(devices);
  }
  return bench::run(count, arguments);
}
