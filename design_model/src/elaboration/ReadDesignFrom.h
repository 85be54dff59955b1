// Reading a design from any source of documents.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_READDESIGNFROM_H
#define ZELDEBUGDIALOG_DESIGNMODEL_READDESIGNFROM_H

#include <cstddef>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/DesignModel/Kinds.h"
#include "xml/DocumentSource.h"

namespace ZelDebugDialog {

/// What a model may take in memory, roughly.
constexpr std::size_t largestModel = std::size_t{1} << 30;

/// `ReadDesign` with the files of `documents`, for a model of at most `bytes`.
bool readDesignFrom(const DocumentSource &documents,
                    const DesignSources &sources, std::size_t bytes,
                    DesignModel &model);

/// `ProposeKinds` for the same.
bool proposeKindsFrom(const DocumentSource &documents,
                      const DesignSources &sources, std::size_t bytes,
                      KindProposal &proposal, DesignModel &model);

} // namespace ZelDebugDialog

#endif
