#include "subcommands/ShowProject.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Commands.h>
#include <ZelDebugDialog/ConfigurationModel/Settings.h>
#include <ZelDebugDialog/ProjectFile/Origins.h>
#include <fmt/format.h>

#include "documents/Commands.h"
#include "line/Refused.h"
#include "output/Json.h"
#include "output/ProjectDifferences.h"
#include "output/ProjectFaults.h"
#include "output/Suggestion.h"
#include "output/Table.h"
#include "output/Values.h"
#include "subcommands/Configuring.h"
#include "subcommands/ShownSettings.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AppliedProject;
using ZelDebugDialog::BoardProcessor;
using ZelDebugDialog::CommandSetting;
using ZelDebugDialog::CommandSettings;
using ZelDebugDialog::Difference;
using ZelDebugDialog::ExplainedCommand;
using ZelDebugDialog::ExplainedWord;
using ZelDebugDialog::MergedProcessor;
using ZelDebugDialog::ProjectLoss;
using ZelDebugDialog::ProjectPlace;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::Session;
using ZelDebugDialog::SettingInfo;
using ZelDebugDialog::SettingValues;
using ZelDebugDialog::Value;
using ZelDebugDialog::WordChange;

constexpr const char *typeOfCable = "cable.cableType";

const BoardProcessor &expectProcessor(const LineProject &line,
                                      const std::string &name) {
  std::vector<std::string> names;
  for (const BoardProcessor &processor : line.board->Processors()) {
    if (processor.name == name)
      return processor;
    names.push_back(processor.name);
  }
  // The session knows why one cannot be debugged.
  for (const std::string &known : line.board->Names())
    if (known == name)
      Session(*line.board, name);
  throw Failure(ExitStatus::wrongUse,
                fmt::format("'{}' is no processor of the design{}",
                            printable(name), didYouMean(name, names)),
                {"unknown-processor", "PROCESSOR", name, names,
                 nearestMatch(name, names)});
}

// --- What the files make of a processor -------------------------------------

struct Shown {
  MergedProcessor merged;
  Session session;
  AppliedProject applied;
  std::string problem; ///< why the option file cannot be read
};

Shown shownFor(const LineProject &line, const std::string &processor,
               const SettingValues &values) {
  Shown shown{mergedFor(line, processor, values),
              Session(*line.board, processor),
              {},
              {}};
  shown.problem = shown.session.Problem();
  shown.applied =
      ApplyProject(line.project, shown.merged, *line.board, shown.session);
  return shown;
}

/// A whole command, another processor and what goes back to its default, as
/// the settings that they change in what the files give.
SettingValues changedBy(const LineProject &line, const std::string &processor,
                        const AskedSettings &asked) {
  Shown start = shownFor(line, processor, {});
  if (start.applied.refusal)
    throw refusedAt(start.applied);
  std::optional<Session> copied;
  if (asked.copyFrom)
    copied =
        shownFor(line, expectProcessor(line, *asked.copyFrom).name, {}).session;
  Session changed = shownFor(line, processor, {}).session;
  changed.Change(asked.request(copied ? &*copied : nullptr));
  const bool isOtherCable =
      changed.Get(typeOfCable) != start.session.Get(typeOfCable);
  SettingValues values;
  for (const SettingInfo &setting : ZelDebugDialog::GetSettings()) {
    const std::string &id = setting.id;
    if (!setting.settable || id.find('[') != std::string::npos)
      continue;
    const bool isOfCable = id.compare(0, 6, "cable.") == 0;
    Value value = changed.Get(id);
    if (value != start.session.Get(id) || asked.asksFor(id) ||
        (isOtherCable && isOfCable))
      values.emplace_back(id, std::move(value));
  }
  return values;
}

SettingValues valuesOf(const LineProject &line, const std::string &processor,
                       const AskedSettings &asked) {
  const bool isPlain = !asked.command && !asked.copyFrom && asked.unset.empty();
  return isPlain ? asked.request(nullptr).values
                 : changedBy(line, processor, asked);
}

Failure notApplied(const AppliedProject &applied, const AskedSettings &asked) {
  return applied.place.line == 0 ? asked.failureOf(*applied.refusal)
                                 : refusedAt(applied);
}

void tellLost(const Shown &shown, Output &output) {
  for (const ProjectLoss &one : shown.applied.lost)
    output.warn(fmt::format("{}: {}: would not survive: {}",
                            shown.merged.processor, shownPlace(one.place),
                            shownLoss(one.loss)),
                {one.loss.code, one.loss.field, one.place.file, one.place.line,
                 one.place.column});
}

/// What is said of one that is shown.
void tell(const Shown &shown, Output &output) {
  tellLeftOut(shown.merged, shown.applied.displaced, output);
  tellLost(shown, output);
  if (!shown.problem.empty())
    output.warn(fmt::format("{}: {}: {}", shown.merged.processor,
                            printable(shown.session.File()), shown.problem));
}

bool isSaved(const LineProject &line, const std::string &processor) {
  std::error_code error;
  return std::filesystem::exists(line.board->FileOf(processor), error);
}

std::vector<Difference> differencesOf(const LineProject &line,
                                      const Shown &shown) {
  return CompareWithOptionFile(*line.board, shown.session,
                               shown.applied.displaced);
}

// --- For programs ------------------------------------------------------------

Json jsonOf(const LineProject &line, const Shown &shown) {
  const std::string &name = shown.merged.processor;
  Json members = settingsJson(ShowProject(shown.merged, shown.session), true);
  members["instanceName"] = name;
  members["file"] = line.board->FileOf(name);
  members["differences"] =
      isSaved(line, name) && shown.problem.empty()
          ? differencesJson(differencesOf(line, shown), shown.merged)
          : Json();
  members["lost"] = lostJson(shown.applied.lost);
  members["dropped"] = droppedJson(shown.merged, shown.applied.displaced);
  return members;
}

// --- For people --------------------------------------------------------------

void printOne(const LineProject &line, const Shown &shown, bool onlySaid,
              Output &output) {
  const std::string &name = shown.merged.processor;
  const std::string file = line.board->FileOf(name);
  printSettings(ShowProject(shown.merged, shown.session), true, output,
                onlySaid);
  if (!isSaved(line, name)) {
    output.note(fmt::format("{}: there is no {} yet: 'zeldebug sync' makes it",
                            name, printable(file)));
    return;
  }
  const std::vector<Difference> differences = differencesOf(line, shown);
  if (!differences.empty())
    printDifferences(file, differences, shown.merged, output);
}

ExitStatus showOne(const LineProject &line, const std::string &processor,
                   const AskedSettings &asked, Output &output) {
  const std::string name = expectProcessor(line, processor).name;
  try {
    const Shown shown = shownFor(line, name, valuesOf(line, name, asked));
    if (shown.applied.refusal)
      throw notApplied(shown.applied, asked);
    tell(shown, output);
    if (!output.json()) {
      printOne(line, shown, false, output);
      return ExitStatus::done;
    }
    Json members = projectJson(line);
    members.update(jsonOf(line, shown));
    output.document(members);
    return ExitStatus::done;
  } catch (const Refusal &refusal) {
    throw asked.failureOf(refusal);
  }
}

/// What one cannot have is told, and the others are shown.
ExitStatus showAll(const LineProject &line, const AskedSettings &asked,
                   Output &output) {
  ExitStatus status = ExitStatus::done;
  Json list = Json::array();
  for (const BoardProcessor &processor : line.board->Processors()) {
    const std::string &name = processor.name;
    const auto tellFailure = [&](const Failure &failure,
                                 const ProjectPlace &place) {
      output.error(fmt::format("{}: {}", name, failure.what()),
                   {failure.details().code, failure.details().option,
                    place.file, place.line, place.column});
      status = std::max(status, failure.status());
      list.push_back({{"instanceName", name},
                      {"file", line.board->FileOf(name)},
                      {"message", failure.what()}});
    };
    try {
      const Shown shown = shownFor(line, name, valuesOf(line, name, asked));
      if (shown.applied.refusal) {
        tellFailure(notApplied(shown.applied, asked), shown.applied.place);
        continue;
      }
      tell(shown, output);
      if (output.json()) {
        Json one = jsonOf(line, shown);
        one["message"] = nullptr;
        list.push_back(std::move(one));
        continue;
      }
      if (&processor != &line.board->Processors().front())
        output.print("\n");
      output.printLine(output.heading(printable(name)));
      printOne(line, shown, true, output);
    } catch (const Failure &failure) {
      tellFailure(failure, {});
    } catch (const Refusal &refusal) {
      tellFailure(asked.failureOf(refusal), {});
    }
  }
  if (output.json()) {
    Json members = projectJson(line);
    members["processors"] = list;
    output.document(members);
  }
  return status;
}

// --- Word by word ------------------------------------------------------------

class WordOrigins {
public:
  explicit WordOrigins(const CommandSettings &settings) {
    for (const CommandSetting &setting : settings.settings)
      origins[setting.id] = setting.origin;
    for (const std::vector<CommandSetting> &device : settings.chain)
      for (const CommandSetting &field : device)
        origins[field.id] = field.origin;
  }

  /// "default" for what is no setting: the words of the language.
  std::string of(const WordChange &change) const {
    const auto found = origins.find(change.setting);
    return found == origins.end() ? "default" : found->second;
  }

private:
  std::map<std::string, std::string> origins;
};

void printWords(const ExplainedCommand &command, const WordOrigins &origins,
                Output &output) {
  Table table({"COLUMN", "WORD", "ROLE", "CHANGES", "FROM"});
  for (const ExplainedWord &word : command.words) {
    std::vector<std::string> changes;
    std::vector<std::string> from;
    for (const WordChange &change : word.changes) {
      changes.push_back(change.setting + " = " +
                        shownField(change.setting, change.after));
      const std::string origin = origins.of(change);
      if (std::find(from.begin(), from.end(), origin) == from.end())
        from.push_back(origin);
    }
    table.addRow({fmt::format("{}", word.offset + 1), word.text, word.role,
                  fmt::format("{}", fmt::join(changes, ", ")),
                  fmt::format("{}", fmt::join(from, ", "))});
  }
  table.print(output);
}

Json wordsJson(const ExplainedCommand &command, const WordOrigins &origins) {
  Json members = ZelDebugDialog::documents::explainedJson(command);
  for (std::size_t at = 0; at < command.words.size(); ++at) {
    const std::vector<WordChange> &changes = command.words[at].changes;
    Json &word = members["words"][at];
    word["origin"] = changes.empty() ? Json() : Json(origins.of(changes[0]));
    for (std::size_t one = 0; one < changes.size(); ++one)
      word["changes"][one]["origin"] = origins.of(changes[one]);
  }
  return members;
}

} // namespace

ExitStatus showProject(const LineProject &line,
                       const std::optional<std::string> &processor,
                       const AskedSettings &asked, Output &output) {
  return processor ? showOne(line, *processor, asked, output)
                   : showAll(line, asked, output);
}

ExitStatus explainProject(const LineProject &line, const std::string &processor,
                          Output &output) {
  const std::string name = expectProcessor(line, processor).name;
  const Shown shown = shownFor(line, name, {});
  if (shown.applied.refusal)
    throw refusedAt(shown.applied);
  tell(shown, output);
  const ExplainedCommand command =
      ZelDebugDialog::ExplainCommand(*shown.applied.command);
  const WordOrigins origins(ShowProject(shown.merged, shown.session));
  if (!output.json()) {
    printWords(command, origins, output);
    return ExitStatus::done;
  }
  Json members = projectJson(line);
  members.update(wordsJson(command, origins));
  members["instanceName"] = name;
  output.document(members);
  return ExitStatus::done;
}

} // namespace zeldebug
