#include "toml/Document.h"

#include <algorithm>

#include <toml++/toml.h>

#include "toml/Statements.h"

namespace ZelDebugDialog::project {

namespace {

// Tables are released one inside the other; values in brackets are counted by
// the parser.
constexpr std::size_t mostPartsOfKey = 16;

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Turns the parser's positions, which count characters, into bytes.
class Positions {
public:
  explicit Positions(std::string_view of) : text(of), lines(of) {}

  std::size_t offsetOf(const toml::source_position &position) const {
    if (position.line == 0)
      return 0;
    if (static_cast<int>(position.line) > lines.count())
      return text.size();
    std::size_t offset = lines.startOf(static_cast<int>(position.line));
    for (toml::source_index column = 1;
         column < position.column && offset < text.size(); ++column) {
      ++offset;
      while (offset < text.size() && isContinuation(text[offset]))
        ++offset;
    }
    return offset;
  }
  Span spanOf(const toml::source_region &region) const {
    const std::size_t begin = offsetOf(region.begin);
    return {begin, std::max(begin, offsetOf(region.end))};
  }

private:
  std::string_view text;
  Lines lines;
};

class Converter {
public:
  explicit Converter(std::string_view of) : text(of), positions(of) {}

  TomlNode convert(const toml::node &from) const {
    TomlNode node;
    node.span = positions.spanOf(from.source());
    if (const toml::table *const table = from.as_table()) {
      node.isInline = table->is_inline();
      for (const auto &[key, value] : *table)
        node.members.push_back({std::string(key.str()),
                                positions.offsetOf(key.source().begin),
                                convert(value)});
      std::sort(node.members.begin(), node.members.end(),
                [](const TomlMember &one, const TomlMember &other) {
                  return one.offset < other.offset;
                });
      return node;
    }
    if (const toml::array *const array = from.as_array()) {
      node.type = TomlType::array;
      for (const toml::node &item : *array)
        node.items.push_back(convert(item));
      return node;
    }
    node.text = text.substr(node.span.begin, node.span.end - node.span.begin);
    if (const auto *const string = from.as_string()) {
      node.type = TomlType::text;
      node.text = string->get();
    } else if (const auto *const integer = from.as_integer()) {
      node.type = TomlType::integer;
      node.integer = integer->get();
    } else if (const auto *const flag = from.as_boolean()) {
      node.type = TomlType::boolean;
      node.flag = flag->get();
    } else {
      node.type = from.is_floating_point() ? TomlType::real : TomlType::date;
    }
    return node;
  }

private:
  std::string_view text;
  Positions positions;
};

} // namespace

const char *shown(TomlType type) {
  switch (type) {
  case TomlType::table:
    return "a table";
  case TomlType::array:
    return "an array";
  case TomlType::text:
    return "a text";
  case TomlType::integer:
    return "an integer";
  case TomlType::real:
    return "a float";
  case TomlType::boolean:
    return "a boolean";
  case TomlType::date:
    break;
  }
  return "a date or time";
}

const TomlMember *TomlNode::find(std::string_view key) const {
  for (const TomlMember &member : members)
    if (member.key == key)
      return &member;
  return nullptr;
}

bool isSame(const TomlNode &one, const TomlNode &other) {
  if (one.type != other.type || one.members.size() != other.members.size() ||
      one.items.size() != other.items.size())
    return false;
  switch (one.type) {
  case TomlType::table:
    return std::all_of(one.members.begin(), one.members.end(),
                       [&other](const TomlMember &member) {
                         const TomlMember *const same = other.find(member.key);
                         return same != nullptr &&
                                isSame(member.value, same->value);
                       });
  case TomlType::array:
    return std::equal(one.items.begin(), one.items.end(), other.items.begin(),
                      isSame);
  case TomlType::integer:
    return one.integer == other.integer;
  case TomlType::boolean:
    return one.flag == other.flag;
  default:
    return one.text == other.text;
  }
}

TomlDocument readToml(const std::string &text) {
  TomlDocument document;
  if (const auto deep = findDeepKey(text, mostPartsOfKey)) {
    document.error = {*deep, "a key has no more than 16 parts"};
    return document;
  }
  const Converter converter(text);
  try {
    document.root = converter.convert(toml::parse(std::string_view(text)));
    document.root.span = {0, text.size()};
  } catch (const toml::parse_error &error) {
    const Positions positions(text);
    document.error = {positions.offsetOf(error.source().begin),
                      std::string(error.description())};
  }
  return document;
}

Lines::Lines(std::string_view text) : starts{0} {
  for (std::size_t at = 0; at < text.size(); ++at)
    if (text[at] == '\n')
      starts.push_back(at + 1);
}

int Lines::lineOf(std::size_t offset) const {
  return static_cast<int>(
      std::upper_bound(starts.begin(), starts.end(), offset) - starts.begin());
}

int Lines::columnOf(std::size_t offset) const {
  return static_cast<int>(offset - startOf(lineOf(offset))) + 1;
}

} // namespace ZelDebugDialog::project
