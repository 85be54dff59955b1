// The record of one processor and its summary: fields, defaults, reset.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "ZelDebugDialog/ProcessorInfo.h"
#include "support/Fields.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

static_assert(!std::is_polymorphic_v<ProcessorInfoImp>);
static_assert(std::is_copy_constructible_v<ProcessorInfoImp>);
static_assert(std::is_standard_layout_v<ProcessorInfo>);
static_assert(sizeof(ProcessorInfo) == 12);

constexpr const char *defaultIdentity = "instanceName \"\"\n"
                                        "procFamily 0x0\n"
                                        "procType 0x0\n"
                                        "connectionMask 0x1\n"
                                        "cpuNr 1\n";

constexpr const char *defaultSettings = "connectionType 0x2\n"
                                        "simMemSize 0x10\n"
                                        "ppcSimConfigFile \"\"\n"
                                        "simIpcHost \"\"\n"
                                        "simIpcPort 0\n"
                                        "vpConfigMode 0x0\n"
                                        "cycleApproximate 0x0\n"
                                        "stubType 0x0\n"
                                        "stubSerialPort \"/dev/ttyS0\"\n"
                                        "stubBaudRate 0\n"
                                        "stubTimeout 20000\n"
                                        "debugDevice 0\n"
                                        "debugAddressMap 0xffffffff\n"
                                        "isocmStartAdr 0xffffffff\n"
                                        "isocmSize 0x0\n"
                                        "isocmDcrStartAdr 0xffffffff\n"
                                        "icacheStartAdr 0xffffffff\n"
                                        "dcacheStartAdr 0xffffffff\n"
                                        "itagStartAdr 0xffffffff\n"
                                        "dtagStartAdr 0xffffffff\n"
                                        "tlbStartAdr 0xffffffff\n"
                                        "dcrStartAdr 0xffffffff\n"
                                        "fpuType 0x0\n"
                                        "cpu_version \"\"\n"
                                        "hdu_version \"\"\n"
                                        "nCpu 8\n"
                                        "romemStartAdr 0xffffffff\n"
                                        "romemSize 0x0\n"
                                        "svfFileFlag false\n"
                                        "modelSimMode false\n"
                                        "modelSimHost \"localhost\"\n"
                                        "modelSimPort 9998\n"
                                        "uartOverHdu false\n"
                                        "bscanUserReg 0x3\n"
                                        "connectCommand \"\"\n";

TEST(ProcessorRecord, StartsAsASimulatedLumacoreWithDefaults) {
  EXPECT_EQ(textOf(ProcessorInfoImp()),
            std::string(defaultIdentity) + defaultSettings);
}

TEST(ProcessorRecord, ResetsItsSettingsAndKeepsItsIdentity) {
  ProcessorInfoImp record = support::unusualRecord();
  record.ProcessorInfoImpInit();
  EXPECT_EQ(textOf(record), std::string("instanceName \"cpu7\"\n"
                                        "procFamily 0x1\n"
                                        "procType 0x2\n"
                                        "connectionMask 0x87\n"
                                        "cpuNr -56\n") +
                                defaultSettings);
}

TEST(ProcessorRecord, IsUnusualInEveryField) {
  const ProcessorInfoImp usual;
  const ProcessorInfoImp unusual = support::unusualRecord();
  const auto expectOther = [&](const auto &field) {
    EXPECT_TRUE(usual.*field.member != unusual.*field.member) << field.name;
  };
  std::apply([&](const auto &...field) { (expectOther(field), ...); },
             support::fieldsOf(usual));
  EXPECT_NE(usual.connectCommand, unusual.connectCommand);
}

TEST(ProcessorRecord, StaysTheSameWhenResetTwice) {
  ProcessorInfoImp record;
  record.ProcessorInfoImpInit();
  record.ProcessorInfoImpInit();
  EXPECT_EQ(textOf(record), textOf(ProcessorInfoImp()));
}

TEST(ProcessorRecord, KeepsProcessorAndDeviceNumbersInEightSignedBits) {
  EXPECT_TRUE((std::is_same_v<decltype(ProcessorInfoImp::cpuNr), std::int8_t>));
  EXPECT_TRUE(
      (std::is_same_v<decltype(ProcessorInfoImp::debugDevice), std::int8_t>));
  ProcessorInfoImp record;
  record.cpuNr = static_cast<std::int8_t>(200);
  record.debugDevice = static_cast<std::int8_t>(200);
  EXPECT_EQ(record.cpuNr, -56);
  EXPECT_EQ(record.debugDevice, -56);
}

template <class Type, class Member>
constexpr bool is = std::is_same_v<Type, Member>;

TEST(ProcessorRecord, HasFieldsOfTheTypesThatCallersCompileAgainst) {
  using R = ProcessorInfoImp;
  EXPECT_TRUE((is<std::uint32_t, decltype(R::procFamily)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::procType)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::connectionMask)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::connectionType)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::simMemSize)>));
  EXPECT_TRUE((is<std::int32_t, decltype(R::simIpcPort)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::vpConfigMode)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::cycleApproximate)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::stubType)>));
  EXPECT_TRUE((is<std::int32_t, decltype(R::stubBaudRate)>));
  EXPECT_TRUE((is<std::int32_t, decltype(R::stubTimeout)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::fpuType)>));
  EXPECT_TRUE((is<std::int32_t, decltype(R::nCpu)>));
  EXPECT_TRUE((is<bool, decltype(R::svfFileFlag)>));
  EXPECT_TRUE((is<bool, decltype(R::modelSimMode)>));
  EXPECT_TRUE((is<std::int32_t, decltype(R::modelSimPort)>));
  EXPECT_TRUE((is<bool, decltype(R::uartOverHdu)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(R::bscanUserReg)>));
}

TEST(ProcessorRecord, HasItsFieldsInOrder) {
  const ProcessorInfoImp r;
  std::vector<const void *> fields;
  support::eachField(r, [&fields](const char * /*name*/, const auto &field) {
    fields.push_back(&field);
  });
  fields.push_back(&r.connectCommand);
  EXPECT_EQ(fields.size(), 40U);
  EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST(ProcessorSummary, IsThreeNumbersInOrder) {
  const ProcessorInfo info;
  const std::vector<const void *> fields = {&info.procType, &info.procFamily,
                                            &info.connectionMask};
  EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
  EXPECT_TRUE((is<std::uint32_t, decltype(ProcessorInfo::procType)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(ProcessorInfo::procFamily)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(ProcessorInfo::connectionMask)>));
}

} // namespace
