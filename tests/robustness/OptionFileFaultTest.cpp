// Option files of which the system takes its share: calls that are interrupted
// or fail, files that change while they are read, no room, nobody at the other
// end of a pipe.
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "SystemCalls.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/EngineFixture.h"
#include "support/TemporaryDirectory.h"

namespace robustness {
namespace {

namespace fs = std::filesystem;
using ZelDebugDialog::KvoOption_Parser;

const std::string optionFile = "etc/kvo_cpu0.opt";
const std::string command = "connect lc sim";

class OptionFileFault : public support::RecordFixture {
protected:
  OptionFileFault() {
    folder.write("etc/other", "");
    record.instanceName = "cpu0";
    record.connectionType = 1;
    engine.SetErrorStr("an earlier message");
  }

  void save(const std::string &content) const {
    folder.write(optionFile, content);
  }
  int readFile() { return KvoOption_Parser::ReadKvoOptFile("cpu0", state); }

  void expectNotOpened() {
    EXPECT_EQ(engine.Generate(), 4);
    EXPECT_EQ(errorText(), "Error Opening File");
    EXPECT_EQ(record.connectCommand, command);
  }

  support::TemporaryDirectory folder;
};

// --- Calls that fail ---------------------------------------------------------

TEST_F(OptionFileFault, AFileThatTellsNothingOfItselfIsNone) {
  save("connect lc hdu\n");
  const CallFault fault(SystemCall::fstat, 1, EIO, 1);
  EXPECT_EQ(readFile(), 4);
  expectNotOpened();
  EXPECT_EQ(fault.calls(), 2);
  EXPECT_EQ(folder.read(optionFile), "connect lc hdu\n");
}

TEST_F(OptionFileFault, AnInterruptedCallIsMadeAgain) {
  save("connect lc hdu\n");
  {
    const CallFault fault(SystemCall::read, 1, EINTR, 1);
    EXPECT_EQ(readFile(), 0);
    EXPECT_EQ(fault.calls(), 3);
  }
  EXPECT_EQ(record.connectCommand, "connect lc hdu");
  record.connectionType = 1;
  {
    const CallFault fault(SystemCall::write, 1, EINTR, 1);
    EXPECT_EQ(engine.Generate(), 0);
    EXPECT_EQ(fault.calls(), 3);
  }
  EXPECT_EQ(folder.read(optionFile), command);
}

TEST_F(OptionFileFault, WhatCannotBeReadEndsTheFile) {
  save("connect lc hdu\n");
  record.connectCommand = "was";
  {
    const CallFault fault(SystemCall::read, 1, EIO);
    EXPECT_EQ(readFile(), 4);
  }
  EXPECT_EQ(record.connectCommand, "was");
  // The first 4,096 bytes are empty lines and the begin of the command.
  save(std::string(4096 - command.size(), '\n') + command + " -memsize 5");
  {
    const CallFault fault(SystemCall::read, 2, EIO);
    EXPECT_EQ(readFile(), 0);
  }
  EXPECT_EQ(record.connectCommand, command);
}

TEST_F(OptionFileFault, AFileThatCannotBeEmptiedIsNotWritten) {
  save("connect lc hdu\n");
  const CallFault fault(SystemCall::ftruncate, 1, EIO);
  expectNotOpened();
  EXPECT_EQ(folder.read(optionFile), "connect lc hdu\n");
}

TEST_F(OptionFileFault, AFileElsewhereThatCannotBeEmptiedIsNotWritten) {
  folder.write("etc/elsewhere", "connect lc hdu\n");
  const CallFault fault(SystemCall::ftruncate, 1, EIO);
  EXPECT_EQ(KvoOption_Parser::WriteKvoOptFileTo("etc/elsewhere", state), 4);
  EXPECT_EQ(errorText(), "Error Opening File");
  EXPECT_EQ(record.connectCommand, command);
  EXPECT_EQ(folder.read("etc/elsewhere"), "connect lc hdu\n");
}

TEST_F(OptionFileFault, NoRoomIsNotReported) {
  save("connect lc hdu\n");
  const CallFault fault(SystemCall::write, 1, ENOSPC);
  EXPECT_EQ(engine.Generate(), 0);
  EXPECT_EQ(errorText(), "an earlier message");
  EXPECT_EQ(folder.read(optionFile), "");
}

TEST_F(OptionFileFault, NothingWrittenIsNoRoom) {
  save("connect lc hdu\n");
  const CallFault fault(SystemCall::write, 1, 0);
  EXPECT_EQ(engine.Generate(), 0);
  EXPECT_EQ(fault.calls(), 1);
  EXPECT_EQ(folder.read(optionFile), "");
}

TEST_F(OptionFileFault, WhatIsWrittenInPartsIsWritten) {
  rlimit limit = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  rlimit oneByte = limit;
  oneByte.rlim_cur = 1;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &oneByte), 0);
  {
    // The first call can write one byte.
    const CallEvent event(SystemCall::write, 2, [&limit] {
      EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    });
    EXPECT_EQ(engine.Generate(), 0);
  }
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  EXPECT_EQ(folder.read(optionFile), command);
}

// --- Files that change while they are read -----------------------------------

class ChangedOptionFile : public OptionFileFault {
protected:
  /// A command whose second half is in the second part that is read.
  ChangedOptionFile() {
    save(std::string(4096 - command.size(), '\n') + command + " -memsize 5\n");
  }

  /// What is read when `change` happens after the first part.
  std::string lineWith(const std::function<void()> &change) {
    const CallEvent event(SystemCall::read, 2, change);
    EXPECT_EQ(readFile(), 0);
    return record.connectCommand;
  }
};

TEST_F(ChangedOptionFile, ThatDoesNotChangeIsReadWhole) {
  EXPECT_EQ(lineWith([] {}), "connect lc sim -memsize 5");
}

TEST_F(ChangedOptionFile, MayEndSooner) {
  EXPECT_EQ(lineWith([] { fs::resize_file(optionFile, 0); }), command);
}

TEST_F(ChangedOptionFile, MayGoOnWithSomethingElse) {
  EXPECT_EQ(lineWith([this] { save(std::string(4096, 'x') + " and more\n"); }),
            command + " and more");
}

TEST_F(ChangedOptionFile, MayBeReplacedOrGone) {
  EXPECT_EQ(lineWith([this] {
              folder.write("etc/new", "connect lc hdu\n");
              fs::rename("etc/new", optionFile);
            }),
            "connect lc sim -memsize 5");
  EXPECT_EQ(readFile(), 0);
  EXPECT_EQ(record.connectCommand, "connect lc hdu");
  save(std::string(4096 - command.size(), '\n') + command + " -memsize 5\n");
  EXPECT_EQ(lineWith([] { fs::remove(optionFile); }),
            "connect lc sim -memsize 5");
  EXPECT_EQ(readFile(), 4);
}

TEST_F(ChangedOptionFile, MayGrowPastTheLongestLine) {
  EXPECT_EQ(lineWith([this] {
              save(std::string(4096, 'x') + " " + std::string(5000, 'y'));
            }),
            command + " " + std::string(1023 - command.size() - 1, 'y'));
}

// --- Pipes, links and limits -------------------------------------------------

TEST_F(OptionFileFault, APipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo(optionFile.c_str(), 0600), 0);
  EXPECT_EQ(readFile(), 4);
  expectNotOpened();
  EXPECT_TRUE(fs::is_fifo(optionFile));
}

TEST_F(OptionFileFault, ALinkToAPipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo("etc/pipe", 0600), 0);
  fs::create_symlink("pipe", optionFile);
  EXPECT_EQ(readFile(), 4);
  expectNotOpened();
}

TEST_F(OptionFileFault, LinksInACircleAreNoFile) {
  fs::create_symlink("kvo_b.opt", optionFile);
  fs::create_symlink("kvo_cpu0.opt", "etc/kvo_b.opt");
  EXPECT_EQ(readFile(), 4);
  expectNotOpened();
  EXPECT_TRUE(fs::is_symlink(optionFile));
}

TEST_F(OptionFileFault, AFolderOfLinksInACircleIsNone) {
  fs::remove_all("etc");
  fs::create_symlink("etc", "etc");
  EXPECT_EQ(readFile(), 4);
  expectNotOpened();
}

TEST_F(OptionFileFault, ALongNameIsNoFile) {
  record.instanceName = std::string(300, 'n');
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile(record.instanceName, state), 4);
  expectNotOpened();
}

/// In a process of its own, whose limit nobody else shares.
TEST_F(OptionFileFault, ALimitOnTheSizeOfFilesCutsTheCommand) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {7, 7};
    const bool isLimited = setrlimit(RLIMIT_FSIZE, &limit) == 0;
    const char result = isLimited ? static_cast<char>(engine.Generate()) : 'x';
    static_cast<void>(write(ends[1], &result, 1) == 1);
    // An end that nothing comes behind, neither reports nor checks of memory.
    std::raise(SIGKILL);
  }
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  char result = 'x';
  ASSERT_EQ(read(ends[0], &result, 1), 1);
  EXPECT_EQ(result, 0);
  close(ends[0]);
  close(ends[1]);
  EXPECT_EQ(folder.read(optionFile), "connect");
}

/// A file without a single line, of a size that no command has.
TEST_F(OptionFileFault, AFileWithoutLinesTakesNoMemory) {
  save("");
  fs::resize_file(optionFile, std::uintmax_t{1} << 20); // null bytes
  EXPECT_EQ(readFile(), 4);
}

} // namespace
} // namespace robustness
