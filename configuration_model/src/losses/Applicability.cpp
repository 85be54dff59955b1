#include "losses/Applicability.h"

#include <algorithm>
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

  /// Under the values that `base` has, and then under others of the settings
  /// from `together` on.
  bool makesDifference(const Snapshot &base, std::size_t together = 0) {
    if (together == row.info.together.size())
      return makesDifferenceIn(base);
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

  bool makesDifferenceIn(const Snapshot &base) {
    const Value present = valueIn(base, row);
    const auto outcome = composeCommand(desk, base);
    for (const Value &value : samplesOf(row, base)) {
      if (value == present)
        continue;
      Snapshot changed = base;
      storeIn(changed, row, value);
      if (composeCommand(desk, changed) != outcome)
        return true;
    }
    return false;
  }

  Desk &desk;
  const Snapshot &defaults;
  const SettingRow &row;
};

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
    return reason.whyNotApplicable == nullptr ? reason.text
                                              : reason.whyNotApplicable;
  }
  return "what is written does not depend on it";
}

} // namespace

Applicability findApplicability(Desk &desk, const Snapshot &snapshot,
                                const Snapshot &defaults, const SettingRow &row,
                                const Analysis &analysis) {
  const bool isApplicable =
      row.info.settable && !row.isOfDevice() &&
      Trial(desk, defaults, row).makesDifference(snapshot);
  return {isApplicable,
          isApplicable ? "" : whyNot(row, snapshot, defaults, analysis)};
}

} // namespace ZelDebugDialog::model
