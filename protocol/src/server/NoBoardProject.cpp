// Where the library of project files is left out.
#include "server/BoardProject.h"

namespace ZelDebugDialog::protocol {

std::unique_ptr<ReadFiles> readProjectFiles(const Parameters &given) {
  refuseParameter("project", "this server was built without project files",
                  {"", given.text("project")});
}

} // namespace ZelDebugDialog::protocol
