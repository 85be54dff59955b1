// How documents name each other: vendor, library, name and version, compared
// exactly, among the documents of one type.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_IDENTITY_H
#define ZELDEBUGDIALOG_DESIGNMODEL_IDENTITY_H

#include <cstddef>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace ZelDebugDialog {

struct Identity {
  std::string vendor;
  std::string library;
  std::string name;
  std::string version;

  bool operator==(const Identity &other) const {
    return name == other.name && version == other.version &&
           library == other.library && vendor == other.vendor;
  }
  /// No part may be empty.
  bool isComplete() const {
    return !vendor.empty() && !library.empty() && !name.empty() &&
           !version.empty();
  }
};

struct IdentityHash {
  std::size_t operator()(const Identity &identity) const;
};

/// "vendor:library:name:version".
std::string toText(const Identity &identity);

/// From the attributes of a reference.
Identity readReference(const pugi::xml_node &reference);

/// From the child elements of a document element.
Identity readIdentity(const pugi::xml_node &root);

/// The documents of the standard.
enum class DocumentType {
  none, ///< None of them.
  component,
  design,
  designConfiguration,
  catalog,
  other, ///< One that a model doesn't need, as a bus definition.
};

/// By the local name of the document element.
DocumentType findDocumentType(std::string_view rootName);

/// "component", "design", ...
std::string_view toText(DocumentType type);

/// Makes one key of both.
std::string keyOf(DocumentType type, const Identity &identity);

} // namespace ZelDebugDialog

#endif
