// The facts that programs share with the engine, and that the engine goes by
// them.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ZelDebugDialog/CommandTables.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog/Result.h"
#include "ZelDebugDialog/SettingFields.h"
#include "ZelDebugDialog/TypeNames.h"
#include "support/EngineFixture.h"

using namespace ZelDebugDialog;

namespace {

class EngineFacts : public support::RecordFixture {};

using Named = std::map<std::string, std::uint32_t>;

template <class Rows> Named named(const Rows &rows) {
  Named all;
  for (const NamedValue &row : rows)
    all.emplace(row.keyword, row.value);
  return all;
}

/// The value words of an option or a parameter.
std::vector<std::string> wordsOf(const char *optionWord,
                                 const char *parameterWord) {
  for (const CommandOptionSet &set : GetCommandTables().optionSets)
    for (const CommandOption &option : set.options) {
      if (option.keyword != optionWord)
        continue;
      if (*parameterWord == '\0')
        return option.value.words;
      for (const CommandParameter &parameter : option.parameters)
        if (parameter.keyword == parameterWord)
          return parameter.value.words;
    }
  return {};
}

} // namespace

TEST_F(EngineFacts, NumberFamiliesAndKinds) {
  EXPECT_EQ(named(processorFamilies),
            (Named{{"Lumacore", 0}, {"PowerPC", 1}, {"ARM", 2}}));
  std::map<std::uint32_t, std::pair<std::uint32_t, std::string>> kinds;
  for (const ProcessorType &row : processorTypes)
    kinds[row.type] = {row.family, std::string(row.name)};
  const decltype(kinds) expected{{0, {0, "Lumacore"}},  {1, {1, "ppc405"}},
                                 {2, {1, "ppc440"}},    {4, {2, "Cortex-A9"}},
                                 {5, {2, "Cortex-R5"}}, {6, {1, "PowerPC"}}};
  EXPECT_EQ(kinds, expected);
}

TEST_F(EngineFacts, NumberWhatReadersHaveWordsFor) {
  EXPECT_EQ(named(fpuTypes), (Named{{"sp", 1}, {"dp", 2}}));
  EXPECT_EQ(
      named(boundaryScanRegisters),
      (Named{{"USER1", 2}, {"USER2", 3}, {"USER3", 0x22}, {"USER4", 0x23}}));
  for (const NamedValue &fpu : fpuTypes) {
    std::string text = "fpuType " + std::string(fpu.keyword);
    EXPECT_EQ(KvoOption_Parser::parse_debugdevice(text, state), 3U);
    EXPECT_EQ(state.currentProcessor->fpuType, fpu.value);
  }
  for (const NamedValue &scan : boundaryScanRegisters) {
    std::string text(scan.keyword);
    EXPECT_EQ(KvoOption_Parser::parse_hdubscan(text, state), 0U);
    EXPECT_EQ(state.currentProcessor->bscanUserReg, scan.value);
  }
  EXPECT_EQ(wordsOf("-debugdevice", "fpuType"),
            (std::vector<std::string>{"sp", "dp"}));
  EXPECT_EQ(wordsOf("-bscan", ""),
            (std::vector<std::string>{"USER1", "USER2", "USER3", "USER4"}));
}

TEST_F(EngineFacts, KnowTheMasksOfModules) {
  EXPECT_EQ(maskHdu, 16U);
  EXPECT_EQ(maskKmtc, 32U);
  EXPECT_EQ(maskDcc, 256U);
  EXPECT_EQ(maskDap, 512U);
  for (const std::uint32_t mask : {0x10U, 0x20U, 0x100U, 0x200U, 0x11U, 0x310U})
    EXPECT_TRUE(IsModuleMask(mask)) << mask;
  for (const std::uint32_t mask : {0U, 1U, 0xFU, 0xCFU, 0x400U, 0x80U})
    EXPECT_FALSE(IsModuleMask(mask)) << mask;
}

TEST_F(EngineFacts, ChooseEachKindOfConnectionInThreeSteps) {
  struct Row {
    const char *name;
    std::uint32_t first;
    std::uint32_t stubType;
    std::uint32_t last;
  };
  const std::vector<Row> rows{{"sim", 0x41, 0, 1},
                              {"hw", 0x42, 0, 2},
                              {"stub-serial", 0x84, 1, 4},
                              {"stub-jtag", 0x44, 0, 4},
                              {"vp", 0x48, 0, 8}};
  ASSERT_EQ(connectionKinds.size(), rows.size());
  record.connectionMask = 0xF;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const ConnectionKind &kind = connectionKinds[i];
    SCOPED_TRACE(rows[i].name);
    EXPECT_EQ(kind.name, rows[i].name);
    EXPECT_EQ(kind.connectionType | kind.stubBit, rows[i].first);
    record.stubType = 7;
    const auto choose = [this](std::uint32_t type) {
      return engine.SetConnectionType(
          static_cast<Engine::ConnectionType>(type));
    };
    EXPECT_EQ(choose(kind.connectionType | kind.stubBit), 0);
    EXPECT_EQ(engine.SetStubType(kind.stubType), 0);
    EXPECT_EQ(choose(kind.connectionType), 0);
    EXPECT_EQ(record.connectionType, rows[i].last);
    EXPECT_EQ(record.stubType, rows[i].stubType);
  }
}

TEST_F(EngineFacts, OrderTheRegionsAsTheyFollowABase) {
  const std::vector<std::string> order{"icacheStartAdr", "itagStartAdr",
                                       "dcacheStartAdr", "dtagStartAdr",
                                       "dcrStartAdr",    "tlbStartAdr"};
  record.procFamily = familyPowerPc;
  record.connectionType = Engine::CONNECT_HW;
  EXPECT_EQ(regionStep, 0x10000U);
  state.InitPPCDebugAddressMap();
  state.AssignAddressMap(0x50000);
  ASSERT_EQ(regionsFromBase.size(), order.size());
  for (std::size_t i = 0; i < order.size(); ++i) {
    const DebugRegion &region = regionsFromBase[i];
    SCOPED_TRACE(order[i]);
    EXPECT_EQ(region.field, order[i]);
    const std::uint32_t assigned =
        0x50000 + static_cast<std::uint32_t>(i) * 0x10000;
    EXPECT_EQ(record.*region.start, assigned);
    const std::size_t field = FindField(region.field);
    EXPECT_EQ(std::get<std::int64_t>(GetField(state, field)), assigned);
    EXPECT_EQ((engine.*region.set)(0x7770000), 0);
    EXPECT_EQ((engine.*region.set)(0x7770001), 1);
    unsigned address = 0;
    EXPECT_EQ((engine.*region.get)(address), 0);
    EXPECT_EQ(address, 0x7770000U);
    EXPECT_EQ(record.*region.start, 0x7770000U);
  }
  EXPECT_EQ(unsetAddress, 0xFFFFFFFFU);
  state.InitPPCDebugAddressMap();
  for (const DebugRegion &region : regionsFromBase)
    EXPECT_EQ(record.*region.start, unsetAddress);
}

TEST_F(EngineFacts, AlignRegions) {
  for (const std::uint32_t address : {0U, 0x10000U, 0xFFFF0000U})
    EXPECT_TRUE(IsRegionAligned(address)) << address;
  for (const std::uint32_t address :
       {1U, 0xFFFFU, 0x8000U, 0x10001U, 0xFFFFFFFFU})
    EXPECT_FALSE(IsRegionAligned(address)) << address;
}

TEST_F(EngineFacts, TellOptionWordsAsReadersDo) {
  struct Row {
    std::string word;
    bool isOption;
  };
  for (const Row &row : std::vector<Row>{{"-a", true},
                                         {"--", true},
                                         {"-A1", true},
                                         {"-/", true},
                                         {"-:", true},
                                         {std::string("-\0", 2), true},
                                         {"-0", false},
                                         {"-9x", false},
                                         {"a", false},
                                         {"a-b", false},
                                         {"+a", false}}) {
    SCOPED_TRACE(row.word);
    EXPECT_EQ(IsOptionWord(row.word), row.isOption);
    std::string input = row.word;
    std::string token;
    EXPECT_EQ(KvoOption_Parser::get_token(input, token), row.isOption ? 1 : 0);
  }
  EXPECT_FALSE(IsOptionWord(""));
  EXPECT_FALSE(IsOptionWord("-"));
  std::string input = "-";
  std::string token;
  EXPECT_THROW(KvoOption_Parser::get_token(input, token), std::out_of_range);
}

TEST_F(EngineFacts, NameTheResults) {
  const std::vector<std::string_view> names{"done", "not set", "not applicable",
                                            "not read", "no option file"};
  for (int value = -1; value <= 5; ++value)
    EXPECT_EQ(result::Show(value),
              value < 0 || value > 4 ? ""
                                     : names[static_cast<std::size_t>(value)]);
  EXPECT_EQ(result::done, 0);
  EXPECT_EQ(result::notSet, 1);
  EXPECT_EQ(result::notApplicable, 2);
  EXPECT_EQ(result::unknownProcessor, 2);
  EXPECT_EQ(result::notRead, 3);
  EXPECT_EQ(result::noOptionFile, 4);
  // What a person sees of them.
  ProcessorInfo info;
  EXPECT_EQ(engine.SetProcessor("none", info), result::unknownProcessor);
}

TEST_F(EngineFacts, NameTheTypesOfADesign) {
  EXPECT_EQ(std::set<std::string_view>(debugModuleTypes.begin(),
                                       debugModuleTypes.end()),
            (std::set<std::string_view>{"hdu", "hdu_cedar"}));
  EXPECT_EQ(ppcControllerType, "ppc_jtag_link");
  EXPECT_EQ(lumacoreTypeName, "lumacore");
  EXPECT_EQ(cortexA9TypeName, "soc_cortexa9");
  EXPECT_EQ(
      std::set<std::string_view>(stubUartTypes.begin(), stubUartTypes.end()),
      (std::set<std::string_view>{"uart_mini_cedar", "uart_mini_ember"}));
  EXPECT_EQ(longestOptionLine, 1023U);
}
