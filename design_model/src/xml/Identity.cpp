#include "xml/Identity.h"

#include <array>
#include <functional>

#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

struct Row {
  std::string_view rootName;
  DocumentType type;
};

constexpr std::array<Row, 9> table = {{
    {"component", DocumentType::component},
    {"design", DocumentType::design},
    {"designConfiguration", DocumentType::designConfiguration},
    {"catalog", DocumentType::catalog},
    {"busDefinition", DocumentType::other},
    {"abstractionDefinition", DocumentType::other},
    {"abstractor", DocumentType::other},
    {"generatorChain", DocumentType::other},
    {"typeDefinitions", DocumentType::other},
}};

} // namespace

std::size_t IdentityHash::operator()(const Identity &identity) const {
  constexpr std::size_t factor = 31;
  const std::hash<std::string> hash;
  // Of few libraries, by few vendors, in few versions.
  return hash(identity.name) + factor * hash(identity.version);
}

std::string toText(const Identity &identity) {
  return identity.vendor + ":" + identity.library + ":" + identity.name + ":" +
         identity.version;
}

Identity readReference(const pugi::xml_node &reference) {
  const auto [vendor, library, name, version] =
      attributesOf<4>(reference, {"vendor", "library", "name", "version"});
  return {std::string(vendor), std::string(library), std::string(name),
          std::string(version)};
}

Identity readIdentity(const pugi::xml_node &root) {
  return {childText(root, "vendor"), childText(root, "library"),
          childText(root, "name"), childText(root, "version")};
}

DocumentType findDocumentType(std::string_view rootName) {
  for (const Row &row : table)
    if (row.rootName == rootName)
      return row.type;
  return DocumentType::none;
}

std::string_view toText(DocumentType type) {
  for (const Row &row : table)
    if (row.type == type)
      return row.rootName;
  return "document";
}

std::string keyOf(DocumentType type, const Identity &identity) {
  std::string key(toText(type));
  for (const std::string *part : {&identity.vendor, &identity.library,
                                  &identity.name, &identity.version}) {
    key += '\n';
    key += *part;
  }
  return key;
}

} // namespace ZelDebugDialog
