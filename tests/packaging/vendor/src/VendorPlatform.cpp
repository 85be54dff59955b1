#include <cstdarg>
#include <cstdio>

#include "ComMsgMgr.h"
#include "HHSMHwManager.h"

namespace {

constexpr const char *processorName = "cpu0";
constexpr const char *debugModuleName = "hdu_0";
constexpr const char *processorType = "lumacore";

} // namespace

void HHSMHwManager::getProcessorInstances(std::vector<std::string> &names,
                                          bool /*flag*/) {
  names.emplace_back(processorName);
}

void HHSMHwManager::getIpInstances(std::vector<std::string> &names,
                                   HwIpType kind) {
  if (kind == HW_IP_DEBUG)
    names.emplace_back(debugModuleName);
}

void HHSMHwManager::getIpInstances(std::vector<std::string> &names,
                                   const std::string &typeName) {
  if (typeName == processorType)
    names.emplace_back(processorName);
}

std::string HHSMHwManager::getIpName(const std::string &instance) {
  return instance == processorName ? processorType : "hdu";
}

void HHSMHwManager::getHduConnectedProcessorList(
    std::vector<std::string> &names, const std::string &instance) {
  if (instance == debugModuleName)
    names.emplace_back(processorName);
}

void HHSMHwManager::getPeripherals(std::vector<std::string> & /*names*/,
                                   const std::string & /*processor*/) {}

std::string
HHSMHwManager::getParameterValue(const std::string & /*instance*/,
                                 const std::string & /*parameter*/) {
  return {};
}

HHSMHwManager &oneLumacore() {
  static HHSMHwManager design;
  return design;
}

void ComMsgMgr::sendMsg::eval(int /*kind*/, const char * /*sourcePath*/,
                              int /*line*/, const char * /*tool*/,
                              unsigned /*mask*/, const char *format, ...) {
  std::fputs("vendor's log: ", stderr);
  std::va_list arguments;
  va_start(arguments, format);
  std::vfprintf(stderr, format, arguments);
  va_end(arguments);
}
