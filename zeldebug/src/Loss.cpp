#include "Loss.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <fmt/format.h>

#include "LossRules.h"
#include "OptionFile.h"
#include "output/Output.h"
#include "output/SettingText.h"

namespace zeldebug {

namespace {

constexpr const char *longFile = "long-file";

void explainBy(const LossRule &rule, Loss &loss) {
  loss.reason = rule.reason;
  loss.anchor = rule.anchor;
  loss.displacedBy = rule.displacedBy;
}

/// Texts that are written even when they are empty.
bool isWrittenEmpty(const std::string &field) {
  static const std::string part = ".partname";
  const bool isPart =
      field.size() > part.size() &&
      field.compare(field.size() - part.size(), part.size(), part) == 0;
  return field == "cable.port" || field == "stubSerialPort" || isPart;
}

/// Why a text that is written is no word; nothing for what is one, and for an
/// empty text that is left out.
std::optional<NoWord> wordProblem(const std::string &field, FieldKind kind,
                                  const Json &value, bool lineLimit) {
  if (kind != FieldKind::text || !value.is_string() || field == "instanceName")
    return std::nullopt;
  const std::string text = value.get<std::string>();
  if (text.empty() && !isWrittenEmpty(field))
    return std::nullopt;
  const bool hasLineBreak = text.find('\n') != std::string::npos;
  const bool hasBlank = text.find_first_of(" \t") != std::string::npos;
  if (lineLimit && hasLineBreak && !hasBlank)
    return NoWord{"it holds a line break, and the line of an option file ends "
                  "there",
                  "lines-in-file"};
  if (field != "cable.moduleArgs")
    return whyNoWord(text);
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(';', start);
    const auto problem = whyNoWord(text.substr(start, end - start));
    if (problem || end == std::string::npos)
      return problem;
    start = end + 1;
  }
}

/// What a setting has to do with a refusal; nothing for one that survives it.
std::optional<Loss> lossOfRefusal(const Setting &setting, bool isDefault,
                                  const Configuration &wanted, bool lineLimit) {
  Loss loss{setting.name, setting.kind, setting.value, Json(), "",
            "",           "",           true};
  if (const LossRule *blocker = findBlocker(setting.name, wanted)) {
    loss.reason = shownReason(*blocker, wanted);
    loss.anchor = blocker->anchor;
    return loss;
  }
  if (const LossRule *rule = findLossRule(setting.name, wanted)) {
    if (isDefault)
      return std::nullopt;
    explainBy(*rule, loss);
    loss.blocking = false;
    return loss;
  }
  const auto problem =
      wordProblem(setting.name, setting.kind, setting.value, lineLimit);
  if (!problem)
    return std::nullopt;
  loss.reason = problem->reason;
  loss.anchor = problem->anchor;
  return loss;
}

/// The settings that make the reader refuse, and those that the command does
/// not even carry.
std::vector<Loss> lossesOfRefusal(const Configuration &wanted,
                                  const ReadBack &readBack, bool lineLimit) {
  std::vector<Loss> losses;
  const std::vector<Setting> defaults =
      settingsOf(defaultsBeside(wanted, wanted.record));
  std::size_t position = 0;
  for (const Setting &setting : settingsOf(wanted)) {
    const bool isDefault = defaults[position++].value == setting.value;
    if (auto loss = lossOfRefusal(setting, isDefault, wanted, lineLimit))
      losses.push_back(std::move(*loss));
  }
  const bool isExplained =
      std::any_of(losses.begin(), losses.end(),
                  [](const Loss &loss) { return loss.blocking; });
  if (!isExplained)
    losses.push_back(
        {"connectCommand", FieldKind::text, wanted.record.connectCommand,
         Json(), "the command that is written is refused: " + readBack.message,
         "", "", true});
  return losses;
}

Loss explained(const Difference &difference, const Configuration &wanted,
               bool isCut, bool lineLimit) {
  Loss loss{difference.name,
            difference.kind,
            difference.before,
            difference.after,
            "",
            "",
            ""};
  if (const LossRule *rule = findLossRule(difference.name, wanted)) {
    explainBy(*rule, loss);
    return loss;
  }
  if (const auto problem = wordProblem(difference.name, difference.kind,
                                       difference.before, lineLimit)) {
    loss.reason = problem->reason;
    loss.anchor = problem->anchor;
    return loss;
  }
  loss.reason = isCut ? "it stands behind what is read of the line"
                      : "it is read back differently";
  loss.anchor = isCut ? longFile : "";
  return loss;
}

} // namespace

std::vector<Loss> lossesOf(const Configuration &wanted,
                           const std::string &command, const ReadBack &readBack,
                           bool lineLimit) {
  const bool isCut = lineLimit && command.size() > optionLineLimit;
  std::vector<Loss> losses;
  if (isCut)
    losses.push_back(
        {"connectCommand", FieldKind::text, command, Json(),
         fmt::format("it has {} characters, and only {} of a line are read",
                     command.size(), optionLineLimit),
         longFile, "", true});
  if (!readBack.accepted) {
    if (!isCut)
      return lossesOfRefusal(wanted, readBack, lineLimit);
    return losses;
  }
  for (const Difference &difference :
       differencesBetween(wanted, readBack.configuration))
    losses.push_back(explained(difference, wanted, isCut, lineLimit));
  return losses;
}

std::string shownLoss(const Loss &loss) {
  const std::string anchor =
      loss.anchor.empty() ? "" : fmt::format(" [{}]", loss.anchor);
  if (loss.field == "connectCommand")
    return fmt::format("the command: {}{}", loss.reason, anchor);
  const std::string value = printable(shownSide(loss.value, loss.kind));
  if (loss.readBack.is_null())
    return fmt::format("{} {}: {}{}", loss.field, value, loss.reason, anchor);
  return fmt::format("{} {} (comes back as {}): {}{}", loss.field, value,
                     printable(shownSide(loss.readBack, loss.kind)),
                     loss.reason, anchor);
}

Json toJson(const std::vector<Loss> &losses) {
  Json list = Json::array();
  for (const Loss &loss : losses)
    list.push_back(
        {{"field", loss.field},
         {"value", loss.value},
         {"readBack", loss.readBack},
         {"reason", loss.reason},
         {"anchor", loss.anchor.empty() ? Json() : Json(loss.anchor)}});
  return list;
}

} // namespace zeldebug
