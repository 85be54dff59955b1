// One state of a session: what undoing brings back.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_STEP_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_STEP_H

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "losses/Analysis.h"
#include "settings/Snapshot.h"

namespace ZelDebugDialog::model {

/// A text that is no value.
struct DraftText {
  std::string text;
  std::string error;

  bool operator==(const DraftText &other) const {
    return text == other.text && error == other.error;
  }
};

/// A command that was read: what is saved, or what a person has typed.
struct ReadCommand {
  std::string text;
  std::string origin;  ///< "file", "earlier" or "command", as in `origins`
  bool isWhole = true; ///< nothing has replaced any of it
};

/// Never changes once it is part of a history.
struct Step {
  Snapshot now;
  /// Where settings come from, but for the defaults. What a file gave that has
  /// been written anew since has "earlier:<column>", the column in the old one.
  std::map<std::string, std::string> origins;
  ReadCommand read;                        ///< the last one
  std::map<std::string, DraftText> drafts; ///< by the setting
  std::optional<std::string> commandDraft;
  /// A command that was accepted, until the next change.
  std::optional<std::string> editedCommand;
  /// The settings that the change which led here asked for.
  std::set<std::string> asked;
  /// Settings that no longer come back since a change that did not ask for
  /// them.
  std::set<std::string> displaced;
  Analysis analysis;       ///< of `now`
  std::size_t savings = 0; ///< those that `origins` knows of

  /// Whether a text that a person sees differs: a draft, or a command.
  bool differsInTextsFrom(const Step &other) const;
};

using StepPointer = std::shared_ptr<const Step>;

/// The losses of a step as users are told of them.
/// @param defaults  those of the step
std::vector<Loss> lossesOf(const Step &step, const Snapshot &defaults);

/// Finds out what the change from `before` has displaced. The analysis of both
/// is there.
void noteDisplaced(const Step &before, Step &after);

/// Says of what differs from `before` that it was changed.
void noteChanged(const Snapshot &before, Step &after);
/// Says that the file gives what it shares with what was saved, and nothing
/// else.
void noteSavedOrigins(const Step &saved, Step &step);
/// The same of a step of the history: what it had of the file before, it has of
/// an earlier one now.
void noteSavedSince(const Step &saved, Step &step);
/// The origin of a setting or of a device's field as it is told; empty for the
/// default.
std::string shownOrigin(const Step &step, const std::string &name);
/// Says that what is there is where everything begins: nothing is typed, and
/// what is not the default comes from `origin`.
void noteStart(Step &step, const std::string &origin);
/// Says of a setting, with its devices if it is the chain, that nobody set it.
void forgetOrigin(Step &step, const std::string &setting);

} // namespace ZelDebugDialog::model

#endif
