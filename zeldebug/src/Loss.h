// What a written command would not bring back, and why.
//
// The language of the debugger has no word for some settings, and words of
// which only one of two can be written; its readers refuse a few texts that its
// writers make. docs/round-trip.md tells what to do about each loss.
#ifndef ZELDEBUG_LOSS_H
#define ZELDEBUG_LOSS_H

#include <string>
#include <vector>

#include "Configuration.h"

namespace zeldebug {

struct Loss {
  std::string field; ///< as `settingsOf` names it; "connectCommand" for all
  FieldKind kind;
  Json value;    ///< what was to be saved
  Json readBack; ///< what comes back; null when nothing can be read at all
  std::string reason;
  /// Of docs/round-trip.md, which tells what to do; may be empty.
  std::string anchor;
  /// The setting that takes this one's place; empty if there is none.
  std::string displacedBy;
  bool blocking = false; ///< no setting at all comes back because of it
};

/// How a written command came back.
struct ReadBack {
  bool accepted;
  std::string message; ///< of the reader, when it refused
  Configuration configuration;
};

/// @param command     the text that was written for `wanted`
/// @param lineLimit  whether it goes into an option file, whose lines are cut
std::vector<Loss> lossesOf(const Configuration &wanted,
                           const std::string &command, const ReadBack &readBack,
                           bool lineLimit);

/// "debugDevice 3 (comes back as 0): reason [anchor]"
std::string shownLoss(const Loss &loss);

/// [{"field", "value", "readBack", "reason", "anchor"}]
Json toJson(const std::vector<Loss> &losses);

} // namespace zeldebug

#endif
