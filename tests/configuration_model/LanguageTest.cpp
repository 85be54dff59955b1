// The language and the cables, as the engine's tables have them.
#include <string>

#include <gmock/gmock.h>

#include "ZelDebugDialog/CommandTables.h"
#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"

namespace {

using namespace ZelDebugDialog;
using testing::ElementsAre;

TEST(Language, IsMadeOnce) {
  EXPECT_EQ(&GetLanguage(), &GetLanguage());
  EXPECT_EQ(&GetCables(), &GetCables());
}

TEST(Language, HasTheHeadsWithTheirTargets) {
  std::vector<std::string> heads;
  for (const LanguageHead &head : GetLanguage().heads)
    heads.push_back(head.keyword + (head.inOptionFile ? "" : " (no file)"));
  EXPECT_THAT(heads, ElementsAre("connect", "kconnect (no file)", "vpconnect",
                                 "kvpconnect (no file)"));
  const LanguageTarget &lumacore = GetLanguage().heads[0].targets[0];
  EXPECT_EQ(lumacore.keyword, "lc");
  EXPECT_TRUE(lumacore.inOptionFile);
  ASSERT_EQ(lumacore.connections.size(), 3U);
  EXPECT_EQ(lumacore.connections[2].keyword, "hdu");
  EXPECT_EQ(lumacore.connections[2].type, 2U);
  EXPECT_NE(FindOptionSet(lumacore.connections[2].optionSet), nullptr);
  EXPECT_EQ(FindOptionSet("no such set"), nullptr);
}

TEST(Language, HasEachOptionWithWhatFollows) {
  const LanguageOptionSet *const set =
      FindOptionSet(GetLanguage().heads[0].targets[0].connections[2].optionSet);
  ASSERT_NE(set, nullptr);
  bool isFound = false;
  for (const LanguageOption &option : set->options) {
    if (option.keyword != "-cable")
      continue;
    isFound = true;
    ASSERT_EQ(option.parameters.size(), 8U);
    EXPECT_EQ(option.parameters[0].keyword, "type");
    EXPECT_EQ(option.parameters[0].value.kind, "word");
    EXPECT_THAT(option.parameters[0].value.settings,
                ElementsAre("cable.cableType", "cable.port"));
    EXPECT_THAT(option.parameters[0].value.words,
                testing::Contains("quorla_podusb"));
    EXPECT_EQ(option.parameters[4].keyword, "frequency");
    EXPECT_EQ(option.parameters[4].value.kind, "number");
    EXPECT_FALSE(option.value.has_value());
  }
  EXPECT_TRUE(isFound);
}

/// A setting that the language names is one of the table of settings, and every
/// set that it names is there.
TEST(Language, RefersToNothingThatIsNotThere) {
  const auto expectSettings = [](const std::vector<std::string> &settings) {
    for (std::string setting : settings) {
      const std::size_t device = setting.find("[n]");
      if (device != std::string::npos)
        setting.erase(device + 1, 1);
      EXPECT_NE(FindSetting(setting), nullptr) << setting;
    }
  };
  std::size_t options = 0;
  for (const LanguageOptionSet &set : GetLanguage().optionSets)
    for (const LanguageOption &option : set.options) {
      ++options;
      expectSettings(option.settings);
      if (option.value)
        expectSettings(option.value->settings);
      for (const LanguageParameter &parameter : option.parameters)
        expectSettings(parameter.value.settings);
      if (!option.optionSet.empty()) {
        EXPECT_NE(FindOptionSet(option.optionSet), nullptr);
      }
    }
  EXPECT_GT(options, 30U);
}

TEST(Cables, AreTheEnginesWithNoCableInFront) {
  const std::vector<CableInfo> &cables = GetCables();
  const std::vector<CommandCable> engines = GetCommandTables().cables;
  ASSERT_EQ(cables.size(), engines.size() + 1);
  EXPECT_EQ(cables[0].type, 0U);
  EXPECT_TRUE(cables[0].keywords.empty());
  EXPECT_FALSE(cables[0].writable);
  EXPECT_TRUE(cables[0].offered);
  for (std::size_t i = 0; i < engines.size(); ++i) {
    EXPECT_EQ(cables[i + 1].type, engines[i].type);
    EXPECT_EQ(cables[i + 1].keywords, engines[i].keywords);
    EXPECT_EQ(cables[i + 1].writable, !engines[i].written.empty());
    EXPECT_EQ(cables[i + 1].acceptedFrequencies,
              engines[i].acceptedFrequencies);
  }
  EXPECT_EQ(cables[7].keywords, std::vector<std::string>{"quorla_tcf"});
  EXPECT_FALSE(cables[7].writable);
  EXPECT_FALSE(cables[7].offered);
  EXPECT_EQ(cables[3].written, "quorla_podusb");
  EXPECT_TRUE(cables[3].offered);
}

} // namespace
