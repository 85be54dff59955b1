// The PowerPC debug address map: a base and six regions on 64 KiB boundaries.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

constexpr std::uint32_t unset = 0xFFFFFFFF;

using Field = std::uint32_t ProcessorInfoImp::*;
using Getter = int (Engine::*)(unsigned int &);
using Setter = int (Engine::*)(unsigned);

struct Region {
  Field field;
  Getter get;
  Setter set;
  const char *message;
};

constexpr Region regions[] = {
    {&ProcessorInfoImp::icacheStartAdr, &Engine::GetIcacheBaseAddr,
     &Engine::SetIcacheBaseAddr,
     "Icache Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::itagStartAdr, &Engine::GetITagBaseAddr,
     &Engine::SetITagBaseAddr,
     "Itag Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::dcacheStartAdr, &Engine::GetDcacheBaseAddr,
     &Engine::SetDcacheBaseAddr,
     "Dcache Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::dtagStartAdr, &Engine::GetDTagBaseAddr,
     &Engine::SetDTagBaseAddr,
     "Dtag Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::dcrStartAdr, &Engine::GetDcrBaseAddr,
     &Engine::SetDcrBaseAddr,
     "DCR Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::tlbStartAdr, &Engine::GetTlbBaseAddr,
     &Engine::SetTlbBaseAddr,
     "TLB Start Address should be aligned at 64k boundry"},
};

/// What `AssignAddressMap` adds to its base, in the order of `regions`.
constexpr std::uint32_t offsets[] = {0,       0x10000, 0x20000,
                                     0x30000, 0x40000, 0x50000};

class AddressMap : public support::RecordFixture {
protected:
  AddressMap() {
    record = support::unusualRecord();
    record.procFamily = 1;
    record.connectionType = 2;
    engine.SetErrorStr("an old message");
  }

  void expectGets(Getter get, int result, unsigned address) {
    unsigned read = 0x5555;
    EXPECT_EQ((engine.*get)(read), result);
    EXPECT_EQ(read, result == 0 ? address : 0x5555);
    EXPECT_EQ(errorText(), "an old message");
  }
};

TEST_F(AddressMap, GivesEachAddressOfAPowerPcOnHardwareOnly) {
  constexpr struct {
    std::uint32_t family;
    std::uint32_t connectionType;
    int result;
  } gates[] = {
      {1, 2, 0}, {0, 2, 2}, {2, 2, 2}, {3, 2, 2}, {1, 1, 2}, {1, 4, 2},
      {1, 8, 2}, {1, 0, 2}, {1, 3, 2}, {0, 1, 2}, {2, 1, 2},
  };
  for (const auto &gate : gates) {
    record.procFamily = gate.family;
    record.connectionType = gate.connectionType;
    const auto expectGate = [&](Field field, Getter get) {
      for (const std::uint32_t address :
           {0x12340000U, 0U, 0x1234U, unset - 1}) {
        SCOPED_TRACE(::testing::Message()
                     << "family " << gate.family << " connection "
                     << gate.connectionType << " address " << address);
        record.*field = address;
        expectGets(get, gate.result, address);
      }
      record.*field = unset;
      expectGets(get, gate.result == 0 ? 1 : 2, 0);
    };
    expectGate(&ProcessorInfoImp::debugAddressMap, &Engine::GetDebugAddressMap);
    for (const Region &region : regions)
      expectGate(region.field, region.get);
  }
}

TEST_F(AddressMap, GivesTheOnChipMemoryOfAPpc405OnHardwareOnly) {
  constexpr struct {
    std::uint32_t type;
    std::uint32_t connectionType;
    std::uint32_t stored;
    int result;
  } rows[] = {
      {1, 2, 0x20000, 0}, {1, 2, 0, 0},       {1, 2, 0x1234, 0},
      {1, 2, unset, 1},   {2, 2, 0x20000, 2}, {6, 2, 0x20000, 2},
      {0, 2, 0x20000, 2}, {4, 2, 0x20000, 2}, {1, 1, 0x20000, 2},
      {1, 4, 0x20000, 2}, {1, 0, 0x20000, 2}, {1, 3, 0x20000, 2},
      {2, 2, unset, 2},   {1, 1, unset, 2},
  };
  for (const auto &row : rows) {
    for (const std::uint32_t family : {0U, 1U, 2U}) {
      SCOPED_TRACE(::testing::Message()
                   << "type " << row.type << " connection "
                   << row.connectionType << " family " << family);
      record.procFamily = family;
      record.procType = row.type;
      record.connectionType = row.connectionType;
      record.isocmStartAdr = row.stored;
      expectGets(&Engine::GetISOCMBaseAddr, row.result, row.stored);
    }
  }
}

TEST_F(AddressMap, TakesRegionsOn64KiBBoundaries) {
  for (const Region &region : regions) {
    for (const unsigned address :
         {0U, 0x10000U, 0x12340000U, 0x80000000U, 0xFFFF0000U}) {
      SCOPED_TRACE(::testing::Message() << region.message << ' ' << address);
      ProcessorInfoImp expected = record;
      expected.*region.field = address;
      if (region.field == &ProcessorInfoImp::icacheStartAdr)
        expected.debugAddressMap = address;
      EXPECT_EQ((engine.*region.set)(address), 0);
      EXPECT_EQ(textOf(record), textOf(expected));
      EXPECT_EQ(errorText(), "an old message");
    }
  }
}

TEST_F(AddressMap, RefusesRegionsBetweenBoundariesAndKeepsTheOld) {
  const std::string before = textOf(record);
  for (const Region &region : regions) {
    const auto expectRefusal = [&](unsigned address) {
      SCOPED_TRACE(::testing::Message() << region.message << ' ' << address);
      engine.SetErrorStr("an old message");
      EXPECT_EQ((engine.*region.set)(address), 1);
      EXPECT_EQ(textOf(record), before);
      EXPECT_EQ(errorText(), region.message);
    };
    for (unsigned bit = 0; bit < 16; ++bit)
      expectRefusal(0x12340000U | (1U << bit));
    for (const unsigned address : {1U, 0xFFFFU, 0x10001U, unset})
      expectRefusal(address);
  }
}

TEST_F(AddressMap, TakesRegionsOfAnyProcessorAndConnection) {
  record.procFamily = 0;
  record.connectionType = 1;
  for (const Region &region : regions) {
    SCOPED_TRACE(region.message);
    EXPECT_EQ((engine.*region.set)(0x70000), 0);
    EXPECT_EQ(record.*region.field, 0x70000U);
  }
}

TEST_F(AddressMap, TakesBackBaseAndRegions) {
  ProcessorInfoImp expected = record;
  expected.debugAddressMap = unset;
  for (const Region &region : regions)
    expected.*region.field = unset;
  EXPECT_EQ(engine.UnSetDebugAddressMap(), 0);
  EXPECT_EQ(textOf(record), textOf(expected));
  EXPECT_EQ(errorText(), "an old message");

  expectGets(&Engine::GetDebugAddressMap, 1, 0);
  for (const Region &region : regions)
    expectGets(region.get, 1, 0);
  record.connectionType = 1;
  expectGets(&Engine::GetDebugAddressMap, 2, 0);
  for (const Region &region : regions)
    expectGets(region.get, 2, 0);
}

TEST_F(AddressMap, TakesBackTheRegionsAlone) {
  ProcessorInfoImp expected = record;
  for (const Region &region : regions)
    expected.*region.field = unset;
  EXPECT_EQ(state.InitPPCDebugAddressMap(), 0);
  EXPECT_EQ(textOf(record), textOf(expected));
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(AddressMap, FillsUnsetRegionsFromOneBase) {
  for (const std::uint32_t base :
       {0x40000000U, 0U, 0x1234U, 0xFFFB0000U, 0xFFFF0000U, 0xFFFEFFFFU}) {
    SCOPED_TRACE(base);
    state.InitPPCDebugAddressMap();
    ProcessorInfoImp expected = record;
    for (std::size_t i = 0; i < std::size(regions); ++i)
      expected.*regions[i].field = base + offsets[i];
    EXPECT_EQ(state.AssignAddressMap(base), 0);
    EXPECT_EQ(textOf(record), textOf(expected));
    EXPECT_EQ(errorText(), "an old message");
  }
}

TEST_F(AddressMap, LeavesSetRegionsAloneWhenFilling) {
  for (const Region &kept : regions) {
    SCOPED_TRACE(kept.message);
    state.InitPPCDebugAddressMap();
    record.*kept.field = 0x80001234;
    ProcessorInfoImp expected = record;
    for (std::size_t i = 0; i < std::size(regions); ++i)
      if (regions[i].field != kept.field)
        expected.*regions[i].field = 0x40000000 + offsets[i];
    EXPECT_EQ(state.AssignAddressMap(0x40000000), 0);
    EXPECT_EQ(textOf(record), textOf(expected));
  }
}

TEST_F(AddressMap, FillsNothingWhenAllRegionsAreSet) {
  const std::string before = textOf(record);
  EXPECT_EQ(state.AssignAddressMap(0x40000000), 0);
  EXPECT_EQ(textOf(record), before);
}

TEST_F(AddressMap, WrapsAt32Bits) {
  state.InitPPCDebugAddressMap();
  EXPECT_EQ(state.AssignAddressMap(0xFFFE0000), 0);
  EXPECT_EQ(record.icacheStartAdr, 0xFFFE0000U);
  EXPECT_EQ(record.itagStartAdr, 0xFFFF0000U);
  EXPECT_EQ(record.dcacheStartAdr, 0U);
  EXPECT_EQ(record.dtagStartAdr, 0x10000U);
  EXPECT_EQ(record.dcrStartAdr, 0x20000U);
  EXPECT_EQ(record.tlbStartAdr, 0x30000U);
}

} // namespace
