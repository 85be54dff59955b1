// Whole records as text, a line a field, so that a test can say with one
// comparison that these fields changed and no others.
#ifndef TESTS_SUPPORT_RECORDTEXT_H
#define TESTS_SUPPORT_RECORDTEXT_H

#include <string>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace support {

std::string textOf(const ZelDebugDialog::ProcessorInfoImp &record);
std::string textOf(const ZelDebugDialog::ProcessorInfo &info);
std::string textOf(const ZelDebugDialog::CableOption &cable);
std::string textOf(const ZelDebugDialog::JtagOption &device);
/// Every member, pointers as addresses, and the current record's fields.
std::string textOf(const ZelDebugDialog::EngineImp &state);

/// A record in which no field, the identity included, holds its default.
ZelDebugDialog::ProcessorInfoImp unusualRecord();
/// A `QUORLA_PODUSB` in which no field holds a default.
ZelDebugDialog::CableOption unusualCable();

} // namespace support

#endif
