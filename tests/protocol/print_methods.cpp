// Prints the table of methods: their names, and of each parameter its name,
// what it has to be, and whether it has to be there.
#include <cstdio>

#include "server/Methods.h"

int main() {
  using ZelDebugDialog::protocol::Json;
  Json list = Json::array();
  for (const auto &method : ZelDebugDialog::protocol::methods()) {
    Json parameters = Json::array();
    for (const auto &parameter : method.parameters)
      parameters.push_back(
          {{"name", parameter.name},
           {"is", ZelDebugDialog::protocol::describe(parameter.kind)},
           {"required", parameter.isRequired}});
    list.push_back({{"name", method.name}, {"parameters", parameters}});
  }
  std::puts(list.dump().c_str());
  return 0;
}
