#include "losses/Analysis.h"

#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/EngineFacts.h"
#include "losses/Reasons.h"
#include "settings/Cables.h"
#include "settings/ConnectionKinds.h"
#include "text/NearestMatch.h"
#include "text/Words.h"

namespace ZelDebugDialog::model {

namespace {

constexpr const char *wholeCommand = "connectCommand";

const Omission *findFor(const std::vector<Omission> &omissions,
                        const SettingRow &row) {
  const auto isIt = [&row](const Omission &omission) {
    const std::string &field = omission.field;
    return row.info.id == (row.get == nullptr ? field : settingOf(field));
  };
  const auto found = std::find_if(omissions.begin(), omissions.end(), isIt);
  return found == omissions.end() ? nullptr : &*found;
}

/// Of the chain, only a device's field that is not as it was is worth naming.
const Omission *findFor(const std::vector<Omission> &omissions,
                        const SettingRow &row, const Snapshot &wanted,
                        const Snapshot &readBack) {
  if (row.info.id != chainSetting)
    return findFor(omissions, row);
  for (const Omission &omission : omissions)
    if (settingOf(omission.field) == chainSetting &&
        fieldNamed(wanted, omission.field) !=
            fieldNamed(readBack, omission.field))
      return &omission;
  return nullptr;
}

/// Where one cable alone carries a setting, it is worth naming.
std::string onlyCableFor(const std::string &field) {
  const CommandCable *only = nullptr;
  for (const CommandCable &cable : cableCatalogue()) {
    if (std::count(cable.carried.begin(), cable.carried.end(), field) == 0)
      continue;
    if (only != nullptr)
      return "";
    only = &cable;
  }
  return only == nullptr ? "" : fmt::format(", only for '{}'", only->written);
}

std::string shownReason(const Omission &omission, const Snapshot &wanted) {
  std::string text = reasonRow(omission.reason).why.text();
  if (omission.reason == OmissionReason::connectionNotAllowed)
    text += fmt::format("; it allows {}",
                        quotedList(allowedKinds(wanted.record.connectionMask)));
  if (omission.reason == OmissionReason::otherCable)
    text += onlyCableFor(omission.field);
  const std::size_t dot = omission.field.find("].");
  return dot == std::string::npos
             ? text
             : fmt::format("{}: {}", omission.field.substr(dot + 2), text);
}

void explain(RawLoss &loss, const Omission &omission, const Snapshot &wanted) {
  loss.reason = shownReason(omission, wanted);
  loss.code = reasonRow(omission.reason).why.code;
  loss.displacedBy = settingOf(omission.displacedBy);
}

constexpr const char *linesInFile = "lines-in-file";
constexpr const char *longFile = "long-file";

/// A text that an option file's line ends in.
std::optional<Why> problemInFile(const Value &value) {
  if (!value.IsText())
    return std::nullopt;
  const auto problem = whyNoOpaqueWord(value.Text(), WordPlace::optionFile);
  const bool isOfFile =
      problem && std::string_view(problem->code) == linesInFile;
  return isOfFile ? problem : std::nullopt;
}

/// What else is lost where a line ends too early.
Why whyReadDifferently(const std::string &command) {
  if (command.size() > longestOptionLine)
    return {longFile};
  if (lineOfFile(command).size() < command.size())
    return {linesInFile,
            "it stands behind a line break or a null byte, and the line of an "
            "option file ends there"};
  return {"read-differently"};
}

RawLoss cutLoss(const std::string &command) {
  return {wholeCommand,
          command,
          {},
          fmt::format("it has {} characters, and only {} of a line are read",
                      command.size(), longestOptionLine),
          longFile,
          "",
          true};
}

/// The one setting because of which the reader refuses.
RawLoss refusalLoss(const Snapshot &wanted, const std::string &command,
                    const CommandWriting &writing, const std::string &refusal) {
  if (!writing.unreadable.empty()) {
    const Omission &omission = writing.unreadable.front();
    const SettingRow &row = *findRow(settingOf(omission.field));
    RawLoss loss{row.info.id, valueIn(wanted, row), {}, "", "", "", true};
    explain(loss, omission, wanted);
    return loss;
  }
  return {wholeCommand,
          command,
          {},
          fmt::format("the command that is written is refused: {}", refusal),
          "refused-again",
          "",
          true};
}

/// What a refused command does not even carry, beside the defaults.
void appendOmitted(std::vector<RawLoss> &losses, const Snapshot &wanted,
                   const CommandWriting &writing) {
  const Snapshot defaults = defaultsBeside(wanted, wanted.record);
  for (const SettingRow &row : settingRows()) {
    if (!row.info.settable || row.isOfDevice() || row.isIdentity ||
        row.info.id == losses.front().setting)
      continue;
    const Omission *const omission = findFor(writing.omissions, row);
    const Value value = valueIn(wanted, row);
    if (omission == nullptr || value == valueIn(defaults, row))
      continue;
    RawLoss loss{row.info.id, value, {}, "", "", "", false};
    explain(loss, *omission, wanted);
    losses.push_back(std::move(loss));
  }
}

} // namespace

std::vector<RawLoss> lossesOf(const Snapshot &wanted,
                              const std::string &command,
                              const CommandWriting &writing,
                              const Snapshot *readBack,
                              const std::string &refusal) {
  std::vector<RawLoss> losses;
  const bool isCut = command.size() > longestOptionLine;
  if (isCut)
    losses.push_back(cutLoss(command));
  if (readBack == nullptr) {
    if (isCut)
      return losses;
    losses.push_back(refusalLoss(wanted, command, writing, refusal));
    appendOmitted(losses, wanted, writing);
    return losses;
  }
  bool connectionDiffers = false;
  for (const FieldDifference &difference :
       settingsThatDiffer(wanted, *readBack)) {
    const SettingRow &row = *findRow(difference.name);
    if (connectionDiffers && settingOf(difference.name) == connectionSetting)
      continue;
    connectionDiffers =
        connectionDiffers || difference.name == connectionSetting;
    RawLoss loss{difference.name,
                 difference.before,
                 difference.after,
                 "",
                 "",
                 "",
                 false};
    const Omission *omission =
        findFor(writing.omissions, row, wanted, *readBack);
    if (omission == nullptr)
      omission = findFor(writing.unreadable, row, wanted, *readBack);
    const auto inFile = problemInFile(difference.before);
    if (omission != nullptr) {
      explain(loss, *omission, wanted);
    } else {
      const Why why = inFile ? *inFile : whyReadDifferently(command);
      loss.reason = why.text();
      loss.code = why.code;
    }
    losses.push_back(std::move(loss));
  }
  return losses;
}

const RawLoss *Analysis::findLoss(const std::string &setting) const {
  for (const RawLoss &loss : losses)
    if (loss.setting == setting)
      return &loss;
  return nullptr;
}

const Omission *Analysis::findOmission(const SettingRow &row) const {
  return findFor(writing.omissions, row);
}

Refusal noCommandOf(const Analysis &analysis) {
  Refusal refusal(RefusalKind::noCommand, "",
                  "no command can be written: " + analysis.error);
  if (!analysis.writing.omissions.empty())
    refusal.setting = settingOf(analysis.writing.omissions.front().field);
  return refusal;
}

Analysis analyse(Desk &desk, const Snapshot &wanted) {
  Analysis analysis;
  Written written = writeSnapshot(desk, wanted);
  analysis.writing = std::move(written.writing);
  if (!written.command) {
    analysis.error = written.error;
    return analysis;
  }
  analysis.command = std::move(written.command);
  const ReadBack back = readBack(desk, *analysis.command);
  analysis.losses =
      lossesOf(wanted, *analysis.command, analysis.writing,
               back.snapshot ? &*back.snapshot : nullptr, back.refusal);
  return analysis;
}

} // namespace ZelDebugDialog::model
