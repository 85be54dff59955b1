#include "output/AllCodes.h"

#include <ZelDebugDialog/ConfigurationModel/Codes.h>
#include <ZelDebugDialog/ProjectFile/Codes.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::Code;
using ZelDebugDialog::ProjectCode;
using ZelDebugDialog::ShowSeverity;

std::vector<CodeRow> makeAll() {
  std::vector<CodeRow> all;
  for (const Code &row : ZelDebugDialog::GetCodes())
    all.push_back({row.code, ShowSeverity(row.severity), row.meaning,
                   row.example, row.where, row.advice});
  for (const ProjectCode &row : ZelDebugDialog::GetProjectCodes())
    all.push_back({row.code, ShowSeverity(row.severity), row.meaning,
                   row.example, row.example.empty() ? "" : "in a project file",
                   row.advice});
  return all;
}

} // namespace

const std::vector<CodeRow> &allCodes() {
  static const std::vector<CodeRow> all = makeAll();
  return all;
}

std::vector<std::string> codeNames() {
  std::vector<std::string> names;
  for (const CodeRow &row : allCodes())
    names.push_back(row.code);
  return names;
}

} // namespace zeldebug
