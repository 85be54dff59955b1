#include "SavedConfiguration.h"

#include <fmt/format.h>

#include "Refusal.h"
#include "line/WorkingFolder.h"
#include "output/Output.h"

namespace zeldebug {

std::string SavedConfiguration::problem() const {
  if (!file.problem.empty())
    return fmt::format("{}: {}", printable(shownPath(path)), file.problem);
  const std::string place =
      fmt::format("{}:{}", printable(shownPath(path)), file.line);
  if (!file.isText())
    return fmt::format("{}: the command holds bytes that are no text", place);
  if (file.isCut())
    return fmt::format(
        "{}: the command has {} characters, but only {} of a line "
        "are read",
        place, file.text.size(), optionLineLimit);
  if (!reading.accepted())
    return fmt::format("{}: the command is refused: {}", place, refusal);
  return "";
}

SavedConfiguration selectSaved(Session &session, const std::string &processor) {
  SavedConfiguration saved;
  saved.path = optionFilePath(std::filesystem::current_path(), processor);
  saved.file = readCommandFile(saved.path);
  saved.reading = session.selectSaved(processor);
  if (!saved.reading.accepted())
    saved.refusal = refusalOfFile(saved.reading, saved.file.text,
                                  session.state->hwManager, processor);
  return saved;
}

} // namespace zeldebug
