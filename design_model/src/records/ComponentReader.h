// Components: interfaces, bridges, channels, parameters, views.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_COMPONENTREADER_H
#define ZELDEBUGDIALOG_DESIGNMODEL_COMPONENTREADER_H

#include <memory>
#include <string>

#include "messages/DiagnosticList.h"
#include "records/Records.h"
#include "xml/XmlDocument.h"

namespace ZelDebugDialog {

std::unique_ptr<ComponentRecord> readComponent(const XmlDocument &document,
                                               const std::string &file,
                                               DiagnosticList &diagnostics);

} // namespace ZelDebugDialog

#endif
