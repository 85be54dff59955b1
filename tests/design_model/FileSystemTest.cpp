// Documents in the file system, and what else stands there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Reading.h"
#include "support/ManyOrFew.h"
#include "xml/DocumentSource.h"

namespace ZelDebugDialog {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

/// A folder of its own, gone afterwards.
class FileSystem : public testing::Test {
protected:
  FileSystem() {
    std::string pattern =
        (fs::temp_directory_path() / "design-XXXXXX").string();
    if (mkdtemp(pattern.data()) != nullptr)
      folder = pattern;
  }
  ~FileSystem() override { fs::remove_all(folder); }
  FileSystem(const FileSystem &) = delete;
  FileSystem &operator=(const FileSystem &) = delete;

  std::string write(const std::string &name, const std::string &text) {
    const fs::path path = folder / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }

  bool read(const std::string &file, const Names &places = {}) {
    DesignSources sources;
    sources.designFile = file;
    sources.libraryFolders = places;
    reading.isRead = ReadDesign(sources, reading.model);
    return reading.isRead;
  }

  fs::path folder;
  Reading reading;
};

const std::string top = design("d", instance("u", "t"));

TEST_F(FileSystem, IsSearchedBelowTheDesign) {
  write("a/b/T.XML", component("t", ""));
  write("a/t.xml.bak", component("t", ""));
  write("a/xml", component("t", ""));
  EXPECT_TRUE(read(write("top.xml", top)));
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST_F(FileSystem, MayHoldThingsThatAreNoFiles) {
  write("t.xml", component("t", ""));
  const std::string file = write("top.xml", top);
  fs::create_directory(folder / "folder.xml");
  fs::create_symlink("nowhere", folder / "lost.xml");
  fs::create_directory_symlink(folder, folder / "round");
  ASSERT_EQ(mkfifo((folder / "fifo.xml").c_str(), 0600), 0);
  EXPECT_TRUE(read(file));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("note " + (folder / "round").string() +
                          ":0: it is a link to a folder, and not followed"));
  // One that is named is meant.
  EXPECT_TRUE(read(file, {(folder / "round").string()}));
  EXPECT_EQ(reading.instances(), Names{"u"});
}

TEST_F(FileSystem, HoldsDesignsInRegularFilesOnly) {
  ASSERT_EQ(mkfifo((folder / "fifo.xml").c_str(), 0600), 0);
  EXPECT_FALSE(read((folder / "fifo.xml").string()));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(EndsWith("/fifo.xml:0: it is no regular file")));
  EXPECT_FALSE(read(folder.string()));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(EndsWith(":0: it is no regular file")));
  EXPECT_FALSE(read((folder / "none.xml").string()));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(EndsWith("/none.xml:0: there is no such file")));
  EXPECT_FALSE(read(write("empty.xml", "")));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(EndsWith("/empty.xml:1: it is not XML: No document "
                                   "element found")));
}

TEST_F(FileSystem, HoldsFilesOfABoundedSize) {
  const std::string file = write("large.xml", "");
  fs::resize_file(file, (std::uintmax_t{1} << 30) + 1);
  EXPECT_FALSE(read(file));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(EndsWith(":0: it is larger than 1024 MiB")));
}

/// A root may read whatever is there, but not without a descriptor.
TEST_F(FileSystem, HoldsFilesThatCannotBeOpened) {
  const std::string file = write("top.xml", top);
  rlimit before = {};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  rlimit none = before;
  none.rlim_cur = 0;
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  std::string text;
  const std::string fault =
      FileSystemSource().read(file, DocumentSource::whole, text);
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_EQ(fault, "it can not be read");
  EXPECT_EQ(FileSystemSource().read(file, DocumentSource::whole, text), "");
  EXPECT_EQ(text, top);
}

/// Nulls take no room on the disk, blanks are most of some real files.
TEST_F(FileSystem, MayHoldLargeFiles) {
  const std::size_t size = support::manyOrFew<std::size_t>(100, 1) << 20;
  const std::string nulls = write("nulls.xml", "");
  fs::resize_file(nulls, size);
  EXPECT_FALSE(read(nulls));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error " + nulls +
                          ":1: it holds a null byte, which XML does not"));
  write("t.xml", component("t", ""));
  std::string text = top;
  text.insert(text.find("<ipxact:componentInstances>"), size, ' ');
  EXPECT_TRUE(read(write("top.xml", text)));
  EXPECT_THAT(reading.instances(), ElementsAre("u"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning " + nulls +
                          ":1: it holds a null byte, which XML does not"));
}

TEST_F(FileSystem, KnowsAFileByTwoNames) {
  write("t.xml", component("t", ""));
  fs::create_symlink("t.xml", folder / "u.xml");
  EXPECT_TRUE(read(write("top.xml", top),
                   {folder.string(), (folder / "." / "").string()}));
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

/// Why folders can't be searched, "path: reason" each.
Names faultsOf(const fs::path &folder, Names &files) {
  Names lines;
  for (const FolderFault &fault :
       FileSystemSource().list(folder.string(), files))
    lines.push_back(fault.folder + ": " + fault.reason);
  return lines;
}

TEST_F(FileSystem, SaysWhyAFolderCannotBeSearched) {
  Names files;
  EXPECT_THAT(faultsOf(folder / "none", files),
              ElementsAre(EndsWith("/none: it can not be searched: No such "
                                   "file or directory")));
  EXPECT_THAT(faultsOf(write("file", ""), files),
              ElementsAre(EndsWith("/file: it can not be searched: Not a "
                                   "directory")));
  EXPECT_THAT(files, IsEmpty());
}

/// Whatever has failed before.
TEST_F(FileSystem, CanBeSearchedBehindAnError) {
  const std::string file = write("top.xml", top);
  Names files;
  errno = EIO;
  EXPECT_THAT(faultsOf(folder, files), IsEmpty());
  EXPECT_THAT(files, ElementsAre(file));
}

/// A root may read whatever is there; somebody else is asked.
class ForeignUser {
public:
  ForeignUser() : isOther(geteuid() != 0 || seteuid(nobody) == 0) {}
  ~ForeignUser() {
    if (geteuid() == nobody) {
      EXPECT_EQ(seteuid(0), 0);
    }
  }
  ForeignUser(const ForeignUser &) = delete;
  ForeignUser &operator=(const ForeignUser &) = delete;

  const bool isOther;

private:
  static constexpr uid_t nobody = 65534;
};

TEST_F(FileSystem, HasFoldersThatMayNotBeRead) {
  const std::string file = write("top.xml", top);
  write("ip/t.xml", component("t", ""));
  write("ip/closed/t.xml", component("t", ""));
  const fs::path closed = folder / "ip" / "closed";
  fs::permissions(folder, fs::perms::all);
  // Its names can be listed, and no more.
  fs::permissions(closed, fs::perms::owner_read | fs::perms::group_read |
                              fs::perms::others_read);
  {
    const ForeignUser user;
    ASSERT_TRUE(user.isOther);
    EXPECT_TRUE(read(file, {(folder / "ip").string()}));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("warning " + (closed / "t.xml").string() +
                            ":0: it can not be read"));
  }
  fs::permissions(closed, fs::perms::none);
  {
    const ForeignUser user;
    ASSERT_TRUE(user.isOther);
    EXPECT_TRUE(read(file, {(folder / "ip").string()}));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("warning " + closed.string() +
                            ":0: it can not be searched: Permission denied"));
    EXPECT_FALSE(read(file, {closed.string()}));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("error " + closed.string() +
                            ":0: it can not be searched: Permission denied"));
    const std::string inner = (closed / "t.xml").string();
    EXPECT_FALSE(read(file, {inner}));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("error " + inner + ":0: it can not be read"));
    EXPECT_FALSE(read(inner));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("error " + inner +
                            ":0: it can not be read: Permission denied"));
  }
  fs::permissions(closed, fs::perms::owner_all);
}

TEST(Paths, AreSeenFromAFolder) {
  EXPECT_EQ(folderOf("a/b.xml"), "a");
  EXPECT_EQ(folderOf("b.xml"), ".");
  EXPECT_EQ(folderOf("/b.xml"), "/");
  EXPECT_EQ(resolvePath("a/b", "../c.xml"), "a/c.xml");
  EXPECT_EQ(resolvePath("a", "/c.xml"), "/c.xml");
  EXPECT_EQ(resolvePath(".", "c.xml"), "c.xml");
}

} // namespace
} // namespace ZelDebugDialog
