#include "editing/EditList.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "editing/EditText.h"
#include "toml/Statements.h"

namespace ZelDebugDialog::project {

namespace {

constexpr const char *blanks = " \t";
constexpr const char *front = "value = ";

/// The list as the value of a key, which is what can be read.
class ListText {
public:
  explicit ListText(std::string ofKey) : text(std::move(ofKey)) {
    const TomlDocument document = readToml(text);
    for (const TomlMember &member : document.root.members)
      list = member.value;
  }

  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const TomlNode &item : list.items)
      found.push_back(item.text);
    return found;
  }

  std::string with(const std::string &name) const {
    if (list.items.empty())
      return withFirst(name);
    const Span &last = list.items.back().span;
    const std::string item = writtenText(name, text[last.begin]);
    if (!isOnLineOfItems(last))
      return replaced({last.end, last.end}, ", " + item);
    const std::optional<std::size_t> comma = commaBehind(last.end);
    const std::size_t behind = comma ? *comma + 1 : last.end;
    const std::size_t end = endOfLine(behind);
    const std::size_t at = end < list.span.end ? end : behind;
    return text.substr(0, last.end) + (comma ? "" : ",") +
           text.substr(last.end, at - last.end) + lineEndOf(text) +
           indentationOf(last) + item + (comma ? "," : "") + text.substr(at);
  }

  std::string without(std::size_t index) const {
    const Span &item = list.items[index].span;
    const std::optional<std::size_t> comma = commaOf(index);
    if (!comma)
      return replaced(item, "");
    const Span commaSpan{*comma, *comma + 1};
    if (const auto line = lineOfNothingBut(item, *comma))
      return withoutBoth(*line, commaSpan);
    if (*comma < item.begin)
      return text.find_first_not_of(" \t\r\n", *comma + 1) == item.begin
                 ? replaced({*comma, item.end}, "")
                 : withoutBoth(item, commaSpan);
    if (text.find_first_not_of(blanks, item.end) != *comma)
      return withoutBoth(item, commaSpan);
    const std::size_t next = text.find_first_not_of(blanks, *comma + 1);
    return isItem(next) ? replaced({item.begin, next}, "")
                        : replaced({startOfBlanks(item.begin), *comma + 1}, "");
  }

private:
  std::string replaced(const Span &span, const std::string &by) const {
    return text.substr(0, span.begin) + by + text.substr(span.end);
  }
  /// Of two, of which one may hold the other.
  std::string withoutBoth(const Span &one, const Span &other) const {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at)
      if ((at < one.begin || at >= one.end) &&
          (at < other.begin || at >= other.end))
        result += text[at];
    return result;
  }

  std::string withFirst(const std::string &name) const {
    const std::size_t inside = list.span.begin + 1;
    const std::size_t next = text.find_first_not_of(blanks, inside);
    return replaced({inside, text[next] == ']' ? next : inside},
                    writtenText(name));
  }

  std::size_t startOfLine(std::size_t at) const {
    const std::size_t end =
        at == 0 ? std::string::npos : text.rfind('\n', at - 1);
    return end == std::string::npos ? 0 : end + 1;
  }
  /// Its line end not included.
  std::size_t endOfLine(std::size_t at) const {
    const std::size_t end = text.find('\n', at);
    if (end == std::string::npos)
      return text.size();
    return end > at && text[end - 1] == '\r' ? end - 1 : end;
  }
  /// Where the spaces and tabs in front of a place begin.
  std::size_t startOfBlanks(std::size_t at) const {
    return text.find_last_not_of(blanks, at - 1) + 1;
  }
  bool isItem(std::size_t at) const {
    return std::any_of(
        list.items.begin(), list.items.end(),
        [at](const TomlNode &item) { return item.span.begin == at; });
  }
  std::string indentationOf(const Span &item) const {
    const std::size_t start = startOfLine(item.begin);
    return text.substr(start, text.find_first_not_of(blanks, start) - start);
  }
  /// Whether the line of an item begins with an item, be it another one.
  bool isOnLineOfItems(const Span &item) const {
    return isItem(text.find_first_not_of(blanks, startOfLine(item.begin)));
  }

  /// The comma that follows, behind line ends and comments.
  std::optional<std::size_t> commaBehind(std::size_t at) const {
    for (;;) {
      at = text.find_first_not_of(" \t\r\n", at);
      if (at == std::string::npos || text[at] != '#')
        break;
      at = endOfLine(at);
    }
    return at != std::string::npos && text[at] == ',' ? std::optional(at)
                                                      : std::nullopt;
  }
  /// The comma that goes with an item: the one behind it on its line, else the
  /// one in front, else any behind.
  std::optional<std::size_t> commaOf(std::size_t index) const {
    const std::size_t end = list.items[index].span.end;
    const std::size_t behind = text.find_first_not_of(blanks, end);
    if (text[behind] == ',')
      return behind;
    return commaBehind(index > 0 ? list.items[index - 1].span.end : end);
  }
  /// The line of an item that has no more than it, its comma and a comment.
  std::optional<Span> lineOfNothingBut(const Span &item,
                                       std::size_t comma) const {
    std::string rest = text;
    rest.replace(item.begin, item.end - item.begin, item.end - item.begin, ' ');
    rest[comma] = ' ';
    const Span line{startOfLine(item.begin), endOfLine(item.end)};
    const std::size_t first = rest.find_first_not_of(blanks, line.begin);
    if (first < line.end && rest[first] != '#')
      return std::nullopt;
    return Span{line.begin, text.find('\n', line.end) + 1};
  }

  std::string text;
  TomlNode list;
};

std::string rewritten(const std::vector<std::string> &names) {
  std::string list;
  for (const std::string &name : names)
    list += (list.empty() ? "" : ", ") + writtenText(name);
  return front + ("[" + list + "]");
}

/// What says the names: the edited list, or one that is written anew.
std::string ifSays(std::string edited, const std::vector<std::string> &names) {
  return ListText(edited).names() == names ? edited : rewritten(names);
}

std::string withoutFront(const std::string &text) {
  return text.substr(std::string(front).size());
}

} // namespace

std::string listWith(const std::string &list, const std::string &item) {
  if (list.empty())
    return listWith("[]", item);
  const ListText there(front + list);
  std::vector<std::string> names = there.names();
  names.push_back(item);
  return withoutFront(ifSays(there.with(item), names));
}

std::string listWithout(const std::string &list, const std::string &item) {
  std::string text = front + list;
  for (;;) {
    const ListText there(text);
    std::vector<std::string> names = there.names();
    const auto found = std::find(names.begin(), names.end(), item);
    if (found == names.end())
      return withoutFront(text);
    const auto index = static_cast<std::size_t>(found - names.begin());
    names.erase(found);
    text = ifSays(there.without(index), names);
  }
}

} // namespace ZelDebugDialog::project
