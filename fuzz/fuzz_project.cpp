// A project file and a local file on a small board: read, merged, and changed
// at one place. Whatever stands there, every fault has its place and its code,
// and a change leaves alone what it is not about.
//
// The first byte of an input says which change, the rest is the project file up
// to the first zero byte, and the local file behind it.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ProjectFile/Codes.h"
#include "ZelDebugDialog/ProjectFile/Edit.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "ZelDebugDialog/ProjectFile/Origins.h"
#include "ZelDebugDialog/ProjectFile/Project.h"
#include "common/Require.h"
#include "common/ScratchFolder.h"
#include "support/FakeDesign.h"

namespace {

using namespace ZelDebugDialog;
using fuzz::require;
using fuzz::requireSame;

support::FakeDesign makeDesign() {
  support::FakeDesign design;
  design.processors = {"lc", "ppc405", "a9", "none"};
  design.typeOf["lc"] = "lumacore";
  design.typeOf["ppc405"] = "ppc405_core";
  design.addDebugModule("hdu", "hdu", {"lc"});
  design.addDebugModule("link", "ppc_jtag_link", {"ppc405"});
  design.instancesOfType["soc_cortexa9"] = {"a9"};
  return design;
}

const fuzz::ScratchFolder &place() {
  static const fuzz::ScratchFolder once;
  return once;
}

const Board &board() {
  static support::FakeDesign design = makeDesign();
  static const Board once(design, place().path() + "/etc");
  return once;
}

std::string projectPath() { return place().path() + "/zeldebug.toml"; }

// --- Faults ------------------------------------------------------------------

/// How long each line of a text is.
std::vector<std::size_t> lengthsOf(const std::string &text) {
  std::vector<std::size_t> lengths{0};
  for (const char c : text)
    if (c == '\n')
      lengths.push_back(0);
    else
      ++lengths.back();
  return lengths;
}

void checkPlace(const ProjectPlace &at, const std::string &text) {
  const std::vector<std::size_t> lengths = lengthsOf(text);
  require(at.line >= 1 && at.column >= 1 &&
              static_cast<std::size_t>(at.line) <= lengths.size() &&
              static_cast<std::size_t>(at.column) <=
                  lengths[static_cast<std::size_t>(at.line) - 1] + 1,
          "a fault has a place in its file");
}

struct Texts {
  std::string project;
  std::optional<std::string> local;

  const std::string &of(const ProjectPlace &at) const {
    return at.file == projectPath() ? project : local.value();
  }
};

void checkFaults(const std::vector<ProjectFault> &faults, const Texts &texts) {
  std::tuple<bool, int, int> last{false, 0, 0};
  for (const ProjectFault &fault : faults) {
    const ProjectCode *const code = FindProjectCode(fault.code);
    require(code != nullptr && code->severity == fault.severity,
            "a fault has a code that is known");
    require(!fault.message.empty(), "a fault says what is wrong");
    checkPlace(fault.place, texts.of(fault.place));
    const std::tuple<bool, int, int> now{fault.place.file != projectPath(),
                                         fault.place.line, fault.place.column};
    require(last <= now, "faults stand in the order of their places");
    last = now;
  }
}

bool hasErrors(const std::vector<ProjectFault> &faults) {
  for (const ProjectFault &fault : faults)
    if (fault.severity == ProjectSeverity::error)
      return true;
  return false;
}

// --- What counts -------------------------------------------------------------

void checkMerged(const Project &project, const ProjectChoice &choice,
                 const Texts &texts) {
  for (const BoardProcessor &processor : board().Processors()) {
    const MergedProcessor merged = MergeProject(project, choice, processor);
    std::set<std::string> seen;
    for (const MergedValue &value : merged.values) {
      require(seen.insert(value.value.setting).second,
              "one value counts of a setting");
      checkPlace(value.value.place, texts.of(value.value.place));
    }
    Session session(board(), processor.name);
    const AppliedProject applied =
        ApplyProject(project, merged, board(), session);
    require(applied.command.has_value() != applied.refusal.has_value(),
            "there is a command, or a reason");
    if (!applied.command)
      continue;
    requireSame(ShowProject(merged, session).text, *applied.command,
                "what is shown is what is applied");
    for (const ProjectLoss &loss : applied.displaced)
      require(merged.Find(loss.displacer) != nullptr,
              "what is displaced is so by something that is said");
  }
}

// --- A change ----------------------------------------------------------------

using Said = std::multiset<std::string>;

void addTable(const std::string &front, const ProjectTable &table,
              const std::set<std::string> &without, Said &said) {
  const std::string name =
      front + std::to_string(static_cast<int>(table.scope)) + table.name + " ";
  for (const ProjectValue &value : table.values)
    if (without.count(value.setting) == 0)
      said.insert(name + value.setting + " = " +
                  ShowValue(*FindSetting(value.setting), value.value));
  for (const ProjectText &unset : table.unset)
    if (without.count(unset.text) == 0)
      said.insert(name + "unset " + unset.text);
}

/// Everything that one file says, but of some settings in its own blocks.
Said saidBy(const ProjectLayer &layer, const std::set<std::string> &without) {
  Said said;
  for (const ProjectTable &table : layer.block)
    addTable("", table, without, said);
  for (const ProjectTable &table : layer.probes)
    addTable("probe ", table, {}, said);
  for (const ProjectProfile &profile : layer.profiles)
    for (const ProjectTable &table : profile.tables)
      addTable("profile " + profile.name + " ", table, {}, said);
  return said;
}

ProjectEdit editOf(std::uint8_t which) {
  static const std::array<SettingValues, 6> values{
      SettingValues{{"debugDevice", Value(7)}},
      SettingValues{{"cable.esn", Value("00#42\"")}},
      SettingValues{{"cable.cableType", Value("quorla_podusb")}},
      SettingValues{{"icacheStartAdr", Value("0x70000000")},
                    {"debugDevice", Value(1)}},
      SettingValues{{"connection", Value("sim")}},
      SettingValues{{"chain", Value(Value::Chain())}}};
  ProjectEdit edit;
  edit.target =
      (which & 1U) != 0 ? ProjectTarget::local : ProjectTarget::project;
  edit.processor = (which & 2U) != 0 ? "lc" : "";
  const SettingValues &chosen = values[(which >> 3U) % values.size()];
  if ((which & 4U) != 0)
    edit.values = chosen;
  else
    for (const auto &[setting, value] : chosen)
      edit.unset.push_back(setting);
  return edit;
}

void checkEdit(const Project &project, const ProjectEdit &edit,
               const Texts &texts) {
  fuzz::fill(projectPath(), texts.project);
  if (texts.local)
    fuzz::fill(LocalFileOf(projectPath()), *texts.local);
  else
    (void)std::remove(LocalFileOf(projectPath()).c_str());
  std::set<std::string> asked(edit.unset.begin(), edit.unset.end());
  for (const auto &[setting, value] : edit.values)
    asked.insert(setting);
  try {
    const EditedProject edited =
        EditProject(projectPath(), edit, board(), ProjectWishes());
    require(!edited.project.HasErrors(),
            "a change leaves files without errors");
    require(saidBy(project.project, asked) ==
                    saidBy(edited.project.project, asked) &&
                saidBy(project.local, asked) ==
                    saidBy(edited.project.local, asked),
            "a change leaves alone what it is not about");
    const bool isLocal = edit.target == ProjectTarget::local;
    const ProjectLayer &layer =
        isLocal ? edited.project.local : edited.project.project;
    for (const auto &[setting, value] : edit.values) {
      bool isThere = false;
      for (const ProjectTable &table : layer.block)
        for (const ProjectValue &said : table.values)
          isThere = isThere || (said.setting == setting &&
                                said.value == ExpectSetting(setting, value) &&
                                table.name == edit.processor);
      require(isThere, "what was asked for is said");
    }
  } catch (const Refusal &refusal) {
    require(!refusal.problem.empty(), "a refusal says why");
  }
  requireSame(fuzz::contentOf(projectPath()), texts.project,
              "planning writes nothing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  if (size == 0)
    return 0;
  const std::string all(data + 1, data + size);
  const std::size_t zero = all.find('\0');
  Texts texts{all.substr(0, zero), std::nullopt};
  if (zero != std::string::npos)
    texts.local = all.substr(zero + 1);
  const Project project =
      ReadProjectTexts(projectPath(), texts.project, texts.local);
  checkFaults(project.faults, texts);
  const std::vector<ProjectFault> faults = AllFaults(project, board());
  checkFaults(faults, texts);
  if (hasErrors(faults))
    return 0;
  checkMerged(project, ChooseProject(project, {}), texts);
  checkEdit(project, editOf(data[0]), texts);
  return 0;
}
