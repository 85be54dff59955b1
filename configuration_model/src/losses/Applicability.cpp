#include "losses/Applicability.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "losses/Reasons.h"
#include "losses/Writing.h"
#include "settings/Values.h"

namespace ZelDebugDialog::model {

namespace {

/// Tries values, one writing each, until one makes a difference.
class Trial {
public:
  Trial(Desk &usedDesk, const Snapshot &defaultValues, const SettingRow &tried)
      : desk(usedDesk), defaults(defaultValues), row(tried) {}

  /// Under the values that `base` has, whose outcome is known.
  bool makesDifferenceTo(const Snapshot &base,
                         const std::optional<std::string> &outcome) {
    const std::vector<Value> samples = samplesOf(row, base);
    return std::any_of(samples.begin() + 1, samples.end(),
                       [&](const Value &value) {
                         Snapshot changed = base;
                         storeIn(changed, row, value);
                         return composeCommand(desk, changed) != outcome;
                       });
  }

  /// Under the values that `base` has, and then under others of the settings
  /// from `together` on.
  bool makesDifference(const Snapshot &base, std::size_t together = 0) {
    if (together == row.info.together.size())
      return makesDifferenceTo(base, composeCommand(desk, base));
    const SettingRow &other = *findRow(row.info.together[together]);
    for (const Value &value : samplesOf(other, base)) {
      Snapshot changed = base;
      storeIn(changed, other, value);
      if (makesDifference(changed, together + 1))
        return true;
    }
    return false;
  }

private:
  std::vector<Value> samplesOf(const SettingRow &sampled,
                               const Snapshot &base) const {
    return sampleValues(sampled, base, defaults);
  }

  Desk &desk;
  const Snapshot &defaults;
  const SettingRow &row;
};

/// Whether the writers leave a setting out without looking at it, nor at those
/// that are together with it: what they look at is another one.
bool isOutOfSight(const SettingRow &row, const Analysis &analysis) {
  if (row.get != nullptr)
    return false; // several fields in one: some of them may be looked at
  const Omission *const omission = analysis.findOmission(row);
  if (omission == nullptr)
    return false;
  switch (omission->reason) {
  case OmissionReason::noWriter:
  case OmissionReason::otherConnection:
  case OmissionReason::otherCable:
  case OmissionReason::serialNumber:
  case OmissionReason::simulatorFile:
  case OmissionReason::powerPcOnly:
  case OmissionReason::ppc405Only:
    return true;
  default:
    return false;
  }
}

bool canMakeDifference(Desk &desk, const Snapshot &snapshot,
                       const Snapshot &defaults, const SettingRow &row,
                       const Analysis &analysis) {
  if (!row.info.settable || isOutOfSight(row, analysis))
    return false;
  Trial trial(desk, defaults, row);
  return trial.makesDifferenceTo(snapshot, analysis.command) ||
         (!row.info.together.empty() && trial.makesDifference(snapshot));
}

/// Whether the processor allows nothing but what is chosen.
bool hasNoOtherChoice(const SettingRow &row, const Snapshot &snapshot,
                      const Snapshot &defaults) {
  const Value present = valueIn(snapshot, row);
  return !row.info.choices.empty() &&
         std::all_of(
             row.info.choices.begin(), row.info.choices.end(),
             [&](const Choice &choice) {
               return choice.value == present ||
                      !whyNotAllowed(row, choice, defaults.record).empty();
             });
}

std::string whyNot(const SettingRow &row, const Snapshot &snapshot,
                   const Snapshot &defaults, const Analysis &analysis) {
  if (row.isIdentity)
    return "it says which processor this is";
  if (!row.info.settable)
    return "it follows from other settings";
  if (!analysis.command)
    return fmt::format("no command can be written: {}", analysis.error);
  if (hasNoOtherChoice(row, snapshot, defaults))
    return "the processor leaves no other choice";
  if (const Omission *const omission = analysis.findOmission(row)) {
    const Reason &reason = reasonRow(omission->reason);
    return reason.whyNotApplicable == nullptr ? reason.why.text()
                                              : reason.whyNotApplicable;
  }
  return "what is written does not depend on it";
}

} // namespace

Applicability findApplicability(Desk &desk, const Snapshot &snapshot,
                                const Snapshot &defaults, const SettingRow &row,
                                const Analysis &analysis) {
  const bool isApplicable =
      canMakeDifference(desk, snapshot, defaults, row, analysis);
  return {isApplicable,
          isApplicable ? "" : whyNot(row, snapshot, defaults, analysis)};
}

} // namespace ZelDebugDialog::model
