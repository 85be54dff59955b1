#include "configuration_model/ModelTest.h"

#include <algorithm>
#include <filesystem>

namespace model_test {

using namespace ZelDebugDialog;

void fillDesign(support::FakeDesign &design) {
  design = support::FakeDesign();
  design.processors = {"lc", "lc_sim", "ppc405", "ppc440", "a9", "r5"};
  design.typeOf = {{"lc", "lumacore"},        {"lc_sim", "lumacore"},
                   {"ppc405", "ppc405_core"}, {"ppc440", "ppc440_core"},
                   {"a9", "soc_cortexa9"},    {"r5", "soc_cortexr5"}};
  design.addDebugModule("hdu0", "hdu", {"lc"});
  design.addDebugModule("link0", "ppc_jtag_link", {"ppc405", "ppc440"});
  design.addDebugModule("other0", "probe", {"r5"});
  design.instancesOfType["lumacore"] = {"lc", "lc_sim"};
  design.instancesOfType["soc_cortexa9"] = {"a9"};
  design.addPeripheral("lc", "uart0", "uart_mini_cedar");
  design.addPeripheral("ppc440", "fpu0", "aux_fpu");
}

std::string shown(const std::string &setting, const Value &value) {
  const SettingInfo *const info = FindSetting(setting);
  if (value.IsText() || info == nullptr)
    return value.IsText() ? value.Text() : "nothing";
  return ShowValue(*info, value);
}

std::vector<std::string> shown(const std::vector<Effect> &effects) {
  std::vector<std::string> lines;
  for (const Effect &effect : effects)
    lines.push_back(
        effect.setting + ": " + shown(effect.setting, effect.before) + " -> " +
        shown(effect.setting, effect.after) + " (" + effect.why + ")");
  return lines;
}

std::vector<std::string> shown(const std::vector<Loss> &losses) {
  std::vector<std::string> lines;
  for (const Loss &loss : losses)
    lines.push_back(
        loss.field + ": " + shown(loss.field, loss.value) + " -> " +
        shown(loss.field, loss.readBack) + " [" + loss.code +
        (loss.displacedBy.empty() ? "" : " by " + loss.displacedBy) + "]" +
        (loss.blocking ? ", blocking" : ""));
  return lines;
}

std::vector<std::string> shown(const std::vector<Difference> &differences) {
  std::vector<std::string> lines;
  for (const Difference &difference : differences)
    lines.push_back(difference.setting + ": " +
                    shown(difference.setting, difference.saved) + " -> " +
                    shown(difference.setting, difference.now));
  return lines;
}

namespace {

std::string line(const SettingState &setting) {
  return setting.id + ": " + shown(setting.id, setting.value) + " | " +
         setting.text + " | " + shown(setting.id, setting.defaultValue) +
         " | " + setting.origin + " | " +
         (setting.applicable ? "yes" : setting.reason) + " | " +
         setting.draft.value_or("-") + " | " + setting.error;
}

} // namespace

std::vector<std::string> shown(const SessionState &state) {
  std::vector<std::string> lines{
      "command: " + state.command.value_or("none: " + state.commandError),
      "edited: " + state.editedCommand.value_or("none"),
      "draft: " + state.draft.value_or("none")};
  for (const SettingState &setting : state.settings)
    lines.push_back(line(setting));
  for (const auto &device : state.chain)
    for (const SettingState &field : device)
      lines.push_back(line(field));
  for (const std::string &loss : shown(state.losses))
    lines.push_back("loss: " + loss);
  for (const CommandDiagnostic &diagnostic : state.diagnostics)
    lines.push_back("diagnostic: " + diagnostic.message);
  return lines;
}

SettingState settingIn(const SessionState &state, const std::string &id) {
  for (const SettingState &setting : state.settings)
    if (setting.id == id)
      return setting;
  ADD_FAILURE() << "no setting " << id;
  return {};
}

std::vector<std::string> ModelTest::names() const {
  std::vector<std::string> found;
  for (const auto &entry :
       std::filesystem::directory_iterator(work.path() / "etc"))
    found.push_back(entry.path().filename().string());
  std::sort(found.begin(), found.end());
  return found;
}

} // namespace model_test
