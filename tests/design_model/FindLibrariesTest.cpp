// What a design lacks, and where that is.
#include <filesystem>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"
#include "ZelDebugDialog/DesignModel/Libraries.h"
#include "support/TemporaryDirectory.h"

namespace ZelDebugDialog {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;

Names linesOf(const std::vector<MissingDocument> &documents) {
  Names lines;
  for (const MissingDocument &document : documents)
    lines.push_back(document.type + " " + document.identity);
  return lines;
}

TEST(LibraryDocument, EndsInXml) {
  for (const char *const path :
       {"a.xml", "a.XML", "lib/a.Xml", "/lib/a.b.xml", "a..xml"})
    EXPECT_TRUE(IsLibraryDocument(path)) << path;
  for (const char *const path :
       {"", "xml", ".xml", "lib/.xml", "axml", "a.xm", "a.xmlx", "a.xml ",
        "a.xml/", "a.xml/b", "a.xml.gz"})
    EXPECT_FALSE(IsLibraryDocument(path)) << path;
}

TEST(Missing, IsWhatIsReferredToAndNotFound) {
  const Reading reading = readFiles(
      {{"top.xml", design("d", instance("a", "gone") + instance("b", "gone") +
                                   instance("c", "box") + instance("d", "cfg") +
                                   instance("e", "old"))},
       {"box.xml", component("box", "", viewOf("nowhere"))},
       {"cfg.xml",
        component("cfg", "",
                  "<ipxact:model><ipxact:views><ipxact:view>"
                  "<ipxact:name>v</ipxact:name>"
                  "<ipxact:designConfigurationInstantiationRef>c"
                  "</ipxact:designConfigurationInstantiationRef>"
                  "</ipxact:view></ipxact:views><ipxact:instantiations>"
                  "<ipxact:designConfigurationInstantiation>"
                  "<ipxact:name>c</ipxact:name>"
                  "<ipxact:designConfigurationRef vendor=\"x\" library=\"y\" "
                  "name=\"config\" version=\"1\"/>"
                  "</ipxact:designConfigurationInstantiation>"
                  "</ipxact:instantiations></ipxact:model>")},
       {"old.xml",
        "<s:component xmlns:s=\"http://www.spiritconsortium.org/XMLSchema/"
        "SPIRIT/1685-2009\"><s:vendor>x</s:vendor><s:library>y</s:library>"
        "<s:name>old</s:name><s:version>1</s:version><s:model><s:views>"
        "<s:view><s:name>v</s:name><s:envIdentifier>a:b:c</s:envIdentifier>"
        "<s:hierarchyRef s:vendor=\"x\" s:library=\"y\" s:name=\"inner\" "
        "s:version=\"1\"/></s:view></s:views></s:model></s:component>"}});
  EXPECT_THAT(linesOf(reading.model.Missing()),
              ElementsAre("component x:y:gone:1", "design x:y:nowhere:1",
                          "designConfiguration x:y:config:1",
                          "design x:y:inner:1"));
}

TEST(Missing, IsNothingOfAWholeDesign) {
  EXPECT_THAT(linesOf(readBeside({{"a.xml", component("a", "")}},
                                 design("d", instance("a", "a")))
                          .model.Missing()),
              IsEmpty());
}

TEST(Missing, CanBeAddedInCode) {
  DesignModel model;
  model.AddMissing({"component", "v:l:n:1"});
  model.AddMissing({"component", "v:l:n:1"});
  model.AddMissing({"design", "v:l:n:1"});
  EXPECT_THAT(linesOf(model.Missing()),
              ElementsAre("component v:l:n:1", "design v:l:n:1"));
}

/// A design in soc/ of a project, that needs "cpu" and "ram".
class FindLibraries : public testing::Test {
protected:
  FindLibraries() {
    folder.write("soc/top.xml", design("top", instance("cpu", "cpu") +
                                                  instance("ram", "ram")));
  }

  LibrarySearch search(const std::string &file = "soc/top.xml",
                       const Names &libraries = {},
                       const LibrarySearchLimits &limits = {}) {
    const DesignSources sources{file, libraries, "", ""};
    DesignModel model;
    ReadDesign(sources, model);
    LibrarySearch result =
        ZelDebugDialog::FindLibraries(sources, model, limits);
    if (!result.folders.empty() && result.missing.empty()) {
      // What is suggested helps.
      const DesignSources more{file, result.folders, "", ""};
      DesignModel whole;
      EXPECT_TRUE(ReadDesign(more, whole));
      EXPECT_THAT(linesOf(whole.Missing()), IsEmpty());
    }
    return result;
  }

  support::TemporaryDirectory folder;
};

struct PlaceRow {
  const char *what;
  Files files; ///< Of components.
  Names folders;
};

TEST_F(FindLibraries, NamesTheFoldersThatHelp) {
  const std::string cpu = component("cpu", "");
  const std::string ram = component("ram", "");
  const PlaceRow rows[] = {
      {"beside", {{"ip/a.xml", cpu}, {"ip/b.xml", ram}}, {"soc", "ip"}},
      {"in folders of one",
       {{"ip/a/1/a.xml", cpu}, {"ip/b/b.xml", ram}},
       {"soc", "ip"}},
      {"in two neighbours",
       {{"ip/a.xml", cpu}, {"mem/b.xml", ram}},
       {"soc", "ip", "mem"}},
      {"one of them in the design's own folder",
       {{"soc/a.xml", cpu}, {"mem/b.xml", ram}},
       {"soc", "mem"}},
      {"in files of capital names",
       {{"ip/a.XML", cpu}, {"ip/b.Xml", ram}},
       {"soc", "ip"}},
      {"in the folder around", {{"a.xml", cpu}, {"b.xml", ram}}, {"."}},
  };
  for (const PlaceRow &row : rows) {
    for (const auto &[name, text] : row.files)
      folder.write(name, text);
    const LibrarySearch found = search();
    EXPECT_EQ(found.folders, row.folders) << row.what;
    EXPECT_THAT(linesOf(found.missing), IsEmpty()) << row.what;
    EXPECT_FALSE(found.isCut);
    for (const auto &[name, text] : row.files)
      fs::remove(name);
  }
}

TEST_F(FindLibraries, TakesTheFolderAroundManyNeighbours) {
  folder.write("soc/top.xml",
               design("top", instance("a", "a") + instance("b", "b") +
                                 instance("c", "c")));
  for (const char *const name : {"a", "b", "c"})
    folder.write("ip_" + std::string(name) + "/x.xml", component(name, ""));
  EXPECT_THAT(search().folders, ElementsAre("."));
}

TEST_F(FindLibraries, GoesUpwards) {
  folder.write("a/b/c/top.xml", design("top", instance("cpu", "cpu")));
  folder.write("ip/cpu.xml", component("cpu", ""));
  EXPECT_THAT(search("a/b/c/top.xml").folders, ElementsAre("a/b/c", "ip"));
  EXPECT_THAT(search("a/b/c/top.xml", {}, {2, 1000, 1000}).folders, IsEmpty());
  EXPECT_THAT(search("a/b/c/top.xml", {}, {3, 1000, 1000}).folders,
              ElementsAre("a/b/c", "ip"));
}

/// What is found lacks more, further inside.
TEST_F(FindLibraries, FollowsAHierarchy) {
  folder.write("soc/top.xml", design("top", instance("box", "box")));
  folder.write("ip/box/box.xml", component("box", "", viewOf("inner")));
  folder.write("ip/box/inner.xml", design("inner", instance("cpu", "cpu")));
  folder.write("cores/cpu/cpu.xml", component("cpu", ""));
  const LibrarySearch found = search();
  EXPECT_THAT(found.folders, ElementsAre("soc", "cores/cpu", "ip/box"));
  EXPECT_THAT(linesOf(found.found),
              ElementsAre("component x:y:box:1", "component x:y:cpu:1"));
}

/// Each reading finds the folder of the next, further outwards: ten of them.
TEST_F(FindLibraries, ReadsTheDesignTenTimes) {
  for (const int levels : {10, 11}) {
    std::string place = "ip";
    for (int level = levels; level > 0; --level) {
      place += "/" + std::to_string(level);
      const std::string name = "box" + std::to_string(level);
      const std::string inner = "inner" + std::to_string(level);
      folder.write(place + "/box.xml", component(name, "", viewOf(inner)));
      const std::string next = "box" + std::to_string(level + 1);
      folder.write(place + "/inner.xml",
                   design(inner, level == levels ? "" : instance("b", next)));
    }
    folder.write("soc/top.xml", design("top", instance("b", "box1")));
    const LibrarySearch found = search();
    const Names missing{"component x:y:box11:1"};
    EXPECT_EQ(linesOf(found.missing), levels == 10 ? Names() : missing);
    EXPECT_EQ(found.found.size(), 10u);
    fs::remove_all("ip");
  }
}

TEST_F(FindLibraries, HelpsAComponentOnTop) {
  folder.write("soc/top.xml", component("top", "", viewOf("inner")));
  folder.write("designs/inner.xml", design("inner", ""));
  EXPECT_THAT(search().folders, ElementsAre("soc", "designs"));
}

TEST_F(FindLibraries, KeepsTheFoldersOfTheLine) {
  folder.write("mine/cpu.xml", component("cpu", ""));
  folder.write("soc/ram.xml", component("ram", ""));
  // The folder of the design is not searched where others are named.
  EXPECT_THAT(search("soc/top.xml", {"mine"}).folders,
              ElementsAre("mine", "soc"));
}

TEST_F(FindLibraries, AnswersInTheFormOfTheDesign) {
  folder.write("ip/a.xml", component("cpu", ""));
  folder.write("ip/b.xml", component("ram", ""));
  const std::string here = fs::canonical(folder.path()).string();
  EXPECT_THAT(search(here + "/soc/top.xml").folders,
              ElementsAre(here + "/soc", here + "/ip"));
}

TEST_F(FindLibraries, SaysWhatIsNowhere) {
  folder.write("ip/a.xml", component("cpu", ""));
  const LibrarySearch found = search("soc/top.xml", {}, {1, 1000, 1000});
  EXPECT_THAT(found.folders, ElementsAre("soc", "ip"));
  EXPECT_THAT(linesOf(found.missing), ElementsAre("component x:y:ram:1"));
  folder.write("soc/top.xml", design("top", instance("ram", "ram")));
  const LibrarySearch none = search("soc/top.xml", {}, {1, 1000, 1000});
  EXPECT_THAT(none.folders, IsEmpty());
  EXPECT_EQ(none.documents, 1u);
  EXPECT_EQ(none.outermost, ".");
}

/// Near misses: another version, another type of document, no document.
TEST_F(FindLibraries, ComparesExactly) {
  folder.write("soc/top.xml", design("top", instance("cpu", "cpu")));
  folder.write("ip/a.xml", component("CPU", ""));
  folder.write("ip/b.xml", design("cpu", ""));
  folder.write("ip/c.xml", "<component><vendor>x</vendor><library>y</library>"
                           "<name>cpu</name><version>1.0</version>"
                           "</component>");
  folder.write("ip/d.xml", "no XML");
  folder.write("ip/e.txt", component("cpu", ""));
  EXPECT_THAT(search("soc/top.xml", {}, {1, 1000, 1000}).folders, IsEmpty());
}

/// Neither links that lead round, nor folders without end.
TEST_F(FindLibraries, IsBounded) {
  fs::create_directory("ip");
  fs::create_directory_symlink("..", "ip/round");
  fs::create_directory_symlink(folder.path(), "ip/again");
  EXPECT_FALSE(search("soc/top.xml", {}, {1, 1000, 1000}).isCut);
  for (int i = 0; i < 50; ++i)
    folder.write("many/" + std::to_string(i) + ".xml",
                 component("c" + std::to_string(i), ""));
  const LibrarySearch few = search("soc/top.xml", {}, {6, 20, 1000});
  EXPECT_TRUE(few.isCut);
  EXPECT_LE(few.documents, 20u);
  const LibrarySearch read = search("soc/top.xml", {}, {6, 1000, 10});
  EXPECT_TRUE(read.isCut);
  EXPECT_EQ(read.documents, 10u);
}

/// Only its beginning is looked at, which may end inside a character.
TEST_F(FindLibraries, KnowsALargeDocumentByItsBeginning) {
  folder.write("soc/top.xml", design("top", instance("cpu", "cpu")));
  for (const std::string front : {"", "a"}) {
    std::string text = front;
    for (int i = 0; i < 20000; ++i)
      text += "\xc3\xa9";
    folder.write("ip/a.xml", component("cpu", "",
                                       "<ipxact:description>" + text +
                                           "</ipxact:description>"));
    EXPECT_THAT(linesOf(search("soc/top.xml", {}, {1, 1000, 1000}).missing),
                IsEmpty());
  }
}

/// The identity ends with the first sixteen kilobytes, or a byte behind.
TEST_F(FindLibraries, LooksAtSixteenKilobytesOfADocument) {
  folder.write("soc/top.xml", design("top", instance("cpu", "cpu")));
  const std::string text = component("cpu", parameters(parameter("P", "1")));
  const std::string end = "</ipxact:version>";
  const std::size_t identity = text.find(end) + end.size();
  const std::string missing = "component x:y:cpu:1";
  for (const std::size_t size : {16384U, 16385U}) {
    const std::string front(size - identity - 7, ' ');
    folder.write("ip/a.xml",
                 "<!--" + front + "-->" + text + std::string(16384, '\n'));
    EXPECT_EQ(linesOf(search("soc/top.xml", {}, {1, 1000, 1000}).missing),
              size == 16384 ? Names() : Names{missing});
  }
}

TEST_F(FindLibraries, LooksIntoNothingHidden) {
  folder.write(".cache/a.xml", component("cpu", ""));
  folder.write("ip/ram.xml", component("ram", ""));
  EXPECT_THAT(linesOf(search("soc/top.xml", {}, {1, 1000, 1000}).missing),
              ElementsAre("component x:y:cpu:1"));
}

TEST_F(FindLibraries, HasNothingToDoForAWholeDesign) {
  folder.write("soc/a.xml", component("cpu", ""));
  folder.write("soc/b.xml", component("ram", ""));
  EXPECT_EQ(search().documents, 0u);
}

} // namespace
} // namespace ZelDebugDialog
