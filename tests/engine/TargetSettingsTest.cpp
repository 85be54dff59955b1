// Connection, stub, debug device, processor JTAG pins, simulator file and
// read-only memory of the current processor.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>

#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

class TargetSettings : public support::RecordFixture {
protected:
  TargetSettings() {
    record = support::unusualRecord();
    engine.SetErrorStr("an old message");
  }

  /// The record is `expected` and nothing else of the engine has changed.
  void expectOnlyRecord(const ProcessorInfoImp &expected) {
    EXPECT_EQ(textOf(record), textOf(expected));
    EXPECT_EQ(textOf(*state.cableOption), textOf(CableOption()));
    EXPECT_EQ(state.cpuJtag, 0U);
    EXPECT_EQ(errorText(), "an old message");
  }
};

TEST_F(TargetSettings, AllowsConnectionTypesThatShareABitWithTheMask) {
  constexpr struct {
    std::uint32_t mask;
    std::uint32_t type;
    int result;
  } rows[] = {
      {3, 1, 0},
      {3, 2, 0},
      {3, 4, 1},
      {3, 8, 1},
      {3, 0, 1},
      {3, 3, 0},
      {3, 6, 0},
      {3, 0xC, 1},
      {3, 0xFFFFFFFC, 1},
      {3, 0xFFFFFFFF, 0},
      {1, 1, 0},
      {1, 2, 1},
      {2, 1, 1},
      {2, 2, 0},
      {0, 1, 1},
      {0, 0xFFFFFFFF, 1},
      {0x87, 4, 0},
      {0x87, 8, 1},
      {0x87, 0x80, 0},
      {0x87, 0x84, 0},
      {0x87, 0x40, 1},
      {0x200, 2, 1},
      {0x200, 0x200, 0},
      {0xFFFFFFFF, 0, 1},
      {0x80000000, 0x80000000, 0},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(::testing::Message() << std::hex << "mask 0x" << row.mask
                                      << " type 0x" << row.type);
    record.connectionMask = row.mask;
    record.connectionType = 0x77;
    ProcessorInfoImp expected = record;
    if (row.result == 0)
      expected.connectionType = row.type;

    EXPECT_EQ(
        engine.SetConnectionType(static_cast<Engine::ConnectionType>(row.type)),
        row.result);
    expectOnlyRecord(expected);
  }
}

TEST_F(TargetSettings, GivesTheConnectionTypeUnlessItIsZero) {
  for (const std::uint32_t stored :
       {1U, 2U, 4U, 8U, 0x84U, 0xC4U, 0xFFFFFFFFU}) {
    SCOPED_TRACE(stored);
    record.connectionType = stored;
    auto type = static_cast<Engine::ConnectionType>(0x55);
    EXPECT_EQ(engine.GetConnectionType(type), 0);
    EXPECT_EQ(type, stored);
  }
  record.connectionType = 0;
  auto type = static_cast<Engine::ConnectionType>(0x55);
  EXPECT_EQ(engine.GetConnectionType(type), 1);
  EXPECT_EQ(type, 0x55U);
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(TargetSettings, AllowsStubTypesWhoseDeviceIsPresent) {
  constexpr const char *none = "an old message";
  constexpr const char *noUart = "UART device not present in system";
  constexpr const char *noJtag = "JTAG device not present in system";
  const struct {
    std::uint32_t connectionType;
    std::uint32_t stubType;
    int result;
    const char *message;
  } rows[] = {
      {0x80, 1, 0, none},
      {0x84, 1, 0, none},
      {0xFFFFFFFF, 1, 0, none},
      {0xC4, 1, 0, none},
      {0x7F, 1, 1, noUart},
      {0x44, 1, 1, noUart},
      {4, 1, 1, noUart},
      {0, 1, 1, noUart},
      {0xFFFFFF7F, 1, 1, noUart},
      {0x40, 0, 0, none},
      {0x44, 0, 0, none},
      {0xFFFFFFFF, 0, 0, none},
      {0xC4, 0, 0, none},
      {0xBF, 0, 1, noJtag},
      {0x84, 0, 1, noJtag},
      {4, 0, 1, noJtag},
      {0, 0, 1, noJtag},
      {0xFFFFFFBF, 0, 1, noJtag},
      {0, 2, 0, none},
      {4, 2, 0, none},
      {0, 0x80, 0, none},
      {0, 0xFFFFFFFF, 0, none},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(::testing::Message()
                 << std::hex << "connection 0x" << row.connectionType
                 << " stub 0x" << row.stubType);
    record.connectionType = row.connectionType;
    record.stubType = 7;
    engine.SetErrorStr("an old message");
    ProcessorInfoImp expected = record;
    if (row.result == 0)
      expected.stubType = row.stubType;

    EXPECT_EQ(engine.SetStubType(static_cast<Engine::StubType>(row.stubType)),
              row.result);
    EXPECT_EQ(errorText(), row.message);
    EXPECT_EQ(textOf(record), textOf(expected));
  }
}

TEST_F(TargetSettings, GivesTheStubTypeOfAStubConnectionOnly) {
  constexpr struct {
    std::uint32_t connectionType;
    std::uint32_t stored;
    int result;
  } rows[] = {
      {4, 0, 0},          {4, 1, 0},    {4, 7, 0},          {0x84, 1, 0},
      {0x44, 0, 0},       {6, 1, 0},    {0xFFFFFFFF, 1, 0}, {0, 1, 2},
      {1, 1, 2},          {2, 1, 2},    {3, 0, 2},          {8, 1, 2},
      {0xFFFFFFFB, 1, 2}, {0x80, 1, 2}, {0x40, 0, 2},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(::testing::Message() << std::hex << row.connectionType);
    record.connectionType = row.connectionType;
    record.stubType = row.stored;
    auto type = static_cast<Engine::StubType>(0x55);
    EXPECT_EQ(engine.GetStubType(type), row.result);
    EXPECT_EQ(type, row.result == 0 ? row.stored : 0x55U);
    EXPECT_EQ(errorText(), "an old message");
  }
}

TEST_F(TargetSettings, StoresTheStubPortAndAlwaysGivesIt) {
  for (const std::uint32_t connectionType : {0U, 1U, 2U, 4U, 8U}) {
    for (const std::string &port :
         {std::string("/dev/ttyS1"), std::string(), std::string(3000, 'p'),
          std::string("a\0b", 3)}) {
      SCOPED_TRACE(::testing::Message() << connectionType << ' ' << port);
      record.connectionType = connectionType;
      ProcessorInfoImp expected = record;
      expected.stubSerialPort = port;
      EXPECT_EQ(engine.SetStubSerialPort(port), 0);
      expectOnlyRecord(expected);
      std::string read = "what stood there";
      EXPECT_EQ(engine.GetStubSerialPort(read), 0);
      EXPECT_EQ(read, port);
    }
  }
}

TEST_F(TargetSettings, StoresTheBaudRateAndGivesItUnlessItIsZero) {
  for (const int rate : {1, 115200, -1, INT_MAX, INT_MIN, 0}) {
    for (const std::uint32_t connectionType : {0U, 1U, 2U, 4U}) {
      SCOPED_TRACE(::testing::Message() << rate << ' ' << connectionType);
      record.connectionType = connectionType;
      ProcessorInfoImp expected = record;
      expected.stubBaudRate = rate;
      EXPECT_EQ(engine.SetStubBaudrate(rate), 0);
      expectOnlyRecord(expected);
      int read = 42;
      EXPECT_EQ(engine.GetStubBaudRate(read), rate == 0 ? 1 : 0);
      EXPECT_EQ(read, rate == 0 ? 42 : rate);
    }
  }
}

TEST_F(TargetSettings, StoresTheLowEightBitsOfTheDebugDevice) {
  constexpr struct {
    int given;
    int stored;
  } rows[] = {
      {0, 0},      {1, 1},       {127, 127},    {128, -128},   {200, -56},
      {255, -1},   {256, 0},     {257, 1},      {-1, -1},      {-128, -128},
      {-129, 127}, {0x17F, 127}, {0x180, -128}, {INT_MAX, -1}, {INT_MIN, 0},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.given);
    record = support::unusualRecord();
    record.connectionType = 2;
    record.stubType = 0;
    ProcessorInfoImp expected = record;
    expected.debugDevice = static_cast<std::int8_t>(row.stored);
    EXPECT_EQ(engine.SetDebugDevice(row.given), 0);
    expectOnlyRecord(expected);

    int read = 1000;
    EXPECT_EQ(engine.GetDebugDevice(read), row.stored == 0 ? 1 : 0);
    EXPECT_EQ(read, row.stored == 0 ? 1000 : row.stored);
  }
}

TEST_F(TargetSettings, HasNoDebugDeviceForTheSimulatorAndASerialStub) {
  constexpr struct {
    std::uint32_t connectionType;
    std::uint32_t stubType;
    std::int8_t device;
    int result;
  } rows[] = {
      {2, 0, 3, 0}, {4, 0, 3, 0},    {8, 0, 3, 0}, {0, 0, 3, 0}, {3, 0, 3, 0},
      {9, 0, 3, 0}, {2, 2, 3, 0},    {1, 0, 3, 2}, {1, 0, 0, 2}, {1, 1, 3, 2},
      {2, 1, 3, 2}, {4, 1, 3, 2},    {2, 1, 0, 2}, {8, 1, 3, 2}, {2, 0, 0, 1},
      {4, 2, 0, 1}, {0x84, 1, 3, 2},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(::testing::Message()
                 << "connection " << row.connectionType << " stub "
                 << row.stubType << " device " << int{row.device});
    record.connectionType = row.connectionType;
    record.stubType = row.stubType;
    record.debugDevice = row.device;
    int read = 1000;
    EXPECT_EQ(engine.GetDebugDevice(read), row.result);
    EXPECT_EQ(read, row.result == 0 ? int{row.device} : 1000);
    EXPECT_EQ(errorText(), "an old message");
  }
}

TEST_F(TargetSettings, MarksTheProcessorsJtagPinsUntilAReset) {
  EXPECT_EQ(engine.SetCpuJtag(), 0);
  EXPECT_EQ(state.cpuJtag, 1U);
  EXPECT_EQ(engine.SetCpuJtag(), 0);
  EXPECT_EQ(state.cpuJtag, 1U);
  EXPECT_EQ(errorText(), "an old message");
  EXPECT_EQ(textOf(record), textOf(support::unusualRecord()));

  engine.SetCableType(Engine::QUORLA_PODUSB);
  engine.SetJtagChainOptions({});
  EXPECT_EQ(state.cpuJtag, 1U);
  state.EngineImpInit();
  EXPECT_EQ(state.cpuJtag, 0U);
}

TEST(TargetSettingsAlone, MarksTheProcessorsJtagPinsWithoutAProcessor) {
  Engine engine;
  EXPECT_EQ(engine.SetCpuJtag(), 0);
  EXPECT_EQ(engine.GetProcessorList(nullptr)->cpuJtag, 1U);
}

TEST_F(TargetSettings, IgnoresASimulatorFile) {
  EXPECT_EQ(engine.SetPPCSimConfigFile("other.icf"), 0);
  expectOnlyRecord(support::unusualRecord());
}

TEST_F(TargetSettings, GivesTheSimulatorFileOfASimulatedPowerPcOnly) {
  const struct {
    std::uint32_t family;
    std::uint32_t connectionType;
    const char *file;
    int result;
  } rows[] = {
      {1, 1, "a.icf", 0}, {1, 1, "", 1},      {0, 1, "a.icf", 2},
      {2, 1, "a.icf", 2}, {1, 2, "a.icf", 2}, {1, 0, "a.icf", 2},
      {1, 4, "a.icf", 2}, {1, 8, "a.icf", 2}, {1, 3, "a.icf", 2},
      {0, 2, "", 2},      {3, 1, "a.icf", 2},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(::testing::Message() << row.family << ' ' << row.connectionType
                                      << " '" << row.file << "'");
    record.procFamily = row.family;
    record.connectionType = row.connectionType;
    record.ppcSimConfigFile = row.file;
    std::string read = "what stood there";
    EXPECT_EQ(engine.GetPPCSimConfigFile(read), row.result);
    EXPECT_EQ(read, row.result == 0 ? row.file : "what stood there");
    EXPECT_EQ(errorText(), "an old message");
  }
}

TEST_F(TargetSettings, StoresAnyRangeOfReadOnlyMemory) {
  constexpr struct {
    unsigned start;
    unsigned size;
  } rows[] = {{0x1000, 0x200}, {0, 0}, {0xFFFFFFFF, 1}, {1, 0xFFFFFFFF}};
  for (const auto &row : rows) {
    for (const std::uint32_t connectionType : {1U, 2U}) {
      SCOPED_TRACE(row.start);
      record.connectionType = connectionType;
      ProcessorInfoImp expected = record;
      expected.romemStartAdr = row.start;
      expected.romemSize = row.size;
      EXPECT_EQ(engine.SetROMem(row.start, row.size), 0);
      expectOnlyRecord(expected);
    }
  }
}

TEST_F(TargetSettings, GivesTheReadOnlyMemoryOfHardwareOnly) {
  constexpr struct {
    std::uint32_t connectionType;
    std::uint32_t start;
    std::uint32_t size;
    int result;
  } rows[] = {
      {2, 0x1000, 0x200, 0},     {2, 0, 0, 0},          {2, 0xFFFFFFFE, 1, 0},
      {2, 0xFFFFFFFF, 0x200, 1}, {1, 0x1000, 0x200, 2}, {4, 0x1000, 0x200, 2},
      {8, 0x1000, 0x200, 2},     {0, 0x1000, 0x200, 2}, {3, 0x1000, 0x200, 2},
      {1, 0xFFFFFFFF, 0, 2},
  };
  for (const auto &row : rows) {
    for (const std::uint32_t family : {0U, 1U, 2U}) {
      SCOPED_TRACE(::testing::Message()
                   << "connection " << row.connectionType << " start "
                   << row.start << " family " << family);
      record.procFamily = family;
      record.connectionType = row.connectionType;
      record.romemStartAdr = row.start;
      record.romemSize = row.size;
      unsigned start = 77;
      unsigned size = 88;
      EXPECT_EQ(engine.GetROMem(start, size), row.result);
      EXPECT_EQ(start, row.result == 0 ? row.start : 77U);
      EXPECT_EQ(size, row.result == 0 ? row.size : 88U);
      EXPECT_EQ(errorText(), "an old message");
    }
  }
}

} // namespace
