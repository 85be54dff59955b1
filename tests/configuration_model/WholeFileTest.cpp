// A file that is written is there wholly or not at all.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "ZelDebugDialog/ConfigurationModel/Files.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryDirectory.h"

namespace {

namespace fs = std::filesystem;
using namespace ZelDebugDialog;

class WholeFileTest : public testing::Test {
protected:
  std::string at(const std::string &name) const {
    return (folder.path() / name).string();
  }
  static std::string contentOf(const std::string &path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
  }
  /// "file-exists: problem", or nothing.
  static std::string refusalOf(const std::string &path, const std::string &text,
                               ExistingFile existing) {
    try {
      WriteWholeFile(path, text, existing);
    } catch (const Refusal &refusal) {
      return std::string(ShowKind(refusal.kind)) + ": " + refusal.problem;
    }
    return "";
  }
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const fs::directory_entry &entry :
         fs::directory_iterator(folder.path()))
      names.push_back(entry.path().filename().string());
    return names;
  }

  support::TemporaryDirectory folder;
};

TEST_F(WholeFileTest, IsWrittenReplacedAndLeftAlone) {
  const std::string file = at("table");
  const std::string text("a\r\n\0b", 5);
  EXPECT_TRUE(WriteWholeFile(file, text, ExistingFile::refuse));
  EXPECT_EQ(contentOf(file), text);
  fs::permissions(file, fs::perms::owner_read);
  const auto before = fs::last_write_time(file);
  EXPECT_FALSE(WriteWholeFile(file, text, ExistingFile::refuse));
  EXPECT_EQ(fs::last_write_time(file), before);
  EXPECT_EQ(refusalOf(file, "other", ExistingFile::refuse),
            "file-exists: there is a file of that name");
  EXPECT_EQ(contentOf(file), text);
  EXPECT_TRUE(WriteWholeFile(file, "", ExistingFile::replace));
  EXPECT_EQ(contentOf(file), "");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read);
  EXPECT_EQ(names(), std::vector<std::string>{"table"});
}

TEST_F(WholeFileTest, IsReplacedWhateverItDiffersIn) {
  const std::string file = at("table");
  const std::vector<std::string> texts{"",
                                       "a",
                                       "ab",
                                       "aB",
                                       std::string("a\0", 2),
                                       "abc",
                                       std::string(70000, 'a'),
                                       std::string(70000, 'a') + "b"};
  for (const std::string &before : texts)
    for (const std::string &text : texts) {
      WriteWholeFile(file, before, ExistingFile::replace);
      EXPECT_EQ(WriteWholeFile(file, text, ExistingFile::replace),
                text != before);
      EXPECT_EQ(contentOf(file), text);
    }
}

TEST_F(WholeFileTest, ReplacesFilesOnly) {
  fs::create_directory(at("folder"));
  fs::create_symlink("nowhere", at("nothing"));
  std::ofstream(at("target")) << "old";
  fs::create_symlink("target", at("link"));
  const struct {
    std::string path;
    std::string refusal;
  } rows[] = {
      {at("folder"), "no-regular-file: is a folder, no file"},
      {at("nothing"), "no-regular-file: is a link to nothing"},
      {"/dev/null", "no-regular-file: is no regular file"},
      {at("none/file"), "no-folder: there is no such folder"},
      {at("target/file"), "no-folder: is a file, no folder"},
      {"", "no-regular-file: is no name of a file"},
      {at("a") + std::string(1, '\0'), "no-regular-file: is no name of a file"},
  };
  for (const auto &row : rows)
    EXPECT_EQ(refusalOf(row.path, "new", ExistingFile::replace), row.refusal)
        << row.path;
  EXPECT_TRUE(WriteWholeFile(at("link"), "new", ExistingFile::replace));
  EXPECT_TRUE(fs::is_symlink(at("link")));
  EXPECT_EQ(contentOf(at("target")), "new");
  EXPECT_EQ(names().size(), 4U);
}

TEST_F(WholeFileTest, IsAsItWasWhereThereIsNoRoom) {
  const std::string file = at("table");
  WriteWholeFile(file, "old", ExistingFile::refuse);
  {
    const support::FileSizeLimit limit(10);
    EXPECT_EQ(refusalOf(file, std::string(100, 'n'), ExistingFile::replace),
              "file-system: it could not be written whole: no space left, or "
              "a limit on the size of files");
  }
  EXPECT_EQ(contentOf(file), "old");
  EXPECT_EQ(names(), std::vector<std::string>{"table"});
}

TEST_F(WholeFileTest, IsAlwaysOneOfThoseThatWriteIt) {
  const std::string file = at("table");
  const auto textOf = [](char letter) { return std::string(100'000, letter); };
  WriteWholeFile(file, textOf('a'), ExistingFile::refuse);
  const auto write = [&](char letter) {
    for (int round = 0; round < 20; ++round)
      WriteWholeFile(file, textOf(letter), ExistingFile::replace);
  };
  std::thread first(write, 'a');
  std::thread second(write, 'b');
  for (int round = 0; round < 200; ++round) {
    const std::string text = contentOf(file);
    ASSERT_EQ(text.size(), 100'000U);
    ASSERT_EQ(text, textOf(text.front()));
  }
  first.join();
  second.join();
  EXPECT_EQ(names(), std::vector<std::string>{"table"});
}

TEST_F(WholeFileTest, WhoHasTheLockIsAlone) {
  const std::string file = at("table");
  fs::create_symlink("table", at("link"));
  const auto refusalOfLock = [](const std::string &path) {
    try {
      const ZelDebugDialog::FileLock lock(path, std::chrono::seconds(0));
    } catch (const Refusal &refusal) {
      return std::string(ShowKind(refusal.kind));
    }
    return std::string();
  };
  EXPECT_EQ(refusalOfLock(at("none/file")), "no-folder");
  EXPECT_EQ(refusalOfLock(""), "no-regular-file");
  {
    const ZelDebugDialog::FileLock lock(file);
    EXPECT_TRUE(fs::exists(at(".table.lock")));
    EXPECT_EQ(refusalOfLock(file), "file-system");
    EXPECT_EQ(refusalOfLock(at("link")), "no-regular-file");
    EXPECT_EQ(refusalOfLock(at("other")), "");
    EXPECT_TRUE(WriteWholeFile(lock, "new", ExistingFile::refuse));
    EXPECT_FALSE(WriteWholeFile(lock, "new", ExistingFile::refuse));
    EXPECT_THROW(WriteWholeFile(lock, "other", ExistingFile::refuse), Refusal);
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(refusalOfLock(at("link")), "file-system");
    EXPECT_TRUE(WriteWholeFile(lock, "other", ExistingFile::replace));
  }
  EXPECT_EQ(contentOf(file), "other");
  EXPECT_EQ(names().size(), 2U);
  EXPECT_EQ(refusalOfLock(at("link")), "");
}

TEST_F(WholeFileTest, TheLockOfAHiddenFileHasOneDot) {
  const ZelDebugDialog::FileLock lock(at(".table"));
  EXPECT_EQ(names(), std::vector<std::string>{".table.lock"});
}

} // namespace
