// Why a setting does not come back, in words: a row for each reason that the
// engine's writers know.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_REASONS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_REASONS_H

#include "ZelDebugDialog/CommandWriting.h"
#include "codes/CodeRows.h"

namespace ZelDebugDialog::model {

struct Reason {
  OmissionReason reason;
  Why why; ///< Its code is an anchor of docs/round-trip.md as well.
  /// The same of a setting that has no say; null: no other words are needed.
  const char *whyNotApplicable = nullptr;
};

const Reason &reasonRow(OmissionReason reason);

} // namespace ZelDebugDialog::model

#endif
