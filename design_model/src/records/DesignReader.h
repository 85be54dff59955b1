// Designs and their configurations.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_DESIGNREADER_H
#define ZELDEBUGDIALOG_DESIGNMODEL_DESIGNREADER_H

#include <memory>
#include <string>

#include "messages/DiagnosticList.h"
#include "records/Records.h"
#include "xml/XmlDocument.h"

namespace ZelDebugDialog {

std::unique_ptr<DesignRecord> readDesignRecord(const XmlDocument &document,
                                               const std::string &file,
                                               DiagnosticList &diagnostics);

std::unique_ptr<ConfigurationRecord>
readConfiguration(const XmlDocument &document, const std::string &file,
                  DiagnosticList &diagnostics);

} // namespace ZelDebugDialog

#endif
