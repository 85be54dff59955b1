// What the readers of components, designs and configurations have in common.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_RECORDREADER_H
#define ZELDEBUGDIALOG_DESIGNMODEL_RECORDREADER_H

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "messages/DiagnosticList.h"
#include "records/Records.h"
#include "xml/XmlDocument.h"
#include "xml/XmlNames.h"

namespace ZelDebugDialog {

class RecordReader {
public:
  RecordReader(const XmlDocument &read, const std::string &name,
               DiagnosticList &list)
      : document(read), file(name), diagnostics(list) {}

protected:
  using Severity = DesignDiagnostic::Severity;

  /// Reports a condition on the element: it is not followed.
  void noteCondition(const pugi::xml_node &node);

  /// Calls `take` for each child element of that name, and notes conditions:
  /// for elements that can have one, which are some of those of 2014.
  template <class Take>
  void forEach(const pugi::xml_node &parent, std::string_view name, Take take) {
    forEachChild(parent, name, [&](const pugi::xml_node &child) {
      noteCondition(child);
      take(child);
    });
  }

  /// The same for the elements of a list: the child `list` of `parent`.
  template <class Take>
  void forEachIn(const pugi::xml_node &parent, std::string_view list,
                 std::string_view name, Take take) {
    forEach(findChild(parent, list), name, take);
  }

  /// A reference that gives no values.
  ReferenceRecord readPlainReference(const pugi::xml_node &reference);
  ReferenceRecord readReferenceRecord(const pugi::xml_node &reference);
  void readOverrides(const pugi::xml_node &parent,
                     std::vector<OverrideRecord> &overrides);

  /// Appends the parameters `name` in the child `list` of `parent`.
  void readParameters(const pugi::xml_node &parent, std::string_view list,
                      std::string_view name, ParameterRecords &parameters);
  void readParameter(const pugi::xml_node &node, ParameterRecords &parameters);
  /// To be called when all are there.
  void completeParameters(ParameterRecords &parameters);

  int lineOf(const pugi::xml_node &node) const { return document.lineOf(node); }
  void report(Severity severity, int line, std::string message) {
    diagnostics.add({severity, file, line, std::move(message)});
  }

  const XmlDocument &document;
  const std::string &file;
  DiagnosticList &diagnostics;

private:
  /// Many refer to few.
  std::unordered_map<Identity, std::shared_ptr<const Identity>, IdentityHash>
      identities;
};

} // namespace ZelDebugDialog

#endif
