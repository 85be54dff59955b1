// Why a setting does not come back, in words: a row for each reason that the
// engine's writers know.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_REASONS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_REASONS_H

#include "ZelDebugDialog/CommandWriting.h"

namespace ZelDebugDialog::model {

struct Reason {
  OmissionReason reason;
  const char *text; ///< A clause without a full stop.
  const char *code; ///< Known to `FindCode`; an anchor of docs/round-trip.md.
  /// The same of a setting that has no say; null: no other words are needed.
  const char *whyNotApplicable = nullptr;
};

const Reason &reasonRow(OmissionReason reason);

} // namespace ZelDebugDialog::model

#endif
