// An XML file that has been read: its elements, and the lines they stand on.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_XMLDOCUMENT_H
#define ZELDEBUGDIALOG_DESIGNMODEL_XMLDOCUMENT_H

#include <cstdint>
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace ZelDebugDialog {

/// Keeps the text in which the elements lie.
class XmlDocument {
public:
  XmlDocument() = default;
  XmlDocument(const XmlDocument &) = delete;
  XmlDocument &operator=(const XmlDocument &) = delete;
  ~XmlDocument() = default;

  /// Parses the text. False: it is not XML in UTF-8; `fault` and `faultLine`
  /// say why. What came before the fault can be looked at all the same.
  bool parse(std::string documentText);

  /// The document element; no node when there is none.
  pugi::xml_node root() const;
  int lineOf(const pugi::xml_node &node) const;

  std::string fault;
  int faultLine = 0;

  const pugi::xml_document &tree() const { return document; }

private:
  bool refuse(std::string reason, std::size_t offset);
  int lineAt(std::size_t offset) const;

  std::string text;
  std::vector<std::uint32_t> lineEnds;
  /// The line ends before the last place that was asked for. Places are mostly
  /// asked for in their order: the next one is near.
  mutable std::size_t linesBefore = 0;
  pugi::xml_document document;
};

} // namespace ZelDebugDialog

#endif
