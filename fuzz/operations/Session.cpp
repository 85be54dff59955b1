#include "operations/Session.h"

#include <unistd.h>

#include "common/Require.h"
#include "support/RecordText.h"

namespace fuzz {
namespace {

JtagOption deviceFrom(Bytes &bytes) {
  JtagOption device;
  device.partname = bytes.text();
  device.idcode = bytes.number();
  device.irlength = static_cast<std::int8_t>(bytes.byte());
  device.devicenr = static_cast<std::int8_t>(bytes.byte());
  return device;
}

} // namespace

Session::Session(Bytes &input)
    : bytes(input), imp(*engine.GetProcessorList(nullptr)) {
  for (auto &design : designs)
    design = std::make_unique<AnsweredDesign>(bytes);
  for (JtagOption &device : devices)
    device = deviceFrom(bytes);
  devicesBefore = devices;
}

Session::~Session() {
  keepChain();
  keepOwnRecord();
  for (JtagOption *device : readDevices)
    delete device;
  if (model.current == Model::Current::own)
    imp.currentProcessor = nullptr;
  ReleaseProcessorRecords(imp);
  for (ProcessorInfoImp *record : ownRecords)
    delete record;
  for (const std::string &file : files)
    unlink(file.c_str());
  for (std::size_t at = 0; at < devices.size(); ++at)
    requireSame(support::textOf(devices[at]),
                support::textOf(devicesBefore[at]),
                "a caller's devices are only read");
}

void Session::keepChain() {
  for (JtagOption *device : imp.jtagChain)
    if (device < devices.data() || device >= devices.data() + devices.size())
      readDevices.insert(device);
}

void Session::keepOwnRecord() {
  if (model.current == Model::Current::own)
    ownRecords.insert(imp.currentProcessor);
}

std::vector<JtagOption *> Session::someDevices() {
  std::vector<JtagOption *> chain(bytes.below(4));
  for (JtagOption *&device : chain)
    device = &devices[bytes.below(devices.size())];
  return chain;
}

std::string Session::someName() {
  const std::size_t which = bytes.below(8);
  if (which == 7)
    return bytes.text();
  return which < model.list.size() ? model.list[which].instanceName : "";
}

std::string Session::optionFile(const std::string &processor) {
  std::string file = "etc/kvo_" + processor + ".opt";
  if (processor.find('\0') == std::string::npos)
    files.insert(file);
  return file;
}

} // namespace fuzz
