// Boards: the design that is read, and saving several configurations at once.
#include <algorithm>
#include <filesystem>
#include <system_error>

#include <ZelDebugDialog/ConfigurationModel/Text.h>

#include "documents/Designs.h"
#include "documents/Json.h"
#include "documents/Settings.h"
#include "server/Methods.h"

namespace ZelDebugDialog::protocol {

namespace fs = std::filesystem;

namespace {

void expectWanted(const Workplace &place) {
  if (place.isCancelled)
    throw Fault(FaultCode::cancelled, "the request was cancelled");
}

/// A project is named in the place of a design, and says what else there is to
/// say of one.
void expectOneDesign(const Parameters &given) {
  const auto expectAlone = [&given](const char *name, const char *why) {
    if (given.has(name))
      refuseParameter(name, quote(name) + why);
  };
  if (given.has("project")) {
    expectAlone("design", " is named by the project");
    expectAlone("directory", " is named by the project");
    return;
  }
  if (!given.has("design"))
    refuseParameter("design", std::string("'design' is missing: ") +
                                  describe(ParameterKind::path));
  expectAlone("probe", " is one of a project, and there is none");
  expectAlone("profile", " is one of a project, and there is none");
}

/// What a request says stands over what a project says.
DesignSources sourcesOf(const Parameters &given, const ReadFiles *files) {
  DesignSources sources;
  if (files != nullptr)
    sources = files->sources();
  else
    sources.designFile = given.text("design");
  if (given.has("library"))
    sources.libraryFolders = given.texts("library");
  if (given.has("view"))
    sources.view = given.text("view");
  if (given.has("kinds"))
    sources.kindsFile = given.text("kinds");
  if (given.has("maxInstances"))
    sources.maxInstances = given.number("maxInstances");
  return sources;
}

/// Where option files lie in a working directory, in the words of who named it.
std::string optionFolder(const std::string &directory) {
  std::error_code error;
  if (!fs::is_directory(directory, error))
    throw Fault(RefusalKind::noFolder,
                quote(directory) + ": " +
                    (error ? error.message() : "this is no folder"),
                {"", directory, {}, "", directory});
  return (fs::path(directory) / "etc").lexically_normal().string();
}

[[noreturn]] void refuseDesign(const DesignModel &design) {
  std::string message;
  FaultDetails about;
  for (const DesignDiagnostic &each : design.Diagnostics()) {
    if (each.severity != DesignDiagnostic::Severity::error)
      continue;
    if (message.empty()) {
      about.file = each.file;
      about.line = each.line;
    } else {
      message += "\n";
    }
    message += each.file;
    if (each.line > 0)
      message += ":" + std::to_string(each.line);
    message += ": " + each.message;
  }
  throw Fault(RefusalKind::unreadable, message, about);
}

/// A name that no component has would be passed over in silence. One that is
/// not there may have it.
void expectView(const DesignModel &design, const std::string &view) {
  const std::vector<std::string> views = design.Views();
  if (view.empty() || !design.Missing().empty() ||
      std::find(views.begin(), views.end(), view) != views.end())
    return;
  throw Fault(RefusalKind::badValue,
              quote(view) + " is the view of no component",
              {"", view, views, FindNearest(view, views)});
}

} // namespace

Json openBoard(const Workplace &place, const Parameters &given) {
  expectOneDesign(given);
  const std::unique_ptr<ReadFiles> files =
      given.has("project") ? readProjectFiles(given) : nullptr;
  const DesignSources sources = sourcesOf(given, files.get());
  const std::string folder =
      files ? files->folder()
            : optionFolder(
                  given.optionalText("directory").value_or(place.directory));
  const auto opened = std::make_shared<OpenBoard>();
  if (!ReadDesign(sources, opened->design)) {
    if (files)
      files->expectFine();
    refuseDesign(opened->design);
  }
  expectView(opened->design, sources.view);
  expectWanted(place);
  opened->board.emplace(opened->design, folder);
  if (files)
    opened->project = files->open(*opened->board);
  const auto undebuggable =
      documents::findUndebuggable(*opened->board, opened->design);
  expectWanted(place);
  Json result{{"board", place.open.add(opened)},
              {"processors", documents::toJson(opened->board->Processors())},
              {"undebuggable", documents::toJson(undebuggable)},
              {"diagnostics", documents::diagnosticsJson(opened->design)}};
  if (opened->project)
    result["project"] = opened->project->json();
  return result;
}

Json closeBoard(const Workplace &place, const Parameters &given) {
  place.open.closeBoard(given.handle("board"));
  return Json::object();
}

namespace {

using Configuration = std::shared_ptr<OpenConfiguration>;

/// Those that a request names, all of the board where it names none.
std::vector<std::int64_t> numbersOf(const Workplace &place,
                                    const Parameters &given,
                                    const OpenBoard &board) {
  if (!given.has("configurations"))
    return place.open.configurationsOf(board);
  std::vector<std::int64_t> numbers = given.handles("configurations");
  std::vector<std::int64_t> sorted = numbers;
  std::sort(sorted.begin(), sorted.end());
  if (std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end())
    refuseParameter("configurations",
                    "'configurations' names one of them twice");
  return numbers;
}

std::vector<Configuration>
expectConfigurations(const Workplace &place,
                     const std::vector<std::int64_t> &numbers,
                     const OpenBoard &board) {
  std::vector<Configuration> all;
  for (const std::int64_t number : numbers) {
    all.push_back(place.open.expectConfiguration(number, "configurations"));
    if (&all.back()->board() != &board)
      refuseParameter("configurations",
                      "configuration " + std::to_string(number) +
                          " is of another board",
                      {"", std::to_string(number)});
  }
  return all;
}

/// The turns of several, taken in one order whoever else takes some of them.
std::vector<std::unique_lock<std::mutex>>
takeTurns(std::vector<Configuration> configurations) {
  std::sort(configurations.begin(), configurations.end());
  std::vector<std::unique_lock<std::mutex>> turns;
  for (const Configuration &each : configurations)
    turns.emplace_back(each->turn());
  return turns;
}

Json savedJson(const SaveOutcome &outcome) {
  if (outcome.refusal)
    return {{"error", Fault(*outcome.refusal).json()}};
  return {{"file", outcome.file},
          {"command", outcome.command},
          {"losses", documents::lossesJson(outcome.losses)}};
}

} // namespace

Json saveBoard(const Workplace &place, const Parameters &given) {
  const auto board = place.open.expectBoard(given.handle("board"));
  const std::vector<std::int64_t> numbers = numbersOf(place, given, *board);
  const auto all = expectConfigurations(place, numbers, *board);
  const auto turns = takeTurns(all);
  std::vector<Json> before;
  std::vector<Session *> sessions;
  for (const Configuration &each : all) {
    before.push_back(each->toldState());
    sessions.push_back(&each->session());
  }
  SaveOptions options;
  options.force = given.flag("force");
  const std::vector<SaveOutcome> outcomes = SaveSessions(sessions, options);
  Json list = Json::array();
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i]->forgetState();
    Json saved{{"configuration", numbers[i]}};
    saved.update(savedJson(outcomes[i]));
    saved["patch"] = Json::diff(before[i], all[i]->state());
    list.push_back(std::move(saved));
  }
  return {{"configurations", list}};
}

} // namespace ZelDebugDialog::protocol
