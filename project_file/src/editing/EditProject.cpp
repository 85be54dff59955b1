#include "ZelDebugDialog/ProjectFile/Edit.h"

#include <algorithm>
#include <map>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Files.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "editing/EditList.h"
#include "editing/EditText.h"
#include "editing/TargetProfile.h"
#include "editing/WantedValues.h"
#include "editing/WrittenValue.h"
#include "files/PutBack.h"
#include "files/ReadFile.h"
#include "merging/MergeSources.h"
#include "merging/Processors.h"
#include "merging/Sources.h"
#include "reading/Faults.h"
#include "reading/FileReader.h"
#include "reading/Keys.h"

namespace ZelDebugDialog {

namespace {

using namespace project;

constexpr const char *byteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void refuseFault(const ProjectFault &fault) {
  Refusal refusal(RefusalKind::unreadable,
                  fmt::format("{}:{}:{}", ShowText(fault.place.file),
                              fault.place.line, fault.place.column),
                  fault.message);
  refusal.file = fault.place.file;
  refusal.line = fault.place.line;
  refusal.setting = fault.setting;
  refusal.accepted = fault.accepted;
  refusal.suggestion = fault.suggestion;
  throw refusal;
}

void expectNoError(const std::vector<ProjectFault> &faults) {
  for (const ProjectFault &fault : faults)
    if (fault.severity == ProjectSeverity::error)
      refuseFault(fault);
}

Path settingPath(const Path &table, const std::string &setting) {
  Path path = table;
  std::size_t start = 0;
  for (;;) {
    const std::size_t dot = setting.find('.', start);
    path.push_back(setting.substr(start, dot - start));
    if (dot == std::string::npos)
      return path;
    start = dot + 1;
  }
}

/// The texts of both files while one of them changes.
class Edit {
public:
  Edit(std::string ofFile, const Board &ofBoard, const ProjectWishes &wishes)
      : projectFile(std::move(ofFile)), board(ofBoard) {
    projectText = expectFile(projectFile);
    localText = findFile(LocalFileOf(projectFile));
    isLocalThere = localText.has_value();
    const Project before = read();
    expectNoError(before.faults);
    told = AllFaults(before, board);
    expectNoError(told);
    choice = ChooseProject(before, wishes);
  }

  /// One a file that is a target, the project file first.
  std::vector<EditedProject> plan(const std::vector<ProjectEdit> &edits) {
    std::vector<EditedProject> changed(2);
    EditedProject &ofProject = changed.front();
    EditedProject &ofLocal = changed.back();
    ofProject.file = projectFile;
    ofProject.before = projectText;
    ofLocal.file = LocalFileOf(projectFile);
    ofLocal.before = localText;
    std::vector<bool> isOfLocal;
    for (const ProjectEdit &one : edits) {
      apply(one);
      isOfLocal.push_back(isLocal);
    }
    const Project after = read();
    const std::vector<ProjectFault> now = AllFaults(after, board);
    expectNoError(now);
    for (const ProjectFault &fault : newOf(now))
      (fault.place.file == ofLocal.file ? ofLocal : ofProject)
          .warnings.push_back(fault);
    ofProject.after = projectText;
    ofLocal.after = localText.value_or("");
    for (std::size_t at = 0; at < edits.size(); ++at) {
      edit = &edits[at];
      check(after, isOfLocal[at] ? ofLocal : ofProject);
    }
    ofProject.project = after;
    ofLocal.project = after;
    for (const bool isLast : {true, false})
      if (std::find(isOfLocal.begin(), isOfLocal.end(), isLast) ==
          isOfLocal.end())
        changed.erase(isLast ? changed.end() - 1 : changed.begin());
    return changed;
  }

private:
  Project read() const {
    return ReadProjectTexts(projectFile, projectText, localText);
  }
  std::string text() const {
    return isLocal ? localText.value_or("") : projectText;
  }
  void change(const std::string &to) {
    if (!isLocal)
      projectText = to;
    else if (isLocalThere || !to.empty())
      localText = to;
    else
      localText.reset();
  }

  void apply(const ProjectEdit &one) {
    edit = &one;
    choose(read());
    for (const auto &[setting, value] : wantedValues(one))
      set(setting, value);
    for (const std::string &setting : one.unset)
      unset(expectAccepted(setting));
  }

  void choose(const Project &before) {
    table.clear();
    isLocal = edit->target == ProjectTarget::local;
    if (edit->target == ProjectTarget::profile) {
      isLocal = isProfileLocal(before, edit->profile);
      table = {"profile", edit->profile};
      choice.profile.name = edit->profile;
    }
    if (edit->processor.empty()) {
      table.emplace_back("settings");
      return;
    }
    table.emplace_back("processor");
    table.push_back(edit->processor);
    expectProcessor(board, edit->processor);
  }

  std::vector<const BoardProcessor *> findProcessors() const {
    std::vector<const BoardProcessor *> found;
    for (const BoardProcessor &processor : board.Processors())
      if (edit->processor.empty() || processor.name == edit->processor)
        found.push_back(&processor);
    return found;
  }

  /// The table that is changed.
  const ProjectTable *findTable(const Project &project) const {
    const ProjectLayer &layer = isLocal ? project.local : project.project;
    const ProjectBlock *block = &layer.block;
    if (edit->target == ProjectTarget::profile)
      for (const ProjectProfile &profile : layer.profiles)
        if (profile.name == edit->profile)
          block = &profile.tables;
    const ProjectScope scope =
        edit->processor.empty() ? ProjectScope::all : ProjectScope::processor;
    for (const ProjectTable &one : *block)
      if (one.scope == scope && one.name == edit->processor)
        return &one;
    return nullptr;
  }

  /// Whether what is below the changed table has a value for one of its
  /// processors, whatever is above says.
  bool isSaidBelow(const Project &project, const std::string &setting) const {
    const ProjectTable *const changed = findTable(project);
    for (const BoardProcessor *const processor : findProcessors()) {
      std::vector<Source> below = sourcesOf(project, choice, *processor);
      below.erase(std::find_if(below.begin(), below.end(),
                               [changed](const Source &one) {
                                 return one.front() == changed;
                               }),
                  below.end());
      if (mergeSources(below, processor->name).Find(setting) != nullptr)
        return true;
    }
    return false;
  }

  // --- Bytes -----------------------------------------------------------------

  Path unsetPath() const {
    Path path = table;
    path.emplace_back(unsetKey);
    return path;
  }

  std::vector<std::string> unsetOf(const TomlNode &root) const {
    std::vector<std::string> names;
    if (const TomlNode *const list = findNode(root, unsetPath()))
      for (const TomlNode &item : list->items)
        names.push_back(item.text);
    return names;
  }

  std::string withUnset(const std::string &of,
                        const std::string &setting) const {
    return withKey(of, unsetPath(), table.size(),
                   [&setting](const std::string &before) {
                     return listWith(before, setting);
                   });
  }

  std::string withoutUnset(const std::string &of,
                           const std::string &setting) const {
    const std::vector<std::string> names = unsetOf(readToml(of).root);
    const auto times = std::count(names.begin(), names.end(), setting);
    if (times == 0)
      return of;
    if (static_cast<std::size_t>(times) == names.size())
      return withoutKey(of, unsetPath());
    return withKey(of, unsetPath(), table.size(),
                   [&setting](const std::string &before) {
                     return listWithout(before, setting);
                   });
  }

  void set(const std::string &setting, const Value &value) {
    if (says(setting, value))
      return;
    const bool hasMark = withoutMark(text()).size() != text().size();
    std::string now = withoutUnset(withoutMark(text()), setting);
    const SettingInfo &info = *FindSetting(setting);
    const std::string lineEnd = lineEndOf(now);
    now = withKey(now, settingPath(table, setting), table.size(),
                  [&](const std::string &before) {
                    return writtenValue(info, value, before, lineEnd);
                  });
    change((hasMark ? byteOrderMark : "") + now);
  }

  /// Whether the table says the value already, in its own words.
  bool says(const std::string &setting, const Value &value) const {
    const Project project = read();
    const ProjectTable *const there = findTable(project);
    return there != nullptr &&
           std::any_of(there->values.begin(), there->values.end(),
                       [&](const ProjectValue &one) {
                         return one.setting == setting && one.value == value;
                       });
  }

  void unset(const std::string &setting) {
    const std::string before = text();
    const bool hasMark = withoutMark(before).size() != before.size();
    const std::string front = hasMark ? byteOrderMark : "";
    const std::string removed =
        withoutKey(withoutMark(before), settingPath(table, setting));
    change(front + removed);
    const std::vector<std::string> names = unsetOf(readToml(removed).root);
    if (std::find(names.begin(), names.end(), setting) != names.end())
      return;
    change(front + withUnset(removed, setting));
    if (!isSaidBelow(read(), setting))
      change(front + removed);
  }

  // --- What it makes of the processors ---------------------------------------

  void check(const Project &after, EditedProject &edited) const {
    for (const BoardProcessor *const processor : findProcessors()) {
      const MergedProcessor merged = MergeProject(after, choice, *processor);
      expectApplied(after, merged);
      for (const auto &[setting, value] : wantedValues(*edit)) {
        const MergedValue *const counting = merged.Find(setting);
        if (counting == nullptr)
          warnOfUnset(setting, after, *processor, edited);
        else if (counting->value.value != value)
          warn(*counting, processor->name, edited);
      }
      for (const std::string &setting : edit->unset)
        if (const MergedValue *const counting = merged.Find(setting))
          warn(*counting, processor->name, edited);
    }
  }

  /// What is told of the files only now, wherever the rest has moved to.
  std::vector<ProjectFault> newOf(const std::vector<ProjectFault> &now) const {
    std::vector<ProjectFault> before = told;
    std::vector<ProjectFault> found;
    for (const ProjectFault &one : now) {
      const auto known = std::find_if(
          before.begin(), before.end(), [&one](const ProjectFault &other) {
            return other.code == one.code && other.message == one.message;
          });
      if (known == before.end())
        found.push_back(one);
      else
        before.erase(known);
    }
    return found;
  }

  /// A value that a higher source takes away.
  void warnOfUnset(const std::string &setting, const Project &after,
                   const BoardProcessor &processor,
                   EditedProject &edited) const {
    const ProjectText *last = nullptr;
    const std::vector<Source> sources = sourcesOf(after, choice, processor);
    for (const Source &source : sources)
      for (const ProjectTable *const one : source)
        for (const ProjectText &unset : one->unset)
          if (unset.text == setting)
            last = &unset;
    // Else it is left out for another cable's sake, which is told of anyway.
    if (last == nullptr)
      return;
    ProjectFault fault = faultOf(
        "overridden", last->place,
        fmt::format("'{}' of '{}' is taken away by {}:{}:{}", setting,
                    ShowText(processor.name), ShowText(last->place.file),
                    last->place.line, last->place.column));
    fault.setting = setting;
    edited.warnings.push_back(std::move(fault));
  }

  void expectApplied(const Project &project,
                     const MergedProcessor &merged) const {
    Session session(board, merged.processor);
    const AppliedProject applied =
        ApplyProject(project, merged, board, session);
    if (applied.refusal) {
      Refusal refusal = *applied.refusal;
      refusal.file = applied.place.file;
      refusal.line = applied.place.line;
      throw refusal;
    }
    if (applied.lost.empty())
      return;
    const ProjectLoss &first = applied.lost.front();
    Refusal refusal(RefusalKind::wouldBeLost, first.loss.field,
                    fmt::format("'{}' of '{}' would not survive: {}",
                                first.loss.field, ShowText(merged.processor),
                                first.loss.reason));
    refusal.setting = first.loss.field;
    refusal.file = first.place.file;
    refusal.line = first.place.line;
    throw refusal;
  }

  void warn(const MergedValue &counting, const std::string &processor,
            EditedProject &edited) const {
    ProjectFault fault = faultOf(
        "overridden", counting.value.place,
        fmt::format("'{}' of '{}' is still {}, which {}:{}:{} says",
                    counting.value.setting, ShowText(processor),
                    ShowValue(*FindSetting(counting.value.setting),
                              counting.value.value),
                    ShowText(counting.value.place.file),
                    counting.value.place.line, counting.value.place.column));
    fault.setting = counting.value.setting;
    edited.warnings.push_back(std::move(fault));
  }

  std::string projectFile;
  std::vector<ProjectFault> told;    ///< of the files as they are
  const ProjectEdit *edit = nullptr; ///< the present one
  const Board &board;
  ProjectChoice choice;
  std::string projectText;
  std::optional<std::string> localText;
  bool isLocalThere = false; ///< before any change
  bool isLocal = false;
  Path table;
};

[[noreturn]] void refuseChanged(const std::string &file,
                                const std::string &message) {
  Refusal refusal(RefusalKind::changedOnDisk, ShowText(file), message);
  refusal.file = file;
  throw refusal;
}

} // namespace

EditedProject EditProject(const std::string &projectFile,
                          const ProjectEdit &edit, const Board &board,
                          const ProjectWishes &wishes) {
  return EditProjectFiles(projectFile, {edit}, board, wishes).front();
}

std::vector<EditedProject>
EditProjectFiles(const std::string &projectFile,
                 const std::vector<ProjectEdit> &edits, const Board &board,
                 const ProjectWishes &wishes) {
  return Edit(projectFile, board, wishes).plan(edits);
}

void WriteProject(const EditedProject &edited) { WriteProjectFiles({edited}); }

void WriteProjectFiles(const std::vector<EditedProject> &files) {
  // Two programs that write the same files take their locks in one order.
  std::map<std::string, const EditedProject *> inOrder;
  for (const EditedProject &edited : files)
    if (!inOrder.emplace(edited.file, &edited).second)
      refuseChanged(edited.file, "two changes of it, planned apart, cannot be "
                                 "written together");
  std::map<std::string, FileLock> locks;
  for (const auto &[file, edited] : inOrder) {
    locks.try_emplace(file, file);
    if (findFile(file) != edited->before)
      refuseChanged(file, "it has changed on disk since it was read");
  }
  std::vector<const EditedProject *> written;
  try {
    for (const auto &[file, edited] : inOrder)
      if (edited->IsChanged()) {
        WriteWholeFile(locks.at(file), edited->after, ExistingFile::replace);
        written.push_back(edited);
      }
  } catch (...) {
    for (const EditedProject *const edited : written)
      putBack(locks.at(edited->file), edited->file, edited->before);
    throw;
  }
}

} // namespace ZelDebugDialog
