// A proposal as the text of a kind table.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_KINDTABLETEXT_H
#define ZELDEBUGDIALOG_DESIGNMODEL_KINDTABLETEXT_H

#include <string>

#include "ZelDebugDialog/DesignModel/Kinds.h"

namespace ZelDebugDialog {

/// A row for each candidate that is proposed, its evidence above it as
/// comments; what is undecided as a comment as well, so that taking off the "#"
/// is all that is to be done; what is rejected with its reason.
std::string kindTableText(const KindProposal &proposal,
                          const DesignSources &sources);

/// The first word of a row for a component of that identity. What a row can't
/// hold, white space and "#", is any character there.
std::string rowPattern(const std::string &identity);

} // namespace ZelDebugDialog

#endif
