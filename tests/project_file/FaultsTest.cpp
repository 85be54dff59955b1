// Every fault of the files, at its place, with its near miss beside it.
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::ElementsAre;
using testing::IsEmpty;

struct Row {
  std::string text;  ///< of the project file, from line 2
  std::string fault; ///< "line:column code suggestion", or nothing
};

void expectFaults(const std::vector<Row> &rows) {
  for (const Row &row : rows) {
    const std::vector<std::string> faults = shown(read(row.text).faults);
    if (row.fault.empty())
      EXPECT_THAT(faults, IsEmpty()) << row.text;
    else
      EXPECT_THAT(faults, ElementsAre("zeldebug.toml:" + row.fault))
          << row.text;
  }
}

TEST(Faults, NamesKeysThatAreNone) {
  expectFaults({
      {"version = 1", ""},
      {"versoin = 1", "2:1 unknown-key version"},
      {"colour = 1", "2:1 unknown-key"},
      {"[settings]\ndebugDevice = 3", ""},
      {"[settings]\n  debugDevce = 3", "3:3 unknown-key debugDevice"},
      {"[settings]\ncable.frequency = 3000000", ""},
      {"[settings]\ncable.freqency = 3000000", "3:7 unknown-key frequency"},
      {"[settings.cable]\nmoduleName = \"m\"\nesm = \"1\"",
       "4:1 unknown-key esn"},
      {"[settings]\n\"cable.frequency\" = 3000000", "3:1 unknown-key"},
      {"[setings]\ndebugDevice = 3", "2:2 unknown-key settings"},
      {"[ \"setings\" ]\ndebugDevice = 3", "2:3 unknown-key settings"},
      {"[use]\nprobes = \"none\"", "3:1 unknown-key probe"},
      {"[profile.a]\nsetings.debugDevice = 1", "3:1 unknown-key settings"},
      {"[profile.a]\nprobe.x.esn = \"1\"", "3:1 unknown-key"},
      {"[probe.a]\nesn = \"0042\"", ""},
      {"[probe.a]\ncable.esn = \"0042\"", "3:1 unknown-key"},
      {"[probe.a]\ndebugDevice = 1", "3:1 unknown-key"},
      {"[[settings.chain]]\ndevicenr = 1\npartname = \"p\"\nirlength = 6\n"
       "idcode = 0x1\nisfgpa = true",
       "7:1 unknown-key isfpga"},
  });
}

TEST(Faults, SaysThatQuotesMakeOneNameOfTwo) {
  const Project project = read("[settings]\n\"cable.esn\" = \"0042\"");
  ASSERT_EQ(project.faults.size(), 1U);
  const ProjectFault &fault = project.faults.front();
  EXPECT_EQ(shown(fault), "zeldebug.toml:3:1 unknown-key");
  EXPECT_EQ(fault.message, "the quotes make one name of 'cable.esn', and no "
                           "setting has it; write cable.esn without them");
  EXPECT_EQ(fault.setting, "cable.esn");
  EXPECT_THAT(fault.accepted, testing::Contains("cable.esn"));
  expectFaults({
      {"[processor.lc]\n'cable.esn' = \"0042\"", "3:1 unknown-key"},
      {"[settings]\n\"cable.esm\" = \"0042\"", "3:1 unknown-key cable.esn"},
      {"[settings.cable]\n\"cable.esn\" = \"0042\"", "3:1 unknown-key"},
      {"[probe.lab]\n\"cable.esn\" = \"0042\"", "3:1 unknown-key"},
      {"[processor.lc]\ncpu_version = \"1\"\n\"hdu_version\" = \"1\"", ""},
      {"[profile.p.settings]\n\"cable\".\"frequency\" = 3000000", ""},
  });
}

TEST(Faults, SaysWhatToWriteForSettingsThatFollowFromOthers) {
  expectFaults({
      {"[settings]\nconnectionType = 2", "3:1 unknown-key connection"},
      {"[settings]\n\"chain[0].partname\" = \"x\"", "3:1 unknown-key chain"},
      {"[settings]\n\"chain[0]\" = []", "3:1 unknown-key chain"},
      {"[settings]\nstubType = 0", "3:1 unknown-key connection"},
      {"[settings]\ndebugAddressMap = 0", "3:1 unknown-key"},
      {"[settings]\nprocType = 0", "3:1 unknown-key"},
      {"[settings]\nconnectCommand = \"\"", "3:1 unknown-key"},
  });
  const Project project = read("[settings]\ndebugAddressMap = 0");
  EXPECT_THAT(project.faults.front().accepted,
              ElementsAre("icacheStartAdr", "itagStartAdr", "dcacheStartAdr",
                          "dtagStartAdr", "dcrStartAdr", "tlbStartAdr"));
}

TEST(Faults, MissesTheDesignAndTheFieldsOfADevice) {
  EXPECT_THAT(shown(ReadProjectTexts(projectFileName, "", {}).faults),
              ElementsAre("zeldebug.toml:1:1 missing-key"));
  EXPECT_THAT(
      shown(ReadProjectTexts(projectFileName, head, std::string()).faults),
      IsEmpty());
  const std::string device = "devicenr = 1, partname = \"p\", irlength = 6";
  expectFaults({
      {"[settings]\nchain = [{ " + device + ", idcode = 1 }]", ""},
      {"[settings]\nchain = [{ " + device + " }]", "3:10 missing-key"},
      {"[settings]\nchain = []", ""},
      {"[[settings.chain]]\npartname = \"p\"\nirlength = 6\nidcode = 1",
       "2:1 missing-key"},
  });
}

TEST(Faults, TellsTypesApart) {
  expectFaults({
      {"version = \"1\"", "2:11 wrong-type"},
      {"version = 2", "2:11 out-of-range"},
      {"view = true", "2:8 wrong-type"},
      {"view = 1", "2:8 number-for-text \"1\""},
      {"kinds = \"\"", "2:9 bad-value"},
      {"view = \"\"", "2:8 bad-value"},
      {"library = \"lib\"", "2:11 wrong-type"},
      {"library = [\"lib\", 7]", "2:19 number-for-text \"7\""},
      {"use = 1", "2:7 wrong-type"},
      {"settings = 1", "2:12 wrong-type"},
      {"settings.cable = 1", "2:18 wrong-type"},
      {"processor.lc = 1", "2:16 wrong-type"},
      {"[settings]\nvpConfigMode = true", ""},
      {"[settings]\nvpConfigMode = 1", "3:16 wrong-type"},
      {"[settings]\nvpConfigMode = \"yes\"", "3:16 wrong-type"},
      {"[settings]\ndebugDevice = 1.0", "3:15 wrong-type"},
      {"[settings]\ndebugDevice = true", "3:15 wrong-type"},
      {"[settings]\ndebugDevice = [1]", "3:15 wrong-type"},
      {"[settings]\ndebugDevice = 2026-11-22", "3:15 wrong-type"},
      {"[settings]\nchain = \"\"", "3:9 wrong-type"},
      {"[settings]\nchain = [1]", "3:10 wrong-type"},
      {"[settings]\nunset = \"cable.esn\"", "3:9 wrong-type"},
      {"[settings]\nunset = [1]", "3:10 number-for-text \"1\""},
      {"[settings]\nunset = [\"cable.esm\"]", "3:10 bad-value cable.esn"},
      {"[settings]\nunset = [\"chain[0].irlength\"]", "3:10 bad-value"},
      {"[settings]\ncable.cableType = 3", ""},
      {"[settings]\nconnection = 2", "3:14 number-for-text \"2\""},
  });
}

TEST(Faults, PutsNumbersThatAreTextsInQuotesByteForByte) {
  expectFaults({
      {"[probe.a]\nesn = 123", "3:7 number-for-text \"123\""},
      {"[probe.a]\nesn = 1e5", "3:7 number-for-text \"1e5\""},
      {"[probe.a]\nesn = 0x1F", "3:7 number-for-text \"0x1F\""},
      {"[probe.a]\nesn = 2026-11-22", "3:7 number-for-text \"2026-11-22\""},
      {"[probe.a]\nesn = true", "3:7 wrong-type"},
      {"[probe.a]\nesn = \"123\"", ""},
      {"[[settings.chain]]\ndevicenr = 1\npartname = 7\nirlength = 6\n"
       "idcode = 0x1",
       "4:12 number-for-text \"7\""},
  });
}

TEST(Faults, ChecksValuesAsTheModelDoes) {
  expectFaults({
      {"[settings]\ncable.cableType = \"quorla_podusb\"", ""},
      {"[settings]\ncable.cableType = \"quorla_podusbb\"",
       "3:19 bad-value quorla_podusb"},
      {"[settings]\ncable.cableType = 999", "3:19 bad-value"},
      {"[settings]\nconnection = \"hw\"", ""},
      {"[settings]\nconnection = \"hww\"", "3:14 bad-value hw"},
      {"[settings]\ncable.frequency = \"3MHz\"", ""},
      {"[settings]\ncable.frequency = \"3MHx\"", "3:19 bad-value"},
      {"[settings]\ncable.frequency = 4294967295", ""},
      {"[settings]\ncable.frequency = 4294967296", "3:19 out-of-range"},
      {"[settings]\ndebugDevice = 127", ""},
      {"[settings]\ndebugDevice = 0", ""},
      {"[settings]\ndebugDevice = \"0x7f\"", ""},
      {"[settings]\ndebugDevice = 128", "3:15 out-of-range"},
      {"[settings]\ndebugDevice = -1", "3:15 out-of-range"},
      {"[settings]\nicacheStartAdr = 0x70000000", ""},
      {"[settings]\nicacheStartAdr = \"not set\"", ""},
      {"[settings]\nicacheStartAdr = 0x70000001", "3:18 bad-value"},
      {"[settings]\nicacheStartAdr = 0x100000000", "3:18 out-of-range"},
      {"[settings]\ncpu_version = \"\"", ""},
      {"[settings]\ncpu_version = \"a b\"", "3:15 bad-value"},
      {"[settings]\ncable.moduleArgs = \"a;b\"", ""},
      {"[[settings.chain]]\ndevicenr = 1\npartname = \"p\"\nirlength = 128\n"
       "idcode = 0x1",
       "5:12 out-of-range"},
  });
}

TEST(Faults, KnowsProbesAndProfilesOfBothFiles) {
  expectFaults({
      {"use.probe = \"none\"", ""},
      {"use.probe = \"lab\"", "2:13 unknown-probe"},
      {"use.probe = \"lab\"\n[probe.lab]", ""},
      {"use.probe = \"lav\"\n[probe.lab]", "2:13 unknown-probe lab"},
      {"use.profile = \"slow\"", "2:15 unknown-profile"},
      {"use.profile = \"slow\"\n[profile.slow]", ""},
      {"[probe.none]", "2:8 bad-value"},
      {"[probe.\"a b\"]", "2:8 bad-value"},
      {"[probe.A-b_9]", ""},
  });
  EXPECT_THAT(shown(read("use.probe = \"desk\"", "[probe.desk]\n").faults),
              IsEmpty());
  EXPECT_THAT(shown(read("", "use.probe = \"desk\"\n").faults),
              ElementsAre("zeldebug.local.toml:1:13 unknown-probe"));
}

TEST(Faults, FindsWhatIsBothUnsetAndSet) {
  expectFaults({
      {"[settings]\nunset = [\"debugDevice\"]\ndebugDevice = 3",
       "4:1 unset-and-set"},
      {"[settings]\ndebugDevice = 3\nunset = [\"debugDevice\"]",
       "3:1 unset-and-set"},
      {"[settings]\ndebugDevice = 3\nunset = [\"cable.frequency\"]", ""},
      {"[settings]\nunset = [\"debugDevice\"]\n[processor.lc]\n"
       "debugDevice = 3",
       ""},
  });
}

TEST(Faults, TellsTheFirstSyntaxFaultOfEachFile) {
  expectFaults({
      {"[settings", "2:10 toml-syntax"},
      {"[probe.a]\nesn = 00123", "3:7 toml-syntax \"00123\""},
      {"[probe.a]\nesn = 12AB # lab", "3:7 toml-syntax \"12AB\""},
      {"[settings]\ncable.esn = 12AB\ndebugDevce = 1",
       "3:13 toml-syntax \"12AB\""},
      {"[profile.p.processor.lc]\ncable.esn = 00123",
       "3:13 toml-syntax \"00123\""},
  });
  const Project number = read("[settings]\ndebugDevice = 00123");
  ASSERT_EQ(number.faults.size(), 1U);
  EXPECT_EQ(number.faults.front().code, "toml-syntax");
  EXPECT_EQ(number.faults.front().place.line, 3);
  EXPECT_EQ(number.faults.front().suggestion, "");
  EXPECT_THAT(shown(read("[probe.a]\nesn = 00123", "x = 00123").faults.front()),
              "zeldebug.toml:3:7 toml-syntax \"00123\"");
  EXPECT_EQ(read("[probe.a]\nesn = 00123", "x = 0b").faults.size(), 2U);
}

TEST(Faults, FindsThemAllInOnePass) {
  const Project project = read("versoin = 1\n"
                               "[settings]\n"
                               "debugDevice = 200\n"
                               "cable = { esn = 5, freq = 1 }\n"
                               "[processor.lc]\n"
                               "connection = \"hww\"\n",
                               "design = \"b.xml\"\n"
                               "[settings]\n"
                               "cable.esn = 7\n");
  EXPECT_THAT(shown(project.faults),
              ElementsAre("zeldebug.toml:2:1 unknown-key version",
                          "zeldebug.toml:4:15 out-of-range",
                          "zeldebug.toml:5:17 number-for-text \"5\"",
                          "zeldebug.toml:5:20 unknown-key",
                          "zeldebug.toml:7:14 bad-value hw",
                          "zeldebug.local.toml:1:1 unknown-key",
                          "zeldebug.local.toml:3:13 number-for-text \"7\""));
}

TEST(Faults, CountsColumnsInBytes) {
  expectFaults({
      {"settings = { cpu_version = \"\xC3\xA9\", debugDevice = 200 }",
       "2:48 out-of-range"},
  });
}

TEST(Faults, WarnsOfDeskSettingsInTheSharedFileOnly) {
  expectFaults({
      {"[settings]\ncable.esn = \"0042\"", "3:13 desk-setting"},
      {"[settings]\ncable.url = \"a\"", "3:13 desk-setting"},
      {"[settings]\nstubSerialPort = \"/dev/ttyS1\"", "3:18 desk-setting"},
      {"[settings]\nsimIpcHost = \"host\"", "3:14 desk-setting"},
      {"[settings]\nsimIpcPort = 5000", "3:14 desk-setting"},
      {"[settings]\nmodelSimHost = \"host\"", "3:16 desk-setting"},
      {"[settings]\nmodelSimPort = 5000", "3:16 desk-setting"},
      {"[settings]\ncable.svfFile = \"/a/b.svf\"", "3:17 desk-setting"},
      {"[settings]\ncable.svfFile = \"b.svf\"", ""},
      {"[settings]\nppcSimConfigFile = \"/a\"", "3:20 desk-setting"},
      {"[settings]\nppcSimConfigFile = \"a\"", ""},
      {"[settings]\ncable.cableType = \"quorla_podusb\"\n"
       "cable.port = \"USB21\"",
       ""},
      {"[settings]\ncable.cableType = \"quorla_podusb\"\n"
       "cable.port = \"USB22\"",
       "4:14 desk-setting"},
      {"[profile.p.settings]\ncable.esn = \"0042\"", "3:13 desk-setting"},
      {"[probe.a]\nesn = \"0042\"", ""},
  });
  const Project project = read("", "[settings]\ncable.esn = \"0042\"");
  EXPECT_THAT(project.faults, IsEmpty());
  EXPECT_FALSE(read("[settings]\ncable.esn = \"0042\"").HasErrors());
}

TEST(Faults, TellsHowASettingGetsToTheDesk) {
  struct Advice {
    const char *text;
    const char *what;
  };
  const std::vector<Advice> rows{
      {"[settings]\ncable.esn = \"0042\"",
       "'zeldebug set --all --esn 0042 --into local' writes it into the "
       "local file"},
      {"[processor.lc]\ncable.esn = \"0042\"",
       "'zeldebug set lc --esn 0042 --into local' writes it into the local "
       "file"},
      {"[processor.\"a b\"]\ncable.esn = \"0042\"",
       "'zeldebug set 'a b' --esn 0042 --into local' writes it into the "
       "local file"},
      {"[processor.lc]\ncable.esn = \"a'b\"",
       "'zeldebug set lc --esn 'a'\\''b' --into local' writes it into the "
       "local file"},
      {"[profile.p.processor.lc]\ncable.esn = \"0042\"",
       "'zeldebug set lc --esn 0042 --into local --profile p' writes it into "
       "the local file, where every profile has it"},
      {"[profile.p.settings]\nstubSerialPort = \"/dev/ttyS1\"",
       "'zeldebug set --all --stub-port /dev/ttyS1 --into local --profile p' "
       "writes it into the local file, where every profile has it"},
      // No option has it.
      {"[processor.lc]\nsimIpcPort = 5000",
       "move it to [processor.lc] of zeldebug.local.toml"},
      {"[settings]\nmodelSimHost = \"host\"",
       "move it to [settings] of zeldebug.local.toml"},
      // No command reaches just these processors.
      {"[type.lumacore]\ncable.esn = \"0042\"",
       "move it to [type.lumacore] of zeldebug.local.toml"},
      {"[processor.\"l*\"]\ncable.esn = \"0042\"",
       "move it to [processor.\"l*\"] of zeldebug.local.toml"},
      {"[profile.p.type.lumacore]\ncable.esn = \"0042\"",
       "move it to [profile.p.type.lumacore] of zeldebug.local.toml"},
      {"[profile.p.settings]\ncable.url = \"a\"",
       "move it to [profile.p.settings] of zeldebug.local.toml"},
  };
  for (const Advice &row : rows) {
    const Project project = read(row.text);
    ASSERT_EQ(project.faults.size(), 1U) << row.text;
    const ProjectFault &fault = project.faults.front();
    EXPECT_EQ(fault.message, "'" + fault.setting +
                                 "' is of one desk, and this file is "
                                 "everybody's; " +
                                 row.what)
        << row.text;
  }
}

TEST(Faults, SurvivesDepthAndOddBytes) {
  const auto deep = [](const std::string &part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i)
      text += part;
    return text;
  };
  for (const std::string &text :
       {deep("a.", 200000) + "b = 1", "[" + deep("a.", 200000) + "b]",
        "a = " + deep("[", 200000), "a = " + deep("{a=", 200000),
        std::string("a = \"\0\"", 7), std::string("\xFF\xFE"),
        std::string("a = \"\xC3"), std::string("\r"), std::string("[["),
        std::string("a"), std::string("a."), std::string("a = \"\\")}) {
    const Project project = read(text);
    ASSERT_EQ(project.faults.size(), 1U) << text.substr(0, 40);
    EXPECT_EQ(project.faults.front().code, "toml-syntax");
  }
}

} // namespace
