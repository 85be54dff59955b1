// One device of the JTAG chain, as the option --device gives it.
#ifndef ZELDEBUG_CHAINDEVICE_H
#define ZELDEBUG_CHAINDEVICE_H

#include <string>

#include <ZelDebugDialog/ConfigurationModel/Value.h>

namespace zeldebug {

/// Reads "devicenr=N,partname=T,irlength=N,idcode=N" and, optionally, isfpga,
/// hardppc and nppc.
/// @throws Failure (wrong use): a key that is unknown, missing or given twice,
/// or
///   a value that its field cannot hold.
ZelDebugDialog::ChainDevice expectChainDevice(const std::string &text);

} // namespace zeldebug

#endif
