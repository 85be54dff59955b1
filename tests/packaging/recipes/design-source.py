# A reader of a plain table, as an example of its own.
create("examples/table_source/CMakeLists.txt", r'''
# Builds against an installed ZelDebugDialog, or as part of its tree.
cmake_minimum_required(VERSION 3.25)
project(TableSource LANGUAGES CXX)

if(NOT TARGET ZelDebugDialog::ZelDebugDialog)
    find_package(ZelDebugDialog 1.0 REQUIRED COMPONENTS DesignModel)
endif()
add_executable(table_source table_source.cpp)
target_link_libraries(table_source PRIVATE
    ZelDebugDialog::ZelDebugDialog ZelDebugDialog::DesignModel)
''')
create("examples/table_source/board.txt", r'''
debug_0 hdu
core_0 lumacore debug_0
core_1 lumacore debug_0
core_2 lumacore
serial_0 uart_mini_ember core_1
''')
create("examples/table_source/table_source.cpp", r'''
// A design source of one's own: reads a plain table of instances into a design
// model, which then answers the engine. Prints the processors that can be
// debugged.
//
//   table_source board.txt        # a line: name, type, what it is attached to
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"

using namespace ZelDebugDialog;

namespace {

bool readTable(const char *file, DesignModel &model) {
  std::ifstream table(file);
  if (!table)
    return false;
  DesignInterface initiator;
  initiator.name = "OUT";
  initiator.mode = InterfaceMode::initiator;
  DesignInterface target;
  target.name = "IN";

  std::map<std::string, DesignModel::InstanceId> instances;
  std::string line;
  for (int number = 1; std::getline(table, line); ++number) {
    std::istringstream words(line);
    std::string name, type, attachedTo;
    words >> name >> type >> attachedTo;
    const DesignOrigin origin{file, number};
    DesignComponent component;
    component.typeName = type;
    component.interfaces = {initiator, target};
    component.origin = origin;
    const auto added = model.AddInstance(name, model.AddComponent(component),
                                         DesignModel::top, origin);
    if (!added)
      continue; // the model's diagnostics say why
    instances[name] = *added;
    const auto other = instances.find(attachedTo);
    if (other == instances.end())
      continue;
    DesignConnection connection;
    connection.ends = {{other->second, "OUT"}, {*added, "IN"}};
    connection.origin = origin;
    model.Connect(connection);
  }
  return true;
}

} // namespace

int main(int count, char **arguments) {
  DesignModel model;
  if (count != 2 || !readTable(arguments[1], model))
    return 2;
  Engine engine;
  EngineImp *const found = engine.GetProcessorList(&model);
  for (const ProcessorInfoImp *processor : found->processorList)
    std::printf("%s connections 0x%x\n", processor->instanceName.c_str(),
                static_cast<unsigned>(processor->connectionMask));
  ReleaseProcessorRecords(*found);
}
''')
create("tests/packaging/examples/table_source.txt", r'''
core_0 connections 0x3
core_1 connections 0x87
core_2 connections 0x1
''')

behind("tests/packaging/CMakeLists.txt", "zeldebugdialog_example_test(option_files ${board})", """
    zeldebugdialog_example_test(table_source
        ${PROJECT_SOURCE_DIR}/examples/table_source/board.txt)
""")
