#include <algorithm>
#include <unordered_map>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "merging/MergeSources.h"
#include "merging/Sources.h"
#include "reading/Keys.h"

namespace ZelDebugDialog {

namespace {

using namespace project;

/// What chooses no cable; it names none.
const Value &noCable() {
  static const Value none = ReadSetting(cableType, noChoice);
  return none;
}

bool isOfCable(const std::string &setting) {
  return setting.compare(0, cableFront.size(), cableFront) == 0;
}

class Merging {
public:
  void add(const Source &source) {
    std::vector<const ProjectText *> unset;
    std::vector<const ProjectValue *> values;
    for (const ProjectTable *const table : source) {
      for (const ProjectText &one : table->unset)
        unset.push_back(&one);
      for (const ProjectValue &value : table->values)
        values.push_back(&value);
    }
    add(unset, values);
  }

  /// One source: what it takes away, then what it says.
  void add(const std::vector<const ProjectText *> &unset,
           const std::vector<const ProjectValue *> &values) {
    ++rank;
    for (const ProjectText *const one : unset)
      takeAway(*one);
    for (const ProjectValue *const value : values)
      if (value->setting == cableType)
        nameCable(*value);
    for (const ProjectValue *const value : values)
      entries[value->setting] = {{*value, rank},
                                 isOfCable(value->setting) &&
                                     value->setting != cableType &&
                                     isCableNamed()};
  }

  MergedProcessor finish(const std::string &processor) {
    MergedProcessor merged;
    merged.processor = processor;
    for (const SettingInfo &setting : GetSettings()) {
      const auto found = entries.find(setting.id);
      if (found != entries.end())
        merged.values.push_back(std::move(found->second.merged));
    }
    merged.dropped = std::move(dropped);
    return merged;
  }

private:
  struct Entry {
    MergedValue merged;
    bool belongsToCable = false; ///< to the one that is named highest
  };

  bool isCableNamed() const { return cable && *cable != noCable(); }

  void takeAway(const ProjectText &unset) {
    entries.erase(unset.text);
    if (unset.text != cableType)
      return;
    dropThoseOfCable(unset.place);
    cable.reset();
  }

  void nameCable(const ProjectValue &value) {
    if (isCableNamed() && *cable == value.value)
      return;
    dropThoseOfCable(value.place);
    cable = value.value;
  }

  /// Those that belong to the cable that is named no longer, in the order of
  /// the settings.
  void dropThoseOfCable(const ProjectPlace &by) {
    for (const SettingInfo &setting : GetSettings()) {
      const auto found = entries.find(setting.id);
      if (found == entries.end() || !found->second.belongsToCable)
        continue;
      dropped.push_back({std::move(found->second.merged.value), by});
      entries.erase(found);
    }
  }

  int rank = 0;
  std::optional<Value> cable;
  std::unordered_map<std::string, Entry> entries;
  std::vector<DroppedValue> dropped;
};

} // namespace

MergedProcessor project::mergeSources(const std::vector<Source> &sources,
                                      const std::string &processor) {
  Merging merging;
  for (const Source &source : sources)
    merging.add(source);
  return merging.finish(processor);
}

const MergedValue *MergedProcessor::Find(const std::string &setting) const {
  for (const MergedValue &value : values)
    if (value.value.setting == setting)
      return &value;
  return nullptr;
}

MergedProcessor MergeProject(const Project &project,
                             const ProjectChoice &choice,
                             const BoardProcessor &processor,
                             const SettingValues &line) {
  Merging merging;
  for (const Source &source : sourcesOf(project, choice, processor))
    merging.add(source);
  std::vector<ProjectValue> ofLine;
  for (const auto &[setting, value] : line)
    ofLine.push_back({setting, ExpectSetting(setting, value), {}, {}});
  std::vector<const ProjectValue *> values;
  values.reserve(ofLine.size());
  for (const ProjectValue &value : ofLine)
    values.push_back(&value);
  if (!values.empty())
    merging.add({}, values);
  return merging.finish(processor.name);
}

} // namespace ZelDebugDialog
