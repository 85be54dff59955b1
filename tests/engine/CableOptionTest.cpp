// The cable and the chain device as records.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "ZelDebugDialog/CableOption.h"
#include "support/Cables.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

static_assert(!std::is_polymorphic_v<CableOption>);
static_assert(!std::is_polymorphic_v<JtagOption>);
static_assert(std::is_copy_constructible_v<JtagOption>);

template <class Type, class Member>
constexpr bool is = std::is_same_v<Type, Member>;

TEST(CableRecord, StartsWithoutACable) {
  const CableOption cable;
  EXPECT_EQ(cable.cableType, Engine::CABLE_NONE);
  EXPECT_EQ(cable.frequency, 0U);
  EXPECT_EQ(cable.port, "");
  EXPECT_EQ(cable.esn, "");
  EXPECT_EQ(cable.svfFile, "");
  EXPECT_EQ(cable.moduleName, "");
  EXPECT_EQ(cable.moduleArgs, "");
  EXPECT_EQ(cable.url, "");
}

TEST(CableRecord, StartsAnewWithTheDefaultsOfItsType) {
  for (const std::uint32_t number : support::cableNumbers()) {
    SCOPED_TRACE(number);
    const support::Cable &row = support::cableOf(number);
    CableOption cable = support::unusualCable();
    cable.CableOptionInit(static_cast<Engine::CableType>(number));
    EXPECT_EQ(cable.cableType, number);
    EXPECT_EQ(cable.frequency, row.frequency);
    EXPECT_EQ(cable.port, row.port);
    EXPECT_EQ(cable.esn, "");
    EXPECT_EQ(cable.svfFile, "");
    EXPECT_EQ(cable.moduleName, "");
    EXPECT_EQ(cable.moduleArgs, "");
    EXPECT_EQ(cable.url, "");
  }
}

TEST(CableRecord, CopiesAllFields) {
  const CableOption original = support::unusualCable();
  CableOption copy(original);
  EXPECT_EQ(textOf(copy), textOf(original));
  EXPECT_EQ(textOf(copy), "cableType 0x3\nfrequency 0x3039\n"
                          "port \"a port\"\nesn \"an esn\"\n"
                          "svfFile \"an svf file\"\n"
                          "moduleName \"a module\"\n"
                          "moduleArgs \"first;second\"\nurl \"a url\"\n");
  CableOption assigned;
  assigned = original;
  EXPECT_EQ(textOf(assigned), textOf(original));

  copy.port = "another";
  copy.CableOptionInit(Engine::CABLE_NONE);
  EXPECT_EQ(textOf(original), textOf(support::unusualCable()));
}

TEST(CableRecord, HasItsFieldsInOrder) {
  const CableOption c;
  const std::vector<const void *> fields = {
      &c.cableType, &c.frequency,  &c.port,       &c.esn,
      &c.svfFile,   &c.moduleName, &c.moduleArgs, &c.url,
  };
  EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
  EXPECT_TRUE((is<Engine::CableType, decltype(CableOption::cableType)>));
  EXPECT_TRUE((is<std::uint32_t, decltype(CableOption::frequency)>));
}

TEST(ChainRecord, StartsAsAnUnknownDevice) {
  const JtagOption device;
  EXPECT_EQ(device.partname, "UNKNOWN");
  EXPECT_EQ(device.idcode, 0U);
  EXPECT_EQ(device.irlength, 0);
  EXPECT_EQ(device.devicenr, 0);
  EXPECT_EQ(device.isfpga, 0);
  EXPECT_EQ(device.hardppc, 0);
  EXPECT_EQ(device.nppc, 0);
}

TEST(ChainRecord, HasItsFieldsInOrder) {
  const JtagOption d;
  const std::vector<const void *> fields = {
      &d.partname, &d.idcode,  &d.irlength, &d.devicenr,
      &d.isfpga,   &d.hardppc, &d.nppc,
  };
  EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
  EXPECT_TRUE((is<std::uint32_t, decltype(JtagOption::idcode)>));
  EXPECT_TRUE((is<std::int8_t, decltype(JtagOption::irlength)>));
  EXPECT_TRUE((is<std::int8_t, decltype(JtagOption::devicenr)>));
  EXPECT_TRUE((is<std::uint8_t, decltype(JtagOption::isfpga)>));
  EXPECT_TRUE((is<std::uint8_t, decltype(JtagOption::hardppc)>));
  EXPECT_TRUE((is<std::uint8_t, decltype(JtagOption::nppc)>));
}

} // namespace
