#include "settings/ConnectionKinds.h"

#include "ZelDebugDialog/Engine.h"

namespace ZelDebugDialog::model {

const std::array<ConnectionKind, 5> &connectionKinds() {
  // A kind that uses no stub resets the stub type: one that a serial stub left
  // behind would shut off the cable.
  static constexpr std::array<ConnectionKind, 5> kinds{{
      {"sim", "Simulator", Engine::CONNECT_SIM, Engine::STUB_JTAG},
      {"hw", "Hardware", Engine::CONNECT_HW, Engine::STUB_JTAG},
      {"stub-serial", "Stub over a serial line", Engine::CONNECT_STUB,
       Engine::STUB_SERIAL},
      {"stub-jtag", "Stub over JTAG", Engine::CONNECT_STUB, Engine::STUB_JTAG},
      {"vp", "Virtual platform", Engine::CONNECT_VP, Engine::STUB_JTAG},
  }};
  return kinds;
}

const ConnectionKind *findConnectionKind(std::string_view word) {
  for (const ConnectionKind &kind : connectionKinds())
    if (word == kind.word)
      return &kind;
  return nullptr;
}

const ConnectionKind *kindOf(const ProcessorInfoImp &record) {
  const bool isStub = record.connectionType == Engine::CONNECT_STUB;
  const bool isSerial = record.stubType != Engine::STUB_JTAG;
  for (const ConnectionKind &kind : connectionKinds())
    if (record.connectionType == kind.type &&
        (!isStub || isSerial == (kind.stubType != Engine::STUB_JTAG)))
      return &kind;
  return nullptr;
}

std::vector<std::string> allowedKinds(std::uint32_t mask) {
  std::vector<std::string> words;
  for (const ConnectionKind &kind : connectionKinds())
    if ((mask & kind.type) != 0)
      words.emplace_back(kind.word);
  return words;
}

} // namespace ZelDebugDialog::model
