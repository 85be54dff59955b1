// Option files by their path: what the operations with a path do, they do as
// those that find the file themselves, and without a look at the working
// directory.
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "language/Bench.h"
#include "language/SmallDesign.h"
#include "language/WorkingFolder.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfo;

/// The process works in `folder.folder`, the files lie in `far`.
class OptionFilePath : public testing::Test {
protected:
  OptionFilePath() : far(folder.folder / "far away") {
    fs::create_directories(far);
  }

  WorkingFolder folder;
  fs::path far;
};

/// All that an operation leaves behind.
struct Outcome {
  int result = kThrows;
  Settings settings;
  std::string command;
  std::string error;
  std::string option;

  bool operator==(const Outcome &other) const {
    return result == other.result && settings == other.settings &&
           command == other.command && error == other.error &&
           option == other.option;
  }
};

template <class Operation> Outcome outcomeOf(const Operation &operation) {
  Bench bench;
  bench.engine.SetErrorStr(kQuiet);
  bench.record.connectCommand = "was";
  KvoOption_Parser::current_option = kUntouched;
  Outcome outcome;
  try {
    outcome.result = operation(bench.imp);
  } catch (const std::out_of_range &) {
  }
  outcome.settings = settingsOf(bench.imp);
  outcome.command = bench.record.connectCommand;
  outcome.error = bench.error();
  outcome.option = KvoOption_Parser::current_option;
  ReleaseChainRecords(bench.imp.jtagChain);
  return outcome;
}

TEST_F(OptionFilePath, IsReadAsTheFileOfAName) {
  struct Row {
    std::string content;
    int result;
    std::string command;
  };
  const std::string longLine =
      "connect lc stub -port " + std::string(1100, 'p');
  for (const Row &row : std::vector<Row>{
           {"connect lc sim", 0, "connect lc sim"},
           {"\n\nconnect lc stub -baud 7\nconnect lc sim\n", 0,
            "connect lc stub -baud 7"},
           {longLine, 0, longLine.substr(0, 1023)},
           {"connect lc hdu -configdevice devicenr 4", 0,
            "connect lc hdu -configdevice devicenr 4"},
           {"kconnect lc sim", 3, "kconnect lc sim"},
           {"connect lc hdu -foo", 3, "connect lc hdu -foo"},
           {"connect lc hdu -", kThrows, "connect lc hdu -"},
           {"", 4, "was"},
           {"\n\n", 4, "was"},
           {"\0connect lc sim"s, 4, "was"},
       }) {
    SCOPED_TRACE(printable(row.content));
    WorkingFolder::fill(folder.optionFile("cpu0"), row.content);
    WorkingFolder::fill(far / "any name", row.content);
    const Outcome byName = outcomeOf([](EngineImp &imp) {
      return KvoOption_Parser::ReadKvoOptFile("cpu0", imp);
    });
    const Outcome byPath = outcomeOf([this](EngineImp &imp) {
      return KvoOption_Parser::ReadKvoOptFileFrom((far / "any name").string(),
                                                  imp);
    });
    EXPECT_EQ(byPath.result, row.result);
    EXPECT_EQ(byPath.command, row.command);
    EXPECT_TRUE(byPath == byName);
    EXPECT_EQ(changesBetween(byName.settings, byPath.settings), "");
  }
}

TEST_F(OptionFilePath, LeadsToNothingWhereNoRegularFileIs) {
  fs::create_directory(far / "folder");
  fs::create_symlink("nowhere", far / "dangling");
  ASSERT_EQ(mkfifo((far / "fifo").c_str(), 0600), 0);
  WorkingFolder::fill(far / "file", "connect lc sim");
  for (const std::string &path :
       {""s, (far / "missing").string(), (far / "folder").string(),
        (far / "dangling").string(), (far / "fifo").string(), "/dev/null"s,
        (far / "file").string() + "/", (far / "file").string() + "\0"s}) {
    SCOPED_TRACE(printable(path));
    const Outcome outcome = outcomeOf([&path](EngineImp &imp) {
      return KvoOption_Parser::ReadKvoOptFileFrom(path, imp);
    });
    EXPECT_EQ(outcome.result, 4);
    EXPECT_EQ(outcome.command, "was");
    EXPECT_EQ(outcome.error, kQuiet);
  }
}

TEST_F(OptionFilePath, MayBeRelative) {
  WorkingFolder::fill(far / "file", "connect lc sim");
  const Outcome outcome = outcomeOf([](EngineImp &imp) {
    return KvoOption_Parser::ReadKvoOptFileFrom("far away/file", imp);
  });
  EXPECT_EQ(outcome.result, 0);
}

TEST_F(OptionFilePath, IsEnoughWithoutAWorkingDirectory) {
  const fs::path gone = folder.folder / "gone";
  fs::create_directory(gone);
  fs::current_path(gone);
  fs::remove(gone);
  Bench bench;
  bench.record.procFamily = 0;
  bench.record.connectionType = 1;
  const std::string file = (far / "file").string();
  EXPECT_EQ(KvoOption_Parser::WriteKvoOptFileTo(file, bench.imp), 0);
  EXPECT_EQ(KvoOption_Parser::ReadKvoOptFileFrom(file, bench.imp), 0);
  fs::current_path(folder.folder);
}

TEST_F(OptionFilePath, IsWrittenAsTheFileOfTheProcessor) {
  struct Row {
    std::uint32_t family;
    std::uint32_t type;
    int result;
    std::string content;
    std::string message;
  };
  for (const Row &row : std::vector<Row>{
           {0, 1, 0, "connect lc sim", kQuiet},
           {1, 1, 0, "connect ppc sim -ipcport host:1", kQuiet},
           {0, 0x84, 1, "old", "Invalid Connect Type for Lumacore Target"},
           {1, 8, 1, "old", kQuiet},
       }) {
    SCOPED_TRACE(row.content);
    const auto prepare = [&row](EngineImp &imp) {
      imp.currentProcessor->instanceName = "cpu0";
      imp.currentProcessor->procFamily = row.family;
      imp.currentProcessor->connectionType = row.type;
      imp.currentProcessor->ppcSimConfigFile.clear();
      imp.currentProcessor->simIpcHost = "host";
      imp.currentProcessor->simIpcPort = 1;
    };
    WorkingFolder::fill(folder.optionFile("cpu0"), "old");
    WorkingFolder::fill(far / "file", "old");
    const Outcome byName = outcomeOf([&](EngineImp &imp) {
      prepare(imp);
      return KvoOption_Parser::WriteKvoOptFile(imp);
    });
    const Outcome byPath = outcomeOf([&](EngineImp &imp) {
      prepare(imp);
      return KvoOption_Parser::WriteKvoOptFileTo((far / "file").string(), imp);
    });
    EXPECT_EQ(byPath.result, row.result);
    EXPECT_EQ(byPath.error, row.message);
    EXPECT_EQ(WorkingFolder::contentOf(far / "file"), row.content);
    EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile("cpu0")), row.content);
    EXPECT_TRUE(byPath == byName);
  }
}

TEST_F(OptionFilePath, IsWrittenOnlyWhereARegularFileIsOrMayBe) {
  fs::create_directory(far / "folder");
  fs::create_symlink("/dev/null", far / "device");
  for (const std::string &path :
       {""s, (far / "folder").string(), (far / "device").string(),
        (far / "no folder" / "file").string(),
        (far / "file").string() + "\0"s}) {
    SCOPED_TRACE(printable(path));
    const Outcome outcome = outcomeOf([&path](EngineImp &imp) {
      imp.currentProcessor->procFamily = 0;
      imp.currentProcessor->connectionType = 1;
      return KvoOption_Parser::WriteKvoOptFileTo(path, imp);
    });
    EXPECT_EQ(outcome.result, 4);
    EXPECT_EQ(outcome.error, "Error Opening File");
    EXPECT_EQ(outcome.command, "connect lc sim");
  }
  EXPECT_EQ(WorkingFolder::contentOf(far / "file"), "(none)");
}

TEST_F(OptionFilePath, SelectsAProcessorAsItsOwnFileDoes) {
  struct Row {
    std::string name;
    std::string content; ///< "" for no file
    int result;
    std::string message;
  };
  const std::string unknown =
      "Processor Instance lc cannot be Debugged !!, Please check "
      "\t\t\t\t\tProcessor Connection in your HWD file\n";
  for (const Row &row : std::vector<Row>{
           {"lc1", "connect lc hdu -debugdevice devicenr 3", 0, ""},
           {"lc1", "connect lc hdu -foo", 3, "UNKNOWN Option '-foo'"},
           {"lc1", "connect ppc hw -debugdevice cpunr 9", 3, ""},
           {"lc1", "", 4, ""},
           {"lc", "connect lc hdu", 2, unknown},
       }) {
    SCOPED_TRACE(row.content);
    const auto select = [&](bool byPath) {
      SmallDesign design;
      design.processor("lc1", "lumacore").module("debug", "hdu", {"lc1"});
      Engine engine;
      EngineImp &imp = *engine.GetProcessorList(&design);
      const fs::path file = byPath ? far / "file" : folder.optionFile(row.name);
      fs::remove(file);
      if (!row.content.empty())
        WorkingFolder::fill(file, row.content);
      ProcessorInfo info;
      Outcome outcome;
      outcome.result =
          byPath ? engine.SetProcessorFrom(row.name, info, file.string())
                 : engine.SetProcessor(row.name, info);
      engine.GetErrorStr(outcome.error);
      if (imp.currentProcessor != nullptr) {
        outcome.settings = settingsOf(imp);
        outcome.command = imp.currentProcessor->connectCommand;
      }
      outcome.option = std::to_string(info.connectionMask);
      ReleaseChainRecords(imp.jtagChain);
      ReleaseProcessorRecords(imp);
      return outcome;
    };
    const Outcome byName = select(false);
    const Outcome byPath = select(true);
    EXPECT_EQ(byPath.result, row.result);
    EXPECT_EQ(byPath.error, row.message);
    EXPECT_TRUE(byPath == byName);
  }
}

} // namespace
