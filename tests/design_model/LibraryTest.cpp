// Where components are found.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MemorySource.h"
#include "Reading.h"
#include "elaboration/ReadDesignFrom.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string top = design("d", instance("u", "t"));

Reading readFrom(const Files &files, const Names &places) {
  DesignSources sources;
  sources.designFile = "top.xml";
  sources.libraryFolders = places;
  return readFrom(files, sources);
}

/// A component that tells by its parameter which one was taken.
std::string marked(const std::string &mark) {
  return component("t", "",
                   parameters(parameter("MARK", mark, "type=\"string\"")));
}

std::string markOf(Reading &reading) {
  return reading.model.getParameterValue("u", "MARK");
}

std::string catalog(const std::string &sections) {
  return "<catalog xmlns=\"http://www.accellera.org/XMLSchema/IPXACT/"
         "1685-2014\">"
         "<vendor>x</vendor><library>y</library><name>c</name>"
         "<version>1</version>\n" +
         sections + "</catalog>";
}

std::string entries(const std::string &section, const Names &files,
                    const std::string &name = "t") {
  std::string text = "<" + section + ">\n";
  for (const std::string &file : files)
    text += "<ipxactFile><vlnv vendor=\"x\" library=\"y\" name=\"" + name +
            "\" version=\"1\"/><name>" + file + "</name></ipxactFile>\n";
  return text + "</" + section + ">\n";
}

TEST(Library, IsTheFolderOfTheDesignUnlessFoldersAreNamed) {
  const Files files = {{"top.xml", top},
                       {"near/t.xml", marked("near")},
                       {"far/deep/t.xml", marked("far")}};
  Reading here = readFrom(files, {});
  EXPECT_EQ(markOf(here), "far");
  Reading near = readFrom(files, {"near"});
  EXPECT_EQ(markOf(near), "near");
  EXPECT_THAT(near.diagnostics(), IsEmpty());
}

TEST(Library, KeepsTheFirstOfTwoInTheOrderOfPaths) {
  const Files files = {{"top.xml", top},
                       {"b/t.xml", marked("b")},
                       {"a/t.xml", marked("a")},
                       {"c/t.xml", marked("c")}};
  for (const Names &places : {Names{"."}, Names{"c", "b", "a"}}) {
    Reading reading = readFrom(files, places);
    EXPECT_EQ(markOf(reading), "a");
    EXPECT_THAT(
        reading.diagnostics(),
        ElementsAre("warning b/t.xml:1: component 'x:y:t:1' is in 'a/t.xml' as "
                    "well as in 'b/t.xml'; the first is taken",
                    "warning c/t.xml:1: component 'x:y:t:1' is in 'a/t.xml' as "
                    "well as in 'c/t.xml'; the first is taken"));
  }
}

TEST(Library, SearchesAFolderOnce) {
  const Reading reading =
      readFrom({{"top.xml", top}, {"a/t.xml", marked("a")}}, {"a", "a", "."});
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Library, HasToBeThere) {
  const Reading reading = readFrom({{"top.xml", top}}, {"nowhere"});
  EXPECT_FALSE(reading.isRead);
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error nowhere:0: there is no such library folder or "
                          "catalog"));
}

TEST(Library, IsNoOtherFile) {
  for (const std::string &text : {std::string("\n<component/>"), top}) {
    const Reading reading =
        readFrom({{"top.xml", top}, {"c.xml", text}}, {"c.xml"});
    EXPECT_FALSE(reading.isRead);
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre(HasSubstr("it is neither a library folder nor a "
                                      "catalog")));
  }
}

TEST(Library, ComparesIdentitiesExactly) {
  const char *const others[] = {
      "vendor='X' library='y' name='t' version='1'",
      "vendor='x' library='' name='t' version='1'",
      "vendor='x' library='y' name='t' version='1.0'",
      "vendor='x' library='y' name='tt' version='1'",
      "library='y' name='t' version='1'",
  };
  for (const char *const reference : others) {
    Reading reading = readFrom(
        {{"top.xml",
          "<design><componentInstances><componentInstance>\n<instanceName>u"
          "</instanceName>\n<componentRef " +
              std::string(reference) +
              "/></componentInstance></componentInstances></design>"},
         {"t.xml", marked("here")}},
        {});
    EXPECT_TRUE(reading.isRead);
    EXPECT_THAT(reading.instances(), ElementsAre("u"));
    EXPECT_EQ(markOf(reading), "") << reference;
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre(testing::AllOf(
                    testing::StartsWith("error top.xml:3: instance 'u': "
                                        "component '"),
                    testing::EndsWith("' is not found"))));
  }
}

TEST(Library, KnowsTypesApart) {
  Reading reading = readFrom(
      {{"top.xml", top}, {"a.xml", design("t", "")}, {"t.xml", marked("here")}},
      {});
  EXPECT_EQ(markOf(reading), "here");
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

/// Whether they are there, twice, broken, or named as a component is.
TEST(Library, NeedsNoDefinitionsOfBuses) {
  const std::string type =
      "<ipxact:busType vendor='x' library='y' name='t' version='1'/>"
      "<ipxact:abstractionTypes><ipxact:abstractionType><ipxact:abstractionRef "
      "vendor='x' library='y' name='gone' version='1'/>"
      "</ipxact:abstractionType></ipxact:abstractionTypes>";
  const std::string definition =
      "<vendor>x</vendor><library>y</library><name>t</name>"
      "<version>1</version><isAddressable>true</isAddressable>";
  const Files files = {
      {"top.xml", design("d", instance("c", "lumacore") + instance("u", "t"),
                         connection("wire", {"c.bus", "u.bus"}))},
      {"c.xml",
       component("lumacore", interface("bus", "<ipxact:master/>", type))},
      {"t.xml", component("t", interface("bus", "<ipxact:slave/>", type))}};
  Files more = files;
  more["a.xml"] = "<busDefinition>" + definition + "</busDefinition>";
  more["b.xml"] = more["a.xml"];
  more["d.xml"] = "<abstractionDefinition>" + definition + "<ports>";
  for (const Files &read : {files, more}) {
    Reading reading = readFrom(read, {});
    EXPECT_THAT(reading.peripherals("c"), ElementsAre("u"));
    EXPECT_THAT(reading.diagnostics(), IsEmpty());
  }
}

TEST(Library, SpeaksOfFilesThatLookLikeDocuments) {
  const Reading reading = readFrom(
      {{"top.xml", top},
       {"t.xml", marked("here")},
       {"a.xml", "not\nxml"},
       {"b.xml", "<html/>"},
       {"c.xml", "\n<component><vendor>x</vendor></component>"},
       {"d.xml", "<busDefinition/>"},
       {"e.xml", "<component><vendor>x</vendor><library>y</library>"
                 "<name>e</name><version>1</version><oops></component>"},
       {"f.xml", "<component><vendor>x</vendor>\n<library>y</libary>"
                 "<name>f</name><version>1</version></component>"},
       {"g.xml", "\n<design><vendor>x</vendor><oops></design>"},
       {"h.xml", "<designConfiguration>\n\n<vendor>x</oops>"},
       {"i.xml", "<design></design>"},
       {"j.xml", "<busDefinition><oops></busDefinition>"}},
      {});
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("warning a.xml:2: it is not XML: No document element found",
                  "warning c.xml:2: the component lacks a part of its identity "
                  "'x:::'; nothing can refer to it",
                  "warning f.xml:2: it is not XML: Start-end tags mismatch",
                  "warning g.xml:2: it is not XML: Start-end tags mismatch",
                  "warning h.xml:3: it is not XML: Start-end tags mismatch"));
}

TEST(Library, ReportsABrokenComponentWhenItIsNeeded) {
  const Reading reading = readFrom(
      {{"top.xml", top},
       {"t.xml", "<component><vendor>x</vendor><library>y</library>\n"
                 "<name>t</name><version>1</version><oops></component>"}},
      {});
  EXPECT_TRUE(reading.isRead);
  EXPECT_THAT(reading.instances(), ElementsAre("u"));
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("error t.xml:2: it is not XML: Start-end tags mismatch",
                  "error top.xml:4: instance 'u': component 'x:y:t:1' is not "
                  "found"));
}

TEST(Library, FindsIdentitiesInLargeFiles) {
  const std::string filler(50000, ' ');
  std::string behind = marked("behind");
  behind.insert(behind.find("</ipxact:component>"), filler);
  Reading first = readFrom({{"top.xml", top}, {"t.xml", behind}}, {});
  EXPECT_EQ(markOf(first), "behind");
  Reading second = readFrom(
      {{"top.xml", top}, {"t.xml", "<!--" + filler + "-->" + marked("before")}},
      {});
  EXPECT_EQ(markOf(second), "before");
  // The first part of the file ends inside the version.
  for (std::size_t length = 16300; length < 16384; ++length) {
    Reading cut = readFrom({{"top.xml", top},
                            {"t.xml", "<!--" + std::string(length - 170, ' ') +
                                          "-->" + marked("cut") + filler}},
                           {});
    ASSERT_EQ(markOf(cut), "cut") << length;
  }
}

/// Notes how much of a file is read.
class CountingSource : public MemorySource {
public:
  std::string read(const std::string &path, std::size_t most,
                   std::string &text) const override {
    std::string fault = MemorySource::read(path, most, text);
    bytes[path].push_back(text.size());
    return fault;
  }
  mutable std::map<std::string, std::vector<std::size_t>> bytes;
};

/// Of what a design does not need, the beginning tells what it is.
TEST(Library, ReadsSixteenKilobytesOfWhatIsNotNeeded) {
  constexpr std::size_t head = 16384;
  std::string other = component("other", "", parameters(parameter("P", "1")));
  other.insert(other.find("</ipxact:component>"), 5 * head, ' ');
  CountingSource source;
  const std::string text = marked("t");
  source.files = {{"top.xml", top}, {"a.xml", text}, {"o.xml", other}};
  DesignSources sources;
  sources.designFile = "top.xml";
  DesignModel model;
  EXPECT_TRUE(readDesignFrom(source, sources, limitsOf(1), model));
  EXPECT_THAT(model.Diagnostics(), IsEmpty());
  EXPECT_THAT(source.bytes["o.xml"], ElementsAre(head));
  EXPECT_THAT(source.bytes["a.xml"], ElementsAre(text.size(), text.size()));
}

/// Has files that nobody may read, and folders that nobody may search.
class ClosedSource : public MemorySource {
public:
  std::string read(const std::string &path, std::size_t most,
                   std::string &text) const override {
    return path == "closed.xml" ? "nobody may read it"
                                : MemorySource::read(path, most, text);
  }
  std::vector<FolderFault>
  list(const std::string &folder,
       std::vector<std::string> &found) const override {
    std::vector<FolderFault> faults = MemorySource::list(folder, found);
    faults.push_back({"closed", "nobody may search it", false});
    return faults;
  }
};

TEST(Library, SaysWhatCannotBeRead) {
  const auto diagnosticsOf = [](const Names &places) {
    ClosedSource source;
    source.files = {{"top.xml", top},
                    {"t.xml", marked("t")},
                    {"closed.xml", marked("closed")},
                    {"closed/t.xml", marked("t")}};
    DesignSources sources;
    sources.designFile = "top.xml";
    sources.libraryFolders = places;
    Reading reading;
    reading.isRead =
        readDesignFrom(source, sources, limitsOf(1), reading.model);
    Names lines = reading.diagnostics();
    lines.insert(lines.begin(), reading.isRead ? "read" : "not read");
    return lines;
  };
  EXPECT_THAT(
      diagnosticsOf({"closed.xml"}),
      ElementsAre("not read", "error closed.xml:0: nobody may read it"));
  EXPECT_THAT(diagnosticsOf({"closed"}),
              ElementsAre("not read", "error closed:0: nobody may search it"));
  EXPECT_THAT(
      diagnosticsOf({"."}),
      ElementsAre("read", "warning closed:0: nobody may search it",
                  "warning closed.xml:0: nobody may read it",
                  "warning t.xml:1: component 'x:y:t:1' is in 'closed/t.xml' "
                  "as well as in 't.xml'; the first is taken"));
}

TEST(Catalog, SaysWhereFilesAre) {
  Reading reading = readFrom(
      {{"top.xml", top},
       {"lib/index.xml", catalog(entries("components", {"../parts/t.xml"}))},
       {"parts/t.xml", marked("listed")}},
      {"lib/index.xml"});
  EXPECT_EQ(markOf(reading), "listed");
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Catalog, MayNameFilesByTheirScheme) {
  Reading reading = readFrom(
      {{"top.xml", top},
       {"index.xml", catalog(entries("components", {"file:///parts/t.xml"}))},
       {"/parts/t.xml", marked("listed")}},
      {"index.xml"});
  EXPECT_EQ(markOf(reading), "listed");
}

TEST(Catalog, NamesFilesInAllFormsOfAUri) {
  for (const char *const name :
       {"my core.xml", "my%20core.xml", "file:my%20core.xml",
        "file:/parts/t%2exml", "file://localhost/parts/t.xml",
        "file:////parts/t.xml", "100%.xml", "a%2.xml", "b%20.xml"}) {
    Reading reading =
        readFrom({{"top.xml", top},
                  {"index.xml", catalog(entries("components", {name}))},
                  {"my core.xml", marked("listed")},
                  {"/parts/t.xml", marked("listed")},
                  {"100%.xml", marked("listed")},
                  {"a%2.xml", marked("listed")},
                  {"b .xml", marked("decoded")},
                  {"b%20.xml", marked("listed")}},
                 {"index.xml"});
    EXPECT_EQ(markOf(reading), "listed") << name;
    EXPECT_THAT(reading.diagnostics(), IsEmpty());
  }
}

TEST(Catalog, ReplacesNoVariables) {
  const Reading reading =
      readFrom({{"top.xml", top},
                {"index.xml", catalog(entries("components", {"${IP}/t.xml"}))}},
               {"index.xml"});
  EXPECT_THAT(reading.diagnostics(),
              testing::Contains(
                  "warning index.xml:3: there is no file '${IP}/t.xml' "
                  "for component 'x:y:t:1'; no variable of the environment "
                  "is put in"));
}

TEST(Catalog, IsFoundInAFolderAndGoesFirst) {
  Reading reading =
      readFrom({{"top.xml", top},
                {"a/t.xml", marked("found")},
                {"a/index.xml", catalog(entries("components", {"../t.xml"}))},
                {"t.xml", marked("listed")}},
               {"a"});
  EXPECT_EQ(markOf(reading), "listed");
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Catalog, NamesOthersAndItself) {
  Reading reading = readFrom(
      {{"top.xml", top},
       {"a/1.xml", catalog(entries("catalogs", {"../b/2.xml", "1.xml"}, "c"))},
       {"b/2.xml", catalog(entries("catalogs", {"3.xml", "../a/1.xml"}, "c"))},
       {"b/3.xml", catalog(entries("components", {"t.xml"}))},
       {"b/t.xml", marked("deep")}},
      {"a/1.xml"});
  EXPECT_EQ(markOf(reading), "deep");
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Catalog, MayBeWrong) {
  Reading reading = readFrom(
      {{"top.xml", top},
       {"lib/index.xml",
        catalog(entries("catalogs", {"wrong.xml", "bad.xml"}, "c") +
                entries("components", {"gone.xml", "wrong.xml", "t.xml"}))},
       {"lib/wrong.xml", component("other", "")},
       {"lib/bad.xml", "<catalog>"},
       {"lib/t.xml", marked("searched")}},
      {"lib"});
  EXPECT_EQ(markOf(reading), "searched");
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre(
          HasSubstr("warning lib/bad.xml:1: it is not XML"),
          "warning lib/index.xml:7: there is no file 'gone.xml' for component "
          "'x:y:t:1'",
          "warning lib/wrong.xml:1: it is no catalog",
          "warning lib/index.xml:9: component 'x:y:t:1' is in 'lib/wrong.xml' "
          "as well as in 'lib/t.xml'; the first is taken",
          "error lib/wrong.xml:1: it should hold component 'x:y:t:1', but "
          "holds component 'x:y:other:1'"));
}

TEST(Catalog, ListsOtherDocumentsToo) {
  const Reading reading = readFrom(
      {{"top.xml",
        "<component><vendor>x</vendor><library>y</library><name>top</name>"
        "<version>1</version><model><views><view><name>v</name>"
        "<designConfigurationInstantiationRef>c"
        "</designConfigurationInstantiationRef></view></views>"
        "<instantiations><designConfigurationInstantiation><name>c</name>"
        "<designConfigurationRef vendor='x' library='y' name='c' version='1'/>"
        "</designConfigurationInstantiation></instantiations></model>"
        "</component>"},
       {"index.xml",
        catalog(entries("busDefinitions", {"missing.xml"}, "b") +
                entries("components", {"lib/t.xml"}) +
                entries("designs", {"lib/d.xml"}, "d") +
                entries("designConfigurations", {"lib/c.xml"}, "c"))},
       {"lib/t.xml", marked("listed")},
       {"lib/d.xml", top},
       {"lib/c.xml",
        "<designConfiguration><vendor>x</vendor><library>y</library>"
        "<name>c</name><version>1</version><designRef vendor='x' library='y' "
        "name='d' version='1'/></designConfiguration>"}},
      {"index.xml"});
  EXPECT_THAT(reading.instances(), ElementsAre("u"));
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

} // namespace
} // namespace ZelDebugDialog
