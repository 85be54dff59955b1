#include "server/BoardProject.h"

#include <cstdlib>

#include <ZelDebugDialog/ProjectFile/ProjectBoard.h>

#include "documents/Json.h"
#include "documents/Projects.h"
#include "documents/Settings.h"

namespace ZelDebugDialog::protocol {

namespace {

/// With every fault of the files.
Fault faultOf(const FaultyProject &faulty) {
  return Fault(faulty, {{"faults", documents::faultsJson(faulty.faults)}});
}

/// In the words of who sent the request.
[[noreturn]] void refuseWish(const Refusal &refusal) {
  const std::string front = "--";
  if (refusal.setting.compare(0, front.size(), front) != 0)
    throw Fault(refusal);
  const std::string parameter = refusal.setting.substr(front.size());
  FaultDetails about{"", refusal.value, refusal.accepted, refusal.suggestion};
  about.parameter = parameter;
  throw Fault(refusal.kind, parameter + ": " + refusal.problem, about);
}

ProjectWishes wishesOf(const Parameters &given) {
  ProjectWishes wishes = AskEnvironment(std::getenv);
  wishes.probe = given.optionalText("probe");
  wishes.profile = given.optionalText("profile");
  return wishes;
}

class OpenProject : public BoardProject {
public:
  explicit OpenProject(const ProjectBoard &opened) : project(opened) {}

  Json json() const override { return documents::projectJson(project); }
  unsigned version() const override { return project.Version(); }
  void start(Session &session) const override { project.Start(session); }
  void addTo(Json &state, const std::string &processor) const override {
    documents::addSaid(state, project.Said(processor));
  }
  Json write(Session &session, const ProjectChange &change) override;

private:
  ProjectBoard project;
};

Json OpenProject::write(Session &session, const ProjectChange &change) {
  ProjectEdit edit;
  try {
    ReadTarget(change.into, edit);
  } catch (const Refusal &refusal) {
    refuseParameter("into", refusal.problem,
                    {"", refusal.value, refusal.accepted, refusal.suggestion});
  }
  edit.values = change.values;
  edit.unset = change.unset;
  try {
    const WrittenProject written = project.Write(session, edit);
    return {{"effects", documents::effectsJson(written.effects)},
            {"written", documents::writtenJson(written)}};
  } catch (const FaultyProject &faulty) {
    throw faultOf(faulty);
  } catch (const Refusal &refusal) {
    const bool isOfTarget =
        refusal.kind == RefusalKind::badValue && refusal.setting.empty();
    if (isOfTarget)
      throw Fault(refusal, {{"parameter", "into"}});
    throw;
  }
}

class Files : public ReadFiles {
public:
  explicit Files(const Parameters &given)
      : wishes(wishesOf(given)), project(ReadProject(given.text("project"))) {
    // Without one there is nothing to look at them with.
    if (!project.project.design)
      expectFine();
  }

  DesignSources sources() const override {
    return {project.Design(), project.Libraries(), project.View(),
            project.Kinds()};
  }
  std::string folder() const override { return OptionFolderOf(project); }
  void expectFine() const override {
    if (project.HasErrors())
      throw faultOf(FaultyProject(project.faults));
  }
  std::shared_ptr<BoardProject> open(const Board &board) const override {
    try {
      return std::make_shared<OpenProject>(
          ProjectBoard(project, board, wishes));
    } catch (const FaultyProject &faulty) {
      throw faultOf(faulty);
    } catch (const Refusal &refusal) {
      refuseWish(refusal);
    }
  }

private:
  ProjectWishes wishes;
  Project project;
};

} // namespace

std::unique_ptr<ReadFiles> readProjectFiles(const Parameters &given) {
  return std::make_unique<Files>(given);
}

} // namespace ZelDebugDialog::protocol
