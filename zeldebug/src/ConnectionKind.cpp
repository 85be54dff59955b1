#include "ConnectionKind.h"

#include <fmt/format.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::Engine;
using ZelDebugDialog::ProcessorInfoImp;

constexpr std::uint32_t jtagBit = 0x40;
constexpr std::uint32_t uartBit = 0x80;

} // namespace

const std::vector<ConnectionKind> &connectionKinds() {
  // A kind that uses no stub resets the stub type on its way: one that a serial
  // stub left behind would shut off the cable.
  static const std::vector<ConnectionKind> kinds{
      {"sim", Engine::CONNECT_SIM, jtagBit, Engine::STUB_JTAG},
      {"hw", Engine::CONNECT_HW, jtagBit, Engine::STUB_JTAG},
      {"stub-serial", Engine::CONNECT_STUB, uartBit, Engine::STUB_SERIAL},
      {"stub-jtag", Engine::CONNECT_STUB, jtagBit, Engine::STUB_JTAG},
      {"vp", Engine::CONNECT_VP, jtagBit, Engine::STUB_JTAG},
  };
  return kinds;
}

const ConnectionKind *findConnectionKind(const std::string &word) {
  for (const ConnectionKind &kind : connectionKinds())
    if (word == kind.word)
      return &kind;
  return nullptr;
}

std::vector<std::string> allowedKinds(std::uint32_t connectionMask) {
  std::vector<std::string> words;
  for (const ConnectionKind &kind : connectionKinds())
    if ((connectionMask & kind.connectionType) != 0)
      words.emplace_back(kind.word);
  return words;
}

std::string kindOf(const ProcessorInfoImp &record) {
  const bool isStub = record.connectionType == Engine::CONNECT_STUB;
  const bool isSerial = record.stubType != Engine::STUB_JTAG;
  for (const ConnectionKind &kind : connectionKinds())
    if (record.connectionType == kind.connectionType &&
        (!isStub || isSerial == (kind.stubType != Engine::STUB_JTAG)))
      return kind.word;
  return fmt::format("{:#x}", record.connectionType);
}

int applyConnectionKind(Engine &engine, const ConnectionKind &kind) {
  const auto type = [](std::uint32_t bits) {
    return static_cast<Engine::ConnectionType>(bits);
  };
  if (engine.SetConnectionType(type(kind.connectionType | kind.stubBit)) != 0 ||
      engine.SetStubType(static_cast<Engine::StubType>(kind.stubType)) != 0)
    return 1;
  return engine.SetConnectionType(type(kind.connectionType));
}

} // namespace zeldebug
