#include "subcommands/Configuring.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Language.h>

#include "line/Refused.h"
#include "line/WorkingFolder.h"
#include "output/ProjectFaults.h"
#include "output/Values.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AppliedProject;
using ZelDebugDialog::Board;
using ZelDebugDialog::CableInfo;
using ZelDebugDialog::CheckCommand;
using ZelDebugDialog::CodeSeverity;
using ZelDebugDialog::CommandDiagnostic;
using ZelDebugDialog::CommandSetting;
using ZelDebugDialog::CommandSettings;
using ZelDebugDialog::Effect;
using ZelDebugDialog::FindSetting;
using ZelDebugDialog::Loss;
using ZelDebugDialog::MergedProcessor;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::Session;
using ZelDebugDialog::SettingInfo;
using ZelDebugDialog::Value;

constexpr const char *frequency = "cable.frequency";

// Told in other words: of the setting, and with the losses.
const std::set<std::string> toldElsewhere{"frequency-not-checked",
                                          "frequency-without-cable",
                                          "long-line",
                                          "value-cut",
                                          "not-a-number",
                                          "octal-number"};
// Numbers that become others than those that are written.
const std::set<std::string> cutNumbers{"value-cut", "not-a-number"};

// Read as they are written, in a command that somebody has typed.
const std::set<std::string> otherThanMeant{"octal-number", "target-differs"};

std::string codeText(const CommandDiagnostic &diagnostic) {
  return fmt::format("column {}: {} [{}]", diagnostic.offset + 1,
                     diagnostic.message, diagnostic.code);
}

/// A number that would be cut, or is none, is not taken in silence, nor what
/// was written for another processor.
void expectWholeNumbers(const Board &board, const Session &session,
                        const std::string &command, bool force,
                        std::vector<Remark> &remarks) {
  ZelDebugDialog::CheckOptions options;
  options.board = &board;
  options.processor = session.Processor();
  for (const CommandDiagnostic &diagnostic :
       CheckCommand(command, options).diagnostics) {
    const bool isCut = cutNumbers.count(diagnostic.code) != 0;
    if (!isCut && otherThanMeant.count(diagnostic.code) == 0)
      continue;
    const std::string text = "--from: " + codeText(diagnostic);
    if (isCut && !force)
      throw Failure(ExitStatus::refused,
                    text + "; --force takes it as it is read",
                    {diagnostic.code, "--from", command});
    remarks.push_back({true, text, {diagnostic.code, ""}});
  }
}

std::optional<Session> copiedSession(const Board &board,
                                     const AskedSettings &asked,
                                     const LineProject *project) {
  if (!asked.copyFrom)
    return std::nullopt;
  try {
    std::optional<Session> copied(std::in_place, board, *asked.copyFrom);
    expectLoaded(*copied, "");
    startFrom(project, *copied);
    return copied;
  } catch (const Refusal &refusal) {
    throw failureOf(refusal, "--copy-from");
  }
}

bool isTold(const Effect &effect) {
  const SettingInfo *const setting = FindSetting(effect.setting);
  return setting != nullptr && setting->settable;
}

/// Empty where none can be written.
std::string commandOf(const Session &session) {
  try {
    return session.Command();
  } catch (const Refusal &) {
    return "";
  }
}

/// What stands in a document and is no setting to take.
void tellLeftOut(Session &session, const AskedSettings &asked,
                 std::vector<Remark> &remarks) {
  std::set<std::string> told;
  for (const auto &[setting, value] : asked.document.leftOut) {
    const Value now =
        setting == "connectCommand"
            ? findSavedCommand(session).value_or(commandOf(session))
            : session.Get(setting);
    if (now != value && told.insert(setting).second)
      remarks.push_back(
          {false,
           fmt::format("{} {} of {} is left out: it is {}", setting,
                       shownStored(setting, value), shownName(*asked.file),
                       shownStored(setting, now)),
           {"", setting}});
  }
}

/// A frequency of the line that the cable does not have: it comes back, and is
/// surely not meant.
void tellFrequency(const Session &session, const AskedSettings &asked,
                   std::vector<Remark> &remarks) {
  if (!asked.asksFor(frequency) || !session.Get("cable.esn").Text().empty())
    return;
  const Value type = session.Get("cable.cableType");
  const Value value = session.Get(frequency);
  for (const CableInfo &cable : ZelDebugDialog::GetCables()) {
    const auto &accepted = cable.acceptedFrequencies;
    const bool isFine =
        accepted.empty() || std::any_of(accepted.begin(), accepted.end(),
                                        [&value](std::uint32_t hertz) {
                                          return Value(hertz) == value;
                                        });
    if (Value(cable.type) != type || isFine)
      continue;
    remarks.push_back(
        {true,
         fmt::format("{} {}: '{}' has only {}, and it is read unseen "
                     "[frequency]",
                     frequency, value.Number(),
                     ShowValue(*FindSetting("cable.cableType"), type),
                     fmt::join(accepted, ", ")),
         {"frequency", frequency}});
  }
}

/// The setting of the word at a place of a command.
std::string settingAt(const std::string &command, std::size_t offset) {
  for (const auto &word : ZelDebugDialog::ExplainCommand(command).words)
    if (word.offset == offset && !word.changes.empty())
      return word.changes.front().setting;
  return "the command";
}

/// What is read as it is written, and surely not meant.
void tellDoubtsOfCommand(const Session &session, std::vector<Remark> &remarks) {
  const std::string command = commandOf(session);
  if (command.empty())
    return;
  for (const CommandDiagnostic &diagnostic :
       CheckCommand(command).diagnostics) {
    if (diagnostic.severity != CodeSeverity::warning ||
        toldElsewhere.count(diagnostic.code) != 0)
      continue;
    const std::string setting = settingAt(command, diagnostic.offset);
    remarks.push_back({true,
                       fmt::format("{}: {} [{}]", setting, diagnostic.message,
                                   diagnostic.code),
                       {diagnostic.code, setting}});
  }
}

/// Numbers of the file that are read as others, where a setting still has them:
/// what is saved says so no more.
void tellCutNumbers(Session &session, std::vector<Remark> &remarks) {
  const CommandSettings loaded = session.Loaded();
  const auto isCut = [](const CommandDiagnostic &diagnostic) {
    return cutNumbers.count(diagnostic.code) != 0;
  };
  const auto read = CheckCommand(loaded.text).diagnostics;
  if (loaded.text.empty() || std::none_of(read.begin(), read.end(), isCut))
    return;
  const std::string command = commandOf(session);
  for (const CommandDiagnostic &diagnostic : session.State().diagnostics)
    if (isCut(diagnostic))
      remarks.push_back(
          {true,
           fmt::format("{}:{}: {} [{}]", printable(session.File()), loaded.line,
                       diagnostic.message, diagnostic.code),
           {diagnostic.code, settingAt(command, diagnostic.offset)}});
}

/// Of several settings that one word brings, the first; the others only follow
/// from it and were never saved.
std::set<std::string> settingsInFile(Session &session) {
  const CommandSettings loaded = session.Loaded();
  std::set<std::string> names;
  std::set<std::string> words;
  for (const CommandSetting &setting : loaded.settings) {
    const bool isOfFile = setting.origin.compare(0, 5, "file:") == 0;
    if (isOfFile && words.insert(setting.origin).second)
      names.insert(setting.id);
  }
  if (!loaded.chain.empty())
    names.insert("chain");
  return names;
}

/// Why what is saved can't be read, behind its place.
std::string shownProblem(Session &session) {
  const int line = session.Loaded().line;
  return fmt::format("{}{}: {}", printable(session.File()),
                     line == 0 ? "" : fmt::format(":{}", line),
                     session.Problem());
}

} // namespace

std::optional<std::string> findSavedCommand(Session &session) {
  const ZelDebugDialog::CommandSettings loaded = session.Loaded();
  if (!session.Problem().empty() || loaded.line == 0 ||
      !session.Differences().empty())
    return std::nullopt;
  return loaded.text;
}

bool Configured::hasWarnings() const {
  return std::any_of(remarks.begin(), remarks.end(),
                     [](const Remark &remark) { return remark.isWarning; });
}

void expectLoaded(Session &session, const std::string &advice) {
  if (session.Problem().empty())
    return;
  throw Failure(ExitStatus::unreadable, shownProblem(session) + advice,
                {"", "", {}, {}, "", session.File(), session.Loaded().line});
}

std::vector<Effect> applySettings(const Board &board, Session &session,
                                  const AskedSettings &asked,
                                  const ConfigureOptions &options,
                                  std::vector<Remark> &remarks) {
  if (asked.command)
    expectWholeNumbers(board, session, *asked.command, options.force, remarks);
  const std::optional<Session> copied =
      copiedSession(board, asked, options.project);
  std::vector<Effect> effects;
  try {
    for (Effect &effect :
         session.Change(asked.request(copied ? &*copied : nullptr)))
      if (isTold(effect))
        effects.push_back(std::move(effect));
  } catch (const Refusal &refusal) {
    throw asked.failureOf(refusal);
  }
  for (const Effect &effect : effects)
    remarks.push_back({false, shownEffect(effect), {"", effect.setting}});
  tellLeftOut(session, asked, remarks);
  tellDoubts(session, asked, remarks);
  return effects;
}

void tellDoubts(const Session &session, const AskedSettings &asked,
                std::vector<Remark> &remarks) {
  tellFrequency(session, asked, remarks);
  if (!asked.empty())
    tellDoubtsOfCommand(session, remarks);
}

void startFrom(const LineProject *project, Session &session) {
  std::error_code error;
  if (project == nullptr || std::filesystem::exists(session.File(), error))
    return;
  const MergedProcessor merged = mergedFor(*project, session.Processor());
  const AppliedProject applied =
      ApplyProject(project->project, merged, *project->board, session);
  // Where nobody has named a connection, the line may; it is looked at again
  // when it is saved.
  const bool isUnnamed = merged.Find("connection") == nullptr &&
                         applied.refusal &&
                         applied.refusal->setting == "connection";
  if (applied.refusal && !isUnnamed)
    throw refusedAt(applied);
}

Configured configure(const Board &board, const std::string &processor,
                     const AskedSettings &asked,
                     const ConfigureOptions &options) {
  Configured configured{
      Session(board, processor, options.hold), {}, {}, {}, {}};
  if (!options.force) {
    // What is no file is not replaced, with or without it.
    std::error_code error;
    const bool mayForce =
        std::filesystem::is_regular_file(configured.session.File(), error);
    expectLoaded(configured.session,
                 mayForce
                     ? "; it stays as it is (--force starts from the defaults)"
                     : "; it stays as it is");
  } else if (!configured.session.Problem().empty()) {
    configured.remarks.push_back(
        {true,
         shownProblem(configured.session) + "; what it says is not taken over",
         {"", ""}});
  }
  startFrom(options.project, configured.session);
  if (!asked.empty()) {
    configured.lossesBefore = configured.session.Losses();
    configured.saved = settingsInFile(configured.session);
  }
  configured.effects = applySettings(board, configured.session, asked, options,
                                     configured.remarks);
  const bool isReplaced = asked.command || asked.copyFrom;
  if (!asked.empty() && !isReplaced)
    tellCutNumbers(configured.session, configured.remarks);
  return configured;
}

Verdict judge(const Configured &configured, const std::vector<Loss> &losses) {
  Verdict verdict;
  const auto isNew = [&configured](const Loss &loss) {
    const auto &before = configured.lossesBefore;
    const auto &effects = configured.effects;
    return configured.saved.count(loss.field) != 0 &&
           std::none_of(before.begin(), before.end(),
                        [&loss](const Loss &other) {
                          return other.field == loss.field;
                        }) &&
           std::none_of(effects.begin(), effects.end(),
                        [&loss](const Effect &effect) {
                          return effect.setting == loss.field;
                        });
  };
  for (const Loss &loss : losses) {
    (loss.blocking ? verdict.lost : verdict.dropped).push_back(loss);
    if (!loss.blocking && isNew(loss))
      verdict.noLongerSaved.push_back(loss);
  }
  return verdict;
}

} // namespace zeldebug
