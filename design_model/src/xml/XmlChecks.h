// Faults of a document that don't keep it from being read.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_XMLCHECKS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_XMLCHECKS_H

#include <string>

#include "messages/DiagnosticList.h"
#include "xml/XmlDocument.h"

namespace ZelDebugDialog {

/// Reports prefixes that are not declared where they are used, each once;
/// elements nested too deeply to mean anything; and a document type with
/// entities, which are not expanded.
void checkDocument(const XmlDocument &document, const std::string &file,
                   DiagnosticList &diagnostics);

} // namespace ZelDebugDialog

#endif
