#include "editing/EditText.h"

#include <algorithm>
#include <stdexcept>

namespace ZelDebugDialog::project {

namespace {

Path wholePath(const Statement &statement) {
  if (statement.kind != Statement::Kind::pair)
    return statement.path;
  Path path = statement.headerPath;
  path.insert(path.end(), statement.path.begin(), statement.path.end());
  return path;
}

bool beginsWith(const Path &path, const Path &front) {
  return path.size() >= front.size() &&
         std::equal(front.begin(), front.end(), path.begin());
}

Path behind(const Path &path, std::size_t parts) {
  return {path.begin() + static_cast<std::ptrdiff_t>(parts), path.end()};
}

// --- What is meant -----------------------------------------------------------

/// The value that a text means.
TomlNode nodeOf(const std::string &written) {
  TomlDocument document = readToml("value = " + written);
  const TomlMember *const member = document.root.find("value");
  if (document.error || member == nullptr)
    throw std::logic_error("no value: " + written);
  return member->value;
}

void put(TomlNode &table, const Path &path, std::size_t at,
         const TomlNode &value) {
  const auto found =
      std::find_if(table.members.begin(), table.members.end(),
                   [&](const TomlMember &one) { return one.key == path[at]; });
  TomlMember &member =
      found == table.members.end()
          ? table.members.emplace_back(TomlMember{path[at], 0, TomlNode()})
          : *found;
  if (at + 1 == path.size())
    member.value = value;
  else
    put(member.value, path, at + 1, value);
}

/// Tables without anything in them say nothing: a removed line may have been
/// all that made one.
void takeAway(TomlNode &table, const Path &path, std::size_t at) {
  const auto found =
      std::find_if(table.members.begin(), table.members.end(),
                   [&](const TomlMember &one) { return one.key == path[at]; });
  if (found == table.members.end())
    return;
  if (at + 1 == path.size())
    table.members.erase(found);
  else if (found->value.type == TomlType::table)
    takeAway(found->value, path, at + 1);
}

void dropEmptyTables(TomlNode &node) {
  for (TomlMember &member : node.members)
    dropEmptyTables(member.value);
  node.members.erase(std::remove_if(node.members.begin(), node.members.end(),
                                    [](const TomlMember &member) {
                                      return member.value.type ==
                                                 TomlType::table &&
                                             member.value.members.empty();
                                    }),
                     node.members.end());
}

bool means(const std::string &text, TomlNode meant) {
  TomlDocument document = readToml(text);
  if (document.error)
    return false;
  dropEmptyTables(document.root);
  dropEmptyTables(meant);
  return isSame(document.root, meant);
}

// --- Bytes -------------------------------------------------------------------

std::string replaced(const std::string &text, const Span &span,
                     const std::string &with) {
  return text.substr(0, span.begin) + with + text.substr(span.end);
}

std::string indentationAt(const std::string &text, std::size_t line) {
  const std::size_t end = text.find_first_not_of(" \t", line);
  return text.substr(line,
                     (end == std::string::npos ? text.size() : end) - line);
}

/// A line behind another one; at the end of a text that does not end its last
/// line, it does not end either.
std::string withLineBehind(const std::string &text, const Statement &other,
                           const std::string &line) {
  const std::size_t at = other.lines.end;
  const std::string indented = indentationAt(text, other.lines.begin) + line;
  const bool isEnded = at > 0 && text[at - 1] == '\n';
  return text.substr(0, at) +
         (isEnded ? indented + lineEndOf(text) : lineEndOf(text) + indented) +
         text.substr(at);
}

/// The places in which a new key could stand, the best one first.
std::vector<std::string> insertions(const std::string &text, const Path &path,
                                    std::size_t table,
                                    const std::string &written) {
  const std::vector<Statement> statements = statementsOf(text);
  std::vector<std::string> results;
  // At the end of the own lines of the table, or of one inside it.
  for (std::size_t parts = path.size() - 1; parts >= table && parts > 0;
       --parts)
    for (std::size_t at = 0; at < statements.size(); ++at) {
      const Statement &header = statements[at];
      if (header.kind != Statement::Kind::header ||
          header.path.size() != parts || !beginsWith(path, header.path))
        continue;
      std::size_t last = at;
      while (last + 1 < statements.size() &&
             statements[last + 1].kind == Statement::Kind::pair)
        ++last;
      results.push_back(
          withLineBehind(text, statements[last],
                         writtenPath(behind(path, parts)) + " = " + written));
    }
  // Behind a dotted key of the same table.
  const Path front(path.begin(),
                   path.begin() + static_cast<std::ptrdiff_t>(table));
  const auto dotted = std::find_if(statements.rbegin(), statements.rend(),
                                   [&](const Statement &one) {
                                     return one.kind == Statement::Kind::pair &&
                                            one.headerPath.size() < table &&
                                            beginsWith(wholePath(one), front) &&
                                            beginsWith(path, one.headerPath);
                                   });
  if (dotted != statements.rend())
    results.push_back(
        withLineBehind(text, *dotted,
                       writtenPath(behind(path, dotted->headerPath.size())) +
                           " = " + written));
  // Inside braces.
  const TomlDocument document = readToml(text);
  for (std::size_t parts = path.size() - 1; parts > 0; --parts) {
    const Path around(path.begin(),
                      path.begin() + static_cast<std::ptrdiff_t>(parts));
    const TomlNode *const node = findNode(document.root, around);
    if (node == nullptr || !node->isInline || node->span.end == 0)
      continue;
    const std::string pair = writtenPath(behind(path, parts)) + " = " + written;
    const std::size_t close = node->span.end - 1;
    const std::size_t before = text.find_last_not_of(" \t", close - 1);
    results.push_back(
        replaced(text, {before + 1, close},
                 (node->members.empty() ? " " : ", ") + pair + " "));
  }
  // A table of its own at the end.
  const std::string lineEnd = lineEndOf(text);
  std::string end = text;
  if (!end.empty() && end.back() != '\n')
    end += lineEnd;
  if (!end.empty())
    end += lineEnd;
  end += "[" + writtenPath(front) + "]" + lineEnd +
         writtenPath(behind(path, table)) + " = " + written + lineEnd;
  results.push_back(std::move(end));
  return results;
}

/// A pair in braces, with the comma that parts it from the others.
/// @param braces  where they open
/// @param path    of the key inside them
std::string withoutMember(const std::string &text, std::size_t braces,
                          const Path &path) {
  const std::vector<Statement> pairs = pairsInBraces(text, braces);
  for (std::size_t at = 0; at < pairs.size(); ++at) {
    const Statement &one = pairs[at];
    if (one.path != path)
      continue;
    if (at + 1 < pairs.size())
      return replaced(text, {one.key.begin, pairs[at + 1].key.begin}, "");
    return replaced(
        text, {at > 0 ? pairs[at - 1].value.end : one.key.begin, one.value.end},
        "");
  }
  return text;
}

/// Takes away the lines of an array of tables that has headers.
std::string withoutHeaders(const std::string &text, const Path &path) {
  std::string result = text;
  const std::vector<Statement> statements = statementsOf(text);
  for (std::size_t at = statements.size(); at-- > 0;) {
    const Statement &one = statements[at];
    if (beginsWith(one.kind == Statement::Kind::pair ? one.headerPath
                                                     : one.path,
                   path))
      result = replaced(result, one.lines, "");
  }
  return result;
}

} // namespace

std::string lineEndOf(const std::string &text) {
  const std::size_t end = text.find('\n');
  return end != std::string::npos && end > 0 && text[end - 1] == '\r' ? "\r\n"
                                                                      : "\n";
}

const TomlNode *findNode(const TomlNode &root, const Path &path) {
  const TomlNode *node = &root;
  for (const std::string &key : path) {
    const TomlMember *const member = node->find(key);
    if (member == nullptr)
      return nullptr;
    node = &member->value;
  }
  return node;
}

std::string withKey(const std::string &text, const Path &path,
                    std::size_t table, const Write &write) {
  const TomlDocument document = readToml(text);
  const TomlNode *const there = findNode(document.root, path);
  const bool hasHeaders = there != nullptr && there->type == TomlType::array &&
                          text.compare(there->span.begin, 2, "[[") == 0;
  const bool isInPlace = there != nullptr && !hasHeaders;
  const std::string written =
      write(isInPlace ? text.substr(there->span.begin,
                                    there->span.end - there->span.begin)
                      : "");
  const TomlNode value = nodeOf(written);
  // What says the same stays as it is written.
  if (there != nullptr && isSame(*there, value))
    return text;
  TomlNode meant = document.root;
  put(meant, path, 0, value);
  if (isInPlace) {
    std::string result = replaced(text, there->span, written);
    if (means(result, std::move(meant)))
      return result;
    throw std::logic_error("the value cannot be replaced");
  }
  const std::string without = hasHeaders ? withoutHeaders(text, path) : text;
  for (std::string &result : insertions(without, path, table, written))
    if (means(result, meant))
      return std::move(result);
  throw std::logic_error("there is no place for the key");
}

std::string withoutKey(const std::string &text, const Path &path) {
  const TomlDocument document = readToml(text);
  if (findNode(document.root, path) == nullptr)
    return text;
  TomlNode meant = document.root;
  takeAway(meant, path, 0);
  std::vector<std::string> results;
  for (const Statement &one : statementsOf(text))
    if (one.kind == Statement::Kind::pair && wholePath(one) == path)
      results.push_back(replaced(text, one.lines, ""));
  for (std::size_t parts = path.size() - 1; parts > 0; --parts) {
    const Path around(path.begin(),
                      path.begin() + static_cast<std::ptrdiff_t>(parts));
    const TomlNode *const node = findNode(document.root, around);
    if (node->isInline)
      results.push_back(
          withoutMember(text, node->span.begin, behind(path, parts)));
  }
  results.push_back(withoutHeaders(text, path));
  for (std::string &result : results)
    if (means(result, meant))
      return std::move(result);
  throw std::logic_error("the key cannot be taken away");
}

} // namespace ZelDebugDialog::project
