// What the files say, and where.
#include <filesystem>

#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

TEST(Reading, KnowsThePlaceOfEveryValue) {
  const Project project = read("view = 'debug'\n"
                               "[settings]\n"
                               "debugDevice = 0x3\n"
                               "  cable.frequency   =  \"3 MHz\" # of board\n"
                               "[processor.\"a*\".cable]\n"
                               "port = \"LPT9\"\n"
                               "[type.lumacore]\n"
                               "unset = [ \"cable.esn\" ]\n");
  EXPECT_THAT(shown(project.faults),
              ElementsAre("zeldebug.toml:7:8 desk-setting"));
  EXPECT_EQ(shown(project.project.design->place), "zeldebug.toml:1:10");
  EXPECT_EQ(shown(project.project.view->place), "zeldebug.toml:2:8");
  ASSERT_EQ(project.project.block.size(), 3U);
  const ProjectTable &all = project.project.block[0];
  ASSERT_EQ(all.values.size(), 2U);
  EXPECT_EQ(all.values[0].value, Value(3));
  EXPECT_EQ(shown(all.values[0].place), "zeldebug.toml:4:15");
  EXPECT_EQ(all.values[1].setting, "cable.frequency");
  EXPECT_EQ(all.values[1].value, Value(3000000));
  EXPECT_EQ(shown(all.values[1].place), "zeldebug.toml:5:24");
  const ProjectTable &pattern = project.project.block[1];
  EXPECT_EQ(pattern.scope, ProjectScope::pattern);
  EXPECT_EQ(pattern.name, "a*");
  EXPECT_EQ(shown(pattern.place), "zeldebug.toml:6:12");
  const ProjectTable &type = project.project.block[2];
  EXPECT_EQ(type.scope, ProjectScope::type);
  ASSERT_EQ(type.unset.size(), 1U);
  EXPECT_EQ(type.unset[0].text, "cable.esn");
  EXPECT_EQ(shown(type.unset[0].place), "zeldebug.toml:9:11");
}

TEST(Reading, KnowsThePlaceOfEachFieldOfADevice) {
  const Project project = read(
      "[settings]\nchain = [\n"
      "  { devicenr = 1, partname = \"p\", irlength = 6, idcode = 0x93 },\n"
      "]\n");
  EXPECT_THAT(shown(project.faults), IsEmpty());
  const ProjectValue &chain = project.project.block[0].values[0];
  EXPECT_EQ(shown(chain.place), "zeldebug.toml:3:9");
  ASSERT_EQ(chain.devices.size(), 1U);
  ASSERT_EQ(chain.devices[0].size(), 4U);
  EXPECT_EQ(chain.devices[0][3].first, "idcode");
  EXPECT_EQ(shown(chain.devices[0][3].second), "zeldebug.toml:4:58");
  EXPECT_EQ(chain.value.Devices().size(), 1U);
}

TEST(Reading, TakesTheSameOfEveryNotation) {
  const auto valuesOf = [](const std::string &text) {
    std::vector<std::pair<std::string, Value>> values;
    const Project project = read(text);
    EXPECT_THAT(shown(project.faults), IsEmpty()) << text;
    for (const ProjectTable &table : project.project.block)
      for (const ProjectValue &value : table.values)
        values.emplace_back(value.setting, value.value);
    return values;
  };
  const auto expected = valuesOf("[settings]\ncable.frequency = 3000000\n");
  EXPECT_EQ(expected.size(), 1U);
  for (const char *text : {"[settings.cable]\nfrequency = 3_000_000",
                           "settings.cable.frequency = 0x2DC6C0",
                           "settings = { cable = { frequency = \"3MHz\" } }",
                           "settings = { cable.frequency = \"3000 kHz\" }",
                           "[settings]\ncable = { frequency = \"3 MHz\" }\r\n"})
    EXPECT_EQ(valuesOf(text), expected) << text;
}

TEST(Reading, DoesNotCountAMarkInFront) {
  const Project project = ReadProjectTexts(projectFileName,
                                           "\xEF\xBB\xBF"
                                           "design = \"b.xml\"\n",
                                           {});
  EXPECT_THAT(shown(project.faults), IsEmpty());
  EXPECT_EQ(project.project.design->place.column, 10);
}

TEST(Reading, PathsAreOfTheFolderOfTheirFile) {
  const Project project = ReadProjectTexts(
      "a/b/zeldebug.toml",
      "design = \"../board.xml\"\nlibrary = [\"lib\", \"/abs\"]\n", {});
  EXPECT_EQ(project.Design(), "a/board.xml");
  EXPECT_THAT(project.Libraries(), ElementsAre("a/b/lib", "/abs"));
  EXPECT_EQ(project.Directory(), "a/b");
  EXPECT_EQ(project.Kinds(), "");
  EXPECT_EQ(ReadProjectTexts("zeldebug.toml", head, {}).Directory(), ".");
  const Project local = ReadProjectTexts(
      "a/zeldebug.toml", std::string(head) + "library = [\"x\"]\n",
      std::string("library = [\"y\"]\ndirectory = \"~/build\"\n"));
  EXPECT_THAT(local.Libraries(), ElementsAre("a/y"));
  EXPECT_EQ(local.Directory(), "a/~/build");
}

TEST(Finding, GoesUpToTheFirstOne) {
  const support::TemporaryDirectory work;
  const std::string top = fs::canonical(work.path()).string();
  work.write("zeldebug.toml", head);
  work.write("a/b/c/x", "");
  EXPECT_EQ(FindProject(top + "/a/b/c"), top + "/zeldebug.toml");
  EXPECT_EQ(FindProject(top + "/a/../a/b/"), top + "/zeldebug.toml");
  work.write("a/zeldebug.toml", head);
  EXPECT_EQ(FindProject(top + "/a/b/c"), top + "/a/zeldebug.toml");
  EXPECT_EQ(FindProject(top), top + "/zeldebug.toml");
  EXPECT_EQ(FindProject("a/b"),
            (fs::current_path() / "a/zeldebug.toml").string());
  EXPECT_EQ(FindProject("/"), "");
  // Behind a link, what is above the folder that it leads to.
  fs::create_directory(top + "/elsewhere");
  fs::create_directory_symlink(top + "/a/b", top + "/elsewhere/link");
  EXPECT_EQ(FindProject(top + "/elsewhere/link"), top + "/a/zeldebug.toml");
}

TEST(Finding, NamesTheLocalFile) {
  EXPECT_EQ(LocalFileOf("zeldebug.toml"), "zeldebug.local.toml");
  EXPECT_EQ(LocalFileOf("a.b/x.toml"), "a.b/x.local.toml");
  EXPECT_EQ(LocalFileOf("x"), "x.local.toml");
}

TEST(Finding, ReadsBothFilesAndRefusesWhatIsNone) {
  const support::TemporaryDirectory work;
  work.write("zeldebug.toml", head);
  const std::string file = (work.path() / "zeldebug.toml").string();
  EXPECT_FALSE(ReadProject(file).local.exists);
  work.write("zeldebug.local.toml", "use.probe = \"none\"\n");
  EXPECT_TRUE(ReadProject(file).local.exists);
  EXPECT_EQ(model_test::refusalOf(
                [&] { ReadProject((work.path() / "no.toml").string()); }),
            "unreadable: " + (work.path() / "no.toml").string() +
                ": there is no such file");
  EXPECT_THAT(model_test::refusalOf([&] { ReadProject(work.path().string()); }),
              testing::EndsWith("is a folder, no file"));
  // A link to nothing is no file that is missing.
  fs::remove(work.path() / "zeldebug.local.toml");
  fs::create_symlink("nowhere", work.path() / "zeldebug.local.toml");
  EXPECT_THAT(model_test::refusalOf([&] { ReadProject(file); }),
              testing::EndsWith("zeldebug.local.toml: is a link to nothing"));
  work.write("nowhere", "use.probe = \"none\"\n");
  EXPECT_TRUE(ReadProject(file).local.exists);
}

} // namespace
