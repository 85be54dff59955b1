// Option files: where they lie, what is written, and what is read back.
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "language/Bench.h"
#include "language/WorkingFolder.h"
#include "support/Targets.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfoImp;

const std::string kHdu =
    "connectionType=2 connectionMask=4098 procFamily=0 procType=0";

class OptionFile : public testing::Test {
protected:
  WorkingFolder folder;
};

// --- Read --------------------------------------------------------------------

struct FileRow {
  std::string content;
  int code;
  std::string line; ///< What `connectCommand` holds afterwards.
  std::string changes{};
  std::string message = kQuiet;
  std::string option = kUntouched;
};

void expectFiles(const WorkingFolder &folder, const std::vector<FileRow> &rows,
                 const Prepare &prepare = {}) {
  for (const FileRow &row : rows) {
    WorkingFolder::fill(folder.optionFile("cpu0"), row.content);
    // Not the name of the current record: the one that is asked for.
    const Reader readFile = [&row](std::string &, EngineImp &imp) {
      int code = kThrows;
      try {
        code = KvoOption_Parser::ReadKvoOptFile("cpu0", imp);
      } catch (const std::out_of_range &error) {
        EXPECT_EQ(error.what(), kLoneMinus);
      }
      EXPECT_EQ(printable(imp.currentProcessor->connectCommand),
                printable(row.line));
      return code;
    };
    expectRows(readFile,
               {{row.content, row.code, row.message, row.changes, row.content,
                 row.option}},
               prepare);
    EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile("cpu0")), row.content);
  }
}

TEST_F(OptionFile, HoldsOneCommand) {
  const std::string command = "connect lc hdu";
  expectFiles(
      folder,
      {
          {command, 0, command, kHdu},
          {command + "\n", 0, command, kHdu},
          {"\n" + command, 0, command, kHdu},
          {"\n\n\n" + command + "\n", 0, command, kHdu},
          // Only the first line that is not empty counts.
          {command + "\nconnect lc sim\n", 0, command, kHdu},
          {command + "\n-", 0, command, kHdu},
          {command + " -foo\n" + command, 3, command + " -foo", "",
           "UNKNOWN Option '-foo'", "-foo"},
          {"foo\n" + command, 3, "foo"},
          // Blanks are no emptiness.
          {" ", 3, " "},
          {" \n" + command, 3, " "},
          {"\t\n" + command, 3, "\t"},
          {"\n\n \t \n", 3, " \t "},
          {"  " + command + "  \n", 0, "  " + command + "  ", kHdu},
          // Nor is a carriage return, which is trimmed with the text.
          {command + "\r\n", 0, command + "\r", kHdu},
          {"\r\n" + command, 3, "\r"},
          {command + "\rconnect lc sim", 3, command + "\rconnect lc sim"},
      });
}

TEST_F(OptionFile, MayHoldNothing) {
  expectFiles(folder, {
                          {"", 4, "was"},
                          {"\n", 4, "was"},
                          {"\n\n\n\n", 4, "was"},
                      });
}

TEST_F(OptionFile, EndsALineAtANullByte) {
  expectFiles(folder,
              {
                  {"connect lc hdu\0 -foo\n"s, 0, "connect lc hdu", kHdu},
                  {"connect lc hdu\0"s, 0, "connect lc hdu", kHdu},
                  {"connect lc hdu -qu\0iet"s, 3, "connect lc hdu -qu", "",
                   "UNKNOWN Option '-qu'", "-qu"},
                  // A line that begins with one is empty.
                  {"\0foo\nconnect lc hdu\n"s, 0, "connect lc hdu", kHdu},
                  {"\0foo\n"s, 4, "was"},
                  {"\0"s, 4, "was"},
                  {std::string(1023, '\0') + "\nconnect lc hdu\n", 0,
                   "connect lc hdu", kHdu},
                  // Behind the longest line nothing is read, not even lines.
                  {std::string(1024, '\0') + "\nconnect lc hdu\n", 4, "was"},
              });
}

TEST_F(OptionFile, KnowsTwoHeadsAndFourTargets) {
  const std::string vp = "connectionType=8 connectionMask=4104 procType=0";
  const auto kind = [](int family, int type) {
    return "connectionType=2 connectionMask=4098 procFamily=" +
           std::to_string(family) + " procType=" + std::to_string(type);
  };
  expectFiles(folder,
              {
                  {"connect lc hdu", 0, "connect lc hdu", kHdu},
                  {"CONNECT LC HDU", 0, "CONNECT LC HDU", kHdu},
                  {"connect ppc hw", 0, "connect ppc hw", kind(1, 6)},
                  {"Connect Ppc Hw", 0, "Connect Ppc Hw", kind(1, 6)},
                  {"connect arm hw", 0, "connect arm hw", kind(2, 4)},
                  {"connect ARM hw", 0, "connect ARM hw", kind(2, 4)},
                  {"connect r5 hw", 0, "connect r5 hw", kind(2, 5)},
                  {"connect R5 hw", 0, "connect R5 hw", kind(2, 5)},
                  {"vpconnect lc", 0, "vpconnect lc", vp},
                  {"VPconnect LC", 0, "VPconnect LC", vp},
                  {"vpconnect lc -ipcport h:1", 0, "vpconnect lc -ipcport h:1",
                   vp + " simIpcHost=h simIpcPort=1", kQuiet, "-ipcport"},
                  {"connect", 3, "connect"},
                  {"vpconnect", 3, "vpconnect"},
                  {"vpconnect ppc", 3, "vpconnect ppc"},
              });
}

TEST_F(OptionFile, RefusesWhatOnlyACommandMayHold) {
  std::vector<FileRow> rows;
  for (const std::string line :
       {"kconnect lc hdu", "kvpconnect lc", "connect hdu", "connect dap hw",
        "connect dcc", "connect kmtc", "KCONNECT lc hdu", "connect HDU",
        "connect hdu -uart"})
    rows.push_back({line, 3, line});
  for (const std::string &miss :
       nearMisses("connect", {"connect", "vpconnect", "kconnect"}))
    rows.push_back({miss + " lc hdu", 3, miss + " lc hdu"});
  for (const std::string &miss : nearMisses("vpconnect", {"vpconnect"}))
    rows.push_back({miss + " lc", 3, miss + " lc"});
  for (const std::string &target : support::targetsInFiles)
    for (const std::string &miss : nearMisses(target, support::targetsInFiles))
      rows.push_back({"connect " + miss + " hw", 3, "connect " + miss + " hw"});
  rows.push_back({"-connect lc", 3, "-connect lc", "", kQuiet, "-connect"});
  rows.push_back({"connect -lc", 3, "connect -lc", "", kQuiet, "-lc"});
  expectFiles(folder, rows);
}

TEST_F(OptionFile, RefusesWhatATargetRefuses) {
  expectFiles(
      folder,
      {
          {"connect lc", 3, "connect lc"},
          {"connect ppc sim x", 3, "connect ppc sim x",
           "procFamily=1 procType=6"},
          {"connect arm sim", 3, "connect arm sim"},
          {"vpconnect lc -foo", 3, "vpconnect lc -foo",
           "connectionType=8 connectionMask=4104 procType=0",
           "UNKNOWN virtual platform Option 'lc'", "-foo"},
          {"connect lc hdu -cable type quorla_svffile", 3,
           "connect lc hdu -cable type quorla_svffile", "",
           "Cable Type quorla_svffile is not supported in this release\n",
           "-cable"},
          {"connect lc hdu -", kThrows, "connect lc hdu -"},
          {"-", kThrows, "-"},
          {"connect -", kThrows, "connect -"},
      });
  expectFiles(folder,
              {{"connect lc hdu", 3, "connect lc hdu"},
               {"connect lc sim", 0, "connect lc sim", "connectionType=1"}},
              [](EngineImp &imp) {
                imp.hwManager = silentDesign();
                imp.currentProcessor->connectionMask = 1;
              });
}

TEST_F(OptionFile, CutsALineAt1023Characters) {
  const std::string lead = "connect lc stub -port ";
  const auto stored = [&lead](std::size_t length) {
    return "connectionType=4 connectionMask=4100 procFamily=0 procType=0 "
           "stubSerialPort=" +
           std::string(length - lead.size(), 'p');
  };
  std::vector<FileRow> rows;
  for (const std::size_t length : {1022U, 1023U, 1024U, 1025U, 5000U}) {
    const std::string line = lead + std::string(length - lead.size(), 'p');
    const std::size_t kept = std::min<std::size_t>(length, 1023);
    for (const std::string tail : {"", "\n", "\r\n", "\nconnect lc sim\n"}) {
      const std::string first =
          (line + (tail == "\r\n" ? "\r" : "")).substr(0, 1023);
      rows.push_back({line + tail, 0, first, stored(kept), kQuiet, "-port"});
      rows.push_back(
          {"\n" + line + tail, 0, first, stored(kept), kQuiet, "-port"});
    }
  }
  // What lies behind the cut is not read, not even as the next line.
  rows.push_back({lead + std::string(1023 - lead.size(), 'p') + " -foo", 0,
                  lead + std::string(1023 - lead.size(), 'p'), stored(1023),
                  kQuiet, "-port"});
  // The cut may fall into a word.
  const std::string hdu = "connect lc hdu";
  const std::string blanks(1023 - hdu.size() - 6, ' ');
  rows.push_back({hdu + blanks + "-quiet", 0, hdu + blanks + "-quiet", kHdu,
                  kQuiet, "-quiet"});
  rows.push_back({hdu + blanks + " -quiet", 3, hdu + blanks + " -quie", "",
                  "UNKNOWN Option '-quie'", "-quie"});
  rows.push_back({std::string(1023, ' ') + hdu, 3, std::string(1023, ' ')});
  expectFiles(folder, rows);
}

TEST_F(OptionFile, IsReadNoFurtherThanItsLine) {
  const std::string line = "connect lc hdu" + std::string(1009, ' ');
  const fs::path file = folder.optionFile("cpu0");
  for (const char first : {'c', '\0'}) {
    std::ofstream(file, std::ios::binary) << first << line.substr(1);
    fs::resize_file(file, 1ULL << 36); // 64 GiB that are nowhere
    Bench bench;
    EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu0", bench.imp),
              first == 'c' ? 0 : 4);
    EXPECT_EQ(bench.record.connectCommand, first == 'c' ? line : "was");
  }
}

TEST_F(OptionFile, IsARegularFile) {
  const fs::path file = folder.optionFile("cpu0");
  const auto expectNone = [](const std::string &what) {
    SCOPED_TRACE(what);
    Bench bench;
    bench.engine.SetErrorStr(kQuiet);
    const Settings before = settingsOf(bench.imp);
    EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu0", bench.imp), 4);
    EXPECT_EQ(bench.error(), kQuiet);
    EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), "");
    EXPECT_EQ(bench.record.connectCommand, "was");
  };
  expectNone("missing");

  fs::create_directory(file);
  expectNone("folder");
  fs::remove(file);

  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  // Held open with a command in it, so that a reader of it would not wait.
  const int fifo = open(file.c_str(), O_RDWR | O_NONBLOCK);
  ASSERT_GE(fifo, 0);
  ASSERT_EQ(write(fifo, "connect lc hdu\n", 15), 15);
  expectNone("fifo");
  close(fifo);
  fs::remove(file);

  fs::create_symlink("/dev/null", file);
  expectNone("link to a device");
  fs::remove(file);

  fs::create_symlink("nowhere", file);
  expectNone("dangling link");
  fs::remove(file);

  fs::create_symlink("kvo_cpu0.opt", file);
  expectNone("link to itself");
  fs::remove(file);

  fs::create_directory(folder.folder / "elsewhere");
  fs::create_symlink(folder.folder / "elsewhere", file);
  expectNone("link to a folder");
  fs::remove(file);

  fs::remove(folder.folder / "etc");
  expectNone("no folder");
  WorkingFolder::fill(folder.folder / "etc", "connect lc hdu");
  expectNone("a file for a folder");
}

TEST_F(OptionFile, MayBeALinkToOne) {
  WorkingFolder::fill(folder.folder / "saved", "connect lc hdu\n");
  fs::create_symlink("../saved", folder.optionFile("cpu0"));
  Bench bench;
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu0", bench.imp), 0);
  EXPECT_EQ(bench.record.connectionType, 2U);
}

TEST_F(OptionFile, NeedsToBeReadable) {
  const fs::path file = folder.optionFile("cpu0");
  WorkingFolder::fill(file, "connect lc hdu\n");
  ASSERT_EQ(chmod(file.c_str(), 0), 0);
  Bench bench;
  // Whether the rights bind us is the system's to say.
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu0", bench.imp),
            access(file.c_str(), R_OK) == 0 ? 0 : 4);
}

TEST_F(OptionFile, IsFoundByTheGivenNameBelowTheWorkingFolder) {
  WorkingFolder::fill(folder.optionFile("cpu0"), "connect lc hdu");
  WorkingFolder::fill(folder.optionFile("cpu1"), "connect lc stub");
  WorkingFolder::fill(folder.optionFile(""), "connect lc sim");
  fs::create_directories(folder.folder / "other" / "etc");
  WorkingFolder::fill(folder.folder / "other" / "etc" / "kvo_cpu0.opt",
                      "connect lc stub");
  Bench bench;
  bench.record.instanceName = "cpu1";
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu0", bench.imp), 0);
  EXPECT_EQ(bench.record.connectionType, 2U);
  EXPECT_EQ(bench.record.instanceName, "cpu1");
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu1", bench.imp), 0);
  EXPECT_EQ(bench.record.connectionType, 4U);
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("", bench.imp), 0);
  EXPECT_EQ(bench.record.connectionType, 1U);
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("CPU0", bench.imp), 4);
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu", bench.imp), 4);
  fs::current_path(folder.folder / "other");
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu0", bench.imp), 0);
  EXPECT_EQ(bench.record.connectionType, 4U);
}

// --- Written -----------------------------------------------------------------

/// A bench with a plain record of the given name.
class WriteBench : public Bench {
public:
  explicit WriteBench(const std::string &name) {
    record = ProcessorInfoImp();
    record.instanceName = name;
    record.connectCommand = "was";
    imp.cableOption->CableOptionInit(Engine::CABLE_NONE);
    imp.cpuJtag = 0;
    engine.SetErrorStr(kQuiet);
  }
};

TEST_F(OptionFile, IsWrittenWithNothingBehindTheCommand) {
  struct SavedRow {
    std::uint32_t family;
    std::uint32_t type;
    std::string written;
  };
  for (const SavedRow &row : std::vector<SavedRow>{
           {0, 2, "connect lc hdu -debugdevice cpunr 1"},
           {0, 1, "connect lc sim"},
           {0, 4, "connect lc stub -comm jtag"},
           {1, 2, "connect ppc hw -debugdevice cpunr 1"},
           {2, 2, "connect ppc hw -debugdevice cpunr 1"},
           {1, 1, "connect ppc sim"},
           {0, 8, "vpconnect lc"},
       })
    for (const bool throughTheEngine : {false, true}) {
      SCOPED_TRACE(row.written);
      WriteBench bench("cpu0");
      bench.record.procFamily = row.family;
      bench.record.connectionType = row.type;
      const fs::path file = folder.optionFile("cpu0");
      fs::remove(file);
      EXPECT_EQ(throughTheEngine ? bench.engine.Generate()
                                 : KvoOption_Parser::WriteKvoOptFile(bench.imp),
                0);
      EXPECT_EQ(WorkingFolder::contentOf(file), row.written);
      EXPECT_EQ(bench.record.connectCommand, row.written);
      EXPECT_EQ(bench.error(), kQuiet);
    }
}

TEST_F(OptionFile, IsReadableByAllWhomTheProcessDoesNotExclude) {
  const fs::path file = folder.optionFile("cpu0");
  for (const mode_t excluded : {mode_t{0}, mode_t{022}, mode_t{077}}) {
    fs::remove(file);
    WriteBench bench("cpu0");
    const mode_t before = umask(excluded);
    EXPECT_EQ(bench.engine.Generate(), 0);
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0666U & ~excluded);
  }
}

TEST_F(OptionFile, MayHaveTheDescriptorOfAClosedStandardInput) {
  const int kept = dup(STDIN_FILENO);
  close(STDIN_FILENO);
  WriteBench bench("cpu0");
  const int written = bench.engine.Generate();
  const int read = KvoOption_Parser::ReadKvoOptFile("cpu0", bench.imp);
  if (kept >= 0) {
    dup2(kept, STDIN_FILENO);
    close(kept);
  }
  EXPECT_EQ(written, 0);
  EXPECT_EQ(read, 0);
}

TEST_F(OptionFile, IsReplacedWhole) {
  const fs::path file = folder.optionFile("a.b c");
  WorkingFolder::fill(file, std::string(10000, 'x') + "\nconnect lc hdu\n");
  WriteBench bench("a.b c");
  bench.record.connectionType = 1;
  EXPECT_EQ(bench.engine.Generate(), 0);
  EXPECT_EQ(WorkingFolder::contentOf(file), "connect lc sim");
  bench.record.instanceName = "";
  EXPECT_EQ(bench.engine.Generate(), 0);
  EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile("")), "connect lc sim");
}

TEST_F(OptionFile, IsWrittenWhole) {
  WriteBench bench("cpu0");
  bench.record.connectionType = 4;
  bench.record.stubType = 1;
  bench.record.stubSerialPort = std::string(5000, 'p') + "\0q"s;
  EXPECT_EQ(bench.engine.Generate(), 0);
  EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile("cpu0")),
            "connect lc stub -comm serial -port " +
                bench.record.stubSerialPort + "  -baud  0 -timeout 20000");
}

TEST_F(OptionFile, HasNoNameWithANullByte) {
  WorkingFolder::fill(folder.optionFile("cpu0"), "connect lc hdu");
  WriteBench bench("cpu0.opt\0"s);
  EXPECT_EQ(bench.engine.Generate(), 4);
  EXPECT_EQ(bench.error(), "Error Opening File");
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu0.opt\0"s, bench.imp), 4);
  EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile("cpu0")),
            "connect lc hdu");
}

TEST_F(OptionFile, StopsWhereTheSystemWritesNoMore) {
  // A limit on the size of files stands in for a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit before = limit;
  limit.rlim_cur = 7;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  WriteBench bench("cpu0");
  bench.record.connectionType = 1;
  const int result = bench.engine.Generate();
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
  EXPECT_EQ(result, 0); // only a file that can't be opened is reported
  EXPECT_EQ(bench.error(), kQuiet);
  EXPECT_EQ(bench.record.connectCommand, "connect lc sim");
  EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile("cpu0")), "connect");
}

TEST_F(OptionFile, IsNotWrittenWithoutAWorkingDirectory) {
  const fs::path gone = folder.folder / "gone";
  fs::create_directory(gone);
  fs::current_path(gone);
  fs::remove(gone);
  WriteBench bench("cpu0");
  EXPECT_EQ(bench.engine.Generate(), 4);
  EXPECT_EQ(bench.error(), "Error Opening File");
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFile("cpu0", bench.imp), 4);
  fs::current_path(folder.folder);
}

TEST_F(OptionFile, IsNotTouchedWithoutACommand) {
  const fs::path file = folder.optionFile("cpu0");
  WorkingFolder::fill(file, "old");
  struct RefusedRow {
    std::uint32_t family;
    std::uint32_t type;
    Engine::CableType cable;
    std::string message;
  };
  for (const RefusedRow &row : std::vector<RefusedRow>{
           {0, 0x84, Engine::CABLE_NONE,
            "Invalid Connect Type for Lumacore Target"},
           {1, 4, Engine::CABLE_NONE,
            "Invalid Connect Type for PowerPC Target"},
           {1, 8, Engine::CABLE_NONE, kQuiet},
           {0, 2, Engine::QUORLA_TCF, "Invalid Cable Type"},
           {1, 2, Engine::QUORLA_SVFFILE, "Invalid Cable Type"},
       }) {
    SCOPED_TRACE(row.message);
    WriteBench bench("cpu0");
    bench.record.procFamily = row.family;
    bench.record.connectionType = row.type;
    bench.imp.cableOption->cableType = row.cable;
    EXPECT_EQ(bench.engine.Generate(), 1);
    EXPECT_EQ(WorkingFolder::contentOf(file), "old");
    EXPECT_EQ(bench.record.connectCommand, "was");
    EXPECT_EQ(bench.error(), row.message);
    bench.record.instanceName = "cpu1";
    EXPECT_EQ(bench.engine.Generate(), 1);
    EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile("cpu1")), "(none)");
  }
}

TEST_F(OptionFile, IsNotWrittenInAnythingElse) {
  const fs::path file = folder.optionFile("cpu0");
  const auto expectRefused = [](const std::string &what) {
    SCOPED_TRACE(what);
    WriteBench bench("cpu0");
    bench.record.connectionType = 1;
    EXPECT_EQ(bench.engine.Generate(), 4);
    EXPECT_EQ(bench.error(), "Error Opening File");
    // The command is stored before the file is opened.
    EXPECT_EQ(bench.record.connectCommand, "connect lc sim");
  };
  fs::create_directory(file);
  expectRefused("folder");
  EXPECT_TRUE(fs::is_directory(file));
  fs::remove(file);

  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  const int fifo = open(file.c_str(), O_RDWR | O_NONBLOCK);
  ASSERT_GE(fifo, 0);
  expectRefused("fifo");
  char byte = 0;
  EXPECT_EQ(read(fifo, &byte, 1), -1) << "something was written";
  close(fifo);
  EXPECT_TRUE(fs::is_fifo(file));
  fs::remove(file);

  fs::create_symlink("/dev/null", file);
  expectRefused("link to a device");
  EXPECT_TRUE(fs::is_symlink(file));
  fs::remove(file);

  fs::create_symlink("kvo_cpu0.opt", file);
  expectRefused("link to itself");
  fs::remove(file);

  fs::remove(folder.folder / "etc");
  expectRefused("no folder");
  EXPECT_FALSE(fs::exists(folder.folder / "etc"));
  WorkingFolder::fill(folder.folder / "etc", "a file");
  expectRefused("a file for a folder");
}

TEST_F(OptionFile, IsWrittenThroughALink) {
  WorkingFolder::fill(folder.folder / "saved", "old");
  fs::create_symlink("../saved", folder.optionFile("cpu0"));
  WriteBench bench("cpu0");
  bench.record.connectionType = 1;
  EXPECT_EQ(bench.engine.Generate(), 0);
  EXPECT_EQ(WorkingFolder::contentOf(folder.folder / "saved"),
            "connect lc sim");
  EXPECT_TRUE(fs::is_symlink(folder.optionFile("cpu0")));
}

TEST_F(OptionFile, NeedsToBeWritable) {
  const fs::path file = folder.optionFile("cpu0");
  WorkingFolder::fill(file, "old");
  ASSERT_EQ(chmod(file.c_str(), 0400), 0);
  const bool writable = access(file.c_str(), W_OK) == 0;
  WriteBench bench("cpu0");
  bench.record.connectionType = 1;
  EXPECT_EQ(bench.engine.Generate(), writable ? 0 : 4);
  EXPECT_EQ(bench.error(), writable ? kQuiet : "Error Opening File");
  EXPECT_EQ(WorkingFolder::contentOf(file),
            writable ? "connect lc sim" : "old");
}

} // namespace
