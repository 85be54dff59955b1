#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "merging/Bringer.h"
#include "merging/Processors.h"
#include "reading/Faults.h"
#include "reading/Keys.h"
#include "toml/Statements.h"

namespace ZelDebugDialog {

namespace {

using project::connection;

constexpr const char *connectionMask = "connection-mask";

SettingValues valuesOf(const MergedProcessor &merged,
                       const std::vector<ProjectLoss> &without = {}) {
  SettingValues values;
  for (const MergedValue &one : merged.values) {
    const bool isLeftOut = std::any_of(
        without.begin(), without.end(), [&one](const ProjectLoss &loss) {
          return loss.loss.field == one.value.setting;
        });
    if (!isLeftOut)
      values.emplace_back(one.value.setting, one.value.value);
  }
  return values;
}

void setFromDefaults(Session &session, const SettingValues &values) {
  session.Reset({});
  if (!values.empty())
    session.Change(values);
}

/// Where nobody has named a connection and the one that is there by default is
/// not allowed, nothing in the files is at fault but what is missing there.
Refusal connectionRefusal(const MergedProcessor &merged, const Board &board) {
  const BoardProcessor *const processor =
      project::findProcessor(board, merged.processor);
  const std::vector<std::string> allowed = processor == nullptr
                                               ? std::vector<std::string>()
                                               : processor->connections;
  const std::string name = ShowText(merged.processor);
  const MergedValue *const named = merged.Find(connection);
  std::string problem;
  if (allowed.empty())
    problem = fmt::format("'{}' allows no connection", name);
  else if (named != nullptr)
    problem =
        fmt::format("'{}' does not allow '{}'; it allows {}", name,
                    named->value.value.Text(), project::quotedList(allowed));
  else
    problem = fmt::format("'{}' does not allow the one that is there by "
                          "default; write [processor.{}] connection = \"{}\"",
                          name, project::writtenKey(merged.processor),
                          allowed.front());
  Refusal refusal(RefusalKind::notAllowed, connection, problem);
  refusal.setting = connection;
  refusal.value = named == nullptr ? "" : named->value.value.Text();
  refusal.accepted = allowed;
  refusal.suggestion = allowed.empty() ? "" : allowed.front();
  return refusal;
}

/// Of what nobody has written, the place of what has brought it.
ProjectPlace placeOf(const Project &project, const MergedProcessor &merged,
                     const std::string &setting, const Value &value) {
  const MergedValue *said = project::findSaid(merged, setting);
  if (said == nullptr)
    said = project::findBringer(merged, setting, value);
  if (said != nullptr)
    return said->value.place;
  return project.project.design ? project.project.design->place
                                : ProjectPlace{project.project.file, 1, 1};
}

/// A refused connection is lost as well, and nothing else matters then.
void loseConnection(const Refusal &refusal, const ProjectPlace &place,
                    const Session &session, std::vector<ProjectLoss> &lost) {
  Loss loss;
  loss.field = connection;
  loss.value =
      refusal.value.empty() ? session.Get(connection) : Value(refusal.value);
  loss.reason = refusal.problem;
  loss.code = connectionMask;
  loss.anchor = connectionMask;
  lost = {{std::move(loss), place, ""}};
}

bool isOfHigherSource(const MergedProcessor &merged, const std::string &what,
                      const MergedValue &than) {
  const MergedValue *const value = merged.Find(what);
  return value != nullptr && value->rank > than.rank;
}

void sortLosses(const Project &project, const MergedProcessor &merged,
                const Session &session, AppliedProject &applied) {
  const auto isWritten = [&merged](const ProjectLoss &one) {
    return merged.Find(one.loss.field) != nullptr;
  };
  for (const Loss &loss : session.Losses()) {
    const MergedValue *value = merged.Find(loss.field);
    if (value == nullptr && !loss.blocking)
      continue;
    ProjectLoss one{loss, placeOf(project, merged, loss.field, loss.value), ""};
    one.loss.blocking = true;
    if (value == nullptr)
      value = project::findBringer(merged, loss.field, loss.value);
    const bool isDisplaced = value != nullptr && !loss.displacedBy.empty() &&
                             isOfHigherSource(merged, loss.displacedBy, *value);
    if (!isDisplaced) {
      applied.lost.push_back(std::move(one));
      continue;
    }
    // What comes along with a value goes along with it.
    if (!isWritten(one))
      continue;
    one.displacer = loss.displacedBy;
    one.loss.blocking = false;
    applied.displaced.push_back(std::move(one));
  }
  // Who is told of one alone is told of what somebody has written.
  std::stable_partition(applied.lost.begin(), applied.lost.end(), isWritten);
}

} // namespace

AppliedProject ApplyProject(const Project &project,
                            const MergedProcessor &merged, const Board &board,
                            Session &session) {
  AppliedProject applied;
  const auto refuse = [&](const Refusal &refusal) {
    applied.refusal = refusal;
    applied.place = placeOf(project, merged, refusal.setting, {});
    applied.command.reset();
  };
  try {
    setFromDefaults(session, valuesOf(merged));
    sortLosses(project, merged, session, applied);
    const bool isNotAllowed = std::any_of(
        applied.lost.begin(), applied.lost.end(), [](const ProjectLoss &loss) {
          return loss.loss.code == connectionMask;
        });
    if (isNotAllowed) {
      refuse(connectionRefusal(merged, board));
      loseConnection(*applied.refusal, applied.place, session, applied.lost);
      return applied;
    }
    applied.command = session.Command();
    if (applied.displaced.empty())
      return applied;
    // What is displaced does not stand in the way of saving.
    setFromDefaults(session, valuesOf(merged, applied.displaced));
    if (session.Command() != *applied.command)
      setFromDefaults(session, valuesOf(merged));
  } catch (const Refusal &refusal) {
    const bool isOfConnection =
        refusal.kind == RefusalKind::notAllowed &&
        (refusal.setting == connection || refusal.setting == "connectionType");
    const bool isUnnamed = isOfConnection && merged.Find(connection) == nullptr;
    refuse(isUnnamed ? connectionRefusal(merged, board) : refusal);
    if (isOfConnection)
      loseConnection(*applied.refusal, applied.place, session, applied.lost);
  }
  return applied;
}

} // namespace ZelDebugDialog
