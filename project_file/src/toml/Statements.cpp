#include "toml/Statements.h"

#include <algorithm>
#include <array>
#include <charconv>

#include <fmt/format.h>

namespace ZelDebugDialog::project {

namespace {

constexpr std::size_t none = std::string_view::npos;

bool isBare(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         (c >= '0' && c <= '9') || c == '_' || c == '-';
}

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::size_t skipBlanks(std::string_view text, std::size_t at) {
  while (at < text.size() && isBlank(text[at]))
    ++at;
  return at;
}

/// The end of the line, line end not included.
std::size_t endOfLine(std::string_view text, std::size_t at) {
  return std::min(text.find('\n', at), text.size());
}

/// Behind a string that begins here; behind its line if it does not end.
std::size_t skipString(std::string_view text, std::size_t at) {
  const char quote = text[at];
  const std::string three(3, quote);
  if (text.substr(at, 3) == three) {
    for (at += 3; at < text.size(); ++at) {
      if (quote == '"' && text[at] == '\\')
        ++at;
      else if (text.substr(at, 3) == three) {
        at += 3;
        // Up to two quotes may stand in front of those that end it.
        for (int more = 0; more < 2 && at < text.size() && text[at] == quote;
             ++more)
          ++at;
        return at;
      }
    }
    return text.size();
  }
  for (++at; at < text.size() && text[at] != '\n'; ++at) {
    if (quote == '"' && text[at] == '\\' && at + 1 < text.size() &&
        text[at + 1] != '\n')
      ++at;
    else if (text[at] == quote)
      return at + 1;
  }
  return at;
}

/// Behind an array or a table in braces.
std::size_t skipBrackets(std::string_view text, std::size_t at) {
  std::size_t depth = 0;
  while (at < text.size()) {
    const char c = text[at];
    if (c == '"' || c == '\'') {
      at = skipString(text, at);
      continue;
    }
    if (c == '#') {
      at = endOfLine(text, at);
      continue;
    }
    if (c == '[' || c == '{')
      ++depth;
    ++at;
    if ((c == ']' || c == '}') && --depth == 0)
      return at;
  }
  return at;
}

/// @param ends  what may follow on the line, beside its end
std::size_t skipValue(std::string_view text, std::size_t at,
                      std::string_view ends) {
  if (at < text.size() && (text[at] == '"' || text[at] == '\''))
    return skipString(text, at);
  if (at < text.size() && (text[at] == '[' || text[at] == '{'))
    return skipBrackets(text, at);
  std::size_t end = std::min(text.find_first_of(ends, at), endOfLine(text, at));
  while (end > at && (isBlank(text[end - 1]) || text[end - 1] == '\r'))
    --end;
  return end;
}

void appendUtf8(std::string &text, unsigned long code) {
  const auto add = [&text](unsigned long byte) {
    text += static_cast<char>(static_cast<unsigned char>(byte));
  };
  if (code < 0x80) {
    add(code);
  } else if (code < 0x800) {
    add(0xC0 | (code >> 6));
    add(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    add(0xE0 | (code >> 12));
    add(0x80 | ((code >> 6) & 0x3F));
    add(0x80 | (code & 0x3F));
  } else {
    add(0xF0 | ((code >> 18) & 0x07));
    add(0x80 | ((code >> 12) & 0x3F));
    add(0x80 | ((code >> 6) & 0x3F));
    add(0x80 | (code & 0x3F));
  }
}

struct Escape {
  char letter;
  char meaning;
};
constexpr std::array<Escape, 7> escapes{{{'b', '\b'},
                                         {'t', '\t'},
                                         {'n', '\n'},
                                         {'f', '\f'},
                                         {'r', '\r'},
                                         {'"', '"'},
                                         {'\\', '\\'}}};

std::string unescaped(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\\' || at + 1 == text.size()) {
      result += text[at];
      continue;
    }
    const char letter = text[++at];
    const std::size_t digits = letter == 'u' ? 4 : letter == 'U' ? 8 : 0;
    if (digits != 0) {
      const std::string_view number = text.substr(at + 1, digits);
      unsigned long code = 0;
      std::from_chars(number.data(), number.data() + number.size(), code, 16);
      appendUtf8(result, code);
      at += number.size();
      continue;
    }
    for (const Escape &escape : escapes)
      if (escape.letter == letter)
        result += escape.meaning;
  }
  return result;
}

/// Reads `a."b".c`.
/// @return behind it, or none for what is no key
std::size_t readPath(std::string_view text, std::size_t at, Path &path) {
  for (;;) {
    at = skipBlanks(text, at);
    if (at >= text.size())
      return none;
    std::size_t end = at;
    if (text[at] == '"' || text[at] == '\'') {
      end = skipString(text, at);
      if (end - at < 2 || text[end - 1] != text[at])
        return none;
      const std::string_view inner = text.substr(at + 1, end - at - 2);
      path.push_back(text[at] == '"' ? unescaped(inner) : std::string(inner));
    } else {
      while (end < text.size() && isBare(text[end]))
        ++end;
      if (end == at)
        return none;
      path.emplace_back(text.substr(at, end - at));
    }
    at = skipBlanks(text, end);
    if (at >= text.size() || text[at] != '.')
      return end;
    ++at;
  }
}

bool needsEscape(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F || c == '"' ||
         c == '\\';
}

std::string escaped(const std::string &text) {
  std::string result;
  for (const char c : text) {
    const auto *const found =
        std::find_if(escapes.begin(), escapes.end(),
                     [c](const Escape &escape) { return escape.meaning == c; });
    if (found != escapes.end())
      result += std::string("\\") + found->letter;
    else if (needsEscape(c))
      result += fmt::format("\\u{:04X}", static_cast<unsigned char>(c));
    else
      result += c;
  }
  return result;
}

/// A header from its bracket on. @return whether it has its end
bool readHeader(std::string_view text, Statement &statement) {
  const bool isArray = text.substr(statement.key.begin, 2) == "[[";
  const std::size_t brackets = isArray ? 2 : 1;
  statement.kind =
      isArray ? Statement::Kind::arrayHeader : Statement::Kind::header;
  const std::size_t behind =
      readPath(text, statement.key.begin + brackets, statement.path);
  if (behind == none)
    return false;
  const std::size_t close = skipBlanks(text, behind);
  statement.key.end = close + brackets;
  return close < text.size() && text[close] == ']';
}

/// A key and its value. @return whether there is a key with its equals sign
bool readPair(std::string_view text, Statement &statement,
              std::string_view ends) {
  statement.key.end = readPath(text, statement.key.begin, statement.path);
  if (statement.key.end == none)
    return false;
  const std::size_t equals = skipBlanks(text, statement.key.end);
  if (equals >= text.size() || text[equals] != '=')
    return false;
  statement.value.begin = skipBlanks(text, equals + 1);
  statement.value.end = skipValue(text, statement.value.begin, ends);
  return true;
}

} // namespace

std::vector<Statement> statementsOf(std::string_view text) {
  std::vector<Statement> statements;
  Path header;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t at = skipBlanks(text, start);
    std::size_t end = endOfLine(text, at);
    if (at != end && text[at] != '#' && text[at] != '\r') {
      Statement statement;
      statement.key.begin = at;
      const bool isHeader = text[at] == '[';
      if (!(isHeader ? readHeader(text, statement)
                     : readPair(text, statement, "#")))
        return statements;
      if (isHeader)
        header = statement.path;
      else
        end = endOfLine(text, statement.value.end);
      statement.headerPath = header;
      statement.lines = {start, std::min(end + 1, text.size())};
      statements.push_back(std::move(statement));
    }
    start = end + 1;
  }
  return statements;
}

std::vector<Statement> pairsInBraces(std::string_view text, std::size_t at) {
  std::vector<Statement> pairs;
  do {
    Statement pair;
    pair.key.begin = skipBlanks(text, at + 1);
    if (!readPair(text, pair, ",}"))
      break;
    at = skipBlanks(text, pair.value.end);
    pairs.push_back(std::move(pair));
  } while (at < text.size() && text[at] == ',');
  return pairs;
}

std::optional<std::size_t> findDeepKey(std::string_view text,
                                       std::size_t most) {
  std::size_t dots = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    if (c == '"' || c == '\'') {
      at = skipString(text, at);
      continue;
    }
    if (c == '#') {
      at = endOfLine(text, at);
      continue;
    }
    if (c == '\n' || c == '=' || c == ',' || c == '{' || c == '[')
      dots = 0;
    if (c == '.' && ++dots >= most)
      return at;
    ++at;
  }
  return std::nullopt;
}

std::string writtenKey(const std::string &key) {
  return !key.empty() && std::all_of(key.begin(), key.end(), isBare)
             ? key
             : writtenText(key);
}

std::string writtenPath(const Path &path) {
  std::string text;
  for (const std::string &key : path)
    text += (text.empty() ? "" : ".") + writtenKey(key);
  return text;
}

std::string writtenText(const std::string &text, char quote) {
  const bool isLiteral =
      quote == '\'' && std::none_of(text.begin(), text.end(), [](char c) {
        return c == '\'' ||
               (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
      });
  return isLiteral ? "'" + text + "'" : '"' + escaped(text) + '"';
}

} // namespace ZelDebugDialog::project
