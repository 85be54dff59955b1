// Reading a design from any source of documents.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_READDESIGNFROM_H
#define ZELDEBUGDIALOG_DESIGNMODEL_READDESIGNFROM_H

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "elaboration/ModelLimits.h"
#include "xml/DocumentSource.h"

namespace ZelDebugDialog {

/// `ReadDesign` with the files of `documents`, within limits of their own.
bool readDesignFrom(const DocumentSource &documents,
                    const DesignSources &sources, const ModelLimits &limits,
                    DesignModel &model);

} // namespace ZelDebugDialog

#endif
