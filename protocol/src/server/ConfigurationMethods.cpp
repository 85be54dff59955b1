// Configurations: opened, changed, saved and closed.
#include <utility>

#include "documents/Json.h"
#include "documents/Settings.h"
#include "server/AskedValues.h"
#include "server/Methods.h"

namespace ZelDebugDialog::protocol {

namespace {

using Turn = std::lock_guard<std::mutex>;

std::shared_ptr<OpenConfiguration> configurationOf(const Workplace &place,
                                                   const Parameters &given) {
  return place.open.expectConfiguration(given.handle("configuration"));
}

/// What was refused has changed nothing; whatever else ends it may have.
template <class Act>
Json unlessRefused(OpenConfiguration &configuration, const Act &act) {
  try {
    Json result = act(configuration.session());
    configuration.forgetState();
    return result;
  } catch (const Refusal &) {
    throw;
  } catch (...) {
    configuration.forgetState();
    throw;
  }
}

/// Does something with a configuration.
/// @return what `act` returns, with the patch from the state that was last told
template <class Act>
Json patched(const Workplace &place, const Parameters &given, const Act &act) {
  const auto configuration = configurationOf(place, given);
  const Turn turn(configuration->turn());
  const Json before = configuration->toldState();
  Json result = unlessRefused(*configuration, act);
  result["patch"] = Json::diff(before, configuration->state());
  return result;
}

/// The same, where `act` returns effects.
template <class Act>
Json effectsOf(const Workplace &place, const Parameters &given,
               const Act &act) {
  return patched(place, given, [&act](Session &session) {
    return Json{{"effects", documents::effectsJson(act(session))}};
  });
}

/// The same for a change that goes to a file of the project as well.
Json writeInto(const Workplace &place, const Parameters &given,
               const SettingValues &values,
               const std::vector<std::string> &unset) {
  const auto project = configurationOf(place, given)->board().project;
  if (!project)
    refuseParameter("into",
                    "'into' names a part of a project, and the board "
                    "has none",
                    {"", given.text("into")});
  return patched(place, given, [&](Session &session) {
    return project->write(session, {given.text("into"), values, unset});
  });
}

} // namespace

Json openConfiguration(const Workplace &place, const Parameters &given) {
  const auto board = place.open.expectBoard(given.handle("board"));
  const auto opened =
      std::make_shared<OpenConfiguration>(board, given.text("processor"));
  const Turn turn(opened->turn());
  const Json &state = opened->state();
  return {{"configuration", place.open.add(opened)}, {"state", state}};
}

Json stateOfConfiguration(const Workplace &place, const Parameters &given) {
  const auto configuration = configurationOf(place, given);
  const Turn turn(configuration->turn());
  return {{"state", configuration->state()}};
}

Json closeConfiguration(const Workplace &place, const Parameters &given) {
  place.open.closeConfiguration(given.handle("configuration"));
  return Json::object();
}

Json changeConfiguration(const Workplace &place, const Parameters &given) {
  const SettingValues values = askedValues(given.json("values"));
  if (given.has("into"))
    return writeInto(place, given, values, {});
  return effectsOf(place, given, [&values](Session &session) {
    return session.Change(values);
  });
}

Json draftConfiguration(const Workplace &place, const Parameters &given) {
  const std::string &setting = given.text("setting");
  const std::optional<std::string> text = given.optionalText("text");
  return effectsOf(place, given, [&](Session &session) {
    return text ? session.Draft(setting, *text) : session.DropDraft(setting);
  });
}

Json editConfiguration(const Workplace &place, const Parameters &given) {
  const std::string &command = given.text("command");
  return effectsOf(place, given, [&command](Session &session) {
    return session.Edit(command);
  });
}

Json undoConfiguration(const Workplace &place, const Parameters &given) {
  return effectsOf(place, given,
                   [](Session &session) { return session.Undo(); });
}

Json redoConfiguration(const Workplace &place, const Parameters &given) {
  return effectsOf(place, given,
                   [](Session &session) { return session.Redo(); });
}

Json revertConfiguration(const Workplace &place, const Parameters &given) {
  return effectsOf(place, given,
                   [](Session &session) { return session.Revert(); });
}

Json resetConfiguration(const Workplace &place, const Parameters &given) {
  const bool isOfAll = !given.has("settings");
  const std::vector<std::string> settings = given.texts("settings");
  if (given.has("into") && isOfAll)
    refuseParameter("settings", "'settings' is missing: with 'into' each is "
                                "named that the file is to say nothing of");
  if (given.has("into"))
    return writeInto(place, given, {}, settings);
  return effectsOf(place, given, [&](Session &session) {
    return isOfAll || !settings.empty() ? session.Reset(settings)
                                        : std::vector<Effect>();
  });
}

Json copyConfiguration(const Workplace &place, const Parameters &given) {
  const auto other =
      place.open.expectConfiguration(given.handle("from"), "from");
  return effectsOf(place, given, [&other](Session &session) {
    return session.CopyFrom(other->session());
  });
}

Json saveConfiguration(const Workplace &place, const Parameters &given) {
  SaveOptions options;
  options.force = given.flag("force");
  return patched(place, given, [&options](Session &session) {
    const SaveOutcome outcome = session.Save(options);
    return Json{{"file", outcome.file},
                {"command", outcome.command},
                {"losses", documents::lossesJson(outcome.losses)}};
  });
}

} // namespace ZelDebugDialog::protocol
