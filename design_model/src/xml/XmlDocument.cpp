#include "xml/XmlDocument.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "names/Utf8.h"

namespace ZelDebugDialog {
namespace {

/// A reference to the null character, which XML can't hold and which would cut
/// a name short in silence. Its offset, or `npos`.
std::size_t findNullReference(const std::string &text) {
  for (std::size_t at = text.find("&#"); at != std::string::npos;
       at = text.find("&#", at + 1)) {
    std::size_t digit = at + 2;
    if (digit < text.size() && text[digit] == 'x')
      ++digit;
    const std::size_t end = text.find_first_not_of('0', digit);
    if (end != std::string::npos && end > digit && text[end] == ';')
      return at;
  }
  return std::string::npos;
}

std::vector<std::uint32_t> findLineEnds(const std::string &text) {
  std::vector<std::uint32_t> ends;
  const char *const start = text.data();
  const char *const end = start + text.size();
  for (const char *at = start; at != end; ++at) {
    at = static_cast<const char *>(
        std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    if (at == nullptr)
      break;
    ends.push_back(static_cast<std::uint32_t>(at - start));
  }
  // Without room left over: they stay as long as the elements.
  return {ends.begin(), ends.end()};
}

} // namespace

bool XmlDocument::parse(std::string documentText) {
  text = std::move(documentText);
  lineEnds = findLineEnds(text);
  const std::size_t badByte = findNonUtf8(text);
  if (badByte != std::string::npos)
    return refuse("it is not text in UTF-8", badByte);
  const std::size_t nullByte = text.find('\0');
  if (nullByte != std::string::npos)
    return refuse("it holds a null byte, which XML does not", nullByte);
  const std::size_t nullReference = findNullReference(text);
  if (nullReference != std::string::npos)
    return refuse("it holds the null character, which XML does not",
                  nullReference);
  const pugi::xml_parse_result result = document.load_buffer_inplace(
      text.data(), text.size(), pugi::parse_default | pugi::parse_doctype,
      pugi::encoding_utf8);
  // No fault of the text.
  if (result.status == pugi::status_out_of_memory)
    throw std::bad_alloc();
  if (!result)
    return refuse(
        std::string("it is not XML: ") + result.description(),
        static_cast<std::size_t>(std::max(result.offset, std::ptrdiff_t{0})));
  return true;
}

pugi::xml_node XmlDocument::root() const { return document.document_element(); }

bool XmlDocument::refuse(std::string reason, std::size_t offset) {
  fault = std::move(reason);
  faultLine = lineAt(offset);
  return false;
}

int XmlDocument::lineOf(const pugi::xml_node &node) const {
  return lineAt(static_cast<std::size_t>(
      std::max(node.offset_debug(), std::ptrdiff_t{0})));
}

int XmlDocument::lineAt(std::size_t offset) const {
  constexpr int farthestSteps = 16;
  const auto begin = lineEnds.begin();
  auto end = begin + static_cast<std::ptrdiff_t>(linesBefore);
  if (end != begin && end[-1] >= offset)
    end = begin;
  for (int step = 0; step < farthestSteps; ++step) {
    if (end == lineEnds.end() || *end >= offset)
      break;
    ++end;
  }
  if (end != lineEnds.end() && *end < offset)
    end = std::lower_bound(end, lineEnds.end(), offset);
  linesBefore = static_cast<std::size_t>(end - begin);
  return static_cast<int>(linesBefore) + 1;
}

} // namespace ZelDebugDialog
