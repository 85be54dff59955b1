// Proposing a kind table for a design from any source of documents.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_PROPOSEKINDSFROM_H
#define ZELDEBUGDIALOG_DESIGNMODEL_PROPOSEKINDSFROM_H

#include "ZelDebugDialog/DesignModel/Kinds.h"
#include "elaboration/ModelLimits.h"
#include "xml/DocumentSource.h"

namespace ZelDebugDialog {

/// `ProposeKinds` with the files of `documents`, within limits of their own.
bool proposeKindsFrom(const DocumentSource &documents,
                      const DesignSources &sources, const ModelLimits &limits,
                      KindProposal &proposal, DesignModel &model);

} // namespace ZelDebugDialog

#endif
