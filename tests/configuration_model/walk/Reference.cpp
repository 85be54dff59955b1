#include "configuration_model/walk/Reference.h"

#include <memory>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog/SettingFields.h"
#include "configuration_model/walk/Samples.h"

namespace walk {

using namespace ZelDebugDialog;

namespace {

const SettingState &find(const SessionState &state, const std::string &id) {
  for (const SettingState &setting : state.settings)
    if (setting.id == id)
      return setting;
  throw std::logic_error("no setting " + id);
}

struct Kind {
  const char *word;
  std::int64_t type;
  std::int64_t stub;
};

constexpr Kind kinds[] = {{"sim", 1, 0},
                          {"hw", 2, 0},
                          {"stub-serial", 4, 1},
                          {"stub-jtag", 4, 0},
                          {"vp", 8, 0}};

} // namespace

Reference::Reference() : imp(engine.GetProcessorList(nullptr)) {
  imp->currentProcessor = &record;
}

Reference::~Reference() {
  ReleaseChainRecords(imp->jtagChain);
  imp->currentProcessor = nullptr;
}

void Reference::setField(const std::string &name, const Value &value,
                         std::size_t device) {
  const std::size_t field = FindField(name);
  SetField(*imp, field,
           value.IsText()   ? FieldValue(value.Text())
           : value.IsFlag() ? FieldValue(std::int64_t{value.Flag()})
                            : FieldValue(value.Number()),
           device);
}

void Reference::setChain(const Value &value) {
  ReleaseChainRecords(imp->jtagChain);
  for (const ChainDevice &device : value.Devices()) {
    imp->jtagChain.push_back(new JtagOption);
    for (const auto &[name, field] : device)
      setField("chain[]." + name, field, imp->jtagChain.size() - 1);
  }
}

void Reference::load(const SessionState &state) {
  for (const SettingState &setting : state.settings)
    if (setting.id == "chain")
      setChain(setting.value);
    else if (setting.id != "connection")
      setField(setting.id, setting.value);
}

void Reference::set(const std::string &setting, const Value &value) {
  if (setting == "connection") {
    for (const Kind &kind : kinds)
      if (value == Value(kind.word)) {
        record.connectionType = static_cast<std::uint32_t>(kind.type);
        record.stubType = static_cast<std::uint32_t>(kind.stub);
      }
  } else if (setting == "chain") {
    setChain(value);
  } else if (setting == "cable.cableType") {
    if (value != Value(static_cast<std::uint32_t>(imp->cableOption->cableType)))
      imp->cableOption->CableOptionInit(
          static_cast<Engine::CableType>(value.Number()));
  } else {
    setField(setting, value);
    if (setting == "icacheStartAdr")
      record.debugAddressMap = record.icacheStartAdr;
  }
}

std::optional<std::string> Reference::write() {
  std::string command;
  if (KvoOption_Parser::WriteKvoCmdString(*imp, command) != 0)
    return std::nullopt;
  return command;
}

bool Reference::canMatterWith(const SessionState &state,
                              const std::string &setting,
                              const std::vector<std::string> &together,
                              SettingValues &fixed) {
  if (fixed.size() < together.size()) {
    const std::string &other = together[fixed.size()];
    std::vector<Sample> samples = goodSamples(find(state, other));
    samples.push_back({find(state, other).value, {}});
    for (const Sample &sample : samples) {
      fixed.emplace_back(other, sample.value);
      const bool matters = canMatterWith(state, setting, together, fixed);
      fixed.pop_back();
      if (matters)
        return true;
    }
    return false;
  }
  const auto outcomeOf = [&](const Value *value) {
    load(state);
    for (const auto &[other, fixedValue] : fixed)
      set(other, fixedValue);
    if (value != nullptr)
      set(setting, *value);
    return write();
  };
  const auto present = outcomeOf(nullptr);
  for (const Sample &sample : goodSamples(find(state, setting)))
    if (outcomeOf(&sample.value) != present)
      return true;
  return false;
}

bool Reference::canMatter(const SessionState &state,
                          const std::string &setting) {
  const SettingInfo &info = *FindSetting(setting);
  SettingValues fixed;
  return info.settable && canMatterWith(state, setting, info.together, fixed);
}

} // namespace walk
