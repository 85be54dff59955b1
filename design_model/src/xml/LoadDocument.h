// From a path to a document that has been checked.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_LOADDOCUMENT_H
#define ZELDEBUGDIALOG_DESIGNMODEL_LOADDOCUMENT_H

#include <string>

#include "messages/DiagnosticList.h"
#include "xml/DocumentSource.h"
#include "xml/Identity.h"
#include "xml/XmlDocument.h"

namespace ZelDebugDialog {

/// False: the file can't be read, is no XML, or none of the standard's
/// documents; a diagnostic of the given severity says so.
bool loadDocument(const DocumentSource &source, const std::string &file,
                  DesignDiagnostic::Severity severity,
                  DiagnosticList &diagnostics, XmlDocument &document);

/// The type of a document that has been loaded.
DocumentType typeOf(const XmlDocument &document);

} // namespace ZelDebugDialog

#endif
