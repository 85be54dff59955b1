// The candidates for each part that a component can play.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_KINDCANDIDATES_H
#define ZELDEBUGDIALOG_DESIGNMODEL_KINDCANDIDATES_H

#include <vector>

#include "ZelDebugDialog/DesignModel/Kinds.h"
#include "proposals/KindFacts.h"

namespace ZelDebugDialog {

/// In a design whose processors need not be known yet.
std::vector<KindCandidate> findProcessorCandidates(const KindFacts &facts);

// In a design whose processors are known, as far as they can be.

/// Appends candidates for debug modules; also the connections that no wire
/// states, and what can't be decided.
void findDebugModuleCandidates(const KindFacts &facts, KindProposal &proposal);

/// Serial ports and memories.
std::vector<KindCandidate> findPeripheralCandidates(const KindFacts &facts);

} // namespace ZelDebugDialog

#endif
