#include <algorithm>
#include <map>
#include <set>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Adopt.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "adopting/NewText.h"
#include "editing/WrittenValue.h"
#include "files/ReadFile.h"
#include "merging/Applicable.h"
#include "reading/DeskSettings.h"
#include "reading/Keys.h"

namespace ZelDebugDialog {

namespace {

using namespace project;

/// What is not default, by the place of the setting in the table.
using NotDefault = std::map<std::size_t, Value>;

/// One processor, its option file and what it says.
struct Adopted {
  const BoardProcessor *processor = nullptr;
  std::optional<std::string> disk;
  NotDefault values;
  NotDefault ofDesk;
};

const SettingInfo &settingAt(std::size_t at) { return GetSettings()[at]; }

std::size_t placeOf(const std::string &setting) {
  std::size_t at = 0;
  while (settingAt(at).id != setting)
    ++at;
  return at;
}

bool allows(const BoardProcessor &processor, const std::string &kind) {
  return std::find(processor.connections.begin(), processor.connections.end(),
                   kind) != processor.connections.end();
}

/// Whether a file can say it: what a command may hold, a change may refuse.
bool canBeSaid(const SettingInfo &setting, const Value &value) {
  try {
    ExpectSetting(setting.id, value);
  } catch (const Refusal &) {
    return false;
  }
  return !readToml("value = " + writtenValue(setting, value, "", "\n")).error;
}

Adopted adoptedOf(const BoardProcessor &processor, const Board &board) {
  Adopted adopted;
  adopted.processor = &processor;
  Session session(board, processor.name);
  if (!session.Problem().empty()) {
    Refusal refusal(RefusalKind::unreadable, ShowText(session.File()),
                    session.Problem());
    refusal.file = session.File();
    throw refusal;
  }
  adopted.disk = findFile(session.File());
  const SessionState state = session.State();
  const std::set<std::string> applicable = applicableIn(session);
  const Value cable = session.Get(cableType);
  for (std::size_t at = 0; at < GetSettings().size(); ++at) {
    const SettingInfo &setting = settingAt(at);
    if (findAccepted(setting.id) == nullptr)
      continue;
    const auto now = std::find_if(
        state.settings.begin(), state.settings.end(),
        [&setting](const SettingState &one) { return one.id == setting.id; });
    Value value = session.Get(setting.id);
    const bool isAsByDefault = now == state.settings.end()
                                   ? value == Value(Value::Chain{})
                                   : value == now->defaultValue;
    const bool isForbidden =
        setting.id == connection && adopted.disk == std::nullopt &&
        !processor.connections.empty() &&
        !(value.IsText() && allows(processor, value.Text()));
    if (isForbidden)
      value = processor.connections.front();
    else if (isAsByDefault || applicable.count(setting.id) == 0 ||
             !canBeSaid(setting, value))
      continue;
    (isOfDesk(setting.id, value, &cable) ? adopted.ofDesk : adopted.values)
        .emplace(at, value);
  }
  return adopted;
}

/// What all of these share is taken out of them.
SettingValues takeShared(const std::vector<NotDefault *> &all) {
  SettingValues shared;
  if (all.empty())
    return shared;
  const NotDefault first = *all.front();
  for (const auto &[at, value] : first) {
    const std::size_t place = at;
    const Value &wanted = value;
    const bool isShared =
        std::all_of(all.begin(), all.end(), [&](const NotDefault *one) {
          const auto found = one->find(place);
          return found != one->end() && found->second == wanted;
        });
    if (!isShared)
      continue;
    shared.emplace_back(settingAt(at).id, value);
    for (NotDefault *const one : all)
      one->erase(place);
  }
  return shared;
}

/// The tables of one file.
std::string tablesOf(std::vector<Adopted> &list, NotDefault Adopted::*part) {
  std::string text;
  const auto add = [&text](const Path &table, const SettingValues &values) {
    if (!values.empty())
      text += newTable(table, values);
  };
  std::vector<NotDefault *> all;
  std::vector<std::string> types;
  std::map<std::string, std::vector<NotDefault *>> byType;
  for (Adopted &one : list) {
    all.push_back(&(one.*part));
    if (byType.find(one.processor->type) == byType.end())
      types.push_back(one.processor->type);
    byType[one.processor->type].push_back(&(one.*part));
  }
  add({"settings"}, takeShared(all));
  for (const std::string &type : types)
    if (byType[type].size() > 1)
      add({"type", type}, takeShared(byType[type]));
  for (const Adopted &one : list) {
    SettingValues values;
    for (const auto &[at, value] : one.*part)
      values.emplace_back(settingAt(at).id, value);
    add({"processor", one.processor->name}, values);
  }
  return text;
}

/// The sources that name the table of kinds, where one is to be written.
ProjectSources withTable(ProjectSources sources, AdoptedProject &made) {
  if (!sources.kindsTable.empty()) {
    made.kinds = sources.kindsTable;
    sources.kinds = kindsFileName;
  }
  return sources;
}

/// What becomes of an option file that is there.
void addChange(const Adopted &one, const Project &project, const Board &board,
               std::vector<AdoptChange> &changes) {
  if (!one.disk)
    return;
  Session session(board, one.processor->name);
  const AppliedProject applied = ApplyProject(
      project, MergeProject(project, {}, *one.processor), board, session);
  if (applied.command == one.disk && applied.lost.empty())
    return;
  AdoptChange change;
  change.processor = one.processor->name;
  change.file = session.File();
  change.before = *one.disk;
  change.command = applied.command;
  if (applied.refusal)
    change.reason = applied.refusal->problem;
  else if (!applied.lost.empty())
    change.reason = applied.lost.front().loss.field + ": " +
                    applied.lost.front().loss.reason;
  changes.push_back(std::move(change));
}

} // namespace

AdoptedProject InitProject(const Board &board, const ProjectSources &given) {
  AdoptedProject made;
  made.project =
      newHead(withTable(given, made)) +
      "\n# [settings]\n"
      "# cable.cableType = \"quorla_podusb\"   # of all processors\n"
      "#\n# [probe.lab]\n# esn = \"0042\"   # use.probe = \"lab\" in the local "
      "file chooses it\n";
  const SettingInfo &setting = settingAt(placeOf(connection));
  for (const BoardProcessor &processor : board.Processors())
    if (!processor.connections.empty() && !allows(processor, "hw"))
      made.project +=
          newTable({"processor", processor.name},
                   {{setting.id, Value(processor.connections.front())}});
  return made;
}

AdoptedProject AdoptProject(const Board &board, const ProjectSources &sources) {
  std::vector<Adopted> list;
  for (const BoardProcessor &processor : board.Processors())
    list.push_back(adoptedOf(processor, board));
  AdoptedProject made;
  made.project =
      newHead(withTable(sources, made)) + tablesOf(list, &Adopted::values);
  const std::string ofDesk = tablesOf(list, &Adopted::ofDesk);
  if (!ofDesk.empty())
    made.local = newLocalHead() + ofDesk;
  const Project project =
      ReadProjectTexts(projectFileName, made.project, made.local);
  for (const Adopted &one : list)
    addChange(one, project, board, made.changes);
  return made;
}

} // namespace ZelDebugDialog
