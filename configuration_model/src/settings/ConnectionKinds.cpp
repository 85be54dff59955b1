#include "settings/ConnectionKinds.h"

#include <array>

#include "ZelDebugDialog/Engine.h"

namespace ZelDebugDialog::model {

namespace {

struct Label {
  std::string_view word;
  const char *label;
};

constexpr std::array<Label, 5> labels{{
    {"sim", "Simulator"},
    {"hw", "Hardware"},
    {"stub-serial", "Stub over a serial line"},
    {"stub-jtag", "Stub over JTAG"},
    {"vp", "Virtual platform"},
}};

} // namespace

std::string labelOf(const ConnectionKind &kind) {
  for (const Label &row : labels)
    if (row.word == kind.name)
      return row.label;
  return std::string(kind.name);
}

const ConnectionKind *findConnectionKind(std::string_view word) {
  for (const ConnectionKind &kind : connectionKinds)
    if (word == kind.name)
      return &kind;
  return nullptr;
}

const ConnectionKind *kindOf(const ProcessorInfoImp &record) {
  const bool isStub = record.connectionType == Engine::CONNECT_STUB;
  const bool isSerial = record.stubType != Engine::STUB_JTAG;
  for (const ConnectionKind &kind : connectionKinds)
    if (record.connectionType == kind.connectionType &&
        (!isStub || isSerial == (kind.stubType != Engine::STUB_JTAG)))
      return &kind;
  return nullptr;
}

std::vector<std::string> allowedKinds(std::uint32_t mask) {
  std::vector<std::string> words;
  for (const ConnectionKind &kind : connectionKinds)
    if ((mask & kind.connectionType) != 0)
      words.emplace_back(kind.name);
  return words;
}

} // namespace ZelDebugDialog::model
