#include "server/OpenThings.h"

#include "documents/Json.h"
#include "documents/Settings.h"
#include "server/Parameters.h"

namespace ZelDebugDialog::protocol {

namespace {

using Turn = std::lock_guard<std::mutex>;

/// What of these has a number.
template <class Things>
typename Things::iterator expectIn(Things &things, std::int64_t number,
                                   const char *kind, const char *parameter) {
  const auto found = things.find(number);
  if (found == things.end())
    refuseParameter(parameter,
                    std::string("no ") + kind + " " + std::to_string(number) +
                        " is open",
                    {"", std::to_string(number)});
  return found;
}

} // namespace

OpenConfiguration::OpenConfiguration(std::shared_ptr<OpenBoard> ofBoard,
                                     const std::string &processor)
    : onBoard(std::move(ofBoard)), opened(*onBoard->board, processor) {
  if (onBoard->project)
    onBoard->project->start(opened);
}

const documents::Json &OpenConfiguration::state() {
  // All but what is said of the file, and by a project, depends on the session
  // alone.
  BoardProject *const project = onBoard->project.get();
  const unsigned version = project == nullptr ? 0 : project->version();
  if (isKnown && version == toldVersion && isFileAsTold())
    return told;
  documents::Json now = documents::stateJson(opened.State());
  if (project != nullptr)
    project->addTo(now, opened.Processor());
  told = std::move(now);
  toldVersion = version;
  isKnown = true;
  return told;
}

documents::Json OpenConfiguration::toldState() {
  documents::Json state = told;
  if (!isFileAsTold()) {
    const SessionState now = opened.State();
    state["exists"] = now.exists;
    state["changedOnDisk"] = now.changedOnDisk;
  }
  return state;
}

bool OpenConfiguration::isFileAsTold() const {
  return !told["changedOnDisk"] && !opened.ChangedOnDisk();
}

std::int64_t OpenThings::add(std::shared_ptr<OpenBoard> board) {
  const Turn turn(mutex);
  boards.emplace(++last, std::move(board));
  return last;
}

std::int64_t OpenThings::add(std::shared_ptr<OpenConfiguration> configuration) {
  const Turn turn(mutex);
  configurations.emplace(++last, std::move(configuration));
  return last;
}

std::shared_ptr<OpenBoard> OpenThings::expectBoard(std::int64_t number) {
  const Turn turn(mutex);
  return expectIn(boards, number, "board", "board")->second;
}

std::shared_ptr<OpenConfiguration>
OpenThings::expectConfiguration(std::int64_t number, const char *parameter) {
  const Turn turn(mutex);
  return expectIn(configurations, number, "configuration", parameter)->second;
}

void OpenThings::closeBoard(std::int64_t number) {
  std::vector<std::shared_ptr<OpenConfiguration>> closed;
  const Turn turn(mutex);
  const auto board = expectIn(boards, number, "board", "board");
  for (auto each = configurations.begin(); each != configurations.end();) {
    if (&each->second->board() == board->second.get()) {
      closed.push_back(std::move(each->second));
      each = configurations.erase(each);
    } else {
      ++each;
    }
  }
  boards.erase(board);
}

void OpenThings::closeConfiguration(std::int64_t number) {
  const Turn turn(mutex);
  configurations.erase(
      expectIn(configurations, number, "configuration", "configuration"));
}

std::vector<std::int64_t> OpenThings::configurationsOf(const OpenBoard &board) {
  std::vector<std::int64_t> numbers;
  const Turn turn(mutex);
  for (const auto &[number, configuration] : configurations)
    if (&configuration->board() == &board)
      numbers.push_back(number);
  return numbers;
}

} // namespace ZelDebugDialog::protocol
